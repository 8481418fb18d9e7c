#include "dialogs/layout/layout_field_edit_dlg.h"

#include "framework/code_page.h"
#include "framework/control_names.h"
#include "framework/data_exchange.h"
#include "framework/message_box.h"

#include <string>
#include <vector>

using quorvel::FieldChoice;
using quorvel::FieldPart;

BEGIN_MESSAGE_MAP(CLayoutFieldEditDlg, CKivDialog)
  ON_CBN_SELCHANGE(IDC_FIELD_TYPE, &CLayoutFieldEditDlg::OnTypeChanged)
  ON_BN_CLICKED(IDC_FIELD_USE_DECIMALS, &CLayoutFieldEditDlg::OnUseDecimals)
END_MESSAGE_MAP()

CLayoutFieldEditDlg::CLayoutFieldEditDlg(const CStringArray* fieldNames, const CString& macro,
                                         CPoint* position, CWnd* parent)
    : CKivDialog(IDD_LAYOUT_FIELD, parent), m_pFieldNames(fieldNames), m_pPosition(position) {
  m_info.SetMacroString(macro, 1);
}

void CLayoutFieldEditDlg::DoDataExchange(CDataExchange* pDX) {
  CKivDialog::DoDataExchange(pDX);
  DDX_Control(pDX, IDC_FIELD_TYPE, m_cmbType);
  DDX_Control(pDX, IDC_FIELD_FIRST, m_cmbField1);
  DDX_Control(pDX, IDC_FIELD_SECOND, m_cmbField2);
  DDX_Control(pDX, IDC_FIELD_COMPARISON, m_cmbComparison);
  DDX_Control(pDX, IDC_FIELD_DECIMALS, m_cmbDecimals);
  // Before the text, which may be refused: the check box decides what is enabled.
  DDX_Check(pDX, IDC_FIELD_USE_DECIMALS, m_bUseDecimals);
  DDX_Check(pDX, IDC_FIELD_GROUPING, m_bGrouping);
  DDX_Text(pDX, IDC_FIELD_VALUE, m_strValue);
}

BOOL CLayoutFieldEditDlg::OnInitDialog() {
  CKivDialog::OnInitDialog();
  FillLists();
  LoadInfo();
  EnableForType();
  EnableDecimals();
  quorvel::NameControls(m_hWnd, {{IDC_FIELD_FIRST, L"ﾌｨｰﾙﾄﾞ1"},
                                 {IDC_FIELD_COMPARISON, L"条件の比較"},
                                 {IDC_FIELD_VALUE, L"条件の値"},
                                 {IDC_FIELD_SECOND, L"ﾌｨｰﾙﾄﾞ2"},
                                 {IDC_FIELD_DECIMALS, L"小数点以下の桁数"}});
  MoveToCallersPosition(m_pPosition);
  return TRUE;
}

void CLayoutFieldEditDlg::FillLists() {
  for (const char* comparison : quorvel::kComparisons) {
    m_cmbComparison.AddString(comparison);
  }
  for (const char* places : quorvel::kDecimalPlaces) {
    m_cmbDecimals.AddString(places);
  }
  m_cmbType.ResetContent();
  for (const quorvel::FieldTypeEntry& type : quorvel::kFieldTypes) {
    m_cmbType.AddString(type.data());
  }
  m_cmbType.SetCurSel(0);

  std::vector<std::wstring> names;
  names.reserve(static_cast<std::size_t>(m_pFieldNames->GetSize()));
  for (INT_PTR i = 0; i < m_pFieldNames->GetSize(); ++i) {
    names.push_back(quorvel::WideFromCodePage(m_pFieldNames->GetAt(i).View()));
  }
  for (CFindingComboBox* combo : {&m_cmbField1, &m_cmbField2}) {
    combo->ResetContent();
    combo->AddStrings(names);
    combo->SetCurSel(0);
  }
  m_cmbComparison.SetCurSel(0);
}

