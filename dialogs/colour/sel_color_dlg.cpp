#include "dialogs/colour/sel_color_dlg.h"

#include "framework/control_names.h"
#include "framework/data_exchange.h"

#include <array>

namespace {

/// In the order of the pages.
constexpr std::array kTabTexts{"ｶﾗｰﾘｽﾄ", "ｶﾗｰ編集", "ｶﾗｰ選択"};
constexpr std::array kPageTemplates{IDD_COLOUR_LIST_PAGE, IDD_COLOUR_EDIT_PAGE,
                                    IDD_COLOUR_SELECT_PAGE};

}  // namespace

BEGIN_MESSAGE_MAP(CSelColorDlg, CKivDialog)
  ON_NOTIFY(TCN_SELCHANGE, IDC_COLOUR_TABS, &CSelColorDlg::OnTabChanged)
  ON_MESSAGE(kCloseWithOk, &CSelColorDlg::OnCloseWithOk)
END_MESSAGE_MAP()

CSelColorDlg::CSelColorDlg(CKivSysEnv* env, COLORREF color, CPoint* position, CWnd* parent)
    : CKivDialog(IDD_COLOUR_TABS, parent),
      m_pSysEnv(env),
      m_pPosition(position),
      m_color(color),
      m_pListPage(std::make_unique<CSelColorList>(env, color, this)),
      m_pEditPage(std::make_unique<CEditColor>(env, color, this)),
      m_pSelectPage(std::make_unique<CEditSelColor>(env, color, this)) {}

void CSelColorDlg::DoDataExchange(CDataExchange* pDX) {
  CKivDialog::DoDataExchange(pDX);
  DDX_Control(pDX, IDC_COLOUR_TABS, m_tab);
}

BOOL CSelColorDlg::OnInitDialog() {
  CKivDialog::OnInitDialog();
  for (int page = 0; page < kPageCount; ++page) {
    m_tab.InsertItem(page, kTabTexts[static_cast<std::size_t>(page)]);
  }
  quorvel::NameControls(m_hWnd, {{IDC_COLOUR_TABS, L"色の選び方"}});
  if (!CreatePages()) {
    EndDialog(-1);
    return FALSE;
  }
  const bool inPalette = m_pListPage->FindColor(m_color) >= 0;
  m_tab.SetCurSel(inPalette ? kListPage : kEditPage);
  ShowPage(inPalette ? kListPage : kEditPage);
  MoveToCallersPosition(m_pPosition);
  ::SetFocus(inPalette ? m_pListPage->GetPaletteWindow() : m_pEditPage->GetModelWindow());
  return FALSE;
}

bool CSelColorDlg::CreatePages() {
  const CRect area = m_tab.GetDisplayRect(GetDlgItemRect(IDC_COLOUR_TABS));
  for (int page = 0; page < kPageCount; ++page) {
    CDialog& created = PageAt(page);
    const auto pageTemplate =
        static_cast<UINT>(kPageTemplates[static_cast<std::size_t>(page)]);
    if (created.Create(pageTemplate, this) == FALSE) {
      return false;
    }
    // Above the tab control, which would paint over it.
    ::SetWindowPos(created.m_hWnd, HWND_TOP, area.left, area.top, area.Width(), area.Height(),
                   SWP_NOACTIVATE);
  }
  return true;
}

CDialog& CSelColorDlg::PageAt(int page) const {
  switch (page) {
    case kListPage:
      return *m_pListPage;
    case kEditPage:
      return *m_pEditPage;
    default:
      return *m_pSelectPage;
  }
}

COLORREF CSelColorDlg::ColorOfShownPage() {
  switch (m_nPage) {
    case kListPage:
      return m_pListPage->GetColor();
    case kEditPage:
      m_pEditPage->TakeTyped();
      return m_pEditPage->GetColor();
    default:
      return m_pSelectPage->GetColor();
  }
}

void CSelColorDlg::ShowPage(int page) {
  m_nPage = page;
  switch (page) {
    case kListPage:
      m_pListPage->SetColor(m_color);
      break;
    case kEditPage:
      m_pEditPage->SetColor(m_color);
      break;
    default:
      m_pSelectPage->SetColor(m_color);
      break;
  }
  for (int each = 0; each < kPageCount; ++each) {
    ::ShowWindow(PageAt(each).m_hWnd, each == page ? SW_SHOWNA : SW_HIDE);
  }
  // A control of the page that has gone would keep the focus, and all keys to itself.
  const HWND focus = ::GetFocus();
  const bool lost = focus == m_hWnd || (::IsChild(m_hWnd, focus) != FALSE &&
                                        ::IsWindowVisible(focus) == FALSE);
  if (lost) {
    ::SetFocus(m_tab.m_hWnd);
  }
}

void CSelColorDlg::OnTabChanged(const NMHDR& /*notification*/) {
  m_color = ColorOfShownPage();
  ShowPage(m_tab.GetCurSel());
}

void CSelColorDlg::SelectPage(int page) {
  // The focus may be on the page that goes.
  ::SetFocus(m_tab.m_hWnd);
  m_tab.SetCurSel(page);
  m_color = ColorOfShownPage();
  ShowPage(page);
}

void CSelColorDlg::OnOK() {
  m_pListPage->SavePalette();
  m_color = ColorOfShownPage();
  CDialog::OnOK();
}

LRESULT CSelColorDlg::OnCloseWithOk(WPARAM /*wParam*/, LPARAM /*lParam*/) {
  OnOK();
  return 0;
}

BOOL CSelColorDlg::PreTranslateMessage(MSG* message) {
  if (message->message == WM_KEYDOWN && message->wParam == VK_TAB &&
      ::GetKeyState(VK_CONTROL) < 0) {
    const int step = ::GetKeyState(VK_SHIFT) < 0 ? kPageCount - 1 : 1;
    SelectPage((m_nPage + step) % kPageCount);
    return TRUE;
  }
  return CKivDialog::PreTranslateMessage(message);
}
