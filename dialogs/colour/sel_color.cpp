#include "dialogs/colour/sel_color.h"

#include "dialogs/colour/sel_rgb.h"

#include <algorithm>
#include <optional>
#include <utility>

using quorvel::GridControlId;
using quorvel::GridIndexOf;
using quorvel::IsGridIndex;
using quorvel::IsMadeColor;
using quorvel::kBasicColorCount;
using quorvel::kFirstGridId;
using quorvel::kGridButtonCount;
using quorvel::kGridColumns;
using quorvel::kLastGridId;

BEGIN_MESSAGE_MAP(CSelColor, CKivDialog)
  ON_CONTROL_RANGE(BN_CLICKED, kFirstGridId, kLastGridId, &CSelColor::OnGridClicked)
  ON_CONTROL_RANGE(BN_DOUBLECLICKED, kFirstGridId, kLastGridId, &CSelColor::OnGridDoubleClicked)
  ON_BN_CLICKED(IDC_GRID_SELECTED, &CSelColor::OnSelectedClicked)
  ON_BN_CLICKED(IDC_GRID_OTHER, &CSelColor::OnOther)
  ON_MESSAGE(WM_DRAWITEM, &CSelColor::OnDrawItem)
  ON_MESSAGE(WM_ACTIVATE, &CSelColor::OnActivate)
END_MESSAGE_MAP()

CSelColor::CSelColor(CKivSysEnv* env, COLORREF color, CPoint* position, CWnd* parent)
    : CKivDialog(IDD_COLOUR_GRID, parent),
      m_colorSel(color),
      m_pSysEnv(env),
      m_pPosition(position) {}

BOOL CSelColor::OnInitDialog() {
  CKivDialog::OnInitDialog();
  m_marked = {};
  m_colorTable = quorvel::InitialGridColors();
  std::ranges::copy(ReadMadeColors(), m_colorTable.begin() + kBasicColorCount);

  for (int index = 0; index < kGridButtonCount; ++index) {
    auto& button = m_pColorBtn[static_cast<std::size_t>(index)];
    button = std::make_unique<CKivColorButton>();
    button->m_name = IsMadeColor(index) ? L"作成色" : L"基本色";
    button->m_color = TableEntry(index);  // nothing has been painted yet
    button->SubclassDlgItem(static_cast<UINT>(GridControlId(index)), this);
  }
  m_pSelColorBtn = std::make_unique<CKivColorButton>();
  m_pSelColorBtn->m_name = L"選択色";
  m_pSelColorBtn->m_color = m_colorSel;
  m_pSelColorBtn->SubclassDlgItem(IDC_GRID_SELECTED, this);

  m_nSelIndex = quorvel::FirstWithColor(m_colorTable, m_colorSel).value_or(kNoIndex);
  FocusSelection();
  MoveToCallersPosition(m_pPosition);
  return FALSE;
}

void CSelColor::PostNcDestroy() {
  for (auto& button : m_pColorBtn) {
    button.reset();
  }
  m_pSelColorBtn.reset();
  CKivDialog::PostNcDestroy();
}

/// Those of the table where they cannot be read.
CSelColor::MadeColors CSelColor::ReadMadeColors() {
  MadeColors colors{};
  std::copy_n(m_colorTable.begin() + kBasicColorCount, colors.size(), colors.begin());
  if (m_pSysEnv != nullptr) {
    m_pSysEnv->OpenCstColor(colors.data(), static_cast<int>(colors.size()));
  }
  return colors;
}

void CSelColor::SelectButton(int button) {
  if (button == kSelectedButton) {
    m_nSelIndex = kNoIndex;
    return;
  }
  m_nSelIndex = button;
  m_colorSel = TableEntry(button);
  m_pSelColorBtn->Recolor(m_colorSel);
}

void CSelColor::FocusSelection() {
  ::SetFocus(GetDlgItem(IsGridIndex(m_nSelIndex) ? GridControlId(m_nSelIndex) : IDC_GRID_SELECTED));
}

// The focus, and being pressed, show up here as marks of the drawn button. Only a mark that is new
// selects: a button that is merely painted again must not take the selection back.
LRESULT CSelColor::OnDrawItem(WPARAM wParam, LPARAM lParam) {
  const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
  const int id = static_cast<int>(item.CtlID);
  const std::optional<int> button =
      id == IDC_GRID_SELECTED ? std::optional(kSelectedButton) : GridIndexOf(id);
  if (button) {
    const bool marked = (item.itemState & (ODS_FOCUS | ODS_SELECTED)) != 0;
    const bool wasMarked = std::exchange(m_marked[static_cast<std::size_t>(*button)], marked);
    if (marked && !wasMarked && !m_bFocusReturns) {
      SelectButton(*button);
    }
  }
  return Default(WM_DRAWITEM, wParam, lParam);
}

// The system gives the focus back to the control that had it: the user has chosen nothing.
LRESULT CSelColor::OnActivate(WPARAM wParam, LPARAM lParam) {
  const bool before = std::exchange(m_bFocusReturns, true);
  const LRESULT result = Default(WM_ACTIVATE, wParam, lParam);
  m_bFocusReturns = before;
  return result;
}

void CSelColor::OnGridClicked(UINT id) {
  if (const std::optional<int> index = GridIndexOf(static_cast<int>(id))) {
    SelectButton(*index);
  }
}

void CSelColor::OnGridDoubleClicked(UINT id) {
  OnGridClicked(id);
  OnOK();
}

void CSelColor::OnSelectedClicked() { SelectButton(kSelectedButton); }

void CSelColor::OnOther() {
  CSelRGB picker(m_colorSel, nullptr);
  MadeColors made = ReadMadeColors();
  m_bFocusReturns = true;
  const INT_PTR result = picker.DoModal();
  m_bFocusReturns = false;
  if (result != IDOK) {
    FocusSelection();
    return;
  }
  m_colorSel = picker.m_color;
  if (IsMadeColor(m_nSelIndex)) {
    made[static_cast<std::size_t>(m_nSelIndex - kBasicColorCount)] = m_colorSel;
    TableEntry(m_nSelIndex) = m_colorSel;
    m_pColorBtn[static_cast<std::size_t>(m_nSelIndex)]->Recolor(m_colorSel);
  } else {
    // A basic colour keeps its own colour: the new one stands alone.
    m_nSelIndex = kNoIndex;
  }
  m_pSelColorBtn->Recolor(m_colorSel);
  FocusSelection();
  if (m_pSysEnv != nullptr) {
    m_pSysEnv->SaveCstColor(made.data(), static_cast<int>(made.size()));
  }
}

BOOL CSelColor::PreTranslateMessage(MSG* message) {
  if (message->message == WM_KEYDOWN && message->wParam == VK_F2) {
    OnOther();
    return TRUE;
  }
  return MovesUpOrDown(*message) ? TRUE : CKivDialog::PreTranslateMessage(message);
}

/// The arrows lead along the row by the system's rule; up and down lead to the button above and
/// below in the same grid.
bool CSelColor::MovesUpOrDown(const MSG& message) const {
  const bool isArrow =
      message.message == WM_KEYDOWN && (message.wParam == VK_UP || message.wParam == VK_DOWN);
  const std::optional<int> from =
      isArrow ? GridIndexOf(::GetDlgCtrlID(message.hwnd)) : std::nullopt;
  if (!from) {
    return false;
  }
  const int to = *from + (message.wParam == VK_UP ? -kGridColumns : kGridColumns);
  if (IsGridIndex(to) && IsMadeColor(to) == IsMadeColor(*from)) {
    ::SetFocus(GetDlgItem(GridControlId(to)));
  }
  return true;
}
