// Device contexts, and what is selected into them, held for as long as the object lives.
//
//   const CPaintDC paint(this);                      // in the handler of WM_PAINT
//   const SelectedObject selected(paint.Handle(), font);
#pragma once

#include "framework/cstring.h"
#include "framework/frame_export.h"
#include "framework/wnd.h"

#include <memory>
#include <optional>
#include <type_traits>

/// That of a window's client area.
class FRAME_API CClientDC {
public:
  explicit CClientDC(const CWnd* window);
  ~CClientDC();
  CClientDC(const CClientDC&) = delete;
  CClientDC& operator=(const CClientDC&) = delete;

  HDC Handle() const { return m_hDC; }

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
  /// What is to be painted lies inside.
  CRect Area() const { return m_paint.rcPaint; }

private:
  HWND m_hWnd;
  PAINTSTRUCT m_paint{};
  HDC m_hDC;
};

namespace quorvel {

struct GdiDeleter {
  void operator()(HGDIOBJ object) const { ::DeleteObject(object); }
};
/// Own what they hold; null where it could not be made.
using OwnedPen = std::unique_ptr<std::remove_pointer_t<HPEN>, GdiDeleter>;
using OwnedBrush = std::unique_ptr<std::remove_pointer_t<HBRUSH>, GdiDeleter>;
using OwnedFont = std::unique_ptr<std::remove_pointer_t<HFONT>, GdiDeleter>;
using OwnedBitmap = std::unique_ptr<std::remove_pointer_t<HBITMAP>, GdiDeleter>;

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

/// A device context in memory, like `deviceContext`; its bitmap is to be selected.
class FRAME_API MemoryDC {
public:
  explicit MemoryDC(HDC deviceContext);
  ~MemoryDC();
  MemoryDC(const MemoryDC&) = delete;
  MemoryDC& operator=(const MemoryDC&) = delete;

  HDC Handle() const { return m_hDC; }

private:
  HDC m_hDC;
};

/// What one window's PaintBuffers draw into, kept from one painting to the next: a device context and a
/// large bitmap take longer to make than a small area to paint.
class FRAME_API PaintMemory {
public:
  /// A device context like the target's, with a bitmap of at least this size; null where it cannot
  /// be made.
  HDC DeviceContextFor(HDC target, const CSize& size);

private:
  // They end in the opposite order: the bitmap when it is no longer selected.
  std::optional<MemoryDC> m_deviceContext;
  OwnedBitmap m_bitmap;
  std::optional<SelectedObject> m_selected;
  CSize m_size;
};

/// Paints without flicker: what is drawn into Handle() appears at once, when the object dies. Both
/// device contexts have the same coordinates; `area` must be drawn whole. Where there is no memory
/// for it, Handle() is the target itself.
class FRAME_API PaintBuffer {
public:
  /// `memory` must outlive the object, and serves one at a time; null for one of its own.
  PaintBuffer(HDC target, const CRect& area, PaintMemory* memory = nullptr);
  ~PaintBuffer();
  PaintBuffer(const PaintBuffer&) = delete;
  PaintBuffer& operator=(const PaintBuffer&) = delete;

  HDC Handle() const { return m_hDC != nullptr ? m_hDC : m_target; }

private:
  HDC m_target;
  CRect m_area;
  PaintMemory m_ownMemory;
  HDC m_hDC;  ///< of one of the memories
  int m_stateBefore = 0;
};

/// A colour without its highest byte, which hosts leave undefined and the platform would take for an
/// index of a palette or for no colour at all.
constexpr COLORREF PlainColor(COLORREF color) {
  constexpr COLORREF kChannels = 0x00FFFFFF;
  return color & kChannels;
}

/// Fills with one colour, of which the highest byte does not count; so do those below.
FRAME_API void FillSolid(HDC deviceContext, const CRect& rect, COLORREF color);

/// Draws a line of one colour, 1 pixel wide, along the inside of the edges.
FRAME_API void FrameSolid(HDC deviceContext, const CRect& rect, COLORREF color);

/// Fills with one colour and draws a black line, 1 pixel wide, along the inside of the edges.
FRAME_API void FillFramed(HDC deviceContext, const CRect& rect, COLORREF color);

/// Fills the client area of a control as its parent looks behind it.
FRAME_API void FillAsBehind(HDC deviceContext, HWND control);

}  // namespace quorvel
