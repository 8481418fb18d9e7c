#include "gallery/editor_exhibits.h"

#include "dialogs/layout/page_block.h"
#include "driver/controls.h"
#include "gallery/editor_work.h"
#include "gallery/environment.h"
#include "gallery/exhibit_work.h"
#include "gallery/page_picture.h"
#include "gallery/page_words.h"
#include "gallery/sample_pages.h"

#include <quorvel/quorvel.h>

#include <array>
#include <filesystem>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace quorvel::gallery {

namespace {

using driver::Click;
using driver::Control;
using driver::DoubleClickAt;
using driver::Drag;
using driver::Focus;
using driver::ModalScript;
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
constexpr UINT kMerge = 31009;
constexpr UINT kOpen = 31011;
constexpr UINT kSave = 31012;
// In lines of text.
constexpr int kPreviewLines = 9;
constexpr int kPreviewColumns = 32;
constexpr const wchar_t* kFileName = L"表題欄.mtpld";

struct PageInHand {
  CLayoutPageData page;
  CStringArray insertions;
  CDWordArray numbers;
  Environment environment;
  TourFolder folder;
  BorrowedMouse mouse;
};

using Hand = std::shared_ptr<PageInHand>;

Outcome Open(const Hand& hand, int lineMode) {
  return ConfirmedIf(__LayoutEditDlg(hand->environment.Get(), &hand->page, &hand->insertions,
                                     &hand->numbers, kSampleDotsPerMm, lineMode,
                                     nullptr) != FALSE);
}

KeptValue KeepPage(const Hand& hand) {
  return {.bytes = [hand] { return BytesOfPage(hand->page); },
          .restore = [hand](const Bytes& bytes) { return RestorePage(hand->page, bytes); }};
}

std::function<void(HDC, const RECT&)> PreviewOf(const Hand& hand) {
  return [hand](HDC deviceContext, const RECT& area) {
    DrawPage(deviceContext, CRect(area), hand->page);
  };
}

// ---- Where the cells are

POINT PointAt(HWND dialog, CLayoutPageData page, double across, double down) {
  return gallery::PointAt(dialog, kImageId, SheetBlock(page), across, down);
}

POINT CentreOf(HWND dialog, CLayoutPageData page, int row, int col) {
  return gallery::CentreOf(dialog, kImageId, SheetBlock(page), row, col);
}

void Then(ModalScript& script, ModalScript::Action action) {
  gallery::Then(script, kTitle, std::move(action));
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
      {.show =
           [hand](HWND dialog) {
             hand->mouse.MoveTo(dialog, DragEnd(dialog));
             DragWithoutRelease(dialog, DragStart(dialog), DragEnd(dialog));
           },
       .picture = "layout-edit-drag",
       .isInSight = IsReadOutInSight},
      {.show =
           [hand](HWND dialog) {
             const POINT to = DragEnd(dialog);
             ::PostMessageW(dialog, WM_LBUTTONUP, 0, MAKELPARAM(to.x, to.y));
             hand->mouse.GiveBack();
           }},
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
  PickInsertion(script, kTitle, kRevision);
  Then(script, [](HWND editor) { PressTool(editor, kSave); });
  EnterFileName(script, hand->folder.File(kFileName));
  Then(script, [hand](HWND editor) {
    Expect(std::filesystem::exists(hand->folder.File(kFileName)), "no file was saved");
    ReplaceText(Control(editor, kRowsId), L"2");
    PressTab(editor);
  });
  Then(script, [](HWND editor) {
    ExpectText(editor, kHeightId, L"45");
    PressTool(editor, kOpen);
  });
  EnterFileName(script, hand->folder.File(kFileName));
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
      .group = Group::kForms,
      .entry = L"__LayoutEditDlg",
      .label = L"表題欄(&Y)",
      .shown = [hand] { return PageInShort(hand->page); },
      .value = [hand] { return PageInWords(hand->page); },
      .kept = KeepPage(hand),
      .preview = PreviewOf(hand),
      .previewLines = kPreviewLines,
      .previewColumns = kPreviewColumns,
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
      .group = Group::kForms,
      .entry = L"__LayoutEditDlg",
      .label = L"部品表(&W)",
      .shown = [hand] { return PageInShort(hand->page); },
      .value = [hand] { return PageInWords(hand->page); },
      .kept = KeepPage(hand),
      .preview = PreviewOf(hand),
      .previewLines = kPreviewLines,
      .previewColumns = kPreviewColumns,
      .run = [hand](const RunOptions&) { return Open(hand, 1); },
      .tour = LinesTour(hand),
  };
}

}  // namespace quorvel::gallery
