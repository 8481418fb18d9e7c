#include "kivfcl/control_class.h"

#include "framework/module_state.h"

namespace quorvel {

namespace {

HINSTANCE OwnModule() {
  static const AFX_MODULE_STATE state(&state);
  return state.GetInstance();
}

}  // namespace

ControlClass::ControlClass(const wchar_t* name) : m_name(name) {
  WNDCLASSEXW description{};
  description.cbSize = sizeof description;
  description.style = CS_DBLCLKS | CS_GLOBALCLASS;
  description.lpfnWndProc = &::DefWindowProcW;
  description.hInstance = OwnModule();
  description.hCursor = ::LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW));
  description.hbrBackground = nullptr;  // painted whole, so nothing flickers
  description.lpszClassName = name;
  ::RegisterClassExW(&description);
}

// The platform does not do it when a DLL goes, and the class would name code of another then.
ControlClass::~ControlClass() { ::UnregisterClassW(m_name, OwnModule()); }

}  // namespace quorvel
