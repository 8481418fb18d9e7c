// Data exchange: moves values between the members of a dialog and its controls.
//
//   void CInputDpiDlg::DoDataExchange(CDataExchange* pDX) {
//     CKivDialog::DoDataExchange(pDX);
//     DDX_Text(pDX, IDC_DPI, m_nDpi);
//     DDV_MinMaxInt(pDX, m_nDpi, 1, 9600);
//   }
#pragma once

#include "framework/cstring.h"
#include "framework/frame_export.h"
#include "framework/wnd.h"

/// Thrown by a field that refuses its text, after the user has been told; caught by UpdateData only.
class CFieldRefused {};

/// The direction of an exchange and the field that it is at.
class FRAME_API CDataExchange {
public:
  CDataExchange(CWnd* window, BOOL saveAndValidate)
      : m_bSaveAndValidate(saveAndValidate), m_pDlgWnd(window) {}

  /// TRUE reads the controls, FALSE shows the members.
  BOOL m_bSaveAndValidate;
  CWnd* m_pDlgWnd;

  /// Names the field that the following exchange and checks are about; returns its control.
  HWND PrepareEditCtrl(int id);

  /// Refuses the field: shows `message`, gives the field the focus, selects its text and throws
  /// CFieldRefused.
  [[noreturn]] void Fail(const char* message);

private:
  HWND m_hWndLastControl = nullptr;
};

namespace quorvel {

/// Shows a text (code page 932) in a field. One that stands there already stays untouched, caret and
/// all.
FRAME_API void ShowFieldText(HWND control, const CString& text);
/// The field's text; characters that code page 932 lacks are question marks.
FRAME_API CString FieldText(HWND control);

}  // namespace quorvel

/// Attaches `control` to the control `id` at the first exchange.
FRAME_API void DDX_Control(CDataExchange* pDX, int id, CWnd& control);

/// A check box: 0 is off and anything else on; reading gives 0 or 1.
FRAME_API void DDX_Check(CDataExchange* pDX, int id, int& value);

/// Refuses characters that code page 932 lacks. A text that still reads as `value` is shown leaves
/// `value` as it is, byte for byte.
FRAME_API void DDX_Text(CDataExchange* pDX, int id, CString& value);
/// Refuses what is no whole number that an int can hold: "整数を入力してください。".
FRAME_API void DDX_Text(CDataExchange* pDX, int id, int& value);
/// Shows the shortest text of the number. Refuses what is no number: "数値を入力してください。".
FRAME_API void DDX_Text(CDataExchange* pDX, int id, double& value);

/// The index of the selected entry of a combo box, -1 for none.
FRAME_API void DDX_CBIndex(CDataExchange* pDX, int id, int& index);

/// Refuse the field exchanged just before when its value, read from the control, lies outside the
/// limits; the limits themselves are inside. NaN is outside.
FRAME_API void DDV_MinMaxInt(CDataExchange* pDX, int value, int lowest, int highest);
FRAME_API void DDV_MinMaxDouble(CDataExchange* pDX, const double& value, double lowest,
                                double highest);
