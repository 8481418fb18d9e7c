// quorvel_bench [FILE.json [RUNS]]: measures, prints a table, keeps it as JSON. Exit status 0 when
// every row holds its limit, 1 when one does not, 2 on an error.
#include "bench/benchmarks.h"
#include "driver/crash_guard.h"

#include <cstdio>
#include <cstdlib>
#include <exception>

int main(int argc, char** argv) {
  using namespace quorvel::bench;
  constexpr int kRuns = 200;
  constexpr int kRunsOfPages = 8;  // one for so many of the others
  quorvel::driver::InstallCrashGuard();
  try {
    const int runs = argc > 2 ? std::atoi(argv[2]) : kRuns;
    std::vector<Row> rows = InputDialogs(runs);
    for (const std::vector<Row>& family :
         {ColourDialogs(runs), FontDialogs(runs), LayoutDialogs(runs), LayoutEditor(runs),
          ExtendedEditors(runs), PageModel(runs / kRunsOfPages), ProductSize()}) {
      rows.insert(rows.end(), family.begin(), family.end());
    }
    PrintTable(rows);
    if (argc > 1) {
      WriteJson(rows, argv[1]);
    }
    for (const Row& row : rows) {
      if (!row.Holds()) {
        return 1;
      }
    }
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 2;
  }
}
