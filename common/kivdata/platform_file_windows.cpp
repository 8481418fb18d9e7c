#include "framework/code_page.h"
#include "kivdata/platform_file.h"

#include <algorithm>
#include <limits>

namespace quorvel {
namespace {

HANDLE HandleOf(std::intptr_t handle) {
  return reinterpret_cast<HANDLE>(handle);
}

/// As much as one call takes.
DWORD Portion(std::size_t size) {
  return static_cast<DWORD>(std::min<std::size_t>(size, std::numeric_limits<int>::max()));
}

}  // namespace

PlatformFile PlatformFile::OpenForReading(const std::filesystem::path& path) {
  return PlatformFile(reinterpret_cast<std::intptr_t>(
      ::CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_DELETE, nullptr,
                    OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr)));
}

PlatformFile PlatformFile::CreateNew(const std::filesystem::path& path) {
  return PlatformFile(reinterpret_cast<std::intptr_t>(::CreateFileW(
      path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr)));
}

void PlatformFile::Close() {
  if (IsOpen()) {
    ::CloseHandle(HandleOf(m_handle));
    m_handle = kNone;
  }
}

std::optional<std::uint64_t> PlatformFile::Size() const {
  LARGE_INTEGER size{};
  if (::GetFileType(HandleOf(m_handle)) != FILE_TYPE_DISK ||
      ::GetFileSizeEx(HandleOf(m_handle), &size) == 0) {
    return std::nullopt;
  }
  return static_cast<std::uint64_t>(size.QuadPart);
}

bool PlatformFile::Read(std::span<BYTE> bytes) {
  while (!bytes.empty()) {
    DWORD count = 0;
    if (::ReadFile(HandleOf(m_handle), bytes.data(), Portion(bytes.size()), &count, nullptr) == 0 ||
        count == 0) {
      return false;
    }
    bytes = bytes.subspan(count);
  }
  return true;
}

bool PlatformFile::Write(std::span<const BYTE> bytes) {
  while (!bytes.empty()) {
    DWORD count = 0;
    if (::WriteFile(HandleOf(m_handle), bytes.data(), Portion(bytes.size()), &count, nullptr) ==
            0 ||
        count == 0) {
      return false;
    }
    bytes = bytes.subspan(count);
  }
  return true;
}

bool PlatformFile::Flush() {
  return ::FlushFileBuffers(HandleOf(m_handle)) != 0;
}

bool MoveOver(const std::filesystem::path& from, const std::filesystem::path& onto) {
  return ::MoveFileExW(from.c_str(), onto.c_str(),
                       MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
}

void RemoveFile(const std::filesystem::path& path) {
  ::DeleteFileW(path.c_str());
}

unsigned long OwnProcessNumber() {
  return ::GetCurrentProcessId();
}

std::filesystem::path PathFromText(const char* path) {
  return WideFromCodePage(path);
}

std::filesystem::path PathFromText(const wchar_t* path) { return path; }

}  // namespace quorvel
