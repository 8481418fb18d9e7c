#include "driver/controls.h"

#include <algorithm>
#include <array>
#include <stdexcept>

namespace quorvel::driver {

namespace {

constexpr std::wstring_view kDialogClass = L"#32770";
constexpr std::wstring_view kMenuClass = L"#32768";

std::vector<HWND> VisibleThreadWindows(std::wstring_view className) {
  struct Search {
    std::wstring_view className;
    std::vector<HWND> found;
  } search{className, {}};
  const auto visit = [](HWND window, LPARAM parameter) -> BOOL {
    auto& target = *reinterpret_cast<Search*>(parameter);
    if (IsWindowVisible(window) != FALSE && IsWindowEnabled(window) != FALSE &&
        ClassName(window) == target.className) {
      target.found.push_back(window);
    }
    return TRUE;
  };
  EnumThreadWindows(GetCurrentThreadId(), visit, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

void Post(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (PostMessageW(window, message, wParam, lParam) == FALSE) {
    throw std::runtime_error("a message could not be posted");
  }
}

LPARAM PackPoint(POINT point) {
  return MAKELPARAM(static_cast<WORD>(point.x), static_cast<WORD>(point.y));
}

bool IsExtendedKey(UINT virtualKey) {
  switch (virtualKey) {
    case VK_LEFT:
    case VK_RIGHT:
    case VK_UP:
    case VK_DOWN:
    case VK_HOME:
    case VK_END:
    case VK_PRIOR:
    case VK_NEXT:
    case VK_INSERT:
    case VK_DELETE:
      return true;
    default:
      return false;
  }
}

/// lParam of WM_KEYDOWN: repeat count 1, scan code, extended bit.
LPARAM KeyDownBits(UINT virtualKey) {
  constexpr LPARAM kExtendedBit = 1 << 24;
  const LPARAM scanCode = MapVirtualKeyW(virtualKey, MAPVK_VK_TO_VSC) & 0xFF;
  return 1 | (scanCode << 16) | (IsExtendedKey(virtualKey) ? kExtendedBit : 0);
}

INPUT KeyInput(UINT virtualKey, bool down) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = static_cast<WORD>(virtualKey);
  input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(virtualKey, MAPVK_VK_TO_VSC));
  input.ki.dwFlags = (down ? 0 : KEYEVENTF_KEYUP) |
                     (IsExtendedKey(virtualKey) ? static_cast<DWORD>(KEYEVENTF_EXTENDEDKEY) : 0);
  return input;
}

}  // namespace

std::vector<HWND> VisibleDialogs() {
  return VisibleThreadWindows(kDialogClass);
}

HWND VisibleMenu() {
  const std::vector<HWND> menus = VisibleThreadWindows(kMenuClass);
  return menus.empty() ? nullptr : menus.front();
}

std::wstring ClassName(HWND window) {
  constexpr std::size_t kLongestClassName = 256;
  std::array<wchar_t, kLongestClassName + 1> name{};
  const int length = GetClassNameW(window, name.data(), static_cast<int>(name.size()));
  return {name.data(), static_cast<std::size_t>(length)};
}

std::wstring Text(HWND window) {
  const auto length = static_cast<std::size_t>(SendMessageW(window, WM_GETTEXTLENGTH, 0, 0));
  std::wstring text(length + 1, L'\0');
  const LRESULT copied =
      SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
  text.resize(static_cast<std::size_t>(copied));
  return text;
}

std::wstring Text(HWND dialog, int id) {
  return Text(Control(dialog, id));
}

HWND Control(HWND dialog, int id) {
  const HWND control = GetDlgItem(dialog, id);
  if (control == nullptr) {
    throw std::runtime_error("the dialog has no control " + std::to_string(id));
  }
  return control;
}

HWND ShownPage(HWND dialog) {
  for (HWND child = GetWindow(dialog, GW_CHILD); child != nullptr;
       child = GetWindow(child, GW_HWNDNEXT)) {
    if (ClassName(child) == kDialogClass && IsWindowVisible(child) != FALSE) {
      return child;
    }
  }
  throw std::runtime_error("the dialog shows no page");
}

bool IsEnabled(HWND dialog, int id) {
  return IsWindowEnabled(Control(dialog, id)) != FALSE;
}

bool IsShown(HWND dialog, int id) {
  return IsWindowVisible(Control(dialog, id)) != FALSE;
}

int FocusedControlId(HWND dialog) {
  HWND focused = GetFocus();
  if (IsChild(dialog, focused) == FALSE) {
    return 0;
  }
  while (GetParent(focused) != dialog) {
    focused = GetParent(focused);
  }
  return GetDlgCtrlID(focused);
}

std::vector<HWND> TabOrder(HWND dialog) {
  std::vector<HWND> visited;
  HWND control = GetNextDlgTabItem(dialog, nullptr, FALSE);
  while (control != nullptr && std::ranges::find(visited, control) == visited.end()) {
    visited.push_back(control);
    control = GetNextDlgTabItem(dialog, control, FALSE);
  }
  return visited;
}

RECT WindowRect(HWND window) {
  RECT rect{};
  GetWindowRect(window, &rect);
  return rect;
}

RECT ClientRectOf(HWND child) {
  RECT rect = WindowRect(child);
  MapWindowPoints(HWND_DESKTOP, GetParent(child), reinterpret_cast<POINT*>(&rect), 2);
  return rect;
}

void Focus(HWND control) {
  const HWND root = GetAncestor(control, GA_ROOT);
  if (root != control && ClassName(root) == kDialogClass) {
    SendMessageW(root, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control), TRUE);
  } else {
    SetFocus(control);
  }
}

