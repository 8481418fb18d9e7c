#include "framework/app.h"

BEGIN_MESSAGE_MAP(CWinApp, CCmdTarget)
END_MESSAGE_MAP()

CWinApp::~CWinApp() = default;

BOOL CWinApp::InitInstance() { return TRUE; }
