#include "soak/step_record.h"

#include "driver/controls.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace quorvel::test {

namespace {

/// FNV-1a.
class Digest {
public:
  void Add(std::string_view bytes) {
    constexpr std::uint64_t kPrime = 0x100000001B3;
    for (const char byte : bytes) {
      m_value = (m_value ^ static_cast<unsigned char>(byte)) * kPrime;
    }
  }
  void Add(std::wstring_view text) {
    Add(std::string_view(reinterpret_cast<const char*>(text.data()), text.size() * sizeof(wchar_t)));
  }
  void Add(LONGLONG number) {
    Add(std::string_view(reinterpret_cast<const char*>(&number), sizeof number));
  }
  std::uint64_t Value() const { return m_value; }

private:
  std::uint64_t m_value = 0xCBF29CE484222325;
};

std::string NameOf(HWND window) {
  std::string name;
  for (HWND one = window; one != nullptr; one = ::GetAncestor(one, GA_PARENT)) {
    if (::GetAncestor(one, GA_PARENT) == ::GetDesktopWindow()) {
      break;
    }
    name = "/" + std::to_string(::GetDlgCtrlID(one)) + name;
  }
  return name.empty() ? "/" : name;
}

void AddControl(Digest& digest, HWND control) {
  digest.Add(::GetDlgCtrlID(control));
  digest.Add(::IsWindowVisible(control));
  digest.Add(::IsWindowEnabled(control));
  const std::wstring className = driver::ClassName(control);
  digest.Add(driver::Text(control));
  if (className == L"Button") {
    digest.Add(::SendMessageW(control, BM_GETCHECK, 0, 0));
  } else if (className == L"ComboBox") {
    digest.Add(::SendMessageW(control, CB_GETCURSEL, 0, 0));
  }
}

}  // namespace

StepRecord::StepRecord(const std::filesystem::path& file)
    : m_file(::CreateFileW(file.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_ALWAYS,
                           FILE_ATTRIBUTE_NORMAL, nullptr)) {}

StepRecord::~StepRecord() {
  if (m_file != INVALID_HANDLE_VALUE) {
    ::CloseHandle(m_file);
  }
}

void StepRecord::AddStep(int step, const char* what, HWND window, int first, int second) {
  AddLine(std::to_string(step) + " " + what + " " + NameOf(window) + " " + std::to_string(first) +
          " " + std::to_string(second));
}

void StepRecord::AddState(HWND dialog, const std::string& more) {
  Digest digest;
  digest.Add(driver::Text(dialog));
  digest.Add(driver::FocusedControlId(dialog));
  ::EnumChildWindows(
      dialog,
      [](HWND child, LPARAM parameter) -> BOOL {
        AddControl(*reinterpret_cast<Digest*>(parameter), child);
        return TRUE;
      },
      reinterpret_cast<LPARAM>(&digest));
  digest.Add(more);
  AddLine("  shows " + std::to_string(digest.Value()));
}

void StepRecord::AddLine(const std::string& line) {
  m_text += line + "\n";
  if (m_file != INVALID_HANDLE_VALUE) {
    DWORD written = 0;
    ::WriteFile(m_file, line.c_str(), static_cast<DWORD>(line.size()), &written, nullptr);
    ::WriteFile(m_file, "\n", 1, &written, nullptr);
  }
}

}  // namespace quorvel::test
