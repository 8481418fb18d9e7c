// CLayoutFieldEditDlg: the settings of a field macro, the text by which a cell shows a value from
// the host's records.
//
//   CLayoutFieldEditDlg dialog(&fieldNames, cell->GetText(), position, this);
//   if (dialog.DoModal() == IDOK) cell->SetText(dialog.m_strMacro);
#pragma once

#include "dialogs/layout/field_choice.h"
#include "dialogs/layout/finding_combo_box.h"
#include "framework/controls.h"
#include "kivfcl/kiv_dialog.h"
#include "res/ids.h"

/// Begins with the settings of the macro given; with any other text with a value of the first
/// field. Typed letters lead to the field whose name begins with them.
class CLayoutFieldEditDlg : public CKivDialog {
public:
  /// `fieldNames` stays the caller's and does not change meanwhile; so does `position`, which may
  /// be null.
  CLayoutFieldEditDlg(const CStringArray* fieldNames, const CString& macro, CPoint* position,
                      CWnd* parent = nullptr);

  /// The macro's text after IDOK; empty until then.
  CString m_strMacro;

protected:
  void DoDataExchange(CDataExchange* pDX) override;
  BOOL OnInitDialog() override;
  void OnOK() override;
  void OnTypeChanged();
  void OnUseDecimals();

  DECLARE_MESSAGE_MAP()

private:
  void FillLists();
  void LoadInfo();
  /// Selects the field of that name, if there is one.
  void SelectField(CComboBox& combo, const CString& name) const;
  void EnableForType();
  void EnableDecimals();
  /// The selected field's name as the host gave it; empty where none is selected.
  CString SelectedField(const CComboBox& combo) const;
  quorvel::FieldChoice ReadChoice() const;
  /// Tells the user and leads to the control.
  void Complain(quorvel::FieldPart missing);

  CComboBox m_cmbType;
  CFindingComboBox m_cmbField1;
  CFindingComboBox m_cmbField2;
  CComboBox m_cmbComparison;
  CString m_strValue;
  CComboBox m_cmbDecimals;
  int m_bUseDecimals = 0;
  int m_bGrouping = 0;
  const CStringArray* m_pFieldNames;
  CKivValInfoOneData m_info;
  CPoint* m_pPosition;
};
