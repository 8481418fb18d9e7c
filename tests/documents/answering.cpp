// answering PROGRAM [ARGUMENT]...
// Runs a program with this one's input and output and answers every dialog of any process as Enter
// does, once it is up. Ends with the program's status; with 97 where the program does not start or
// does not end in time.
#include <windows.h>

#include <algorithm>
#include <array>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <type_traits>

namespace {

constexpr ULONGLONG kDeadline = 60'000;  // milliseconds
constexpr DWORD kLookInterval = 10;      // milliseconds
constexpr int kFailed = 97;

struct HandleCloser {
  void operator()(HANDLE handle) const { ::CloseHandle(handle); }
};
using Handle = std::unique_ptr<std::remove_pointer_t<HANDLE>, HandleCloser>;

/// The command line behind this program's own name.
std::wstring ProgramsLine() {
  std::wstring_view line = ::GetCommandLineW();
  const bool isQuoted = line.starts_with(L'"');
  line.remove_prefix(std::min(line.find(isQuoted ? L'"' : L' ', 1), line.size() - 1) + 1);
  line.remove_prefix(std::min(line.find_first_not_of(L' '), line.size()));
  return std::wstring(line);
}

BOOL CALLBACK Answer(HWND window, LPARAM context) {
  auto& answered = *reinterpret_cast<std::set<HWND>*>(context);
  std::array<wchar_t, 16> name{};
  ::GetClassNameW(window, name.data(), static_cast<int>(name.size()));
  if (::IsWindowVisible(window) != FALSE && std::wstring_view(name.data()) == L"#32770" &&
      answered.insert(window).second) {
    ::PostMessageW(window, WM_COMMAND, IDOK, reinterpret_cast<LPARAM>(::GetDlgItem(window, IDOK)));
  }
  return TRUE;
}

}  // namespace

int main() {
  std::wstring line = ProgramsLine();
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION started{};
  if (::CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup,
                       &started) == FALSE) {
    return kFailed;
  }
  const Handle process(started.hProcess);
  const Handle thread(started.hThread);
  const ULONGLONG end = ::GetTickCount64() + kDeadline;
  std::set<HWND> answered;
  while (::WaitForSingleObject(process.get(), kLookInterval) == WAIT_TIMEOUT) {
    ::EnumWindows(Answer, reinterpret_cast<LPARAM>(&answered));
    if (::GetTickCount64() > end) {
      ::TerminateProcess(process.get(), kFailed);
    }
  }
  DWORD status = 0;
  ::GetExitCodeProcess(process.get(), &status);
  return static_cast<int>(status);
}
