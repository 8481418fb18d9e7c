// The entries of Quorvel.dll: the frame around each dialog.
#include "dialogs/colour/edit_color_dlg.h"
#include "dialogs/colour/sel_color.h"
#include "dialogs/colour/sel_color_dlg.h"
#include "dialogs/colour/sel_rgb.h"
#include "dialogs/font/sel_font_dlg.h"
#include "dialogs/font/sel_font_ex_dlg.h"
#include "dialogs/input/check_list_dlg.h"
#include "dialogs/input/input_dpi_dlg.h"
#include "dialogs/input/input_point_dlg.h"
#include "dialogs/input/input_scale_dlg.h"
#include "dialogs/input/input_text_dlg.h"
#include "dialogs/input/user_paper_set_dlg.h"
#include "dialogs/layout/layout_edit_dlg.h"
#include "dialogs/layout/layout_ex_edit_dlg.h"
#include "framework/module_state.h"

#include <quorvel/quorvel.h>

namespace {

/// Runs the body of an entry in this library's module state. What `needed` names must not be null;
/// that, and an exception out of the body, gives `failure`.
template <class Result, class Body, class... Pointers>
Result RunEntry(Result failure, Body body, const Pointers*... needed) noexcept {
  if ((... || (needed == nullptr))) {
    return failure;
  }
  try {
    AFX_MANAGE_STATE(AfxGetStaticModuleState());
    return body();
  } catch (...) {
    return failure;  // a host's frames are not made for our exceptions
  }
}

/// Runs a colour dialog; `chosen`, a member of it, becomes the caller's colour on IDOK only.
BOOL ConfirmedColor(CDialog& dialog, const COLORREF& chosen, COLORREF* color) {
  if (dialog.DoModal() != IDOK) {
    return FALSE;
  }
  *color = chosen;
  return TRUE;
}

INT_PTR RunPointEntry(double* point, CInputPointDlg::Coordinates coordinates, BOOL allowMousePick,
                      CPoint* position) noexcept {
  const auto body = [&] {
    CInputPointDlg dialog;
    switch (dialog.Run(point, coordinates, allowMousePick, position)) {
      case IDOK:
        return QUORVEL_POINT_CONFIRMED;
      case IDC_POINT_MOUSE:
        return QUORVEL_POINT_MOUSE_PICK;
      default:
        return QUORVEL_POINT_CANCELLED;
    }
  };
  return RunEntry(QUORVEL_POINT_CANCELLED, body, point);
}

}  // namespace

