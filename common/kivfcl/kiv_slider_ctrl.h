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

#include "framework/device_context.h"
#include "framework/wnd.h"
#include "kivfcl/display_rate.h"
#include "kivfcl/kiv_image_data.h"
#include "kivfcl/kivfcl_export.h"
#include "kivfcl/slider_rules.h"
#include "kivfcl/wheel_steps.h"

#include <commctrl.h>

#include <array>
#include <optional>

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

/// Moved by dragging, by a click on the strip, by the wheel, and with the focus by the keys: Right
/// and Up raise the position by 1, Left and Down lower it, PageUp and PageDown take a tenth of the
/// range, Home goes to the lowest and End to the highest position. A click on the strip takes the
/// thumb there and drags it on; Escape during a drag takes it back to where it was. The owner is
/// told of every change by the user, of none by the calls below; it may destroy the slider then. A
/// drag tells every change and, if there was one, its end, however it ends. Its text, which a
/// screen reader speaks, is the one that it was given and the position: "明るさ 128".
class KIVFCL_API CKivSliderCtrl : public CWnd {
public:
  CKivSliderCtrl() = default;
  ~CKivSliderCtrl() override;
  CKivSliderCtrl(const CKivSliderCtrl&) = delete;
  CKivSliderCtrl& operator=(const CKivSliderCtrl&) = delete;

  /// `style` is a window style; WS_CHILD is added. `rect` is in `parent`'s client pixels, `kind`
  /// one of KIVSLIDER_*; what is none counts as horizontal. FALSE when it cannot be created.
  BOOL Create(DWORD style, const CRect& rect, CWnd* parent, UINT id, int kind);

  /// `lowest` at most `highest`; the position is kept inside. At first 0 to 100.
  void SetRange(int lowest, int highest);
  /// Kept inside the range.
  void SetPos(int position);
  int GetPos() const { return m_nPos; }

  /// What the strip shows at the lowest and at the highest position; in between the components lead
  /// evenly from `start` to `end`. At first grey. `model` is one of KIVGRADATION_*; what is none
  /// counts as RGB.
  void SetGradation(int model, const KIVCOLORCOMPONENTS& start, const KIVCOLORCOMPONENTS& end);

protected:
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

  DECLARE_MESSAGE_MAP()

private:
  static constexpr int kHighestAtFirst = 100;
  static constexpr KIVCOLORCOMPONENTS kGrey{192, 192, 192, 0};

  struct DragState {
    int positionBefore = 0;
    int grip = 0;  ///< where the mouse holds the thumb; see quorvel::GripAt
    bool moved = false;
  };

  void OnPaint();
  void OnLButtonDown(UINT keys, CPoint point);
  void OnMouseMove(UINT keys, CPoint point);
  void OnLButtonUp(UINT keys, CPoint point);
  LRESULT OnDragTakenAway(WPARAM wParam, LPARAM lParam);
  LRESULT OnDestroy(WPARAM wParam, LPARAM lParam);
  LRESULT OnKeyDown(WPARAM wParam, LPARAM lParam);
  LRESULT OnMouseWheel(WPARAM wParam, LPARAM lParam);
  LRESULT OnGetDlgCode(WPARAM wParam, LPARAM lParam);
  LRESULT OnLookChanged(WPARAM wParam, LPARAM lParam);

  bool IsUpright() const { return m_nKind == KIVSLIDER_UPRIGHT; }
  quorvel::SliderTrack Track() const;
  CRect Thumb() const;
  /// Without telling; whether the position is another now.
  bool MoveThumb(int position);
  // After these three the object may be gone: the owner has been told.
  void DragTo(int place);
  void EndDrag();
  void Notify(UINT code) const;

  void Draw(HDC deviceContext);
  void DrawBackground(HDC deviceContext) const;
  void DrawStrip(HDC deviceContext);
  void RenderStrip(const CRect& inner);

  int m_nKind = KIVSLIDER_HORIZONTAL;
  quorvel::SliderRange m_range{0, kHighestAtFirst};
  int m_nPos = 0;
  double m_displayRate = __KivFcl_GetDispRate();
  quorvel::Gradient m_gradient{quorvel::GradientModel::kRgb, kGrey, kGrey};
  quorvel::PaintMemory m_memory;
  CKivImageData m_strip;  ///< one pixel across, kept until the gradient or the size changes
  bool m_bStripIsOld = true;
  std::optional<DragState> m_drag;
  quorvel::WheelSteps m_wheel;
};
