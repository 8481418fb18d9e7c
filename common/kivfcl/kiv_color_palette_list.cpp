#include "kivfcl/kiv_color_palette_list.h"

#include "framework/device_context.h"
#include "kivfcl/control_class.h"
#include "kivfcl/control_paint.h"
#include "kivfcl/spoken_text.h"

#include <algorithm>
#include <optional>
#include <utility>

using quorvel::kBlack;
using quorvel::kWhite;
using quorvel::PaletteGrid;
using quorvel::PaletteStep;

namespace {

/// Smaller entries have no lines between them.
constexpr int kSmallestWithLines = 4;
constexpr UINT kDefaultWheelLines = 3;

const wchar_t* ClassName() {
  static const quorvel::ControlClass registered(L"KivColorPaletteList");
  return registered.Name();
}

std::optional<PaletteStep> StepOfKey(WPARAM key) {
  switch (key) {
    case VK_LEFT:
      return PaletteStep::kLeft;
    case VK_RIGHT:
      return PaletteStep::kRight;
    case VK_UP:
      return PaletteStep::kUp;
    case VK_DOWN:
      return PaletteStep::kDown;
    case VK_PRIOR:
      return PaletteStep::kPageUp;
    case VK_NEXT:
      return PaletteStep::kPageDown;
    case VK_HOME:
      return PaletteStep::kFirst;
    case VK_END:
      return PaletteStep::kLast;
    default:
      return std::nullopt;
  }
}

/// The rows that one notch of the wheel scrolls, at most a page.
int RowsOfNotch(int page) {
  UINT lines = kDefaultWheelLines;
  ::SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
  return static_cast<int>(std::min(lines, static_cast<UINT>(page)));
}

}  // namespace

BEGIN_MESSAGE_MAP(CKivColorPaletteList, CWnd)
  ON_WM_PAINT(&CKivColorPaletteList::OnPaint)
  ON_WM_LBUTTONDOWN(&CKivColorPaletteList::OnLButtonDown)
  ON_WM_LBUTTONDBLCLK(&CKivColorPaletteList::OnLButtonDblClk)
  ON_WM_VSCROLL(&CKivColorPaletteList::OnVScroll)
  ON_MESSAGE(WM_KEYDOWN, &CKivColorPaletteList::OnKeyDown)
  ON_MESSAGE(WM_MOUSEWHEEL, &CKivColorPaletteList::OnMouseWheel)
  ON_MESSAGE(WM_SIZE, &CKivColorPaletteList::OnSize)
  ON_MESSAGE(WM_SETFOCUS, &CKivColorPaletteList::OnLookChanged)
  ON_MESSAGE(WM_KILLFOCUS, &CKivColorPaletteList::OnLookChanged)
  ON_MESSAGE(WM_ENABLE, &CKivColorPaletteList::OnLookChanged)
  ON_MESSAGE(WM_SYSCOLORCHANGE, &CKivColorPaletteList::OnLookChanged)
END_MESSAGE_MAP()

BOOL CKivColorPaletteList::Create(DWORD style, const CRect& rect, CWnd* parent, UINT id) {
  const DWORD withoutBar = style & ~static_cast<DWORD>(WS_VSCROLL);
  if (CreateChild(ClassName(), 0, withoutBar, rect, parent, id) == FALSE) {
    return FALSE;
  }
  Rearrange();
  return TRUE;
}

void CKivColorPaletteList::SetItemSize(int width, int height) {
  m_itemSize = CSize(std::clamp(width, 1, PaletteGrid::kLargestItem),
                     std::clamp(height, 1, PaletteGrid::kLargestItem));
  Rearrange();
}

void CKivColorPaletteList::SetItemColumnCount(int columns) {
  m_nColumns = std::max(columns, 1);
  Rearrange();
}

void CKivColorPaletteList::SetPalletData(const CArray<COLORREF, COLORREF>& colors) {
  m_colors = colors;
  m_nCurSel = -1;
  m_nFirstRow = 0;
  Rearrange();
}

COLORREF CKivColorPaletteList::GetColor(int index) const {
  return Grid().HasEntry(index) ? m_colors[index] : kBlack;
}

void CKivColorPaletteList::SetColor(int index, COLORREF color) {
  if (Grid().HasEntry(index) && std::exchange(m_colors[index], color) != color) {
    InvalidateEntry(index);
  }
}

int CKivColorPaletteList::AddColor(COLORREF color) {
  const auto index = static_cast<int>(m_colors.Add(color));
  Rearrange();
  return index;
}

void CKivColorPaletteList::RemoveColor(int index) {
  if (!Grid().HasEntry(index)) {
    return;
  }
  m_colors.RemoveAt(index);
  if (index == m_nCurSel) {
    m_nCurSel = -1;
  } else if (index < m_nCurSel) {
    --m_nCurSel;
  }
  Rearrange();
}