void TypeText(HWND edit, std::wstring_view text) {
  for (const wchar_t unit : text) {
    Post(edit, WM_CHAR, unit, 1);
  }
}

void ReplaceText(HWND edit, std::wstring_view text) {
  Focus(edit);
  Post(edit, EM_SETSEL, 0, -1);
  if (text.empty()) {
    PressKey(edit, VK_DELETE);
  } else {
    TypeText(edit, text);
  }
}

void ClickAt(HWND window, POINT point, WPARAM keys) {
  Post(window, WM_LBUTTONDOWN, MK_LBUTTON | keys, PackPoint(point));
  Post(window, WM_LBUTTONUP, keys, PackPoint(point));
}

void DoubleClickAt(HWND window, POINT point, WPARAM keys) {
  ClickAt(window, point, keys);
  Post(window, WM_LBUTTONDBLCLK, MK_LBUTTON | keys, PackPoint(point));
  Post(window, WM_LBUTTONUP, keys, PackPoint(point));
}

void RightClickAt(HWND window, POINT point, WPARAM keys) {
  Post(window, WM_RBUTTONDOWN, MK_RBUTTON | keys, PackPoint(point));
  Post(window, WM_RBUTTONUP, keys, PackPoint(point));
}

void Drag(HWND window, POINT from, POINT to, int steps, WPARAM keys) {
  Post(window, WM_LBUTTONDOWN, MK_LBUTTON | keys, PackPoint(from));
  for (int step = 1; step <= steps; ++step) {
    const POINT between{from.x + (to.x - from.x) * step / steps,
                        from.y + (to.y - from.y) * step / steps};
    Post(window, WM_MOUSEMOVE, MK_LBUTTON | keys, PackPoint(between));
  }
  Post(window, WM_LBUTTONUP, keys, PackPoint(to));
}

void Click(HWND control) {
  RECT client{};
  GetClientRect(control, &client);
  ClickAt(control, {client.right / 2, client.bottom / 2});
}

void Click(HWND dialog, int id) {
  Click(Control(dialog, id));
}

void PressKey(HWND focused, UINT virtualKey) {
  constexpr LPARAM kReleasedBits = (LPARAM{1} << 30) | (LPARAM{1} << 31);
  const LPARAM bits = KeyDownBits(virtualKey);
  Post(focused, WM_KEYDOWN, virtualKey, bits);
  Post(focused, WM_KEYUP, virtualKey, bits | kReleasedBits);
}

void PressTab(HWND dialog) {
  const HWND focused = GetFocus();
  PressKey(IsChild(dialog, focused) != FALSE ? focused : dialog, VK_TAB);
}

void SendKey(UINT virtualKey, std::initializer_list<UINT> modifiers) {
  std::vector<INPUT> inputs;
  for (const UINT modifier : modifiers) {
    inputs.push_back(KeyInput(modifier, true));
  }
  inputs.push_back(KeyInput(virtualKey, true));
  inputs.push_back(KeyInput(virtualKey, false));
  for (auto modifier = std::rbegin(modifiers); modifier != std::rend(modifiers); ++modifier) {
    inputs.push_back(KeyInput(*modifier, false));
  }
  const auto count = static_cast<UINT>(inputs.size());
  if (SendInput(count, inputs.data(), sizeof(INPUT)) != count) {
    throw std::runtime_error("the key press was not accepted");
  }
}

}  // namespace quorvel::driver
