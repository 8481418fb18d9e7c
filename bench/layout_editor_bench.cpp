// The layout editor with a page of 20 x 20 cells, a text in each: opening against its bare
// template, painting the page or one cell of it and a step of a border's drag against a window that
// only paints the same, and selecting all cells against the time of a frame.
#include "bench/bare_page_view.h"
#include "bench/benchmarks.h"
#include "bench/opening.h"
#include "bench/timing.h"
#include "dialogs/layout/editor_settings.h"
#include "driver/controls.h"
#include "driver/dialog_owner.h"
#include "driver/modal_script.h"
#include "driver/picture.h"
#include "res/ids.h"

#include <quorvel/quorvel.h>

// Needs <windows.h> above.
#include <commctrl.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <vector>

namespace quorvel::bench {

namespace {

using driver::Control;
using driver::ReadPixels;

constexpr int kLines = 20;
constexpr double kRowLength = 8.0;   ///< millimetres
constexpr double kColLength = 22.5;  ///< millimetres
constexpr double kDotsPerMm = 11.811;
constexpr int kWarmUps = 20;

void Require(bool holds, const char* complaint) {
  if (!holds) {
    throw std::runtime_error(complaint);
  }
}

CLayoutPageData FullPage() {
  CLayoutPageData page;
  page.DividePage(kLines, kLines, kDotsPerMm);
  page.SetAllLengthRow(kLines * kRowLength, 1);
  page.SetAllLengthCol(kLines * kColLength, 1);
  for (int index = 0; index < page.GetCelSize(); ++index) {
    page.GetCelAt(index)->SetText(("図面" + std::to_string(index)).c_str());
  }
  return page;
}

void OpenEditor() {
  static const CLayoutPageData full = FullPage();
  CLayoutPageData page = full;
  __LayoutEditDlg(nullptr, &page, nullptr, nullptr, kDotsPerMm, 0, nullptr);
}

/// Opens the editor and measures in it. What `measure` throws is the benchmark's error.
void InEditor(const std::function<void(HWND dialog)>& measure) {
  driver::ModalScript script;
  script.When(driver::Painted(driver::DialogWithControl(IDC_LAYOUT_IMAGE)), [&](HWND dialog) {
    driver::PressKey(dialog, VK_ESCAPE);  // posted: the dialog closes when all is measured
    measure(dialog);
  });
  OpenEditor();
  Require(script.Finished(), script.Problem().c_str());
}

/// The picture and where the mouse meets what.
class EditorPicture {
public:
  explicit EditorPicture(HWND dialog)
      : m_dialog(dialog),
        m_window(Control(dialog, IDC_LAYOUT_IMAGE)),
        m_area(driver::ClientRectOf(m_window)) {}

  HWND Window() const { return m_window; }
  CSize Size() const { return m_area.Size(); }

  /// A message of the mouse, at a point of the picture.
  void Mouse(UINT message, const CPoint& point) const {
    ::SendMessageW(m_dialog, message, message == WM_LBUTTONUP ? 0 : MK_LBUTTON,
                   MAKELPARAM(point.x + m_area.left, point.y + m_area.top));
  }
  void Click(const CPoint& point) const {
    Mouse(WM_LBUTTONDOWN, point);
    Mouse(WM_LBUTTONUP, point);
  }

private:
  HWND m_dialog;
  HWND m_window;
  CRect m_area;
};

/// Seconds from before `act` to the last pixel of the window.
double TimeOf(HWND window, const std::function<void()>& act) {
  const LONGLONG start = Ticks();
  act();
  ::UpdateWindow(window);
  ::GdiFlush();
  return Seconds(start, Ticks());
}

double TimeOfRepaint(HWND window, const CRect* area = nullptr) {
  return TimeOf(window, [&] { ::InvalidateRect(window, area, FALSE); });
}

/// `ours` and `bare`, each of which gives seconds for a step, in turn; the ratio of the medians.
template <class Ours, class Bare>
double RatioOfSteps(int runs, Ours ours, Bare bare) {
  std::vector<double> oursTook;
  std::vector<double> bareTook;
  for (int step = 0; step < kWarmUps + runs; ++step) {
    const double one = ours(step);
    const double other = bare(step);
    if (step >= kWarmUps) {
      oursTook.push_back(one);
      bareTook.push_back(other);
    }
  }
  return Median(oursTook) / Median(bareTook);
}

struct ImageListDeleter {
  void operator()(HIMAGELIST list) const { ::ImageList_Destroy(list); }
};
using OwnedImageList = std::unique_ptr<std::remove_pointer_t<HIMAGELIST>, ImageListDeleter>;

/// The editor's template run by the platform alone, with its two tool bars.
class BareEditor {
public:
  void Run(HWND owner) {
    m_context.Run([&] {
      ::DialogBoxParamW(m_module, MAKEINTRESOURCEW(IDD_LAYOUT), owner, OnMessage,
                        reinterpret_cast<LPARAM>(this));
    });
  }

private:
  static INT_PTR CALLBACK OnMessage(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
      constexpr std::array kFileTools{TOOLITEM{IDM_OPEN_LAYOUT, 0, FALSE},
                                      TOOLITEM{IDM_SAVE_LAYOUT, 1, FALSE}};
      constexpr CPoint kCelBar{30, 122};
      constexpr CPoint kFileBar{630, 122};
      auto& self = *reinterpret_cast<BareEditor*>(lParam);
      self.m_celImages = self.AddBar(dialog, IDB_CELL_TOOLS, kGridCelTools, kCelBar);
      self.m_fileImages = self.AddBar(dialog, IDB_FILE_TOOLS, kFileTools, kFileBar);
      return TRUE;
    }
    if (message == WM_COMMAND && (LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL)) {
      ::EndDialog(dialog, LOWORD(wParam));
    }
    return FALSE;
  }

