// CEditSelColor: the page that picks hue and saturation in a field and the brightness by a slider.
#pragma once

#include "dialogs/colour/hue_saturation_field.h"
#include "framework/device_context.h"
#include "framework/dialog.h"
#include "kivdata/sys_env.h"
#include "kivfcl/display_rate.h"
#include "kivfcl/kiv_image_data.h"
#include "kivfcl/kiv_slider_ctrl.h"
#include "res/ids.h"

#include <memory>

/// Of the control with the picture, made at run time.
constexpr int kFieldPictureId = 2109;

/// A page: made with Create(IDD_COLOUR_SELECT_PAGE, parent).
class CEditSelColor : public CDialog {
public:
  /// `env` may be null. The page shows black at full brightness until SetColor.
  CEditSelColor(CKivSysEnv* env, COLORREF color, CWnd* parent);

  CKivSysEnv* m_pSysEnv;
  COLORREF m_color;

  void SetColor(COLORREF color);
  COLORREF GetColor() const { return m_color; }

protected:
  BOOL OnInitDialog() override;
  void OnPaint();
  void OnLButtonDown(UINT keys, CPoint point);
  void OnLButtonUp(UINT keys, CPoint point);
  void OnMouseMove(UINT keys, CPoint point);
  LRESULT OnCaptureChanged(WPARAM wParam, LPARAM lParam);
  void OnSlider(const NMHDR& notification);

  DECLARE_MESSAGE_MAP()

private:
  /// Shows the picture and the marker, and around them whether it has the focus. The mouse goes
  /// through to the page, the keys come here: arrows step hue and saturation, by ten with the
  /// control key; Home, End and the page keys lead to the edges. Its text, which a screen reader
  /// speaks, tells both: "色相 120 彩度 80".
  class Field : public CWnd {
  public:
    explicit Field(CEditSelColor& page) : m_page(page) {}

  protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    std::wstring SpokenText() const;
    bool OnKey(WPARAM key);

    CEditSelColor& m_page;
  };

  void PaintField(const CWnd& field);
  void BuildPicture();
  void ApplyPoint(const CPoint& point);
  void ApplyHueAndSaturation(int hue, int saturation);
  /// Takes the colour of the values and shows it.
  void TakeColor();
  void ShowGradation();

  CKivSliderCtrl m_slider;
  std::unique_ptr<CKivImageData> m_pPicture;
  quorvel::PaintMemory m_fieldMemory;
  double m_displayRate = __KivFcl_GetDispRate();
  quorvel::HsbValues m_values{0, 0, quorvel::kHighestComponent};
  bool m_bDragging = false;
  CPoint m_ptLastMarker;
  CRect m_swatchRect;
  CRect m_fieldRect;    ///< its place on the page
  CRect m_pictureRect;  ///< in m_field
  Field m_field{*this};
};
