// The think suite at levels 1 and 2 against its golden results, recorded once: every think keeps
// its move, score, node count and progress text (the benchmark checks level 3 the same way).
#include <gtest/gtest.h>

#include <tuple>

#include "bench/think_suite.h"

namespace {

class GoldenThink : public testing::TestWithParam<std::tuple<int, int>> {};

TEST_P(GoldenThink, KeepsMoveScoreNodesAndText) {
    static GameState state;
    const auto [level, index] = GetParam();
    const std::string golden = GoldenThinkLine(level, index);
    ASSERT_FALSE(golden.empty()) << "tests/golden/think.txt has no line for level " << level << " position "
                                 << index;
    EXPECT_EQ(ThinkSuiteLine(state, level, index), golden) << ThinkSuitePositions[index];
}

INSTANTIATE_TEST_SUITE_P(Levels1And2, GoldenThink,
                         testing::Combine(testing::Values(1, 2), testing::Range(0, ThinkSuiteSize)));

} // namespace
