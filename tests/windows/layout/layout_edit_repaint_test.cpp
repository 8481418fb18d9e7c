// What the layout editor has painted anew: no more than what changed.
#include "dialogs/layout/page_geometry.h"
#include "res/ids.h"
#include "support/work.h"

#include <quorvel/quorvel.h>

#include <array>
#include <functional>
#include <vector>

namespace quorvel::test {
namespace {

constexpr int kTextEdit = 200;

constexpr double kDotsPerMm = 11.811;
constexpr int kRows = 6;
constexpr int kCols = 5;
/// A cell's lines reach so far out of its rectangle.
constexpr int kLineReach = 1;

struct RegionDeleter {
  void operator()(HRGN region) const { ::DeleteObject(region); }
};
using OwnedRegion = std::unique_ptr<std::remove_pointer_t<HRGN>, RegionDeleter>;

int AreaOf(const CRect& rect) { return rect.Width() * rect.Height(); }

/// Pixels of a region.
int AreaOf(HRGN region) {
  std::vector<char> bytes(::GetRegionData(region, 0, nullptr));
  auto* const data = reinterpret_cast<RGNDATA*>(bytes.data());
  ::GetRegionData(region, static_cast<DWORD>(bytes.size()), data);
  const auto* const rects = reinterpret_cast<const RECT*>(data->Buffer);
  int area = 0;
  for (DWORD i = 0; i < data->rdh.nCount; ++i) {
    area += AreaOf(CRect(rects[i]));
  }
  return area;
}

/// The editor's picture of a page.
class Picture {
public:
  explicit Picture(HWND dialog) : m_dialog(dialog), m_window(Control(dialog, IDC_LAYOUT_IMAGE)) {}

  /// The rectangle of a cell as the page stands in the picture.
  CRect RectOf(const CLayoutPageData& page, int index) const {
    CRect client;
    ::GetClientRect(m_window, &client);
    const HDC deviceContext = ::GetDC(m_window);
    const DotsPerInch dots{static_cast<double>(::GetDeviceCaps(deviceContext, LOGPIXELSX)),
                           static_cast<double>(::GetDeviceCaps(deviceContext, LOGPIXELSY))};
    ::ReleaseDC(m_window, deviceContext);
    const FittedPage fitted =
        FitPage(client, {page.GetAllLengthCol(), page.GetAllLengthRow()}, dots);
    std::vector<CRect> table(static_cast<std::size_t>(page.GetCelSize()));
    page.InitCelRect(&fitted.area, table.data());
    CRect rect;
    page.GetCelRect(&rect, table.data(), index, nullptr, nullptr);
    return rect;
  }

  void Drag(const CPoint& from, const CPoint& to) const {
    Mouse(WM_LBUTTONDOWN, from);
    Mouse(WM_LBUTTONUP, to);
  }

  /// Nothing is left to be painted.
  void Paint() const { ::UpdateWindow(m_window); }

  OwnedRegion Unpainted() const {
    OwnedRegion region(::CreateRectRgn(0, 0, 0, 0));
    ::GetUpdateRgn(m_window, region.get(), FALSE);
    return region;
  }

private:
  void Mouse(UINT message, const CPoint& point) const {
    POINT inDialog = point;
    ::MapWindowPoints(m_window, m_dialog, &inDialog, 1);
    ::SendMessageW(m_dialog, message, message == WM_LBUTTONUP ? 0 : MK_LBUTTON,
                   MAKELPARAM(inDialog.x, inDialog.y));
  }

  HWND m_dialog;
  HWND m_window;
};

CPoint CentreOf(const CRect& rect) {
  return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
}

CLayoutPageData Page() {
  CLayoutPageData page;
  page.DividePage(kRows, kCols, kDotsPerMm);
  page.SetAllLengthCol(220.0, 1);
  for (int index = 0; index < page.GetCelSize(); ++index) {
    page.GetCelAt(index)->SetText("図面");
  }
  return page;
}

/// Lets `act` do something to the editor, whose cell `from` has been clicked, or the cells from it
/// to `to` been dragged over; what is left to be painted must be those cells and their lines.
void ExpectRepaint(int from, int to, const std::function<void(HWND dialog)>& act) {
  CLayoutPageData page = Page();
  CStringArray insertions;
  insertions.Add("図番");
  const auto run = [&] {
    return __LayoutEditDlg(nullptr, &page, &insertions, nullptr, kDotsPerMm, 0, nullptr);
  };
  WorkDialog(run, [&](HWND dialog) {
    const Picture picture(dialog);
    const CRect first = picture.RectOf(page, from);
    const CRect last = picture.RectOf(page, to);
    picture.Drag(CentreOf(first), CentreOf(last));
    picture.Paint();
    act(dialog);
    const CRect most = CRect(first.left, first.top, last.right, last.bottom)
                           .Grown(kLineReach, kLineReach);
    const OwnedRegion unpainted = picture.Unpainted();
    CRect box;
    ::GetRgnBox(unpainted.get(), &box);
    EXPECT_EQ(box, most);
    EXPECT_GT(AreaOf(unpainted.get()), 0);
    EXPECT_LE(AreaOf(unpainted.get()), AreaOf(most));
    Cancel(dialog);
  });
}

void ExpectRepaintOf(int index, const std::function<void(HWND dialog)>& act) {
  ExpectRepaint(index, index, act);
}

std::function<void(HWND)> Command(int command, int code = 0) {
  return [=](HWND dialog) {
    ::SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(command, code), 0);
  };
}

constexpr int kCel = 2 * kCols + 3;  ///< inside the page

TEST(LayoutEditRepaint, AligningACelRepaintsThatCel) {
  for (int command = IDM_ALIGN_TOP; command <= IDM_ALIGN_RIGHT; ++command) {
    ExpectRepaintOf(kCel, Command(command));
  }
}

TEST(LayoutEditRepaint, TheCelsAtTheEdgeAreRepaintedAlone) {
  for (const int index : {0, kCols - 1, (kRows - 1) * kCols, kRows * kCols - 1}) {
    ExpectRepaintOf(index, Command(IDM_ALIGN_MIDDLE));
  }
}

TEST(LayoutEditRepaint, ColouringACelRepaintsThatCel) {
  for (const int button : {IDC_LAYOUT_TEXT_COLOUR, IDC_LAYOUT_BACK_COLOUR}) {
    ExpectRepaintOf(kCel, Command(button, BN_CLICKED));
  }
}

TEST(LayoutEditRepaint, InsertingIntoACelRepaintsThatCel) {
  ExpectRepaintOf(kCel, [](HWND dialog) {
    const HWND list = Control(dialog, IDC_LAYOUT_INSERTION);
    ::SendMessageW(list, CB_SETCURSEL, 1, 0);
    ::SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(IDC_LAYOUT_INSERTION, CBN_SELCHANGE),
                   reinterpret_cast<LPARAM>(list));
  });
}

