// Each dialog does what it is for with the keyboard alone. All keys go through the system's own input
// queue, as a user's do, to whatever has the focus.
#include "dialogs/colour/colour_grid.h"
#include "dialogs/layout/frame_lines.h"
#include "dialogs/layout/layout_cel_size_edit_dlg.h"
#include "dialogs/layout/layout_field_edit_dlg.h"
#include "dialogs/layout/layout_frame_edit_dlg.h"
#include "driver/product_state.h"
#include "layout/extended_editor.h"
#include "support/colour_environment.h"
#include "support/work.h"

#include <array>
#include <string>
#include <vector>

namespace quorvel::test {
namespace {

/// Letters and digits of the keyboard, without modifiers.
void Type(const std::string& keys) {
  for (const char key : keys) {
    SendKey(static_cast<UINT>(key));
  }
}

void Press(UINT key, int times = 1) {
  for (int i = 0; i < times; ++i) {
    SendKey(key);
  }
}

void PressAlt(char key) { SendKey(static_cast<UINT>(key), {VK_MENU}); }
void PressCtrl(UINT key) { SendKey(key, {VK_CONTROL}); }

/// A dialog with its focus, ready for keys.
Condition Ready(const std::wstring& title) { return SteadyOnScreen(DialogWithTitle(title)); }

/// One dialog, worked with the keys of one step.
template <class Call>
auto WorkWithKeys(Call call, const std::function<void()>& keys) {
  ModalScript script;
  script.When(SteadyOnScreen(AnyDialog()), [&](HWND /*dialog*/) { keys(); });
  return Work(script, call);
}

TEST(KeyboardOnly, AText) {
  CString text("0");
  EXPECT_TRUE(WorkWithKeys([&] { return __InputTextDlg("題名", "説明", &text, nullptr); }, [] {
    Type("123");
    Press(VK_RETURN);
  }));
  EXPECT_STREQ(text, "123");
}

TEST(KeyboardOnly, AScale) {
  double scale = 1.0;
  EXPECT_TRUE(WorkWithKeys([&] { return __InputScaleDlg("題名", "説明", &scale, nullptr); }, [] {
    Press(VK_TAB, 2);  // from OK to the field
    Type("50");
    Press(VK_RETURN);
  }));
  EXPECT_EQ(scale, 50.0);
}

TEST(KeyboardOnly, AResolutionByTheAccessKeyOfTheButton) {
  int dpi = 300;
  EXPECT_TRUE(WorkWithKeys([&] { return __InputDpiDlg(&dpi, nullptr); }, [] {
    Type("72");
    PressAlt('E');
  }));
  EXPECT_EQ(dpi, 72);
}

TEST(KeyboardOnly, APointByTheAccessKeysOfItsFields) {
  std::array point{1.0, 2.0, 3.0};
  const auto call = [&] { return __InputPointXYZDlg(point.data(), FALSE, nullptr); };
  EXPECT_EQ(WorkWithKeys(call, [] {
              PressAlt('Y');
              Type("8");
              PressAlt('Z');
              Type("9");
              Press(VK_RETURN);
            }),
            QUORVEL_POINT_CONFIRMED);
  EXPECT_EQ(point, (std::array{8.0, 2.0, 9.0}));  // Y, X, Z
}

TEST(KeyboardOnly, ThePointThatTheMouseIsToGive) {
  std::array point{1.0, 2.0};
  const auto call = [&] { return __InputPointXYDlg(point.data(), TRUE, nullptr); };
  EXPECT_EQ(WorkWithKeys(call, [] {
              SendKey(VK_TAB, {VK_SHIFT});  // from OK round to the last control
              Press(VK_SPACE);
            }),
            QUORVEL_POINT_MOUSE_PICK);
}

TEST(KeyboardOnly, AUserPaper) {
  CString name("A3");
  int width = 420;
  int height = 297;
  int clearAll = 0;
  const auto call = [&] {
    return __UserPaperSetDlg(nullptr, &name, &width, &height, &clearAll, nullptr);
  };
  EXPECT_EQ(WorkWithKeys(call,
                         [] {
                           Press(VK_TAB);
                           Type("111");
                           Press(VK_TAB);
                           Type("222");
                           Press(VK_RETURN);
                         }),
            1);
  EXPECT_EQ(width, 111);
  EXPECT_EQ(height, 222);
}

TEST(KeyboardOnly, TicksOfACheckList) {
  const CString title("一覧");
  CArray<CString, CString&> items;
  CByteArray states;
  for (const char* name : {"用紙枠", "図面枠", "寸法線"}) {
    CString item(name);
    items.Add(item);
    states.Add(0);
  }
  EXPECT_EQ(WorkWithKeys([&] { return __CheckListDlg(&title, &items, &states); },
                         [] {
                           Press(VK_TAB, 2);  // from OK to the list
                           Press(VK_DOWN);
                           Press(VK_SPACE);
                           Press(VK_RETURN);
                         }),
            IDOK);
  EXPECT_EQ(states[0], 0);
  EXPECT_EQ(states[1], 1);
  EXPECT_EQ(states[2], 0);
}

TEST(KeyboardOnly, AColourOfTheGrid) {
  const auto colours = InitialGridColors();
  COLORREF color = colours[0];
  EXPECT_TRUE(WorkWithKeys([&] { return __SelColorDlg(nullptr, &color, nullptr); }, [] {
    Press(VK_RIGHT, 2);
    Press(VK_DOWN, 3);
    Press(VK_LEFT);
    Press(VK_RETURN);
  }));
  EXPECT_EQ(color, colours[3 * kGridColumns + 1]);
}

TEST(KeyboardOnly, AColourOfThePickerOpenedFromTheGrid) {
  COLORREF color = RGB(0, 0, 0);
  ModalScript script;
  script.When(Ready(L"色設定"), [](HWND /*dialog*/) { Press(VK_F2); });
  script.When(Ready(L"色の設定"), [](HWND /*dialog*/) {
    Press(VK_TAB, 3);  // to red
    Type("10");
    Press(VK_TAB);
    Type("20");
    Press(VK_TAB);
    Type("30");
    Press(VK_RETURN);
  });
  script.When(Ready(L"色設定"), [](HWND /*dialog*/) { Press(VK_RETURN); });
  EXPECT_TRUE(Work(script, [&] { return __SelColorDlg(nullptr, &color, nullptr); }));
  EXPECT_EQ(color, RGB(10, 20, 30));
}

TEST(KeyboardOnly, AColourOfThePalette) {
  ColourEnvironment environment;
  environment.Store({RGB(1, 1, 1), RGB(2, 2, 2), RGB(3, 3, 3)});
  COLORREF color = RGB(1, 1, 1);
  EXPECT_TRUE(
      WorkWithKeys([&] { return __SelColorDlgEx(&environment.Env(), &color, nullptr); }, [] {
        Press(VK_RIGHT, 2);
        Press(VK_RETURN);
      }));
  EXPECT_EQ(color, RGB(3, 3, 3));
}

TEST(KeyboardOnly, AColourOfTheFieldOnTheLastPage) {
  COLORREF color = RGB(255, 0, 0);
  ModalScript script;
  script.When(Ready(L"色設定"), [](HWND /*dialog*/) { PressCtrl(VK_TAB); });
  script.When(Ready(L"色設定"), [](HWND dialog) {
    EXPECT_EQ(::SendMessageW(Control(dialog, 1000), TCM_GETCURSEL, 0, 0), 2);
    Press(VK_TAB);  // from the tabs to the field
    Press(VK_RIGHT);
    PressCtrl(VK_RIGHT);
    Press(VK_PRIOR);  // no saturation at all
    Press(VK_DOWN, 2);
  });
  script.When(Ready(L"色設定"), [](HWND dialog) {
    EXPECT_EQ(Text(Control(ShownPage(dialog), 2109)), L"色相 11 彩度 2");
    Press(VK_RETURN);
  });
  EXPECT_TRUE(Work(script, [&] { return __SelColorDlgEx(nullptr, &color, nullptr); }));
  EXPECT_NE(color, RGB(255, 0, 0));
}

TEST(KeyboardOnly, AColourBySlidersAndModel) {
  COLORREF color = RGB(10, 20, 30);
  EXPECT_TRUE(WorkWithKeys([&] { return __EditColorDlg(nullptr, &color, nullptr); }, [] {
    Press(VK_TAB, 3);  // OK, cancel, model, the first slider
    Press(VK_RIGHT, 5);
    Press(VK_TAB, 2);
    Press(VK_END);
    Press(VK_RETURN);
  }));
  EXPECT_EQ(color, RGB(15, 255, 30));
}

TEST(KeyboardOnly, AFontByItsAccessKeys) {
  CKivFont font;
  const auto call = [&] {
    return __SelFontDlg(nullptr, &font, 0.0, "文字", TRUE, FALSE, QUORVEL_FONT_ALL);
  };
  EXPECT_TRUE(WorkWithKeys(call, [] {
    PressAlt('U');
    PressAlt('V');
    Type("12");
    PressAlt('H');
    Type("5");
    Press(VK_RETURN);
  }));
  EXPECT_EQ(font.GetV(), 12.0);
  EXPECT_EQ(font.GetH(), 5.0);
  EXPECT_EQ(font.GetLogFont(0).lfUnderline, 1);
}

TEST(KeyboardOnly, TwoLengthsOfCells) {
  float first = 10.0F;
  float second = 5.0F;
  CLayoutCelSizeEditDlg dialog(&first, &second);
  EXPECT_EQ(WorkWithKeys([&] { return RunWithProductResources(dialog); },
                         [] {
                           PressAlt('L');
                           Type("12");
                           Press(VK_RETURN);
                         }),
            IDOK);
  EXPECT_EQ(first, 12.0F);
  EXPECT_EQ(second, 3.0F);
}

TEST(KeyboardOnly, RuledLines) {
  constexpr auto kBlock = CLayoutExPageData::LISTTYPE_LIST;
  CLayoutExPageData page;
  page.DividePage(kBlock, 3, 3, extended_editor::kDotsPerMm);
  page.GetCelAt(kBlock, 4)->SetSelected(1);
  page.SetShowLine(kBlock, 0, 0, 0, 0, 0, 0);
  CLayoutFrameEditDlg dialog(nullptr, &page, kBlock, nullptr);
  EXPECT_EQ(WorkWithKeys([&] { return RunWithProductResources(dialog); },
                         [] {
                           PressAlt('O');
                           Press(VK_TAB);    // over what cannot be had in one cell, to the top line
                           Press(VK_SPACE);  // and the top line is off again
                           SendKey(VK_TAB, {VK_SHIFT});
                           SendKey(VK_TAB, {VK_SHIFT});
                           SendKey(VK_TAB, {VK_SHIFT});
                           SendKey(VK_TAB, {VK_SHIFT});  // round to OK
                           Press(VK_RETURN);
                         }),
            IDOK);
  const FrameLines lines = ReadFrameLines(page, kBlock);
  EXPECT_EQ(lines.shown[static_cast<std::size_t>(FrameLine::kTop)], 0);
  EXPECT_NE(lines.shown[static_cast<std::size_t>(FrameLine::kBottom)], 0);
}

TEST(KeyboardOnly, ADataField) {
  CStringArray names;
  for (const char* name : {"A", "B", "C"}) {
    names.Add(name);
  }
  CLayoutFieldEditDlg dialog(&names, "", nullptr);
  EXPECT_EQ(WorkWithKeys([&] { return RunWithProductResources(dialog); },
                         [] {
                           Press(VK_TAB);
                           Press(VK_DOWN, 2);
                           Press(VK_RETURN);
                         }),
            IDOK);
  CKivValInfoOneData info;
  info.SetMacroString(dialog.m_strMacro, 1);
  EXPECT_STREQ(info.GetFieldName(), "C");
}

}  // namespace
}  // namespace quorvel::test
