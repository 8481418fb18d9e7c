// Any arguments of the command line, and any JSON for them: they become a request or one message,
// as documented, and never anything else. Arguments are separated by line feeds; behind the first
// zero is what standard input and every file hold.
#include "cli/commands.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace {

using quorvel::cli::CommandLine;
using quorvel::cli::ExitStatus;
using quorvel::cli::GivenOption;
using quorvel::cli::Message;
using quorvel::cli::ParsedOptions;
using quorvel::cli::Task;

/// Ends the process, which the fuzzer reports with the input.
void Require(bool holds) {
  if (!holds) {
    std::abort();
  }
}

std::vector<std::string> Arguments(std::string_view text) {
  std::vector<std::string> arguments;
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    arguments.emplace_back(text.substr(0, end));
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  }
  return arguments;
}

void CheckMessage(const Message& message) {
  Require(message.text.ends_with('\n'));
  Require(message.status == ExitStatus::kSuccess || message.status == ExitStatus::kBadUsage);
  if (message.status == ExitStatus::kBadUsage) {
    Require(message.text.starts_with("quorvel: "));
    Require(message.text.find('\n') == message.text.size() - 1);  // one line
    // JSON is checked to be UTF-8 before it is spoken of.
    Require(message.text.find('\0') == std::string::npos);
  }
}

/// Texts go to functions that take them up to the first zero.
void CheckOptions(const ParsedOptions& options) {
  for (const GivenOption& given : options.InOrder()) {
    if (const auto* text = std::get_if<std::string>(&given.value)) {
      Require(text->find('\0') == std::string::npos);
    }
    Require(given.label.find('\n') == std::string::npos);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view input(reinterpret_cast<const char*>(data), size);
  const std::size_t end = input.find('\0');
  const std::vector<std::string> arguments = Arguments(input.substr(0, end));
  const std::string behind(end == std::string_view::npos ? "" : input.substr(end + 1));
  const CommandLine line = quorvel::cli::ReadCommandLine(
      arguments, {.standardInput = [&] { return behind; },
                  .file = [&](const std::string& /*path*/) { return behind; },
                  .libraryVersion = "1"});
  const auto* const message = std::get_if<Message>(&line);
  if (arguments.empty()) {
    Require(message != nullptr && message->status == ExitStatus::kBadUsage);  // how it is called
  } else if (message != nullptr) {
    CheckMessage(*message);
  } else {
    CheckOptions(std::get<Task>(line).options);
  }
  return 0;
}
