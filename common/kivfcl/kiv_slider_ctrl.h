// CKivSliderCtrl: a slider on a strip that shows which colour each position gives.
//
//   m_slider.Create(WS_VISIBLE | WS_TABSTOP, rect, this, 120, KIVSLIDER_HORIZONTAL);
//   m_slider.SetRange(0, 255);
//   m_slider.SetPos(128);
//   m_slider.SetGradation(KIVGRADATION_RGB, {0, 64, 0}, {255, 64, 0});
//   ...
//   ON_NOTIFY(KIVSLIDER_MOVING, 120, &CPage::OnSlider)    // const NMKIVSLIDER&: nPos
//   ON_NOTIFY(KIVSLIDER_MOVED, 120, &CPage::OnSlider)
#pragma once

#include "framework/wnd.h"
#include "kivfcl/kivfcl_export.h"

#include <commctrl.h>

#include <array>

/// Which way a slider lies. Horizontal: its lowest position is at the left; upright: at the bottom.
enum : int {
  KIVSLIDER_HORIZONTAL = 2,
  KIVSLIDER_UPRIGHT = 6,
};

/// The model that a gradient's components belong to; see kivcomm/color_models.
enum : int {
  KIVGRADATION_RGB = 0,   ///< red, green, blue
  KIVGRADATION_CMYK = 1,  ///< cyan, magenta, yellow, black
  KIVGRADATION_HSB = 2,   ///< hue 0 to 360, saturation, brightness
};

/// Notification codes, by WM_NOTIFY with a NMKIVSLIDER.
enum : UINT {
  KIVSLIDER_MOVING = 1,  ///< the thumb is being dragged
  KIVSLIDER_MOVED = 2,   ///< the user has let go of it, or moved it by key, click or wheel
};

struct NMKIVSLIDER {
  NMHDR hdr;
  int nPos;
};

/// The components of a colour; in a model of three the last one is ignored.
using KIVCOLORCOMPONENTS = std::array<int, 4>;

/// Moved by dragging, by a click on the strip, by the wheel, and with the focus by the keys: arrows 1,
/// page keys a tenth of the range, Home and End to the ends. Right and Up raise the position. The
/// owner is told of every change by the user, of none by SetPos.
class KIVFCL_API CKivSliderCtrl : public CWnd {
public:
  CKivSliderCtrl() = default;
  ~CKivSliderCtrl() override = default;

  /// `style` is a window style; WS_CHILD is added. `rect` is in `parent`'s client pixels, `kind` one
  /// of KIVSLIDER_*. FALSE when it cannot be created.
  BOOL Create(DWORD style, const CRect& rect, CWnd* parent, UINT id, int kind);

  /// `lowest` at most `highest`; the position is kept inside. At first 0 to 100.
  void SetRange(int lowest, int highest);
  /// Kept inside the range.
  void SetPos(int position);
  int GetPos() const { return m_nPos; }

  /// What the strip shows at the lowest and at the highest position; in between the components lead
  /// evenly from `start` to `end`. At first grey.
  void SetGradation(int model, const KIVCOLORCOMPONENTS& start, const KIVCOLORCOMPONENTS& end);

protected:
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
  int m_nKind = KIVSLIDER_HORIZONTAL;
  int m_nLowest = 0;
  int m_nHighest = 100;
  int m_nPos = 0;
  int m_nModel = KIVGRADATION_RGB;
  KIVCOLORCOMPONENTS m_start{192, 192, 192, 0};
  KIVCOLORCOMPONENTS m_end{192, 192, 192, 0};
};
