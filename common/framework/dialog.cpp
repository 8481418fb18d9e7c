#include "framework/dialog.h"

#include "framework/module_state.h"
#include "framework/placing.h"

#include <array>
#include <cwchar>
#include <utility>

namespace {

thread_local CDialog* g_innermostModal = nullptr;

/// The window that a modal dialog belongs to, disabled for as long as the guard lives.
class ModalOwner {
public:
  explicit ModalOwner(HWND window)
      : m_hWnd(window), m_bDisabled(window != nullptr && ::IsWindowEnabled(window) != FALSE) {
    if (m_bDisabled) {
      ::EnableWindow(window, FALSE);
    }
  }
  ~ModalOwner() { Enable(); }
  ModalOwner(const ModalOwner&) = delete;
  ModalOwner& operator=(const ModalOwner&) = delete;

  HWND Window() const { return m_hWnd; }
  void Enable() {
    if (std::exchange(m_bDisabled, false)) {
      ::EnableWindow(m_hWnd, TRUE);
    }
  }

private:
  HWND m_hWnd;
  bool m_bDisabled;
};

/// Sets this thread's innermost modal dialog for as long as the guard lives.
class InnermostModal {
public:
  InnermostModal(CDialog* dialog, CDialog*& outer) : m_outer(outer) {
    outer = std::exchange(g_innermostModal, dialog);
  }
  ~InnermostModal() { g_innermostModal = std::exchange(m_outer, nullptr); }
  InnermostModal(const InnermostModal&) = delete;
  InnermostModal& operator=(const InnermostModal&) = delete;

private:
  CDialog*& m_outer;
};

/// Destroys the dialog's window, if it still stands, so that the owner is active afterwards: it must
/// be enabled before the dialog disappears, or the system activates some other program.
class DestroyedAtEnd {
public:
  DestroyedAtEnd(const CWnd& dialog, ModalOwner& owner) : m_dialog(dialog), m_owner(owner) {}
  ~DestroyedAtEnd() {
    const HWND window = m_dialog.m_hWnd;
    m_owner.Enable();
    if (window == nullptr) {
      return;
    }
    if (::IsWindowVisible(window) != FALSE) {
      const bool wasActive = ::GetActiveWindow() == window;
      ::SetWindowPos(window, nullptr, 0, 0, 0, 0,
                     SWP_HIDEWINDOW | SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE | SWP_NOZORDER);
      if (wasActive && m_owner.Window() != nullptr) {
        ::SetActiveWindow(m_owner.Window());
      }
    }
    ::DestroyWindow(window);
  }
  DestroyedAtEnd(const DestroyedAtEnd&) = delete;
  DestroyedAtEnd& operator=(const DestroyedAtEnd&) = delete;

private:
  const CWnd& m_dialog;
  ModalOwner& m_owner;
};

CRect WorkAreaAt(HWND window) {
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  ::GetMonitorInfoW(::MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor);
  return monitor.rcWork;
}

/// Null where the module has none.
const void* FindTemplate(HINSTANCE module, UINT id) {
  const auto* type = reinterpret_cast<LPCWSTR>(RT_DIALOG);
  const HRSRC resource = ::FindResourceW(module, MAKEINTRESOURCEW(id), type);
  const HGLOBAL loaded = resource != nullptr ? ::LoadResource(module, resource) : nullptr;
  return loaded != nullptr ? ::LockResource(loaded) : nullptr;
}

}  // namespace

/// What the dialog procedure needs of the call that creates the dialog.
struct CDialog::Creation {
  CDialog& dialog;
  const quorvel::DialogTemplate& dialogTemplate;
  bool succeeded = false;
};

BEGIN_MESSAGE_MAP(CDialog, CWnd)
  ON_COMMAND(IDOK, &CDialog::HandleOK)
  ON_COMMAND(IDCANCEL, &CDialog::HandleCancel)
END_MESSAGE_MAP()

CDialog::CDialog(UINT nIDTemplate, CWnd* pParentWnd)
    : m_nIDTemplate(nIDTemplate), m_pParentWnd(pParentWnd) {}

INT_PTR CDialog::DoModal() {
  INT_PTR result = -1;
  {
    const InnermostModal innermost(this, m_pOuterModal);
    result = RunModal();
  }
  m_editFields.clear();
  m_controls.clear();
  if (m_exception) {
    std::rethrow_exception(std::exchange(m_exception, nullptr));
  }
  return result;
}

