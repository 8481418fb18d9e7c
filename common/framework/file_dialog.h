// CFileDialog: the platform's dialog for a file to open or to save.
//
//   CFileDialog dialog(TRUE, "*.mtpld", "", OFN_HIDEREADONLY | OFN_FILEMUSTEXIST,
//                      "Layouts (*.mtpld)|*.mtpld||");
//   if (dialog.DoModal() == IDOK) { page.OpenFileW(dialog.GetPathNameWide()); }
#pragma once

#include "framework/cstring.h"
#include "framework/frame_export.h"
#include "framework/wnd.h"

#include <commdlg.h>

#include <string>

/// Runs on the calling thread over the active window. It starts in the folder that was last chosen in
/// this run of the program, at first where the platform thinks best. The program's current folder is
/// the same afterwards. Texts are in code page 932.
class FRAME_API CFileDialog {
public:
  /// `open` chooses between opening and saving. `defaultExtension` is added to a name without
  /// extension when the chosen type does not tell one; it may be written as a pattern, "*.ext". `flags`
  /// are OFN_*, taken as they are. `filter` has a description and its patterns for each type, all
  /// ended by "|", and one more "|" at the end. All texts may be null.
  explicit CFileDialog(BOOL open, const char* defaultExtension = nullptr,
                       const char* fileName = nullptr,
                       DWORD flags = OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT,
                       const char* filter = nullptr, CWnd* parent = nullptr);

  /// IDOK when a file was chosen, else IDCANCEL.
  INT_PTR DoModal();

  /// The whole path chosen. Characters that code page 932 lacks are question marks; the wide form has
  /// them all.
  CString GetPathName() const;
  const std::wstring& GetPathNameWide() const { return m_path; }

private:
  BOOL m_bOpen;
  std::wstring m_defaultExtension;
  std::wstring m_path;
  DWORD m_nFlags;
  std::wstring m_filter;
  CWnd* m_pParent;
};
