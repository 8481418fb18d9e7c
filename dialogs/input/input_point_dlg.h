// CInputPointDlg: asks for the coordinates of a point, two or three, and may offer to have it picked
// with the mouse in the host's drawing instead.
#pragma once

#include "dialogs/input/point_fields.h"
#include "kivfcl/kiv_dialog.h"
#include "res/ids.h"

class CInputPointDlg : public CKivDialog {
public:
  enum class Coordinates { kXY, kXYZ };

  explicit CInputPointDlg(CWnd* parent = nullptr);

  /// Runs the dialog with the caller's point (2 or 3 elements) and returns DoModal's result, or
  /// IDC_POINT_MOUSE when the mouse is to pick the point. `point` is written on IDOK only. `position`
  /// may be null.
  INT_PTR Run(double* point, Coordinates coordinates, BOOL allowMousePick, CPoint* position);

  quorvel::PointTexts m_texts;  ///< of the fields X, Y and Z
  int m_nMode = 0;              ///< bits of Mode
  CPoint* m_pPosition = nullptr;

protected:
  enum Mode : int { kModeXYZ = 1, kModeMousePick = 2 };

  void DoDataExchange(CDataExchange* pDX) override;
  BOOL OnInitDialog() override;
  void OnMousePick();

  DECLARE_MESSAGE_MAP()

private:
  void CloseUpToTwoCoordinates();
};
