#include "dialogs/layout/block_edit_dlg.h"

#include "dialogs/layout/layout_cel_size_edit_dlg.h"
#include "dialogs/layout/layout_field_edit_dlg.h"
#include "dialogs/layout/layout_frame_edit_dlg.h"
#include "framework/control_names.h"
#include "framework/data_exchange.h"
#include "framework/message_box.h"
#include "kivfcl/display_rate.h"

namespace {

constexpr int kToolsAboveLine = 26;

bool IsModified(HWND edit) { return ::SendMessageW(edit, EM_GETMODIFY, 0, 0) != 0; }

}  // namespace

BEGIN_MESSAGE_MAP(CBlockEditDlg, CPageEditDlg)
  ON_EN_CHANGE(IDC_LAYOUT_TEXT_LINE, &CBlockEditDlg::OnLineChanged)
  ON_EN_KILLFOCUS(IDC_LAYOUT_TEXT_LINE, &CBlockEditDlg::OnLineLeft)
  ON_EN_CHANGE(kCelTextEditId, &CBlockEditDlg::OnTextEditChanged)
  ON_COMMAND(IDM_INSERT_COLUMN, &CBlockEditDlg::OnInsertColumn)
  ON_COMMAND(IDM_DELETE_COLUMN, &CBlockEditDlg::OnDeleteColumn)
  ON_COMMAND(IDM_EQUAL_COLUMNS, &CBlockEditDlg::OnEqualColumns)
  ON_COMMAND(IDM_INSERT_ROW, &CBlockEditDlg::OnInsertRow)
  ON_COMMAND(IDM_DELETE_ROW, &CBlockEditDlg::OnDeleteRow)
  ON_COMMAND(IDM_EQUAL_ROWS, &CBlockEditDlg::OnEqualRows)
  ON_COMMAND(IDM_EDIT_LINES, &CBlockEditDlg::OnEditLines)
  ON_BN_CLICKED(IDC_LAYOUT_FIELD, &CBlockEditDlg::OnField)
END_MESSAGE_MAP()

CBlockEditDlg::CBlockEditDlg(UINT templateId, const quorvel::EditorSettings& settings,
                             const PageEditHost& host, const CStringArray* fields,
                             CLayoutExPageData& page, CWnd* parent)
    : CPageEditDlg(templateId, settings, host, parent), m_pFields(fields), m_page(page) {}

void CBlockEditDlg::DoDataExchange(CDataExchange* pDX) {
  CPageEditDlg::DoDataExchange(pDX);
  DDX_Control(pDX, IDC_LAYOUT_TEXT_LINE, m_editLine);
}

BOOL CBlockEditDlg::OnInitDialog() {
  CPageEditDlg::OnInitDialog();
  m_bTyped = false;
  if (m_pFields == nullptr) {
    ::ShowWindow(GetDlgItem(IDC_LAYOUT_FIELD), SW_HIDE);
  }
  const CRect line = GetDlgItemRect(IDC_LAYOUT_TEXT_LINE);
  CreateCelTools({line.left, line.top - quorvel::DisplayPixels(kToolsAboveLine)});
  quorvel::NameControls(m_hWnd, {{IDC_LAYOUT_TEXT_LINE, L"選択したｾﾙのﾃｷｽﾄ"}});
  return TRUE;
}

bool CBlockEditDlg::HasFields() const { return m_pFields != nullptr && m_pFields->GetSize() > 0; }

// ---- The text line

void CBlockEditDlg::ShowInLine(const CString& text) {
  m_bTyped = false;
  m_editLine.SetWindowText(text);
}

/// What stands in the line goes to the selected cells, if the user has changed it.
bool CBlockEditDlg::StoreLine() {
  if (!IsModified(m_editLine.m_hWnd)) {
    return false;
  }
  ::SendMessageW(m_editLine.m_hWnd, EM_SETMODIFY, FALSE, 0);
  const CString text = m_editLine.GetWindowText();
  ChangeCels([&](quorvel::PageBlock& block) { return quorvel::SetText(block, text); });
  return true;
}

void CBlockEditDlg::OnLineChanged() {
  if (StoreLine()) {
    m_bTyped = true;
  }
}

void CBlockEditDlg::OnLineLeft() {
  StoreLine();
  m_bTyped = false;
}

void CBlockEditDlg::OnTextEditChanged() {
  if (TextEdit() != nullptr && TextEdit()->m_hWnd != nullptr) {
    ShowInLine(TextEdit()->GetWindowText());
  }
}

void CBlockEditDlg::EndTyping() {
  CPageEditDlg::EndTyping();
  StoreLine();
}

bool CBlockEditDlg::TakeTyped() {
  const bool stored = StoreLine();
  if (stored || m_bTyped) {
    m_bTyped = false;
    return true;
  }
  if (TextEdit() != nullptr && IsModified(TextEdit()->m_hWnd)) {
    EndTextEdit();
    return true;
  }
  return false;
}

void CBlockEditDlg::OnSelected(int clicked) {
  ShowInLine(clicked >= 0 && CurrentView()->Block().CelAt(clicked)->GetSelected() != 0
                 ? CurrentView()->Block().CelAt(clicked)->GetText()
                 : CString());
  GotoDlgCtrl(m_editLine.m_hWnd);
}

