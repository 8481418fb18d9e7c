#include "dialogs/colour/sel_color_list.h"

#include "dialogs/colour/edit_color_dlg.h"
#include "dialogs/colour/sel_color_dlg.h"
#include "framework/control_names.h"
#include "framework/device_context.h"
#include "framework/message_box.h"
#include "kivdata/made_colours.h"
#include "kivfcl/display_rate.h"

namespace {

// In pixels of a display at 100 %.
constexpr int kItemWidth = 24;
constexpr int kItemHeight = 16;
constexpr int kColumns = 6;

}  // namespace

BEGIN_MESSAGE_MAP(CSelColorList, CDialog)
  ON_WM_PAINT(&CSelColorList::OnPaint)
  ON_BN_CLICKED(IDC_PALETTE_EDIT, &CSelColorList::OnEdit)
  ON_BN_CLICKED(IDC_PALETTE_ADD, &CSelColorList::OnAdd)
  ON_BN_CLICKED(IDC_PALETTE_DELETE, &CSelColorList::OnDelete)
  ON_CONTROL(KIVPALETTE_SELECTED, IDC_PALETTE, &CSelColorList::OnSelected)
  ON_CONTROL(KIVPALETTE_DOUBLECLICKED, IDC_PALETTE, &CSelColorList::OnDoubleClicked)
END_MESSAGE_MAP()

CSelColorList::CSelColorList(CKivSysEnv* env, COLORREF color, CWnd* parent)
    : CDialog(IDD_COLOUR_LIST_PAGE, parent), m_pSysEnv(env), m_color(color) {}

BOOL CSelColorList::OnInitDialog() {
  CDialog::OnInitDialog();
  CArray<COLORREF, COLORREF> colors;
  m_bPaletteRead = m_pSysEnv != nullptr && m_pSysEnv->OpenCstColor(colors) != 0;
  m_palette.SetPalletData(colors);
  const double rate = __KivFcl_GetDispRate();
  m_palette.SetItemSize(static_cast<int>(kItemWidth * rate), static_cast<int>(kItemHeight * rate));
  m_palette.SetItemColumnCount(kColumns);
  const CRect place = GetDlgItemRect(IDC_PALETTE);
  ::DestroyWindow(GetDlgItem(IDC_PALETTE));  // the palette itself has this identifier
  m_palette.Create(WS_VISIBLE | WS_TABSTOP | KIVPALETTE_SCROLL | KIVPALETTE_NOTIFY, place, this,
                   IDC_PALETTE);
  quorvel::NameControl(m_palette.m_hWnd, L"色の一覧");
  SetColor(m_color);
  return TRUE;
}

int CSelColorList::FindColor(COLORREF color) const {
  for (int index = 0; index < m_palette.GetColorCount(); ++index) {
    if (m_palette.GetColor(index) == color) {
      return index;
    }
  }
  return -1;
}

void CSelColorList::SetColor(COLORREF color) {
  m_palette.SetCurSel(FindColor(color));
  TakeColor(color);
}

void CSelColorList::SavePalette() {
  if (m_bPaletteRead) {
    m_pSysEnv->SaveCstColor(m_palette.GetPaletteData());
  }
}

void CSelColorList::TakeColor(COLORREF color) {
  m_color = color;
  InvalidateRect(GetDlgItemRect(IDC_COLOUR_SWATCH));
  UpdateButtons();
}

void CSelColorList::UpdateButtons() {
  EnableButton(IDC_PALETTE_EDIT, IsEntrySelected());
  EnableButton(IDC_PALETTE_DELETE, m_palette.GetCurSel() >= quorvel::kFixedPaletteCount);
  EnableButton(IDC_PALETTE_ADD, m_palette.GetColorCount() < quorvel::kMaxPaletteCount);
}

void CSelColorList::EnableButton(int id, bool enable) {
  const HWND button = GetDlgItem(id);
  if (!enable && ::GetFocus() == button) {
    ::SetFocus(m_palette.m_hWnd);  // a disabled button would keep the keys to itself
  }
  ::EnableWindow(button, enable ? TRUE : FALSE);
}

void CSelColorList::OnSelected() { TakeColor(m_palette.GetSelectColor()); }

void CSelColorList::OnDoubleClicked() {
  ::SendMessageW(::GetParent(m_hWnd), kCloseWithOk, 0, 0);
}

void CSelColorList::OnAdd() {
  if (m_palette.GetColorCount() >= quorvel::kMaxPaletteCount) {
    return;
  }
  m_palette.SetCurSel(m_palette.AddColor(m_color));
  UpdateButtons();
}

void CSelColorList::OnDelete() {
  const int selected = m_palette.GetCurSel();
  if (selected < quorvel::kFixedPaletteCount ||
      AfxMessageBox("選択された色を削除します。", MB_YESNO | MB_ICONQUESTION) != IDYES) {
    return;
  }
  m_palette.RemoveColor(selected);
  m_palette.SetCurSel(-1);
  UpdateButtons();
}

void CSelColorList::OnEdit() {
  if (!IsEntrySelected()) {
    return;
  }
  const CRect page = GetWindowRect();
  CPoint position(page.left, page.bottom);
  CEditColorDlg dialog(m_pSysEnv, m_color, &position, nullptr);
  if (dialog.DoModal() == IDOK) {
    m_palette.SetColor(m_palette.GetCurSel(), dialog.m_color);
    TakeColor(dialog.m_color);
  }
}

void CSelColorList::OnPaint() {
  const CPaintDC paint(this);
  quorvel::FillFramed(paint.Handle(), GetDlgItemRect(IDC_COLOUR_SWATCH), m_color);
}
