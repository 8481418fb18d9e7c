// CPageView: the picture of a page, or of one block of it, in a control of a layout editor.
//
//   CPageView m_view{m_block, CelStyle::kFramed};
//   m_view.Attach(IDC_LAYOUT_IMAGE, this);   // in OnInitDialog
//   m_view.LayOut();                         // at first, and after each change of lengths or counts
//   m_view.InvalidateCels(SetVerticalPlace(m_block, 2));
#pragma once

#include "dialogs/layout/cel_commands.h"
#include "dialogs/layout/cel_painter.h"
#include "dialogs/layout/page_geometry.h"
#include "framework/controls.h"
#include "framework/device_context.h"

#include <optional>
#include <vector>

/// Paints the page and the guide line of the border that is being dragged; what the mouse does is up
/// to the dialog, which gets its messages. Points and rectangles are in the control's client pixels
/// where nothing else is said.
class CPageView : public CStatic {
public:
  /// `block` must outlive the view. Where its shape changes, as an editor above this one does it,
  /// there are no cells and no borders until the view is laid out again, or painted.
  CPageView(quorvel::PageBlock& block, quorvel::CelStyle style) : m_block(block), m_style(style) {}

  /// Takes the control and lays it above its siblings, among which a group box encloses it.
  void Attach(UINT id, CWnd* dialog);

  quorvel::PageBlock& Block() const { return m_block; }

  /// Fits the page into the control and has it painted. Nothing is painted before the first time.
  void LayOut();
  /// The same at a scale that pages share.
  void LayOutAt(double scale);
  /// The largest scale at which the page fits.
  double ScaleToFit() const;
  void InvalidateCels(const quorvel::CelList& cels) const;

  /// The control's window in the dialog's client pixels: where the mouse counts.
  const CRect& DialogArea() const { return m_dialogArea; }
  CPoint FromDialog(const CPoint& point) const;
  CRect ToDialog(const CRect& rect) const;

  /// -1 where there is no cell. Each cell is taken smaller by `margin`, at 100 %, on both sides.
  int CelAt(const CPoint& point, const CSize& margin = {}) const;
  /// None for a covered cell.
  std::optional<CRect> RectOf(int index) const;

  /// Letters are 11 pixels high at any scale instead of as high as they are.
  void SetFixedTextHeight(bool fixed);
  /// A ruled cell that is edited in place is not painted; -1 for none.
  void SetEditedCel(int index);

  /// Takes hold of the border at a point and draws the guide line; false where there is none.
  bool TakeBorder(const CPoint& point);
  /// Moves the guide line. The lengths that the border gives there; none at a limit or beyond it,
  /// where the guide line stays.
  std::optional<quorvel::PairOfLengths> DragBorder(const CPoint& point);
  /// The border that is held.
  const std::optional<quorvel::BorderDrag>& Border() const { return m_border; }
  /// Gives the two rows or columns the lengths at the guide line.
  void StoreBorder();
  /// Lets the border go and erases the guide line.
  void DropBorder();

protected:
  void OnPaint();
  LRESULT OnEraseBackground(WPARAM wParam, LPARAM lParam);

  DECLARE_MESSAGE_MAP()

private:
  double Rate() const { return quorvel::RateOf(m_dots); }
  CRect WithLines(const CRect& cel) const;
  quorvel::SizeInMm PageSize() const { return {m_block.Width(), m_block.Height()}; }
  void Place(const quorvel::FittedPage& page);
  void FillTable();
  bool IsTableOfBlock() const;
  void Paint(HDC deviceContext, const CRect& part) const;
  void PaintCels(quorvel::CelPainter& painter, const CRect& part, int kind) const;
  void DrawGuide(HDC deviceContext) const;
  void ToggleGuide() const;

  quorvel::PageBlock& m_block;
  quorvel::CelStyle m_style;
  CRect m_dialogArea;
  quorvel::DotsPerInch m_dots{};
  quorvel::FittedPage m_page{{}, 1.0};
  std::vector<CRect> m_table;
  CSize m_tableShape;  ///< columns and rows
  bool m_bLaidOut = false;
  std::optional<quorvel::BorderDrag> m_border;
  int m_nEditedCel = -1;
  bool m_bFixedTextHeight = false;
  quorvel::PaintMemory m_memory;
};
