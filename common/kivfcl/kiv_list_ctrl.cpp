#include "kivfcl/kiv_list_ctrl.h"

#include "framework/device_context.h"
#include "kivfcl/display_rate.h"

#include <algorithm>
#include <array>
#include <cstdarg>
#include <string>

using quorvel::SelectedObject;

namespace {

constexpr int kMostColumns = 32;
constexpr int kTextMargin = 3;
constexpr int kSideOfTickWidth = 6;  ///< a check box is so many times as wide as its tick's line
constexpr WPARAM kSpace = L' ';

void DrawCellText(HDC deviceContext, CRect cell, const std::wstring& text) {
  cell.left += quorvel::DisplayPixels(kTextMargin);
  ::DrawTextW(deviceContext, text.c_str(), static_cast<int>(text.size()), &cell,
              DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
}

void DrawCheckBox(HDC deviceContext, const CRect& cell, bool ticked) {
  const int side =
      std::min({::GetSystemMetrics(SM_CXMENUCHECK), cell.Width() - 2, cell.Height() - 2});
  const CPoint corner(cell.left + (cell.Width() - side) / 2, cell.top + (cell.Height() - side) / 2);
  const CRect box(corner, CSize(side, side));
  ::FillRect(deviceContext, &box, ::GetSysColorBrush(COLOR_WINDOW));
  ::FrameRect(deviceContext, &box, ::GetSysColorBrush(COLOR_GRAYTEXT));
  if (ticked) {
    const quorvel::OwnedPen pen(::CreatePen(PS_SOLID, std::max(side / kSideOfTickWidth, 1),
                              ::GetSysColor(COLOR_WINDOWTEXT)));
    const SelectedObject selected(deviceContext, pen.get());
    const std::array tick{POINT{corner.x + side / 4, corner.y + side / 2},
                          POINT{corner.x + side * 2 / 5, corner.y + side * 7 / 10},
                          POINT{corner.x + side * 3 / 4, corner.y + side / 4}};
    ::Polyline(deviceContext, tick.data(), static_cast<int>(tick.size()));
  }
}

}  // namespace

LRESULT CKivListHeader::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_PAINT) {
    Paint();
    return 0;
  }
  const LRESULT result = CWnd::WindowProc(message, wParam, lParam);
  if (message == HDM_LAYOUT && m_nHeight > 0) {
    const auto& layout = *reinterpret_cast<const HDLAYOUT*>(lParam);
    layout.prc->top += m_nHeight - layout.pwpos->cy;
    layout.pwpos->cy = m_nHeight;
  }
  return result;
}

void CKivListHeader::Paint() const {
  const CPaintDC paint(this);
  const HDC deviceContext = paint.Handle();
  CRect all;
  ::GetClientRect(m_hWnd, &all);
  ::FillRect(deviceContext, &all, ::GetSysColorBrush(COLOR_BTNFACE));
  CRect line = all;
  line.top = line.bottom - 1;
  ::FillRect(deviceContext, &line, ::GetSysColorBrush(COLOR_BTNSHADOW));

  const SelectedObject font(deviceContext,
                            reinterpret_cast<HFONT>(::SendMessageW(m_hWnd, WM_GETFONT, 0, 0)));
  ::SetBkMode(deviceContext, TRANSPARENT);
  ::SetTextColor(deviceContext, ::GetSysColor(COLOR_BTNTEXT));
  for (int column = 0; column < Header_GetItemCount(m_hWnd); ++column) {
    std::array<wchar_t, sizeof KIVLISTCTRLHEAD::szText> text{};
    HDITEMW item{};
    item.mask = HDI_TEXT;
    item.pszText = text.data();
    item.cchTextMax = static_cast<int>(text.size());
    ::SendMessageW(m_hWnd, HDM_GETITEMW, static_cast<WPARAM>(column),
                   reinterpret_cast<LPARAM>(&item));
    CRect cell;
    Header_GetItemRect(m_hWnd, column, &cell);
    DrawCellText(deviceContext, cell, item.pszText);
  }
}

void CKivListCtrl::SetRowHeight(int height) {
  m_nRowHeight = height;
  m_header.m_nHeight = height;
  m_header.SubclassWindow(ListView_GetHeader(m_hWnd));
}

void CKivListCtrl::InitListCtrl(UINT /*id*/, const KIVLISTCTRLHEAD* heads, int count, DWORD style,
                                int /*flag*/) {
  DWORD extended = 0;
  extended |= (style & KIVLISTCTRL_FULLROW) != 0 ? LVS_EX_FULLROWSELECT : 0;
  ::SendMessageW(m_hWnd, LVM_SETEXTENDEDLISTVIEWSTYLE, extended, static_cast<LPARAM>(extended));

  m_nColumns = std::min(count, kMostColumns);
  m_nCheckColumns = 0;
  for (int column = 0; column < m_nColumns; ++column) {
    const KIVLISTCTRLHEAD& head = heads[column];
    if ((head.dwStyle & KIVLISTCOL_CHECK) != 0) {
      m_nCheckColumns |= 1U << column;
    }
    const std::string heading(head.szText, ::strnlen(head.szText, sizeof head.szText));
    InsertColumn(column, heading.c_str(), head.nWidth);
  }
}

int CKivListCtrl::AddRow(int columns, ...) {
  const int row = AppendRow();
  LPARAM ticks = 0;
  // NOLINTNEXTLINE(cppcoreguidelines-init-variables): va_start does it
  std::va_list cells;
  va_start(cells, columns);
  for (int column = 0; column < std::min(columns, m_nColumns); ++column) {
    if (IsCheckColumn(column)) {
      SetItemTextCallback(row, column);
      ticks |= va_arg(cells, int) != 0 ? LPARAM{1} << column : 0;
    } else {
      SetItemText(row, column, va_arg(cells, const char*));
    }
  }
  va_end(cells);
  SetItemData(row, ticks);
  if (row == 0) {
    // So that the arrow and space keys work as soon as the list has the focus.
    ListView_SetItemState(m_hWnd, 0, LVIS_FOCUSED, LVIS_FOCUSED);
  }
  return row;
}

