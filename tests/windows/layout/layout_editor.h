// The layout editor as its tests work it: opened on a page, and its picture pointed at.
#pragma once

#include "framework/geometry.h"
#include "layout/editor_tools.h"

#include <quorvel/quorvel.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>
#include <vector>

namespace quorvel::test {

namespace layout_editor {

inline constexpr double kDotsPerMm = 11.811;
inline constexpr int kImage = 2040;

}  // namespace layout_editor

/// What a call of the entry is given; the page is what it left.
struct LayoutEditor {
  CLayoutPageData page;
  CKivSysEnv* env = nullptr;
  CStringArray names;
  CDWordArray numbers;
  bool hasNumbers = false;
  int lineMode = 0;
  CPoint* position = nullptr;

  /// A page of equal cells, in millimetres.
  LayoutEditor(BYTE rows, BYTE cols, double height, double width) {
    page.DividePage(rows, cols, layout_editor::kDotsPerMm);
    page.SetAllLengthRow(height, 1);
    page.SetAllLengthCol(width, 1);
  }

  CLayoutCelData& Cel(int index) { return *page.GetCelAt(index); }
  std::string TextOf(int index) { return Cel(index).GetText().GetString(); }
  void Select(const std::vector<int>& cels) {
    for (const int index : cels) {
      Cel(index).SetSelected(1);
    }
  }
  std::vector<int> Selected() const {
    std::vector<int> cels;
    for (int index = 0; index < page.GetCelSize(); ++index) {
      if (page.GetCelAt(index)->GetSelected() != 0) {
        cels.push_back(index);
      }
    }
    return cels;
  }

  BOOL Run() {
    return __LayoutEditDlg(env, &page, names.GetSize() > 0 ? &names : nullptr,
                           hasNumbers ? &numbers : nullptr, layout_editor::kDotsPerMm, lineMode,
                           position);
  }
  BOOL Run(ModalScript& script) {
    return Work(script, [&] { return Run(); });
  }
  /// One step; what it sends is handled before it returns.
  BOOL Run(ModalScript::Action action) {
    return WorkDialog([&] { return Run(); }, std::move(action));
  }
};

/// The picture of a page in the dialog, computed from the page alone. Points are of the control.
class PageOnScreen {
public:
  PageOnScreen(HWND dialog, const CLayoutPageData& page) : m_dialog(dialog), m_page(page) {
    constexpr double kMmPerInch = 25.4;
    const CRect control = ClientRectOf(Control(dialog, layout_editor::kImage));
    m_origin = control.TopLeft();
    CRect area(1, 1, control.Width() - 1, control.Height() - 1);
    const HDC screen = ::GetDC(nullptr);
    const double dotsX = ::GetDeviceCaps(screen, LOGPIXELSX);
    const double dotsY = ::GetDeviceCaps(screen, LOGPIXELSY);
    ::ReleaseDC(nullptr, screen);
    const int width = std::max(std::lround(m_page.GetAllLengthCol() / kMmPerInch * dotsX), 1L);
    const int height = std::max(std::lround(m_page.GetAllLengthRow() / kMmPerInch * dotsY), 1L);
    const double across = static_cast<double>(area.Width()) / width;
    const double upright = static_cast<double>(area.Height()) / height;
    if (upright > across) {
      m_scale = across;
      const int lost = area.Height() - static_cast<int>(height * across);
      area.top += lost / 2;
      area.bottom = area.top + static_cast<int>(height * across);
    } else {
      m_scale = upright;
      const int lost = area.Width() - static_cast<int>(width * upright);
      area.left += lost / 2;
      area.right = area.left + static_cast<int>(width * upright);
    }
    m_area = area;
    m_pixelsPerMm = m_scale * dotsX / kMmPerInch;
    m_table.resize(static_cast<std::size_t>(m_page.GetCelSize()));
    m_page.InitCelRect(&m_area, m_table.data());
  }

  const CRect& Area() const { return m_area; }
  double PixelsPerMm() const { return m_pixelsPerMm; }
  CRect RectOf(int index) const {
    CRect rect;
    EXPECT_TRUE(m_page.GetCelRect(&rect, m_table.data(), index, nullptr, nullptr)) << index;
    return rect;
  }
  CPoint CentreOf(int index) const {
    const CRect rect = RectOf(index);
    return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
  }
  CPoint InDialog(const CPoint& point) const {
    return {m_origin.x + point.x, m_origin.y + point.y};
  }

  // A mouse that the dialog hears of at once.
  void Send(UINT message, WPARAM keys, const CPoint& point) const {
    const CPoint inDialog = InDialog(point);
    ::SendMessageW(m_dialog, message, keys, MAKELPARAM(inDialog.x, inDialog.y));
  }
  void Press(const CPoint& point) const { Send(WM_LBUTTONDOWN, MK_LBUTTON, point); }
  void MoveTo(const CPoint& point) const { Send(WM_MOUSEMOVE, MK_LBUTTON, point); }
  void Release(const CPoint& point) const { Send(WM_LBUTTONUP, 0, point); }
  void ClickCel(int index) const { DragCels(index, index); }
  void DragCels(int from, int to) const {
    Press(CentreOf(from));
    Release(CentreOf(to));
  }

private:
  HWND m_dialog;
  CLayoutPageData m_page;
  CPoint m_origin;
  CRect m_area;
  double m_scale = 1.0;
  double m_pixelsPerMm = 1.0;
  std::vector<CRect> m_table;
};

}  // namespace quorvel::test
