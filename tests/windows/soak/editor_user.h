// The random user of all dialogs of the library: besides what can be done to any dialog, what a
// user does to the cells of a page, to files, to the system's dialogs and to menus.
#pragma once

#include "soak/random_user.h"

#include <filesystem>
#include <span>

class CPageEditDlg;

namespace quorvel {
class PageBlock;
}

namespace quorvel::test {

/// Files for the editors to open, some of them no pages, and to save over: a folder of its own, which
/// is as new for each run.
class FilesOfUser {
public:
  FilesOfUser();
  ~FilesOfUser();
  FilesOfUser(const FilesOfUser&) = delete;
  FilesOfUser& operator=(const FilesOfUser&) = delete;

  /// Full paths.
  std::span<const std::wstring> Names() const { return m_names; }

private:
  std::filesystem::path m_folder;
  std::vector<std::wstring> m_names;
};

class EditorUser : public RandomUser {
public:
  /// `lastCommand` ends the last dialog: IDOK or IDCANCEL.
  EditorUser(unsigned seed, int steps, StepRecord& record, WORD lastCommand)
      : RandomUser(seed, steps, record), m_lastCommand(lastCommand) {}
  ~EditorUser() override;
  EditorUser(const EditorUser&) = delete;
  EditorUser& operator=(const EditorUser&) = delete;

protected:
  void Work(HWND dialog) override;
  void DoStep(HWND dialog, HWND window) override;
  void Close(HWND dialog) override;
  std::string FaultNow(HWND dialog) override;
  std::string StateOf(HWND dialog) override;

private:
  void Answer(HWND dialog);
  void AnswerMenu(HWND dialog);
  void AnswerMessageBox(HWND box);
  void AnswerFileDialog(HWND dialog);
  void DoStepInEditor(HWND editor, HWND window);
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
  FilesOfUser m_files;
};

}  // namespace quorvel::test
