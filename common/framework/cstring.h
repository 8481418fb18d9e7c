// CString: a narrow text in code page 932, the string that crosses the host boundary.
//
//   CString name("A3");
//   name += "(420x297)";
//   puts(name);
#pragma once

#include "framework/frame_export.h"

#include <string>
#include <string_view>

#if defined(__GNUC__) && defined(_WIN32)
#define FRAME_PRINTF_LIKE(formatIndex, firstArgument) \
  __attribute__((format(gnu_printf, formatIndex, firstArgument)))
#else
#define FRAME_PRINTF_LIKE(formatIndex, firstArgument) \
  __attribute__((format(printf, formatIndex, firstArgument)))
#endif

/// A text of bytes in code page 932. Lengths and positions count bytes, not characters.
/// A null pointer reads as the empty text everywhere.
class CString {
public:
  CString() = default;
  CString(const char* text) : m_text(text == nullptr ? "" : text) {}
  /// The first `length` bytes of `text`; embedded zero bytes are kept.
  CString(const char* text, int length) : m_text(text, static_cast<std::size_t>(length)) {}
  explicit CString(std::string_view text) : m_text(text) {}

  CString& operator=(const char* text) {
    m_text = text == nullptr ? "" : text;
    return *this;
  }

  /// The zero-terminated text; valid until the next change of this object.
  operator const char*() const { return m_text.c_str(); }
  const char* GetString() const { return m_text.c_str(); }
  std::string_view View() const { return m_text; }

  /// Length in bytes.
  int GetLength() const { return static_cast<int>(m_text.size()); }
  bool IsEmpty() const { return m_text.empty(); }
  void Empty() { m_text.clear(); }

  CString& operator+=(const CString& text) {
    m_text += text.m_text;
    return *this;
  }
  CString& operator+=(const char* text) {
    m_text += text == nullptr ? "" : text;
    return *this;
  }

  /// Replaces the text as printf does. Only constant format texts belong here.
  FRAME_API void Format(const char* format, ...) FRAME_PRINTF_LIKE(2, 3);

  friend CString operator+(CString left, const CString& right) { return left += right; }
  friend CString operator+(CString left, const char* right) { return left += right; }
  friend bool operator==(const CString& left, const CString& right) {
    return left.m_text == right.m_text;
  }
  friend bool operator==(const CString& left, const char* right) {
    return left.m_text == (right == nullptr ? "" : right);
  }

private:
  std::string m_text;
};
