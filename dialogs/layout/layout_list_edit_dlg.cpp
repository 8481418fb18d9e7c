#include "dialogs/layout/layout_list_edit_dlg.h"

#include "framework/control_names.h"
#include "framework/data_exchange.h"

namespace {

constexpr const char* kRealTextSetting = "TextReal";

}  // namespace

BEGIN_MESSAGE_MAP(CLayoutListEditDlg, CBlockEditDlg)
  ON_BN_CLICKED(IDC_BLOCK_REAL_TEXT, &CLayoutListEditDlg::OnRealText)
END_MESSAGE_MAP()

CLayoutListEditDlg::CLayoutListEditDlg(CKivSysEnv* env, CLayoutExEditDlg* /*caller*/,
                                       CLayoutExPageData* page, const CStringArray* fields,
                                       const CStringArray* names, const CDWordArray* numbers,
                                       double dotsPerMm, CLayoutExPageData::LISTTYPE block,
                                       CPoint* position, CWnd* parent)
    : CBlockEditDlg(IDD_LAYOUT_LIST, quorvel::kListEditor,
                    {env, names, numbers, dotsPerMm, position}, fields, *page, parent),
      m_blockType(block),
      m_block(*page, block) {
  SetCurrentView(&m_view);
}

void CLayoutListEditDlg::DoDataExchange(CDataExchange* pDX) {
  CBlockEditDlg::DoDataExchange(pDX);
  DDX_Check(pDX, IDC_BLOCK_REAL_TEXT, m_nRealText);
}

BOOL CLayoutListEditDlg::OnInitDialog() {
  CBlockEditDlg::OnInitDialog();
  m_view.Attach(IDC_BLOCK_IMAGE, this);
  quorvel::NameControl(m_view.m_hWnd, L"ﾚｲｱｳﾄのｲﾒｰｼﾞ");
  m_view.SetFixedTextHeight(m_nRealText == 0);
  LayOutViews();
  RefreshCommands();
  MoveToCallersPosition(Host().position);
  return TRUE;
}

void CLayoutListEditDlg::ReadSettings() {
  CBlockEditDlg::ReadSettings();
  if (const std::optional<CKivRegistry> registry = Registry()) {
    registry->ReadRegistry(kRealTextSetting, &m_nRealText, sizeof m_nRealText);
    m_nRealText = m_nRealText != 0 ? 1 : 0;
  }
}

void CLayoutListEditDlg::WriteSettings() {
  CBlockEditDlg::WriteSettings();
  if (std::optional<CKivRegistry> registry = Registry()) {
    registry->WriteRegistry(kRealTextSetting, REG_BINARY, &m_nRealText, sizeof m_nRealText);
  }
}

CPageView* CLayoutListEditDlg::ViewAt(const CPoint& point) {
  return m_view.DialogArea().Contains(point) ? &m_view : nullptr;
}

void CLayoutListEditDlg::LayOutViews() { m_view.LayOut(); }

void CLayoutListEditDlg::OnPageChanged() {
  CancelDrag();
  LayOutViews();
  RefreshCommands();
  OnTextGiven();
  UpdateData(FALSE);
}

void CLayoutListEditDlg::OnRealText() {
  if (ReadFields()) {
    m_view.SetFixedTextHeight(m_nRealText == 0);
  }
}

void CLayoutListEditDlg::OnOK() {
  WriteSettings();
  if (TakeTyped()) {
    return;
  }
  EndTextEdit();
  DeselectCels();
  UpdateData(TRUE);
  Close(IDOK);
}

void CLayoutListEditDlg::OnCancel() {
  WriteSettings();
  Close(IDCANCEL);
}
