// CLayoutCelSizeEditDlg: asks for the exact lengths of two neighbouring rows or columns.
//
//   float first = page.GetLengthRow(block, row);
//   float second = page.GetLengthRow(block, row + 1);
//   CLayoutCelSizeEditDlg dialog(&first, &second, this);
//   if (dialog.DoModal() == IDOK) { /* set both; their sum is as before */ }
#pragma once

#include "dialogs/layout/cel_sizes.h"
#include "kivfcl/kiv_dialog.h"
#include "res/ids.h"

/// A field that is left gives the other one the rest of the sum. OK reads the first field alone.
class CLayoutCelSizeEditDlg : public CKivDialog {
public:
  /// In millimetres; not null, the caller's, written on OK only.
  CLayoutCelSizeEditDlg(float* first, float* second, CWnd* parent = nullptr);

protected:
  BOOL OnInitDialog() override;
  void OnOK() override;
  void OnFirstLeft();
  void OnSecondLeft();

  DECLARE_MESSAGE_MAP()

private:
  void OnLeft(int left, int other);

  float* m_pFirst;
  float* m_pSecond;
  quorvel::CelSizes m_sizes;
  /// OK refused a field, and no other of this dialog has had the focus since: what was typed stays.
  bool m_bRefused = false;
  /// While true, the user is told of the refusal and led back to the field.
  bool m_bLeadingBack = false;
};
