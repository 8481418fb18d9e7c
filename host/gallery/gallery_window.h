// The gallery's window: the settings of a drawing, each with a button that opens its dialog and the
// value in hand as a user sees it, on pages; below them a log of the calls.
//
//   GalleryWindow window(AllExhibits());
//   window.LoadSettings();
//   window.RunMessageLoop();
//   window.SaveSettings();
#pragma once

#include "gallery/exhibit.h"

#include <memory>
#include <string>
#include <vector>

namespace quorvel::gallery {

/// What became of one run of an exhibit.
struct RunReport {
  Outcome outcome;
  /// The value in hand afterwards.
  std::wstring value;
  /// Both and the value before, as the log shows it.
  std::wstring line;
};

class GalleryWindow {
public:
  /// Creates and shows the window; throws std::runtime_error if it cannot.
  explicit GalleryWindow(std::vector<Exhibit> exhibits);
  ~GalleryWindow() = default;
  GalleryWindow(const GalleryWindow&) = delete;
  GalleryWindow& operator=(const GalleryWindow&) = delete;

  HWND Handle() const { return m_window.get(); }
  const std::vector<Exhibit>& Exhibits() const { return m_exhibits; }

  /// The values and the page of the last run, where they were kept; the others stay.
  void LoadSettings();
  void SaveSettings() const;

  void ShowGroup(Group group);

  /// Ticks or unticks the option for the point dialogs.
  void AllowMousePick(bool allow);

  /// Does what the exhibit's button does: shows its page, opens its dialog, shows the new value, logs
  /// the run.
  RunReport Run(std::size_t index);

  /// Returns when the user has closed the window.
  void RunMessageLoop();

private:
  /// The controls of one exhibit.
  struct Row {
    HWND button;
    HWND value;
    /// What the button calls, for programmers.
    HWND entry;
    /// Shows the colour in hand or the value's preview; null where there is neither.
    HWND picture;
  };

  struct WindowDestroyer {
    using pointer = HWND;
    void operator()(HWND window) const { DestroyWindow(window); }
  };

  static INT_PTR CALLBACK OnMessage(HWND window, UINT message, WPARAM wParam,
                                    LPARAM lParam) noexcept;
  INT_PTR Answer(UINT message, WPARAM wParam, LPARAM lParam);

  bool OnCommand(int id, int notification);
  /// The names of entries are grey.
  static INT_PTR OnColorStatic(WPARAM deviceContext, LPARAM control);
  bool OnDrawItem(const DRAWITEMSTRUCT& item) const;

  void CreateControls();
  Row CreateRow(std::size_t index);
  HWND CreateControl(const wchar_t* className, const std::wstring& text, DWORD style, int id);
  void MeasureLabels();
  void LayOut();
  /// The page's rows from `top` on; where they end.
  int LayOutRows(int left, int top, int right) const;
  int HeightOfRow(const Exhibit& exhibit) const;
  int HeightOfHighestPage() const;
  int PictureWidth(const Exhibit& exhibit) const;
  void LimitSize(MINMAXINFO& info) const;
  void ShowValue(std::size_t index);
  void ResetValues();
  void Log(const std::wstring& line);
  int TextWidth(const std::wstring& text) const;

  std::vector<Exhibit> m_exhibits;
  /// The values that the exhibits begin with.
  std::vector<Bytes> m_initial;
  std::vector<Row> m_rows;
  Group m_group = Group::kDrawing;
  HWND m_groups = nullptr;
  HWND m_mousePick = nullptr;
  HWND m_logLabel = nullptr;
  HWND m_log = nullptr;
  HWND m_reset = nullptr;
  HWND m_close = nullptr;
  /// In pixels.
  int m_lineHeight = 0;
  int m_buttonWidth = 0;
  int m_entryWidth = 0;
  int m_groupsWidth = 0;
  int m_logWidth = 0;
  /// Last: its messages need the others until it is gone.
  std::unique_ptr<HWND, WindowDestroyer> m_window;
};

}  // namespace quorvel::gallery
