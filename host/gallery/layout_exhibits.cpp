#include "gallery/layout_exhibits.h"

#include "dialogs/layout/layout_cel_size_edit_dlg.h"
#include "dialogs/layout/layout_field_edit_dlg.h"
#include "dialogs/layout/layout_frame_edit_dlg.h"
#include "driver/controls.h"
#include "driver/product_state.h"
#include "framework/device_context.h"
#include "gallery/exhibit_work.h"
#include "gallery/page_words.h"
#include "gallery/value_text.h"

#include <quorvel/quorvel.h>

#include <array>
#include <cmath>
#include <memory>
#include <string>
#include <utility>

namespace quorvel::gallery {

namespace {

using driver::Click;
using driver::Control;
using driver::Focus;
using driver::ModalScript;
using driver::PressKey;
using driver::ReplaceText;
using driver::TypeText;

constexpr const wchar_t* kLinesTitle = L"罫線編集";
constexpr const wchar_t* kFieldTitle = L"ﾌｨｰﾙﾄﾞ設定";
constexpr const wchar_t* kCelSizeTitle = L"ｾﾙｻｲｽﾞ編集";

using Work = std::function<void(HWND dialog, ModalScript& script)>;

TourStop Stop(const wchar_t* title, std::function<void()> setUp, Work work, Outcome outcome,
              std::wstring value) {
  return {
      .options = {},
      .title = title,
      .setUp = std::move(setUp),
      .work = std::move(work),
      .outcome = outcome,
      .value = std::move(value),
  };
}

/// A page whose list has two rows and two columns, all of it selected.
class LinesInHand {
public:
  static constexpr auto kBlock = CLayoutExPageData::LISTTYPE_LIST;

  LinesInHand() { BeginAnew(); }

  void BeginAnew() {
    constexpr double kDotsPerMm = 11.811;
    page = CLayoutExPageData();
    page.DividePage(kBlock, 2, 2, kDotsPerMm);
    SelectAll();
    page.SetUse(CLayoutExPageData::LISTTYPE_HEADER, 0);
    page.SetUse(CLayoutExPageData::LISTTYPE_FOOTER, 0);
    page.SetShowLine(kBlock, 1, 0, 1, 0, 1, 0);
  }

  /// False for a page that has no such list.
  bool Restore(const Bytes& bytes) {
    CLayoutExPageData read;
    if (!RestorePage(read, bytes) || read.GetNumRow(kBlock) != 2 || read.GetNumCol() != 2) {
      return false;
    }
    page = read;
    SelectAll();
    return true;
  }

  std::wstring Text() const {
    const FrameLines lines = ReadFrameLines(page, kBlock);
    std::wstring text;
    const auto add = [&](const wchar_t* name, FrameLine line) {
      text += std::wstring(text.empty() ? L"" : L" ") + name + L"=" + std::to_wstring(lines[line]);
    };
    add(L"top", FrameLine::kTop);
    add(L"innerHorizontal", FrameLine::kInnerHorizontal);
    add(L"bottom", FrameLine::kBottom);
    add(L"left", FrameLine::kLeft);
    add(L"innerVertical", FrameLine::kInnerVertical);
    add(L"right", FrameLine::kRight);
    return text;
  }

