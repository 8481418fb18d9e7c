#include "framework/control_window.h"

#include <cwchar>
#include <optional>

namespace quorvel {

namespace {

/// Class and style tell what shows nothing of a theme.
bool NeedsNoTheme(const wchar_t* className, DWORD style) {
  const auto isOfClass = [className](const wchar_t* name) {
    return ::_wcsicmp(className, name) == 0;
  };
  const bool ownerDrawn = isOfClass(L"Button") && (style & BS_TYPEMASK) == BS_OWNERDRAW;
  return isOfClass(L"Static") || ownerDrawn;
}

/// While it lives, what is made is not themed, unless the program itself is.
class WithoutTheme {
public:
  WithoutTheme() : m_bActivated(::ActivateActCtx(nullptr, &m_nCookie) != FALSE) {}
  ~WithoutTheme() {
    if (m_bActivated) {
      ::DeactivateActCtx(0, m_nCookie);
    }
  }
  WithoutTheme(const WithoutTheme&) = delete;
  WithoutTheme& operator=(const WithoutTheme&) = delete;

private:
  ULONG_PTR m_nCookie = 0;
  bool m_bActivated;
};

}  // namespace

HWND CreateControlWindow(const ControlWindow& control, HWND parent) {
  std::optional<WithoutTheme> plain;
  if (NeedsNoTheme(control.className, control.style)) {
    plain.emplace();
  }
  return ::CreateWindowExW(
      control.extendedStyle, control.className, control.text, control.style | WS_CHILD,
      control.rect.left, control.rect.top, control.rect.Width(), control.rect.Height(), parent,
      reinterpret_cast<HMENU>(static_cast<ULONG_PTR>(control.id)),
      reinterpret_cast<HINSTANCE>(::GetWindowLongPtrW(parent, GWLP_HINSTANCE)), nullptr);
}

}  // namespace quorvel
