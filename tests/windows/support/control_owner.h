// A window around a control under test, which writes down what the control tells it.
//
//   ControlOwner owner;
//   slider.Create(WS_VISIBLE, CRect(10, 10, 170, 30), &owner, 7, KIVSLIDER_HORIZONTAL);
//   Press(slider.m_hWnd, {80, 10});
//   EXPECT_EQ(owner.TakeTold(), (std::vector<Told>{{7, KIVSLIDER_MOVING, 50}}));
#pragma once

#include "framework/wnd.h"

#include <functional>
#include <ostream>
#include <utility>
#include <vector>

namespace quorvel::test {

/// A notification; `value` is what the test's own `valueOf` finds in it.
struct Told {
  UINT id = 0;
  UINT code = 0;
  int value = 0;

  friend bool operator==(const Told&, const Told&) = default;
  friend std::ostream& operator<<(std::ostream& out, const Told& told) {
    return out << "{" << told.id << ", code " << told.code << ", " << told.value << "}";
  }
};

class ControlOwner : public CWnd {
public:
  ControlOwner() {
    constexpr DWORD kStyle = WS_POPUP | WS_VISIBLE | WS_CLIPCHILDREN;
    SubclassWindow(::CreateWindowExW(0, L"STATIC", L"", kStyle, 100, 100, 400, 300, nullptr, nullptr,
                                     nullptr, nullptr));
  }
  ~ControlOwner() override { CWnd::DestroyWindow(); }
  ControlOwner(const ControlOwner&) = delete;
  ControlOwner& operator=(const ControlOwner&) = delete;

  /// The value of a WM_NOTIFY or WM_COMMAND.
  std::function<int(const NMHDR* notification)> m_valueOf;
  /// What the owner does about a notification.
  std::function<void()> m_onTold;

  /// What has been told since the last call.
  std::vector<Told> TakeTold() { return std::exchange(m_told, {}); }

protected:
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
    if (message == WM_NOTIFY) {
      const auto* header = reinterpret_cast<const NMHDR*>(lParam);
      Note({static_cast<UINT>(header->idFrom), header->code, m_valueOf ? m_valueOf(header) : 0});
      return 0;
    }
    if (message == WM_COMMAND && lParam != 0) {
      Note({LOWORD(wParam), HIWORD(wParam), m_valueOf ? m_valueOf(nullptr) : 0});
      return 0;
    }
    return CWnd::WindowProc(message, wParam, lParam);
  }

private:
  void Note(const Told& told) {
    m_told.push_back(told);
    if (m_onTold) {
      m_onTold();
    }
  }

  std::vector<Told> m_told;
};

/// A window of an owner that does something when it loses the focus, as a field does that refuses
/// its text.
class FocusLoser : public CWnd {
public:
  explicit FocusLoser(const ControlOwner& owner) {
    CreateChild(L"STATIC", 0, WS_VISIBLE, CRect(0, 0, 5, 5), &owner, 1);
    ::SetFocus(m_hWnd);
  }

  std::function<void()> m_onLost;

protected:
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
    if (message == WM_KILLFOCUS && m_onLost) {
      std::exchange(m_onLost, nullptr)();
    }
    return CWnd::WindowProc(message, wParam, lParam);
  }
};

// The messages of a user's hands, handled before the call returns.

inline LPARAM PackedPoint(const CPoint& point) {
  return MAKELPARAM(static_cast<WORD>(point.x), static_cast<WORD>(point.y));
}
inline void Press(HWND window, const CPoint& point) {
  ::SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, PackedPoint(point));
}
inline void MoveMouse(HWND window, const CPoint& point) {
  ::SendMessageW(window, WM_MOUSEMOVE, MK_LBUTTON, PackedPoint(point));
}
inline void Release(HWND window, const CPoint& point) {
  ::SendMessageW(window, WM_LBUTTONUP, 0, PackedPoint(point));
}
inline void Key(HWND window, WPARAM key) {
  ::SendMessageW(window, WM_KEYDOWN, key, 1);
  ::SendMessageW(window, WM_KEYUP, key, 1);
}
inline void Wheel(HWND window, int turn) {
  ::SendMessageW(window, WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(turn)), 0);
}

/// Whether something of the window is still to be painted; it is, after the call.
inline bool TakeUnpainted(HWND window) {
  const bool unpainted = ::GetUpdateRect(window, nullptr, FALSE) != FALSE;
  ::UpdateWindow(window);
  return unpainted;
}

}  // namespace quorvel::test