INT_PTR CDialog::RunModal() {
  m_nModalResult = -1;
  m_bRunning = true;
  m_bEnded = false;
  {
    ModalOwner owner(ModalOwnerWindow());
    const DestroyedAtEnd destroyed(*this, owner);
    const HWND window = CreateFromTemplate(m_nIDTemplate, owner.Window());
    if (window != nullptr && m_bRunning) {
      ::ShowWindow(window, SW_SHOWNORMAL);
      RunModalLoop(owner.Window());
    }
    m_bRunning = false;
  }
  return m_nModalResult;
}

HWND CDialog::ModalOwnerWindow() const {
  const HWND window = m_pParentWnd != nullptr ? m_pParentWnd->m_hWnd : ::GetActiveWindow();
  const HWND root = window != nullptr ? ::GetAncestor(window, GA_ROOT) : nullptr;
  return root != nullptr && ::IsWindowVisible(root) != FALSE ? root : nullptr;
}

BOOL CDialog::Create(UINT templateId, CWnd* parent) {
  m_editFields.clear();
  m_controls.clear();
  return CreateFromTemplate(templateId, parent->m_hWnd) != nullptr ? TRUE : FALSE;
}

HWND CDialog::CreateFromTemplate(UINT templateId, HWND parent) {
  const HINSTANCE module = AfxGetResourceHandle();
  const void* resource = FindTemplate(module, templateId);
  if (resource == nullptr) {
    return nullptr;
  }
  const quorvel::DialogTemplate dialogTemplate(resource);
  Creation creation{*this, dialogTemplate};
  const HWND window =
      ::CreateDialogIndirectParamW(module, dialogTemplate.WithoutControls(), parent,
                                   &CDialog::StaticDialogProc, reinterpret_cast<LPARAM>(&creation));
  if (window != nullptr && !creation.succeeded) {
    ::DestroyWindow(window);
    return nullptr;
  }
  return window;
}

bool CDialog::IsPage() const { return (::GetWindowLongPtrW(m_hWnd, GWL_STYLE) & WS_CHILD) != 0; }

void CDialog::RunModalLoop(HWND owner) {
  while (m_bRunning) {
    MSG message{};
    if (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) == FALSE) {
      if (owner != nullptr) {
        ::SendMessageW(owner, WM_ENTERIDLE, MSGF_DIALOGBOX, reinterpret_cast<LPARAM>(m_hWnd));
      }
      ::GetMessageW(&message, nullptr, 0, 0);
    }
    if (message.message == WM_QUIT) {
      ::PostQuitMessage(static_cast<int>(message.wParam));  // for the host's own loop
      EndDialog(-1);
      return;
    }
    BOOL done = FALSE;
    for (HWND window = message.hwnd; window != nullptr && done == FALSE;
         window = window != m_hWnd ? ::GetParent(window) : nullptr) {
      if (CWnd* object = FromHandlePermanent(window)) {
        done = object->PreTranslateMessage(&message);
      }
    }
    if (done == FALSE) {
      ::TranslateMessage(&message);
      ::DispatchMessageW(&message);
    }
    if (m_bRunning && m_hWnd == nullptr) {
      m_nModalResult = IDCANCEL;  // destroyed by someone else
      m_bRunning = false;
    }
  }
}

void CDialog::EndDialog(INT_PTR nResult) {
  if (std::exchange(m_bEnded, true)) {
    return;
  }
  m_nModalResult = nResult;
  m_bRunning = false;
  // The loop may be waiting while a message sent from elsewhere ends the dialog.
  if (m_hWnd != nullptr) {
    ::PostMessageW(m_hWnd, WM_NULL, 0, 0);
  }
}

HWND CDialog::GetInnermostWindow() {
  return g_innermostModal != nullptr ? g_innermostModal->m_hWnd : nullptr;
}

void CDialog::EndInnermostWithException(std::exception_ptr exception) noexcept {
  if (g_innermostModal == nullptr) {
    std::terminate();  // a window outside any modal dialog: there is nobody to tell
  }
  g_innermostModal->EndWithException(std::move(exception));
}

void CDialog::EndWithException(std::exception_ptr exception) noexcept {
  m_exception = std::move(exception);
  EndDialog(-1);
}

