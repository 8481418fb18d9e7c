// Message maps: which member function of a class handles which message.
//
//   BEGIN_MESSAGE_MAP(CInputPointDlg, CKivDialog)
//     ON_BN_CLICKED(IDC_POINT_MOUSE, &CInputPointDlg::OnMousePick)
//   END_MESSAGE_MAP()
#pragma once

#include "framework/base_types.h"
#include "framework/frame_export.h"
#include "framework/geometry.h"

#include <array>

class CCmdTarget;

/// A row of a map. `code` and the identifiers count for WM_COMMAND and WM_NOTIFY only: the
/// notification code, and the controls that it may come from.
struct AFX_MSGMAP_ENTRY {
  UINT message;
  UINT code;
  UINT firstId;
  UINT lastId;
  /// Calls the member function; null ends the map.
  LRESULT (*call)(CCmdTarget& target, WPARAM wParam, LPARAM lParam);
};

struct AFX_MSGMAP {
  const AFX_MSGMAP* (*baseMap)();  ///< null for the root
  const AFX_MSGMAP_ENTRY* entries;
};

/// Anything with a message map.
class FRAME_API CCmdTarget {
public:
  CCmdTarget() = default;
  virtual ~CCmdTarget();
  CCmdTarget(const CCmdTarget&) = delete;
  CCmdTarget& operator=(const CCmdTarget&) = delete;

protected:
  static const AFX_MSGMAP* GetThisMessageMap();
  virtual const AFX_MSGMAP* GetMessageMap() const;

  /// The row for a message, in this class's map or the nearest base's; null where there is none.
  const AFX_MSGMAP_ENTRY* FindHandler(UINT message, UINT code, UINT id) const;
};

namespace quorvel::message_map {

template <class Class, class Result, class... Arguments>
Class& TargetOf(CCmdTarget& target, Result (Class::* /*handler*/)(Arguments...)) {
  return static_cast<Class&>(target);
}

template <auto Handler>
LRESULT CallCommand(CCmdTarget& target, WPARAM /*wParam*/, LPARAM /*lParam*/) {
  (TargetOf(target, Handler).*Handler)();
  return 0;
}

template <auto Handler>
LRESULT CallRange(CCmdTarget& target, WPARAM wParam, LPARAM /*lParam*/) {
  (TargetOf(target, Handler).*Handler)(LOWORD(wParam));
  return 0;
}

template <auto Handler>
LRESULT CallNotify(CCmdTarget& target, WPARAM /*wParam*/, LPARAM lParam) {
  (TargetOf(target, Handler).*Handler)(*reinterpret_cast<const NMHDR*>(lParam));
  return 0;
}

template <auto Handler>
LRESULT CallMouse(CCmdTarget& target, WPARAM wParam, LPARAM lParam) {
  // The halves are signed: a captured mouse leaves the window on every side.
  const CPoint point(static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam)));
  (TargetOf(target, Handler).*Handler)(static_cast<UINT>(wParam), point);
  return 0;
}

template <auto Handler>
LRESULT CallScroll(CCmdTarget& target, WPARAM wParam, LPARAM lParam) {
  (TargetOf(target, Handler).*Handler)(LOWORD(wParam), static_cast<short>(HIWORD(wParam)),
                                       reinterpret_cast<HWND>(lParam));
  return 0;
}

template <auto Handler>
LRESULT CallMessage(CCmdTarget& target, WPARAM wParam, LPARAM lParam) {
  return (TargetOf(target, Handler).*Handler)(wParam, lParam);
}

}  // namespace quorvel::message_map

#define DECLARE_MESSAGE_MAP()                      \
protected:                                         \
  static const AFX_MSGMAP* GetThisMessageMap();    \
  const AFX_MSGMAP* GetMessageMap() const override;

