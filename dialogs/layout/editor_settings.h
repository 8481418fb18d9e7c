// Where the layout editors differ: one value for each of them.
#pragma once

#include "dialogs/layout/cel_painter.h"
#include "framework/geometry.h"
#include "kivfcl/kiv_tool_ctrl.h"
#include "res/ids.h"

#include <commctrl.h>

#include <array>
#include <span>

namespace quorvel {

/// What a press of the mouse is tested for first.
enum class FirstTest {
  kBorder,  ///< a border within 3 pixels, then a cell
  kCel,     ///< a cell, taken smaller on all sides, then a border
};

/// An item of the menu of a cell; a line where it has no command.
struct CelMenuItem {
  UINT nCommand = 0;
  const char* text = nullptr;
};

struct EditorSettings {
  const char* section;  ///< of the user's settings
  CelStyle celStyle;
  FirstTest firstTest;
  const char* readOut;  ///< format of the two lengths beside a border that is dragged
  bool shiftAdds;       ///< Shift keeps what was selected before
  std::span<const TOOLITEM> celTools;
  std::span<const CelMenuItem> celMenu;
};

/// How much smaller a cell is taken on the left and the right, at the top and the bottom.
inline constexpr CSize kCelMargin{3, 2};

/// Of the tool bars.
inline constexpr DWORD kToolStyle = WS_CHILD | WS_VISIBLE | TBSTYLE_FLAT | TBSTYLE_TOOLTIPS |
                                    CCS_NODIVIDER | CCS_NORESIZE;

inline constexpr TOOLITEM kToolGap{0, 0, TRUE};
inline constexpr std::array kGridCelTools{
    TOOLITEM{IDM_EDIT_TEXT, 0, FALSE},    TOOLITEM{IDM_EDIT_FONT, 1, FALSE},    kToolGap,
    TOOLITEM{IDM_ALIGN_TOP, 2, FALSE},    TOOLITEM{IDM_ALIGN_MIDDLE, 3, FALSE},
    TOOLITEM{IDM_ALIGN_BOTTOM, 4, FALSE}, kToolGap,
    TOOLITEM{IDM_ALIGN_LEFT, 5, FALSE},   TOOLITEM{IDM_ALIGN_CENTRE, 6, FALSE},
    TOOLITEM{IDM_ALIGN_RIGHT, 7, FALSE},  kToolGap,
    TOOLITEM{IDM_MERGE_CELLS, 9, FALSE},  TOOLITEM{IDM_SPLIT_CELLS, 10, FALSE},
};
inline constexpr std::array kGridCelMenu{
    CelMenuItem{IDM_EDIT_TEXT, "ﾃｷｽﾄ編集(&T)"},
    CelMenuItem{IDM_EDIT_FONT, "ﾌｫﾝﾄ編集(&F)"},
    CelMenuItem{IDM_MERGE_CELLS, "合成(&N)"},
    CelMenuItem{IDM_SPLIT_CELLS, "合成解除(&D)"},
};

/// CLayoutEditDlg.
inline constexpr EditorSettings kGridEditor{
    .section = "LayoutEdit",
    .celStyle = CelStyle::kFramed,
    .firstTest = FirstTest::kBorder,
    .readOut = "%.0fmm / %.0fmm",
    .shiftAdds = false,
    .celTools = kGridCelTools,
    .celMenu = kGridCelMenu,
};

}  // namespace quorvel
