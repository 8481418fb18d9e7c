// A host that knows nothing but the installed library. It answers its own dialog: a timer presses
// Enter once the dialog is up.
#include <quorvel/quorvel.h>

#include <cstdio>

namespace {

void CALLBACK PressEnter(HWND, UINT, UINT_PTR timer, DWORD) {
  const HWND dialog = FindWindowW(L"#32770", L"題名");
  if (dialog != nullptr && IsWindowVisible(dialog)) {
    KillTimer(nullptr, timer);
    PostMessageW(GetDlgItem(dialog, 10001), WM_CHAR, 0x8868, 0);  // 表, over the selected text
    PostMessageW(GetDlgItem(dialog, 10001), WM_KEYDOWN, VK_RETURN, 0);
  }
}

}  // namespace

int main() {
  CKivSysEnv environment("Software\\Quorvel\\OutsideHost");
  CString text("初期値");
  CPoint position(100, 100);
  SetTimer(nullptr, 0, 50, PressEnter);
  const BOOL confirmed = __InputTextDlg("題名", "説明", &text, &position);
  const bool typed = text == "表";
  std::printf("%s %s\n", confirmed != FALSE ? "confirmed" : "cancelled",
              typed ? "as typed" : "not as typed");
  return confirmed != FALSE && typed ? 0 : 1;
}
