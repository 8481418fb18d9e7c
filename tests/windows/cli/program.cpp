#include "cli/program.h"

#include "driver/controls.h"

#include <gtest/gtest.h>

#include <array>
#include <stdexcept>

namespace quorvel::test::program {

namespace {

using driver::ClassName;

constexpr ULONGLONG kDeadline = 20'000;  // milliseconds
constexpr DWORD kLookInterval = 10;  // milliseconds

class Handle {
public:
  Handle() = default;
  explicit Handle(HANDLE handle) : m_handle(handle) {}
  ~Handle() { Close(); }
  Handle(Handle&& other) noexcept : m_handle(std::exchange(other.m_handle, nullptr)) {}
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;
  Handle& operator=(Handle&& other) noexcept {
    Close();
    m_handle = std::exchange(other.m_handle, nullptr);
    return *this;
  }
  HANDLE Get() const { return m_handle; }
  void Close() {
    if (m_handle != nullptr) {
      ::CloseHandle(std::exchange(m_handle, nullptr));
    }
  }

private:
  HANDLE m_handle = nullptr;
};

struct Pipe {
  Handle reading;
  Handle writing;
};

enum class PipeEnd { kReading, kWriting };

/// A pipe of which the process gets one end.
Pipe MakePipe(PipeEnd inheritedEnd = PipeEnd::kWriting) {
  SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
  HANDLE reading = nullptr;
  HANDLE writing = nullptr;
  ::CreatePipe(&reading, &writing, &inherited, 0);
  ::SetHandleInformation(inheritedEnd == PipeEnd::kReading ? writing : reading, HANDLE_FLAG_INHERIT,
                         0);
  return {Handle(reading), Handle(writing)};
}

std::string ReadAll(const Handle& pipe) {
  std::string all;
  std::array<char, 4096> part{};
  DWORD length = 0;
  while (::ReadFile(pipe.Get(), part.data(), static_cast<DWORD>(part.size()), &length, nullptr) !=
             FALSE &&
         length > 0) {
    all.append(part.data(), length);
  }
  return all;
}

/// The process's visible dialog; null while there is none.
HWND DialogOf(DWORD process) {
  struct Search {
    DWORD process;
    HWND found;
  } search{process, nullptr};
  ::EnumWindows(
      [](HWND window, LPARAM context) {
        auto& wanted = *reinterpret_cast<Search*>(context);
        DWORD owner = 0;
        ::GetWindowThreadProcessId(window, &owner);
        if (owner == wanted.process && ::IsWindowVisible(window) != FALSE &&
            ClassName(window) == L"#32770") {
          wanted.found = window;
        }
        return wanted.found == nullptr ? TRUE : FALSE;
      },
      reinterpret_cast<LPARAM>(&search));
  return search.found;
}

}  // namespace

Ended RunProgram(const std::wstring& arguments, const Worker& work, const std::string& input) {
  return RunHost(L"quorvel.exe", arguments, work ? std::vector{work} : std::vector<Worker>(),
                 input);
}

Ended RunHost(const std::wstring& name, const std::wstring& arguments,
              const std::vector<Worker>& workers, const std::string& input) {
  Pipe standardInput = MakePipe(PipeEnd::kReading);
  DWORD written = 0;
  // As little as this the pipe holds until it is read.
  ::WriteFile(standardInput.writing.Get(), input.data(), static_cast<DWORD>(input.size()), &written,
              nullptr);
  standardInput.writing.Close();
  Pipe output = MakePipe();
  Pipe errors = MakePipe();
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdInput = standardInput.reading.Get();
  startup.hStdOutput = output.writing.Get();
  startup.hStdError = errors.writing.Get();
  PROCESS_INFORMATION information{};
  std::wstring line = name + L" " + arguments;
  std::array<wchar_t, MAX_PATH> folder{};
  ::GetModuleFileNameW(nullptr, folder.data(), static_cast<DWORD>(folder.size()));
  std::wstring program(folder.data());
  program.erase(program.find_last_of(L'\\') + 1).append(name);
  if (::CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                       &startup, &information) == FALSE) {
    throw std::runtime_error("the program did not start, error " +
                             std::to_string(::GetLastError()));
  }
  const Handle process(information.hProcess);
  const Handle thread(information.hThread);
  standardInput.reading.Close();
  output.writing.Close();
  errors.writing.Close();

  const ULONGLONG end = ::GetTickCount64() + kDeadline;
  std::size_t worked = 0;
  HWND last = nullptr;
  while (::WaitForSingleObject(process.Get(), kLookInterval) == WAIT_TIMEOUT) {
    const HWND dialog = DialogOf(information.dwProcessId);
    if (dialog != nullptr && dialog != last && worked < workers.size()) {
      workers[worked](dialog);
      ++worked;
    }
    last = dialog;
    if (::GetTickCount64() > end) {
      ::TerminateProcess(process.Get(), 1);
      throw std::runtime_error("the program did not end");
    }
  }
  EXPECT_EQ(worked, workers.size()) << "a dialog did not come up";
  DWORD status = 0;
  ::GetExitCodeProcess(process.Get(), &status);
  return {static_cast<int>(status), ReadAll(output.reading), ReadAll(errors.reading)};
}

void Command(HWND dialog, int id) {
  ::PostMessageW(dialog, WM_COMMAND, static_cast<WPARAM>(id),
                 reinterpret_cast<LPARAM>(::GetDlgItem(dialog, id)));
}
void Confirm(HWND dialog) { Command(dialog, IDOK); }
void Cancel(HWND dialog) { Command(dialog, IDCANCEL); }

Worker SetAndConfirm(std::vector<std::pair<int, std::wstring>> fields) {
  return [fields = std::move(fields)](HWND dialog) {
    for (const auto& [id, text] : fields) {
      ::SendDlgItemMessageW(dialog, id, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
    }
    Confirm(dialog);
  };
}

std::string Utf8(const char8_t* text) { return reinterpret_cast<const char*>(text); }

}  // namespace quorvel::test::program