void CBlockEditDlg::OnTextGiven() {
  ShowInLine(SelectedText());
  ::SendMessageW(m_editLine.m_hWnd, EM_SETSEL, 0, -1);  // to be typed over
}

void CBlockEditDlg::OnInserted() {
  OnTextGiven();
  GotoDlgCtrl(m_editLine.m_hWnd);
}

void CBlockEditDlg::DeselectCels() {
  ChangeCels(&quorvel::DeselectAll);
  ShowInLine("");
}

// ---- Rows and columns

bool CBlockEditDlg::OnRightDuringDrag() {
  const std::optional<quorvel::BorderDrag> border = CurrentView()->Border();
  CancelDrag();
  return border && AskLengths(*border);
}

bool CBlockEditDlg::AskLengths(const quorvel::BorderDrag& border) {
  EndTyping();
  quorvel::PageBlock& block = CurrentView()->Block();
  const auto length = [&](int offset) {
    return static_cast<float>(border.IsRow() ? block.RowLength(border.row + offset)
                                             : block.ColLength(border.col + offset));
  };
  float first = length(0);
  float second = length(1);
  CLayoutCelSizeEditDlg dialog(&first, &second, this);
  if (dialog.DoModal() == IDOK) {
    quorvel::StoreLengths(border, {first, second}, block);
    LayOutViews();
  }
  return true;
}

std::optional<CBlockEditDlg::Place> CBlockEditDlg::SelectedPlace() const {
  Place place{};
  if (CurrentView() == nullptr ||
      m_page.GetFirstSelectCel(CurrentBlock(), &place.row, &place.col) == 0) {
    return std::nullopt;
  }
  return place;
}

bool CBlockEditDlg::MayDelete(const char* question) const {
  return !Settings().asksToDelete ||
         AfxMessageBox(question, MB_OKCANCEL | MB_ICONEXCLAMATION) == IDOK;
}

void CBlockEditDlg::OnInsertColumn() {
  EndTyping();
  if (const std::optional<Place> place = SelectedPlace()) {
    DeselectCels();
    m_page.InsertCol(place->col);
    OnPageChanged();
  }
}

void CBlockEditDlg::OnDeleteColumn() {
  EndTyping();
  const std::optional<Place> place = SelectedPlace();
  if (place && MayDelete("選択列を削除します。宜しいですか?")) {
    DeselectCels();
    m_page.DeleteCol(place->col);
    OnPageChanged();
  }
}

void CBlockEditDlg::OnEqualColumns() {
  EndTyping();
  if (SelectedPlace()) {
    m_page.SelColEq(CurrentBlock());
    OnPageChanged();
  }
}

void CBlockEditDlg::OnInsertRow() {
  EndTyping();
  if (const std::optional<Place> place = SelectedPlace()) {
    DeselectCels();
    m_page.InsertRow(CurrentBlock(), place->row);
    OnPageChanged();
  }
}

void CBlockEditDlg::OnDeleteRow() {
  EndTyping();
  const std::optional<Place> place = SelectedPlace();
  if (place && MayDelete("選択行を削除します。宜しいですか?")) {
    DeselectCels();
    m_page.DeleteRow(CurrentBlock(), place->row);
    OnPageChanged();
  }
}

void CBlockEditDlg::OnEqualRows() {
  EndTyping();
  if (SelectedPlace()) {
    m_page.SelRowEq(CurrentBlock());
    OnPageChanged();
  }
}

bool CBlockEditDlg::IsCommandPossible(UINT command) const {
  if (CurrentView() == nullptr) {
    return false;
  }
  const CLayoutExPageData::LISTTYPE block = CurrentBlock();
  switch (command) {
    case IDM_INSERT_COLUMN:
      return m_page.IsInsertCol(block) != 0;
    case IDM_DELETE_COLUMN:
      return m_page.IsDeleteCol(block) != 0;
    case IDM_EQUAL_COLUMNS:
      return m_page.IsSelColEq(block) != 0;
    case IDM_INSERT_ROW:
      return m_page.IsInsertRow(block) != 0;
    case IDM_DELETE_ROW:
      return m_page.IsDeleteRow(block) != 0;
    case IDM_EQUAL_ROWS:
      return m_page.IsSelRowEq(block) != 0;
    default:
      return CPageEditDlg::IsCommandPossible(command);
  }
}

bool CBlockEditDlg::IsOffered(UINT command) const {
  return IsCommandPossible(command == IDM_EDIT_LINES && Settings().linesWithColumns
                               ? IDM_INSERT_COLUMN
                               : command);
}

// ---- Dialogs of cells

void CBlockEditDlg::OnEditLines() {
  EndTyping();
  if (!SelectedPlace()) {
    return;
  }
  CLayoutFrameEditDlg dialog(Host().env, &m_page, CurrentBlock(), nullptr, OwnerOfDialogs());
  if (dialog.DoModal() == IDOK) {
    OnPageChanged();
  }
}

void CBlockEditDlg::OnField() {
  EndTyping();
  if (!HasFields() || !HasSelection()) {
    return;
  }
  CLayoutFieldEditDlg dialog(m_pFields, SelectedText(), nullptr, this);
  if (dialog.DoModal() == IDOK) {
    ChangeCels(
        [&](quorvel::PageBlock& block) { return quorvel::SetText(block, dialog.m_strMacro); });
    ShowInLine(dialog.m_strMacro);
  }
}
