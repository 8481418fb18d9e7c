#include "gallery/editor_exhibits.h"

#include "driver/controls.h"
#include "driver/picture.h"
#include "gallery/environment.h"
#include "gallery/exhibit_work.h"
#include "gallery/page_picture.h"
#include "gallery/sample_pages.h"

#include <quorvel/quorvel.h>

// Needs <windows.h> above.
#include <commctrl.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <filesystem>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

namespace quorvel::gallery {

namespace {

using driver::Click;
using driver::ClickAt;
using driver::ClientRectOf;
using driver::Control;
using driver::DialogWithControl;
using driver::DialogWithTitle;
using driver::DoubleClickAt;
using driver::Drag;
using driver::Focus;
using driver::ModalScript;
using driver::Painted;
using driver::PressKey;
using driver::PressTab;
using driver::ReplaceText;
using driver::TypeText;

constexpr const wchar_t* kTitle = L"ﾚｲｱｳﾄ編集";

// The dialog's controls and commands.
constexpr int kTextFieldId = 200;
constexpr int kRowsId = 2011;
constexpr int kHeightId = 2023;
constexpr int kMarginId = 2026;
constexpr int kOuterLineId = 2030;
constexpr int kOuterTypeId = 2031;
constexpr int kOuterWidthId = 2033;
constexpr int kInnerLineId = 2035;
constexpr int kImageId = 2040;
constexpr int kInsertionId = 2045;
constexpr UINT kMerge = 31009;
constexpr UINT kOpen = 31011;
constexpr UINT kSave = 31012;
/// The name in the system's dialogs for files.
constexpr int kFileNameId = 1148;

/// Around the page in its picture.
constexpr std::uint32_t kAroundPage = 0xBFBFBF;

/// A folder of the tour's own, which is removed in the end.
class TourFolder {
public:
  TourFolder() = default;
  ~TourFolder() {
    if (!m_folder.empty()) {
      std::error_code ignored;
      std::filesystem::remove_all(m_folder, ignored);
    }
  }
  TourFolder(const TourFolder&) = delete;
  TourFolder& operator=(const TourFolder&) = delete;

