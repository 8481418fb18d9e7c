#include "dialogs/layout/line_fields.h"

#include "dialogs/colour/sel_color.h"
#include "dialogs/layout/size_fields.h"
#include "framework/control_names.h"

#include <array>

namespace {

// Places from the first control.
constexpr int kType = 1;
constexpr int kColor = 2;
constexpr int kWidth = 3;
constexpr int kControlCount = 5;

constexpr short kFewestDecimals = 1;

// The index is the style of PEN_STATUS.
constexpr std::array kTypes{"実線", "破線", "点線", "一点鎖線", "二点鎖線", "なし"};

}  // namespace

void CLineFields::Read(int on, const PEN_STATUS& status) {
  m_nOn = on;
  m_status = status;
  m_btnColor.m_color = status.color;
}

void CLineFields::Exchange(CDataExchange* pDX) {
  DDX_Control(pDX, m_nFirstId + kType, m_cmbType);
  DDX_Control(pDX, m_nFirstId + kColor, m_btnColor);
  DDX_Check(pDX, m_nFirstId, m_nOn);
  int type = m_status.style;
  DDX_CBIndex(pDX, m_nFirstId + kType, type);
  if (type >= 0) {  // a style that the list lacks stays
    m_status.style = static_cast<short>(type);
  }
  DDX_Length(pDX, m_nFirstId + kWidth, m_status.width, kFewestDecimals);
}

void CLineFields::Init(CWnd* dialog) {
  m_cmbType.ResetContent();
  for (const char* type : kTypes) {
    m_cmbType.AddString(type);
  }
  m_cmbType.SetCurSel(m_status.style);
  m_btnColor.Recolor(m_status.color);
  EnableByCheck(dialog);
}

void CLineFields::Hide(CWnd* dialog) const {
  for (int id = m_nFirstId; id < m_nFirstId + kControlCount; ++id) {
    ::ShowWindow(dialog->GetDlgItem(id), SW_HIDE);
  }
}

void CLineFields::EnableByCheck(const CWnd* dialog) const {
  for (int id = m_nFirstId + kType; id <= m_nFirstId + kWidth; ++id) {
    ::EnableWindow(dialog->GetDlgItem(id), m_nOn != 0 ? TRUE : FALSE);
  }
}

void CLineFields::PickColor(CKivSysEnv* env, CWnd* dialog) {
  CSelColor choice(env, m_status.color, nullptr, dialog);
  if (choice.DoModal() == IDOK) {
    m_status.color = choice.m_colorSel;
    m_btnColor.Recolor(m_status.color);
  }
}

void CPageLines::Exchange(CDataExchange* pDX) {
  m_outer.Exchange(pDX);
  m_inner.Exchange(pDX);
}

void CPageLines::Init(CWnd* dialog) {
  m_outer.Init(dialog);
  m_inner.Init(dialog);
}

void CPageLines::Name(const CWnd* dialog) {
  quorvel::NameControls(dialog->m_hWnd, {{IDC_OUTER_LINE_TYPE, L"外側の線の種類"},
                                         {IDC_OUTER_LINE_COLOUR, L"外側の線の色"},
                                         {IDC_OUTER_LINE_WIDTH, L"外側の線の幅"},
                                         {IDC_INNER_LINE_TYPE, L"内側の線の種類"},
                                         {IDC_INNER_LINE_COLOUR, L"内側の線の色"},
                                         {IDC_INNER_LINE_WIDTH, L"内側の線の幅"}});
}

void CPageLines::Hide(CWnd* dialog) const {
  m_outer.Hide(dialog);
  m_inner.Hide(dialog);
}

void CPageLines::EnableByCheck(const CWnd* dialog) const {
  m_outer.EnableByCheck(dialog);
  m_inner.EnableByCheck(dialog);
}

void CPageLines::PickColor(UINT buttonId, CKivSysEnv* env, CWnd* dialog) {
  (buttonId == IDC_OUTER_LINE_COLOUR ? m_outer : m_inner).PickColor(env, dialog);
}
