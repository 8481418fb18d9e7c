#include "kivfcl/kiv_tool_ctrl.h"

#include "driver/leak_counters.h"
#include "driver/picture.h"
#include "framework/dialog.h"
#include "framework/module_state.h"
#include "layout/editor_tools.h"
#include "res/ids.h"
#include "support/control_owner.h"
#include "support/work.h"
#include "tests/windows/framework/test_dialogs.h"

#include <commctrl.h>

#include <algorithm>
#include <array>
#include <memory>
#include <string>
#include <vector>

namespace quorvel::test {
namespace {

constexpr DWORD kStyle = WS_CHILD | WS_VISIBLE | TBSTYLE_FLAT | TBSTYLE_TOOLTIPS | CCS_NODIVIDER |
                         CCS_NORESIZE;
constexpr int kImages = 11;
constexpr UINT kNotThere = 29'999;
constexpr TOOLITEM kGap{0, 0, TRUE};
constexpr std::array kItems{
    TOOLITEM{IDM_EDIT_TEXT, 0, FALSE},    TOOLITEM{IDM_EDIT_FONT, 1, FALSE},
    kGap,                                 TOOLITEM{IDM_ALIGN_TOP, 2, FALSE},
    TOOLITEM{IDM_MERGE_CELLS, 9, FALSE},  TOOLITEM{IDM_SPLIT_CELLS, 10, FALSE},
};

AFX_MODULE_STATE& ProductState() {
  static AFX_MODULE_STATE state(::GetModuleHandleW(L"Quorvel.dll"));
  return state;
}

class ToolCtrl : public ::testing::Test {
protected:
  void SetUp() override { ASSERT_TRUE(Create(m_tool, IDB_CELL_TOOLS, FALSE)); }

  BOOL Create(CKivToolCtrl& tool, UINT bitmap, BOOL disabled, int images = kImages) {
    return tool.CreateToolCtrl(&m_owner, kStyle, kItems.data(), static_cast<int>(kItems.size()),
                               bitmap, images, {12, 34}, 0, disabled);
  }
  LRESULT Ask(UINT message, WPARAM wParam = 0) const {
    return ::SendMessageW(m_tool.m_hWnd, message, wParam, 0);
  }
  TBBUTTON Button(int index) const {
    TBBUTTON button{};
    EXPECT_TRUE(::SendMessageW(m_tool.m_hWnd, TB_GETBUTTON, static_cast<WPARAM>(index),
                               reinterpret_cast<LPARAM>(&button)));
    return button;
  }
  CRect ButtonRect(int index) const {
    CRect rect;
    ::SendMessageW(m_tool.m_hWnd, TB_GETITEMRECT, static_cast<WPARAM>(index),
                   reinterpret_cast<LPARAM>(&rect));
    return rect;
  }

