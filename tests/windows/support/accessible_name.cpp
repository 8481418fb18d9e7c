#include "support/accessible_name.h"

#include "driver/controls.h"
#include "driver/text.h"

#include <algorithm>
#include <array>
#include <cwchar>
#include <ostream>

namespace quorvel::test {

namespace {

constexpr int kLabelId = 0xFFFF;

bool IsOfClass(HWND window, const wchar_t* className) {
  return ::_wcsicmp(driver::ClassName(window).c_str(), className) == 0;
}

bool HasStyle(HWND window, LONG_PTR style) {
  return (::GetWindowLongPtrW(window, GWL_STYLE) & style) != 0;
}

std::wstring WithoutAccessKey(const std::wstring& text) {
  std::wstring plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == L'&' && i + 1 < text.size()) {
      ++i;  // of two signs the second is shown
    }
    plain += text[i];
  }
  return plain;
}

bool IsNamedByLabel(HWND control) {
  constexpr std::array kClasses{L"Edit",          L"ComboBox",        L"ListBox",
                                L"ScrollBar",     L"SysListView32",   L"SysTabControl32",
                                L"SysTreeView32", L"msctls_trackbar32"};
  return std::ranges::any_of(kClasses,
                             [control](const wchar_t* name) { return IsOfClass(control, name); });
}

std::wstring LabelOf(HWND control) {
  for (HWND before = ::GetWindow(control, GW_HWNDPREV); before != nullptr;
       before = ::GetWindow(before, GW_HWNDPREV)) {
    if (IsOfClass(before, L"Static")) {
      return driver::Text(before);
    }
    // A label that is not shown counts, any other control that is not shown is passed over.
    if (::IsWindowVisible(before) != FALSE && HasStyle(before, WS_GROUP | WS_TABSTOP)) {
      break;
    }
  }
  return {};
}

bool IsGroupBox(HWND control) {
  return IsOfClass(control, L"Button") &&
         (::GetWindowLongPtrW(control, GWL_STYLE) & BS_TYPEMASK) == BS_GROUPBOX;
}

bool NeedsName(HWND control) {
  const bool isLabel =
      IsOfClass(control, L"Static") && (::GetDlgCtrlID(control) & 0xFFFF) == kLabelId;
  return ::IsWindowVisible(control) != FALSE && !isLabel && !IsGroupBox(control);
}

// NOLINTNEXTLINE(misc-no-recursion): pages stand in dialogs, and nothing in pages
void AddControls(HWND dialog, std::vector<NamedControl>& controls) {
  for (HWND child = ::GetWindow(dialog, GW_CHILD); child != nullptr;
       child = ::GetWindow(child, GW_HWNDNEXT)) {
    if (IsOfClass(child, L"#32770")) {
      if (::IsWindowVisible(child) != FALSE) {
        AddControls(child, controls);
      }
    } else if (NeedsName(child)) {
      controls.push_back({::GetDlgCtrlID(child), AccessibleName(child)});
    }
  }
}

}  // namespace

std::wstring AccessibleName(HWND control) {
  return WithoutAccessKey(IsNamedByLabel(control) ? LabelOf(control) : driver::Text(control));
}

std::vector<NamedControl> NamedControls(HWND dialog) {
  std::vector<NamedControl> controls;
  AddControls(dialog, controls);
  return controls;
}

void PrintTo(const NamedControl& control, std::ostream* stream) {
  *stream << control.id << " \"" << driver::Utf8(control.name) << '"';
}

}  // namespace quorvel::test