BOOL CDialog::PreTranslateMessage(MSG* message) {
  const bool isKey = WM_KEYFIRST <= message->message && message->message <= WM_KEYLAST;
  if (isKey && ::IsWindowVisible(message->hwnd) == FALSE) {
    // For a control that has been hidden since: some platforms' dialog managers would look for the
    // next control behind it for ever.
    return FALSE;
  }
  if (!IsPage()) {
    return ::IsDialogMessageW(m_hWnd, message);
  }
  // The dialog around would look for the button among its own controls.
  const bool pressesButton =
      message->message == WM_KEYDOWN && message->wParam == VK_RETURN &&
      (::SendMessageW(message->hwnd, WM_GETDLGCODE, VK_RETURN, 0) &
       (DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON)) != 0;
  if (pressesButton) {
    ::SendMessageW(message->hwnd, BM_CLICK, 0, 0);
  }
  return pressesButton ? TRUE : FALSE;
}

INT_PTR CALLBACK CDialog::StaticDialogProc(HWND window, UINT message, WPARAM /*wParam*/,
                                           LPARAM lParam) {
  if (message != WM_INITDIALOG) {
    return FALSE;
  }
  try {
    auto& creation = *reinterpret_cast<Creation*>(lParam);
    creation.dialog.SubclassWindow(window);
    creation.succeeded = creation.dialogTemplate.CreateControls(window, creation.dialog.m_controls);
    if (creation.succeeded) {
      creation.dialog.HandleInitDialog();
    }
  } catch (...) {
    EndInnermostWithException(std::current_exception());
  }
  return FALSE;  // who has the focus is settled
}

void CDialog::InitWindow(HWND window) noexcept {
  try {
    SubclassWindow(window);
    HandleInitDialog();
  } catch (...) {
    EndInnermostWithException(std::current_exception());
  }
}

void CDialog::HandleInitDialog() {
  m_bPlaced = false;
  const BOOL letSystemSetFocus = OnInitDialog();
  AttachEditFields();
  if (IsPage()) {
    return;
  }
  if (!m_bPlaced) {
    PlaceByDefault();
  }
  if (letSystemSetFocus != FALSE) {
    GotoDlgCtrl(::GetNextDlgTabItem(m_hWnd, nullptr, FALSE));
  }
}

// The platform looks through all children each time, and under Wine that is a question to another
// process.
HWND CDialog::GetDlgItem(int id) const {
  for (const quorvel::TemplateControl& control : m_controls) {
    const bool stillThere = control.id == id && ::GetDlgCtrlID(control.window) == id &&
                            ::GetParent(control.window) == m_hWnd && m_hWnd != nullptr;
    if (stillThere) {
      return control.window;
    }
  }
  return CWnd::GetDlgItem(id);
}

void CDialog::AttachEditFields() {
  if (!m_controls.empty()) {
    for (const quorvel::TemplateControl& control : m_controls) {
      if (control.isEditField) {
        AttachEditField(control.window);
      }
    }
    return;
  }
  for (HWND child = ::GetWindow(m_hWnd, GW_CHILD); child != nullptr;
       child = ::GetWindow(child, GW_HWNDNEXT)) {
    std::array<wchar_t, 8> className{};
    ::GetClassNameW(child, className.data(), static_cast<int>(className.size()));
    if (::_wcsicmp(className.data(), L"Edit") == 0) {
      AttachEditField(child);
    }
  }
}

void CDialog::AttachEditField(HWND field) {
  if (FromHandlePermanent(field) == nullptr) {
    m_editFields.push_back(std::make_unique<CEdit>());
    m_editFields.back()->SubclassWindow(field);
  }
}

void CDialog::PlaceByDefault() {
  const HWND owner = ::GetWindow(m_hWnd, GW_OWNER);
  const CSize size = GetWindowRect().Size();
  const CRect workArea = WorkAreaAt(owner != nullptr ? owner : m_hWnd);
  CRect centredOn = workArea;
  if (owner != nullptr && ::IsIconic(owner) == FALSE) {
    ::GetWindowRect(owner, &centredOn);
  }
  MoveTo(quorvel::KeptVisible(workArea, quorvel::CentredIn(centredOn, size), size));
}

BOOL CDialog::OnInitDialog() {
  if (UpdateData(FALSE) == FALSE) {
    EndDialog(-1);
    return FALSE;
  }
  return TRUE;
}

void CDialog::HandleOK() {
  if (!m_bEnded) {
    OnOK();
  }
}

void CDialog::HandleCancel() {
  if (!m_bEnded) {
    OnCancel();
  }
}

void CDialog::OnOK() {
  if (UpdateData(TRUE) != FALSE) {
    EndDialog(IDOK);
  }
}

void CDialog::OnCancel() { EndDialog(IDCANCEL); }

void CDialog::GotoDlgCtrl(HWND control) {
  ::SendMessageW(m_hWnd, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control), TRUE);
}
