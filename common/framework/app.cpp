#include "framework/app.h"

BEGIN_MESSAGE_MAP(CWinApp, CCmdTarget)
END_MESSAGE_MAP()

BOOL CWinApp::InitInstance() { return TRUE; }
