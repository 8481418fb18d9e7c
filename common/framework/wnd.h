// CWnd: a C++ object that handles the messages of one window.
//
//   m_list.SubclassDlgItem(IDC_LIST, this);  // from now on m_list sees the control's messages first
#pragma once

#include "framework/cstring.h"
#include "framework/frame_export.h"
#include "framework/geometry.h"
#include "framework/message_map.h"

#include <string>

class CDataExchange;

/// Attached to at most one window at a time, and a window to at most one object. Neither owns the
/// other: when the window is destroyed the object is detached; when the object is destroyed first,
/// the window goes on with its own procedure. One thread only.
class FRAME_API CWnd : public CCmdTarget {
public:
  CWnd() = default;
  ~CWnd() override;
  CWnd(const CWnd&) = delete;
  CWnd& operator=(const CWnd&) = delete;

  /// Null while no window is attached.
  HWND m_hWnd = nullptr;

  /// The object attached to a window of this thread; null where there is none.
  static CWnd* FromHandlePermanent(HWND window);

  /// Attaches the object to an existing window; an object attached to it before is detached.
  /// FALSE, with no effect, when there is no such window or the object has one already.
  BOOL SubclassWindow(HWND window);
  BOOL SubclassDlgItem(UINT id, CWnd* parent);
  /// Detaches and returns the window, which stays.
  HWND UnsubclassWindow();
  /// Creates a child of `parent`, of a class of the system or of one that was registered before, and
  /// attaches the object to it. `rect` is in the parent's client pixels. FALSE when it cannot, or
  /// when the object has a window.
  BOOL CreateChild(const wchar_t* className, DWORD extendedStyle, DWORD style, const CRect& rect,
                   const CWnd* parent, UINT id);
  /// Destroys the window; the object is detached. Without a window nothing happens, and the result
  /// is FALSE.
  virtual BOOL DestroyWindow();

  /// Shows the values of the members in the controls (FALSE) or reads the controls into the members
  /// (TRUE). Reading stops at the first field that is refused: one message is shown, the field gets
  /// the focus with its text selected, the members of the fields before it keep what was read, and
  /// the result is FALSE. Notifications of the controls are not handled meanwhile.
  BOOL UpdateData(BOOL bSaveAndValidate = TRUE);

  /// The control with this identifier, the first where there are more; null where there is none.
  virtual HWND GetDlgItem(int id) const;
  /// The text in code page 932, of any length.
  CString GetWindowText() const;
  void SetWindowText(const char* text);
  CString GetDlgItemText(int id) const;
  void SetDlgItemText(int id, const char* text);
  /// A whole number, in digits.
  void SetDlgItemNumber(int id, int number);
  /// Whether it shows the number and nothing else, no 0 in front of it either.
  bool ShowsNumber(int id, int number) const;
  /// In screen pixels.
  CRect GetWindowRect() const;
  /// Its top-left corner is (0, 0).
  CRect GetClientRect() const;
  /// Of a control, in this window's client pixels.
  CRect GetDlgItemRect(int id) const;
  /// Moves without resizing; client pixels for a child.
  void MoveTo(const CPoint& topLeft);
  /// Moves a control without resizing it; this window's client pixels.
  void MoveDlgItem(int id, const CPoint& topLeft);
  /// Resizes without moving.
  void ResizeTo(const CSize& size);
  /// Moves and resizes; client pixels of the parent for a child.
  void MoveWindow(const CRect& rect);

  /// Asks for the window, or a part of it in client pixels, to be painted. What is painted covers
  /// it whole: it is not erased before. Nothing happens without a window.
  void Invalidate() const { InvalidatePart(nullptr); }
  void InvalidateRect(const CRect& rect) const { InvalidatePart(&rect); }

  /// A look at a message before it is dispatched to this window or one inside it. TRUE when it has
  /// been dealt with.
  virtual BOOL PreTranslateMessage(MSG* message);

protected:
  /// Every message of the window: the message map first, then the default handling.
  virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
  /// What happens to a message without a handler: a control draws and measures itself, and the
  /// window's own procedure does the rest.
  LRESULT Default(UINT message, WPARAM wParam, LPARAM lParam);
  /// Calls the handler of a WM_COMMAND; false where there is none.
  bool HandleCommand(WPARAM wParam, LPARAM lParam);
  /// What the window's own procedure does with a message.
  LRESULT CallPreviousProc(UINT message, WPARAM wParam, LPARAM lParam);
  /// The text that the window was given, whatever this object answers to WM_GETTEXT.
  std::wstring GivenText();
  /// Moves values between members and controls.
  virtual void DoDataExchange(CDataExchange* pDX);
  /// The window is gone, the object detached from it: what belonged to the window can be deleted.
  virtual void PostNcDestroy();
  /// A notification that this control sent to its parent, offered to the control first. TRUE, with
  /// the answer in `*result`, when the parent need not see it.
  virtual BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);

  DECLARE_MESSAGE_MAP()

private:
  static LRESULT CALLBACK StaticWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  /// The object of the control that a notification to this window comes from; null where there is
  /// none, or where the message is no notification.
  CWnd* SenderOf(UINT message, WPARAM wParam, LPARAM lParam) const;
  bool OfferToSender(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) const;
  /// Null is the whole client area.
  void InvalidatePart(const RECT* part) const;
  void Detach();

  WNDPROC m_previousProc = nullptr;
  CWnd* m_next = nullptr;  ///< in this thread's list of attached objects
  bool m_bExchangingData = false;
};
