// Values as bytes, for keeping them from one run of the gallery to the next.
//
//   ByteWriter writer;
//   writer.Put(hand->width).PutText(hand->name);
//   ...
//   ByteReader reader(bytes);
//   int width = 0;
//   CString name;
//   if (reader.Get(width) && reader.GetText(name) && reader.IsAtEnd()) ...
#pragma once

#include <quorvel/quorvel.h>

#include <cstring>
#include <functional>
#include <type_traits>
#include <vector>

namespace quorvel::gallery {

using Bytes = std::vector<BYTE>;

/// How the value in hand is kept.
struct KeptValue {
  std::function<Bytes()> bytes;
  /// False, with the value in hand as it was, for bytes that are none of such a value.
  std::function<bool(const Bytes&)> restore;
};

class ByteWriter {
public:
  template <class Value>
  ByteWriter& Put(const Value& value) {
    static_assert(std::is_trivially_copyable_v<Value>);
    const std::size_t place = m_bytes.size();
    m_bytes.resize(place + sizeof value);
    std::memcpy(m_bytes.data() + place, &value, sizeof value);
    return *this;
  }
  ByteWriter& PutText(const CString& text);

  const Bytes& Written() const { return m_bytes; }

private:
  Bytes m_bytes;
};

/// Each call is false, and gives nothing, where too few bytes are left.
class ByteReader {
public:
  explicit ByteReader(const Bytes& bytes) : m_bytes(bytes) {}

  template <class Value>
  bool Get(Value& value) {
    static_assert(std::is_trivially_copyable_v<Value>);
    if (Left() < sizeof value) {
      return false;
    }
    std::memcpy(&value, m_bytes.data() + m_place, sizeof value);
    m_place += sizeof value;
    return true;
  }
  bool GetText(CString& text);
  /// A number that can be shown: neither infinite nor none at all.
  bool GetNumber(double& value);
  bool IsAtEnd() const { return Left() == 0; }

private:
  std::size_t Left() const { return m_bytes.size() - m_place; }

  const Bytes& m_bytes;
  std::size_t m_place = 0;
};

/// Of a page of either kind: the bytes of its layout file.
template <class Page>
Bytes BytesOfPage(const Page& page) {
  Bytes bytes(page.SaveBytes(nullptr, 0));
  page.SaveBytes(bytes.data(), bytes.size());
  return bytes;
}
template <class Page>
bool RestorePage(Page& page, const Bytes& bytes) {
  return page.OpenBytes(bytes.data(), bytes.size()) != 0;
}

}  // namespace quorvel::gallery
