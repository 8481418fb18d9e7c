#include "support/entries.h"

#include "driver/dialog_owner.h"
#include "res/ids.h"
#include "support/same_page.h"
#include "support/sound_page.h"

#include <commdlg.h>

#include <array>

namespace quorvel::test {

namespace {

constexpr const char* kKey = "Software\\QuorvelTests\\Entries";

/// An environment of the tests' own, empty when a run of the tests begins.
CKivSysEnv& TestEnv() {
  static CKivSysEnv env = [] {
    ForgetSettings();
    return CKivSysEnv(kKey);
  }();
  return env;
}

constexpr COLORREF kColor = RGB(153, 102, 51);
constexpr double kDotsPerMm = 11.811;

Outcome RunSelColor(CPoint* position) {
  COLORREF color = kColor;
  const bool confirmed = __SelColorDlg(&TestEnv(), &color, position) != FALSE;
  return {confirmed, color == kColor};
}

Outcome RunSelColorEx(CPoint* position) {
  COLORREF color = kColor;
  const bool confirmed = __SelColorDlgEx(&TestEnv(), &color, position) != FALSE;
  return {confirmed, color == kColor};
}

Outcome RunEditColor(CPoint* position) {
  COLORREF color = kColor;
  const bool confirmed = __EditColorDlg(&TestEnv(), &color, position) != FALSE;
  return {confirmed, color == kColor};
}

Outcome RunSelRgb(CPoint* /*position*/) {
  COLORREF color = kColor;
  const bool confirmed = __SelRGBDlg(&color) != FALSE;
  return {confirmed, color == kColor};
}

Outcome RunText(CPoint* position) {
  CString text("初期値");
  const bool confirmed = __InputTextDlg("題名", "説明", &text, position) != FALSE;
  return {confirmed, text == "初期値"};
}

Outcome RunScale(CPoint* position) {
  double scale = 1000.4;
  const bool confirmed = __InputScaleDlg("題名", "説明", &scale, position) != FALSE;
  return {confirmed, scale == 1000.4};
}

Outcome RunDpi(CPoint* position) {
  int dpi = 300;
  const bool confirmed = __InputDpiDlg(&dpi, position) != FALSE;
  return {confirmed, dpi == 300};
}

Outcome RunPointXY(CPoint* position) {
  std::array point{1.23456, 2.0};
  const bool confirmed = __InputPointXYDlg(point.data(), TRUE, position) == QUORVEL_POINT_CONFIRMED;
  return {confirmed, point == std::array{1.23456, 2.0}};
}

Outcome RunPointXYZ(CPoint* position) {
  std::array point{1.23456, 2.0, 3.0};
  const bool confirmed =
      __InputPointXYZDlg(point.data(), FALSE, position) == QUORVEL_POINT_CONFIRMED;
  return {confirmed, point == std::array{1.23456, 2.0, 3.0}};
}

Outcome RunPaper(CPoint* /*position*/) {
  CString name("A3");
  int width = 420;
  int height = 297;
  int clearAll = 7;
  const INT_PTR result = __UserPaperSetDlg(nullptr, &name, &width, &height, &clearAll, nullptr);
  // The flag is the one variable that a cancel writes.
  return {result == 1, name == "A3" && width == 420 && height == 297};
}

Outcome RunCheckList(CPoint* /*position*/) {
  const CString title("一覧");
  CArray<CString, CString&> items;
  CByteArray states;
  for (const char* name : {"用紙枠", "図面枠", "寸法線"}) {
    CString item(name);
    items.Add(item);
    states.Add(5);
  }
  const INT_PTR result = __CheckListDlg(&title, &items, &states);
  return {result == IDOK, states[0] == 5 && states[1] == 5 && states[2] == 5};
}

/// A font with no state at its beginning, so that every control of the dialogs is enabled.
template <class Font>
Font StruckOutFont() {
  Font font;
  LOGFONTA record = font.GetLogFont(0);
  record.lfStrikeOut = 1;
  font.SetLogFont(&record);
  return font;
}

Outcome RunFont(CPoint* /*position*/) {
  auto font = StruckOutFont<CKivFont>();
  const CKivFont before = font;
  const bool confirmed =
      __SelFontDlg(nullptr, &font, 0.0, "文字", TRUE, FALSE, QUORVEL_FONT_ALL) != FALSE;
  return {confirmed, IsSameFont(font, before)};
}

Outcome RunFontEx(CPoint* /*position*/) {
  auto font = StruckOutFont<CKivFontEx>();
  const CKivFontEx before = font;
  const bool confirmed =
      __SelFontExDlg(nullptr, &font, 0.0, "文字", FALSE, QUORVEL_FONT_ALL) != FALSE;
  return {confirmed, IsSameFont(font, before)};
}

/// Two rows and three columns, with something in everything that a page can have.
CLayoutPageData PageWithEverything() {
  CLayoutPageData page;
  page.DividePage(2, 3, kDotsPerMm);
  page.SetAllLengthRow(25.5, 0);
  page.SetLengthCol(1, 31.25);
  page.SetMargin(2.5F);
  page.SetShowFrame(1);
  page.SetByEdgeOutLine(1);
  const PEN_STATUS line{.color = kColor, .width = 0.25F, .style = 2};
  page.SetOutLineStatus(&line);
  page.SetInLineStatus(&line);
  for (int index = 0; index < page.GetCelSize(); ++index) {
    CLayoutCelData& cel = *page.GetCelAt(index);
    cel.SetText("図面名称");
    cel.GetFont()->SetHPos(static_cast<BYTE>(index % 3));
    cel.GetFont()->SetBackColor(&kColor);
    cel.SetShowLineVB(index % 2);
    cel.SetSelected(index < 2 ? 1 : 0);
  }
  page.MeargeCel(0, 0);
  page.GetCelAt(3)->SetSelected(1);
  return page;
}

template <int LineMode>
Outcome RunLayoutEdit(CPoint* position) {
  CLayoutPageData page = PageWithEverything();
  const CLayoutPageData before = page;
  CStringArray insertions;
  CDWordArray numbers;
  for (const char* name : {"図番", "縮尺"}) {
    insertions.Add(name);
    numbers.Add(static_cast<DWORD>(numbers.GetSize()));
  }
  const bool confirmed = __LayoutEditDlg(&TestEnv(), &page, &insertions, &numbers, kDotsPerMm,
                                         LineMode, position) != FALSE;
  return {confirmed, IsSamePage(page, before), FaultOf(page)};
}

Outcome RunLayoutExEdit(CPoint* position) {
  CLayoutExPageData page = ExtendedPageWithEverything();
  const CLayoutExPageData before = page;
  CStringArray fields;
  for (const char* name : {"品名", "数量", "金額"}) {
    fields.Add(name);
  }
  CStringArray insertions;
  CDWordArray numbers;
  for (const char* name : {"図番", "縮尺"}) {
    insertions.Add(name);
    numbers.Add(static_cast<DWORD>(numbers.GetSize()));
  }
  const bool confirmed = __LayoutExEditDlg(&TestEnv(), &page, &fields, &insertions, &numbers,
                                           kDotsPerMm, position) != FALSE;
  return {confirmed, IsSamePage(page, before), FaultOf(page)};
}

/// The system's own font dialog with our template and nothing of ours.
template <WORD TemplateId>
void RunBareFont(HWND owner) {
  const HMODULE module = ::GetModuleHandleW(L"Quorvel.dll");
  const driver::ModuleContext context(module);
  context.Run([owner, module] {
    LOGFONTW font{};
    CHOOSEFONTW record{};
    record.lStructSize = sizeof record;
    record.hwndOwner = owner;
    record.lpLogFont = &font;
    record.Flags = CF_SCREENFONTS | CF_EFFECTS | CF_TTONLY | CF_ENABLETEMPLATE;
    record.hInstance = module;
    record.lpTemplateName = MAKEINTRESOURCEW(TemplateId);
    ::ChooseFontW(&record);
  });
}

}  // namespace

void ForgetSettings() { ::RegDeleteTreeA(HKEY_CURRENT_USER, kKey); }

CLayoutExPageData ExtendedPageWithEverything() {
  constexpr BYTE kColumns = 4;
  constexpr std::array<BYTE, 3> kRows{1, 3, 2};
  constexpr std::array kHeights{12.5F, 50.0F, 15.25F};
  CLayoutExPageData page;
  for (const CLayoutExPageData::LISTTYPE block : kBlocksOfPage) {
    page.DividePage(block, kRows[static_cast<std::size_t>(block)], kColumns, kDotsPerMm);
    page.SetAllLengthRow(block, kHeights[static_cast<std::size_t>(block)], 0);
  }
  page.SetAllLengthCol(160.0F, 0);
  page.SetLengthCol(1, 31.25F);
  page.SetUse(CLayoutExPageData::LISTTYPE_FOOTER, 0);
  page.SetListShowByPage(1, 0);
  page.SetRepeatRow(12);
  page.SetStIndex(3);
  page.SetByEdgeOutLine(1);
  const PEN_STATUS line{.color = kColor, .width = 0.25F, .style = 2};
  page.SetOutLineStatus(&line);
  page.SetInLineStatus(&line);
  for (const CLayoutExPageData::LISTTYPE block : kBlocksOfPage) {
    for (int index = 0; index < page.GetCelSize(block); ++index) {
      CLayoutCelData& cel = *page.GetCelAt(block, index);
      cel.SetText(index % 2 == 0 ? "図面名称" : "<M>1 図番</M>");
      cel.GetFont()->SetHPos(static_cast<BYTE>(index % 3));
      cel.GetFont()->SetBackColor(&kColor);
      cel.SetShowLineVB(index % 2);
      cel.SetShowLineHL((index + 1) % 2);
      cel.SetSelected(index < 2 ? 1 : 0);
    }
    page.MeargeCel(block, 0, 0);
    page.GetCelAt(block, 3)->SetSelected(1);
  }
  return page;
}

const std::vector<Entry>& AllEntries() {
  static const std::vector<Entry> entries{
      {"InputText", IDD_INPUT_TEXT, RunText, true,
       [] { return INT_PTR{__InputTextDlg("", "", nullptr, nullptr)}; }, FALSE},
      {"InputScale", IDD_INPUT_SCALE, RunScale, true,
       [] { return INT_PTR{__InputScaleDlg("", "", nullptr, nullptr)}; }, FALSE},
      {"InputDpi", IDD_INPUT_DPI, RunDpi, true,
       [] { return INT_PTR{__InputDpiDlg(nullptr, nullptr)}; }, FALSE},
      {"InputPointXY", IDD_INPUT_POINT, RunPointXY, true,
       [] { return __InputPointXYDlg(nullptr, TRUE, nullptr); }, 1},
      {"InputPointXYZ", IDD_INPUT_POINT, RunPointXYZ, true,
       [] { return __InputPointXYZDlg(nullptr, TRUE, nullptr); }, 1},
      {"UserPaper", IDD_USER_PAPER, RunPaper, false,
       [] { return __UserPaperSetDlg(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr); }, 0},
      {"CheckList", IDD_CHECK_LIST, RunCheckList, false,
       [] { return __CheckListDlg(nullptr, nullptr, nullptr); }, -1},
      {"SelFont", IDD_SEL_FONT, RunFont, false,
       [] { return INT_PTR{__SelFontDlg(nullptr, nullptr, 0.0, "", TRUE, FALSE, 0)}; }, FALSE,
       RunBareFont<IDD_SEL_FONT>},
      {"SelFontEx", IDD_SEL_FONT_EX, RunFontEx, false,
       [] { return INT_PTR{__SelFontExDlg(nullptr, nullptr, 0.0, "", FALSE, 0)}; }, FALSE,
       RunBareFont<IDD_SEL_FONT_EX>},
      {"SelColor", IDD_COLOUR_GRID, RunSelColor, true,
       [] { return INT_PTR{__SelColorDlg(nullptr, nullptr, nullptr)}; }, FALSE},
      {"SelColorEx", IDD_COLOUR_TABS, RunSelColorEx, true,
       [] { return INT_PTR{__SelColorDlgEx(nullptr, nullptr, nullptr)}; }, FALSE},
      {"EditColor", IDD_COLOUR_EDIT, RunEditColor, true,
       [] { return INT_PTR{__EditColorDlg(nullptr, nullptr, nullptr)}; }, FALSE},
      {"SelRgb", IDD_COLOUR_PICKER, RunSelRgb, false,
       [] { return INT_PTR{__SelRGBDlg(nullptr)}; }, FALSE},
      {"LayoutEdit", IDD_LAYOUT, RunLayoutEdit<0>, true,
       [] { return INT_PTR{__LayoutEditDlg(nullptr, nullptr, nullptr, nullptr, 0.0, 0, nullptr)}; },
       FALSE},
      {"LayoutEditOfLines", IDD_LAYOUT, RunLayoutEdit<1>, true,
       [] { return INT_PTR{__LayoutEditDlg(nullptr, nullptr, nullptr, nullptr, 0.0, 1, nullptr)}; },
       FALSE},
      {"LayoutExEdit", IDD_LAYOUT_EX, RunLayoutExEdit, true,
       [] {
         return INT_PTR{
             __LayoutExEditDlg(nullptr, nullptr, nullptr, nullptr, nullptr, 0.0, nullptr)};
       },
       FALSE},
  };
  return entries;
}

}  // namespace quorvel::test
