#include "framework/control_window.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cwchar>
#include <mutex>
#include <utility>

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

/// The activation context in force on this thread, which lives at least as long as the object.
class CurrentContext {
public:
  CurrentContext() {
    if (::GetCurrentActCtx(&m_hContext) == FALSE) {
      m_hContext = nullptr;
    }
  }
  ~CurrentContext() {
    if (m_hContext != nullptr) {
      ::ReleaseActCtx(m_hContext);
    }
  }
  CurrentContext(const CurrentContext&) = delete;
  CurrentContext& operator=(const CurrentContext&) = delete;

  void Swap(CurrentContext& other) { std::swap(m_hContext, other.m_hContext); }

  /// Null for the program's own.
  HANDLE Get() const { return m_hContext; }

private:
  HANDLE m_hContext = nullptr;
};

/// The classes of the controls that were made in one activation context, by their atoms. A context
/// leads from a class's name to one version of the class; Wine opens the library of that version
/// anew for each control that is made by the name, which takes longer than making the control.
class ClassesOfContext {
public:
  /// 0 where no control of the class has been made in the context in force.
  ATOM Find(const wchar_t* className) {
    const std::lock_guard lock(m_mutex);
    TakeContextInForce();
    const std::size_t place = PlaceOf(className);
    return place < m_atoms.size() ? m_atoms[place] : ATOM{0};
  }

  void Keep(const wchar_t* className, HWND made) {
    const std::lock_guard lock(m_mutex);
    TakeContextInForce();
    const std::size_t place = PlaceOf(className);
    if (place < m_atoms.size()) {
      m_atoms[place] = static_cast<ATOM>(::GetClassLongPtrW(made, GCW_ATOM));
    }
  }

private:
  static constexpr std::array kNames{L"Button",   L"Edit",          L"ListBox",        L"ScrollBar",
                                     L"ComboBox", L"SysListView32", L"SysTabControl32"};

  static std::size_t PlaceOf(const wchar_t* className) {
    const auto* const found = std::ranges::find_if(kNames, [className](const wchar_t* name) {
      return ::_wcsicmp(className, name) == 0;
    });
    return static_cast<std::size_t>(found - kNames.begin());
  }

  void TakeContextInForce() {
    CurrentContext current;
    if (current.Get() != m_context.Get()) {
      m_context.Swap(current);
      m_atoms = {};
    }
  }

  std::mutex m_mutex;
  CurrentContext m_context;  ///< kept, so that no other gets its handle
  std::array<ATOM, kNames.size()> m_atoms{};
};

ClassesOfContext& Classes() {
  static ClassesOfContext classes;
  return classes;
}

HWND Create(const ControlWindow& control, const wchar_t* className, HWND parent) {
  return ::CreateWindowExW(
      control.extendedStyle, className, control.text, control.style | WS_CHILD, control.rect.left,
      control.rect.top, control.rect.Width(), control.rect.Height(), parent,
      reinterpret_cast<HMENU>(static_cast<ULONG_PTR>(control.id)),
      reinterpret_cast<HINSTANCE>(::GetWindowLongPtrW(parent, GWLP_HINSTANCE)), nullptr);
}

}  // namespace

HWND CreateControlWindow(const ControlWindow& control, HWND parent) {
  if (NeedsNoTheme(control.className, control.style)) {
    const WithoutTheme plain;
    return Create(control, control.className, parent);
  }
  const ATOM known = Classes().Find(control.className);
  if (known != 0) {
    return Create(control, MAKEINTRESOURCEW(known), parent);
  }
  const HWND made = Create(control, control.className, parent);
  if (made != nullptr) {
    Classes().Keep(control.className, made);
  }
  return made;
}

}  // namespace quorvel
