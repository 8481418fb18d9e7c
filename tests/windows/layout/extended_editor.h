// The editors of an extended page as their tests work them.
#pragma once

#include "framework/geometry.h"
#include "layout/editor_tools.h"

#include <quorvel/quorvel.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace quorvel::test {

namespace extended_editor {

inline constexpr double kDotsPerMm = 11.811;
inline constexpr auto kHeader = CLayoutExPageData::LISTTYPE_HEADER;
inline constexpr auto kList = CLayoutExPageData::LISTTYPE_LIST;
inline constexpr auto kFooter = CLayoutExPageData::LISTTYPE_FOOTER;
inline constexpr std::array kBlocks{kHeader, kList, kFooter};
inline constexpr std::array kImages{4031, 4033, 4035};
inline constexpr int kTextLine = 4044;
inline constexpr int kHeaderUse = 4032;
inline constexpr int kListUse = 4034;
inline constexpr int kFooterUse = 4036;
inline constexpr int kWidth = 2024;
inline constexpr int kColumns = 2022;
inline constexpr int kOffset = 4045;
inline constexpr int kRepeat = 4041;
inline constexpr std::array kHeights{4037, 4040, 4043};
inline constexpr std::array kRows{4038, 4039, 4042};
inline constexpr std::array kEqual{10004, 10005, 10006};

}  // namespace extended_editor

/// Divides a block and merges all its cells into one, 160 x 50 mm large.
inline void MergeAll(CLayoutExPageData& page, CLayoutExPageData::LISTTYPE block, BYTE rows,
                     BYTE columns) {
  page.DividePage(block, rows, columns, extended_editor::kDotsPerMm);
  page.SetAllLengthRow(block, 50.0F, 1);
  page.SetAllLengthCol(160.0F, 1);
  const auto select = [&](int selected) {
    for (int index = 0; index < page.GetCelSize(block); ++index) {
      page.GetCelAt(block, index)->SetSelected(selected);
    }
  };
  select(1);
  EXPECT_TRUE(page.MeargeCel(block, 0, 0));
  select(0);
}

/// What a call of the entry is given; the page is what it left.
struct ExtendedEditor {
  CLayoutExPageData page;
  CKivSysEnv* env = nullptr;
  CStringArray fields;
  bool hasFields = false;
  CStringArray names;
  CDWordArray numbers;
  bool hasNumbers = false;
  CPoint* position = nullptr;

  /// 4 columns of 40 mm; header and footer of 10 mm with 1 and 2 rows, a list of 50 mm with 3.
  ExtendedEditor() {
    using namespace extended_editor;
    page.DividePage(kHeader, 1, 4, kDotsPerMm);
    page.DividePage(kList, 3, 4, kDotsPerMm);
    page.DividePage(kFooter, 2, 4, kDotsPerMm);
    page.SetAllLengthCol(160.0F, 1);
    page.SetAllLengthRow(kHeader, 10.0F, 1);
    page.SetAllLengthRow(kList, 50.0F, 1);
    page.SetAllLengthRow(kFooter, 10.0F, 1);
  }

  CLayoutCelData& Cel(CLayoutExPageData::LISTTYPE block, int index) {
    return *page.GetCelAt(block, index);
  }
  std::string TextOf(CLayoutExPageData::LISTTYPE block, int index) {
    return Cel(block, index).GetText().GetString();
  }

  BOOL Run() {
    return __LayoutExEditDlg(env, &page, hasFields ? &fields : nullptr,
                             names.GetSize() > 0 ? &names : nullptr,
                             hasNumbers ? &numbers : nullptr, extended_editor::kDotsPerMm, position);
  }
  BOOL Run(ModalScript& script) {
    return Work(script, [&] { return Run(); });
  }
  /// One step; what it sends is handled before it returns.
  BOOL Run(ModalScript::Action action) {
    return WorkDialog([&] { return Run(); }, std::move(action));
  }
};

