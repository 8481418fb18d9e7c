// The extended layout editor and the list editor with blocks of 5 x 20 cells, a text in each, some
// of their lines hidden: opening against their bare templates, painting and a step of a border's
// drag against windows that only paint the same.
#include "bench/bare_page_view.h"
#include "bench/benchmarks.h"
#include "bench/editor_bench.h"
#include "bench/opening.h"
#include "bench/timing.h"
#include "dialogs/layout/editor_settings.h"
#include "dialogs/layout/layout_list_edit_dlg.h"
#include "driver/picture.h"
#include "driver/product_state.h"
#include "res/ids.h"

#include <quorvel/quorvel.h>

#include <algorithm>
#include <array>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace quorvel::bench {

namespace {

using driver::ReadPixels;

constexpr BYTE kRows = 5;
constexpr BYTE kColumns = 20;
constexpr float kWidth = 180.0F;  ///< millimetres
constexpr int kMiddleCel = kRows / 2 * kColumns + kColumns / 2;
constexpr auto kList = CLayoutExPageData::LISTTYPE_LIST;

/// A block and where the extended editor and its bare window show it.
struct BlockPlace {
  CLayoutExPageData::LISTTYPE type = CLayoutExPageData::LISTTYPE_HEADER;
  float height = 0.0F;  ///< millimetres
  int imageId = 0;
  CPoint corner;  ///< clear of the dialog in the middle of the screen
};
constexpr std::array kPlaces{
    BlockPlace{CLayoutExPageData::LISTTYPE_HEADER, 25.0F, IDC_HEADER_IMAGE, {20, 20}},
    BlockPlace{kList, 45.0F, IDC_LIST_IMAGE, {20, 120}},
    BlockPlace{CLayoutExPageData::LISTTYPE_FOOTER, 25.0F, IDC_FOOTER_IMAGE, {620, 20}}};

/// All lines of the header are shown; between the columns of the list they are hidden, between the
/// rows of the footer, too.
CLayoutExPageData FullPage() {
  CLayoutExPageData page;
  for (const BlockPlace& place : kPlaces) {
    page.DividePage(place.type, kRows, kColumns, kDotsPerMm);
    page.SetAllLengthRow(place.type, place.height, 1);
    for (int index = 0; index < page.GetCelSize(place.type); ++index) {
      page.GetCelAt(place.type, index)->SetText(("図面" + std::to_string(index)).c_str());
      page.GetCelAt(place.type, index)->SetSelected(1);
    }
  }
  page.SetAllLengthCol(kWidth, 1);
  page.SetShowLine(kList, 1, 1, 1, 1, 0, 1);
  page.SetShowLine(CLayoutExPageData::LISTTYPE_FOOTER, 1, 0, 1, 1, 1, 1);
  for (const BlockPlace& place : kPlaces) {
    for (int index = 0; index < page.GetCelSize(place.type); ++index) {
      page.GetCelAt(place.type, index)->SetSelected(0);
    }
  }
  return page;
}

void OpenExtendedEditor() {
  static const CLayoutExPageData full = FullPage();
  CLayoutExPageData page = full;
  __LayoutExEditDlg(nullptr, &page, nullptr, nullptr, nullptr, kDotsPerMm, nullptr);
}

void OpenListEditor() {
  CLayoutExPageData page = FullPage();
  CLayoutListEditDlg dialog(nullptr, nullptr, &page, nullptr, nullptr, nullptr, kDotsPerMm, kList,
                            nullptr, nullptr);
  driver::RunWithProductResources(dialog);
}

void InExtendedEditor(const std::function<void(HWND dialog)>& measure) {
  InEditor(IDC_LIST_IMAGE, OpenExtendedEditor, measure);
}

void InListEditor(const std::function<void(HWND dialog)>& measure) {
  InEditor(IDC_BLOCK_IMAGE, OpenListEditor, measure);
}

/// Windows that paint only the three blocks, at the one scale of the editor's pictures.
class BareBlocks {
public:
  explicit BareBlocks(HWND dialog) {
    for (const BlockPlace& place : kPlaces) {
      m_pictures.emplace_back(dialog, place.imageId);
      m_blocks.push_back(std::make_unique<ExtendedBlock>(m_page, place.type));
    }
    double scale = FitInto(*m_blocks[0], m_pictures[0].Size()).scale;
    for (std::size_t i = 1; i < kPlaces.size(); ++i) {
      scale = std::min(scale, FitInto(*m_blocks[i], m_pictures[i].Size()).scale);
    }
    for (std::size_t i = 0; i < kPlaces.size(); ++i) {
      const CSize size = m_pictures[i].Size();
      m_views.push_back(std::make_unique<BarePageView>(*m_blocks[i], CelStyle::kRuled, size,
                                                       PlaceIn(*m_blocks[i], size, scale),
                                                       kPlaces[i].corner));
    }
  }

  const EditorPicture& ListPicture() const { return m_pictures[kList]; }
  BarePageView& ListView() const { return *m_views[kList]; }

