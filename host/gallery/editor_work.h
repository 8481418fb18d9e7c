// What the tours of the layout editors have in common: where cells are on the screen, and what a
// user does to them.
//
//   Drag(editor, CentreOf(editor, kImageId, block, 0, 1), CentreOf(editor, kImageId, block, 2, 1));
//   Then(script, kTitle, [](HWND editor) { PressTool(editor, 31009); });
#pragma once

#include "dialogs/layout/page_block.h"
#include "driver/modal_script.h"

#include <filesystem>
#include <string>

namespace quorvel::gallery {

/// A folder of the tour's own, which is removed in the end.
class TourFolder {
public:
  TourFolder() = default;
  ~TourFolder();
  TourFolder(const TourFolder&) = delete;
  TourFolder& operator=(const TourFolder&) = delete;

  void Begin();
  std::filesystem::path File(const wchar_t* name) const;

private:
  std::filesystem::path m_folder;
};

/// The real mouse, for what comes only where it stands.
class BorrowedMouse {
public:
  /// A point of the dialog, client pixels.
  void MoveTo(HWND dialog, POINT point);
  /// To where it was before.
  void GiveBack() const;

private:
  POINT m_before{};
};

/// A point of the dialog by millimetres from the top-left corner of a block, which is looked for in
/// the control's picture as a user sees it: all that is not the grey around it. `block` has the
/// lengths that the dialog shows.
POINT PointAt(HWND dialog, int imageId, const PageBlock& block, double across, double down);
POINT CentreOf(HWND dialog, int imageId, const PageBlock& block, int row, int col);

/// Presses and moves; the button stays down.
void DragWithoutRelease(HWND dialog, POINT from, POINT to);
/// Whether the lengths beside a dragged border are to be read.
bool IsReadOutInSight();

/// A click on the tool bar's button for a command. Throws if there is none or it is disabled.
void PressTool(HWND dialog, UINT command);

/// Goes on once what was done so far is to be seen in the dialog of this title.
void Then(driver::ModalScript& script, const wchar_t* title, driver::ModalScript::Action action);
/// In the system's dialog for files that comes next.
void EnterFileName(driver::ModalScript& script, const std::filesystem::path& file);
/// Opens the list of insertions and clicks an entry, counted from 1.
void PickInsertion(driver::ModalScript& script, const wchar_t* title, int entry);

}  // namespace quorvel::gallery
