// quorvel_bench FILE.json [RUNS]: measures ours against the platform's own work and keeps the rows as
// JSON. quorvel_bench --serve: opens dialogs on command, see bench/served_openings. Exit status 2 on
// an error; whether the rows hold is in the file.
#include "bench/benchmarks.h"
#include "bench/served_openings.h"
#include "driver/crash_guard.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string_view>

int main(int argc, char** argv) {
  using namespace quorvel::bench;
  constexpr int kRuns = 200;
  constexpr int kFailed = 2;
  constexpr int kRunsOfPages = 2;  // one for so many of the others
  quorvel::driver::InstallCrashGuard();
  if (argc < 2) {
    std::fputs("quorvel_bench FILE.json [RUNS] | --serve\n", stderr);
    return kFailed;
  }
  try {
    if (std::string_view(argv[1]) == "--serve") {
      ServeOpenings();
      return 0;
    }
    const int runs = argc > 2 ? std::atoi(argv[2]) : kRuns;
    std::vector<Row> rows = InputDialogs(runs);
    for (const std::vector<Row>& family :
         {ColourDialogs(runs), FontDialogs(runs), LayoutDialogs(runs), LayoutEditor(runs),
          ExtendedEditors(runs), PageModel(runs / kRunsOfPages), ProductSize()}) {
      rows.insert(rows.end(), family.begin(), family.end());
    }
    WriteJson(rows, argv[1]);
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return kFailed;
  }
}
