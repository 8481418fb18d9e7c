// Draws the cells of a page.
//
//   CelPainter painter(deviceContext, CelStyle::kFramed, {scale, dots});
//   painter.Draw(*cel, rect, kNormalCel);
#pragma once

#include "dialogs/layout/page_geometry.h"
#include "framework/device_context.h"
#include "kivdata/layout_cel_data.h"
#include "kivfcl/drawing_objects.h"

#include <optional>

namespace quorvel {

enum class CelStyle {
  kFramed,  ///< a closed frame; the text stands on the cell's colour
  kRuled,   ///< each edge by itself, hidden ones dotted; a selected cell is tinted
};

/// How a cell is marked. Any other number is drawn, too: framed cells in magenta, ruled ones with
/// edges in their own background colour.
inline constexpr int kNormalCel = 0;
inline constexpr int kSelectedCel = 1;

/// What the size of a cell's letters depends on.
struct TextScale {
  double scale;
  DotsPerInch dots;
  /// Letters are 11 pixels high, on a display at 100 %, at any scale of the page.
  bool fixedHeight = false;
};

/// The font of a cell as it is drawn.
LOGFONTA ScaledCelFont(const CKivFontEx& font, const TextScale& scale);

/// One after the other; the device context is as before when the painter is gone.
class CelPainter {
public:
  CelPainter(HDC deviceContext, CelStyle style, const TextScale& scale);
  ~CelPainter();
  CelPainter(const CelPainter&) = delete;
  CelPainter& operator=(const CelPainter&) = delete;

  /// The frame reaches one pixel of a display at 100 % out of `rect`; a text that does not fit is
  /// cut off at it. Of what lies outside `part` some is left out.
  void Draw(const CLayoutCelData& cel, const CRect& rect, int kind, const CRect& part);

private:
  struct Pen {
    int style;
    int width;
    COLORREF color;
    bool operator==(const Pen&) const = default;
  };

  struct MadePen {
    Pen like{};
    OwnedPen pen;
  };

  bool ShowsText(const CLayoutCelData& cel, const CRect& rect, const CRect& part) const;
  void DrawCelText(const CLayoutCelData& cel, CRect rect);
  void DrawFrame(const CRect& rect, int kind);
  void DrawEdges(const CLayoutCelData& cel, const CRect& rect, int kind);
  void UseFont(const LOGFONTA& font);
  void UsePen(const Pen& pen);

  HDC m_hDC;
  CelStyle m_style;
  TextScale m_scale;
  int m_nLineWidth;
  COLORREF m_previousText;
  COLORREF m_previousBack;
  int m_nPreviousMode;
  // Neighbours are alike: what the last cell needed is kept.
  LOGFONTA m_logFont{};
  std::optional<CFontEx> m_font;
  MadePen m_linePen;    ///< of whole lines
  MadePen m_dottedPen;  ///< each cell may need both
  SelectedObject m_previousPen;
};

}  // namespace quorvel
