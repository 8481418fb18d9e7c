// A host that knows nothing but the installed library. It answers its own dialogs: a timer presses
// Enter once a dialog is up.
#include <quorvel/quorvel.h>

#include <cstdio>

namespace {

void CALLBACK PressEnter(HWND, UINT, UINT_PTR timer, DWORD) {
  const HWND dialog = FindWindowW(L"#32770", L"題名");
  if (dialog != nullptr && IsWindowVisible(dialog)) {
    KillTimer(nullptr, timer);
    PostMessageW(GetDlgItem(dialog, 10001), WM_CHAR, 0x8868, 0);  // 表, over the selected text
    PostMessageW(GetDlgItem(dialog, 10001), WM_KEYDOWN, VK_RETURN, 0);
  }
}

/// Confirms with a number of rows, `ROWS` being that field.
template <int ROWS>
void CALLBACK ConfirmLayout(HWND, UINT, UINT_PTR timer, DWORD) {
  const HWND dialog = FindWindowW(L"#32770", L"ﾚｲｱｳﾄ編集");
  if (dialog != nullptr && IsWindowVisible(dialog)) {
    KillTimer(nullptr, timer);
    SetDlgItemTextW(dialog, ROWS, L"3");
    PostMessageW(GetDlgItem(dialog, ROWS), WM_KEYDOWN, VK_RETURN, 0);
  }
}

/// Lets the user lay out a page: two rows become three.
bool LaysOutAPage(CKivSysEnv& environment) {
  CLayoutPageData page;
  page.DividePage(2, 2, 11.811);
  page.GetCelAt(0)->SetText("表");
  CStringArray names;
  names.Add("図面番号");
  CDWordArray numbers;
  numbers.Add(10);
  CPoint position(50, 50);
  SetTimer(nullptr, 0, 50, ConfirmLayout<2011>);
  return __LayoutEditDlg(&environment, &page, &names, &numbers, 11.811, 0, &position) != FALSE &&
         page.GetNumRow() == 3 && page.GetNumCol() == 2 && page.GetCelAt(0)->GetText() == "表" &&
         __LayoutEditDlg(nullptr, nullptr, nullptr, nullptr, 0, 0, nullptr) == FALSE;
}

/// The same for the list of an extended page.
bool LaysOutAnExtendedPage(CKivSysEnv& environment) {
  const auto list = CLayoutExPageData::LISTTYPE_LIST;
  CLayoutExPageData page;
  page.DividePage(list, 2, 2, 11.811);
  page.GetCelAt(list, 0)->SetText("表");
  CStringArray fields;
  fields.Add("品名");
  SetTimer(nullptr, 0, 50, ConfirmLayout<4039>);
  return __LayoutExEditDlg(&environment, &page, &fields, nullptr, nullptr, 11.811, nullptr) !=
             FALSE &&
         page.GetNumRow(list) == 3 && page.GetNumCol() == 2 &&
         page.GetCelAt(list, 0)->GetText() == "表" &&
         __LayoutExEditDlg(nullptr, nullptr, nullptr, nullptr, nullptr, 0, nullptr) == FALSE;
}

/// What a host does with a page, through the installed headers alone.
bool WorksWithPages() {
  CLayoutPageData page;
  page.DividePage(2, 3, 11.811);
  for (int col = 0; col < 2; ++col) {
    page.GetCelAt(page.GetIndexFromRowCol(0, col))->SetSelected(1);
  }
  BYTE rows = 0;
  BYTE cols = 0;
  const bool merged = page.GetSerialSelCelCount(0, 0, &rows, &cols) != 0 && rows == 1 &&
                      cols == 2 && page.MeargeCel(0, 0) != 0;
  CKivFontEx font = *page.GetCelAt(0)->GetFont();
  font.SetV(5);
  font.CalcMmToLogFont(11.811);
  page.GetCelAt(0)->SetFont(&font);
  page.GetCelAt(0)->SetText("表");
  PEN_STATUS pen = {RGB(255, 0, 0), 0.5F, 1};
  page.SetOutLineStatus(&pen);

  CLayoutPageData opened;
  const bool reopened =
      page.SaveFile("表.mtpld") != 0 && opened.OpenFile("表.mtpld") != 0 &&
      opened.GetCelAt(0)->GetText() == "表" && opened.GetCelAt(0)->GetColMeargeSize() == 2 &&
      opened.GetOutLineStatus().width == 0.5F && opened.GetCelAt(0)->GetFont()->GetMM().second == 5;

  CLayoutExPageData extended;
  const auto list = CLayoutExPageData::LISTTYPE(1);
  extended.DividePage(list, 4, 3, 11.811);
  extended.InsertRow(list, 0);
  const bool threeBlocks = extended.GetNumRow(list) == 5 && extended.GetCelSize(list) == 15 &&
                           extended.SaveFile("表.mtpld2") != 0 &&
                           extended.OpenFile("表.mtpld2") != 0 && opened.OpenFile("表.mtpld2") == 0;

  CKivValInfoOneData info;
  info.SetValType(209);
  info.SetFieldName("金額");
  const CString macro = info.GetMacroString("抽出合計");
  CKivValInfoOneData read;
  return merged && reopened && threeBlocks && read.SetMacroString(macro, 1) != 0 &&
         read.GetFieldName() == "金額";
}

/// The user's colours below the host's key, which is removed again.
bool KeepsColours(CKivSysEnv& environment) {
  COLORREF made[16] = {RGB(1, 2, 3)};
  CArray<COLORREF, COLORREF> palette;
  const bool kept = environment.SaveCstColor(made, 16) != 0 &&
                    environment.OpenCstColor(palette) != 0 && palette.GetSize() == 41 &&
                    palette.GetAt(0) == RGB(1, 2, 3);
  RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\Quorvel\\OutsideHost");
  return kept;
}

}  // namespace

int main() {
  CKivSysEnv environment("Software\\Quorvel\\OutsideHost");
  CString text("初期値");
  CPoint position(100, 100);
  SetTimer(nullptr, 0, 50, PressEnter);
  const BOOL confirmed = __InputTextDlg("題名", "説明", &text, &position);
  const bool typed = text == "表";
  const bool pages = WorksWithPages();
  const bool laidOut = LaysOutAPage(environment) && LaysOutAnExtendedPage(environment);
  const bool colours = KeepsColours(environment);
  std::printf("%s, %s, %s\n", pages ? "pages kept" : "pages lost",
              laidOut ? "pages laid out" : "pages not laid out",
              colours ? "colours kept" : "colours lost");
  std::printf("%s %s\n", confirmed != FALSE ? "confirmed" : "cancelled",
              typed ? "as typed" : "not as typed");
  return confirmed != FALSE && typed && pages && laidOut && colours ? 0 : 1;
}
