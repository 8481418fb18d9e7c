// quorvel.exe, or another host of the build, as a process that a test starts, works and reads.
//
//   using namespace program;
//   const Ended ended = RunProgram(L"input-scale --scale 500", Confirm);
//   ended.output;   // {"result":"confirmed","scale":500}
#pragma once

#include "driver/platform.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace quorvel::test::program {

struct Ended {
  int status;
  std::string output;
  std::string errors;
};

/// Has the process's dialog once, as soon as it is visible.
using Worker = std::function<void(HWND)>;

/// Starts quorvel.exe with `input` on its standard input, at most a few thousand bytes, lets `work`
/// have its dialog, and waits for its end. Throws std::runtime_error if that does not come.
Ended RunProgram(const std::wstring& arguments, const Worker& work = {},
                 const std::string& input = {});

/// The same for any program beside the tests, whose dialogs come one after the other.
Ended RunHost(const std::wstring& name, const std::wstring& arguments,
              const std::vector<Worker>& workers, const std::string& input = {});

void Command(HWND dialog, int id);
void Confirm(HWND dialog);
void Cancel(HWND dialog);

/// Sends the texts, which the system carries into the other process.
Worker SetAndConfirm(std::vector<std::pair<int, std::wstring>> fields);

std::string Utf8(const char8_t* text);

}  // namespace quorvel::test::program
