// CCheckListDlg: lets the user tick items of a list. The list and the dialog take their size from
// the items.
#pragma once

#include "dialogs/input/check_list_layout.h"
#include "framework/collections.h"
#include "framework/dialog.h"
#include "kivfcl/kiv_list_ctrl.h"
#include "res/ids.h"

class CCheckListDlg : public CDialog {
public:
  /// The three belong to the caller and must outlive the dialog. As many items are shown as both
  /// `items` and `states` have; the states are written, 0 or 1 each, when the user confirms.
  CCheckListDlg(const CString* title, const CArray<CString, CString&>* items, CByteArray* states);

protected:
  void DoDataExchange(CDataExchange* pDX) override;
  BOOL OnInitDialog() override;
  void OnOK() override;

private:
  INT_PTR ShownItems() const;
  int WidestName() const;
  void FillList(const quorvel::CheckListMeasures& measures);

  CKivListCtrl m_listCtrl;
  const CString* m_pTitle;
  const CArray<CString, CString&>* m_pItems;
  CByteArray* m_pStates;
};
