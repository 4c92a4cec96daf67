// The think driver: the first-move table, the choice of the phase, the clock booked from the
// tick count, the move played through its marks, and the break by the user.
#include <gtest/gtest.h>

#include <cstdlib>
#include <set>

#include "double/host_double.h"
#include "engine/think_driver.h"
#include "records/settings.h"
#include "support/engine_setup.h"

namespace {

GameState& State() {
    static GameState state;
    return state;
}

void BothComputers(GameState& s, Word level) {
    s.sides[White].kind = s.sides[Black].kind = SideComputer;
    s.level = level;
}

TEST(ThinkDriver, FirstMoveIsOneOfTheSevenAtRandom) {
    GameState& s = State();
    std::set<std::string> seen;
    for (unsigned seed = 1; seed <= 200; ++seed) {
        s.ResetGameState(ResetStartPosition);
        BothComputers(s, 2);
        ResetHost();
        std::srand(seed);
        s.ThinkDriver();
        ASSERT_EQ(s.plyCount, 1);
        EXPECT_EQ(s.sideToMove, Black);
        EXPECT_EQ(s.thinking, 0);
        EXPECT_EQ(s.thinkPending, 1);
        EXPECT_TRUE(Host().titles.empty());
        EXPECT_EQ(Host().busyOn, 0);
        EXPECT_EQ(Host().beeps, 1);
        seen.insert(SquareName(s.history[0].fromFile, s.history[0].fromRow) +
                    SquareName(s.history[0].toFile, s.history[0].toRow));
    }
    EXPECT_EQ(seen, (std::set<std::string>{"d2d4", "e2e4", "b1c3", "g1f3", "b2b3", "g2g3", "c2c3"}));
}

TEST(ThinkDriver, PhaseFollowsWhatTheThinkerHasAgainstABareKing) {
    GameState& s = State();
    auto phase = [&s](const std::string& fen) {
        SetUpBoard(s, fen);
        return ChooseEnginePhase(s);
    };
    EXPECT_EQ(phase("4k3/8/8/8/8/8/PPP5/R3K3 w"), PhaseRookQueen);
    EXPECT_EQ(phase("4k3/8/8/8/8/8/8/3QK3 b"), PhaseNormal); // Black thinks and has nothing
    EXPECT_EQ(phase("4K3/8/8/8/8/8/8/3qk3 b"), PhaseRookQueen);
    EXPECT_EQ(phase("4k3/8/8/8/8/8/8/2B1KB2 w"), PhaseTwoBishops);
    EXPECT_EQ(phase("4k3/8/8/8/8/8/8/B1B1K3 w"), PhaseTwoBishops); // both on dark squares
    EXPECT_EQ(phase("4k3/8/8/8/8/8/P7/2B1KN2 w"), PhaseBishopKnightDark);
    EXPECT_EQ(phase("4k3/8/8/8/8/8/8/3BKN2 w"), PhaseBishopKnightLight);
    EXPECT_EQ(phase("4k3/8/8/8/8/8/8/1BB1KB2 w"), PhaseNormal); // three bishops, no knight
    EXPECT_EQ(phase("4k3/8/8/8/8/8/8/1N2KN2 w"), PhaseNormal);
    EXPECT_EQ(phase("4k3/8/8/8/8/8/PP6/4K3 w"), PhaseNormal);
    EXPECT_EQ(phase("4k3/7p/8/8/8/8/8/R3K3 w"), PhaseNormal); // the opponent keeps a pawn
}

TEST(ThinkDriver, PlaysTheChosenMoveAndBooksTheClockFromTheTicks) {
    GameState& s = State();
    s.ResetGameState(ResetStartPosition);
    PlayMove(s, "e2e4");
    BothComputers(s, 1);
    s.sides[Black].clockSeconds = 5;
    ResetHost();
    Host().tick = 10000;
    Host().tickStep = 700;
    s.thinkPending = 1;
    s.ThinkDriver();
    EXPECT_EQ(s.plyCount, 2);
    EXPECT_EQ(s.sideToMove, White);
    EXPECT_EQ(SquareName(s.history[1].fromFile, s.history[1].fromRow), "e7");
    EXPECT_EQ(s.board[4][4].piece, Pawn);
    EXPECT_EQ(s.thinking, 0);
    EXPECT_EQ(s.thinkPending, 1);
    EXPECT_EQ(s.gameDirty, 1);
    // The last reading of the tick count is the one before its last step.
    const std::uint32_t last = Host().tick - Host().tickStep;
    EXPECT_EQ(s.sides[Black].clockSeconds, static_cast<Word>(5 + (last - 10000) / 1000));
    EXPECT_EQ(s.sides[White].clockSeconds, 0);
    EXPECT_EQ(Host().busyOn, 1);
    EXPECT_EQ(Host().busyOff, 1);
    EXPECT_EQ(Host().beeps, 1);
    EXPECT_EQ(Host().drains, 1);
    EXPECT_EQ(Host().titles.back(), "Velok-3");
    for (const auto& cells : s.board)
        for (const BoardCell& cell : cells)
            EXPECT_EQ(cell.mark, MarkNone);
}

TEST(ThinkDriver, BreakBeforeTheFirstPassPlaysNothingButBooksTheClock) {
    GameState& s = State();
    s.ResetGameState(ResetStartPosition);
    PlayMove(s, "d2d4");
    BothComputers(s, 2);
    ResetHost();
    Host().tickStep = 1500;
    Host().escapeReadings = {true};
    Host().yesNoAnswers = {1};
    s.ThinkDriver();
    EXPECT_EQ(Host().questions, std::vector<std::string>{"Break AI move. Are you sure?"});
    EXPECT_EQ(s.plyCount, 1);
    EXPECT_EQ(s.sideToMove, Black);
    EXPECT_EQ(s.thinking, 0);
    EXPECT_EQ(s.thinkPending, 0);
    EXPECT_TRUE(Host().messages.empty());
    EXPECT_EQ(s.sides[Black].clockSeconds, 3); // readings at 0, 1500 (poll), 3000 (end)
    EXPECT_EQ(Host().titles, (std::vector<std::string>{"Velok-3 [0%]", "Velok-3"}));
}

TEST(ThinkDriver, AnsweringNoLetsTheThinkGoOn) {
    GameState& s = State();
    s.ResetGameState(ResetStartPosition);
    PlayMove(s, "d2d4");
    BothComputers(s, 1);
    ResetHost();
    Host().escapeReadings = {true, true, false};
    s.ThinkDriver();
    EXPECT_EQ(Host().questions.size(), 2u);
    EXPECT_EQ(s.plyCount, 2);
}

TEST(ThinkDriver, OneLegalMoveIsPolledOnceAndPlayed) {
    GameState& s = State();
    SetUpBoard(s, "7k/5K2/6P1/3p4/3PN3/8/8/8 b - -");
    BothComputers(s, 2);
    const Word plies = s.plyCount;
    ASSERT_GT(plies, 0);
    ResetHost();
    s.ThinkDriver();
    EXPECT_EQ(Host().pumps, 1);
    EXPECT_EQ(Host().titles, (std::vector<std::string>{"Velok-3 [0%]", "Velok-3"}));
    EXPECT_EQ(s.plyCount, plies + 1);
    EXPECT_EQ(s.board[3][4].piece, Pawn);
    EXPECT_EQ(s.board[3][4].colour, Black);
}

TEST(ThinkDriver, ProgressRunsFromZeroAndNeverReachesAHundred) {
    GameState& s = State();
    s.ResetGameState(ResetStartPosition);
    PlayMove(s, "e2e4");
    BothComputers(s, 1);
    ResetHost();
    s.ThinkDriver();
    const auto& titles = Host().titles;
    ASSERT_EQ(titles.size(), 21u); // one per root move, then the plain title
    EXPECT_EQ(titles.front(), "Velok-3 [0%]");
    int previous = -1;
    for (std::size_t i = 0; i + 1 < titles.size(); ++i) {
        const int percent = std::atoi(titles[i].c_str() + std::string("Velok-3 [").size());
        EXPECT_GT(percent, previous);
        EXPECT_LT(percent, 100);
        previous = percent;
    }
    EXPECT_EQ(Host().clockRepaints, std::vector<std::int32_t>(20, Black));
}

TEST(ThinkDriver, WithoutTheProgressOptionTheTitleIsOnlyRestored) {
    GameState& s = State();
    s.ResetGameState(ResetStartPosition);
    PlayMove(s, "e2e4");
    BothComputers(s, 1);
    ResetHost();
    displaySettings.showAiProgress = 0;
    displaySettings.beepAfterMove = 0;
    s.ThinkDriver();
    displaySettings.showAiProgress = 1;
    displaySettings.beepAfterMove = 1;
    EXPECT_EQ(Host().titles, std::vector<std::string>{"Velok-3"});
    EXPECT_EQ(Host().beeps, 0);
    EXPECT_EQ(s.plyCount, 2);
}

TEST(ThinkDriver, PromotesToAQueenWithoutAsking) {
    GameState& s = State();
    SetUpBoard(s, "8/P6k/8/8/8/8/8/K7 w - -");
    BothComputers(s, 1);
    s.sides[White].kind = SideHuman; // even a human side's pawn: the driver never asks
    ResetHost();
    s.ThinkDriver();
    EXPECT_TRUE(Host().promotionAsks.empty());
    EXPECT_EQ(s.board[7][0].piece, Queen);
}

} // namespace
