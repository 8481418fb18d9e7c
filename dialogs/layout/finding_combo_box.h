// CFindingComboBox: a drop-down list that finds an entry by the beginning of its text, of any
// length.
//
//   CFindingComboBox m_cmbField;
//   m_cmbField.SubclassDlgItem(IDC_FIELD_FIRST, this);
#pragma once

#include "dialogs/layout/typed_search.h"
#include "framework/controls.h"

/// The system's own drop-down list knows one letter only, which leads nowhere in a list of
/// thousands of names. Entries are found in letters of any case and notified as if picked by an
/// arrow key.
class CFindingComboBox : public CComboBox {
protected:
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
  void Find(wchar_t letter, unsigned time);

  quorvel::TypedSearch m_search;
};
