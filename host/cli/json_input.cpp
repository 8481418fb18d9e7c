#include "cli/json_input.h"

#include "cli/arguments.h"
#include "cli/json.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <utility>

namespace quorvel::cli {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kWideByteOrderMark = "\xFF\xFE";
constexpr std::string_view kBetweenTokens = " \t\r\n:,";
constexpr unsigned kContinuationMask = 0xC0;
constexpr unsigned kContinuation = 0x80;

/// Tells how far the parser has come, which its events do not.
class CountingIterator {
public:
  // The library's names. NOLINTBEGIN(readability-identifier-naming)
  using iterator_category = std::input_iterator_tag;
  using value_type = char;
  using difference_type = std::ptrdiff_t;
  using pointer = const char*;
  using reference = const char&;
  // NOLINTEND(readability-identifier-naming)

  CountingIterator(const char* at, std::size_t* count) : m_at(at), m_count(count) {}
  reference operator*() const { return *m_at; }
  CountingIterator& operator++() {
    ++m_at;
    ++*m_count;
    return *this;
  }
  CountingIterator operator++(int) { return std::exchange(*this, std::next(*this)); }
  friend bool operator==(const CountingIterator& left, const CountingIterator& right) {
    return left.m_at == right.m_at;
  }

private:
  const char* m_at;
  std::size_t* m_count;
};

/// Lines and columns of places that are asked for from front to back.
class Places {
public:
  Places(std::string_view text, std::string_view source) : m_text(text), m_source(source) {}

  /// "SOURCE:LINE:COLUMN" of the byte at `offset`, or of the end.
  std::string At(std::size_t offset) {
    for (; m_offset < std::min(offset, m_text.size()); ++m_offset) {
      const auto byte = static_cast<unsigned char>(m_text[m_offset]);
      if (byte == '\n') {
        ++m_line;
        m_column = 1;
      } else if ((byte & kContinuationMask) != kContinuation) {
        ++m_column;
      }
    }
    return std::string(m_source) + ":" + std::to_string(m_line) + ":" + std::to_string(m_column);
  }

private:
  std::string_view m_text;
  std::string_view m_source;
  std::size_t m_offset = 0;
  std::size_t m_line = 1;
  std::size_t m_column = 1;
};

/// Why the parser refuses, in its own words without the place and without what it read, which may
/// be long and no UTF-8.
std::string Reason(const nlohmann::detail::exception& error) {
  std::string_view words = error.what();
  if (dynamic_cast<const nlohmann::detail::out_of_range*>(&error) != nullptr) {
    return "a number is out of range";
  }
  constexpr std::string_view kDash = " - ";
  words.remove_prefix(std::min(words.find(kDash), words.size() - kDash.size()) + kDash.size());
  return std::string(words.substr(0, words.find("; last read")));
}

/// Takes the parser's events and builds the value; throws UsageError.
class Builder {
public:
  Builder(std::string_view text, std::string_view source, const std::size_t* reached)
      : m_text(text), m_places(text, source), m_reached(reached) {}

  std::vector<JsonMember> TakeObject() {
    auto* members = std::get_if<std::vector<JsonMember>>(&m_top.content);
    if (members == nullptr) {
      throw UsageError(m_places.At(0) + ": an object {...} is needed, not " + Described(m_top));
    }
    return std::move(*members);
  }

