// Files read and replaced as a whole.
//
//   if (const auto bytes = ReadWholeFile(path, 28, isOurs)) { ... bytes->Span() ... }
//   WriteWholeFile(path, bytes);    // the old file or the new one, never a part
#pragma once

#include "framework/base_types.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <span>

namespace quorvel {

/// A block of bytes that is not filled with zeros first, as a vector would be.
class FileBytes {
  using Block = BYTE[];  // NOLINT(modernize-avoid-c-arrays): what unique_ptr calls a block

public:
  explicit FileBytes(std::size_t size)
      : m_bytes(std::make_unique_for_overwrite<Block>(size)), m_size(size) {}

  std::span<BYTE> Span() { return {m_bytes.get(), m_size}; }
  std::span<const BYTE> Span() const { return {m_bytes.get(), m_size}; }

private:
  std::unique_ptr<Block> m_bytes;
  std::size_t m_size;
};

/// Asked with the first bytes of a file and its size, before the rest is read.
using AcceptHead = std::function<bool(std::span<const BYTE> head, std::uint64_t fileSize)>;

/// The bytes of a file of at least `headSize` bytes whose head is accepted; nothing for any other
/// and for one that cannot be read. May throw std::bad_alloc.
std::optional<FileBytes> ReadWholeFile(const std::filesystem::path& path, std::size_t headSize,
                                       const AcceptHead& accept);

/// Writes a new file beside `path`, flushes it to the disk and puts it in the place of the old one
/// in one step. On any failure false: the old file stands and nothing else is left.
bool WriteWholeFile(const std::filesystem::path& path, std::span<const BYTE> bytes);

/// The path of a host: a text in code page 932 (natively as it is) or of any characters. The empty
/// path, which no file has, for null, an empty text and one that cannot be converted.
std::filesystem::path PathOfHost(const char* path) noexcept;
std::filesystem::path PathOfHost(const wchar_t* path) noexcept;

}  // namespace quorvel
