#include "kivdata/whole_file.h"

#include "kivdata/platform_file.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <string>

namespace quorvel {
namespace {

/// A name in the folder of `beside` that no other running process uses.
std::filesystem::path TemporaryName(const std::filesystem::path& beside) {
  static std::atomic<unsigned> lastNumber{0};
  return beside.parent_path() /
         ("~" + std::to_string(OwnProcessNumber()) + "-" + std::to_string(lastNumber++) + ".tmp");
}

/// Removes the file of its name at the end of its life unless told to keep it.
class RemovedAtEnd {
public:
  explicit RemovedAtEnd(const std::filesystem::path& path) : m_path(path) {}
  RemovedAtEnd(const RemovedAtEnd&) = delete;
  RemovedAtEnd& operator=(const RemovedAtEnd&) = delete;
  ~RemovedAtEnd() {
    if (!m_kept) {
      RemoveFile(m_path);
    }
  }

  void Keep() { m_kept = true; }

private:
  const std::filesystem::path& m_path;
  bool m_kept = false;
};

}  // namespace

std::optional<FileBytes> ReadWholeFile(const std::filesystem::path& path, std::size_t headSize,
                                       const AcceptHead& accept) {
  PlatformFile file = PlatformFile::OpenForReading(path);
  if (!file.IsOpen()) {
    return std::nullopt;
  }
  const std::optional<std::uint64_t> size = file.Size();
  if (!size || *size < headSize) {
    return std::nullopt;
  }
  FileBytes head(headSize);
  if (!file.Read(head.Span()) || !accept(head.Span(), *size)) {
    return std::nullopt;
  }
  FileBytes bytes(*size);
  std::copy(head.Span().begin(), head.Span().end(), bytes.Span().begin());
  if (!file.Read(bytes.Span().subspan(headSize))) {
    return std::nullopt;
  }
  return bytes;
}

bool WriteWholeFile(const std::filesystem::path& path, std::span<const BYTE> bytes) {
  constexpr int kMostTries = 1000;  // names that a killed process of the same number left behind
  if (path.empty()) {
    return false;
  }
  std::filesystem::path temporary = TemporaryName(path);
  for (int tries = 0; tries < kMostTries && std::filesystem::exists(temporary); ++tries) {
    temporary = TemporaryName(path);
  }
  PlatformFile file = PlatformFile::CreateNew(temporary);
  if (!file.IsOpen()) {
    return false;
  }
  RemovedAtEnd guard(temporary);
  if (!file.Write(bytes) || !file.Flush()) {
    return false;
  }
  file.Close();  // an open file cannot be moved on every platform
  if (!MoveOver(temporary, path)) {
    return false;
  }
  guard.Keep();
  return true;
}

std::filesystem::path PathOfHost(const char* path) noexcept {
  try {
    return path == nullptr ? std::filesystem::path() : PathFromText(path);
  } catch (const std::exception&) {
    return {};
  }
}

std::filesystem::path PathOfHost(const wchar_t* path) noexcept {
  try {
    return path == nullptr ? std::filesystem::path() : PathFromText(path);
  } catch (const std::exception&) {
    return {};
  }
}

}  // namespace quorvel
