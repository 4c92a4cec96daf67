// Where clicks land on the board and which skin tile each square shows: orientation, margins,
// the order in which marks override one another, and the colours of the selected list row.
#include <gtest/gtest.h>

#include <string>

#include "shell/board_geometry.h"
#include "shell/name_rules.h"
#include "shell/selection_colours.h"
#include "support/board_setup.h"

namespace {

std::string Hit(const DisplaySettings& settings, int x, int y) {
    Word file = -1, row = -1;
    if (!HitTestSquare(settings, x, y, file, row)) return "none";
    return SquareName(file, row);
}

TEST(HitTestSquare, FindsSquaresFromWhitesSide) {
    const DisplaySettings settings;
    EXPECT_EQ(Hit(settings, 20, 20), "a8");
    EXPECT_EQ(Hit(settings, 20 + 4 * 64 + 10, 20 + 6 * 64 + 10), "e2");
    EXPECT_EQ(Hit(settings, 531, 531), "h1");
}

TEST(HitTestSquare, TurnsTheBoardWhenWhiteIsOnTop) {
    DisplaySettings settings;
    settings.whiteOnTop = 1;
    EXPECT_EQ(Hit(settings, 25, 25), "h1");
    EXPECT_EQ(Hit(settings, 531, 531), "a8");
}

TEST(HitTestSquare, MarginsAndPanelAreNoSquare) {
    const DisplaySettings settings;
    EXPECT_EQ(Hit(settings, 19, 100), "none");
    EXPECT_EQ(Hit(settings, 100, 19), "none");
    EXPECT_EQ(Hit(settings, 532, 100), "none");
    EXPECT_EQ(Hit(settings, 600, 300), "none");
    EXPECT_EQ(Hit(settings, 100, 540), "none");
}

TEST(HitTestSquare, UsesSmallerTilesAtThreeQuarterScale) {
    DisplaySettings settings;
    settings.boardScale = 75;
    EXPECT_EQ(Hit(settings, 20 + 7 * 48 + 47, 20 + 7 * 48 + 47), "h1");
    EXPECT_EQ(Hit(settings, 20 + 8 * 48, 30), "none");
}

class TileColumnTest : public ::testing::Test {
  protected:
    void SetUp() override {
        state.ResetGameState(ResetStartPosition);
        state.sides[White].kind = SideHuman;
        state.sides[Black].kind = SideHuman;
    }

    // The column of the square named, with the board seen from White's side.
    int Column(const std::string& square, const BoardViewFacts& facts) {
        const Word file = square[0] - 'a', row = square[1] - '1';
        return TileColumnOf(state, settings, facts, 7 - row, file, file, row);
    }

