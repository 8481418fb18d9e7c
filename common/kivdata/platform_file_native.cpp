// The files of the machine that runs the native build.
#include "kivdata/platform_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <string>
#include <string_view>

namespace quorvel {

PlatformFile PlatformFile::OpenForReading(const std::filesystem::path& path) {
  // Not blocking, so that a pipe that nobody writes to is refused like any other.
  return PlatformFile(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
}

PlatformFile PlatformFile::CreateNew(const std::filesystem::path& path) {
  constexpr mode_t kEverybody = 0666;
  return PlatformFile(::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kEverybody));
}

void PlatformFile::Close() {
  if (IsOpen()) {
    ::close(static_cast<int>(m_handle));
    m_handle = kNone;
  }
}

std::optional<std::uint64_t> PlatformFile::Size() const {
  struct stat status {};
  if (::fstat(static_cast<int>(m_handle), &status) != 0 || !S_ISREG(status.st_mode)) {
    return std::nullopt;
  }
  return static_cast<std::uint64_t>(status.st_size);
}

bool PlatformFile::Read(std::span<BYTE> bytes) {
  while (!bytes.empty()) {
    const ssize_t count = ::read(static_cast<int>(m_handle), bytes.data(), bytes.size());
    if (count <= 0) {
      return false;
    }
    bytes = bytes.subspan(static_cast<std::size_t>(count));
  }
  return true;
}

bool PlatformFile::Write(std::span<const BYTE> bytes) {
  while (!bytes.empty()) {
    const ssize_t count = ::write(static_cast<int>(m_handle), bytes.data(), bytes.size());
    if (count <= 0) {
      return false;
    }
    bytes = bytes.subspan(static_cast<std::size_t>(count));
  }
  return true;
}

bool PlatformFile::Flush() {
  return ::fsync(static_cast<int>(m_handle)) == 0;
}

bool MoveOver(const std::filesystem::path& from, const std::filesystem::path& onto) {
  return std::rename(from.c_str(), onto.c_str()) == 0;
}

void RemoveFile(const std::filesystem::path& path) {
  ::unlink(path.c_str());
}

unsigned long OwnProcessNumber() {
  return static_cast<unsigned long>(::getpid());
}

std::filesystem::path PathFromText(const char* path) {
  return path;
}

std::filesystem::path PathFromText(const wchar_t* path) {
  // By way of 32-bit characters, for which the conversion does not depend on the locale.
  const std::wstring_view text(path);
  return std::u32string(text.begin(), text.end());
}

}  // namespace quorvel
