// Identifiers of templates and controls. Hosts' tests and scripts drive the dialogs by these
// numbers: they never change.
#pragma once

#define IDM_MANIFEST 2

// Text and scale
#define IDD_INPUT_TEXT 30102
#define IDD_INPUT_SCALE 30110
#define IDC_INPUT_COMMENT 10000
#define IDC_INPUT_VALUE 10001

// Resolution
#define IDD_INPUT_DPI 512
#define IDC_DPI_LABEL 4012
#define IDC_DPI_VALUE 1939

// Point
#define IDD_INPUT_POINT 30121
#define IDC_POINT_X 4056
#define IDC_POINT_Y 4057
#define IDC_POINT_Z_LABEL 4058
#define IDC_POINT_Z 4059
#define IDC_POINT_MOUSE 4060

// User paper
#define IDD_USER_PAPER 30106
#define IDC_PAPER_NAME 13367
#define IDC_PAPER_SIZE_LABEL 13521
#define IDC_PAPER_WIDTH 13368
#define IDC_PAPER_HEIGHT 13369
#define IDC_PAPER_CLEAR_ALL 13322

// Check list
#define IDD_CHECK_LIST 30115
#define IDC_CHECK_LIST 4030

// Colour grid; its 64 colour buttons are told in dialogs/colour/colour_grid.h
#define IDD_COLOUR_GRID 30100
#define IDC_GRID_OTHER 13323
#define IDC_GRID_SELECTED 13441

// Colour picker
#define IDD_COLOUR_PICKER 30101
#define IDB_HUE_SATURATION 30000
#define IDC_PICKER_FIELD 13557
#define IDC_PICKER_BAR 13555
#define IDC_PICKER_BAR_SCROLL 13540
#define IDC_PICKER_SWATCH 13556
#define IDC_PICKER_HUE 13374
#define IDC_PICKER_HUE_SPIN 13545
#define IDC_PICKER_SATURATION 13371
#define IDC_PICKER_SATURATION_SPIN 13544
#define IDC_PICKER_BRIGHTNESS 13370
#define IDC_PICKER_BRIGHTNESS_SPIN 13543
#define IDC_PICKER_RED 13375
#define IDC_PICKER_RED_BAR 13542
#define IDC_PICKER_GREEN 13373
#define IDC_PICKER_GREEN_BAR 13541
#define IDC_PICKER_BLUE 13372
#define IDC_PICKER_BLUE_BAR 13539

// Colour edit page, selected-colour page, palette page. 1011 is a place on some templates and a
// button on another.
#define IDD_COLOUR_EDIT_PAGE 30104
#define IDD_COLOUR_SELECT_PAGE 30109
#define IDD_COLOUR_LIST_PAGE 30105
#define IDC_COLOUR_SWATCH 2000
#define IDC_COLOUR_PLACE 1011
#define IDC_COLOUR_FIELD 2009
#define IDC_COLOUR_BRIGHTNESS 2010
#define IDC_COLOUR_MODEL 100
#define IDC_COLOUR_VALUE_FIRST 110
#define IDC_COLOUR_SLIDER_FIRST 120
#define IDC_PALETTE 2001
#define IDC_PALETTE_EDIT 1011
#define IDC_PALETTE_ADD 1010
#define IDC_PALETTE_DELETE 1012

// Colour edit dialog, tabbed colour dialog
#define IDD_COLOUR_EDIT 30108
#define IDD_COLOUR_TABS 30103
#define IDC_COLOUR_TABS 1000

// Layout editors: pictures and cursors stand in res/editor_pictures.txt
#define IDB_CELL_TOOLS 30001
#define IDB_FILE_TOOLS 30002
#define IDB_DROP_ARROW 30003
#define IDC_CURSOR_SELECT_CELLS 200
#define IDC_CURSOR_DRAG_COLUMN 201
#define IDC_CURSOR_DRAG_ROW 202

// Commands of the layout editors' tool bars and menus
#define IDM_EDIT_TEXT 31000
#define IDM_EDIT_FONT 31001
#define IDM_ALIGN_TOP 31002
#define IDM_ALIGN_MIDDLE 31003
#define IDM_ALIGN_BOTTOM 31004
#define IDM_ALIGN_LEFT 31005
#define IDM_ALIGN_CENTRE 31006
#define IDM_ALIGN_RIGHT 31007
#define IDM_EDIT_LINES 31008
#define IDM_MERGE_CELLS 31009
#define IDM_SPLIT_CELLS 31010
#define IDM_OPEN_LAYOUT 31011
#define IDM_SAVE_LAYOUT 31012
#define IDM_INSERT_COLUMN 31013
#define IDM_DELETE_COLUMN 31014
#define IDM_EQUAL_COLUMNS 31015
#define IDM_INSERT_ROW 31016
#define IDM_DELETE_ROW 31017
#define IDM_EQUAL_ROWS 31018
