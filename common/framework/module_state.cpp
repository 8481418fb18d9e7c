#include "framework/module_state.h"

#include <commctrl.h>

namespace {

thread_local AFX_MODULE_STATE* g_currentState = nullptr;

/// By convention the manifest of a DLL.
constexpr WORD kManifestResource = 2;

}  // namespace

AFX_MODULE_STATE::AFX_MODULE_STATE(const void* addressInModule) {
  HMODULE module = nullptr;
  ::GetModuleHandleExW(
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
      static_cast<LPCWSTR>(addressInModule), &module);
  m_hInstance = module;
}

AFX_MODULE_STATE::~AFX_MODULE_STATE() {
  if (m_hActivationContext != INVALID_HANDLE_VALUE) {
    ::ReleaseActCtx(m_hActivationContext);
  }
}

HANDLE AFX_MODULE_STATE::GetActivationContext() {
  std::call_once(m_contextCreated, [this] { CreateActivationContext(); });
  return m_hActivationContext;
}

void AFX_MODULE_STATE::CreateActivationContext() {
  ACTCTXW description{};
  description.cbSize = sizeof description;
  description.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID | ACTCTX_FLAG_HMODULE_VALID;
  description.hModule = m_hInstance;
  description.lpResourceName = MAKEINTRESOURCEW(kManifestResource);
  m_hActivationContext = ::CreateActCtxW(&description);
}

HINSTANCE AfxGetInstanceHandle() {
  return g_currentState != nullptr ? g_currentState->GetInstance() : ::GetModuleHandleW(nullptr);
}

HINSTANCE AfxGetResourceHandle() { return AfxGetInstanceHandle(); }

AFX_MAINTAIN_STATE2::AFX_MAINTAIN_STATE2(AFX_MODULE_STATE* state) : m_pPrevious(g_currentState) {
  const HANDLE context = state->GetActivationContext();
  m_bActivated =
      context != INVALID_HANDLE_VALUE && ::ActivateActCtx(context, &m_nCookie) != FALSE;
  g_currentState = state;
  // In the context, so that the classes of its version of the common controls are registered.
  constexpr DWORD kClasses =
      ICC_LISTVIEW_CLASSES | ICC_TAB_CLASSES | ICC_BAR_CLASSES | ICC_STANDARD_CLASSES;
  INITCOMMONCONTROLSEX classes{sizeof classes, kClasses};
  ::InitCommonControlsEx(&classes);
}

AFX_MAINTAIN_STATE2::~AFX_MAINTAIN_STATE2() {
  g_currentState = m_pPrevious;
  if (m_bActivated) {
    ::DeactivateActCtx(0, m_nCookie);
  }
}
