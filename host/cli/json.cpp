#include "cli/json.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>

namespace quorvel::cli {

namespace {

constexpr std::string_view kReplacementCharacter = "\xEF\xBF\xBD";  // U+FFFD
constexpr std::string_view kLineSeparator = "\xE2\x80\xA8";         // U+2028
constexpr std::string_view kParagraphSeparator = "\xE2\x80\xA9";    // U+2029

/// The well-formed UTF-8 sequences that share their lead bytes, longer than one byte. Only the
/// second byte's range depends on the lead byte; later bytes are 0x80..0xBF.
struct SequenceShape {
  unsigned char firstLead;
  unsigned char lastLead;
  unsigned char lowestSecond;
  unsigned char highestSecond;
  std::size_t length;
};

constexpr std::array<SequenceShape, 8> kSequenceShapes = {{
    {0xC2, 0xDF, 0x80, 0xBF, 2},
    {0xE0, 0xE0, 0xA0, 0xBF, 3},
    {0xE1, 0xEC, 0x80, 0xBF, 3},
    {0xED, 0xED, 0x80, 0x9F, 3},  // no surrogates
    {0xEE, 0xEF, 0x80, 0xBF, 3},
    {0xF0, 0xF0, 0x90, 0xBF, 4},
    {0xF1, 0xF3, 0x80, 0xBF, 4},
    {0xF4, 0xF4, 0x80, 0x8F, 4},  // nothing above U+10FFFF
}};

/// The first character of a text, or the ill-formed part that stands in its place.
struct Character {
  std::string_view bytes;
  bool isWellFormed;
};

constexpr unsigned char kFirstContinuation = 0x80;
constexpr unsigned char kLastContinuation = 0xBF;

Character FirstCharacter(std::string_view text) {
  const auto lead = static_cast<unsigned char>(text.front());
  if (lead < kFirstContinuation) {
    return {text.substr(0, 1), true};
  }
  const auto* const shape =
      std::ranges::find_if(kSequenceShapes, [lead](const SequenceShape& candidate) {
        return candidate.firstLead <= lead && lead <= candidate.lastLead;
      });
  if (shape == kSequenceShapes.end()) {
    return {text.substr(0, 1), false};
  }
  unsigned char lowest = shape->lowestSecond;
  unsigned char highest = shape->highestSecond;
  std::size_t length = 1;
  while (length < shape->length && length < text.size()) {
    const auto byte = static_cast<unsigned char>(text[length]);
    if (byte < lowest || byte > highest) {
      break;
    }
    lowest = kFirstContinuation;
    highest = kLastContinuation;
    ++length;
  }
  return {text.substr(0, length), length == shape->length};
}

/// "\u00XX" for a character below U+0100.
std::string UnicodeEscape(char character) {
  constexpr std::string_view kHexDigits = "0123456789abcdef";
  const auto code = static_cast<unsigned char>(character);
  return std::string("\\u00") + kHexDigits[code / 16] + kHexDigits[code % 16];
}

std::string EscapedAscii(char character) {
  switch (character) {
    case '"':
      return "\\\"";
    case '\\':
      return "\\\\";
    case '\b':
      return "\\b";
    case '\f':
      return "\\f";
    case '\n':
      return "\\n";
    case '\r':
      return "\\r";
    case '\t':
      return "\\t";
    default:
      return character < ' ' || character == '\x7F' ? UnicodeEscape(character)
                                                    : std::string(1, character);
  }
}

std::string Escaped(const Character& character) {
  if (!character.isWellFormed) {
    return std::string(kReplacementCharacter);
  }
  if (character.bytes.size() == 1) {
    return EscapedAscii(character.bytes.front());
  }
  // Legal in JSON, but many readers of lines break a line at these two.
  if (character.bytes == kLineSeparator) {
    return "\\u2028";
  }
  if (character.bytes == kParagraphSeparator) {
    return "\\u2029";
  }
  return std::string(character.bytes);
}

}  // namespace

std::string JsonQuoted(std::string_view utf8) {
  std::string json = "\"";
  while (!utf8.empty()) {
    const Character character = FirstCharacter(utf8);
    json += Escaped(character);
    utf8.remove_prefix(character.bytes.size());
  }
  return json += '"';
}

std::string JsonNumber(double value) {
  if (!std::isfinite(value)) {
    return "null";
  }
  std::array<char, 32> buffer{};  // the shortest text of a double has at most 24 characters
  const std::to_chars_result written =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
  return {buffer.data(), written.ptr};
}

double Shortest(float value) {
  std::array<char, 16> buffer{};  // the shortest text of a float has at most 15 characters
  const std::to_chars_result written =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
  double number = 0;
  std::from_chars(buffer.data(), written.ptr, number);
  return number;
}

JsonObject& JsonObject::AddText(std::string_view name, std::string_view utf8) {
  return AddMember(name, JsonQuoted(utf8));
}

JsonObject& JsonObject::AddNumber(std::string_view name, double value) {
  return AddMember(name, JsonNumber(value));
}

JsonObject& JsonObject::AddInteger(std::string_view name, long long value) {
  return AddMember(name, std::to_string(value));
}

JsonObject& JsonObject::AddFlag(std::string_view name, bool value) {
  return AddMember(name, value ? "true" : "false");
}

JsonObject& JsonObject::AddNumbers(std::string_view name, std::span<const double> values) {
  std::string json = "[";
  for (const double value : values) {
    json += json.size() > 1 ? "," : "";
    json += JsonNumber(value);
  }
  return AddMember(name, json += ']');
}

JsonObject& JsonObject::AddObject(std::string_view name, const JsonObject& object) {
  return AddMember(name, object.ToText());
}

JsonObject& JsonObject::AddObjects(std::string_view name, std::span<const JsonObject> objects) {
  std::string json = "[";
  for (const JsonObject& object : objects) {
    json += json.size() > 1 ? "," : "";
    json += object.ToText();
  }
  return AddMember(name, json += ']');
}

std::string JsonObject::ToText() const {
  return "{" + m_members + "}";
}

JsonObject& JsonObject::AddMember(std::string_view name, std::string_view json) {
  m_members += m_members.empty() ? "" : ",";
  m_members += JsonQuoted(name);
  m_members += ':';
  m_members += json;
  return *this;
}

}  // namespace quorvel::cli