void CKivColorPaletteList::SetCurSel(int index) {
  Select(Grid().HasEntry(index) ? index : -1);
  ScrollTo(Grid().FirstRowShowing(m_nCurSel));
}

LRESULT CKivColorPaletteList::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_GETTEXTLENGTH:
    case WM_GETTEXT:
      return quorvel::AnswerWithText(
          message, wParam, lParam,
          quorvel::Named(GivenText(), m_nCurSel >= 0 ? quorvel::SpokenColor(GetSelectColor())
                                                     : std::wstring()));
    case WM_GETDLGCODE:
      return DLGC_WANTARROWS;
    default:
      return CWnd::WindowProc(message, wParam, lParam);
  }
}

bool CKivColorPaletteList::HasStyle(DWORD style) const {
  return (static_cast<DWORD>(::GetWindowLongPtrW(m_hWnd, GWL_STYLE)) & style) != 0;
}

PaletteGrid CKivColorPaletteList::Grid() const {
  return {GetClientRect().Size(), m_itemSize, m_nColumns, GetColorCount(), m_nFirstRow};
}

void CKivColorPaletteList::Rearrange() {
  m_nFirstRow = Grid().KeptFirstRow(m_nFirstRow);
  UpdateScrollBar();
  Invalidate();
}

void CKivColorPaletteList::UpdateScrollBar() const {
  if (m_hWnd == nullptr || !HasStyle(KIVPALETTE_SCROLL)) {
    return;
  }
  // A page that holds all rows hides the bar.
  const PaletteGrid grid = Grid();
  SCROLLINFO scroll{};
  scroll.cbSize = sizeof scroll;
  scroll.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
  scroll.nMax = std::max(grid.Rows() - 1, 0);
  scroll.nPage = static_cast<UINT>(grid.WholeRows());
  scroll.nPos = grid.firstRow;
  SCROLLINFO shown{};
  shown.cbSize = sizeof shown;
  shown.fMask = scroll.fMask;
  ::GetScrollInfo(m_hWnd, SB_VERT, &shown);
  if (shown.nMax != scroll.nMax || shown.nPage != scroll.nPage || shown.nPos != scroll.nPos) {
    ::SetScrollInfo(m_hWnd, SB_VERT, &scroll, TRUE);  // slow: it paints the bar at once
  }
}

void CKivColorPaletteList::ScrollTo(long long firstRow) {
  const int kept = Grid().KeptFirstRow(firstRow);
  if (kept != std::exchange(m_nFirstRow, kept)) {
    UpdateScrollBar();
    Invalidate();
  }
}

void CKivColorPaletteList::InvalidateEntry(int index) const {
  if (const std::optional<CRect> cell = Grid().CellOf(index)) {
    InvalidateRect(*cell);
  }
}

void CKivColorPaletteList::Select(int index) {
  const int before = std::exchange(m_nCurSel, index);
  if (before == index) {
    return;
  }
  if (before < 0 || index < 0) {
    Invalidate();  // the focus has another mark while no entry is selected
  } else {
    InvalidateEntry(before);
    InvalidateEntry(index);
  }
}

void CKivColorPaletteList::SelectByUser(int index) {
  Select(index);
  Notify(KIVPALETTE_SELECTED);
}

void CKivColorPaletteList::Notify(UINT code) const {
  if (HasStyle(KIVPALETTE_NOTIFY)) {
    ::SendMessageW(::GetParent(m_hWnd), WM_COMMAND,
                   MAKEWPARAM(static_cast<WORD>(::GetDlgCtrlID(m_hWnd)), code),
                   reinterpret_cast<LPARAM>(m_hWnd));
  }
}

void CKivColorPaletteList::OnLButtonDown(UINT /*keys*/, CPoint point) {
  // Whoever loses the focus may end the dialog over it.
  const HWND window = m_hWnd;
  ::SetFocus(window);
  if (FromHandlePermanent(window) != this) {
    return;
  }
  // An entry that is seen in part stays where it is: a second click is to find it there.
  if (const int index = Grid().EntryAt(point); index >= 0) {
    SelectByUser(index);
  }
}

void CKivColorPaletteList::OnLButtonDblClk(UINT keys, CPoint point) {
  const int index = Grid().EntryAt(point);
  if (index >= 0 && index == m_nCurSel) {
    Notify(KIVPALETTE_DOUBLECLICKED);
  } else {
    OnLButtonDown(keys, point);  // the first click was beside the entry
  }
}

