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
