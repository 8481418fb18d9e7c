// Device contexts, and what is selected into them, held for as long as the object lives.
//
//   const CPaintDC paint(this);                      // in the handler of WM_PAINT
//   const SelectedObject selected(paint.Handle(), font);
#pragma once

#include "framework/cstring.h"
#include "framework/frame_export.h"
#include "framework/wnd.h"

/// That of a window's client area.
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

/// Answers WM_PAINT: the device context of what is to be painted.
class FRAME_API CPaintDC {
public:
  explicit CPaintDC(const CWnd* window);
  ~CPaintDC();
  CPaintDC(const CPaintDC&) = delete;
  CPaintDC& operator=(const CPaintDC&) = delete;

  HDC Handle() const { return m_hDC; }

private:
  HWND m_hWnd;
  PAINTSTRUCT m_paint{};
  HDC m_hDC;
};

namespace quorvel {

/// A pen, brush, font or bitmap selected into a device context; not owned.
class SelectedObject {
public:
  SelectedObject(HDC deviceContext, HGDIOBJ object)
      : m_hDC(deviceContext), m_previous(::SelectObject(deviceContext, object)) {}
  ~SelectedObject() { ::SelectObject(m_hDC, m_previous); }
  SelectedObject(const SelectedObject&) = delete;
  SelectedObject& operator=(const SelectedObject&) = delete;

private:
  HDC m_hDC;
  HGDIOBJ m_previous;
};

}  // namespace quorvel
