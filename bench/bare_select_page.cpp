#include "bench/bare_select_page.h"

#include "kivcomm/color_models.h"
#include "kivfcl/slider_rules.h"
#include "res/ids.h"

#include <algorithm>
#include <array>

namespace quorvel::bench {

namespace {

constexpr const wchar_t* kCanvasClass = L"QuorvelBenchCanvas";
/// Clear of the dialog in the middle of the screen.
constexpr POINT kCorner{20, 700};
constexpr SIZE kFrameSize{400, 250};
constexpr int kMarkerRadius = 3;
constexpr int kFocusFrame = 2;
constexpr int kMarkerReach = 4;
constexpr int kPictureBits = 24;
constexpr int kStripBits = 32;

HMODULE Product() {
  return ::GetModuleHandleW(L"Quorvel.dll");
}

CRect RectOfItem(HWND page, int id) {
  CRect rect;
  ::GetWindowRect(::GetDlgItem(page, id), &rect);
  ::MapWindowPoints(HWND_DESKTOP, page, reinterpret_cast<POINT*>(static_cast<RECT*>(&rect)), 2);
  return rect;
}

/// BeginPaint and EndPaint.
class Painting {
public:
  explicit Painting(HWND window) : m_window(window) { ::BeginPaint(window, &m_paint); }
  ~Painting() { ::EndPaint(m_window, &m_paint); }
  Painting(const Painting&) = delete;
  Painting& operator=(const Painting&) = delete;

