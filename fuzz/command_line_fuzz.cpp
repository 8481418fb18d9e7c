// Any arguments of the command line: they become a request or one message, as documented, and never
// anything else. Arguments are separated by line feeds.
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
using quorvel::cli::Message;

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
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::vector<std::string> arguments =
      Arguments({reinterpret_cast<const char*>(data), size});
  const CommandLine line = quorvel::cli::ReadCommandLine(arguments);
  const auto* const message = std::get_if<Message>(&line);
  if (arguments.empty()) {
    Require(message != nullptr && message->status == ExitStatus::kBadUsage);  // how it is called
  } else if (message != nullptr) {
    CheckMessage(*message);
  }
  return 0;
}
