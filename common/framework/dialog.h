// CDialog: a dialog box made from a template of the module in force, run modally, or a page in
// another dialog.
//
//   CInputDpiDlg dialog;
//   if (dialog.DoModal() == IDOK) { /* the members hold what was entered */ }
//
//   m_pEditPage->Create(IDD_EDIT_COLOUR, this);   // from OnInitDialog of the dialog around it
#pragma once

#include "framework/controls.h"
#include "framework/dialog_template.h"
#include "framework/frame_export.h"
#include "framework/wnd.h"

#include <exception>
#include <memory>
#include <vector>

/// Runs its own message loop, so that PreTranslateMessage of the dialog and of its controls sees
/// every message of the thread. Dialogs nest.
class FRAME_API CDialog : public CWnd {
public:
  /// Without a parent the thread's active window is the owner: it is disabled meanwhile.
  explicit CDialog(UINT nIDTemplate, CWnd* pParentWnd = nullptr);
  ~CDialog() override = default;

  /// Creates the dialog, runs it until EndDialog, destroys it. The result is EndDialog's; IDCANCEL
  /// when the window was destroyed from outside; -1 when it could not be created or the thread was
  /// told to quit. An exception that left a handler ends the dialog and is thrown on from here.
  virtual INT_PTR DoModal();

  /// Makes this a page: the template, which has WS_CHILD and WS_EX_CONTROLPARENT, becomes a child of
  /// `parent`, not yet shown. The dialog around it moves the focus, so Tab visits the controls of
  /// both, and Enter in the page presses the button that has the focus or confirms the dialog around.
  /// The window goes with the parent's. FALSE when it cannot be created.
  BOOL Create(UINT templateId, CWnd* parent);

  /// The first end counts: OK and Cancel that come before the loop has ended are not handled.
  virtual void EndDialog(INT_PTR nResult);

  /// The window of this thread's innermost modal dialog; null while none runs.
  static HWND GetInnermostWindow();
  /// Ends this thread's innermost modal dialog; its DoModal throws `exception`.
  static void EndInnermostWithException(std::exception_ptr exception) noexcept;

  BOOL PreTranslateMessage(MSG* message) override;
  HWND GetDlgItem(int id) const override;

protected:
  /// Called before the dialog is shown; the controls show the members. FALSE when the dialog has set
  /// the focus itself, TRUE to give it to the first control. A page's result does not count.
  virtual BOOL OnInitDialog();
  /// Reads the controls and, when none refuses, closes with IDOK.
  virtual void OnOK();
  virtual void OnCancel();

  /// Gives a control the focus as the Tab key does: an edit field's text is selected.
  void GotoDlgCtrl(HWND control);
  /// The dialog has been placed: it is not centred when it opens.
  void SetPlaced() { m_bPlaced = true; }

  /// What is modal about DoModal: creates the dialog, runs it and destroys it, and returns the result
  /// unless an exception ended it. A dialog that the system runs has its own.
  virtual INT_PTR RunModal();
  /// The window that a modal dialog is to belong to and that is disabled meanwhile; null for none.
  HWND ModalOwnerWindow() const;
  /// At WM_INITDIALOG of a dialog that the system runs: attaches the object to the window, calls
  /// OnInitDialog and gives the focus. An exception ends the dialog.
  void InitWindow(HWND window) noexcept;

  DECLARE_MESSAGE_MAP()

private:
  static INT_PTR CALLBACK StaticDialogProc(HWND window, UINT message, WPARAM wParam,
                                           LPARAM lParam);
  struct Creation;

  void HandleOK();
  void HandleCancel();
  bool IsPage() const;
  /// Null when it cannot be created.
  HWND CreateFromTemplate(UINT templateId, HWND parent);
  void HandleInitDialog();
  void AttachEditFields();
  void AttachEditField(HWND field);
  void PlaceByDefault();
  void RunModalLoop(HWND owner);
  void EndWithException(std::exception_ptr exception) noexcept;

  UINT m_nIDTemplate;
  CWnd* m_pParentWnd;
  INT_PTR m_nModalResult = -1;
  bool m_bRunning = false;
  bool m_bEnded = false;
  bool m_bPlaced = false;
  CDialog* m_pOuterModal = nullptr;  ///< the modal dialog of this thread that was innermost before
  std::exception_ptr m_exception;
  std::vector<std::unique_ptr<CEdit>> m_editFields;
  std::vector<quorvel::TemplateControl> m_controls;  ///< as they were made from the template
};