    GameState state;
    DisplaySettings settings;
    BoardViewFacts facts{0, false, White, false, 4, 0};
};

TEST_F(TileColumnTest, SquaresAlternateWithA1DarkAndBlackPiecesShifted) {
    EXPECT_EQ(Column("a1", facts), TileColumnDark);
    EXPECT_EQ(Column("h1", facts), TileColumnLight);
    EXPECT_EQ(Column("e4", facts), TileColumnLight);
    EXPECT_EQ(Column("a8", facts), TileColumnLight + BlackPieceColumnOffset);
}

TEST_F(TileColumnTest, LegalTargetOutranksTheLastMoveAndCheckOutranksBoth) {
    ASSERT_TRUE(PlayMove(state, "e2e4"));
    facts.selectedRow = 1;
    EXPECT_EQ(Column("e4", facts), TileColumnLastMove);
    EXPECT_EQ(Column("e2", facts), TileColumnLastMove);
    state.board[3][4].legalTarget = 1;
    EXPECT_EQ(Column("e4", facts), TileColumnLastMove) << "targets show only with a piece selected";
    facts.pieceSelected = true;
    EXPECT_EQ(Column("e4", facts), TileColumnTarget);
    facts.inCheck = true;
    facts.kingFile = 4;
    facts.kingRow = 3;
    EXPECT_EQ(Column("e4", facts), TileColumnAlert);
}

TEST_F(TileColumnTest, TargetsOfAComputerSideAreNotShown) {
    state.board[3][4].legalTarget = 1;
    facts.pieceSelected = true;
    state.sides[White].kind = SideComputer;
    EXPECT_EQ(Column("e4", facts), TileColumnLight);
}

TEST_F(TileColumnTest, SetUpModeShowsNeitherLastMoveNorCheck) {
    ASSERT_TRUE(PlayMove(state, "e2e4"));
    state.setupMode = 1;
    facts.selectedRow = 1;
    facts.inCheck = true;
    EXPECT_EQ(Column("e4", facts), TileColumnLight);
    EXPECT_EQ(Column("e1", facts), TileColumnDark);
}

TEST_F(TileColumnTest, MarksFollowTheirOrder) {
    state.board[1][4].mark = MarkFrom;
    state.board[2][4].mark = MarkRefused;
    state.board[3][4].mark = MarkTo;
    EXPECT_EQ(Column("e2", facts), TileColumnAlert);
    EXPECT_EQ(Column("e3", facts), TileColumnAlert);
    EXPECT_EQ(Column("e4", facts), TileColumnTarget);
    settings.showLegalMoves = 0;
    state.board[3][4].mark = MarkNone;
    state.board[3][4].legalTarget = 1;
    facts.pieceSelected = true;
    EXPECT_EQ(Column("e4", facts), TileColumnLight);
}

TEST(PanelLayout, ListAndClocksFollowTheScaleAndTheOrientation) {
    const ListRect full = ListRectForScale(100), small = ListRectForScale(75);
    EXPECT_EQ(full.left, 552);
    EXPECT_EQ(full.height, 256);
    EXPECT_EQ(small.left, 424);
    EXPECT_EQ(small.height, 128);
    EXPECT_EQ(small.width, full.width);
    EXPECT_EQ(ClockTop(White, 0, full), 436);
    EXPECT_EQ(ClockTop(Black, 0, full), 116);
    EXPECT_EQ(ClockTop(White, 0, small), 308);
    EXPECT_EQ(ClockTop(White, 1, full), 116);
    EXPECT_EQ(ClockTop(Black, 1, full), 436);
}

TEST(SelectionColours, LightInkOnGreyDarkensTheBackground) {
    const RowColours colours = SelectionColours(0x808080, 0xFFFFFF);
    EXPECT_EQ(colours.background, 0x606060u);
    EXPECT_EQ(colours.ink, 0xFFFFFFu);
}

TEST(SelectionColours, LightInkOnDarkBackgroundBrightensIt) {
    const RowColours colours = SelectionColours(0x102030, 0x80A0C0);
    EXPECT_EQ(colours.background, 0x6A7A8Au);
    EXPECT_EQ(colours.ink, 0xA0C8F0u);
}

TEST(SelectionColours, DarkInkOnLightBackgroundDarkensBoth) {
    const RowColours colours = SelectionColours(0xF0F0F0, 0x000040);
    EXPECT_EQ(colours.background, 0xC0C0C0u);
    EXPECT_EQ(colours.ink, 0x000038u);
}

TEST(NameRules, RefuseExactlyTheCharactersAFileNameCannotHold) {
    std::string refused;
    for (std::uint32_t c = 1; c < 256; ++c)
        if (IsRefusedInName(c)) refused += static_cast<char>(c);
    EXPECT_EQ(refused, "\"*/:<>?\\|");
    EXPECT_FALSE(IsRefusedInName(0x10000 + '?')) << "only the character itself counts";
}

TEST(NameRules, MissingNamesAreReportedBySide) {
    EXPECT_STREQ(MissingNameMessage("", "Bo"), "Please enter name (WHITE SIDE)");
    EXPECT_STREQ(MissingNameMessage("Ann", ""), "Please enter name (BLACK SIDE)");
    EXPECT_STREQ(MissingNameMessage("", ""), "Please enter name (WHITE AND BLACK SIDES)");
    EXPECT_EQ(MissingNameMessage("Ann", ComputerName), nullptr);
}

} // namespace
