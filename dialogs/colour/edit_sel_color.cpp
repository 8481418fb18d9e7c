#include "dialogs/colour/edit_sel_color.h"

#include "framework/control_names.h"
#include "kivcomm/color_models.h"
#include "kivfcl/display_pixels.h"
#include "kivfcl/spoken_text.h"

#include <algorithm>

using quorvel::HsbValues;
using quorvel::kHighestComponent;
using quorvel::kHighestHue;

namespace {

// In pixels of a display at 100 %.
constexpr int kMarkerRadius = 3;
constexpr int kMarkerReach = 4;  ///< no pixel of the marker is farther from its point
constexpr int kFocusFrame = 2;   ///< around the picture, for the mark of the focus
constexpr int kPictureBits = 24;
constexpr int kNoFill = -1;
constexpr int kLargeStep = 10;
constexpr int kDarkest = 128;  ///< below this brightness a black marker would be lost

}  // namespace

BEGIN_MESSAGE_MAP(CEditSelColor, CDialog)
  ON_WM_PAINT(&CEditSelColor::OnPaint)
  ON_WM_LBUTTONDOWN(&CEditSelColor::OnLButtonDown)
  ON_WM_LBUTTONUP(&CEditSelColor::OnLButtonUp)
  ON_WM_MOUSEMOVE(&CEditSelColor::OnMouseMove)
  ON_MESSAGE(WM_CAPTURECHANGED, &CEditSelColor::OnCaptureChanged)
  ON_NOTIFY(KIVSLIDER_MOVING, IDC_COLOUR_BRIGHTNESS, &CEditSelColor::OnSlider)
  ON_NOTIFY(KIVSLIDER_MOVED, IDC_COLOUR_BRIGHTNESS, &CEditSelColor::OnSlider)
END_MESSAGE_MAP()

CEditSelColor::CEditSelColor(CKivSysEnv* env, COLORREF color, CWnd* parent)
    : CDialog(IDD_COLOUR_SELECT_PAGE, parent), m_pSysEnv(env), m_color(color) {}

BOOL CEditSelColor::OnInitDialog() {
  CDialog::OnInitDialog();
  m_bDragging = false;
  m_swatchRect = GetDlgItemRect(IDC_COLOUR_SWATCH);
  m_fieldRect = GetDlgItemRect(IDC_COLOUR_FIELD);
  m_pPicture = std::make_unique<CKivImageData>();
  m_pPicture->MakeImageData(m_fieldRect.Width() + 1, m_fieldRect.Height() + 1, kPictureBits,
                            kNoFill);
  const int frame = quorvel::PixelsAt(m_displayRate, kFocusFrame);
  m_pictureRect = {CPoint(frame, frame),
                   CSize(m_pPicture->GetWidth(), m_pPicture->GetHeight())};
  // The field's place stays what it is, hidden: a point in it is a colour, and the picture is a
  // pixel larger.
  m_field.CreateChild(L"Static", 0, WS_VISIBLE | WS_TABSTOP,
                      CRect(m_fieldRect.TopLeft(), m_pictureRect.Size()).Grown(frame, frame),
                      this, kFieldPictureId);
  // The slider's gives way to it: one control for each identifier.
  const CRect sliderRect = GetDlgItemRect(IDC_COLOUR_BRIGHTNESS);
  ::DestroyWindow(GetDlgItem(IDC_COLOUR_BRIGHTNESS));
  m_slider.Create(WS_VISIBLE | WS_TABSTOP, sliderRect, this, IDC_COLOUR_BRIGHTNESS,
                  KIVSLIDER_UPRIGHT);
  quorvel::NameControl(m_slider.m_hWnd, L"明るさ");
  m_slider.SetRange(0, kHighestComponent);
  m_slider.SetPos(m_values.brightness);
  ShowGradation();
  BuildPicture();
  return TRUE;
}

void CEditSelColor::SetColor(COLORREF color) {
  m_color = color;
  __KivComm_RGBtoHSB(GetRValue(color), GetGValue(color), GetBValue(color), &m_values.hue,
                     &m_values.saturation, &m_values.brightness);
  m_slider.SetPos(m_values.brightness);
  ShowGradation();
  BuildPicture();
  m_field.Invalidate();
  InvalidateRect(m_swatchRect);
}

void CEditSelColor::BuildPicture() {
  quorvel::FillHueSaturationPicture({m_pPicture->GetWidth(), m_pPicture->GetHeight()},
                                    m_values.brightness,
                                    [this](int y) { return m_pPicture->GetLineImage(y); });
}

void CEditSelColor::ShowGradation() {
  m_slider.SetGradation(KIVGRADATION_HSB, {m_values.hue, m_values.saturation, 0, 0},
                        {m_values.hue, m_values.saturation, kHighestComponent, 0});
}

void CEditSelColor::OnLButtonDown(UINT /*keys*/, CPoint point) {
  if (m_fieldRect.Contains(point)) {
    ::SetFocus(m_field.m_hWnd);
    m_bDragging = true;
    ::SetCapture(m_hWnd);
    m_ptLastMarker = quorvel::MarkerOfHsb(m_fieldRect, m_values);
  }
}

void CEditSelColor::OnLButtonUp(UINT /*keys*/, CPoint point) {
  if (m_bDragging) {
    ApplyPoint(point);
    m_bDragging = false;
    ::ReleaseCapture();
  }
}

void CEditSelColor::OnMouseMove(UINT /*keys*/, CPoint point) {
  if (m_bDragging) {
    ApplyPoint(point);
  }
}