  HDC Handle() const { return m_paint.hdc; }
  CRect Area() const { return m_paint.rcPaint; }

private:
  HWND m_window;
  PAINTSTRUCT m_paint{};
};

}  // namespace

BareSelectPage::BareSelectPage(const HsbValues& values) : m_context(Product()), m_values(values) {
  WNDCLASSW description{};
  description.lpfnWndProc = CanvasProc;
  description.lpszClassName = kCanvasClass;
  ::RegisterClassW(&description);
  m_frame.reset(::CreateWindowExW(0, L"STATIC", L"bare", WS_POPUP | WS_CAPTION | WS_VISIBLE,
                                  kCorner.x, kCorner.y, kFrameSize.cx, kFrameSize.cy, nullptr,
                                  nullptr, nullptr, nullptr));
  m_context.Run([&] {
    m_page = ::CreateDialogParamW(Product(), MAKEINTRESOURCEW(IDD_COLOUR_SELECT_PAGE),
                                  m_frame.get(), PageProc, reinterpret_cast<LPARAM>(this));
  });
  m_swatchRect = RectOfItem(m_page, IDC_COLOUR_SWATCH);
  m_fieldRect = RectOfItem(m_page, IDC_COLOUR_FIELD);
  const CSize pictureSize(m_fieldRect.Width() + 1, m_fieldRect.Height() + 1);
  m_pictureRect = {CPoint(kFocusFrame, kFocusFrame), pictureSize};
  m_field = CreateCanvas(CRect(m_fieldRect.TopLeft(), pictureSize).Grown(kFocusFrame, kFocusFrame));
  const CRect sliderRect = RectOfItem(m_page, IDC_COLOUR_BRIGHTNESS);
  m_slider = CreateCanvas(sliderRect);

  const CSize sliderSize = sliderRect.Size();
  m_strip = StripRect(sliderSize);
  m_thumb = ThumbRect(
      PlaceOfPosition(m_values.brightness, {0, kHighestComponent}, TrackOf(sliderSize.cy)),
      sliderSize, true);
  m_picture = std::make_unique<LinePicture>(pictureSize, kPictureBits);
  m_stripColours = std::make_unique<LinePicture>(CSize(1, m_strip.Height() - 2), kStripBits);
  FillHueSaturationPicture(pictureSize, m_values.brightness,
                           [this](int y) { return m_picture->Line(y); });
  FillStrip();
  ::ShowWindow(m_page, SW_SHOWNA);
  ::UpdateWindow(m_page);
}

HWND BareSelectPage::CreateCanvas(const CRect& rect) {
  const HWND canvas =
      ::CreateWindowExW(0, kCanvasClass, L"", WS_CHILD | WS_VISIBLE, rect.left, rect.top,
                        rect.Width(), rect.Height(), m_page, nullptr, nullptr, nullptr);
  ::SetWindowLongPtrW(canvas, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  return canvas;
}

CPoint BareSelectPage::Marker() const {
  return MarkerOfHsb({m_pictureRect.TopLeft(), m_fieldRect.Size()}, m_values);
}

void BareSelectPage::Prepare(const CPoint& point) {
  const CPoint before = Marker();
  m_values = ValuesAtPoint(m_fieldRect, point, m_values);
  const CPoint now = Marker();
  m_changed = CRect(std::min(before.x, now.x), std::min(before.y, now.y),
                    std::max(before.x, now.x), std::max(before.y, now.y))
                  .Grown(kMarkerReach, kMarkerReach);
  const RgbColour colour = MixedColour(TermsOfHue(m_values.hue),
                                       TermsOfTone(m_values.saturation, m_values.brightness));
  m_color = RGB(colour.red, colour.green, colour.blue);
  FillStrip();
}

/// The lowest position's colour is at the bottom.
void BareSelectPage::FillStrip() const {
  const Gradient gradient{GradientModel::kHsb,
                          {m_values.hue, m_values.saturation, 0, 0},
                          {m_values.hue, m_values.saturation, kHighestComponent, 0}};
  const int length = m_strip.Height() - 2;
  CRect slider;
  ::GetClientRect(m_slider, &slider);
  int y = length;
  for (const RgbColour& colour :
       StripColours(gradient, TrackOf(slider.Height()), m_strip.top + 1, length)) {
    BYTE* const pixel = m_stripColours->Line(--y);
    pixel[0] = static_cast<BYTE>(colour.blue);
    pixel[1] = static_cast<BYTE>(colour.green);
    pixel[2] = static_cast<BYTE>(colour.red);
  }
}

INT_PTR CALLBACK BareSelectPage::PageProc(HWND window, UINT message, WPARAM /*wParam*/,
                                          LPARAM lParam) {
  if (message == WM_INITDIALOG) {
    ::SetWindowLongPtrW(window, DWLP_USER, lParam);
    return FALSE;
  }
  const auto* const page =
      reinterpret_cast<const BareSelectPage*>(::GetWindowLongPtrW(window, DWLP_USER));
  if (message == WM_MOUSEMOVE) {
    page->Apply();
    return TRUE;
  }
  if (message == WM_PAINT) {
    page->PaintSwatch();
    return TRUE;
  }
  return FALSE;
}

LRESULT CALLBACK BareSelectPage::CanvasProc(HWND window, UINT message, WPARAM wParam,
                                            LPARAM lParam) {
  const auto* const page =
      reinterpret_cast<const BareSelectPage*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
  if (message != WM_PAINT || page == nullptr) {
    return ::DefWindowProcW(window, message, wParam, lParam);
  }
  if (window == page->m_field) {
    page->PaintField();
  } else {
    page->PaintSlider();
  }
  return 0;
}

void BareSelectPage::Apply() const {
  ::InvalidateRect(m_page, &m_swatchRect, FALSE);
  ::InvalidateRect(m_slider, nullptr, FALSE);
  ::InvalidateRect(m_field, &m_changed, FALSE);
}

void BareSelectPage::PaintSwatch() const {
  const Painting paint(m_page);
  FillFramed(paint.Handle(), m_swatchRect, m_color);
}

void BareSelectPage::PaintField() const {
  const Painting paint(m_field);
  const CRect area = paint.Area();
  if (!m_pictureRect.Contains(area)) {
    CRect all;
    ::GetClientRect(m_field, &all);
    ::FillRect(paint.Handle(), &all, ::GetSysColorBrush(COLOR_BTNFACE));
    ::DrawFocusRect(paint.Handle(), &all);
  }
  ::BitBlt(paint.Handle(), m_pictureRect.left, m_pictureRect.top, m_pictureRect.Width(),
           m_pictureRect.Height(), m_picture->Handle(), 0, 0, SRCCOPY);
  const SelectedObject pen(paint.Handle(), ::GetStockObject(BLACK_PEN));
  const SelectedObject hollow(paint.Handle(), ::GetStockObject(NULL_BRUSH));
  const CPoint marker = Marker();
  ::Ellipse(paint.Handle(), marker.x - kMarkerRadius, marker.y - kMarkerRadius,
            marker.x + kMarkerRadius, marker.y + kMarkerRadius);
}

void BareSelectPage::PaintSlider() const {
  const Painting paint(m_slider);
  CRect all;
  ::GetClientRect(m_slider, &all);
  FillSolid(paint.Handle(), all, ::GetSysColor(COLOR_BTNFACE));
  FrameSolid(paint.Handle(), m_strip, ::GetSysColor(COLOR_BTNSHADOW));
  const CRect inner = m_strip.Grown(-1, -1);
  ::StretchBlt(paint.Handle(), inner.left, inner.top, inner.Width(), inner.Height(),
               m_stripColours->Handle(), 0, 0, 1, inner.Height(), SRCCOPY);
  int depth = 0;
  for (const COLORREF color : {RGB(0, 0, 0), RGB(255, 255, 255), RGB(0, 0, 0)}) {
    FrameSolid(paint.Handle(), m_thumb.Grown(-depth, -depth), color);
    ++depth;
  }
}

}  // namespace quorvel::bench