  CLayoutExPageData page;

private:
  void SelectAll() {
    for (int index = 0; index < page.GetCelSize(kBlock); ++index) {
      page.GetCelAt(kBlock, index)->SetSelected(1);
    }
  }
};

/// The lines of the four cells, hidden ones dotted and grey as in the dialog.
void DrawLines(HDC deviceContext, const CRect& area, const CLayoutExPageData& page) {
  struct Line {
    FrameLine kind{};
    CPoint from;
    CPoint to;
  };
  constexpr int kEdge = 3;
  const FrameLines lines = ReadFrameLines(page, LinesInHand::kBlock);
  const CRect box = area.Grown(-kEdge, -kEdge);
  const int middleX = (box.left + box.right) / 2;
  const int middleY = (box.top + box.bottom) / 2;
  const std::array all{
      Line{FrameLine::kTop, {box.left, box.top}, {box.right, box.top}},
      Line{FrameLine::kInnerHorizontal, {box.left, middleY}, {box.right, middleY}},
      Line{FrameLine::kBottom, {box.left, box.bottom}, {box.right, box.bottom}},
      Line{FrameLine::kLeft, {box.left, box.top}, {box.left, box.bottom}},
      Line{FrameLine::kInnerVertical, {middleX, box.top}, {middleX, box.bottom}},
      Line{FrameLine::kRight, {box.right, box.top}, {box.right, box.bottom}},
  };
  FillSolid(deviceContext, area, RGB(255, 255, 255));
  const OwnedPen shown(::CreatePen(PS_SOLID, 1, RGB(0, 0, 0)));
  const OwnedPen hidden(::CreatePen(PS_DOT, 1, RGB(192, 192, 192)));
  for (const Line& line : all) {
    const SelectedObject pen(deviceContext, lines[line.kind] != 0 ? shown.get() : hidden.get());
    ::MoveToEx(deviceContext, line.from.x, line.from.y, nullptr);
    ::LineTo(deviceContext, line.to.x, line.to.y);
  }
}

CStringArray FieldNames() {
  CStringArray names;
  for (const char* name : {"図面番号", "品名", "材質", "数量", "単価", "金額"}) {
    names.Add(name);
  }
  return names;
}

struct FieldInHand {
  CStringArray names = FieldNames();
  CString macro;
};

struct SizesInHand {
  float first = 10.0F;
  float second = 5.0F;
};

bool IsLength(float length) {
  return std::isfinite(length) && length >= 0;
}

/// Leads a list so many entries down.
void GoDown(HWND dialog, int id, int entries) {
  const HWND list = Control(dialog, id);
  Focus(list);
  for (int i = 0; i < entries; ++i) {
    PressKey(list, VK_DOWN);
  }
}

}  // namespace

Exhibit RuledLinesExhibit() {
  const auto hand = std::make_shared<LinesInHand>();
  const auto setUp = [hand] { hand->BeginAnew(); };
  return {
      .name = "layout-frame-edit",
      .group = Group::kFormParts,
      .entry = L"CLayoutFrameEditDlg",
      .label = L"罫線(&K)",
      .shown = [] { return std::wstring(L"選択したセル 2 × 2"); },
      .value = [hand] { return hand->Text(); },
      .kept = {.bytes = [hand] { return BytesOfPage(hand->page); },
               .restore = [hand](const Bytes& bytes) { return hand->Restore(bytes); }},
      .preview = [hand](HDC deviceContext,
                        const RECT& area) { DrawLines(deviceContext, CRect(area), hand->page); },
      .previewLines = 4,
      .previewColumns = 4,
      .run =
          [hand](const RunOptions&) {
            CLayoutFrameEditDlg dialog(nullptr, &hand->page, LinesInHand::kBlock, nullptr);
            return ConfirmedIf(driver::RunWithProductResources(dialog) == IDOK);
          },
      .tour =
          {
              Stop(
                  kLinesTitle, setUp,
                  [](HWND dialog, ModalScript&) {
                    Click(dialog, IDC_FRAME_OUTER);
                    Click(dialog, IDC_LINE_INNER_VERTICAL);
                    Click(dialog, IDC_LINE_BOTTOM);
                    Click(dialog, IDOK);
                  },
                  kConfirmed, L"top=1 innerHorizontal=0 bottom=0 left=1 innerVertical=0 right=1"),
              Stop(
                  kLinesTitle, setUp,
                  [](HWND dialog, ModalScript&) {
                    Click(dialog, IDC_FRAME_NONE);
                    Click(dialog, IDCANCEL);
                  },
                  kCancelled, L"top=1 innerHorizontal=0 bottom=1 left=0 innerVertical=1 right=0"),
          },
  };
}

Exhibit FieldExhibit() {
  const auto hand = std::make_shared<FieldInHand>();
  const auto setUp = [hand] {
    CKivValInfoOneData info;
    StoreFieldChoice({.type = 9,
                      .field1 = "数量",
                      .comparison = 3,
                      .value = "10",
                      .field2 = "金額",
                      .useDecimals = 1,
                      .decimals = 2,
                      .grouping = 0},
                     info);
    hand->macro = info.GetMacroString(FieldTypeText(9));
  };
  const std::wstring before =
      LR"(macro="<F type=209 "抽出合計" field="数量" find>="10")"
      LR"( ref="金額" decimals=2 fixed=1 grouped=0>")";
  return {
      .name = "layout-field-edit",
      .group = Group::kFormParts,
      .entry = L"CLayoutFieldEditDlg",
      .label = L"ﾌｨｰﾙﾄﾞ(&G)",
      .shown = [hand] { return TextInWords(hand->macro); },
      .value = [hand] { return NamedText(L"macro", hand->macro); },
      .kept = {.bytes = [hand] { return ByteWriter().PutText(hand->macro).Written(); },
               .restore =
                   [hand](const Bytes& bytes) {
                     ByteReader reader(bytes);
                     CString read;
                     return reader.GetText(read) && reader.IsAtEnd() && (hand->macro = read, true);
                   }},
      .run =
          [hand](const RunOptions&) {
            CLayoutFieldEditDlg dialog(&hand->names, hand->macro, nullptr);
            if (driver::RunWithProductResources(dialog) != IDOK) {
              return kCancelled;
            }
            hand->macro = dialog.m_strMacro;
            return kConfirmed;
          },
      .tour =
          {
              Stop(
                  kFieldTitle, setUp,
                  [](HWND dialog, ModalScript&) {
                    ExpectText(dialog, IDC_FIELD_FIRST, L"数量");
                    GoDown(dialog, IDC_FIELD_TYPE, 1);
                    Focus(Control(dialog, IDC_FIELD_FIRST));
                    TypeText(Control(dialog, IDC_FIELD_FIRST), L"単");
                    ReplaceText(Control(dialog, IDC_FIELD_VALUE), L"1,000");
                    Click(dialog, IDC_FIELD_GROUPING);
                    Click(dialog, IDOK);
                  },
                  kConfirmed,
                  LR"(macro="<F type=210 "抽出小計カウント" field="単価" find>="1,000")"
                  LR"( ref="金額" decimals=2 fixed=1 grouped=1>")"),
              Stop(
                  kFieldTitle, setUp,
                  [](HWND dialog, ModalScript&) {
                    GoDown(dialog, IDC_FIELD_FIRST, 1);
                    Click(dialog, IDCANCEL);
                  },
                  kCancelled, before),
          },
  };
}

