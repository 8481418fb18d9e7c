// CClientDC: the device context of a window's client area, held for as long as the object lives.
#pragma once

#include "framework/cstring.h"
#include "framework/frame_export.h"
#include "framework/wnd.h"

class FRAME_API CClientDC {
public:
  explicit CClientDC(const CWnd* window);
  ~CClientDC();
  CClientDC(const CClientDC&) = delete;
  CClientDC& operator=(const CClientDC&) = delete;

  /// In pixels, in the font selected now.
  CSize GetTextExtent(const CString& text) const;
  TEXTMETRICW GetTextMetrics() const;

private:
  HWND m_hWnd;
  HDC m_hDC;
};
