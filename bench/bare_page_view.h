// The least that painting and working the layout editor's picture of a page can cost.
#pragma once

#include "bench/bare_window.h"
#include "dialogs/layout/page_geometry.h"

#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

namespace quorvel::bench {

/// A plain window as large as the editor's picture. It has the rectangles, the texts and a picture
/// in memory made before, and one look for all cells. It
/// - paints the page whole into the picture and blits it: grey, white, then of each cell a fill,
///   the text and the frame, with one font and one pen that are made each time;
/// - paints one selected cell alone;
/// - at a mouse move erases the guide line, draws it elsewhere and sets a read-out: the text, and a
///   timer that begins anew.
class BarePageView {
public:
  /// Away from the middle of the screen. All cells of `page` have the font of the first one.
  BarePageView(const CLayoutPageData& page, const CSize& size);
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
  void PaintCel(HDC deviceContext, std::size_t index) const;
  void MoveGuide();
  void ToggleGuides(std::initializer_list<int> heights) const;

  std::vector<CRect> m_rects;
  std::vector<std::wstring> m_texts;
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
