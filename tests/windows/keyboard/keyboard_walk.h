// Steps that lead the focus through a dialog with the keyboard alone.
//
//   TabWalk walk(script, false);
//   script.When(Painted(AnyDialog()), [&](HWND dialog) { walk.Start(dialog); });
//   ...
//   EXPECT_EQ(walk.Visited(), StopsFrom(dialog, walk.Visited().front()));
#pragma once

#include "driver/picture.h"
#include "support/work.h"

#include <algorithm>
#include <functional>
#include <utility>
#include <vector>

namespace quorvel::test {

/// What the tabulator key has to visit, in the order of the windows: the shown and enabled controls
/// with WS_TABSTOP, those of a page where the page stands.
// NOLINTNEXTLINE(misc-no-recursion): pages stand in dialogs, and nothing in pages
inline void AddStops(HWND parent, std::vector<HWND>& stops) {
  for (HWND child = ::GetWindow(parent, GW_CHILD); child != nullptr;
       child = ::GetWindow(child, GW_HWNDNEXT)) {
    const auto style = static_cast<DWORD>(::GetWindowLongPtrW(child, GWL_STYLE));
    const auto extended = static_cast<DWORD>(::GetWindowLongPtrW(child, GWL_EXSTYLE));
    if ((style & WS_VISIBLE) == 0 || (style & WS_DISABLED) != 0) {
      continue;
    }
    if ((extended & WS_EX_CONTROLPARENT) != 0) {
      AddStops(child, stops);
    } else if ((style & WS_TABSTOP) != 0) {
      stops.push_back(child);
    }
  }
}

/// All of them, from one on.
inline std::vector<HWND> StopsFrom(HWND dialog, HWND first) {
  std::vector<HWND> stops;
  AddStops(dialog, stops);
  std::rotate(stops.begin(), std::ranges::find(stops, first), stops.end());
  return stops;
}

/// The stop that has the focus: of a field inside a combo box, the box. Null for none.
inline HWND FocusedStop(HWND dialog) {
  HWND focused = ::GetFocus();
  while (focused != nullptr && focused != dialog &&
         (::GetWindowLongPtrW(focused, GWL_STYLE) & WS_TABSTOP) == 0) {
    focused = ::GetParent(focused);
  }
  return focused != dialog ? focused : nullptr;
}

/// Presses the key from control to control until the first has the focus again.
class TabWalk {
public:
  /// `backwards` with Shift. `ended` is called with the dialog.
  TabWalk(ModalScript& script, bool backwards, std::function<void(HWND)> ended)
      : m_script(script), m_backwards(backwards), m_ended(std::move(ended)) {}

  void Start(HWND dialog) { Arrive(dialog); }

  const std::vector<HWND>& Visited() const { return m_visited; }
  /// Those that looked the same before they got the focus and with it.
  const std::vector<HWND>& WithoutMark() const { return m_withoutMark; }

private:
  static constexpr std::size_t kMostStops = 200;

  static Picture LookOf(HWND stop) {
    ::UpdateWindow(stop);
    return ReadPixels(stop);
  }

  void Arrive(HWND dialog) {
    const HWND stop = FocusedStop(dialog);
    if (!m_visited.empty() && !(LookOf(stop) != m_lookOfNext)) {
      m_withoutMark.push_back(stop);
    }
    if (m_visited.size() > kMostStops || (!m_visited.empty() && stop == m_visited.front())) {
      m_ended(dialog);
      return;
    }
    m_visited.push_back(stop);
    const std::vector<HWND> stops = StopsFrom(dialog, stop);
    m_lookOfNext = LookOf(m_backwards ? stops.back() : stops[1 % stops.size()]);
    SendKeyTab();
    m_script.When(Painted(FocusElsewhere(dialog, stop)), [this](HWND window) { Arrive(window); });
  }

  void SendKeyTab() const {
    if (m_backwards) {
      SendKey(VK_TAB, {VK_SHIFT});
    } else {
      SendKey(VK_TAB);
    }
  }

  static Condition FocusElsewhere(HWND dialog, HWND stop) {
    return {"the focus on another control", [dialog, stop]() -> HWND {
              const HWND now = FocusedStop(dialog);
              return now != nullptr && now != stop ? dialog : nullptr;
            }};
  }

  ModalScript& m_script;
  bool m_backwards;
  std::function<void(HWND)> m_ended;
  std::vector<HWND> m_visited;
  std::vector<HWND> m_withoutMark;
  Picture m_lookOfNext;
};

}  // namespace quorvel::test
