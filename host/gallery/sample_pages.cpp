#include "gallery/sample_pages.h"

#include "dialogs/layout/field_choice.h"
#include "dialogs/layout/page_block.h"

#include <cstring>
#include <initializer_list>
#include <iterator>

namespace quorvel::gallery {

namespace {

constexpr const char* kGothic = "ＭＳ ゴシック";
constexpr const char* kMincho = "ＭＳ 明朝";
constexpr COLORREF kBlack = RGB(0, 0, 0);
constexpr COLORREF kNavy = RGB(0, 0, 128);
constexpr COLORREF kWhite = RGB(255, 255, 255);
constexpr COLORREF kPaleBlue = RGB(221, 235, 247);
constexpr COLORREF kPaleYellow = RGB(255, 250, 220);

// As CKivFontEx tells places.
constexpr BYTE kFirst = 0;
constexpr BYTE kCentre = 1;
constexpr BYTE kLast = 2;

struct CelLook {
  const char* face = kGothic;
  double height = 3.5;  // millimetres
  LONG weight = FW_NORMAL;
  COLORREF color = kBlack;
  COLORREF back = kWhite;
  BYTE across = kFirst;
  BYTE down = kCentre;
};

constexpr CelLook kLabel{.height = 3, .back = kPaleBlue, .across = kCentre};
constexpr CelLook kEntry{};
constexpr CelLook kCentred{.height = 3, .across = kCentre};
constexpr CelLook kDrawingName{
    .face = kMincho, .height = 7, .weight = FW_BOLD, .color = kNavy, .across = kCentre};
constexpr CelLook kCompany{.face = kMincho, .height = 5, .back = kPaleYellow, .across = kLast,
                           .down = kLast};
constexpr CelLook kFormTitle{.face = kMincho, .height = 6, .weight = FW_BOLD, .across = kCentre};
constexpr CelLook kNumber{.height = 3, .across = kLast};
constexpr CelLook kBoxLabel{.back = kPaleBlue, .across = kCentre};
constexpr CelLook kCustomer{.face = kMincho, .height = 4.5};
constexpr CelLook kOwnName{.face = kMincho, .height = 4, .across = kLast};
constexpr CelLook kCaption{.across = kLast};
constexpr CelLook kGrandTotal{.weight = FW_BOLD, .back = kPaleYellow, .across = kCentre};
constexpr CelLook kGrandTotalValue{.weight = FW_BOLD, .back = kPaleYellow};

void Write(PageBlock& block, int row, int col, const char* text, const CelLook& look) {
  CLayoutCelData& cel = *block.CelAt(block.IndexOf(row, col));
  cel.SetText(text);
  CKivFontEx font = *cel.GetFont();
  LOGFONTA record = font.GetLogFont(0);
  std::memset(std::begin(record.lfFaceName), 0, sizeof record.lfFaceName);
  std::strncpy(std::begin(record.lfFaceName), look.face, LF_FACESIZE - 1);
  record.lfWeight = look.weight;
  font.SetLogFont(&record);
  font.SetV(look.height);
  font.CalcMmToLogFont(kSampleDotsPerMm);
  font.SetColor(&look.color);
  font.SetBackColor(&look.back);
  font.SetHPos(look.across);
  font.SetVPos(look.down);
  cel.SetFont(&font);
}

void Write(CLayoutPageData& page, int row, int col, const char* text, const CelLook& look) {
  SheetBlock block(page);
  Write(block, row, col, text, look);
}

/// Rows and columns, both ends included.
struct Cels {
  int firstRow;
  int lastRow;
  int firstCol;
  int lastCol;
};

void Select(PageBlock& block, const Cels& cels, int selected) {
  for (int row = cels.firstRow; row <= cels.lastRow; ++row) {
    for (int col = cels.firstCol; col <= cels.lastCol; ++col) {
      block.CelAt(block.IndexOf(row, col))->SetSelected(selected);
    }
  }
}

void Merge(PageBlock& block, const Cels& cels) {
  Select(block, cels, 1);
  block.Merge(cels.firstRow, cels.firstCol);
  Select(block, cels, 0);
}

void Merge(CLayoutPageData& page, int row, int firstCol, int lastCol) {
  SheetBlock block(page);
  Merge(block, {row, row, firstCol, lastCol});
}

CLayoutPageData MakePage(std::initializer_list<double> rows,
                         std::initializer_list<double> columns) {
  CLayoutPageData page;
  page.DividePage(static_cast<BYTE>(rows.size()), static_cast<BYTE>(columns.size()),
                  kSampleDotsPerMm);
  int line = 0;
  for (const double length : rows) {
    page.SetLengthRow(line++, length);
  }
  line = 0;
  for (const double length : columns) {
    page.SetLengthCol(line++, length);
  }
  return page;
}

// The blocks of an extended page.
constexpr auto kHeaderBlock = CLayoutExPageData::LISTTYPE_HEADER;
constexpr auto kListBlock = CLayoutExPageData::LISTTYPE_LIST;
constexpr auto kFooterBlock = CLayoutExPageData::LISTTYPE_FOOTER;

void MakeBlock(CLayoutExPageData& page, CLayoutExPageData::LISTTYPE type,
               std::initializer_list<float> rows, std::initializer_list<float> columns) {
  page.DividePage(type, static_cast<BYTE>(rows.size()), static_cast<BYTE>(columns.size()),
                  kSampleDotsPerMm);
  int line = 0;
  for (const float length : rows) {
    page.SetLengthRow(type, line++, length);
  }
  line = 0;
  for (const float length : columns) {
    page.SetLengthCol(line++, length);
  }
}

/// Which lines of cells are shown: around them and between them.
struct ShownLines {
  int top = 1;
  int innerHorizontal = 1;
  int bottom = 1;
  int left = 1;
  int innerVertical = 1;
  int right = 1;
};

void Rule(CLayoutExPageData& page, CLayoutExPageData::LISTTYPE type, const Cels& cels,
          const ShownLines& lines) {
  ExtendedBlock block(page, type);
  Select(block, cels, 1);
  page.SetShowLine(type, lines.top, lines.innerHorizontal, lines.bottom, lines.left,
                   lines.innerVertical, lines.right);
  Select(block, cels, 0);
}

/// The macro of a type, by its number in the settings.
CString Macro(unsigned int valType, const char* field, bool isGrouped) {
  CKivValInfoOneData info;
  info.SetValType(valType);
  info.SetFieldName(field);
  info.SetUse3Figures(isGrouped ? 1 : 0);
  return info.GetMacroString(FieldTypeText(FieldTypeOf(valType)));
}

constexpr unsigned int kValue = 200;
constexpr unsigned int kTotal = 203;
constexpr unsigned int kTotalCount = 206;

void WriteHeader(CLayoutExPageData& page) {
  ExtendedBlock header(page, kHeaderBlock);
  Write(header, 0, 0, "御　見　積　書", kFormTitle);
  Write(header, 0, 4, "見積番号", kBoxLabel);
  Write(header, 0, 5, "<M>11 見積番号</M>", kEntry);
  Write(header, 1, 0, "　<M>12 宛名</M>　御中", kCustomer);
  Write(header, 1, 2, "株式会社○○設計事務所　", kOwnName);
  int col = 0;
  for (const char* heading : {"番号", "品名・仕様", "数量", "単位", "単価", "金額"}) {
    Write(header, 2, col++, heading, kBoxLabel);
  }
  Merge(header, {0, 0, 0, 3});
  Merge(header, {1, 1, 0, 1});
  Merge(header, {1, 1, 2, 5});
  Rule(page, kHeaderBlock, {0, 0, 0, 3}, {.top = 0, .bottom = 0, .left = 0});
  Rule(page, kHeaderBlock, {1, 1, 0, 5}, {.left = 0, .innerVertical = 0, .right = 0});
}

void WriteList(CLayoutExPageData& page) {
  ExtendedBlock list(page, kListBlock);
  Write(list, 0, 0, Macro(kValue, "番号", false).GetString(), kEntry);
  Write(list, 0, 1, Macro(kValue, "品名", false).GetString(), kEntry);
  Write(list, 1, 1, Macro(kValue, "仕様", false).GetString(), kEntry);
  Write(list, 0, 2, Macro(kValue, "数量", false).GetString(), kEntry);
  Write(list, 0, 3, Macro(kValue, "単位", false).GetString(), kEntry);
  Write(list, 0, 4, Macro(kValue, "単価", true).GetString(), kEntry);
  Write(list, 0, 5, Macro(kValue, "金額", true).GetString(), kEntry);
  for (const int col : {0, 2, 3, 4, 5}) {
    Merge(list, {0, 1, col, col});
  }
  Rule(page, kListBlock, {0, 1, 1, 1}, {.innerHorizontal = 0});
}

void WriteFooter(CLayoutExPageData& page) {
  ExtendedBlock footer(page, kFooterBlock);
  Write(footer, 0, 0, "　見積有効期限：提出日より１か月", kEntry);
  Write(footer, 1, 0, "　お支払条件：", kEntry);
  Write(footer, 2, 0, "明細件数　", kCaption);
  Write(footer, 2, 2, Macro(kTotalCount, "品名", false).GetString(), kEntry);
  Write(footer, 0, 4, "小計", kBoxLabel);
  Write(footer, 0, 5, Macro(kTotal, "金額", true).GetString(), kEntry);
  Write(footer, 1, 4, "消費税", kBoxLabel);
  Write(footer, 1, 5, Macro(kValue, "消費税額", true).GetString(), kEntry);
  Write(footer, 2, 4, "合計", kGrandTotal);
  Write(footer, 2, 5, Macro(kValue, "税込金額", true).GetString(), kGrandTotalValue);
  Merge(footer, {0, 0, 0, 3});
  Merge(footer, {1, 1, 0, 3});
  Merge(footer, {2, 2, 0, 1});
  Merge(footer, {2, 2, 2, 3});
  Rule(page, kFooterBlock, {0, 2, 0, 3}, {.innerHorizontal = 0, .innerVertical = 0});
}

}  // namespace

CLayoutPageData TitleBlock() {
  CLayoutPageData page = MakePage({10, 15, 10, 10}, {22, 36, 22, 36, 20, 34});
  Write(page, 0, 0, "工事名称", kLabel);
  Write(page, 0, 1, "<M>12 工事名称</M>", kEntry);
  Write(page, 0, 4, "図面番号", kLabel);
  Write(page, 0, 5, "<M>11 図面番号</M>", kCentred);
  Write(page, 1, 0, "図面名称", kLabel);
  Write(page, 1, 1, "１階平面図", kDrawingName);
  Write(page, 1, 4, "縮尺", kLabel);
  Write(page, 1, 5, "1/<M>31 縮尺</M>", kCentred);
  Write(page, 2, 0, "設計", kLabel);
  Write(page, 2, 1, "<M>22 設計者</M>", kCentred);
  Write(page, 2, 2, "検図", kLabel);
  Write(page, 2, 3, "", kCentred);
  Write(page, 2, 4, "作成日", kLabel);
  Write(page, 2, 5, "<M>21 作成日</M>", kCentred);
  Write(page, 3, 0, "株式会社○○設計事務所", kCompany);
  Write(page, 3, 4, "", kCentred);
  Merge(page, 0, 1, 3);
  Merge(page, 1, 1, 3);
  Merge(page, 3, 0, 3);
  page.SetMargin(5);
  return page;
}

CLayoutPageData PartsForm() {
  CLayoutPageData page = MakePage({12, 8, 9, 9, 9}, {26, 46, 34, 28, 36});
  Write(page, 0, 0, "部品表", kFormTitle);
  Merge(page, 0, 0, 4);
  int col = 0;
  for (const char* heading : {"品番", "品名", "材質", "数量", "備考"}) {
    Write(page, 1, col++, heading, kLabel);
  }
  Write(page, 2, 0, "<M>1 品番</M>", kCentred);
  Write(page, 2, 1, "<M>2 品名</M>", kEntry);
  Write(page, 2, 2, "<M>3 材質</M>", kEntry);
  Write(page, 2, 3, "<M>4 数量</M>", kNumber);
  const PEN_STATUS outer{kBlack, 0.7F, 0};
  const PEN_STATUS inner{kNavy, 0.2F, 2};
  page.SetType(1);
  page.SetByEdgeOutLine(1);
  page.SetOutLineStatus(&outer);
  page.SetByEdgeInLine(1);
  page.SetInLineStatus(&inner);
  return page;
}

CLayoutExPageData Estimate() {
  const std::initializer_list<float> columns{12, 54, 18, 16, 26, 34};
  CLayoutExPageData page;
  MakeBlock(page, kHeaderBlock, {8, 7, 6}, columns);
  MakeBlock(page, kListBlock, {9, 8}, columns);
  MakeBlock(page, kFooterBlock, {7, 7, 7}, columns);
  WriteHeader(page);
  WriteList(page);
  WriteFooter(page);
  const PEN_STATUS outer{kBlack, 0.5F, 0};
  const PEN_STATUS inner{kBlack, 0.2F, 0};
  page.SetByEdgeOutLine(1);
  page.SetOutLineStatus(&outer);
  page.SetByEdgeInLine(1);
  page.SetInLineStatus(&inner);
  page.SetRepeatRow(12);
  return page;
}

}  // namespace quorvel::gallery
