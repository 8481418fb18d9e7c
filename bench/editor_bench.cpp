#include "bench/editor_bench.h"

#include "bench/timing.h"
#include "dialogs/layout/editor_settings.h"
#include "driver/controls.h"
#include "driver/modal_script.h"
#include "driver/picture.h"

#include <stdexcept>
#include <utility>

namespace quorvel::bench {

namespace {

constexpr int kWarmUps = 20;
/// Of all that is measured while one editor is open, milliseconds.
constexpr unsigned kDeadline = 300'000;

}  // namespace

void Require(bool holds, const char* complaint) {
  if (!holds) {
    throw std::runtime_error(complaint);
  }
}

void InEditor(int imageId, const std::function<void()>& open,
              const std::function<void(HWND dialog)>& measure) {
  driver::ModalScript script(kDeadline);
  script.When(driver::Painted(driver::DialogWithControl(imageId)), [&](HWND dialog) {
    measure(dialog);
    driver::PressKey(dialog, VK_ESCAPE);
  });
  open();
  Require(script.Finished(), script.Problem().empty() ? "an editor closed before it was measured"
                                                      : script.Problem().c_str());
}

EditorPicture::EditorPicture(HWND dialog, int imageId)
    : m_dialog(dialog),
      m_window(driver::Control(dialog, imageId)),
      m_area(driver::ClientRectOf(m_window)) {}

void EditorPicture::Mouse(UINT message, const CPoint& point) const {
  ::SendMessageW(m_dialog, message, message == WM_LBUTTONUP ? 0 : MK_LBUTTON,
                 MAKELPARAM(point.x + m_area.left, point.y + m_area.top));
}

void EditorPicture::Click(const CPoint& point) const {
  Mouse(WM_LBUTTONDOWN, point);
  Mouse(WM_LBUTTONUP, point);
}

CPoint CentreOf(const CRect& rect) {
  return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
}

double TimeOf(HWND window, const std::function<void()>& act) {
  const LONGLONG start = Ticks();
  act();
  ::UpdateWindow(window);
  ::GdiFlush();
  return Seconds(start, Ticks());
}

double TimeOfRepaint(HWND window, const CRect* area) {
  return TimeOf(window, [&] { ::InvalidateRect(window, area, FALSE); });
}

Pair MediansOfSteps(int runs, const std::function<double(int step)>& ours,
                    const std::function<double(int step)>& bare) {
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
  return {Median(oursTook), Median(bareTook)};
}

Pair MediansOfDragSteps(int runs, const EditorPicture& picture, BarePageView& bare,
                        const CRect& celAbove, const std::wstring& readOut) {
  constexpr int kReach = 3;  // of the guide line, pixels
  const CPoint border(CentreOf(celAbove).x, celAbove.bottom);
  const auto pointOf = [&](int step) {
    return CPoint(border.x + step % 2, border.y + (step % (2 * kReach) - kReach));
  };
  picture.Mouse(WM_LBUTTONDOWN, border);
  bare.TakeGuide(border.y);
  const Pair seconds = MediansOfSteps(
      runs,
      [&](int step) {
        return TimeOf(picture.Window(), [&] { picture.Mouse(WM_MOUSEMOVE, pointOf(step)); });
      },
      [&](int step) {
        bare.Prepare(pointOf(step).y, readOut);
        return TimeOf(bare.Window(), [&] { ::SendMessageW(bare.Window(), WM_MOUSEMOVE, 0, 0); });
      });
  Require(driver::ReadPixels(picture.Window()) == driver::ReadPixels(bare.Window()),
          "the bare window draws another line");
  // Out of the picture: nothing is dragged.
  constexpr CPoint kOutside{-1, -1};
  picture.Mouse(WM_LBUTTONUP, kOutside);
  return seconds;
}

BareEditor::BareEditor(UINT templateId, std::vector<BareBar> bars)
    : m_module(::GetModuleHandleW(L"Quorvel.dll")),
      m_templateId(templateId),
      m_bars(std::move(bars)),
      m_context(m_module) {}

void BareEditor::Run(HWND owner) {
  m_context.Run([&] {
    ::DialogBoxParamW(m_module, MAKEINTRESOURCEW(m_templateId), owner, OnMessage,
                      reinterpret_cast<LPARAM>(this));
  });
  m_images.clear();
}

INT_PTR CALLBACK BareEditor::OnMessage(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_INITDIALOG) {
    auto& self = *reinterpret_cast<BareEditor*>(lParam);
    for (const BareBar& bar : self.m_bars) {
      self.m_images.push_back(self.AddBar(dialog, bar));
    }
    return TRUE;
  }
  if (message == WM_COMMAND && (LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL)) {
    ::EndDialog(dialog, LOWORD(wParam));
  }
  return FALSE;
}

BareEditor::OwnedImageList BareEditor::AddBar(HWND dialog, const BareBar& bar) const {
  constexpr int kImageWidth = 16;
  constexpr int kImageHeight = 15;
  OwnedImageList images(::ImageList_LoadImageW(m_module, MAKEINTRESOURCEW(bar.bitmap), kImageWidth,
                                               0, RGB(0xC0, 0xC0, 0xC0), IMAGE_BITMAP,
                                               LR_DEFAULTCOLOR));
  const HWND window =
      ::CreateWindowExW(0, TOOLBARCLASSNAMEW, L"", kToolStyle, bar.position.x, bar.position.y, 0, 0,
                        dialog, nullptr, m_module, nullptr);
  std::vector<TBBUTTON> buttons;
  for (const TOOLITEM& item : bar.items) {
    TBBUTTON button{};
    button.fsStyle = item.bSeparator != FALSE ? BTNS_SEP : BTNS_BUTTON;
    button.idCommand = static_cast<int>(item.nCommand);
    button.iBitmap = item.nImage;
    buttons.push_back(button);
  }
  ::SendMessageW(window, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
  ::SendMessageW(window, TB_SETBITMAPSIZE, 0, MAKELPARAM(kImageWidth, kImageHeight));
  ::SendMessageW(window, TB_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(images.get()));
  ::SendMessageW(window, TB_ADDBUTTONSW, buttons.size(), reinterpret_cast<LPARAM>(buttons.data()));
  SIZE size{};
  ::SendMessageW(window, TB_GETMAXSIZE, 0, reinterpret_cast<LPARAM>(&size));
  ::SetWindowPos(window, nullptr, bar.position.x, bar.position.y, size.cx, size.cy,
                 SWP_NOZORDER | SWP_NOACTIVATE);
  return images;
}

}  // namespace quorvel::bench
