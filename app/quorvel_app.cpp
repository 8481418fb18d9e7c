#include "quorvel_app.h"

#include "framework/module_state.h"

namespace {

// Before the application object: made when the library is loaded, gone when it is unloaded.
AFX_MODULE_STATE g_moduleState(&g_moduleState);
CQuorvelApp g_app;

}  // namespace

AFX_MODULE_STATE* AfxGetStaticModuleState() { return &g_moduleState; }

BEGIN_MESSAGE_MAP(CQuorvelApp, CWinApp)
END_MESSAGE_MAP()

BOOL CQuorvelApp::InitInstance() {
  CWinApp::InitInstance();
  return TRUE;
}

extern "C" BOOL WINAPI DllMain(HINSTANCE /*instance*/, DWORD reason, void* /*reserved*/) {
  return reason == DLL_PROCESS_ATTACH ? g_app.InitInstance() : TRUE;
}
