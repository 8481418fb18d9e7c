// The layout editor with a page of 20 x 20 cells, a text in each: opening against its bare
// template, painting the page or one cell of it and a step of a border's drag against a window that
// only paints the same, and selecting all cells against the time of a frame.
#include "bench/bare_page_view.h"
#include "bench/benchmarks.h"
#include "bench/editor_bench.h"
#include "bench/opening.h"
#include "bench/timing.h"
#include "dialogs/layout/editor_settings.h"
#include "driver/picture.h"
#include "res/ids.h"

#include <quorvel/quorvel.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace quorvel::bench {

namespace {

using driver::ReadPixels;

constexpr int kLines = 20;
constexpr double kRowLength = 8.0;   ///< millimetres
constexpr double kColLength = 22.5;  ///< millimetres

CLayoutPageData FullPage() {
  CLayoutPageData page;
  page.DividePage(kLines, kLines, kDotsPerMm);
  page.SetAllLengthRow(kLines * kRowLength, 1);
  page.SetAllLengthCol(kLines * kColLength, 1);
  for (int index = 0; index < page.GetCelSize(); ++index) {
    page.GetCelAt(index)->SetText(("図面" + std::to_string(index)).c_str());
  }
  return page;
}

void OpenEditor() {
  static const CLayoutPageData full = FullPage();
  CLayoutPageData page = full;
  __LayoutEditDlg(nullptr, &page, nullptr, nullptr, kDotsPerMm, 0, nullptr);
}

/// Opens the editor and measures in it.
void InGridEditor(const std::function<void(HWND dialog)>& measure) {
  InEditor(IDC_LAYOUT_IMAGE, OpenEditor, measure);
}

/// A window that paints only the page, as large as the editor's picture.
class BareGrid {
public:
  explicit BareGrid(const EditorPicture& picture)
      : m_view(m_block, CelStyle::kFramed, picture.Size(), FitInto(m_block, picture.Size())) {}