#define BEGIN_MESSAGE_MAP(theClass, baseClass)                                      \
  const AFX_MSGMAP* theClass::GetMessageMap() const { return GetThisMessageMap(); } \
  const AFX_MSGMAP* theClass::GetThisMessageMap() {                                 \
    const auto baseMap = &baseClass::GetThisMessageMap;                             \
    static constexpr auto kEntries = std::to_array<AFX_MSGMAP_ENTRY>({

#define END_MESSAGE_MAP()                                       \
  { 0, 0, 0, 0, nullptr }                                       \
  });                                                           \
  static const AFX_MSGMAP messageMap{baseMap, kEntries.data()}; \
  return &messageMap;                                           \
  }

/// A notification `code` of the control `id`; the handler takes nothing and returns nothing.
#define ON_CONTROL(code, id, handler) \
  {WM_COMMAND, code, id, id, &quorvel::message_map::CallCommand<handler>},
#define ON_COMMAND(id, handler) ON_CONTROL(0, id, handler)
#define ON_BN_CLICKED(id, handler) ON_CONTROL(BN_CLICKED, id, handler)
#define ON_BN_DOUBLECLICKED(id, handler) ON_CONTROL(BN_DOUBLECLICKED, id, handler)
#define ON_CBN_SELCHANGE(id, handler) ON_CONTROL(CBN_SELCHANGE, id, handler)
#define ON_EN_CHANGE(id, handler) ON_CONTROL(EN_CHANGE, id, handler)
#define ON_EN_KILLFOCUS(id, handler) ON_CONTROL(EN_KILLFOCUS, id, handler)
#define ON_EN_UPDATE(id, handler) ON_CONTROL(EN_UPDATE, id, handler)

/// The same of all controls from `first` to `last`; the handler takes the control's UINT identifier.
#define ON_CONTROL_RANGE(code, first, last, handler) \
  {WM_COMMAND, code, first, last, &quorvel::message_map::CallRange<handler>},

/// A notification by WM_NOTIFY; the handler takes its const NMHDR&. With a range, of all controls
/// from `first` to `last`.
#define ON_NOTIFY(code, id, handler) ON_NOTIFY_RANGE(code, id, id, handler)
#define ON_NOTIFY_RANGE(code, first, last, handler) \
  {WM_NOTIFY, static_cast<UINT>(code), first, last, &quorvel::message_map::CallNotify<handler>},

/// Any message; the handler is LRESULT (WPARAM, LPARAM).
#define ON_MESSAGE(message, handler) \
  {message, 0, 0, 0, &quorvel::message_map::CallMessage<handler>},

#define ON_WM_PAINT(handler) \
  {WM_PAINT, 0, 0, 0, &quorvel::message_map::CallCommand<handler>},
/// The handlers take UINT keys, the state of keys and buttons, and a CPoint in client pixels.
#define ON_WM_LBUTTONDOWN(handler) \
  {WM_LBUTTONDOWN, 0, 0, 0, &quorvel::message_map::CallMouse<handler>},
#define ON_WM_LBUTTONDBLCLK(handler) \
  {WM_LBUTTONDBLCLK, 0, 0, 0, &quorvel::message_map::CallMouse<handler>},
#define ON_WM_LBUTTONUP(handler) \
  {WM_LBUTTONUP, 0, 0, 0, &quorvel::message_map::CallMouse<handler>},
#define ON_WM_RBUTTONUP(handler) \
  {WM_RBUTTONUP, 0, 0, 0, &quorvel::message_map::CallMouse<handler>},
#define ON_WM_MOUSEMOVE(handler) \
  {WM_MOUSEMOVE, 0, 0, 0, &quorvel::message_map::CallMouse<handler>},
/// The handlers take UINT code, int position and the HWND of the scroll bar.
#define ON_WM_HSCROLL(handler) \
  {WM_HSCROLL, 0, 0, 0, &quorvel::message_map::CallScroll<handler>},
#define ON_WM_VSCROLL(handler) \
  {WM_VSCROLL, 0, 0, 0, &quorvel::message_map::CallScroll<handler>},
