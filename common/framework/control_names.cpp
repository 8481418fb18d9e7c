#include "framework/control_names.h"

#include "framework/control_window.h"
#include "framework/wnd.h"

#include <algorithm>
#include <array>
#include <cwchar>

namespace quorvel {

namespace {

/// Their window text is what the user has put in, or nothing.
constexpr std::array kNamedByLabel{L"Edit",      L"ComboBox",      L"ListBox",
                                   L"ScrollBar", L"SysListView32", L"SysTabControl32"};

bool IsNamedByLabel(HWND control) {
  constexpr int kLongestName = 32;  // a longer one is none of these
  std::array<wchar_t, kLongestName> className{};
  ::GetClassNameW(control, className.data(), kLongestName);
  return std::ranges::any_of(kNamedByLabel, [&className](const wchar_t* name) {
    return ::_wcsicmp(className.data(), name) == 0;
  });
}

bool IsNameLabel(HWND window) {
  return window != nullptr && ::GetDlgCtrlID(window) == kNameLabelId;
}

void PutLabelBefore(HWND control, const wchar_t* name) {
  const HWND before = ::GetWindow(control, GW_HWNDPREV);
  if (IsNameLabel(before)) {
    ::SetWindowTextW(before, name);
    return;
  }
  const HWND label = CreateControlWindow(
      {.className = L"Static",
       .text = name,
       .style = SS_NOPREFIX,
       .extendedStyle = WS_EX_NOPARENTNOTIFY,
       .rect = CRect(),
       .id = static_cast<DWORD>(kNameLabelId)},
      ::GetParent(control));
  ::SetWindowPos(label, before != nullptr ? before : HWND_TOP, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

}  // namespace

void NameControl(HWND control, const wchar_t* name) {
  if (control == nullptr) {
    return;
  }
  if (IsNamedByLabel(control)) {
    PutLabelBefore(control, name);
  } else {
    ::SetWindowTextW(control, name);
  }
}

void DropName(HWND control) {
  const HWND before = ::GetWindow(control, GW_HWNDPREV);
  if (IsNameLabel(before)) {
    ::DestroyWindow(before);
  }
}

void NameControls(HWND dialog, std::initializer_list<ControlName> names) {
  const CWnd* object = CWnd::FromHandlePermanent(dialog);
  for (const ControlName& each : names) {
    NameControl(object != nullptr ? object->GetDlgItem(each.id) : ::GetDlgItem(dialog, each.id),
                each.name);
  }
}

}  // namespace quorvel