  AFX_MAINTAIN_STATE2 m_product{&ProductState()};
  ControlOwner m_owner;
  CKivToolCtrl m_tool;
};

TEST_F(ToolCtrl, IsAToolBarOfItsStyleAtItsPlace) {
  EXPECT_EQ(ClassName(m_tool.m_hWnd), L"ToolbarWindow32");
  EXPECT_EQ(::GetParent(m_tool.m_hWnd), m_owner.m_hWnd);
  EXPECT_EQ(::GetDlgCtrlID(m_tool.m_hWnd), 0);
  // The bar adds where it stands (CCS_TOP) and that it is transparent, being flat.
  EXPECT_EQ(::GetWindowLongPtrW(m_tool.m_hWnd, GWL_STYLE) & 0x5000'0944, 0x5000'0944);
  const CRect place(ClientRectOf(m_tool.m_hWnd));
  EXPECT_EQ(place.TopLeft(), CPoint(12, 34));
  const CRect last = ButtonRect(static_cast<int>(kItems.size()) - 1);
  EXPECT_EQ(place.Size(), CSize(last.right, last.bottom)) << "as large as the buttons";
  EXPECT_LE(place.Height(), 24) << "there is room for so much above the picture";
}

TEST_F(ToolCtrl, HasItsItemsInTheirOrder) {
  ASSERT_EQ(Ask(TB_BUTTONCOUNT), static_cast<LRESULT>(kItems.size()));
  for (std::size_t i = 0; i < kItems.size(); ++i) {
    const TBBUTTON button = Button(static_cast<int>(i));
    if (kItems[i].bSeparator != FALSE) {
      EXPECT_EQ(button.fsStyle, BTNS_SEP);
    } else {
      EXPECT_EQ(button.fsStyle, BTNS_BUTTON);
      EXPECT_EQ(static_cast<UINT>(button.idCommand), kItems[i].nCommand);
      EXPECT_EQ(button.iBitmap, kItems[i].nImage);
      EXPECT_EQ(button.fsState, TBSTATE_ENABLED);
    }
  }
}

TEST_F(ToolCtrl, ShowsEachItemsPicture) {
  ::UpdateWindow(m_tool.m_hWnd);
  const driver::Picture bar = driver::ReadPixels(m_tool.m_hWnd);
  const auto pictureAt = [&](int index) {
    const CRect rect = ButtonRect(index);
    std::vector<std::uint32_t> pixels;
    for (int y = rect.top; y < rect.bottom; ++y) {
      for (int x = rect.left; x < rect.right; ++x) {
        pixels.push_back(bar.At(x, y));
      }
    }
    return pixels;
  };
  for (const int one : {0, 1, 3, 4, 5}) {
    for (const int other : {0, 1, 3, 4, 5}) {
      EXPECT_EQ(one == other, pictureAt(one) == pictureAt(other)) << one << " and " << other;
    }
  }
  EXPECT_EQ(std::count(bar.bgrx.begin(), bar.bgrx.end(), 0xC0C0C0U), 0) << "light grey is clear";
}

TEST_F(ToolCtrl, ItsPicturesAreOfTheBitmapsSize) {
  auto* const images = reinterpret_cast<HIMAGELIST>(Ask(TB_GETIMAGELIST));
  int width = 0;
  int height = 0;
  ASSERT_TRUE(::ImageList_GetIconSize(images, &width, &height));
  EXPECT_EQ(CSize(width, height), CSize(16, 15));
  EXPECT_EQ(::ImageList_GetImageCount(images), kImages);

  CKivToolCtrl files;
  constexpr TOOLITEM kOpen{IDM_OPEN_LAYOUT, 0, FALSE};
  ASSERT_TRUE(files.CreateToolCtrl(&m_owner, kStyle, &kOpen, 1, IDB_FILE_TOOLS, 2, {0, 0}, 9,
                                   FALSE));
  auto* const fileImages =
      reinterpret_cast<HIMAGELIST>(::SendMessageW(files.m_hWnd, TB_GETIMAGELIST, 0, 0));
  ASSERT_TRUE(::ImageList_GetIconSize(fileImages, &width, &height));
  EXPECT_EQ(CSize(width, height), CSize(16, 16));
  EXPECT_EQ(::ImageList_GetImageCount(fileImages), 2);
  EXPECT_EQ(::GetDlgCtrlID(files.m_hWnd), 9);
}

TEST_F(ToolCtrl, ButtonsMayBeginDisabledAndAreEnabledOneByOne) {
  CKivToolCtrl tool;
  ASSERT_TRUE(Create(tool, IDB_CELL_TOOLS, TRUE));
  for (const TOOLITEM& item : kItems) {
    if (item.bSeparator == FALSE) {
      EXPECT_FALSE(tool.IsButtonEnabled(item.nCommand));
      EXPECT_TRUE(m_tool.IsButtonEnabled(item.nCommand));
    }
  }
  tool.EnableButton(IDM_EDIT_FONT, TRUE);
  EXPECT_TRUE(tool.IsButtonEnabled(IDM_EDIT_FONT));
  EXPECT_FALSE(tool.IsButtonEnabled(IDM_EDIT_TEXT));
  EXPECT_EQ(::SendMessageW(tool.m_hWnd, TB_GETSTATE, IDM_EDIT_FONT, 0), TBSTATE_ENABLED);
  tool.EnableButton(IDM_EDIT_FONT, FALSE);
  EXPECT_FALSE(tool.IsButtonEnabled(IDM_EDIT_FONT));
  tool.EnableButton(kNotThere, TRUE);
  EXPECT_FALSE(tool.IsButtonEnabled(kNotThere));
}

TEST_F(ToolCtrl, AnEnabledButtonSendsItsCommand) {
  std::vector<Told> told;
  m_tool.EnableButton(IDM_EDIT_FONT, FALSE);
  const auto click = [this](int index) {
    const CRect rect = ButtonRect(index);
    const CPoint middle((rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2);
    m_owner.TakeTold();
    Press(m_tool.m_hWnd, middle);
    Release(m_tool.m_hWnd, middle);
    std::vector<UINT> commands;
    for (const Told& notification : m_owner.TakeTold()) {
      if (notification.id >= IDM_EDIT_TEXT) {
        commands.push_back(notification.id);
      }
    }
    return commands;
  };
  EXPECT_EQ(click(0), std::vector<UINT>{IDM_EDIT_TEXT});
  EXPECT_EQ(click(1), std::vector<UINT>{});
  EXPECT_EQ(click(4), std::vector<UINT>{IDM_MERGE_CELLS});
}

TEST_F(ToolCtrl, WithoutItsBitmapThereIsNone) {
  CKivToolCtrl tool;
  EXPECT_FALSE(Create(tool, kNotThere, FALSE));
  EXPECT_EQ(tool.m_hWnd, nullptr);
  EXPECT_FALSE(Create(tool, IDB_CELL_TOOLS, FALSE, 0));
  EXPECT_FALSE(Create(tool, IDB_CELL_TOOLS, FALSE, 177));
  EXPECT_TRUE(Create(tool, IDB_CELL_TOOLS, FALSE));
  EXPECT_FALSE(Create(tool, IDB_CELL_TOOLS, FALSE)) << "an object has one window only";
}

TEST_F(ToolCtrl, LeavesNothing) {
  const auto createAndDestroy = [this](bool window) {
    CKivToolCtrl tool;
    ASSERT_TRUE(Create(tool, IDB_CELL_TOOLS, TRUE));
    ::UpdateWindow(tool.m_hWnd);
    if (window) {
      tool.DestroyWindow();
    }
  };
  for (int i = 0; i < 20; ++i) {
    createAndDestroy(i % 2 == 0);
  }
  const driver::LeakCounters before = driver::CountResources();
  for (int i = 0; i < 100; ++i) {
    createAndDestroy(i % 2 == 0);
  }
  EXPECT_EQ(driver::CountResources(), before);
}

/// Has a tool bar whose buttons tell what they are for.
class ToolDialog : public CDialog {
public:
  ToolDialog() : CDialog(IDD_NUMBERS) {}

  CKivToolCtrl m_tool;
  int m_asked = 0;

protected:
  BOOL OnInitDialog() override {
    CDialog::OnInitDialog();
    AFX_MANAGE_STATE(&ProductState());
    return m_tool.CreateToolCtrl(this, kStyle, kItems.data(), static_cast<int>(kItems.size()),
                                 IDB_CELL_TOOLS, kImages, {5, 60}, 0, FALSE);
  }
  void OnToolTipText(const NMHDR& notification) {
    AFX_MANAGE_STATE(&ProductState());
    ++m_asked;
    CKivToolCtrl::AnswerToolTip(notification);
  }

  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(ToolDialog, CDialog)
  ON_NOTIFY_RANGE(TTN_GETDISPINFOW, IDM_EDIT_TEXT, IDM_EQUAL_ROWS, &ToolDialog::OnToolTipText)
END_MESSAGE_MAP()

TEST(ToolCtrlDialog, TellsWhatAButtonIsFor) {
  ToolDialog dialog;
  WorkDialog([&] { return dialog.DoModal(); }, [&](HWND window) {
    EXPECT_EQ(ToolTipOf(dialog.m_tool.m_hWnd, IDM_MERGE_CELLS), L"ｾﾙを合成");
    EXPECT_GE(dialog.m_asked, 1);
    Cancel(window);
  });
}

}  // namespace
}  // namespace quorvel::test
