// The least that painting and working the layout editor's picture of a page can cost.
#pragma once

#include "bench/bare_window.h"
#include "dialogs/layout/cel_painter.h"
#include "dialogs/layout/page_geometry.h"

#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

namespace quorvel::bench {

/// As large as a block of cells fits into a picture.
FittedPage FitInto(const PageBlock& block, const CSize& picture);
/// In the middle of the picture at a scale.
FittedPage PlaceIn(const PageBlock& block, const CSize& picture, double scale);

/// A plain window as large as the editor's picture. It has the rectangles, the texts and a picture
/// in memory made before, and one font and colour for all cells. It
/// - paints the page whole into the picture and blits it: grey, white, then of each cell a fill,
///   the text and the lines, with one font and one pen that are made each time: a frame in one go,
///   or each edge by itself, first the shown ones, then the hidden ones with a second pen;
/// - paints one selected cell with a frame alone;
/// - at a mouse move erases the guide line, draws it elsewhere and sets a read-out: the text, and a
///   timer that begins anew.
class BarePageView {
public:
  /// Where nothing else is said, away from the middle of the screen. All cells have the font of the
  /// first one.
  BarePageView(const PageBlock& block, CelStyle style, const CSize& size, const FittedPage& fitted,
               const CPoint& corner = {20, 850});
  ~BarePageView() = default;
  BarePageView(const BarePageView&) = delete;
  BarePageView& operator=(const BarePageView&) = delete;

  HWND Window() const { return m_window.get(); }

  const CRect& RectOf(int index) const { return m_rects[static_cast<std::size_t>(index)]; }

  /// Cell `index` is painted as selected, alone from now on, with its text at that place (DT_*).
  void SelectCel(int index, UINT verticalPlace);
  /// The cell's rectangle and what its lines reach.
  CRect SelectedArea() const;

  /// Draws the guide line at a height of the picture.
  void TakeGuide(int y);
  /// What the next mouse move shows.
  void Prepare(int y, std::wstring readOut);

private:
  static LRESULT CALLBACK Proc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

  void Paint() const;
  void PaintPage(HDC deviceContext) const;
  void PaintRuledPage(HDC deviceContext) const;
  void PaintCel(HDC deviceContext, std::size_t index) const;
  void PaintText(HDC deviceContext, std::size_t index) const;
  void MoveGuide();
  void ToggleGuides(std::initializer_list<int> heights) const;

  /// An edge of a cell.
  struct Edge {
    CPoint from;
    CPoint to;
  };
  /// Of one cell.
  struct Edges {
    std::vector<Edge> shown;
    std::vector<Edge> hidden;
  };
  static Edges EdgesOf(const CLayoutCelData& cel, const CRect& rect);
  static void DrawEdges(HDC deviceContext, HPEN pen, const std::vector<Edge>& edges);

  CelStyle m_style;
  std::vector<CRect> m_rects;
  std::vector<std::wstring> m_texts;
  std::vector<Edges> m_edges;
  CRect m_all;
  CRect m_pageArea;
  LOGFONTA m_font{};
  COLORREF m_textColor = 0;
  COLORREF m_backColor = 0;
  std::optional<std::size_t> m_selected;
  UINT m_verticalPlace = DT_TOP;
  OwnedPen m_guidePen;
  int m_guide = 0;
  int m_nextGuide = 0;
  std::wstring m_nextReadOut;
  std::wstring m_readOut;
  std::unique_ptr<ReadyPicture> m_picture;
  OwnedWindow m_window;
};

}  // namespace quorvel::bench
