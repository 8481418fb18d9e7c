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
#include "framework/device_context.h"
#include "framework/dpi_awareness.h"
#include "framework/module_state.h"

#include <quorvel/quorvel.h>

namespace {

/// Runs the body of an entry in this library's module state and at the display's own scale. What
/// `needed` names must not be null; that, and an exception out of the body, gives `failure`.
template <class Result, class Body, class... Pointers>
Result RunEntry(Result failure, Body body, const Pointers*... needed) noexcept {
  if ((... || (needed == nullptr))) {
    return failure;
  }
  try {
    AFX_MANAGE_STATE(AfxGetStaticModuleState());
    const quorvel::SystemDpiAwareness crisp;
    return body();
  } catch (...) {
    return failure;  // a host's frames are not made for our exceptions
  }
}

/// The same for a body that is told the caller's position, which may be null.
template <class Result, class Body, class... Pointers>
Result RunPlacedEntry(Result failure, const CPoint* position, Body body,
                      const Pointers*... needed) noexcept {
  quorvel::CallersPoint callers(position);
  return RunEntry(failure, [&] { return body(callers.Here()); }, needed...);
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
  const auto body = [&](CPoint* place) {
    CInputPointDlg dialog;
    switch (dialog.Run(point, coordinates, allowMousePick, place)) {
      case IDOK:
        return QUORVEL_POINT_CONFIRMED;
      case IDC_POINT_MOUSE:
        return QUORVEL_POINT_MOUSE_PICK;
      default:
        return QUORVEL_POINT_CANCELLED;
    }
  };
  return RunPlacedEntry(QUORVEL_POINT_CANCELLED, position, body, point);
}

}  // namespace

extern "C" {

BOOL __SelColorDlg(CKivSysEnv* env, COLORREF* color, CPoint* position) {
  const auto body = [&](CPoint* place) {
    CSelColor dialog(env, quorvel::PlainColor(*color), place, nullptr);
    return ConfirmedColor(dialog, dialog.m_colorSel, color);
  };
  return RunPlacedEntry(FALSE, position, body, color);
}

BOOL __SelColorDlgEx(CKivSysEnv* env, COLORREF* color, CPoint* position) {
  const auto body = [&](CPoint* place) {
    CSelColorDlg dialog(env, quorvel::PlainColor(*color), place, nullptr);
    return ConfirmedColor(dialog, dialog.m_color, color);
  };
  return RunPlacedEntry(FALSE, position, body, color);
}

BOOL __EditColorDlg(CKivSysEnv* env, COLORREF* color, CPoint* position) {
  const auto body = [&](CPoint* place) {
    CEditColorDlg dialog(env, quorvel::PlainColor(*color), place, nullptr);
    return ConfirmedColor(dialog, dialog.m_color, color);
  };
  return RunPlacedEntry(FALSE, position, body, color);
}

BOOL __SelRGBDlg(COLORREF* color) {
  const auto body = [&] {
    CSelRGB dialog(quorvel::PlainColor(*color), nullptr);
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
  const auto body = [&](CPoint* place) {
    CInputTextDlg dialog(title, comment, *text, place);
    if (dialog.DoModal() != IDOK) {
      return FALSE;
    }
    *text = dialog.m_strText;
    return TRUE;
  };
  return RunPlacedEntry(FALSE, position, body, text);
}

BOOL __InputScaleDlg(const char* title, const char* comment, double* scale, CPoint* position) {
  const auto body = [&](CPoint* place) {
    CInputScaleDlg dialog;
    return dialog.Run(title, comment, scale, place) == IDOK ? TRUE : FALSE;
  };
  return RunPlacedEntry(FALSE, position, body, scale);
}

BOOL __InputDpiDlg(int* dpi, CPoint* position) {
  const auto body = [&](CPoint* place) {
    CInputDpiDlg dialog;
    return dialog.Run(dpi, place) == IDOK ? TRUE : FALSE;
  };
  return RunPlacedEntry(FALSE, position, body, dpi);
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
  const auto body = [&](CPoint* place) {
    CLayoutEditDlg dialog(env, page, insertions, numbers, dotsPerMm, lineMode, place, nullptr);
    return dialog.DoModal() == IDOK ? TRUE : FALSE;
  };
  return RunPlacedEntry(FALSE, position, body, page);
}

BOOL __LayoutExEditDlg(CKivSysEnv* env, CLayoutExPageData* page, CStringArray* fields,
                       CStringArray* insertions, CDWordArray* numbers, double dotsPerMm,
                       CPoint* position) {
  const auto body = [&](CPoint* place) {
    CLayoutExEditDlg dialog(env, page, fields, insertions, numbers, dotsPerMm, place, nullptr);
    return dialog.DoModal() == IDOK ? TRUE : FALSE;
  };
  return RunPlacedEntry(FALSE, position, body, page);
}
}
