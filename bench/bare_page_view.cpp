#include "bench/bare_page_view.h"

#include "dialogs/layout/cel_painter.h"
#include "framework/code_page.h"

#include <array>

namespace quorvel::bench {

namespace {

constexpr const wchar_t* kClass = L"QuorvelBenchPage";
/// Clear of the dialog in the middle of the screen.
constexpr CPoint kCorner{20, 850};
constexpr COLORREF kAround = RGB(0xBF, 0xBF, 0xBF);
constexpr COLORREF kPaper = RGB(0xFF, 0xFF, 0xFF);
constexpr COLORREF kGuideColor = RGB(0x80, 0x80, 0x80);
constexpr COLORREF kBlack = RGB(0, 0, 0);
constexpr COLORREF kRed = RGB(0xFF, 0, 0);
constexpr int kLineWidth = 2;
constexpr int kLineReach = 1;
constexpr UINT_PTR kTimer = 1;

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

DotsPerInch DotsOf(HWND window) {
  const HDC deviceContext = ::GetDC(window);
  const DotsPerInch dots{static_cast<double>(::GetDeviceCaps(deviceContext, LOGPIXELSX)),
                         static_cast<double>(::GetDeviceCaps(deviceContext, LOGPIXELSY))};
  ::ReleaseDC(window, deviceContext);
  return dots;
}

OwnedBitmap MakePicture(const CSize& size) {
  constexpr WORD kBits = 32;
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = size.cx;
  info.bmiHeader.biHeight = size.cy;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = kBits;
  void* pixels = nullptr;
  return OwnedBitmap(::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &pixels, nullptr, 0));
}

}  // namespace

BarePageView::BarePageView(const CLayoutPageData& page, const CSize& size)
    : m_all({0, 0}, size),
      m_guidePen(::CreatePen(PS_DOT, 1, kGuideColor)),
      m_picture(std::make_unique<ReadyPicture>(MakePicture(size))) {
  WNDCLASSW description{};
  description.lpfnWndProc = Proc;
  description.lpszClassName = kClass;
  ::RegisterClassW(&description);
  m_window.reset(::CreateWindowExW(0, kClass, L"", WS_POPUP, kCorner.x, kCorner.y, size.cx, size.cy,
                                   nullptr, nullptr, nullptr, nullptr));
  const DotsPerInch dots = DotsOf(Window());
  const FittedPage fitted =
      FitPage(m_all, {page.GetAllLengthCol(), page.GetAllLengthRow()}, dots);
  m_pageArea = fitted.area;
  m_rects.resize(static_cast<std::size_t>(page.GetCelSize()));
  page.InitCelRect(&m_pageArea, m_rects.data());
  for (int index = 0; index < page.GetCelSize(); ++index) {
    m_texts.push_back(WideFromCodePage(page.GetCelAt(index)->TextView()));
  }
  const CKivFontEx& font = *page.GetCelAt(0)->GetFont();
  m_font = ScaledCelFont(font, {fitted.scale, dots});
  m_textColor = font.GetColor();
  m_backColor = font.GetBackColor();
  ::SetWindowLongPtrW(Window(), GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  ::ShowWindow(Window(), SW_SHOWNOACTIVATE);
  ::UpdateWindow(Window());
}

void BarePageView::SelectCel(int index, UINT verticalPlace) {
  m_selected = static_cast<std::size_t>(index);
  m_verticalPlace = verticalPlace;
}

CRect BarePageView::SelectedArea() const {
  return m_rects[*m_selected].Grown(kLineReach, kLineReach);
}

void BarePageView::TakeGuide(int y) {
  m_guide = y;
  ToggleGuides({y});
}

void BarePageView::Prepare(int y, std::wstring readOut) {
  m_nextGuide = y;
  m_nextReadOut = std::move(readOut);
}

LRESULT CALLBACK BarePageView::Proc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  auto* const view = reinterpret_cast<BarePageView*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
  if (view != nullptr && message == WM_PAINT) {
    view->Paint();
    return 0;
  }
  if (view != nullptr && message == WM_MOUSEMOVE) {
    view->MoveGuide();
    return 0;
  }
  return ::DefWindowProcW(window, message, wParam, lParam);
}

void BarePageView::Paint() const {
  const Painting paint(Window());
  const CRect area = paint.Area();
  PaintPage(m_picture->Handle());
  ::BitBlt(paint.Handle(), area.left, area.top, area.Width(), area.Height(), m_picture->Handle(),
           area.left, area.top, SRCCOPY);
}

void BarePageView::PaintPage(HDC deviceContext) const {
  const CFontEx font(deviceContext, m_font);
  const CPenEx pen(deviceContext, PS_SOLID, kLineWidth, m_selected ? kRed : kBlack);
  ::SetBkMode(deviceContext, OPAQUE);
  ::SetTextColor(deviceContext, m_textColor);
  ::SetBkColor(deviceContext, m_backColor);
  if (m_selected) {
    PaintCel(deviceContext, *m_selected);
    return;
  }
  FillSolid(deviceContext, m_all, kAround);
  FillSolid(deviceContext, m_pageArea, kPaper);
  for (std::size_t index = 0; index < m_rects.size(); ++index) {
    PaintCel(deviceContext, index);
  }
}

void BarePageView::PaintCel(HDC deviceContext, std::size_t index) const {
  CRect rect = m_rects[index];
  FillSolid(deviceContext, rect, m_backColor);
  ::DrawTextW(deviceContext, m_texts[index].c_str(), static_cast<int>(m_texts[index].size()), &rect,
              m_verticalPlace | DT_LEFT | DT_SINGLELINE);
  const std::array<POINT, 5> corners{{{rect.left, rect.top},
                                      {rect.left, rect.bottom},
                                      {rect.right, rect.bottom},
                                      {rect.right, rect.top},
                                      {rect.left, rect.top}}};
  ::Polyline(deviceContext, corners.data(), static_cast<int>(corners.size()));
}

void BarePageView::MoveGuide() {
  ToggleGuides({m_guide, m_nextGuide});
  m_guide = m_nextGuide;
  m_readOut = m_nextReadOut;
  ::KillTimer(Window(), kTimer);
  ::SetTimer(Window(), kTimer, 0, nullptr);
}

void BarePageView::ToggleGuides(std::initializer_list<int> heights) const {
  const HDC deviceContext = ::GetDC(Window());
  {
    const SelectedObject pen(deviceContext, m_guidePen.get());
    ::SetROP2(deviceContext, R2_XORPEN);
    ::SetBkMode(deviceContext, TRANSPARENT);
    for (const int y : heights) {
      ::MoveToEx(deviceContext, m_pageArea.left, y, nullptr);
      ::LineTo(deviceContext, m_pageArea.right, y);
    }
  }
  ::ReleaseDC(Window(), deviceContext);
}

}  // namespace quorvel::bench
