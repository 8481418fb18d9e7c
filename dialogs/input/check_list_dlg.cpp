#include "dialogs/input/check_list_dlg.h"

#include "framework/control_names.h"
#include "framework/data_exchange.h"
#include "framework/device_context.h"
#include "kivfcl/display_rate.h"

#include <algorithm>
#include <array>

namespace {

enum Column : int { kNameColumn = 0, kCheckColumn = 1 };

constexpr DWORD kNameColumnStyle = 0x02000800;
constexpr DWORD kCheckColumnStyle = 0x83002005;
constexpr DWORD kListStyle = 0x04000002;
static_assert((kNameColumnStyle & KIVLISTCOL_TEXT) != 0);
static_assert((kCheckColumnStyle & KIVLISTCOL_CHECK) != 0);

}  // namespace

CCheckListDlg::CCheckListDlg(const CString* title, const CArray<CString, CString&>* items,
                             CByteArray* states)
    : CDialog(IDD_CHECK_LIST), m_pTitle(title), m_pItems(items), m_pStates(states) {}

INT_PTR CCheckListDlg::ShownItems() const {
  return std::min(m_pItems->GetSize(), m_pStates->GetSize());
}

void CCheckListDlg::DoDataExchange(CDataExchange* pDX) {
  CDialog::DoDataExchange(pDX);
  DDX_Control(pDX, IDC_CHECK_LIST, m_listCtrl);
}

BOOL CCheckListDlg::OnInitDialog() {
  if (CDialog::OnInitDialog() == FALSE) {
    return FALSE;
  }
  SetWindowText(*m_pTitle);
  quorvel::NameControls(m_hWnd, {{IDC_CHECK_LIST, L"項目の一覧"}});

  const TEXTMETRICW font = CClientDC(&m_listCtrl).GetTextMetrics();
  const quorvel::CheckListMeasures measures{.widestName = WidestName(),
                                            .characterHeight = static_cast<int>(font.tmHeight),
                                            .descent = static_cast<int>(font.tmDescent),
                                            .rows = static_cast<int>(ShownItems()),
                                            .rate = __KivFcl_GetDispRate()};
  m_listCtrl.SetRedraw(false);
  m_listCtrl.SetRowHeight(quorvel::RowHeight(measures));
  m_listCtrl.ResizeTo(quorvel::CheckListSize(measures));
  FillList(measures);

  m_listCtrl.SetRedraw(true);

  CRect okClient;
  ::GetClientRect(GetDlgItem(IDOK), &okClient);
  const CRect list = GetDlgItemRect(IDC_CHECK_LIST);
  const auto [ok, cancel] = quorvel::PlaceCheckListButtons(list, okClient.Width(), measures.rate);
  MoveDlgItem(IDCANCEL, cancel);
  MoveDlgItem(IDOK, ok);
  ResizeTo(quorvel::CheckListDialogSize(list.Size(), GetDlgItemRect(IDOK).Height(),
                                        ::GetSystemMetrics(SM_CYCAPTION), measures.rate));
  return TRUE;
}

// The first name is deliberately not measured: hosts rely on the width that the others give.
int CCheckListDlg::WidestName() const {
  const CClientDC deviceContext(&m_listCtrl);
  int widest = 0;
  for (INT_PTR i = 1; i < m_pItems->GetCount(); ++i) {
    widest = std::max<int>(widest, deviceContext.GetTextExtent(m_pItems->GetAt(i)).cx);
  }
  return widest;
}

void CCheckListDlg::FillList(const quorvel::CheckListMeasures& measures) {
  const std::array heads{
      KIVLISTCTRLHEAD{"項目名", 0, quorvel::NameColumnWidth(measures), kNameColumnStyle, 0},
      KIVLISTCTRLHEAD{"", 0, quorvel::CheckColumnWidth(measures.rate), kCheckColumnStyle, 0}};
  const int columns = static_cast<int>(heads.size());
  m_listCtrl.InitListCtrl(IDC_CHECK_LIST, heads.data(), columns, kListStyle, 0);
  for (INT_PTR i = 0; i < ShownItems(); ++i) {
    m_listCtrl.AddRow(columns, m_pItems->GetAt(i).GetString(), int{m_pStates->GetAt(i)});
  }
}

void CCheckListDlg::OnOK() {
  for (int row = 0; row < m_listCtrl.GetItemCount(); ++row) {
    const CKivCelItem cell = m_listCtrl.GetCelItemData(row, kCheckColumn);
    m_pStates->SetAt(row, cell.m_nCheck != 0 ? 1 : 0);
  }
  CDialog::OnOK();
}
