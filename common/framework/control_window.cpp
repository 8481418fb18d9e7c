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

/// A class by what makes it known without its name.
struct WindowClass {
  ATOM atom = 0;
  ULONG_PTR procedure = 0;

  static WindowClass Of(HWND window) {
    return {static_cast<ATOM>(::GetClassLongPtrW(window, GCW_ATOM)),
            ::GetClassLongPtrW(window, GCLP_WNDPROC)};
  }
};

/// The classes of the controls that were made in one activation context. A context leads from a
/// class's name to one version of the class; Wine opens the library of that version anew for each
/// control that is made by the name, which takes longer than making the control.
class ClassesOfContext {
public:
  /// Without an atom where no control of the class has been made in the context in force.
  WindowClass Find(const wchar_t* className) {
    const std::lock_guard lock(m_mutex);
    TakeContextInForce();
    const std::size_t place = PlaceOf(className);
    return place < m_classes.size() ? m_classes[place] : WindowClass{};
  }

  void Keep(const wchar_t* className, HWND made) {
    const std::lock_guard lock(m_mutex);
    TakeContextInForce();
    const std::size_t place = PlaceOf(className);
    if (place < m_classes.size() && !m_bNamesOnly) {
      m_classes[place] = WindowClass::Of(made);
    }
  }

  /// From now on nothing is found.
  void UseNamesOnly() {
    const std::lock_guard lock(m_mutex);
    m_bNamesOnly = true;
    m_classes = {};
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
      m_classes = {};
    }
  }

  std::mutex m_mutex;
  CurrentContext m_context;  ///< kept, so that no other gets its handle
  std::array<WindowClass, kNames.size()> m_classes{};
  bool m_bNamesOnly = false;
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
  const WindowClass known = Classes().Find(control.className);
  if (known.atom != 0) {
    const HWND byAtom = Create(control, MAKEINTRESOURCEW(known.atom), parent);
    if (byAtom == nullptr || ::GetClassLongPtrW(byAtom, GCLP_WNDPROC) == known.procedure) {
      return byAtom;
    }
    // A platform whose atoms stand for the name, not for the version of the class.
    ::DestroyWindow(byAtom);
    Classes().UseNamesOnly();
  }
  const HWND made = Create(control, control.className, parent);
  if (made != nullptr) {
    Classes().Keep(control.className, made);
  }
  return made;
}

}  // namespace quorvel
