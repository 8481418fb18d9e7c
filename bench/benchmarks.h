// The benchmarks, one function a family of rows.
#pragma once

#include "bench/report.h"

#include <vector>

namespace quorvel::bench {

/// Steps, repaints and loops that take a millisecond or less are done so many times for each run of
/// what takes longer.
constexpr int kStepsOfRun = 10;

/// The input dialogs against their bare templates.
std::vector<Row> InputDialogs(int runs);

/// The colour dialogs against the platform's own one, and their painting against what it needs.
std::vector<Row> ColourDialogs(int runs);

/// The font dialogs against the platform's own.
std::vector<Row> FontDialogs(int runs);

/// The dialogs that the layout editors open, against their bare templates; one with very many
/// fields.
std::vector<Row> LayoutDialogs(int runs);

/// The layout editor with 20 x 20 cells: opening, painting, dragging, against bare calls.
std::vector<Row> LayoutEditor(int runs);

/// The editors of a page of three blocks of 5 x 20 cells: opening, painting, dragging, against bare
/// calls.
std::vector<Row> ExtendedEditors(int runs);

/// The page model at its largest: files, rectangles, changes, memory.
std::vector<Row> PageModel(int runs);

/// The weight of our own DLLs together.
std::vector<Row> ProductSize();

}  // namespace quorvel::bench
