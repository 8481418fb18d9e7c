// What the benchmarks of the layout editors have in common: an editor that is measured while it is
// open, its pictures, and its template run bare.
//
//   InEditor(IDC_LAYOUT_IMAGE, OpenEditor, [&](HWND dialog) {
//     const EditorPicture picture(dialog, IDC_LAYOUT_IMAGE);
//     seconds = MediansOfSteps(runs, ours, bare);
//   });
#pragma once

#include "bench/bare_page_view.h"
#include "bench/report.h"
#include "driver/dialog_owner.h"
#include "framework/geometry.h"
#include "kivfcl/kiv_tool_ctrl.h"
#include "res/ids.h"

#include <commctrl.h>

#include <array>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <type_traits>
#include <vector>

namespace quorvel::bench {

inline constexpr double kDotsPerMm = 11.811;
inline constexpr double kMillisecondsInSecond = 1000.0;

/// What the openings of the editors are compared with.
inline constexpr const char* kTemplateWithBars = "its template with tool bars";

/// What an opening may cost against the bare template, and a step of a drag against bare calls.
inline constexpr double kMostTimesBareTemplate = 1.5;
inline constexpr double kMostTimesBareRepaint = 1.3;
inline constexpr double kMostTimesBareStep = 2.0;

/// Throws std::runtime_error with the complaint where something does not hold.
void Require(bool holds, const char* complaint);

/// Calls `open`, which opens an editor with the control `imageId`, and measures in the editor. What
/// `measure` throws is the benchmark's error.
void InEditor(int imageId, const std::function<void()>& open,
              const std::function<void(HWND dialog)>& measure);

/// A picture of cells and where the mouse meets what.
class EditorPicture {
public:
  EditorPicture(HWND dialog, int imageId);

  HWND Window() const { return m_window; }
  CSize Size() const { return m_area.Size(); }

  /// A message of the mouse, at a point of the picture.
  void Mouse(UINT message, const CPoint& point) const;
  void Click(const CPoint& point) const;

private:
  HWND m_dialog;
  HWND m_window;
  CRect m_area;
};

CPoint CentreOf(const CRect& rect);

/// Seconds from before `act` to the last pixel of the window.
double TimeOf(HWND window, const std::function<void()>& act);
double TimeOfRepaint(HWND window, const CRect* area = nullptr);

/// `ours` and `bare`, each of which gives seconds for a step, in turn after a warm-up; the medians.
Pair MediansOfSteps(int runs, const std::function<double(int step)>& ours,
                    const std::function<double(int step)>& bare);

/// The same for the steps of a drag of the border below a cell, which drags nothing in the end. Both
/// pictures must look alike.
Pair MediansOfDragSteps(int runs, const EditorPicture& picture, BarePageView& bare,
                        const CRect& celAbove, const std::wstring& readOut);

inline constexpr std::array kFileTools{TOOLITEM{IDM_OPEN_LAYOUT, 0, FALSE},
                                       TOOLITEM{IDM_SAVE_LAYOUT, 1, FALSE}};

/// A tool bar of an editor.
struct BareBar {
  int bitmap;
  std::span<const TOOLITEM> items;
  CPoint position;  ///< client pixels
};

/// A template run by the platform alone, with its tool bars.
class BareEditor {
public:
  BareEditor(UINT templateId, std::vector<BareBar> bars);

  void Run(HWND owner);

private:
  struct ImageListDeleter {
    void operator()(HIMAGELIST list) const { ::ImageList_Destroy(list); }
  };
  using OwnedImageList = std::unique_ptr<std::remove_pointer_t<HIMAGELIST>, ImageListDeleter>;

  static INT_PTR CALLBACK OnMessage(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
  OwnedImageList AddBar(HWND dialog, const BareBar& bar) const;

  HMODULE m_module;
  UINT m_templateId;
  std::vector<BareBar> m_bars;
  driver::ModuleContext m_context;
  std::vector<OwnedImageList> m_images;  ///< they must outlive their bars
};

}  // namespace quorvel::bench
