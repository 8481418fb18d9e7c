// Random messages for the layout editors: those of any dialog, and what a user does to the cells of
// a page besides; what an editor opens is worked a little and cancelled or confirmed.
//
//   class GridMessages : public EditorMessages { ... };   // says what its editor has
#pragma once

#include "dialogs/layout/page_block.h"
#include "driver/modal_script.h"
#include "support/random_messages.h"

#include <span>
#include <vector>

namespace quorvel::test {

/// A field for a number that is read when it is left.
struct NumberField {
  int id;
  bool isCount;  ///< of rows or columns, not a length
};

class EditorMessages : public RandomMessages {
public:
  /// `lastCommand` ends the last editor.
  EditorMessages(unsigned seed, int count, WORD lastCommand)
      : RandomMessages(seed, count), m_lastCommand(lastCommand) {}
  ~EditorMessages() override;
  EditorMessages(const EditorMessages&) = delete;
  EditorMessages& operator=(const EditorMessages&) = delete;

protected:
  virtual bool IsEditor(HWND dialog) const = 0;
  /// The controls that show its cells; at least one.
  virtual std::vector<HWND> PicturesOf(HWND editor) const = 0;
  /// Whether the fields are there does not matter.
  virtual std::span<const NumberField> NumberFields() const = 0;
  /// A command of the tool bar or of the menu of cells.
  virtual int CelCommand() = 0;
  /// A dialog that is not an editor: colours and fonts are confirmed now and then. Files are not:
  /// they would be the machine's.
  virtual void Answer(HWND dialog);

  void Work(HWND dialog) override;
  void SendOne(HWND dialog, HWND window) override;
  void Close(HWND dialog) override;

private:
  void AnswerMenu(HWND dialog);
  void EndNowAndThen(HWND editor);
  CRect PictureOf(HWND editor);
  void SendMouseToPicture(HWND editor);
  void SendDrag(HWND editor);
  void SendCelCommand(HWND editor);
  void Insert(HWND editor);
  void LeaveNumber(HWND editor);
  void SendKey(HWND editor);
  void TypeIntoCel(HWND editor);

  WORD m_lastCommand;
};

/// An even number: a border lies in the middle of the page.
inline constexpr BYTE kRowsForOpenings = 6;
/// Steps that drag the border in the middle of an editor's picture, select the cell below it, open
/// the dialog of each command, then one for a number that is refused and the menu, cancel them, and
/// cancel the editor. `imageId` is the picture's control, which only the editor has; it shows
/// kRowsForOpenings rows. `countId` is a field whose number is kRowsForOpenings; 0 for none.
void OpenEach(driver::ModalScript& script, int imageId, const std::vector<int>& commands,
              int countId);

/// Whether a length is a number that a page takes.
bool IsLength(double length);

/// Lengths that a page takes; each grid position belongs to one cell, to itself or to the one that
/// covers it; texts of whole characters. Reported as failures of the running test.
void ExpectSoundCels(const PageBlock& block);

}  // namespace quorvel::test
