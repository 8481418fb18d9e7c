#include "gallery/kept_value.h"

#include <cmath>
#include <cstdint>
#include <string>

namespace quorvel::gallery {

ByteWriter& ByteWriter::PutText(const CString& text) {
  const auto length = static_cast<std::uint32_t>(text.GetLength());
  Put(length);
  const auto* const first = reinterpret_cast<const BYTE*>(text.GetString());
  m_bytes.insert(m_bytes.end(), first, first + length);
  return *this;
}

bool ByteReader::GetText(CString& text) {
  std::uint32_t length = 0;
  if (!Get(length) || Left() < length) {
    return false;
  }
  const std::string read(reinterpret_cast<const char*>(m_bytes.data() + m_place), length);
  m_place += length;
  text = CString(read.c_str());  // up to a zero byte, if somebody put one in
  return true;
}

bool ByteReader::GetNumber(double& value) {
  double read = 0;
  if (!Get(read) || !std::isfinite(read)) {
    return false;
  }
  value = read;
  return true;
}

}  // namespace quorvel::gallery
