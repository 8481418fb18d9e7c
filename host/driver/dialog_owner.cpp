#include "driver/dialog_owner.h"

#include <cstdio>

namespace quorvel::driver {

namespace {

constexpr const wchar_t* kOwnerClass = L"QuorvelDialogOwner";
constexpr POINT kOwnerCorner{300, 200};
constexpr SIZE kOwnerSize{400, 300};
constexpr UINT_PTR kWatchdog = 1;
constexpr UINT kWatchdogMilliseconds = 60'000;
constexpr UINT kHangStatus = 99;
constexpr WORD kManifestResource = 2;

bool HasSomethingToPaint(HWND window) {
  return IsWindowVisible(window) != FALSE && GetUpdateRect(window, nullptr, FALSE) != FALSE;
}

/// The dialog has at least one control.
bool IsPainted(HWND dialog) {
  if (IsWindowVisible(dialog) == FALSE || HasSomethingToPaint(dialog)) {
    return false;
  }
  const auto goOnWhilePainted = [](HWND child, LPARAM) -> BOOL {
    return HasSomethingToPaint(child) ? FALSE : TRUE;
  };
  return EnumChildWindows(dialog, goOnWhilePainted, 0) != FALSE;
}

INT_PTR CALLBACK BareProc(HWND dialog, UINT message, WPARAM wParam, LPARAM /*lParam*/) {
  if (message == WM_COMMAND && (LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL)) {
    EndDialog(dialog, LOWORD(wParam));
    return TRUE;
  }
  return message == WM_INITDIALOG ? TRUE : FALSE;
}

}  // namespace

DialogOwner::DialogOwner() {
  WNDCLASSW description{};
  description.lpfnWndProc = &DialogOwner::Proc;
  description.lpszClassName = kOwnerClass;
  RegisterClassW(&description);
  m_window = CreateWindowExW(0, kOwnerClass, L"owner", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                             kOwnerCorner.x, kOwnerCorner.y, kOwnerSize.cx, kOwnerSize.cy, nullptr,
                             nullptr, nullptr, nullptr);
  SetWindowLongPtrW(m_window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  SetActiveWindow(m_window);
}

DialogOwner::~DialogOwner() {
  DestroyWindow(m_window);
  UnregisterClassW(kOwnerClass, nullptr);
}

void DialogOwner::SetCommand(WORD command) {
  m_command = command;
  SetTimer(m_window, kWatchdog, kWatchdogMilliseconds, nullptr);
}

LRESULT CALLBACK DialogOwner::Proc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  auto* const owner = reinterpret_cast<DialogOwner*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (message == WM_ENTERIDLE && wParam == MSGF_DIALOGBOX && owner != nullptr) {
    owner->OnIdle(reinterpret_cast<HWND>(lParam));
  } else if (message == WM_TIMER && wParam == kWatchdog) {
    std::fputs("a dialog does not close\n", stderr);
    std::fflush(stderr);  // which the end of the process does not do
    TerminateProcess(GetCurrentProcess(), kHangStatus);
  } else if (message == WM_ENABLE && wParam != FALSE && owner != nullptr) {
    owner->m_lastAnswered = nullptr;  // the dialog is gone; the next may get its handle
  }
  return DefWindowProcW(window, message, wParam, lParam);
}

void DialogOwner::OnIdle(HWND dialog) {
  if (dialog == m_lastAnswered) {
    return;
  }
  // Before the look at each control, which takes the longer the more there are.
  GdiFlush();
  LARGE_INTEGER now{};
  QueryPerformanceCounter(&now);
  if (!IsPainted(dialog)) {
    return;
  }
  m_paintedAt = now.QuadPart;
  m_lastAnswered = dialog;
  ++m_answered;
  PostMessageW(dialog, WM_COMMAND, m_command, 0);
}

ModuleContext::ModuleContext(HMODULE module) {
  ACTCTXW description{};
  description.cbSize = sizeof description;
  description.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID | ACTCTX_FLAG_HMODULE_VALID;
  description.hModule = module;
  description.lpResourceName = MAKEINTRESOURCEW(kManifestResource);
  m_context = CreateActCtxW(&description);
}

ModuleContext::~ModuleContext() { ReleaseActCtx(m_context); }

void BareDialog::Run(HWND owner) const {
  m_context.Run([&] {
    DialogBoxParamW(m_module, MAKEINTRESOURCEW(m_templateId), owner, BareProc, 0);
  });
}

}  // namespace quorvel::driver