  void Begin() {
    m_folder = std::filesystem::temp_directory_path() /
               (L"quorvel-tour-" + std::to_wstring(::GetCurrentProcessId()));
    std::filesystem::remove_all(m_folder);
    std::filesystem::create_directories(m_folder);
  }
  std::filesystem::path File() const { return (m_folder / L"表題欄.mtpld").make_preferred(); }

private:
  std::filesystem::path m_folder;
};

struct PageInHand {
  CLayoutPageData page;
  CStringArray insertions;
  CDWordArray numbers;
  Environment environment;
  TourFolder folder;
  /// Where the mouse was before the tour took it.
  POINT mouse{};
};

using Hand = std::shared_ptr<PageInHand>;

Outcome Open(const Hand& hand, int lineMode) {
  return ConfirmedIf(__LayoutEditDlg(hand->environment.Get(), &hand->page, &hand->insertions,
                                     &hand->numbers, kSampleDotsPerMm, lineMode,
                                     nullptr) != FALSE);
}

std::function<void(HDC, const RECT&)> PreviewOf(const Hand& hand) {
  return [hand](HDC deviceContext, const RECT& area) {
    DrawPage(deviceContext, CRect(area), hand->page);
  };
}

// ---- What the tour sees and does

/// Where a page is in the dialog's picture, as a user sees it: all that is not the grey around it.
CRect PageArea(HWND dialog) {
  const driver::Picture picture = driver::ReadPixels(Control(dialog, kImageId));
  CRect area(picture.width, picture.height, 0, 0);
  for (int y = 0; y < picture.height; ++y) {
    for (int x = 0; x < picture.width; ++x) {
      if (picture.At(x, y) != kAroundPage) {
        area.left = std::min(area.left, LONG{x});
        area.top = std::min(area.top, LONG{y});
        area.right = std::max(area.right, LONG{x} + 1);
        area.bottom = std::max(area.bottom, LONG{y} + 1);
      }
    }
  }
  Expect(area.Width() > 0 && area.Height() > 0, "no page is to be seen");
  const RECT image = ClientRectOf(Control(dialog, kImageId));
  area.OffsetRect(image.left, image.top);
  return area;
}

/// A point of the dialog by millimetres from the page's top-left corner. `page` has the lengths
/// that the dialog shows.
POINT PointAt(HWND dialog, const CLayoutPageData& page, double across, double down) {
  const CRect area = PageArea(dialog);
  return {area.left + static_cast<LONG>(area.Width() * across / page.GetAllLengthCol()),
          area.top + static_cast<LONG>(area.Height() * down / page.GetAllLengthRow())};
}

POINT CentreOf(HWND dialog, const CLayoutPageData& page, int row, int col) {
  constexpr double kHalf = 0.5;
  double across = page.GetLengthCol(col) * kHalf;
  double down = page.GetLengthRow(row) * kHalf;
  for (int before = 0; before < col; ++before) {
    across += page.GetLengthCol(before);
  }
  for (int before = 0; before < row; ++before) {
    down += page.GetLengthRow(before);
  }
  return PointAt(dialog, page, across, down);
}

void PressTool(HWND dialog, UINT command) {
  for (HWND bar = ::FindWindowExW(dialog, nullptr, TOOLBARCLASSNAMEW, nullptr); bar != nullptr;
       bar = ::FindWindowExW(dialog, bar, TOOLBARCLASSNAMEW, nullptr)) {
    RECT button{};
    if (::SendMessageW(bar, TB_GETRECT, command, reinterpret_cast<LPARAM>(&button)) != 0) {
      Expect(::SendMessageW(bar, TB_ISBUTTONENABLED, command, 0) != 0,
             "the tool " + std::to_string(command) + " is disabled");
      ClickAt(bar, {(button.left + button.right) / 2, (button.top + button.bottom) / 2});
      return;
    }
  }
  Expect(false, "no tool bar has the tool " + std::to_string(command));
}

/// Goes on once what was done so far is to be seen.
void Then(ModalScript& script, ModalScript::Action action) {
  script.When(Painted(DialogWithTitle(kTitle)), std::move(action));
}

void EnterFileName(ModalScript& script, const std::filesystem::path& file) {
  script.When(Painted(DialogWithControl(kFileNameId)), [file](HWND dialog) {
    ::SetDlgItemTextW(dialog, kFileNameId, file.c_str());
    Click(dialog, IDOK);
  });
}

/// Opens the list of insertions and clicks an entry, counted from 1.
void PickInsertion(ModalScript& script, int entry) {
  Then(script, [](HWND dialog) { Click(dialog, kInsertionId); });
  const auto findList = []() -> HWND {
    const HWND dialog = DialogWithTitle(kTitle).find();
    COMBOBOXINFO info{};
    info.cbSize = sizeof info;
    return dialog != nullptr &&
                   ::GetComboBoxInfo(Control(dialog, kInsertionId), &info) != FALSE &&
                   ::IsWindowVisible(info.hwndList) != FALSE
               ? info.hwndList
               : nullptr;
  };
  script.When({"the list of insertions", findList}, [entry](HWND list) {
    RECT item{};
    ::SendMessageW(list, LB_GETITEMRECT, static_cast<WPARAM>(entry),
                   reinterpret_cast<LPARAM>(&item));
    ClickAt(list, {(item.left + item.right) / 2, (item.top + item.bottom) / 2});
  });
}

// ---- The tour of a page with margin and frame

// The first border between columns is dragged so that these millimetres are left of it.
constexpr double kDraggedColumn = 30;
// In the middle of the second row, where no border between rows is near.
constexpr double kDragHeight = 17.5;

POINT DragStart(HWND dialog) {
  const CLayoutPageData page = TitleBlock();
  return PointAt(dialog, page, page.GetLengthCol(0), kDragHeight);
}

POINT DragEnd(HWND dialog) { return PointAt(dialog, TitleBlock(), kDraggedColumn, kDragHeight); }

/// Takes the border and moves it, with the real mouse at the end: the read-out of the lengths comes
/// only where the mouse stands.
void DragWithoutRelease(HWND dialog, PageInHand& hand) {
  const POINT from = DragStart(dialog);
  const POINT to = DragEnd(dialog);
  POINT screenPoint = to;
  ::ClientToScreen(dialog, &screenPoint);
  ::GetCursorPos(&hand.mouse);
  ::SetCursorPos(screenPoint.x, screenPoint.y);
  ::PostMessageW(dialog, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(from.x, from.y));
  ::PostMessageW(dialog, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM((from.x + to.x) / 2, to.y));
  ::PostMessageW(dialog, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(to.x, to.y));
}

void Release(HWND dialog, const PageInHand& hand) {
  const POINT to = DragEnd(dialog);
  ::PostMessageW(dialog, WM_LBUTTONUP, 0, MAKELPARAM(to.x, to.y));
  ::SetCursorPos(hand.mouse.x, hand.mouse.y);
}

bool IsReadOutInSight() {
  bool isInSight = false;
  ::EnumThreadWindows(
      ::GetCurrentThreadId(),
      [](HWND window, LPARAM found) {
        if (driver::ClassName(window) == L"CToolTip" && ::IsWindowVisible(window) != FALSE &&
            ::GetUpdateRect(window, nullptr, FALSE) == FALSE) {
          *reinterpret_cast<bool*>(found) = true;
        }
        return TRUE;
      },
      reinterpret_cast<LPARAM>(&isInSight));
  return isInSight;
}

/// As the dialog shows it once the border has been dragged.
CLayoutPageData DraggedPage() {
  CLayoutPageData page = TitleBlock();
  const double both = page.GetLengthCol(0) + page.GetLengthCol(1);
  page.SetLengthCol(0, kDraggedColumn);
  page.SetLengthCol(1, both - kDraggedColumn);
  return page;
}

std::vector<Scene> LayoutScenes(const Hand& hand) {
  constexpr int kCheckedByRow = 2;
  constexpr int kCheckedByCol = 3;
  return {
      {.show = [hand](HWND dialog) { DragWithoutRelease(dialog, *hand); },
       .picture = "layout-edit-drag",
       .isInSight = IsReadOutInSight},
      {.show = [hand](HWND dialog) { Release(dialog, *hand); }},
      {.show =
           [](HWND dialog) {
             DoubleClickAt(dialog, CentreOf(dialog, DraggedPage(), kCheckedByRow, kCheckedByCol));
           }},
      {.show = [](HWND dialog) { TypeText(Control(dialog, kTextFieldId), L"山田"); },
       .picture = "layout-edit-text"},
  };
}

/// Merges the two empty cells of the last row, inserts a field there, saves the page, spoils it,
/// opens the file and confirms.
void WorkLayout(HWND dialog, ModalScript& script, const Hand& hand) {
  constexpr int kLastRow = 3;
  constexpr int kRevision = 6;  // in the list of insertions
  PressKey(Control(dialog, kTextFieldId), VK_RETURN);
  Then(script, [](HWND editor) {
    const CLayoutPageData page = DraggedPage();
    Drag(editor, CentreOf(editor, page, kLastRow, 4), CentreOf(editor, page, kLastRow, 5));
  });
  Then(script, [](HWND editor) { PressTool(editor, kMerge); });
  PickInsertion(script, kRevision);
  Then(script, [](HWND editor) { PressTool(editor, kSave); });
  EnterFileName(script, hand->folder.File());
  Then(script, [hand](HWND editor) {
    Expect(std::filesystem::exists(hand->folder.File()), "no file was saved");
    ReplaceText(Control(editor, kRowsId), L"2");
    PressTab(editor);
  });
  Then(script, [](HWND editor) {
    ExpectText(editor, kHeightId, L"25");
    PressTool(editor, kOpen);
  });
  EnterFileName(script, hand->folder.File());
  Then(script, [](HWND editor) {
    ExpectText(editor, kRowsId, L"4");
    ExpectText(editor, kHeightId, L"45");
    Click(editor, IDOK);
  });
}

std::vector<TourStop> LayoutTour(const Hand& hand) {
  const auto setUp = [hand] {
    hand->environment.BeginTour();
    hand->folder.Begin();
    hand->page = TitleBlock();
  };
  return {
      {
          .options = {},
          .title = kTitle,
          .setUp = setUp,
          .scenes = LayoutScenes(hand),
          .work = [hand](HWND dialog,
                         ModalScript& script) { WorkLayout(dialog, script, hand); },
          .outcome = kConfirmed,
          .value = L"4 x 6 cells, 170 x 45 mm (30+28+22+36+20+34, 10+15+10+10), "
                   L"margin 5 mm, frame: "
                   L"工事名称 | <M>12 工事名称</M>[1x3] | 図面番号 | <M>11 図面番号</M> / "
                   L"図面名称 | １階平面図[1x3] | 縮尺 | 1/<M>31 縮尺</M> / "
                   L"設計 | <M>22 設計者</M> | 検図 | 山田 | 作成日 | <M>21 作成日</M> / "
                   L"株式会社○○設計事務所[1x4] | <M>41 改訂記号</M>[1x2]",
      },
      {
          .options = {},
          .title = kTitle,
          .setUp = setUp,
          .work =
              [](HWND dialog, ModalScript& script) {
                Drag(dialog, DragStart(dialog), DragEnd(dialog));
                Then(script, [](HWND editor) { Click(editor, IDCANCEL); });
              },
          .outcome = kCancelled,
          .value = PageInWords(TitleBlock()),
      },
  };
}

// ---- The tour of a page with lines

std::vector<TourStop> LinesTour(const Hand& hand) {
  return {
      {
          .options = {},
          .title = kTitle,
          .setUp =
              [hand] {
                hand->environment.BeginTour();
                hand->page = PartsForm();
              },
          .work =
              [](HWND dialog, ModalScript&) {
                Expect(!driver::IsShown(dialog, kMarginId), "the margin is shown");
                ExpectText(dialog, kOuterWidthId, L"0.7");
                Focus(Control(dialog, kOuterTypeId));
                PressKey(Control(dialog, kOuterTypeId), VK_DOWN);
                ReplaceText(Control(dialog, kOuterWidthId), L"1.5");
                Click(dialog, kInnerLineId);
                Click(dialog, IDOK);
              },
          .outcome = kConfirmed,
          .value = L"5 x 5 cells, 170 x 47 mm (26+46+34+28+36, 12+8+9+9+9), "
                   L"outer line 1.5 mm style 1 #000000 (赤 0 緑 0 青 0), inner lines off: "
                   L"部品表[1x5] / 品番 | 品名 | 材質 | 数量 | 備考 / <M>1 品番</M> | "
                   L"<M>2 品名</M> | <M>3 材質</M> | <M>4 数量</M> | - / - | - | - | - | - / "
                   L"- | - | - | - | -",
      },
      {
          .options = {},
          .title = kTitle,
          .setUp = [hand] { hand->page = PartsForm(); },
          .work =
              [](HWND dialog, ModalScript&) {
                Click(dialog, kOuterLineId);
                Click(dialog, IDCANCEL);
              },
          .outcome = kCancelled,
          .value = PageInWords(PartsForm()),
      },
  };
}

}  // namespace

Exhibit LayoutExhibit() {
  struct Insertion {
    const char* name;
    DWORD number;
  };
  constexpr std::array kInsertions{Insertion{"図面番号", 10}, Insertion{"工事名称", 11},
                                   Insertion{"作成日", 20},   Insertion{"設計者", 21},
                                   Insertion{"縮尺", 30},     Insertion{"改訂記号", 40}};
  const auto hand = std::make_shared<PageInHand>();
  hand->page = TitleBlock();
  for (const Insertion& insertion : kInsertions) {
    hand->insertions.Add(insertion.name);
    hand->numbers.Add(insertion.number);
  }
  return {
      .name = "layout-edit",
      .entry = L"__LayoutEditDlg",
      .label = L"ﾚｲｱｳﾄ編集(&Y)",
      .value = [hand] { return PageInWords(hand->page); },
      .preview = PreviewOf(hand),
      .run = [hand](const RunOptions&) { return Open(hand, 0); },
      .tour = LayoutTour(hand),
  };
}

Exhibit LayoutLinesExhibit() {
  const auto hand = std::make_shared<PageInHand>();
  hand->page = PartsForm();
  for (const char* name : {"品番", "品名", "材質", "数量", "備考"}) {
    hand->insertions.Add(name);
  }
  return {
      .name = "layout-edit-lines",
      .entry = L"__LayoutEditDlg",
      .label = L"ﾚｲｱｳﾄ編集 罫線(&W)",
      .value = [hand] { return PageInWords(hand->page); },
      .preview = PreviewOf(hand),
      .run = [hand](const RunOptions&) { return Open(hand, 1); },
      .tour = LinesTour(hand),
  };
}

}  // namespace quorvel::gallery
