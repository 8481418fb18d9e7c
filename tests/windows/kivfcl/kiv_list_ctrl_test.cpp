#include "kivfcl/kiv_list_ctrl.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace {

/// A list in a window of its own, with two columns of check boxes around one of texts.
class KivListCtrl : public ::testing::Test {
protected:
  void SetUp() override {
    INITCOMMONCONTROLSEX classes{sizeof classes, ICC_LISTVIEW_CLASSES};
    ::InitCommonControlsEx(&classes);
    m_parent = ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 400, 300, nullptr,
                                 nullptr, nullptr, nullptr);
    const HWND window = ::CreateWindowExW(0, L"SysListView32", L"",
                                          WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_OWNERDRAWFIXED,
                                          0, 0, 300, 200, m_parent, nullptr, nullptr, nullptr);
    ASSERT_TRUE(m_list.SubclassWindow(window));
    const std::array heads{KIVLISTCTRLHEAD{"表", 0, 30, 0x83002005, 0},
                           KIVLISTCTRLHEAD{"項目名", 0, 150, 0x02000800, 0},
                           KIVLISTCTRLHEAD{"裏", 0, 30, KIVLISTCOL_CHECK, 0}};
    m_list.InitListCtrl(0, heads.data(), static_cast<int>(heads.size()), KIVLISTCTRL_FULLROW, 0);
  }
  void TearDown() override { ::DestroyWindow(m_parent); }

  HWND m_parent = nullptr;
  CKivListCtrl m_list;
};

TEST_F(KivListCtrl, KeepsTextsAndTicksByRowAndColumn) {
  EXPECT_EQ(m_list.AddRow(3, 1, "線", 0), 0);
  EXPECT_EQ(m_list.AddRow(3, 0, "表ソ%s", 256), 1);
  EXPECT_EQ(m_list.GetItemCount(), 2);
  EXPECT_EQ(m_list.GetCelItemData(0, 0).m_nCheck, 1);
  EXPECT_STREQ(m_list.GetCelItemData(0, 1).m_strText, "線");
  EXPECT_EQ(m_list.GetCelItemData(0, 1).m_nCheck, 0);
  EXPECT_EQ(m_list.GetCelItemData(0, 2).m_nCheck, 0);
  EXPECT_TRUE(m_list.GetCelItemData(0, 2).m_strText.IsEmpty());
  EXPECT_EQ(m_list.GetCelItemData(1, 0).m_nCheck, 0);
  EXPECT_STREQ(m_list.GetCelItemData(1, 1).m_strText, "表ソ%s");
  EXPECT_EQ(m_list.GetCelItemData(1, 2).m_nCheck, 1) << "any value but 0 ticks";
}

TEST_F(KivListCtrl, KeepsLongTextsWhole) {
  std::string longText;
  for (int i = 0; i < 500; ++i) {
    longText += "長い名前";
  }
  m_list.AddRow(3, 0, longText.c_str(), 0);
  EXPECT_EQ(m_list.GetItemText(0, 1).View(), longText);
}

TEST_F(KivListCtrl, EachColumnOfCheckBoxesTogglesByItself) {
  m_list.AddRow(3, 0, "線", 0);
  CRect cell;
  ASSERT_TRUE(ListView_GetSubItemRect(m_list.m_hWnd, 0, 2, LVIR_BOUNDS, &cell));
  const LPARAM centre = MAKELPARAM((cell.left + cell.right) / 2, (cell.top + cell.bottom) / 2);
  ::SendMessageW(m_list.m_hWnd, WM_LBUTTONDOWN, MK_LBUTTON, centre);
  ::SendMessageW(m_list.m_hWnd, WM_LBUTTONUP, 0, centre);
  EXPECT_EQ(m_list.GetCelItemData(0, 2).m_nCheck, 1);
  EXPECT_EQ(m_list.GetCelItemData(0, 0).m_nCheck, 0);
  ::SendMessageW(m_list.m_hWnd, WM_KEYDOWN, VK_SPACE, 0);
  ::SendMessageW(m_list.m_hWnd, WM_CHAR, L' ', 0);
  EXPECT_EQ(m_list.GetCelItemData(0, 0).m_nCheck, 1) << "the key works on the first of them";
}

TEST_F(KivListCtrl, AClickBelowTheRowsTogglesNothing) {
  m_list.AddRow(3, 1, "線", 1);
  ::PostMessageW(m_list.m_hWnd, WM_LBUTTONUP, 0, MAKELPARAM(10, 190));
  ::SendMessageW(m_list.m_hWnd, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(10, 190));
  EXPECT_EQ(m_list.GetCelItemData(0, 0).m_nCheck, 1);
  EXPECT_EQ(m_list.GetCelItemData(0, 2).m_nCheck, 1);
}

}  // namespace
