#include "bench/benchmarks.h"
#include "framework/base_types.h"

#include <array>
#include <filesystem>

namespace quorvel::bench {

std::vector<Row> ProductSize() {
  constexpr double kMostMegabytes = 1.5;
  constexpr double kBytesInMegabyte = 1e6;
  std::array<wchar_t, MAX_PATH> program{};
  ::GetModuleFileNameW(nullptr, program.data(), static_cast<DWORD>(program.size()));
  const std::filesystem::path folder = std::filesystem::path(program.data()).parent_path();
  std::uintmax_t bytes = 0;
  for (const char* name :
       {"Frame64.dll", "KivComm64.dll", "KivData64.dll", "KivFcl64.dll", "Quorvel.dll"}) {
    bytes += std::filesystem::file_size(folder / name);
  }
  return {Alone("our own DLLs together", "MB", static_cast<double>(bytes) / kBytesInMegabyte,
                kMostMegabytes, 1)};
}

}  // namespace quorvel::bench