TEST(LayoutEditRepaint, EditingATextRepaintsItsCel) {
  ExpectRepaintOf(kCel, [](HWND dialog) {
    ::SendMessageW(dialog, WM_COMMAND, IDM_EDIT_TEXT, 0);
    const HWND edit = Control(dialog, kTextEdit);
    ::SetWindowTextW(edit, L"縮尺");
    ::SendMessageW(edit, EM_SETMODIFY, TRUE, 0);
    ::SendMessageW(dialog, WM_COMMAND, IDM_MERGE_CELLS, 0);  // ends the editing, and merges nothing
  });
}

TEST(LayoutEditRepaint, ACommandOnSeveralCelsRepaintsThem) {
  ExpectRepaint(kCols + 1, 3 * kCols + 2, Command(IDM_ALIGN_CENTRE));
}

TEST(LayoutEditRepaint, MergingAndSplittingRepaintTheBlock) {
  ExpectRepaint(kCols + 1, 3 * kCols + 2, Command(IDM_MERGE_CELLS));
  ExpectRepaint(kCols + 1, 3 * kCols + 2, [](HWND dialog) {
    ::SendMessageW(dialog, WM_COMMAND, IDM_MERGE_CELLS, 0);
    ::UpdateWindow(Control(dialog, IDC_LAYOUT_IMAGE));
    ::SendMessageW(dialog, WM_COMMAND, IDM_SPLIT_CELLS, 0);
  });
}

TEST(LayoutEditRepaint, AClickRepaintsWhatItSelectsAndDeselects) {
  CLayoutPageData page = Page();
  const auto run = [&] {
    return __LayoutEditDlg(nullptr, &page, nullptr, nullptr, kDotsPerMm, 0, nullptr);
  };
  WorkDialog(run, [&](HWND dialog) {
    const Picture picture(dialog);
    const CRect first = picture.RectOf(page, 0);
    const CRect other = picture.RectOf(page, kCel);
    picture.Drag(CentreOf(first), CentreOf(first));
    picture.Paint();
    picture.Drag(CentreOf(other), CentreOf(other));
    EXPECT_EQ(AreaOf(picture.Unpainted().get()),
              AreaOf(first.Grown(kLineReach, kLineReach)) +
                  AreaOf(other.Grown(kLineReach, kLineReach)));
    Cancel(dialog);
  });
}

TEST(LayoutEditRepaint, ADraggedBorderRepaintsNothingBeforeItIsReleased) {
  CLayoutPageData page = Page();
  const auto run = [&] {
    return __LayoutEditDlg(nullptr, &page, nullptr, nullptr, kDotsPerMm, 0, nullptr);
  };
  WorkDialog(run, [&](HWND dialog) {
    const Picture picture(dialog);
    const CRect first = picture.RectOf(page, 0);
    picture.Paint();
    POINT border{(first.left + first.right) / 2, first.bottom};
    ::MapWindowPoints(Control(dialog, IDC_LAYOUT_IMAGE), dialog, &border, 1);
    ::SendMessageW(dialog, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(border.x, border.y));
    for (int moved = 1; moved <= 3; ++moved) {
      ::SendMessageW(dialog, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(border.x, border.y + moved));
      EXPECT_EQ(AreaOf(picture.Unpainted().get()), 0);
    }
    ::SendMessageW(dialog, WM_LBUTTONUP, 0, MAKELPARAM(border.x, border.y + 3));
    EXPECT_GT(AreaOf(picture.Unpainted().get()), 0);
    Cancel(dialog);
  });
}

}  // namespace
}  // namespace quorvel::test