  double TimeOfOurRepaint() const {
    double time = 0.0;
    for (const EditorPicture& picture : m_pictures) {
      time += TimeOfRepaint(picture.Window());
    }
    return time;
  }
  double TimeOfBareRepaint() const {
    double time = 0.0;
    for (const auto& view : m_views) {
      time += TimeOfRepaint(view->Window());
    }
    return time;
  }
  void RequireSamePictures() const {
    for (std::size_t i = 0; i < kPlaces.size(); ++i) {
      Require(ReadPixels(m_pictures[i].Window()) == ReadPixels(m_views[i]->Window()),
              "the bare windows paint other blocks");
    }
  }

private:
  CLayoutExPageData m_page = FullPage();
  std::vector<EditorPicture> m_pictures;
  std::vector<std::unique_ptr<ExtendedBlock>> m_blocks;
  std::vector<std::unique_ptr<BarePageView>> m_views;
};

/// A window that paints only the list block, as large as the list editor shows it.
class BareList {
public:
  explicit BareList(const EditorPicture& picture)
      : m_view(m_block, CelStyle::kRuled, picture.Size(), FitInto(m_block, picture.Size())) {}

  HWND Window() const { return m_view.Window(); }

private:
  CLayoutExPageData m_page = FullPage();
  ExtendedBlock m_block{m_page, kList};
  BarePageView m_view;
};

constexpr BareBar kExtendedCelBar{IDB_CELL_TOOLS, kBlockCelTools, {30, 124}};
constexpr BareBar kExtendedFileBar{IDB_FILE_TOOLS, kFileTools, {16, 530}};
constexpr BareBar kListCelBar{IDB_CELL_TOOLS, kBlockCelTools, {30, 33}};

/// What painting the blocks costs is taken off: the bare template has none.
std::vector<Row> Opening(int runs) {
  std::vector<double> repaints;
  InExtendedEditor([&](HWND dialog) {
    const BareBlocks blocks(dialog);
    for (int run = 0; run < runs; ++run) {
      repaints.push_back(blocks.TimeOfBareRepaint());
    }
  });
  BareEditor bare(IDD_LAYOUT_EX, {kExtendedCelBar, kExtendedFileBar});
  return CompareOpening("__LayoutExEditDlg", kTemplateWithBars, kMostTimesBareTemplate, runs,
                        OpenExtendedEditor, [&bare](HWND owner) { bare.Run(owner); },
                        kMillisecondsInSecond * Median(repaints));
}

Row Repaint(int runs) {
  Pair seconds;
  InExtendedEditor([&](HWND dialog) {
    const BareBlocks blocks(dialog);
    seconds = MediansOfSteps(
        runs, [&](int /*step*/) { return blocks.TimeOfOurRepaint(); },
        [&](int /*step*/) { return blocks.TimeOfBareRepaint(); });
    blocks.RequireSamePictures();
  });
  return TimesAsLong("extended editor, repaint of 3 x 5 x 20 cells", "a bare window", seconds,
                     kMostTimesBareRepaint, runs);
}

Row BorderDragStep(int runs) {
  Pair seconds;
  InExtendedEditor([&](HWND dialog) {
    const BareBlocks blocks(dialog);
    seconds = MediansOfDragSteps(runs, blocks.ListPicture(), blocks.ListView(),
                             blocks.ListView().RectOf(kMiddleCel), L"10.0mm / 6.0mm");
  });
  return TimesAsLong("extended editor, step of a border's drag", "a bare window", seconds,
                     kMostTimesBareStep, runs);
}

Row ListRepaint(int runs) {
  Pair seconds;
  InListEditor([&](HWND dialog) {
    const EditorPicture picture(dialog, IDC_BLOCK_IMAGE);
    const BareList bare(picture);
    seconds = MediansOfSteps(
        runs, [&](int /*step*/) { return TimeOfRepaint(picture.Window()); },
        [&](int /*step*/) { return TimeOfRepaint(bare.Window()); });
    Require(ReadPixels(picture.Window()) == ReadPixels(bare.Window()),
            "the bare window paints another block");
  });
  return TimesAsLong("list editor, repaint of 5 x 20 cells", "a bare window", seconds,
                     kMostTimesBareRepaint, runs);
}

/// From the double click on the list block of an open extended editor. The row of the return is
/// left out: it would count what the editor below does afterwards.
Row ListOpening(int runs) {
  std::vector<double> repaints;
  InListEditor([&](HWND dialog) {
    const BareList bare(EditorPicture(dialog, IDC_BLOCK_IMAGE));
    for (int run = 0; run < runs; ++run) {
      repaints.push_back(TimeOfRepaint(bare.Window()));
    }
  });
  std::vector<Row> rows;
  InExtendedEditor([&](HWND dialog) {
    const EditorPicture picture(dialog, IDC_LIST_IMAGE);
    const CPoint centre(picture.Size().cx / 2, picture.Size().cy / 2);
    // What the closed dialog uncovers is not the next one's.
    const auto paintAll = [dialog] {
      ::RedrawWindow(dialog, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
      ::GdiFlush();
    };
    BareEditor bare(IDD_LAYOUT_LIST, {kListCelBar});
    rows = CompareOpening(
        "CLayoutListEditDlg", kTemplateWithBars, kMostTimesBareTemplate, runs,
        [&] {
          picture.Mouse(WM_LBUTTONDBLCLK, centre);
          paintAll();
        },
        [&](HWND owner) {
          bare.Run(owner);
          paintAll();
        },
        kMillisecondsInSecond * Median(repaints));
  });
  return rows.front();
}

}  // namespace

std::vector<Row> ExtendedEditors(int runs) {
  std::vector<Row> rows = Opening(runs);
  rows.push_back(Repaint(kStepsOfRun * runs));
  rows.push_back(BorderDragStep(kStepsOfRun * runs));
  rows.push_back(ListOpening(runs));
  rows.push_back(ListRepaint(kStepsOfRun * runs));
  return rows;
}

}  // namespace quorvel::bench