  BarePageView* operator->() { return &m_view; }
  BarePageView& operator*() { return m_view; }

private:
  CLayoutPageData m_page = FullPage();
  SheetBlock m_block{m_page};
  BarePageView m_view;
};

/// What painting the page costs is taken off: the bare template has none.
std::vector<Row> Opening(int runs) {
  constexpr CPoint kCelBar{30, 122};
  constexpr CPoint kFileBar{630, 122};
  std::vector<double> repaints;
  InGridEditor([&](HWND dialog) {
    BareGrid bare(EditorPicture(dialog, IDC_LAYOUT_IMAGE));
    for (int run = 0; run < runs; ++run) {
      repaints.push_back(TimeOfRepaint(bare->Window()));
    }
  });
  BareEditor bare(IDD_LAYOUT, {{IDB_CELL_TOOLS, kGridCelTools, kCelBar},
                               {IDB_FILE_TOOLS, kFileTools, kFileBar}});
  return CompareOpening("__LayoutEditDlg", kTemplateWithBars, kMostTimesBareTemplate, runs,
                        OpenEditor, [&bare](HWND owner) { bare.Run(owner); },
                        kMillisecondsInSecond * Median(repaints));
}

Row Repaint(int runs) {
  Pair seconds;
  InGridEditor([&](HWND dialog) {
    const EditorPicture picture(dialog, IDC_LAYOUT_IMAGE);
    BareGrid bare(picture);
    seconds = MediansOfSteps(
        runs, [&](int /*step*/) { return TimeOfRepaint(picture.Window()); },
        [&](int /*step*/) { return TimeOfRepaint(bare->Window()); });
    Require(ReadPixels(picture.Window()) == ReadPixels(bare->Window()),
            "the bare window paints another page");
  });
  return TimesAsLong("layout editor, repaint of 20 x 20 cells", "a bare window", seconds,
                     kMostTimesBareRepaint, runs);
}

constexpr int kMiddleCel = kLines / 2 * kLines + kLines / 2;

Row CelCommand(int runs) {
  constexpr double kMost = 2.0;
  constexpr std::array kPlaces{UINT{DT_VCENTER}, UINT{DT_TOP}};
  constexpr std::array kCommands{IDM_ALIGN_MIDDLE, IDM_ALIGN_TOP};
  Pair seconds;
  InGridEditor([&](HWND dialog) {
    const EditorPicture picture(dialog, IDC_LAYOUT_IMAGE);
    BareGrid bare(picture);
    picture.Click(CentreOf(bare->RectOf(kMiddleCel)));
    ::UpdateWindow(picture.Window());
    seconds = MediansOfSteps(
        runs,
        [&](int step) {
          const int command = kCommands[static_cast<std::size_t>(step % 2)];
          return TimeOf(picture.Window(), [&] {
            ::SendMessageW(dialog, WM_COMMAND, static_cast<WPARAM>(command), 0);
          });
        },
        [&](int step) {
          bare->SelectCel(kMiddleCel, kPlaces[static_cast<std::size_t>(step % 2)]);
          const CRect area = bare->SelectedArea();
          return TimeOfRepaint(bare->Window(), &area);
        });
    Require(ReadPixels(picture.Window()) == ReadPixels(bare->Window()),
            "the bare window paints another cell");
  });
  return TimesAsLong("layout editor, command on one cell", "a bare window", seconds,
                     kMost, runs);
}

Row BorderDragStep(int runs) {
  Pair seconds;
  InGridEditor([&](HWND dialog) {
    const EditorPicture picture(dialog, IDC_LAYOUT_IMAGE);
    BareGrid bare(picture);
    seconds = MediansOfDragSteps(runs, picture, *bare, bare->RectOf(kMiddleCel), L"10mm / 6mm");
  });
  return TimesAsLong("layout editor, step of a border's drag", "a bare window", seconds,
                     kMostTimesBareStep, runs);
}

/// Whether a line of a selected cell crosses x between two heights.
bool HasSelectedFrame(const driver::Picture& picture, int x, int top, int bottom) {
  constexpr std::uint32_t kRed = 0xFF0000;
  for (int y = top; y < bottom; ++y) {
    if (picture.At(x, y) == kRed) {
      return true;
    }
  }
  return false;
}

/// Drags from the first cell to the last one. The slowest step: of each, the median of the runs.
std::vector<Row> SelectAll(int runs) {
  constexpr double kFrame = 16.0;
  constexpr int kSteps = 20;
  constexpr int kRunsOfDrags = 4;  // one for so many of the others
  const int drags = std::max(runs / kRunsOfDrags, 1);
  std::vector<std::vector<double>> moves(kSteps);
  std::vector<double> releases;
  InGridEditor([&](HWND dialog) {
    const EditorPicture picture(dialog, IDC_LAYOUT_IMAGE);
    BareGrid bare(picture);
    const CPoint first = CentreOf(bare->RectOf(0));
    const CPoint last = CentreOf(bare->RectOf(kLines * kLines - 1));
    for (int drag = 0; drag < drags; ++drag) {
      picture.Mouse(WM_LBUTTONDOWN, first);
      for (int step = 0; step < kSteps; ++step) {
        const CPoint point(first.x + (last.x - first.x) * step / kSteps,
                           first.y + (last.y - first.y) * step / kSteps);
        moves[static_cast<std::size_t>(step)].push_back(
            TimeOf(picture.Window(), [&] { picture.Mouse(WM_MOUSEMOVE, point); }));
      }
      releases.push_back(TimeOf(picture.Window(), [&] { picture.Mouse(WM_LBUTTONUP, last); }));
    }
    const driver::Picture selected = ReadPixels(picture.Window());
    Require(HasSelectedFrame(selected, first.x, 0, first.y) &&
                HasSelectedFrame(selected, last.x, last.y, picture.Size().cy),
            "not all cells were selected");
  });
  double slowestMove = 0.0;
  for (const std::vector<double>& step : moves) {
    slowestMove = std::max(slowestMove, Median(step));
  }
  return {Alone("layout editor, step of a drag over all cells", "ms",
                kMillisecondsInSecond * slowestMove, kFrame, drags),
          Alone("layout editor, selection of all cells", "ms",
                kMillisecondsInSecond * Median(releases), kFrame, drags)};
}

}  // namespace

std::vector<Row> LayoutEditor(int runs) {
  std::vector<Row> rows = Opening(runs);
  rows.push_back(Repaint(kStepsOfRun * runs));
  rows.push_back(CelCommand(kStepsOfRun * runs));
  rows.push_back(BorderDragStep(kStepsOfRun * runs));
  const std::vector<Row> selecting = SelectAll(runs);
  rows.insert(rows.end(), selecting.begin(), selecting.end());
  return rows;
}

}  // namespace quorvel::bench
