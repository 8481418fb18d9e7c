// Identifiers of the test program's dialogs.
#pragma once

#define IDD_NUMBERS 101
#define IDC_TEXT 1001
#define IDC_WHOLE 1002
#define IDC_DECIMAL 1003
#define IDC_OPEN 1004
