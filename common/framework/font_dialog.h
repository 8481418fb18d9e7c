// CFontDialog: the platform's font dialog, run modally, as an object.
//
//   CFontDialog dialog(&logFont);
//   if (dialog.DoModal() == IDOK) logFont = dialog.GetCurrentFont();
#pragma once

#include "framework/dialog.h"
#include "framework/frame_export.h"

#include <commdlg.h>

/// A class derived from it may bring a template of its own (CF_ENABLETEMPLATE in m_cf), with the
/// platform's identifiers for the platform's controls. The message map and the data exchange work
/// as in any CDialog. The platform takes each notification of a control first, so a handler sees
/// what has come of it; only OK and Cancel are the object's own.
class FRAME_API CFontDialog : public CDialog {
public:
  /// `initial` is copied; null for the platform's own choice. `flags` are the CF_ flags; without a
  /// parent the thread's active window is the owner.
  explicit CFontDialog(const LOGFONTA* initial = nullptr, DWORD flags = CF_EFFECTS | CF_SCREENFONTS,
                       HDC printer = nullptr, CWnd* parent = nullptr);
  ~CFontDialog() override = default;

  /// The platform's record. DoModal sets its size, owner, font pointer and hook, all else is the
  /// user's: flags, colour, template.
  CHOOSEFONTW m_cf{};

  /// Replaces the font that the dialog begins with. For a face that is not installed as a TrueType
  /// font, the dialog shows the one that the system takes for it.
  void SetCurrentFont(const LOGFONTA& font) { m_font = font; }

  /// After IDOK the font chosen: height, face, style and effects as the user left them; what the
  /// dialog does not ask for, and the face and the style that the user did not pick, are as they
  /// went in. The face is in code page 932. Before that, the font that the dialog begins with.
  const LOGFONTA& GetCurrentFont() const { return m_font; }

  void EndDialog(INT_PTR nResult) override;

protected:
  INT_PTR RunModal() override;
  /// Lists vertical faces ("@") after all others.
  BOOL OnInitDialog() override;
  /// Reads the controls; unless one refuses, or the face's name cannot be returned, of which the
  /// user is told, the platform goes on and closes the dialog.
  void OnOK() override;
  /// All fields are read; the platform looks at its own controls next.
  virtual void OnAccepted() {}
  void OnCancel() override;
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

  /// Has the platform act on a notification of one of its controls as if the user had caused it.
  void TellPlatform(int id, UINT notification);

private:
  static UINT_PTR CALLBACK Hook(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  void ListVerticalFacesLast();
  void TakeResult();

  LOGFONTA m_font{};
  LOGFONTW m_platformFont{};
  bool m_bOpened = false;
  bool m_bAccepted = false;
  bool m_bMovingFaces = false;
  bool m_bFacePicked = false;
  bool m_bStylePicked = false;
};
