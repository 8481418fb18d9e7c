// The least that a step of a drag in the field of the selected-colour page can cost.
#pragma once

#include "bench/bare_window.h"
#include "dialogs/colour/hue_saturation_field.h"
#include "driver/dialog_owner.h"

namespace quorvel::bench {

/// The page's template run by the platform alone in a plain window, with two plain child windows for
/// the field and the slider. At a mouse move it has painted, straight onto the windows and with all
/// colours made before,
/// - of the field what lies between the marker's places before and now: one blit of the same picture
///   and an ellipse, and the focus mark;
/// - the slider whole: its background, the outline of its strip, one stretched blit of the strip's
///   colours, the three frames of the thumb;
/// - the swatch: a fill and a frame.
/// It reads, computes and buffers nothing.
class BareSelectPage {
public:
  /// Away from the middle of the screen.
  explicit BareSelectPage(const HsbValues& values);
  ~BareSelectPage() = default;
  BareSelectPage(const BareSelectPage&) = delete;
  BareSelectPage& operator=(const BareSelectPage&) = delete;

  HWND Window() const { return m_page; }
  HWND FieldWindow() const { return m_field; }
  HWND SliderWindow() const { return m_slider; }
  /// In the page's client pixels.
  const CRect& Swatch() const { return m_swatchRect; }

  /// Makes what the next mouse move shows: a point of the page, inside the field, is picked.
  void Prepare(const CPoint& point);

private:
  static INT_PTR CALLBACK PageProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  static LRESULT CALLBACK CanvasProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

  HWND CreateCanvas(const CRect& rect);
  CPoint Marker() const;
  void FillStrip() const;
  void Apply() const;
  void PaintSwatch() const;
  void PaintField() const;
  void PaintSlider() const;

  driver::ModuleContext m_context;
  HsbValues m_values;
  COLORREF m_color = 0;
  CRect m_swatchRect;
  CRect m_fieldRect;    ///< its right and lower edge belong to it
  CRect m_pictureRect;  ///< in the field's canvas
  CRect m_changed;    ///< of the field's window
  CRect m_thumb;      ///< of the slider's window, as the next
  CRect m_strip;
  OwnedWindow m_frame;
  HWND m_page = nullptr;    ///< goes with the frame, as the next two
  HWND m_field = nullptr;
  HWND m_slider = nullptr;
  std::unique_ptr<LinePicture> m_picture;
  std::unique_ptr<LinePicture> m_stripColours;  ///< one pixel wide, without the outline
};

}  // namespace quorvel::bench
