// The least that a step of a drag in the colour picker's field can cost.
#pragma once

#include "bench/bare_window.h"
#include "dialogs/colour/picker_rules.h"
#include "driver/dialog_owner.h"

#include <array>
#include <string>
#include <utility>
#include <vector>

namespace quorvel::bench {

/// The picker's template run by the platform alone, without a modal loop, with a procedure that at a
/// mouse move
/// - sets those number fields and bars that the step changes, to texts and positions made before,
/// - has the field, the bar and the swatch painted whole, straight onto the window: one blit of the
///   same picture and the marker's strokes with a pen made before; 32 fills and one for the rest; a
///   fill and a frame.
/// It reads, computes and buffers nothing.
class BarePicker {
public:
  /// Shows `colour` at first. Owned by the window `owner`, away from the middle of the screen.
  BarePicker(HWND owner, const RgbColour& colour);
  BarePicker(const BarePicker&) = delete;
  BarePicker& operator=(const BarePicker&) = delete;

  HWND Window() const { return m_window.get(); }

  /// Makes what the next mouse move shows: a point of the field is picked, which has this size.
  void Prepare(const CPoint& point, const CSize& field);

private:
  static INT_PTR CALLBACK Proc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

  void ShowFirst();
  void Note(int editId, int barId, int before, int now);
  void Apply() const;
  void Draw(const DRAWITEMSTRUCT& item) const;

  driver::ModuleContext m_context;
  RgbColour m_colour;
  PickerValues m_values;
  std::vector<std::pair<int, std::wstring>> m_texts;
  std::vector<std::pair<int, int>> m_positions;
  std::vector<Segment> m_strokes;
  std::array<RgbColour, kBarBands> m_bands{};
  OwnedPen m_pen;
  std::unique_ptr<ReadyPicture> m_picture;
  OwnedWindow m_window;
};

}  // namespace quorvel::bench