  // The parser's interface.
  // NOLINTBEGIN(readability-identifier-naming,readability-convert-member-functions-to-static)
  bool null() { return Add({}); }
  bool boolean(bool value) { return Add(value); }
  bool number_integer(std::int64_t value) { return Add(static_cast<double>(value)); }
  bool number_unsigned(std::uint64_t value) { return Add(static_cast<double>(value)); }
  bool number_float(double value, const std::string& /*text*/) { return Add(value); }
  bool string(std::string& value) {
    if (value.find('\0') != std::string::npos) {
      throw UsageError(m_places.At(StartOfToken()) + ": a text cannot hold the zero character");
    }
    return Add(std::move(value));
  }
  bool binary(std::vector<std::uint8_t>& /*value*/) { return false; }  // not in JSON
  bool start_object(std::size_t /*size*/) { return Open(std::vector<JsonMember>()); }
  bool end_object() { return Close(); }
  bool start_array(std::size_t /*size*/) { return Open(std::vector<JsonValue>()); }
  bool end_array() { return Close(); }
  bool key(std::string& name) {
    const std::string place = m_places.At(StartOfToken());
    auto& members = std::get<std::vector<JsonMember>>(m_open.back()->content);
    if (std::ranges::find(members, name, &JsonMember::name) != members.end()) {
      throw UsageError(place + ": " + JsonQuoted(name) + " is given twice");
    }
    if (members.size() == kMostJsonMembers) {
      throw UsageError(place + ": an object has too many members");
    }
    // Names that are not plain words are quoted, so that the label stays one line.
    const bool isPlain = !name.empty() && std::ranges::all_of(name, [](char character) {
      return ('a' <= character && character <= 'z') || ('A' <= character && character <= 'Z');
    });
    members.push_back(
        {.name = name, .label = place + ": " + (isPlain ? name : JsonQuoted(name)), .value = {}});
    m_end = *m_reached;
    return true;
  }
  bool parse_error(std::size_t position, const std::string& /*token*/,
                   const nlohmann::detail::exception& error) {
    throw UsageError(m_places.At(std::max<std::size_t>(position, 1) - 1) +
                     ": this is no JSON: " + Reason(error));
  }
  // NOLINTEND(readability-identifier-naming,readability-convert-member-functions-to-static)

private:
  using Content = decltype(JsonValue::content);

  std::size_t StartOfToken() const {
    return std::min(m_text.find_first_not_of(kBetweenTokens, m_end), m_text.size());
  }

  /// Where the next value goes.
  JsonValue& Place() {
    if (m_open.empty()) {
      return m_top;
    }
    if (auto* list = std::get_if<std::vector<JsonValue>>(&m_open.back()->content)) {
      return list->emplace_back();
    }
    return std::get<std::vector<JsonMember>>(m_open.back()->content).back().value;
  }
  bool Add(Content content) {
    Place().content = std::move(content);
    m_end = *m_reached;
    return true;
  }
  bool Open(Content content) {
    if (m_open.size() == kMostJsonDepth) {
      throw UsageError(m_places.At(StartOfToken()) + ": lists and objects lie too deep");
    }
    JsonValue& place = Place();
    place.content = std::move(content);
    m_open.push_back(&place);
    m_end = *m_reached;
    return true;
  }
  bool Close() {
    m_open.pop_back();
    m_end = *m_reached;
    return true;
  }

  std::string_view m_text;
  Places m_places;
  const std::size_t* m_reached;
  std::size_t m_end = 0;  // where the last token ended
  JsonValue m_top;
  std::vector<JsonValue*> m_open;  // from outside to inside; only the innermost grows
};

}  // namespace

std::vector<JsonMember> ReadJsonObject(std::string_view text, std::string_view source) {
  if (text.starts_with(kWideByteOrderMark)) {
    throw UsageError(Places(text, source).At(0) + ": this is UTF-16, UTF-8 is needed");
  }
  if (text.starts_with(kByteOrderMark)) {
    text.remove_prefix(kByteOrderMark.size());
  }
  std::size_t reached = 0;
  Builder builder(text, source, &reached);
  nlohmann::json::sax_parse(CountingIterator(text.data(), &reached),
                            CountingIterator(text.data() + text.size(), &reached), &builder);
  return builder.TakeObject();
}

std::string Described(const JsonValue& value) {
  constexpr std::size_t kMostBytes = 60;
  struct Describer {
    std::string operator()(std::monostate /*null*/) const { return "null"; }
    std::string operator()(bool isTrue) const { return isTrue ? "true" : "false"; }
    std::string operator()(double number) const { return JsonNumber(number); }
    std::string operator()(const std::string& text) const {
      return text.size() > kMostBytes ? "a text" : JsonQuoted(text);
    }
    std::string operator()(const std::vector<JsonValue>& /*list*/) const { return "a list"; }
    std::string operator()(const std::vector<JsonMember>& /*object*/) const { return "an object"; }
  };
  return std::visit(Describer(), value.content);
}

}  // namespace quorvel::cli
