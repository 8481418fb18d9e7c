// CKivKeyCtrlEdit: an edit field that leaves some keys to its owner.
//
//   m_pEdit->Create(WS_VISIBLE | WS_BORDER | ES_AUTOHSCROLL, rect, this, 200,
//                   KIVKEY_ENTER | KIVKEY_ESCAPE | KIVKEY_ARROWS);
//   // the owner gets WM_KEYDOWN with VK_RETURN, VK_ESCAPE, VK_LEFT, VK_RIGHT
#pragma once

#include "framework/controls.h"
#include "kivfcl/kivfcl_export.h"

/// Keys that go to the owner.
enum : UINT {
  KIVKEY_ENTER = 1,
  KIVKEY_ESCAPE = 2,
  KIVKEY_ARROWS = 4,  ///< Left and Right; Up and Down stay the field's
};

/// Sends each press of the keys chosen to its owner as WM_KEYDOWN and does nothing itself about them,
/// whatever Shift and Ctrl say; the dialog around never sees them, so Enter and Escape do not close
/// it. The owner may destroy the field, object and all, when it is told. Keys of a kana-kanji
/// conversion belong to the conversion. Otherwise an edit field as any other.
class KIVFCL_API CKivKeyCtrlEdit : public CEdit {
public:
  /// `style` is a window style with the field's ES_*; WS_CHILD is added. `rect` is in `parent`'s
  /// client pixels, `keys` are KIVKEY_* bits. FALSE when it cannot be created.
  BOOL Create(DWORD style, const CRect& rect, CWnd* parent, UINT id, UINT keys);

protected:
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
  bool IsOwnersKey(WPARAM key) const;

  UINT m_nKeys = 0;
};
