#include "driver/controls.h"
#include "driver/modal_script.h"
#include "driver/picture.h"

#include <gtest/gtest.h>
#include <quorvel/quorvel.h>

namespace quorvel::driver {
namespace {

constexpr int kValue = 10001;

TEST(InputTextDlg, ReturnsTheTypedText) {
  CString text("初期値");
  ModalScript script;
  script.When(SteadyOnScreen(DialogWithTitle(L"題名")), [](HWND dialog) {
    SavePng(ReadScreen(WindowRect(dialog)), L"/tmp/x.png");
    EXPECT_EQ(FocusedControlId(dialog), kValue);
    ReplaceText(Control(dialog, kValue), L"表ソ100%s");
    PressKey(Control(dialog, kValue), VK_RETURN);
  });
  CPoint at(300,200);
  EXPECT_EQ(__InputTextDlg("題名", "説明", &text, &at), TRUE);
  EXPECT_TRUE(script.Finished()) << script.Problem();
  EXPECT_STREQ(text, "表ソ100%s");
}

}  // namespace
}  // namespace quorvel::driver
