#include "kivfcl/kiv_list_ctrl.h"

#include <uxtheme.h>
#include <vssym32.h>

#include <algorithm>
#include <cstdarg>
#include <memory>
#include <string>
#include <type_traits>
#include <windowsx.h>

namespace {

constexpr int kMostColumns = 32;
constexpr WPARAM kSpace = L' ';

struct ThemeCloser {
  void operator()(HTHEME theme) const { ::CloseThemeData(theme); }
};
using Theme = std::unique_ptr<std::remove_pointer_t<HTHEME>, ThemeCloser>;

}  // namespace

void CKivListCtrl::InitListCtrl(UINT /*id*/, const KIVLISTCTRLHEAD* heads, int count, DWORD style,
                                int /*flag*/) {
  DWORD extended = 0;
  extended |= (style & KIVLISTCTRL_FULLROW) != 0 ? LVS_EX_FULLROWSELECT : 0;
  extended |= (style & KIVLISTCTRL_GRIDLINES) != 0 ? LVS_EX_GRIDLINES : 0;
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
  const int row = AppendRow("");
  std::va_list cells;
  va_start(cells, columns);
  for (int column = 0; column < std::min(columns, m_nColumns); ++column) {
    if (IsCheckColumn(column)) {
      SetTicked(row, column, va_arg(cells, int) != 0);
    } else {
      SetItemText(row, column, va_arg(cells, const char*));
    }
  }
  va_end(cells);
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
  SetItemText(row, column, ticked ? "オン" : "オフ");  // never painted, but read aloud
}

bool CKivListCtrl::ToggleAt(LPARAM clientPoint) {
  LVHITTESTINFO hit{};
  hit.pt = {GET_X_LPARAM(clientPoint), GET_Y_LPARAM(clientPoint)};
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
  if (message != WM_NOTIFY || reinterpret_cast<const NMHDR*>(lParam)->code != NM_CUSTOMDRAW) {
    return CListCtrl::OnChildNotify(message, wParam, lParam, result);
  }
  *result = OnCustomDraw(*reinterpret_cast<const NMLVCUSTOMDRAW*>(lParam));
  return TRUE;
}

LRESULT CKivListCtrl::OnCustomDraw(const NMLVCUSTOMDRAW& draw) const {
  switch (draw.nmcd.dwDrawStage) {
    case CDDS_PREPAINT:
      return CDRF_NOTIFYITEMDRAW;
    case CDDS_ITEMPREPAINT:
      return CDRF_NOTIFYSUBITEMDRAW;
    case CDDS_ITEMPREPAINT | CDDS_SUBITEM:
      if (IsCheckColumn(draw.iSubItem)) {
        DrawCheckBox(draw.nmcd.hdc, static_cast<int>(draw.nmcd.dwItemSpec), draw.iSubItem);
        return CDRF_SKIPDEFAULT;
      }
      return CDRF_DODEFAULT;
    default:
      return CDRF_DODEFAULT;
  }
}

void CKivListCtrl::DrawCheckBox(HDC deviceContext, int row, int column) const {
  RECT cell{};
  ListView_GetSubItemRect(m_hWnd, row, column, LVIR_BOUNDS, &cell);
  const bool selected = (ListView_GetItemState(m_hWnd, row, LVIS_SELECTED) & LVIS_SELECTED) != 0 &&
                        ::GetFocus() == m_hWnd;
  ::FillRect(deviceContext, &cell, ::GetSysColorBrush(selected ? COLOR_HIGHLIGHT : COLOR_WINDOW));

  const int side = std::min<int>({::GetSystemMetrics(SM_CXMENUCHECK), cell.right - cell.left - 2,
                                  cell.bottom - cell.top - 2});
  RECT box{};
  box.left = (cell.left + cell.right - side) / 2;
  box.top = (cell.top + cell.bottom - side) / 2;
  box.right = box.left + side;
  box.bottom = box.top + side;
  const bool ticked = IsTicked(row, column);
  if (const Theme theme{::OpenThemeData(m_hWnd, L"BUTTON")}) {
    ::DrawThemeBackground(theme.get(), deviceContext, BP_CHECKBOX,
                          ticked ? CBS_CHECKEDNORMAL : CBS_UNCHECKEDNORMAL, &box, nullptr);
  } else {
    ::DrawFrameControl(deviceContext, &box, DFC_BUTTON,
                       DFCS_BUTTONCHECK | (ticked ? DFCS_CHECKED : 0U));
  }
}
