#include "dialogs/input/user_paper_text.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

TEST(PaperSizeLabel, HasNoBlanks) {
  EXPECT_STREQ(PaperSizeLabel(420, 297), "(420x297)");
  EXPECT_STREQ(PaperSizeLabel(0, -5), "(0x-5)");
}

}  // namespace
}  // namespace quorvel
