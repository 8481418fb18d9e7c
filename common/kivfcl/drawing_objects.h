// Pens, brushes and fonts that are selected into a device context as long as they live.
//
//   {
//     const CPenEx pen(deviceContext, PS_SOLID, 2, RGB(255, 0, 0));
//     ::Polyline(deviceContext, points.data(), 5);
//   }  // what was selected before is selected again
//
// They are destroyed in the opposite order of their making, as objects on the stack are. Where the
// platform cannot make one, what was selected stays. Widths are in pixels, colours 0x00BBGGRR.
#pragma once

#include "framework/device_context.h"
#include "kivfcl/kivfcl_export.h"

/// `style` is one of PS_*. The gaps of a dotted pen are drawn only where the background mode says so.
class KIVFCL_API CPenEx {
public:
  CPenEx(HDC deviceContext, int style, int width, COLORREF color);

private:
  quorvel::OwnedPen m_pen;
  quorvel::SelectedObject m_selected;
};

/// What is drawn twice is gone again. While it lives, the raster operation is R2_XORPEN and gaps are
/// left alone. The highest bit of each channel is turned over in any case, so that the pen shows on
/// every colour: for `color` 0 all channels differ by 128. A plain XOR of 0 would draw nothing, and
/// an inversion nothing on medium grey. The bits of `color` are turned over, too.
class KIVFCL_API CXorPenEx {
public:
  CXorPenEx(HDC deviceContext, int style, int width, COLORREF color);
  ~CXorPenEx();
  CXorPenEx(const CXorPenEx&) = delete;
  CXorPenEx& operator=(const CXorPenEx&) = delete;

private:
  CPenEx m_pen;
  HDC m_hDC;
  int m_nPreviousOperation;
  int m_nPreviousBackground;
};

/// One colour.
class KIVFCL_API CBrushEx {
public:
  CBrushEx(HDC deviceContext, COLORREF color);

private:
  quorvel::OwnedBrush m_brush;
  quorvel::SelectedObject m_selected;
};

/// The face's name is in code page 932.
class KIVFCL_API CFontEx {
public:
  CFontEx(HDC deviceContext, const LOGFONTA& font);

private:
  quorvel::OwnedFont m_font;
  quorvel::SelectedObject m_selected;
};