CKivCelItem CKivListCtrl::GetCelItemData(int row, int column) const {
  CKivCelItem item;
  if (IsCheckColumn(column)) {
    item.m_nCheck = IsTicked(row, column) ? 1 : 0;
  } else {
    item.m_strText = GetItemText(row, column);
  }
  return item;
}

bool CKivListCtrl::IsTicked(int row, int column) const {
  return (GetItemData(row) >> column & 1) != 0;
}

void CKivListCtrl::SetTicked(int row, int column, bool ticked) {
  const LPARAM bit = LPARAM{1} << column;
  const LPARAM data = GetItemData(row);
  SetItemData(row, ticked ? data | bit : data & ~bit);
  ListView_RedrawItems(m_hWnd, row, row);
}

bool CKivListCtrl::ToggleAt(LPARAM clientPoint) {
  LVHITTESTINFO hit{};
  hit.pt = {static_cast<short>(LOWORD(clientPoint)), static_cast<short>(HIWORD(clientPoint))};
  ListView_SubItemHitTest(m_hWnd, &hit);
  if (hit.iItem < 0 || !IsCheckColumn(hit.iSubItem)) {
    return false;
  }
  ::SetFocus(m_hWnd);
  constexpr UINT kMarked = LVIS_FOCUSED | LVIS_SELECTED;
  ListView_SetItemState(m_hWnd, -1, 0, LVIS_SELECTED);
  ListView_SetItemState(m_hWnd, hit.iItem, kMarked, kMarked);
  SetTicked(hit.iItem, hit.iSubItem, !IsTicked(hit.iItem, hit.iSubItem));
  return true;
}

bool CKivListCtrl::ToggleSelectedRows() {
  const int focused = ListView_GetNextItem(m_hWnd, -1, LVNI_FOCUSED);
  if (focused < 0 || m_nCheckColumns == 0) {
    return false;
  }
  int column = 0;
  while (!IsCheckColumn(column)) {
    ++column;
  }
  const bool ticked = !IsTicked(focused, column);
  SetTicked(focused, column, ticked);
  for (int row = ListView_GetNextItem(m_hWnd, -1, LVNI_SELECTED); row >= 0;
       row = ListView_GetNextItem(m_hWnd, row, LVNI_SELECTED)) {
    SetTicked(row, column, ticked);
  }
  return true;
}

LRESULT CKivListCtrl::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  const bool press = message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK;
  if (press && ToggleAt(lParam)) {
    return 0;
  }
  if (message == WM_KEYDOWN && wParam == VK_SPACE && ToggleSelectedRows()) {
    return 0;
  }
  if (message == WM_CHAR && wParam == kSpace && m_nCheckColumns != 0) {
    return 0;  // the key has been dealt with; the control would look for an item by it
  }
  return CListCtrl::WindowProc(message, wParam, lParam);
}

BOOL CKivListCtrl::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
  *result = TRUE;
  if (message == WM_MEASUREITEM) {
    if (m_nRowHeight > 0) {
      reinterpret_cast<MEASUREITEMSTRUCT*>(lParam)->itemHeight = static_cast<UINT>(m_nRowHeight);
    }
    return TRUE;
  }
  if (message == WM_NOTIFY && reinterpret_cast<const NMHDR*>(lParam)->code == LVN_GETDISPINFOW) {
    AnswerText(*reinterpret_cast<NMLVDISPINFOW*>(lParam));
    return TRUE;
  }
  if (message == WM_DRAWITEM) {
    DrawRow(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
    return TRUE;
  }
  return CListCtrl::OnChildNotify(message, wParam, lParam, result);
}

void CKivListCtrl::AnswerText(NMLVDISPINFOW& question) const {
  LVITEMW& cell = question.item;
  if ((cell.mask & LVIF_TEXT) != 0 && IsCheckColumn(cell.iSubItem)) {
    // Never painted, but read aloud by screen readers.
    const wchar_t* text = IsTicked(cell.iItem, cell.iSubItem) ? L"オン" : L"オフ";
    ::lstrcpynW(cell.pszText, text, cell.cchTextMax);
  }
}

void CKivListCtrl::DrawRow(const DRAWITEMSTRUCT& draw) const {
  const int row = static_cast<int>(draw.itemID);
  const bool focused = ::GetFocus() == m_hWnd;
  const bool marked = (draw.itemState & ODS_SELECTED) != 0 && focused;
  ::FillRect(draw.hDC, &draw.rcItem,
             ::GetSysColorBrush(marked ? COLOR_HIGHLIGHT : COLOR_WINDOW));
  ::SetBkMode(draw.hDC, TRANSPARENT);
  ::SetTextColor(draw.hDC, ::GetSysColor(marked ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
  int left = draw.rcItem.left;
  for (int column = 0; column < m_nColumns; ++column) {
    const int width = ListView_GetColumnWidth(m_hWnd, column);
    const CRect cell(left, draw.rcItem.top, left + width, draw.rcItem.bottom);
    left += width;
    if (IsCheckColumn(column)) {
      DrawCheckBox(draw.hDC, cell, IsTicked(row, column));
      continue;
    }
    DrawCellText(draw.hDC, cell, GetItemTextWide(row, column));
  }
  if ((draw.itemState & ODS_FOCUS) != 0 && focused) {
    ::DrawFocusRect(draw.hDC, &draw.rcItem);
  }
}
