// The search and the think driver: the shortcut score after a move against a whole Evaluate, whole
// computer games against a replay of their history, a break by the user that books the clock, and
// the turn away from a third repetition.
#include <gtest/gtest.h>

#include <sstream>

#include "double/host_double.h"
#include "engine/search.h"
#include "engine/think_driver.h"
#include "support/board_setup.h"

namespace {

GameState state;

TEST(Evaluate, TheSearchsShortcutAfterAMoveMatchesAWholeEvaluation) {
    GameState& s = state;
    for (const char* fen : {"r3k2r/p1ppqpb1/bn2pnp1/3PN3/1p2P3/2N2Q1p/PPPBBPPP/R3K2R w KQkq -",
                            "r3k2r/p1ppqpb1/bn2pnp1/3PN3/1p2P3/2N2Q1p/PPPBBPPP/R3K2R b KQkq -",
                            "8/2p5/3p4/KP5r/1R3p1k/8/4P1P1/8 w - -", "4k3/1P6/8/3pP3/8/8/8/4K2R w K d6"}) {
        SetUpBoard(s, fen);
        s.otherSide = Opposite(s.sideToMove);
        s.PreparePieceSquare();
        for (Word colour : {White, Black}) {
            MoveListEntry moves[MoveBufferCapacity];
            s.GenerateLegalMoves(moves, colour);
            const ScoredPosition before = ScorePosition(s);
            for (Word i = 0; i < s.moveCount; ++i) {
                MoveRecord* record = &s.history[s.plyCount];
                s.MakeMove(record, moves[i].fromFile, moves[i].fromRow, moves[i].toFile, moves[i].toRow,
                           Silent, Queen);
                EXPECT_EQ(EvaluateAfterMove(s, *record, before), s.Evaluate())
                    << fen << " " << MoveName(moves[i]);
                s.TakeBackMove(record);
            }
        }
    }
}

// Two computer sides play on from `fen` after `opening` through ThinkDriver until no think is
// pending; after every think the board is what a legal replay of the recorded moves gives, and the
// end is told once.
void PlayOut(const std::string& fen, const std::string& opening, Word level) {
    GameState& s = state;
    static GameState replay;
    SetUpBoard(s, fen);
    const Word setUpPlies = s.plyCount;
    ASSERT_TRUE(PlayMove(s, opening));
    s.sides[White].kind = s.sides[Black].kind = SideComputer;
    s.level = level;
    s.gameActive = s.thinkPending = 1;
    ResetHost();
    while (s.thinkPending && s.plyCount <= MaxGamePlies) {
        const Word plies = s.plyCount;
        s.ThinkDriver();
        ASSERT_EQ(s.plyCount, plies + 1);
        SetUpBoard(replay, fen);
        for (Word i = setUpPlies; i < s.plyCount; ++i) {
            const MoveRecord& r = s.history[i];
            ASSERT_TRUE(PlayMove(replay, SquareName(r.fromFile, r.fromRow) + SquareName(r.toFile, r.toRow)))
                << "ply " << i;
        }
        ASSERT_EQ(BoardLetters(s.board), BoardLetters(replay.board));
        ASSERT_EQ(s.sideToMove, replay.sideToMove);
    }
    EXPECT_NE(s.CheckGameEnd(s.sideToMove, NoMessage), GameGoesOn);
    // Each think: a busy cursor on and off, a beep after its move and the queued commands dropped.
    const int thinks = s.plyCount - setUpPlies - 1;
    EXPECT_TRUE(Host().busyOn == thinks && Host().busyOff == thinks && Host().beeps == thinks &&
                Host().drains == thinks);
    ASSERT_EQ(Host().messages.size(), 1u);
    EXPECT_EQ(Host().messages[0].rfind("Game over", 0), 0u) << Host().messages[0];
}

TEST(ComputerGames, PlayToTheirEndAsTheirHistoryReplays) {
    PlayOut("8/8/8/4k3/8/8/8/R3K3 b", "e5d5", 2);
    PlayOut("8/8/3k4/8/8/8/8/3QK3 b", "d6e5", 1);
    PlayOut("8/5pk1/6p1/8/8/6P1/5PK1/8 w", "g2h3", 1);
    PlayOut("r1bq1rk1/2p1bppp/p1np1n2/1p2p3/4P3/1BP2N1P/PP1P1PP1/RNBQR1K1 b", "c8b7", 1);
}

TEST(ThinkDriver, BreakBeforeTheFirstPassPlaysNothingButBooksTheClock) {
    GameState& s = state;
    ASSERT_TRUE(PlayLine(s, "d2d4"));
    s.sides[White].kind = s.sides[Black].kind = SideComputer;
    s.level = 2;
    ResetHost();
    Host().tickStep = 1500;
    Host().escapeReadings = {true};
    Host().yesNoAnswers = {1};
    s.ThinkDriver();
    EXPECT_EQ(Host().questions, std::vector<std::string>{"Break AI move. Are you sure?"});
    EXPECT_TRUE(s.plyCount == 1 && s.sideToMove == Black && s.thinking == 0 && s.thinkPending == 0);
    EXPECT_EQ(s.sides[Black].clockSeconds, 3); // readings at 0, 1500 (poll), 3000 (end)
    EXPECT_EQ(Host().titles, (std::vector<std::string>{"Velok-3 [0%]", "Velok-3"}));
}

// Eight plies that bring the first choice's placement round to a third time: a thinker that stands
// well turns away from it on a second pass; one that stands badly takes the draw.
TEST(RepetitionRule, OnlyAThinkerThatStandsWellTurnsAway) {
    const struct {
        const char *fen, *line, *first;
        bool standsWell;
    } cases[] = {
        {"6k1/5pp1/7p/8/8/7P/5PP1/2N3K1 w", "c1e2 g8h8 e2d4 h8g8 d4e2 g8h8 e2c1 h8g8", "c1e2", true},
        {"2n3k1/5pp1/7p/8/8/7P/5PP1/6K1 w", "g1h1 g8h8 h1h2 h8g8 h2h1 g8h8 h1g1 h8g8", "g1h1", false}};
    for (const auto& c : cases) {
        SetUpBoard(state, c.fen);
        std::istringstream line(c.line);
        for (std::string move; line >> move;)
            ASSERT_TRUE(PlayMove(state, move)) << move;
        ResetHost();
        state.level = state.thinking = 1;
        state.ChooseComputerMove();
        EXPECT_EQ(MoveName(state.earlierBestMove), c.first);
        EXPECT_EQ(MoveName(state.bestMove) != c.first, c.standsWell) << c.fen;
        EXPECT_EQ(Str(state.progressText), c.standsWell ? AltSearchingText : "") << c.fen;
    }
}

} // namespace
