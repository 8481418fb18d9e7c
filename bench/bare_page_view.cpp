#include "bench/bare_page_view.h"

#include "framework/code_page.h"

#include <array>

namespace quorvel::bench {

namespace {

constexpr const wchar_t* kClass = L"QuorvelBenchPage";
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

DotsPerInch DotsOfScreen() {
  const HDC deviceContext = ::GetDC(nullptr);
  const DotsPerInch dots{static_cast<double>(::GetDeviceCaps(deviceContext, LOGPIXELSX)),
                         static_cast<double>(::GetDeviceCaps(deviceContext, LOGPIXELSY))};
  ::ReleaseDC(nullptr, deviceContext);
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

FittedPage FitInto(const PageBlock& block, const CSize& picture) {
  return FitPage({{0, 0}, picture}, {block.Width(), block.Height()}, DotsOfScreen());
}

FittedPage PlaceIn(const PageBlock& block, const CSize& picture, double scale) {
  return PlacePage({{0, 0}, picture}, {block.Width(), block.Height()}, DotsOfScreen(), scale);
}

BarePageView::BarePageView(const PageBlock& block, CelStyle style, const CSize& size,
                           const FittedPage& fitted, const CPoint& corner)
    : m_style(style),
      m_rects(RectTable(block, fitted.area)),
      m_all({0, 0}, size),
      m_pageArea(fitted.area),
      m_guidePen(::CreatePen(PS_DOT, 1, kGuideColor)),
      m_picture(std::make_unique<ReadyPicture>(MakePicture(size))) {
  WNDCLASSW description{};
  description.lpfnWndProc = Proc;
  description.lpszClassName = kClass;
  ::RegisterClassW(&description);
  m_window.reset(::CreateWindowExW(0, kClass, L"", WS_POPUP, corner.x, corner.y, size.cx, size.cy,
                                   nullptr, nullptr, nullptr, nullptr));
  for (std::size_t index = 0; index < m_rects.size(); ++index) {
    const CLayoutCelData& cel = *block.CelAt(static_cast<int>(index));
    m_texts.push_back(WideFromCodePage(cel.TextView()));
    m_edges.push_back(EdgesOf(cel, m_rects[index]));
  }
  const CKivFontEx& font = *block.CelAt(0)->GetFont();
  m_font = ScaledCelFont(font, {fitted.scale, DotsOfScreen()});
  m_textColor = font.GetColor();
  m_backColor = font.GetBackColor();
  ::SetWindowLongPtrW(Window(), GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  ::ShowWindow(Window(), SW_SHOWNOACTIVATE);
  ::UpdateWindow(Window());
}

BarePageView::Edges BarePageView::EdgesOf(const CLayoutCelData& cel, const CRect& rect) {
  const CPoint topRight(rect.right, rect.top);
  const CPoint bottomLeft(rect.left, rect.bottom);
  const CPoint bottomRight(rect.right, rect.bottom);
  Edges edges;
  const auto add = [&edges](int shown, const Edge& edge) {
    (shown != 0 ? edges.shown : edges.hidden).push_back(edge);
  };
  add(cel.GetShowLineVT(), {rect.TopLeft(), topRight});
  add(cel.GetShowLineVB(), {bottomLeft, bottomRight});
  add(cel.GetShowLineHR(), {topRight, bottomRight});
  add(cel.GetShowLineHL(), {rect.TopLeft(), bottomLeft});
  return edges;
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
  if (m_style == CelStyle::kRuled) {
    PaintRuledPage(m_picture->Handle());
  } else {
    PaintPage(m_picture->Handle());
  }
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

void BarePageView::PaintRuledPage(HDC deviceContext) const {
  const CFontEx font(deviceContext, m_font);
  const OwnedPen solid(::CreatePen(PS_SOLID, kLineWidth, kBlack));
  const OwnedPen dotted(::CreatePen(PS_DOT, 1, kBlack));
  const SelectedObject pen(deviceContext, solid.get());  // whichever is selected goes with it
  ::SetBkMode(deviceContext, TRANSPARENT);
  ::SetTextColor(deviceContext, m_textColor);
  FillSolid(deviceContext, m_all, kAround);
  FillSolid(deviceContext, m_pageArea, kPaper);
  for (std::size_t index = 0; index < m_rects.size(); ++index) {
    PaintText(deviceContext, index);
    DrawEdges(deviceContext, solid.get(), m_edges[index].shown);
    DrawEdges(deviceContext, dotted.get(), m_edges[index].hidden);
  }
}

void BarePageView::DrawEdges(HDC deviceContext, HPEN pen, const std::vector<Edge>& edges) {
  if (!edges.empty()) {
    ::SelectObject(deviceContext, pen);
  }
  for (const Edge& edge : edges) {
    ::MoveToEx(deviceContext, edge.from.x, edge.from.y, nullptr);
    ::LineTo(deviceContext, edge.to.x, edge.to.y);
  }
}

void BarePageView::PaintText(HDC deviceContext, std::size_t index) const {
  CRect rect = m_rects[index];
  FillSolid(deviceContext, rect, m_backColor);
  ::DrawTextW(deviceContext, m_texts[index].c_str(), static_cast<int>(m_texts[index].size()), &rect,
              m_verticalPlace | DT_LEFT | DT_SINGLELINE);
}

void BarePageView::PaintCel(HDC deviceContext, std::size_t index) const {
  PaintText(deviceContext, index);
  const CRect& rect = m_rects[index];
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