Exhibit CelSizeExhibit() {
  const auto hand = std::make_shared<SizesInHand>();
  const auto setUp = [hand] { *hand = {}; };
  return {
      .name = "layout-cel-size-edit",
      .group = Group::kFormParts,
      .entry = L"CLayoutCelSizeEditDlg",
      .label = L"ｾﾙｻｲｽﾞ(&J)",
      .shown =
          [hand] { return Number(hand->first) + L" mm : " + Number(hand->second) + L" mm"; },
      .value =
          [hand] {
            return L"first=" + Number(hand->first) + L" second=" + Number(hand->second);
          },
      .kept = {.bytes = [hand] { return ByteWriter().Put(*hand).Written(); },
               .restore =
                   [hand](const Bytes& bytes) {
                     SizesInHand read;
                     const bool isGood = bytes.size() == sizeof read &&
                                         ByteReader(bytes).Get(read) && IsLength(read.first) &&
                                         IsLength(read.second);
                     return isGood && (*hand = read, true);
                   }},
      .run =
          [hand](const RunOptions&) {
            CLayoutCelSizeEditDlg dialog(&hand->first, &hand->second);
            return ConfirmedIf(driver::RunWithProductResources(dialog) == IDOK);
          },
      .tour =
          {
              Stop(
                  kCelSizeTitle, setUp,
                  [](HWND dialog, ModalScript&) {
                    ExpectText(dialog, IDC_CEL_SIZE_FIRST, L"10.0");
                    ReplaceText(Control(dialog, IDC_CEL_SIZE_SECOND), L"2.5");
                    Click(dialog, IDOK);
                  },
                  kConfirmed, L"first=12.5 second=2.5"),
              Stop(
                  kCelSizeTitle, setUp,
                  [](HWND dialog, ModalScript&) {
                    ReplaceText(Control(dialog, IDC_CEL_SIZE_FIRST), L"1");
                    Click(dialog, IDCANCEL);
                  },
                  kCancelled, L"first=10 second=5"),
          },
  };
}

}  // namespace quorvel::gallery
