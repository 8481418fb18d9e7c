#include "bench/report.h"

#include "framework/base_types.h"

#include <fstream>
#include <stdexcept>

namespace quorvel::bench {

Row TimesAsLong(const std::string& name, const std::string& against, const Pair& seconds,
                double limit, int runs) {
  constexpr double kMilliseconds = 1000.0;
  return {.name = name,
          .against = against,
          .unit = "ms",
          .ours = kMilliseconds * seconds.ours,
          .theirs = kMilliseconds * seconds.theirs,
          .figure = seconds.ours / seconds.theirs,
          .figureUnit = "times",
          .limit = limit,
          .runs = runs};
}

Row LongerBy(const std::string& name, const std::string& against, const Pair& milliseconds,
             double limit, int runs) {
  return {.name = name,
          .against = against,
          .unit = "ms",
          .ours = milliseconds.ours,
          .theirs = milliseconds.theirs,
          .figure = milliseconds.ours - milliseconds.theirs,
          .figureUnit = "ms more",
          .limit = limit,
          .runs = runs};
}

Row Alone(const std::string& name, const std::string& unit, double value, double limit, int runs) {
  return {.name = name,
          .against = "",
          .unit = unit,
          .ours = value,
          .theirs = std::nullopt,
          .figure = value,
          .figureUnit = unit,
          .limit = limit,
          .runs = runs};
}

std::string MachineKind() {
  SYSTEM_INFO system{};
  ::GetSystemInfo(&system);
  std::string kind = std::to_string(system.dwNumberOfProcessors) + " cores, ";
  using VersionFunction = const char*();
  // By way of a plain pointer: what GetProcAddress returns has no function's own type.
  auto* const version = reinterpret_cast<void*>(
      ::GetProcAddress(::GetModuleHandleW(L"ntdll.dll"), "wine_get_version"));
  kind += version != nullptr
              ? std::string("Wine ") + reinterpret_cast<VersionFunction*>(version)()
              : std::string("Windows");
  kind += ", display " + std::to_string(::GetSystemMetrics(SM_CXSCREEN)) + " x " +
          std::to_string(::GetSystemMetrics(SM_CYSCREEN));
  return kind;
}

void WriteJson(const std::vector<Row>& rows, const std::string& path) {
  // Names and units are constants of this program without a character that JSON escapes.
  std::ofstream file(path);
  file << "{\"machine\": \"" << MachineKind() << "\",\n \"rows\": [";
  const char* separator = "\n";
  for (const Row& row : rows) {
    file << separator << "  {\"name\": \"" << row.name << "\", \"against\": \"" << row.against
         << "\", \"unit\": \"" << row.unit << "\", \"ours\": " << row.ours << ", \"theirs\": ";
    if (row.theirs) {
      file << *row.theirs;
    } else {
      file << "null";
    }
    file << ", \"figure\": " << row.figure << ", \"figureUnit\": \"" << row.figureUnit
         << "\", \"limit\": " << row.limit << ", \"runs\": " << row.runs
         << ", \"holds\": " << (row.Holds() ? "true" : "false") << "}";
    separator = ",\n";
  }
  file << "\n]}\n";
  if (!file.flush()) {
    throw std::runtime_error("cannot write " + path);
  }
}

}  // namespace quorvel::bench
