#include "framework/message_box.h"

#include "framework/code_page.h"
#include "framework/cstring.h"
#include "framework/dialog.h"
#include "framework/module_state.h"
#include "framework/window_text.h"

#include <array>
#include <string>

namespace {

/// The name of the module's file, without folder and extension.
std::wstring ModuleName() {
  std::array<wchar_t, MAX_PATH> path{};
  const DWORD length = ::GetModuleFileNameW(AfxGetInstanceHandle(), path.data(),
                                            static_cast<DWORD>(path.size()));
  std::wstring name(path.data(), length);
  name.erase(0, name.find_last_of(L"\\/") + 1);
  return name.substr(0, name.rfind(L'.'));
}

}  // namespace

int AfxMessageBox(const char* text, UINT type) {
  const HWND active = ::GetActiveWindow();
  const HWND owner = active != nullptr ? active : CDialog::GetInnermostWindow();
  std::wstring title = owner != nullptr ? quorvel::WindowText(owner) : std::wstring();
  if (title.empty()) {
    title = ModuleName();
  }
  if ((type & MB_ICONMASK) == 0) {
    type |= MB_ICONEXCLAMATION;
  }
  return ::MessageBoxW(owner, quorvel::WideFromCodePage(CString(text).View()).c_str(),
                       title.c_str(), type);
}
