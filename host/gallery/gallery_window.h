// The gallery's window: a button and the value in hand for every exhibit, and a log.
//
//   GalleryWindow window(AllExhibits());
//   window.RunMessageLoop();
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

  /// Ticks or unticks the option for the point dialogs.
  void AllowMousePick(bool allow);

  /// Does what the exhibit's button does: opens its dialog, shows the new value, logs the run.
  RunReport Run(std::size_t index);

  /// Returns when the user has closed the window.
  void RunMessageLoop();

private:
  /// The controls of one exhibit.
  struct Row {
    HWND button;
    HWND value;
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
  bool OnDrawItem(const DRAWITEMSTRUCT& item) const;

  void CreateControls();
  HWND CreateControl(const wchar_t* className, const std::wstring& text, DWORD style, int id);
  void MeasureLabels();
  void LayOut();
  int HeightOfRow(const Exhibit& exhibit) const;
  int PictureWidth(const Exhibit& exhibit) const;
  void LimitSize(MINMAXINFO& info) const;
  void ShowValue(std::size_t index);
  void Log(const std::wstring& line);
  int TextWidth(const std::wstring& text) const;

  std::vector<Exhibit> m_exhibits;
  std::vector<Row> m_rows;
  HWND m_mousePick = nullptr;
  HWND m_logLabel = nullptr;
  HWND m_log = nullptr;
  /// In pixels.
  int m_lineHeight = 0;
  int m_buttonWidth = 0;
  int m_logWidth = 0;
  /// Last: its messages need the others until it is gone.
  std::unique_ptr<HWND, WindowDestroyer> m_window;
};

}  // namespace quorvel::gallery
