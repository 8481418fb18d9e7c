// PlatformFile: the few things that whole files need of the platform.
//
//   PlatformFile file = PlatformFile::OpenForReading(path);
//   if (file.IsOpen() && file.Size()) { file.Read(bytes); }
#pragma once

#include "framework/base_types.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <utility>

namespace quorvel {

/// An open file, closed at the end of its life. Only IsOpen may be called where it is not open.
class PlatformFile {
public:
  /// Not open where there is no such file or it may not be read.
  static PlatformFile OpenForReading(const std::filesystem::path& path);
  /// A new file for writing; not open where there is one of that name, or none can be made.
  static PlatformFile CreateNew(const std::filesystem::path& path);

  PlatformFile(PlatformFile&& other) noexcept : m_handle(std::exchange(other.m_handle, kNone)) {}
  PlatformFile(const PlatformFile&) = delete;
  PlatformFile& operator=(const PlatformFile&) = delete;
  PlatformFile& operator=(PlatformFile&&) = delete;
  ~PlatformFile() { Close(); }

  bool IsOpen() const { return m_handle != kNone; }
  /// In bytes; nothing for what is no plain file, such as a folder, a pipe or a device.
  std::optional<std::uint64_t> Size() const;
  /// True when all of the bytes were read (written).
  bool Read(std::span<BYTE> bytes);
  bool Write(std::span<const BYTE> bytes);
  /// Waits until what was written is on the disk.
  bool Flush();
  void Close();

private:
  static constexpr std::intptr_t kNone = -1;  // no handle on either platform

  explicit PlatformFile(std::intptr_t handle) : m_handle(handle) {}

  std::intptr_t m_handle;
};

/// Gives a file the name of another, which it replaces, in one step.
bool MoveOver(const std::filesystem::path& from, const std::filesystem::path& onto);
void RemoveFile(const std::filesystem::path& path);
/// A number that no other running process has.
unsigned long OwnProcessNumber();

/// The path that a host's text means: in code page 932 on Windows, as it is elsewhere. Of wide
/// characters, which are Unicode, natively in 32 bits, throws where they are none.
std::filesystem::path PathFromText(const char* path);
std::filesystem::path PathFromText(const wchar_t* path);

}  // namespace quorvel