void CKivColorPaletteList::OnVScroll(UINT code, UINT position, HWND /*scrollBar*/) {
  const PaletteGrid grid = Grid();
  const long long first = grid.firstRow;
  switch (code) {
    case SB_LINEUP:
      return ScrollTo(first - 1);
    case SB_LINEDOWN:
      return ScrollTo(first + 1);
    case SB_PAGEUP:
      return ScrollTo(first - grid.WholeRows());
    case SB_PAGEDOWN:
      return ScrollTo(first + grid.WholeRows());
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
      return ScrollTo(position);
    case SB_TOP:
      return ScrollTo(0);
    case SB_BOTTOM:
      return ScrollTo(grid.HighestFirstRow());
    default:
      return;
  }
}

LRESULT CKivColorPaletteList::OnKeyDown(WPARAM wParam, LPARAM lParam) {
  const PaletteGrid grid = Grid();
  std::optional<PaletteStep> step = StepOfKey(wParam);
  const bool takesAgain = wParam == VK_SPACE;
  if (takesAgain && m_nCurSel < 0) {
    step = PaletteStep::kFirst;
  } else if (!step.has_value() && !takesAgain) {
    return Default(WM_KEYDOWN, wParam, lParam);
  }
  const int index = step.has_value() ? grid.Stepped(m_nCurSel, *step) : m_nCurSel;
  ScrollTo(grid.FirstRowShowing(index));
  if (index != m_nCurSel || (takesAgain && index >= 0)) {
    SelectByUser(index);
  }
  return 0;
}

LRESULT CKivColorPaletteList::OnMouseWheel(WPARAM wParam, LPARAM lParam) {
  const PaletteGrid grid = Grid();
  if (grid.FitsWhole()) {
    return Default(WM_MOUSEWHEEL, wParam, lParam);  // the parent may have something to scroll
  }
  const int rows = m_wheel.Add(GET_WHEEL_DELTA_WPARAM(wParam), RowsOfNotch(grid.WholeRows()));
  ScrollTo(static_cast<long long>(grid.firstRow) - rows);
  return 0;
}

LRESULT CKivColorPaletteList::OnSize(WPARAM wParam, LPARAM lParam) {
  Rearrange();
  return Default(WM_SIZE, wParam, lParam);
}

LRESULT CKivColorPaletteList::OnLookChanged(WPARAM /*wParam*/, LPARAM /*lParam*/) {
  Invalidate();
  return 0;
}

void CKivColorPaletteList::OnPaint() {
  const CPaintDC paint(this);
  const quorvel::PaintBuffer buffer(paint.Handle(), paint.Area());
  Draw(buffer.Handle(), paint.Area());
}

void CKivColorPaletteList::Draw(HDC deviceContext, const CRect& area) const {
  const PaletteGrid grid = Grid();
  quorvel::FillSolid(deviceContext, area, ::GetSysColor(COLOR_WINDOW));
  const int rows = std::min<int>(grid.RowsInSight(), (area.bottom - 1) / grid.item.cy + 1);
  for (int row = area.top / grid.item.cy; row < rows; ++row) {
    for (int column = 0; column < grid.columns; ++column) {
      const CRect cell = grid.Cell(row, column);
      if (cell.left >= area.right) {
        break;
      }
      if (const int index = grid.EntryAt(cell.TopLeft()); index >= 0) {
        DrawEntry(deviceContext, cell, index);
      }
    }
  }
  if (m_nCurSel < 0 && ::GetFocus() == m_hWnd) {
    quorvel::DrawFrames(deviceContext, GetClientRect(), {kBlack, kWhite});
  }
}

void CKivColorPaletteList::DrawEntry(HDC deviceContext, const CRect& cell, int index) const {
  const bool enabled = ::IsWindowEnabled(m_hWnd) != FALSE;
  const COLORREF color = enabled ? GetColor(index) : quorvel::MutedColor(GetColor(index));
  CRect face = cell;
  if (std::min(cell.Width(), cell.Height()) >= kSmallestWithLines) {
    // Each entry draws its lower and its right line; those at the palette's edges draw the others.
    quorvel::FillSolid(deviceContext, cell, ::GetSysColor(COLOR_BTNSHADOW));
    face = CRect(cell.left == 0 ? 1 : cell.left, cell.top == 0 ? 1 : cell.top, cell.right - 1,
                 cell.bottom - 1);
  }
  quorvel::FillSolid(deviceContext, face, color);
  if (index != m_nCurSel) {
    return;
  }
  if (::GetFocus() == m_hWnd) {
    quorvel::DrawFrames(deviceContext, cell, {kBlack, kWhite, kWhite, kBlack});
  } else {
    quorvel::DrawFrames(deviceContext, cell, {kBlack, kWhite});
  }
}
