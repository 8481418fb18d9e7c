#include "gallery/sample_pages.h"

#include "gallery/value_text.h"

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

void Write(CLayoutPageData& page, int row, int col, const char* text, const CelLook& look) {
  CLayoutCelData& cel = *page.GetCelAt(page.GetIndexFromRowCol(row, col));
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

void Merge(CLayoutPageData& page, int row, int firstCol, int lastCol) {
  for (int col = firstCol; col <= lastCol; ++col) {
    page.GetCelAt(page.GetIndexFromRowCol(row, col))->SetSelected(1);
  }
  page.MeargeCel(row, firstCol);
  for (int col = firstCol; col <= lastCol; ++col) {
    page.GetCelAt(page.GetIndexFromRowCol(row, col))->SetSelected(0);
  }
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

std::wstring LineInWords(int isOn, const PEN_STATUS& status) {
  if (isOn == 0) {
    return L"off";
  }
  return Number(status.width) + L" mm style " + std::to_wstring(status.style) + L" " +
         ColorText(status.color);
}

std::wstring CelInWords(const CLayoutCelData& cel) {
  std::wstring words = cel.GetText().IsEmpty() ? L"-" : Wide(cel.GetText());
  if (cel.GetRowMeargeSize() > 1 || cel.GetColMeargeSize() > 1) {
    words += L"[" + std::to_wstring(cel.GetRowMeargeSize()) + L"x" +
             std::to_wstring(cel.GetColMeargeSize()) + L"]";
  }
  return words;
}

std::wstring RowInWords(const CLayoutPageData& page, int row) {
  std::wstring words;
  for (int col = 0; col < page.GetNumCol(); ++col) {
    const CLayoutCelData& cel = *page.GetCelAt(page.GetIndexFromRowCol(row, col));
    if (cel.GetRowMeargeSize() != 0) {
      words += (words.empty() ? L"" : L" | ") + CelInWords(cel);
    }
  }
  return words;
}

/// As many lengths as `count`, as a sum.
std::wstring Sum(const CLayoutPageData& page, int count,
                 double (CLayoutPageData::*length)(int) const) {
  std::wstring words;
  for (int line = 0; line < count; ++line) {
    words += (line == 0 ? L"" : L"+") + Number((page.*length)(line));
  }
  return words;
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

std::wstring PageInWords(const CLayoutPageData& page) {
  const std::wstring columns = Sum(page, page.GetNumCol(), &CLayoutPageData::GetLengthCol);
  const std::wstring rows = Sum(page, page.GetNumRow(), &CLayoutPageData::GetLengthRow);
  std::wstring words = std::to_wstring(page.GetNumRow()) + L" x " +
                       std::to_wstring(page.GetNumCol()) + L" cells, " +
                       Number(page.GetAllLengthCol()) + L" x " + Number(page.GetAllLengthRow()) +
                       L" mm (" + columns + L", " + rows + L"), ";
  if (page.GetType() != 0) {
    words += L"outer line " + LineInWords(page.GetByEdgeOutLine(), page.GetOutLineStatus()) +
             L", inner lines " + LineInWords(page.GetByEdgeInLine(), page.GetInLineStatus());
  } else {
    words += L"margin " + Number(page.GetMargin()) +
             (page.GetShowFrame() != 0 ? L" mm, frame" : L" mm, no frame");
  }
  for (int row = 0; row < page.GetNumRow(); ++row) {
    words += (row == 0 ? L": " : L" / ") + RowInWords(page, row);
  }
  return words;
}

}  // namespace quorvel::gallery