LRESULT CEditSelColor::OnCaptureChanged(WPARAM wParam, LPARAM lParam) {
  m_bDragging = false;
  return Default(WM_CAPTURECHANGED, wParam, lParam);
}

void CEditSelColor::ApplyPoint(const CPoint& point) {
  const HsbValues picked = quorvel::ValuesAtPoint(m_fieldRect, point, m_values);
  ApplyHueAndSaturation(picked.hue, picked.saturation);
}

void CEditSelColor::ApplyHueAndSaturation(int hue, int saturation) {
  m_ptLastMarker = quorvel::MarkerOfHsb(m_fieldRect, m_values);
  m_values.hue = std::clamp(hue, 0, kHighestHue);
  m_values.saturation = std::clamp(saturation, 0, kHighestComponent);
  TakeColor();
  ShowGradation();
  const CPoint marker = quorvel::MarkerOfHsb(m_fieldRect, m_values);
  CRect changed(std::min(m_ptLastMarker.x, marker.x), std::min(m_ptLastMarker.y, marker.y),
                std::max(m_ptLastMarker.x, marker.x), std::max(m_ptLastMarker.y, marker.y));
  const int reach = quorvel::PixelsAt(m_displayRate, kMarkerReach);
  changed = changed.Grown(reach, reach);
  changed.OffsetRect(m_pictureRect.left - m_fieldRect.left, m_pictureRect.top - m_fieldRect.top);
  m_field.InvalidateRect(changed);
  m_ptLastMarker = marker;
}

void CEditSelColor::OnSlider(const NMHDR& notification) {
  m_values.brightness =
      std::clamp(reinterpret_cast<const NMKIVSLIDER&>(notification).nPos, 0, kHighestComponent);
  TakeColor();
  BuildPicture();
  m_field.Invalidate();
}

void CEditSelColor::TakeColor() {
  int red = 0;
  int green = 0;
  int blue = 0;
  __KivComm_HSBtoRGB(m_values.hue, m_values.saturation, m_values.brightness, &red, &green, &blue);
  m_color = RGB(red, green, blue);
  InvalidateRect(m_swatchRect);
}

void CEditSelColor::OnPaint() {
  const CPaintDC paint(this);
  quorvel::FillFramed(paint.Handle(), m_swatchRect, m_color);
}

void CEditSelColor::PaintField(const CWnd& field) {
  const CPaintDC paint(&field);
  // During a drag only the marker's places are painted again.
  const quorvel::PaintBuffer buffer(paint.Handle(), paint.Area(), &m_fieldMemory);
  const HDC deviceContext = buffer.Handle();
  if (!m_pictureRect.Contains(paint.Area())) {
    quorvel::FillAsBehind(deviceContext, field.m_hWnd);
    if (::GetFocus() == field.m_hWnd) {
      const CRect all = field.GetClientRect();
      ::DrawFocusRect(deviceContext, &all);
    }
  }
  const int width = m_pictureRect.Width();
  const int height = m_pictureRect.Height();
  m_pPicture->StretchDIBit(deviceContext, m_pictureRect.left, m_pictureRect.top, width, height, 0, 0,
                           width, height, SRCCOPY);

  const CRect place(m_pictureRect.TopLeft(), m_fieldRect.Size());
  ::IntersectClipRect(deviceContext, place.left, place.top, place.right, place.bottom);
  const CPoint marker = quorvel::MarkerOfHsb(place, m_values);
  const int line = m_values.brightness < kDarkest ? WHITE_PEN : BLACK_PEN;
  const quorvel::SelectedObject pen(deviceContext, ::GetStockObject(line));
  const quorvel::SelectedObject hollow(deviceContext, ::GetStockObject(NULL_BRUSH));
  const int radius = quorvel::PixelsAt(m_displayRate, kMarkerRadius);
  ::Ellipse(deviceContext, marker.x - radius, marker.y - radius, marker.x + radius,
            marker.y + radius);
}

LRESULT CEditSelColor::Field::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_GETTEXTLENGTH:
    case WM_GETTEXT:
      return quorvel::AnswerWithText(message, wParam, lParam, SpokenText());
    case WM_GETDLGCODE:
      return DLGC_WANTARROWS;
    case WM_KEYDOWN:
      return OnKey(wParam) ? 0 : CWnd::WindowProc(message, wParam, lParam);
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
      Invalidate();
      return 0;
    case WM_ERASEBKGND:
      return TRUE;
    case WM_PAINT:
      m_page.PaintField(*this);
      return 0;
    default:
      return CWnd::WindowProc(message, wParam, lParam);
  }
}

std::wstring CEditSelColor::Field::SpokenText() const {
  return L"色相 " + std::to_wstring(m_page.m_values.hue) + L" 彩度 " +
         std::to_wstring(m_page.m_values.saturation);
}

bool CEditSelColor::Field::OnKey(WPARAM key) {
  const int step = ::GetKeyState(VK_CONTROL) < 0 ? kLargeStep : 1;
  HsbValues values = m_page.m_values;
  switch (key) {
    case VK_LEFT:
      values.hue -= step;
      break;
    case VK_RIGHT:
      values.hue += step;
      break;
    case VK_UP:
      values.saturation -= step;
      break;
    case VK_DOWN:
      values.saturation += step;
      break;
    case VK_HOME:
      values.hue = 0;
      break;
    case VK_END:
      values.hue = kHighestHue;
      break;
    case VK_PRIOR:
      values.saturation = 0;
      break;
    case VK_NEXT:
      values.saturation = kHighestComponent;
      break;
    default:
      return false;
  }
  m_page.ApplyHueAndSaturation(values.hue, values.saturation);
  return true;
}
