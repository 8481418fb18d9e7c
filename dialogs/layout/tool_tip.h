// CToolTip: a small text beside the mouse pointer, over any window.
//
//   m_pToolTip = std::make_unique<CToolTip>();
//   m_pToolTip->Create(&m_image);
//   m_pToolTip->Request(point, "20mm / 30mm");   // at every move of the mouse
//   m_pToolTip->Hide();                          // and at the end
//   m_pToolTip->DestroyWindow();
#pragma once

#include "framework/collections.h"
#include "framework/wnd.h"

/// Appears when the pointer still stands where the text was requested; disappears at any key of the
/// thread, at a click on it, when the pointer comes over it, and when another tip appears: one tip is
/// on screen at a time. It never takes the focus. The first tip of the thread sets a keyboard hook,
/// the last one to go removes it. One thread only.
class CToolTip : public CWnd {
public:
  /// Throws CResourceException when the window class cannot be registered.
  CToolTip();
  ~CToolTip() override;
  CToolTip(const CToolTip&) = delete;
  CToolTip& operator=(const CToolTip&) = delete;

  /// Makes the window, hidden. `owner`, whose client area the tip is for, must outlive the requests.
  /// FALSE when it cannot be made; requests do nothing then.
  virtual BOOL Create(CWnd* owner);

  /// The text is to appear for `point`, in the owner's client pixels. A point outside the owner's
  /// client area and the point of the last request change nothing, not even the text. A tip on screen
  /// stays where it is until the new one appears.
  void Request(CPoint point, const CString& text);

  void Hide();

  BOOL DestroyWindow() override;
  BOOL PreTranslateMessage(MSG* message) override;

protected:
  /// One after a request. A derived class may show more.
  CStringArray m_lines;

  void PostNcDestroy() override;

  DECLARE_MESSAGE_MAP()

private:
  /// What all tips have in common; made by the first.
  struct Shared;
  static Shared& TheShared();
  static LRESULT CALLBACK KeyboardHook(int code, WPARAM wParam, LPARAM lParam);

  void OnPaint();
  LRESULT OnMouseMove(WPARAM wParam, LPARAM lParam);
  LRESULT OnTimer(WPARAM wParam, LPARAM lParam);

  void Show();
  /// The width of the longest line and the height of a line.
  CSize MeasureLines() const;
  void KillTimer();

  Shared& m_shared;
  CWnd* m_pOwner = nullptr;
  CPoint m_offset;
  CRect m_stayRect;  ///< screen pixels around the anchor
  CPoint m_anchor;   ///< screen pixels
  BOOL m_bCreated = FALSE;
  BOOL m_bEnabled = FALSE;
  UINT_PTR m_nTimer = 0;
};
