// The window's rules that need no window: which mark a square shows, the board turned with White on
// top, and the names a side may have.
#include <gtest/gtest.h>

#include "shell/board_geometry.h"
#include "shell/name_rules.h"
#include "support/board_setup.h"

namespace {

TEST(BoardView, MarksOutrankTargetsTheLastMoveAndCheckInTheirOrder) {
    static GameState s;
    ASSERT_TRUE(PlayLine(s, "e2e4"));
    DisplaySettings settings;
    BoardViewFacts facts{1, false, White, false, 4, 0};
    auto column = [&](Word file, Word row) {
        return TileColumnOf(s, settings, facts, 7 - row, file, file, row);
    };
    EXPECT_EQ(column(4, 3), TileColumnLastMove);
    s.board[3][4].legalTarget = 1;
    EXPECT_EQ(column(4, 3), TileColumnLastMove); // targets show only with a piece selected
    facts.pieceSelected = true;
    EXPECT_EQ(column(4, 3), TileColumnTarget);
    facts = {1, true, White, true, 4, 3};
    EXPECT_EQ(column(4, 3), TileColumnAlert);
    facts = {0, false, White, false, 4, 0};
    s.board[2][4].mark = MarkRefused;
    s.board[3][4].mark = MarkTo;
    EXPECT_EQ(column(4, 2), TileColumnAlert);
    EXPECT_EQ(column(4, 3), TileColumnTarget);
    s.setupMode = 1;
    EXPECT_EQ(column(4, 0), TileColumnDark);
    settings.whiteOnTop = 1;
    Word file = -1, row = -1;
    ASSERT_TRUE(HitTestSquare(settings, 25, 25, file, row));
    EXPECT_EQ(SquareName(file, row), "h1");
}

TEST(NameRules, RefuseExactlyTheCharactersAFileNameCannotHold) {
    std::string refused;
    for (std::uint32_t c = 1; c < 256; ++c)
        if (IsRefusedInName(c)) refused += static_cast<char>(c);
    EXPECT_EQ(refused, "\"*/:<>?\\|");
    EXPECT_STREQ(MissingNameMessage("", ""), "Please enter name (WHITE AND BLACK SIDES)");
    EXPECT_EQ(MissingNameMessage("Ann", "Computer {Velok-3}"), nullptr);
}

} // namespace