/// The three pictures, computed from the page alone. Points are of a picture's control.
class PagesOnScreen {
public:
  PagesOnScreen(HWND dialog, const CLayoutExPageData& page) : m_dialog(dialog), m_page(page) {
    constexpr double kMmPerInch = 25.4;
    constexpr double kDots = 96.0;
    const auto pixels = [](double mm) {
      return std::max(static_cast<int>(std::lround(mm / kMmPerInch * kDots)), 1);
    };
    const int width = pixels(m_page.GetAllLengthCol());
    for (std::size_t i = 0; i < m_views.size(); ++i) {
      View& view = m_views[i];
      view.type = extended_editor::kBlocks[i];
      view.control = ClientRectOf(Control(dialog, extended_editor::kImages[i]));
      view.height = pixels(m_page.GetAllLengthRow(view.type));
      m_scale = std::min({m_scale, static_cast<double>(view.control.Width() - 2) / width,
                          static_cast<double>(view.control.Height() - 2) / view.height});
    }
    for (View& view : m_views) {
      const CSize size(static_cast<int>(width * m_scale), static_cast<int>(view.height * m_scale));
      const CPoint corner(1 + (view.control.Width() - 2 - size.cx) / 2,
                          1 + (view.control.Height() - 2 - size.cy) / 2);
      view.area = CRect(corner, size);
      view.table.resize(static_cast<std::size_t>(m_page.GetCelSize(view.type)));
      m_page.InitCelRect(view.type, &view.area, view.table.data());
    }
    m_pixelsPerMm = m_scale * kDots / kMmPerInch;
  }

  double PixelsPerMm() const { return m_pixelsPerMm; }
  const CRect& Area(int block) const { return ViewOf(block).area; }
  CRect RectOf(int block, int index) const {
    const View& view = ViewOf(block);
    CRect rect;
    EXPECT_TRUE(
        m_page.GetCelRect(view.type, &rect, view.table.data(), index, nullptr, nullptr));
    return rect;
  }
  CPoint CentreOf(int block, int index) const {
    const CRect rect = RectOf(block, index);
    return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
  }
  LPARAM InDialog(int block, const CPoint& point) const {
    const CRect& control = ViewOf(block).control;
    return MAKELPARAM(control.left + point.x, control.top + point.y);
  }

  // A mouse that the dialog hears of at once.
  void Send(UINT message, WPARAM keys, int block, const CPoint& point) const {
    ::SendMessageW(m_dialog, message, keys, InDialog(block, point));
  }
  void Press(int block, const CPoint& point) const {
    Send(WM_LBUTTONDOWN, MK_LBUTTON, block, point);
  }
  void MoveTo(int block, const CPoint& point) const {
    Send(WM_MOUSEMOVE, MK_LBUTTON, block, point);
  }
  void Release(int block, const CPoint& point) const { Send(WM_LBUTTONUP, 0, block, point); }
  void DragCels(int block, int from, int to) const {
    Press(block, CentreOf(block, from));
    Release(block, CentreOf(block, to));
  }
  void ClickCel(int block, int index) const { DragCels(block, index, index); }

  // Handled later: what it opens would not return.
  void RightClickLater(int block, int index) const {
    ::PostMessageW(m_dialog, WM_RBUTTONUP, 0, InDialog(block, CentreOf(block, index)));
  }
  void DoubleClickLater(int block, int index) const {
    ::PostMessageW(m_dialog, WM_LBUTTONDBLCLK, MK_LBUTTON,
                   InDialog(block, CentreOf(block, index)));
  }

private:
  struct View {
    CLayoutExPageData::LISTTYPE type = CLayoutExPageData::LISTTYPE_HEADER;
    CRect control;
    CRect area;
    int height = 0;
    std::vector<CRect> table;
  };
  const View& ViewOf(int block) const { return m_views[static_cast<std::size_t>(block)]; }

  HWND m_dialog;
  CLayoutExPageData m_page;
  double m_scale = std::numeric_limits<double>::max();
  double m_pixelsPerMm = 1.0;
  std::array<View, 3> m_views;
};

class ExtendedEditorTest : public ::testing::Test {
protected:
  ExtendedEditor m_editor;

  BOOL Run(const std::function<void(HWND, const PagesOnScreen&)>& action) {
    return m_editor.Run([&](HWND dialog) { action(dialog, {dialog, m_editor.page}); });
  }
  PagesOnScreen Pages(HWND dialog) const { return {dialog, m_editor.page}; }
  std::vector<int> Selected(CLayoutExPageData::LISTTYPE block) const {
    std::vector<int> cels;
    for (int index = 0; index < m_editor.page.GetCelSize(block); ++index) {
      if (m_editor.page.GetCelAt(block, index)->GetSelected() != 0) {
        cels.push_back(index);
      }
    }
    return cels;
  }
  static Condition EditorShown() {
    return Painted(DialogWithControl(extended_editor::kImages[1]));
  }
};

}  // namespace quorvel::test
