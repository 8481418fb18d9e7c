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

/// The lower corner of a colour's arrow at which the colours to choose from open.
enum class ColorsOpenAt { kRightCorner, kLeftCorner };

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
  bool appendsAtFirst;  ///< a tag goes behind a cell's text, unless the user chose otherwise
  const char* appendSetting;  ///< where that choice is kept; null where it is not
  bool asksToDelete;    ///< before a row or a column goes
  /// The menu offers ruled lines where a column can be inserted, instead of where a cell is selected.
  bool linesWithColumns;
  ColorsOpenAt colorsOpenAt;
  std::span<const TOOLITEM> celTools;
  std::span<const CelMenuItem> celMenu;
  const char* fileExtension;  ///< of layout files; null where there are none
  const char* fileFilter;
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

inline constexpr std::array kBlockCelTools{
    TOOLITEM{IDM_EDIT_TEXT, 0, FALSE},    TOOLITEM{IDM_EDIT_FONT, 1, FALSE},    kToolGap,
    TOOLITEM{IDM_ALIGN_TOP, 2, FALSE},    TOOLITEM{IDM_ALIGN_MIDDLE, 3, FALSE},
    TOOLITEM{IDM_ALIGN_BOTTOM, 4, FALSE}, kToolGap,
    TOOLITEM{IDM_ALIGN_LEFT, 5, FALSE},   TOOLITEM{IDM_ALIGN_CENTRE, 6, FALSE},
    TOOLITEM{IDM_ALIGN_RIGHT, 7, FALSE},  kToolGap,
    TOOLITEM{IDM_EDIT_LINES, 8, FALSE},   TOOLITEM{IDM_MERGE_CELLS, 9, FALSE},
    TOOLITEM{IDM_SPLIT_CELLS, 10, FALSE},
};
// Deleting has one access key for rows and columns: it leads from one to the other.
inline constexpr std::array kBlockCelMenu{
    CelMenuItem{IDM_EDIT_TEXT, "ﾃｷｽﾄ編集(&T)"},
    CelMenuItem{IDM_EDIT_FONT, "ﾌｫﾝﾄ編集(&F)"},
    CelMenuItem{},
    CelMenuItem{IDM_INSERT_COLUMN, "列挿入(&C)"},
    CelMenuItem{IDM_DELETE_COLUMN, "列削除(&O)"},
    CelMenuItem{IDM_EQUAL_COLUMNS, "選択列均等(&E)"},
    CelMenuItem{},
    CelMenuItem{IDM_INSERT_ROW, "行挿入(&R)"},
    CelMenuItem{IDM_DELETE_ROW, "行削除(&O)"},
    CelMenuItem{IDM_EQUAL_ROWS, "選択行均等(&Q)"},
    CelMenuItem{},
    CelMenuItem{IDM_EDIT_LINES, "罫線編集(&L)"},
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
    .appendsAtFirst = true,
    .appendSetting = nullptr,
    .asksToDelete = false,
    .linesWithColumns = false,
    .colorsOpenAt = ColorsOpenAt::kRightCorner,
    .celTools = kGridCelTools,
    .celMenu = kGridCelMenu,
    .fileExtension = "*.mtpld",
    .fileFilter = "ﾐﾙﾄﾗｽ 印刷ﾚｲｱｳﾄﾌｧｲﾙ (*.mtpld)|*.mtpld||",
};

/// CLayoutExEditDlg.
inline constexpr EditorSettings kExtendedEditor{
    .section = "LayoutExEdit",
    .celStyle = CelStyle::kRuled,
    .firstTest = FirstTest::kCel,
    .readOut = "%.1fmm / %.1fmm",
    .shiftAdds = true,
    .appendsAtFirst = false,
    .appendSetting = "MacroIns",
    .asksToDelete = true,
    .linesWithColumns = false,
    .colorsOpenAt = ColorsOpenAt::kRightCorner,
    .celTools = kBlockCelTools,
    .celMenu = kBlockCelMenu,
    .fileExtension = "*.mtpld2",
    .fileFilter = "ﾐﾙﾄﾗｽ 印刷ﾚｲｱｳﾄﾌｧｲﾙ (*.mtpld2)|*.mtpld2||",
};

/// CLayoutListEditDlg. It keeps its settings beside the extended editor's.
inline constexpr EditorSettings kListEditor{
    .section = "LayoutExEdit",
    .celStyle = CelStyle::kRuled,
    .firstTest = FirstTest::kCel,
    .readOut = "%.0fmm / %.0fmm",
    .shiftAdds = false,
    .appendsAtFirst = false,
    .appendSetting = "MacroIns",
    .asksToDelete = false,
    .linesWithColumns = true,
    .colorsOpenAt = ColorsOpenAt::kLeftCorner,
    .celTools = kBlockCelTools,
    .celMenu = kBlockCelMenu,
    .fileExtension = nullptr,
    .fileFilter = nullptr,
};

}  // namespace quorvel