  OwnedImageList AddBar(HWND dialog, int bitmap, std::span<const TOOLITEM> items,
                        const CPoint& position) const {
    constexpr int kImageWidth = 16;
    constexpr int kImageHeight = 15;
    OwnedImageList images(::ImageList_LoadImageW(m_module, MAKEINTRESOURCEW(bitmap), kImageWidth, 0,
                                                 RGB(0xC0, 0xC0, 0xC0), IMAGE_BITMAP,
                                                 LR_DEFAULTCOLOR));
    const HWND bar =
        ::CreateWindowExW(0, TOOLBARCLASSNAMEW, L"", kToolStyle, position.x, position.y, 0, 0,
                          dialog, nullptr, m_module, nullptr);
    std::vector<TBBUTTON> buttons;
    for (const TOOLITEM& item : items) {
      TBBUTTON button{};
      button.fsStyle = item.bSeparator != FALSE ? BTNS_SEP : BTNS_BUTTON;
      button.idCommand = static_cast<int>(item.nCommand);
      button.iBitmap = item.nImage;
      buttons.push_back(button);
    }
    ::SendMessageW(bar, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
    ::SendMessageW(bar, TB_SETBITMAPSIZE, 0, MAKELPARAM(kImageWidth, kImageHeight));
    ::SendMessageW(bar, TB_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(images.get()));
    ::SendMessageW(bar, TB_ADDBUTTONSW, buttons.size(), reinterpret_cast<LPARAM>(buttons.data()));
    SIZE size{};
    ::SendMessageW(bar, TB_GETMAXSIZE, 0, reinterpret_cast<LPARAM>(&size));
    ::SetWindowPos(bar, nullptr, position.x, position.y, size.cx, size.cy,
                   SWP_NOZORDER | SWP_NOACTIVATE);
    return images;
  }

  HMODULE m_module = ::GetModuleHandleW(L"Quorvel.dll");
  driver::ModuleContext m_context{m_module};
  OwnedImageList m_celImages;  ///< they must outlive their bars
  OwnedImageList m_fileImages;
};

/// What painting the page costs is taken off: the bare template has none.
std::vector<Row> Opening(int runs) {
  constexpr double kMost = 1.5;
  constexpr double kMillisecondsInSecond = 1000.0;
  std::vector<double> repaints;
  InEditor([&](HWND dialog) {
    const BarePageView bare(FullPage(), EditorPicture(dialog).Size());
    for (int run = 0; run < runs; ++run) {
      repaints.push_back(TimeOfRepaint(bare.Window()));
    }
  });
  BareEditor bare;
  return CompareOpening("__LayoutEditDlg", kMost, runs, OpenEditor,
                        [&bare](HWND owner) { bare.Run(owner); },
                        kMillisecondsInSecond * Median(repaints));
}

Row Repaint(int runs) {
  constexpr double kMost = 1.3;
  double ratio = 0.0;
  InEditor([&](HWND dialog) {
    const EditorPicture picture(dialog);
    const BarePageView bare(FullPage(), picture.Size());
    ratio = RatioOfSteps(
        runs, [&](int /*step*/) { return TimeOfRepaint(picture.Window()); },
        [&](int /*step*/) { return TimeOfRepaint(bare.Window()); });
    Require(ReadPixels(picture.Window()) == ReadPixels(bare.Window()),
            "the bare window paints another page");
  });
  return {"layout editor, repaint of 20 x 20 cells", "times bare", ratio, kMost, runs};
}

constexpr int kMiddleCel = kLines / 2 * kLines + kLines / 2;

CPoint CentreOf(const CRect& rect) {
  return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
}

Row CelCommand(int runs) {
  constexpr double kMost = 2.0;
  constexpr std::array kPlaces{UINT{DT_VCENTER}, UINT{DT_TOP}};
  constexpr std::array kCommands{IDM_ALIGN_MIDDLE, IDM_ALIGN_TOP};
  double ratio = 0.0;
  InEditor([&](HWND dialog) {
    const EditorPicture picture(dialog);
    BarePageView bare(FullPage(), picture.Size());
    picture.Click(CentreOf(bare.RectOf(kMiddleCel)));
    ::UpdateWindow(picture.Window());
    ratio = RatioOfSteps(
        runs,
        [&](int step) {
          const int command = kCommands[static_cast<std::size_t>(step % 2)];
          return TimeOf(picture.Window(), [&] {
            ::SendMessageW(dialog, WM_COMMAND, static_cast<WPARAM>(command), 0);
          });
        },
        [&](int step) {
          bare.SelectCel(kMiddleCel, kPlaces[static_cast<std::size_t>(step % 2)]);
          const CRect area = bare.SelectedArea();
          return TimeOfRepaint(bare.Window(), &area);
        });
    Require(ReadPixels(picture.Window()) == ReadPixels(bare.Window()),
            "the bare window paints another cell");
  });
  return {"layout editor, command on one cell", "times bare", ratio, kMost, runs};
}

Row BorderDragStep(int runs) {
  constexpr double kMost = 2.0;
  constexpr int kReach = 3;  ///< of the guide line, pixels
  double ratio = 0.0;
  InEditor([&](HWND dialog) {
    const EditorPicture picture(dialog);
    BarePageView bare(FullPage(), picture.Size());
    const CPoint border(CentreOf(bare.RectOf(kMiddleCel)).x, bare.RectOf(kMiddleCel).bottom);
    const auto pointOf = [&](int step) {
      return CPoint(border.x + step % 2, border.y + (step % (2 * kReach) - kReach));
    };
    picture.Mouse(WM_LBUTTONDOWN, border);
    bare.TakeGuide(border.y);
    ratio = RatioOfSteps(
        runs,
        [&](int step) {
          return TimeOf(picture.Window(), [&] { picture.Mouse(WM_MOUSEMOVE, pointOf(step)); });
        },
        [&](int step) {
          bare.Prepare(pointOf(step).y, L"10mm / 6mm");
          return TimeOf(bare.Window(), [&] { ::SendMessageW(bare.Window(), WM_MOUSEMOVE, 0, 0); });
        });
    Require(ReadPixels(picture.Window()) == ReadPixels(bare.Window()),
            "the bare window draws another line");
    // Out of the picture: nothing is dragged.
    picture.Mouse(WM_LBUTTONUP, {-1, -1});
  });
  return {"layout editor, step of a border's drag", "times bare", ratio, kMost, runs};
}

/// Whether a line of a selected cell crosses x between two heights.
bool HasSelectedFrame(const driver::Picture& picture, int x, int top, int bottom) {
  constexpr std::uint32_t kRed = 0xFF0000;
  for (int y = top; y < bottom; ++y) {
    if (picture.At(x, y) == kRed) {
      return true;
    }
  }
  return false;
}

/// Drags from the first cell to the last one. The slowest step: of each, the median of the runs.
std::vector<Row> SelectAll(int runs) {
  constexpr double kFrame = 16.0;
  constexpr double kMillisecondsInSecond = 1000.0;
  constexpr int kSteps = 20;
  constexpr int kRunsOfDrags = 4;  // one for so many of the others
  const int drags = std::max(runs / kRunsOfDrags, 1);
  std::vector<std::vector<double>> moves(kSteps);
  std::vector<double> releases;
  InEditor([&](HWND dialog) {
    const EditorPicture picture(dialog);
    const BarePageView bare(FullPage(), picture.Size());
    const CPoint first = CentreOf(bare.RectOf(0));
    const CPoint last = CentreOf(bare.RectOf(kLines * kLines - 1));
    for (int drag = 0; drag < drags; ++drag) {
      picture.Mouse(WM_LBUTTONDOWN, first);
      for (int step = 0; step < kSteps; ++step) {
        const CPoint point(first.x + (last.x - first.x) * step / kSteps,
                           first.y + (last.y - first.y) * step / kSteps);
        moves[static_cast<std::size_t>(step)].push_back(
            TimeOf(picture.Window(), [&] { picture.Mouse(WM_MOUSEMOVE, point); }));
      }
      releases.push_back(TimeOf(picture.Window(), [&] { picture.Mouse(WM_LBUTTONUP, last); }));
    }
    const driver::Picture selected = ReadPixels(picture.Window());
    Require(HasSelectedFrame(selected, first.x, 0, first.y) &&
                HasSelectedFrame(selected, last.x, last.y, picture.Size().cy),
            "not all cells were selected");
  });
  double slowestMove = 0.0;
  for (const std::vector<double>& step : moves) {
    slowestMove = std::max(slowestMove, Median(step));
  }
  return {{"layout editor, step of a drag over all cells", "ms",
           kMillisecondsInSecond * slowestMove, kFrame, drags},
          {"layout editor, selection of all cells", "ms",
           kMillisecondsInSecond * Median(releases), kFrame, drags}};
}

}  // namespace

std::vector<Row> LayoutEditor(int runs) {
  std::vector<Row> rows = Opening(runs);
  rows.push_back(Repaint(runs));
  rows.push_back(CelCommand(runs));
  rows.push_back(BorderDragStep(runs));
  const std::vector<Row> selecting = SelectAll(runs);
  rows.insert(rows.end(), selecting.begin(), selecting.end());
  return rows;
}

}  // namespace quorvel::bench
