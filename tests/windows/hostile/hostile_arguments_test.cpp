// Every argument of every entry with values that no host should give, the others being good: the
// dialog opens, is painted whole, and ends as documented; or the entry refuses.
#include "hostile/hostile_call.h"

#include <gtest/gtest.h>

namespace quorvel::test {
namespace {

class HostileArguments : public ::testing::TestWithParam<HostileArgument> {};

std::string NameOf(const ::testing::TestParamInfo<HostileArgument>& info) { return info.param.name; }

INSTANTIATE_TEST_SUITE_P(Fonts, HostileArguments, ::testing::ValuesIn(FontArguments()), NameOf);
INSTANTIATE_TEST_SUITE_P(Colours, HostileArguments, ::testing::ValuesIn(ColourArguments()), NameOf);
INSTANTIATE_TEST_SUITE_P(Pages, HostileArguments, ::testing::ValuesIn(PageArguments()), NameOf);
INSTANTIATE_TEST_SUITE_P(Environments, HostileArguments, ::testing::ValuesIn(EnvironmentArguments()),
                         NameOf);
INSTANTIATE_TEST_SUITE_P(Input, HostileArguments, ::testing::ValuesIn(InputArguments()), NameOf);

TEST_P(HostileArguments, DoNoHarm) { ExpectHarmless(GetParam()); }

}  // namespace
}  // namespace quorvel::test
