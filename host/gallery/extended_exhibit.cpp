#include "gallery/extended_exhibit.h"

#include "driver/controls.h"
#include "gallery/editor_work.h"
#include "gallery/environment.h"
#include "gallery/exhibit_work.h"
#include "gallery/page_picture.h"
#include "gallery/page_words.h"
#include "gallery/sample_pages.h"
#include "res/ids.h"

#include <quorvel/quorvel.h>

#include <array>
#include <cstddef>
#include <filesystem>
#include <memory>
#include <utility>
#include <vector>

namespace quorvel::gallery {

namespace {

using driver::Click;
using driver::ClickAt;
using driver::Control;
using driver::DoubleClickAt;
using driver::Drag;
using driver::ModalScript;
using driver::PressKey;
using driver::PressTab;
using driver::ReplaceText;
using driver::RightClickAt;

constexpr const wchar_t* kTitle = L"ﾚｲｱｳﾄ編集";
constexpr const wchar_t* kListTitle = L"ﾚｲｱｳﾄﾘｽﾄ編集";
constexpr const wchar_t* kCelSizeTitle = L"ｾﾙｻｲｽﾞ編集";
constexpr const wchar_t* kLinesTitle = L"罫線編集";
constexpr const wchar_t* kFieldTitle = L"ﾌｨｰﾙﾄﾞ設定";
constexpr const wchar_t* kFileName = L"見積書.mtpld2";

struct PageInHand {
  CLayoutExPageData page;
  CStringArray fields;
  CStringArray insertions;
  CDWordArray numbers;
  Environment environment;
  TourFolder folder;
  BorrowedMouse mouse;
  /// With the lengths that the editor shows.
  CLayoutExPageData shown;
};

using Hand = std::shared_ptr<PageInHand>;

// ---- What the tour sees and does

/// A cell of one block.
struct CelPlace {
  CLayoutExPageData::LISTTYPE block;
  int row;
  int col;
};

constexpr auto kHeader = CLayoutExPageData::LISTTYPE_HEADER;
constexpr auto kList = CLayoutExPageData::LISTTYPE_LIST;
constexpr auto kFooter = CLayoutExPageData::LISTTYPE_FOOTER;

constexpr CelPlace kCustomer{kHeader, 1, 0};
constexpr CelPlace kNumber{kList, 0, 0};
constexpr CelPlace kArticle{kList, 0, 1};
constexpr CelPlace kQuantity{kList, 0, 2};
constexpr CelPlace kUnit{kList, 0, 3};
constexpr CelPlace kPrice{kList, 0, 4};
constexpr CelPlace kAmount{kList, 0, 5};
constexpr CelPlace kTerms{kFooter, 1, 0};
constexpr CelPlace kFirstTotal{kFooter, 0, 4};
constexpr CelPlace kLastTotal{kFooter, 2, 5};

int ImageOf(CLayoutExPageData::LISTTYPE block) {
  constexpr std::array kImages{IDC_HEADER_IMAGE, IDC_LIST_IMAGE, IDC_FOOTER_IMAGE};
  return kImages.at(static_cast<std::size_t>(block));
}

/// Where the editor shows a cell.
POINT PlaceOf(HWND dialog, const Hand& hand, const CelPlace& cel) {
  return CentreOf(dialog, ImageOf(cel.block), ExtendedBlock(hand->shown, cel.block), cel.row,
                  cel.col);
}

/// Where the list editor, opened on the list, shows a cell.
POINT PlaceInListEditor(HWND dialog, const Hand& hand, const CelPlace& cel) {
  return CentreOf(dialog, IDC_BLOCK_IMAGE, ExtendedBlock(hand->shown, cel.block), cel.row, cel.col);
}

// The border behind this column is dragged so far to the left.
constexpr int kDraggedCol = 1;
constexpr double kDraggedBy = 4;  // millimetres

POINT DragPoint(HWND dialog, const Hand& hand, double offset) {
  ExtendedBlock list(hand->shown, kList);
  const double border = list.ColLength(0) + list.ColLength(kDraggedCol);
  return PointAt(dialog, IDC_LIST_IMAGE, list, border + offset, list.RowLength(0) / 2);
}

/// Mouse messages that follow see the key so.
void HoldShift(bool isDown) {
  constexpr std::size_t kKeyCount = 256;
  constexpr BYTE kDown = 0x80;
  std::array<BYTE, kKeyCount> keys{};
  ::GetKeyboardState(keys.data());
  keys[VK_SHIFT] = isDown ? kDown : BYTE{0};
  ::SetKeyboardState(keys.data());
}

bool IsMenuInSight() {
  return driver::VisibleMenu() != nullptr;
}

void Then(ModalScript& script, ModalScript::Action action) {
  gallery::Then(script, kTitle, std::move(action));
}

// ---- The tour

/// Types a text, selects cells with Shift, drags a border and asks for exact lengths on the way.
void AddScenesOfCels(const Hand& hand, std::vector<Scene>& scenes) {
  scenes.push_back({.show = [hand](HWND dialog) {
    ClickAt(dialog, PlaceOf(dialog, hand, kCustomer));
    ReplaceText(Control(dialog, IDC_LAYOUT_TEXT_LINE), L"　<M>12 宛名</M>　様");
  }});
  scenes.push_back({.show = [hand](HWND dialog) {
    // The first Enter takes what was typed.
    PressKey(Control(dialog, IDC_LAYOUT_TEXT_LINE), VK_RETURN);
    ClickAt(dialog, PlaceOf(dialog, hand, kQuantity));
  }});
  scenes.push_back({.show =
                        [hand](HWND dialog) {
                          HoldShift(true);
                          ClickAt(dialog, PlaceOf(dialog, hand, kUnit));
                          ClickAt(dialog, PlaceOf(dialog, hand, kPrice));
                        },
                    // Tells more than the one that was taken when the dialog opened.
                    .picture = "layout-ex-edit"});
  scenes.push_back({.show =
                        [hand](HWND dialog) {
                          HoldShift(false);
                          ClickAt(dialog, PlaceOf(dialog, hand, kNumber));
                          const POINT to = DragPoint(dialog, hand, -kDraggedBy);
                          hand->mouse.MoveTo(dialog, to);
                          DragWithoutRelease(dialog, DragPoint(dialog, hand, 0), to);
                        },
                    .picture = "layout-ex-edit-drag",
                    .isInSight = IsReadOutInSight});
  scenes.push_back({.show = [hand](HWND dialog) {
    const POINT at = DragPoint(dialog, hand, -kDraggedBy);
    RightClickAt(dialog, at);
    hand->mouse.GiveBack();
  }});
  scenes.push_back({.show =
                        [hand](HWND dialog) {
                          ExpectText(dialog, IDC_CEL_SIZE_FIRST, L"54.0");
                          ExpectText(dialog, IDC_CEL_SIZE_SECOND, L"18.0");
                          ReplaceText(Control(dialog, IDC_CEL_SIZE_FIRST), L"52.5");
                          Click(dialog, IDOK);
                          hand->shown.SetLengthCol(kDraggedCol, 52.5F);
                          hand->shown.SetLengthCol(kDraggedCol + 1, 19.5F);
                        },
                    .title = kCelSizeTitle});
}

/// Makes the columns of cells selected with Shift equally wide by the menu, and drags a border the
/// plain way.
void AddScenesOfColumns(const Hand& hand, std::vector<Scene>& scenes) {
  scenes.push_back(
      {.show = [hand](HWND dialog) { ClickAt(dialog, PlaceOf(dialog, hand, kQuantity)); }});
  scenes.push_back({.show = [hand](HWND dialog) {
    HoldShift(true);
    ClickAt(dialog, PlaceOf(dialog, hand, kUnit));
  }});
  scenes.push_back({.show =
                        [hand](HWND dialog) {
                          HoldShift(false);
                          RightClickAt(dialog, PlaceOf(dialog, hand, kUnit));
                        },
                    .picture = "layout-ex-edit-menu",
                    .isInSight = IsMenuInSight});
  scenes.push_back({.show = [hand](HWND /*dialog*/) {
    PressKey(driver::VisibleMenu(), L'E');
    hand->shown.SetLengthCol(2, 17.75F);
    hand->shown.SetLengthCol(3, 17.75F);
  }});
  scenes.push_back({.show = [hand](HWND dialog) {
    Drag(dialog, DragPoint(dialog, hand, 0), DragPoint(dialog, hand, kDraggedBy));
    hand->shown.SetLengthCol(kDraggedCol, 56.5F);
    hand->shown.SetLengthCol(kDraggedCol + 1, 13.75F);
  }});
}

/// Changes a unit in the list editor.
void AddScenesOfTheListEditor(const Hand& hand, std::vector<Scene>& scenes) {
  scenes.push_back({.show = [hand](HWND dialog) {
    DoubleClickAt(dialog, PlaceOf(dialog, hand, kArticle));
  }});
  scenes.push_back({.show =
                        [hand](HWND dialog) {
                          ClickAt(dialog, PlaceInListEditor(dialog, hand, kPrice));
                        },
                    .title = kListTitle,
                    .picture = "layout-list-edit"});
  scenes.push_back({.show = [](HWND dialog) { Click(dialog, IDC_BLOCK_REAL_TEXT); },
                    .title = kListTitle,
                    .picture = "layout-list-edit-same-height"});
  scenes.push_back({.show =
                        [hand](HWND dialog) {
                          Click(dialog, IDC_BLOCK_REAL_TEXT);
                          ClickAt(dialog, PlaceInListEditor(dialog, hand, kUnit));
                          ReplaceText(Control(dialog, IDC_LAYOUT_TEXT_LINE), L"式");
                        },
                    .title = kListTitle});
  scenes.push_back({.show =
                        [](HWND dialog) {
                          ExpectText(dialog, IDC_LAYOUT_TEXT_LINE, L"式");
                          Click(dialog, IDOK);
                        },
                    .title = kListTitle});
}

std::vector<Scene> Scenes(const Hand& hand) {
  std::vector<Scene> scenes;
  AddScenesOfCels(hand, scenes);
  AddScenesOfColumns(hand, scenes);
  AddScenesOfTheListEditor(hand, scenes);
  return scenes;
}

/// Shows amounts without groups of digits, hides a ruled line and inserts a name.
void WorkCommands(ModalScript& script, const Hand& hand) {
  constexpr int kTermsName = 5;  // in the list of insertions
  Then(script, [hand](HWND editor) {
    ExpectText(editor, IDC_LAYOUT_TEXT_LINE, L"式");
    ClickAt(editor, PlaceOf(editor, hand, kAmount));
    Click(editor, IDC_LAYOUT_FIELD);
  });
  gallery::Then(script, kFieldTitle, [](HWND dialog) {
    ExpectText(dialog, IDC_FIELD_FIRST, L"金額");
    Click(dialog, IDC_FIELD_GROUPING);
    Click(dialog, IDOK);
  });
  Then(script, [hand](HWND editor) {
    Drag(editor, PlaceOf(editor, hand, kFirstTotal), PlaceOf(editor, hand, kLastTotal));
  });
  Then(script, [](HWND editor) { PressTool(editor, IDM_EDIT_LINES); });
  gallery::Then(script, kLinesTitle, [](HWND dialog) {
    Click(dialog, IDC_LINE_INNER_VERTICAL);
    Click(dialog, IDOK);
  });
  Then(script, [hand](HWND editor) {
    ClickAt(editor, PlaceOf(editor, hand, kTerms));
    Click(editor, IDC_LAYOUT_APPEND);
  });
  PickInsertion(script, kTitle, kTermsName);
}

/// Saves the page, spoils it and opens the file.
void WorkFiles(ModalScript& script, const Hand& hand) {
  Then(script, [](HWND editor) { PressTool(editor, IDM_SAVE_LAYOUT); });
  EnterFileName(script, hand->folder.File(kFileName));
  Then(script, [hand](HWND editor) {
    Expect(std::filesystem::exists(hand->folder.File(kFileName)), "no file was saved");
    ReplaceText(Control(editor, IDC_LAYOUT_COLUMNS), L"2");
    PressTab(editor);
  });
  Then(script, [](HWND editor) {
    ExpectText(editor, IDC_LAYOUT_WIDTH, L"160");
    PressTool(editor, IDM_OPEN_LAYOUT);
  });
  EnterFileName(script, hand->folder.File(kFileName));
  Then(script, [](HWND editor) {
    ExpectText(editor, IDC_LAYOUT_COLUMNS, L"6");
    ExpectText(editor, IDC_LAYOUT_WIDTH, L"160");
    Click(editor, IDOK);
  });
}

/// Shows that a block out of use is out of reach, and takes back the deletion of a row.
void WorkAndCancel(HWND dialog, ModalScript& script, const Hand& hand) {
  constexpr int kItemsToDeletion = 7;
  Click(dialog, IDC_FOOTER_USE);
  ClickAt(dialog, PlaceOf(dialog, hand, kArticle));
  Then(script, [hand](HWND editor) {
    Expect(!driver::IsEnabled(editor, IDC_FOOTER_HEIGHT), "the footer's height can be changed");
    RightClickAt(editor, PlaceOf(editor, hand, kArticle));
  });
  script.When(driver::MenuShown(), [](HWND menu) {
    for (int item = 0; item < kItemsToDeletion; ++item) {
      PressKey(menu, VK_DOWN);
    }
    PressKey(menu, VK_RETURN);
  });
  script.When(driver::MessageBoxShown(), [](HWND box) {
    constexpr int kMessageId = 0xFFFF;
    ExpectText(box, kMessageId, L"選択行を削除します。宜しいですか?");
    Click(box, IDOK);
  });
  Then(script, [](HWND editor) {
    ExpectText(editor, IDC_LIST_ROWS, L"1");
    PressKey(editor, VK_ESCAPE);
  });
}

std::vector<TourStop> Tour(const Hand& hand) {
  const auto setUp = [hand] {
    hand->environment.BeginTour();
    hand->folder.Begin();
    hand->page = Estimate();
    hand->shown = hand->page;
  };
  return {
      {
          .options = {},
          .title = kTitle,
          .setUp = setUp,
          .scenes = Scenes(hand),
          .work =
              [hand](HWND dialog, ModalScript& script) {
                ClickAt(dialog, PlaceOf(dialog, hand, kUnit));
                WorkCommands(script, hand);
                WorkFiles(script, hand);
              },
          .outcome = kConfirmed,
          .value = L"6 columns, 160 mm (12+56.5+13.75+17.75+26+34), "
                   L"outer line 0.5 mm style 0 #000000 (赤 0 緑 0 青 0), "
                   L"inner lines 0.2 mm style 0 #000000 (赤 0 緑 0 青 0), "
                   L"on pages 111, 12 times from 1; "
                   L"header 21 mm (8+7+6): "
                   L"御　見　積　書[1x4]{tl} | 見積番号 | <M>11 見積番号</M> / "
                   L"　<M>12 宛名</M>　様[1x2]{lr} | 株式会社○○設計事務所　[1x4]{lr} / "
                   L"番号 | 品名・仕様 | 数量 | 単位 | 単価 | 金額; "
                   L"list 17 mm (9+8): "
                   L"[番号][2x1] | [品名]{b} | [数量][2x1] | 式[2x1] | [単価 3桁][2x1] | "
                   L"[金額][2x1] / [仕様]{t}; "
                   L"footer 21 mm (7+7+7): "
                   L"　見積有効期限：提出日より１か月[1x4]{b} | 小計{r} | [合計 金額 3桁]{l} / "
                   L"　お支払条件：<M>15 支払条件</M>[1x4]{tb} | 消費税{r} | [消費税額 3桁]{l} / "
                   L"明細件数　[1x2]{tr} | [合計カウント 品名][1x2]{tl} | 合計{r} | "
                   L"[税込金額 3桁]{l}",
      },
      {
          .options = {},
          .title = kTitle,
          .setUp = setUp,
          .work = [hand](HWND dialog,
                         ModalScript& script) { WorkAndCancel(dialog, script, hand); },
          .outcome = kCancelled,
          .value = PageInWords(Estimate()),
      },
  };
}

}  // namespace

Exhibit ExtendedLayoutExhibit() {
  // In lines of text.
  constexpr int kPreviewLines = 13;
  constexpr int kPreviewColumns = 32;
  struct Insertion {
    const char* name;
    DWORD number;
  };
  constexpr std::array kInsertions{Insertion{"見積番号", 10}, Insertion{"宛名", 11},
                                   Insertion{"見積日", 12}, Insertion{"担当者", 13},
                                   Insertion{"支払条件", 14}};
  const auto hand = std::make_shared<PageInHand>();
  hand->page = Estimate();
  for (const char* name : {"番号", "品名", "仕様", "数量", "単位", "単価", "金額", "消費税額",
                           "税込金額"}) {
    hand->fields.Add(name);
  }
  for (const Insertion& insertion : kInsertions) {
    hand->insertions.Add(insertion.name);
    hand->numbers.Add(insertion.number);
  }
  return {
      .name = "layout-ex-edit",
      .group = Group::kForms,
      .entry = L"__LayoutExEditDlg",
      .label = L"見積書(&A)",
      .shown = [hand] { return PageInShort(hand->page); },
      .value = [hand] { return PageInWords(hand->page); },
      .kept = {.bytes = [hand] { return BytesOfPage(hand->page); },
               .restore = [hand](const Bytes& bytes) { return RestorePage(hand->page, bytes); }},
      .preview =
          [hand](HDC deviceContext, const RECT& area) {
            DrawPage(deviceContext, CRect(area), hand->page);
          },
      .previewLines = kPreviewLines,
      .previewColumns = kPreviewColumns,
      .run =
          [hand](const RunOptions&) {
            return ConfirmedIf(__LayoutExEditDlg(hand->environment.Get(), &hand->page,
                                                 &hand->fields, &hand->insertions, &hand->numbers,
                                                 kSampleDotsPerMm, nullptr) != FALSE);
          },
      .tour = Tour(hand),
  };
}

}  // namespace quorvel::gallery