extern "C" {

BOOL __SelColorDlg(CKivSysEnv* env, COLORREF* color, CPoint* position) {
  const auto body = [&] {
    CSelColor dialog(env, *color, position, nullptr);
    return ConfirmedColor(dialog, dialog.m_colorSel, color);
  };
  return RunEntry(FALSE, body, color);
}

BOOL __SelColorDlgEx(CKivSysEnv* env, COLORREF* color, CPoint* position) {
  const auto body = [&] {
    CSelColorDlg dialog(env, *color, position, nullptr);
    return ConfirmedColor(dialog, dialog.m_color, color);
  };
  return RunEntry(FALSE, body, color);
}

BOOL __EditColorDlg(CKivSysEnv* env, COLORREF* color, CPoint* position) {
  const auto body = [&] {
    CEditColorDlg dialog(env, *color, position, nullptr);
    return ConfirmedColor(dialog, dialog.m_color, color);
  };
  return RunEntry(FALSE, body, color);
}

BOOL __SelRGBDlg(COLORREF* color) {
  const auto body = [&] {
    CSelRGB dialog(*color, nullptr);
    return ConfirmedColor(dialog, dialog.m_color, color);
  };
  return RunEntry(FALSE, body, color);
}

BOOL __SelFontDlg(CKivSysEnv* env, CKivFont* font, double dotsPerMm, const char* title,
                  BOOL showStrikeType, BOOL fixedColour, UINT enableMask) {
  const auto body = [&] {
    CSelFontDlg dialog(env, title, showStrikeType, fixedColour, enableMask);
    return dialog.Run(font, dotsPerMm) == IDOK ? TRUE : FALSE;
  };
  return RunEntry(FALSE, body, font);
}

BOOL __SelFontExDlg(CKivSysEnv* env, CKivFontEx* font, double dotsPerMm, const char* title,
                    BOOL fixedColour, UINT enableMask) {
  const auto body = [&] {
    CSelFontExDlg dialog(env, title, fixedColour, enableMask);
    return dialog.Run(font, dotsPerMm) == IDOK ? TRUE : FALSE;
  };
  return RunEntry(FALSE, body, font);
}

BOOL __InputTextDlg(const char* title, const char* comment, CString* text, CPoint* position) {
  const auto body = [&] {
    CInputTextDlg dialog(title, comment, *text, position);
    if (dialog.DoModal() != IDOK) {
      return FALSE;
    }
    *text = dialog.m_strText;
    return TRUE;
  };
  return RunEntry(FALSE, body, text);
}

BOOL __InputScaleDlg(const char* title, const char* comment, double* scale, CPoint* position) {
  const auto body = [&] {
    CInputScaleDlg dialog;
    return dialog.Run(title, comment, scale, position) == IDOK ? TRUE : FALSE;
  };
  return RunEntry(FALSE, body, scale);
}

BOOL __InputDpiDlg(int* dpi, CPoint* position) {
  const auto body = [&] {
    CInputDpiDlg dialog;
    return dialog.Run(dpi, position) == IDOK ? TRUE : FALSE;
  };
  return RunEntry(FALSE, body, dpi);
}

INT_PTR __InputPointXYDlg(double* point, BOOL allowMousePick, CPoint* position) {
  return RunPointEntry(point, CInputPointDlg::Coordinates::kXY, allowMousePick, position);
}

INT_PTR __InputPointXYZDlg(double* point, BOOL allowMousePick, CPoint* position) {
  return RunPointEntry(point, CInputPointDlg::Coordinates::kXYZ, allowMousePick, position);
}

INT_PTR __UserPaperSetDlg(void* ignored, CString* name, int* width, int* height, int* clearAll,
                          void* /*alsoIgnored*/) {
  const auto body = [&]() -> INT_PTR {
    CUserPaperSetDlg dialog(ignored);
    return dialog.Run(name, width, height, clearAll);
  };
  return RunEntry(INT_PTR{0}, body, name, width, height, clearAll);
}

INT_PTR __CheckListDlg(const CString* title, const CArray<CString, CString&>* items,
                       CByteArray* states) {
  const auto body = [&] {
    CCheckListDlg dialog(title, items, states);
    return dialog.DoModal();
  };
  return RunEntry(INT_PTR{-1}, body, title, items, states);
}

BOOL __LayoutEditDlg(CKivSysEnv* env, CLayoutPageData* page, CStringArray* insertions,
                     CDWordArray* numbers, double dotsPerMm, int lineMode, CPoint* position) {
  const auto body = [&] {
    CLayoutEditDlg dialog(env, page, insertions, numbers, dotsPerMm, lineMode, position, nullptr);
    return dialog.DoModal() == IDOK ? TRUE : FALSE;
  };
  return RunEntry(FALSE, body, page);
}

BOOL __LayoutExEditDlg(CKivSysEnv* env, CLayoutExPageData* page, CStringArray* fields,
                       CStringArray* insertions, CDWordArray* numbers, double dotsPerMm,
                       CPoint* position) {
  const auto body = [&] {
    CLayoutExEditDlg dialog(env, page, fields, insertions, numbers, dotsPerMm, position, nullptr);
    return dialog.DoModal() == IDOK ? TRUE : FALSE;
  };
  return RunEntry(FALSE, body, page);
}
}