void CLayoutFieldEditDlg::LoadInfo() {
  const unsigned int valType = m_info.GetValType();
  if (valType >= quorvel::kFirstFieldType) {
    m_cmbType.SetCurSel(quorvel::FieldTypeOf(valType));
    SelectField(m_cmbField1, m_info.GetFieldName());
    m_strValue = m_info.GetFindValue();
    SelectField(m_cmbField2, m_info.GetRefField());
    m_cmbComparison.SetCurSel(m_info.GetFindType());
  }
  m_bUseDecimals = m_info.GetUseDesimalPointBeam();
  m_cmbDecimals.SetCurSel(m_info.GetBeam());
  m_bGrouping = m_info.GetUse3Figures();
  UpdateData(FALSE);
}

// The list itself finds names in letters of any case: the exact one comes first, where a host has
// names that differ in nothing else. A macro without the field has an empty name and looks for
// none.
void CLayoutFieldEditDlg::SelectField(CComboBox& combo, const CString& name) const {
  if (name.IsEmpty()) {
    return;
  }
  const int exact = quorvel::FindFieldName(*m_pFieldNames, name);
  const int found = exact >= 0 ? exact : combo.FindStringExact(name);
  if (found >= 0) {
    combo.SetCurSel(found);
  }
}

void CLayoutFieldEditDlg::EnableForType() {
  const quorvel::FieldEnabling enabling = quorvel::EnablingOf(m_cmbType.GetCurSel());
  ::EnableWindow(m_cmbField1.m_hWnd, enabling.field1 ? TRUE : FALSE);
  ::EnableWindow(m_cmbComparison.m_hWnd, enabling.condition ? TRUE : FALSE);
  ::EnableWindow(GetDlgItem(IDC_FIELD_VALUE), enabling.condition ? TRUE : FALSE);
  ::EnableWindow(m_cmbField2.m_hWnd, enabling.field2 ? TRUE : FALSE);
}

void CLayoutFieldEditDlg::EnableDecimals() {
  ::EnableWindow(m_cmbDecimals.m_hWnd, m_bUseDecimals != 0 ? TRUE : FALSE);
}

void CLayoutFieldEditDlg::OnTypeChanged() { EnableForType(); }

void CLayoutFieldEditDlg::OnUseDecimals() {
  UpdateData(TRUE);
  EnableDecimals();
}

CString CLayoutFieldEditDlg::SelectedField(const CComboBox& combo) const {
  const int selected = combo.GetCurSel();
  return selected < 0 ? CString() : m_pFieldNames->GetAt(selected);
}

FieldChoice CLayoutFieldEditDlg::ReadChoice() const {
  return {.type = m_cmbType.GetCurSel(),
          .field1 = SelectedField(m_cmbField1),
          .comparison = m_cmbComparison.GetCurSel(),
          .value = m_strValue,
          .field2 = SelectedField(m_cmbField2),
          .useDecimals = m_bUseDecimals,
          .decimals = m_cmbDecimals.GetCurSel(),
          .grouping = m_bGrouping};
}

void CLayoutFieldEditDlg::Complain(FieldPart missing) {
  const bool isField1 = missing == FieldPart::kField1;
  const bool isValue = missing == FieldPart::kValue;
  AfxMessageBox(isField1  ? "ﾌｨｰﾙﾄﾞ1が選択されていません。"
                : isValue ? "条件が入力されていません。"
                          : "ﾌｨｰﾙﾄﾞ2が選択されていません。",
                MB_OK | MB_ICONEXCLAMATION);
  ::SetFocus(GetDlgItem(isField1  ? IDC_FIELD_FIRST
                        : isValue ? IDC_FIELD_VALUE
                                  : IDC_FIELD_SECOND));
}

void CLayoutFieldEditDlg::OnOK() {
  if (UpdateData(TRUE) == FALSE) {
    return;
  }
  const FieldChoice choice = ReadChoice();
  const FieldPart missing = quorvel::MissingPart(choice);
  if (missing != FieldPart::kNone) {
    Complain(missing);
    return;
  }
  quorvel::StoreFieldChoice(choice, m_info);
  m_strMacro = m_info.GetMacroString(quorvel::FieldTypeText(choice.type));
  EndDialog(IDOK);
}
