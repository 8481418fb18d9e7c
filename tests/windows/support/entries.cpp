#include "support/entries.h"

#include "driver/dialog_owner.h"
#include "res/ids.h"

#include <commdlg.h>

#include <array>
#include <cstring>

namespace quorvel::test {

namespace {

/// An environment of the tests' own, empty when a run of the tests begins.
CKivSysEnv& ColourEnv() {
  static constexpr const char* kKey = "Software\\QuorvelTests\\Entries";
  static CKivSysEnv env = [] {
    ::RegDeleteTreeA(HKEY_CURRENT_USER, kKey);
    return CKivSysEnv(kKey);
  }();
  return env;
}

constexpr COLORREF kColor = RGB(153, 102, 51);

Outcome RunSelColor(CPoint* position) {
  COLORREF color = kColor;
  const bool confirmed = __SelColorDlg(&ColourEnv(), &color, position) != FALSE;
  return {confirmed, color == kColor};
}

Outcome RunSelColorEx(CPoint* position) {
  COLORREF color = kColor;
  const bool confirmed = __SelColorDlgEx(&ColourEnv(), &color, position) != FALSE;
  return {confirmed, color == kColor};
}

Outcome RunEditColor(CPoint* position) {
  COLORREF color = kColor;
  const bool confirmed = __EditColorDlg(&ColourEnv(), &color, position) != FALSE;
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

/// Whether the two hold the same in all that the dialogs may write.
bool IsSameFont(const CKivFont& one, const CKivFont& other) {
  const LOGFONTA oneRecord = one.GetLogFont(0);
  const LOGFONTA otherRecord = other.GetLogFont(0);
  return std::memcmp(&oneRecord, &otherRecord, sizeof oneRecord) == 0 &&
         one.GetColor() == other.GetColor() && one.GetV() == other.GetV() &&
         one.GetH() == other.GetH() && one.GetStrikeOutType() == other.GetStrikeOutType();
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
  return {confirmed, IsSameFont(font, before) && font.GetBackColor() == before.GetBackColor() &&
                         font.GetVPos() == before.GetVPos() &&
                         font.GetHPos() == before.GetHPos()};
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
  };
  return entries;
}

}  // namespace quorvel::test
