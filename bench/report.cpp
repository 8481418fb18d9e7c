#include "bench/report.h"

#include "framework/base_types.h"

#include <cstdio>
#include <fstream>
#include <stdexcept>

namespace quorvel::bench {

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

void PrintTable(const std::vector<Row>& rows) {
  std::printf("%s\n\n%-48s %8s %8s  %-14s %5s  %s\n", MachineKind().c_str(), "", "figure", "limit",
              "", "runs", "holds");
  for (const Row& row : rows) {
    std::printf("%-48s %8.2f %8.2f  %-14s %5d  %s\n", row.name.c_str(), row.figure, row.limit,
                row.unit.c_str(), row.runs, row.Holds() ? "yes" : "NO");
  }
}

void WriteJson(const std::vector<Row>& rows, const std::string& path) {
  // Names and units are constants of this program without a character that JSON escapes.
  std::ofstream file(path);
  file << "{\"machine\": \"" << MachineKind() << "\",\n \"rows\": [";
  const char* separator = "\n";
  for (const Row& row : rows) {
    file << separator << "  {\"name\": \"" << row.name << "\", \"figure\": " << row.figure
         << ", \"unit\": \"" << row.unit << "\", \"limit\": " << row.limit
         << ", \"runs\": " << row.runs << ", \"holds\": " << (row.Holds() ? "true" : "false") << "}";
    separator = ",\n";
  }
  file << "\n]}\n";
  if (!file.flush()) {
    throw std::runtime_error("cannot write " + path);
  }
}

}  // namespace quorvel::bench
