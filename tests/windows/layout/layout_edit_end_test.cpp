// How the layout editor ends.
#include "support/same_page.h"
#include "support/work.h"

#include <quorvel/quorvel.h>

namespace quorvel::test {
namespace {

struct End {
  BOOL result;
  bool changed;  ///< the caller's page
};

/// Answers the editor twice before its loop can see the first answer.
End AnswerTwice(int first, int second) {
  CLayoutPageData page;
  page.SetMargin(2.5F);
  page.SetType(1);  // without lines it becomes 0
  const CLayoutPageData before = page;
  const BOOL result = WorkDialog(
      [&] { return __LayoutEditDlg(nullptr, &page, nullptr, nullptr, 0.0, 0, nullptr); },
      [=](HWND dialog) {
        ::SendMessageW(dialog, WM_COMMAND, static_cast<WPARAM>(first), 0);
        ::SendMessageW(dialog, WM_COMMAND, static_cast<WPARAM>(second), 0);
      });
  return {result, !IsSamePage(page, before)};
}

TEST(LayoutEditEnd, WhatOkHasGivenCannotBeCancelled) {
  const End end = AnswerTwice(IDOK, IDCANCEL);
  EXPECT_EQ(end.result, TRUE);
  EXPECT_TRUE(end.changed);
}

TEST(LayoutEditEnd, OkBehindACancelGivesNothing) {
  const End end = AnswerTwice(IDCANCEL, IDOK);
  EXPECT_EQ(end.result, FALSE);
  EXPECT_FALSE(end.changed);
}

}  // namespace
}  // namespace quorvel::test
