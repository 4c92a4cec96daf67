// The search and the think driver: the shortcut score after a move against a whole Evaluate, whole
// computer games against a replay of their history, the root's repetition rule, the clock and the
// break by the user.
#include <gtest/gtest.h>

#include "double/host_double.h"
#include "engine/search.h"
#include "engine/think_driver.h"
#include "support/board_setup.h"

namespace {

GameState& State() {
    static GameState state;
    return state;
}

TEST(Evaluate, TheSearchsShortcutAfterAMoveMatchesAWholeEvaluation) {
    GameState& s = State();
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
    GameState& s = State();
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
    ASSERT_EQ(Host().messages.size(), 1u);
    EXPECT_EQ(Host().messages[0].rfind("Game over", 0), 0u) << Host().messages[0];
}

TEST(ComputerGames, PlayToTheirEndAsTheirHistoryReplays) {
    PlayOut("8/8/8/4k3/8/8/8/R3K3 b", "e5d5", 2);
    PlayOut("8/8/3k4/8/8/8/8/3QK3 b", "d6e5", 1);
    PlayOut("8/5pk1/6p1/8/8/6P1/5PK1/8 w", "g2h3", 1);
    PlayOut("r1bq1rk1/2p1bppp/p1np1n2/1p2p3/4P3/1BP2N1P/PP1P1PP1/RNBQR1K1 b", "c8b7", 1);
}

// First quiet move, in generated order, of a piece other than a pawn of `colour` that starts on
// `from` (any square when empty) and is not `avoid`.
std::string QuietMove(GameState& s, Word colour, const std::string& from, const std::string& avoid) {
    MoveListEntry moves[MoveBufferCapacity];
    s.GenerateLegalMoves(moves, colour);
    for (Word i = 0; i < s.moveCount; ++i) {
        const MoveListEntry& m = moves[i];
        const std::string name = MoveName(m);
        if (s.board[m.fromRow][m.fromFile].piece != Pawn && s.board[m.toRow][m.toFile].piece == PieceNone &&
            (from.empty() || name.substr(0, 2) == from) && name != avoid)
            return name;
    }
    return "";
}

// The first pass's choice of the computer for the side to move after `fen` and `line`.
std::string Choice(GameState& s, const std::string& fen, const std::vector<std::string>& line) {
    SetUpBoard(s, fen);
    for (const std::string& move : line)
        EXPECT_TRUE(PlayMove(s, move)) << move;
    ResetHost();
    s.level = s.thinking = 1;
    s.ChooseComputerMove();
    return MoveName(s.earlierBestMove);
}

// Eight plies from `fen` after which White's `first` would make the placement it leads to stand
// for the third time, reached by two routes: `first`, a black shuffle, on to a third square, back,
// back to that square, the shuffle again, and both home.
std::vector<std::string> RepeatTwice(GameState& s, const std::string& fen, const std::string& first) {
    auto back = [](const std::string& m) { return m.substr(2) + m.substr(0, 2); };
    SetUpBoard(s, fen);
    PlayMove(s, first);
    const std::string shuffle = QuietMove(s, Black, "", "");
    PlayMove(s, shuffle);
    const std::string onward = QuietMove(s, White, first.substr(2), back(first));
    return {first, shuffle, onward, back(shuffle), back(onward), shuffle, back(first), back(shuffle)};
}

TEST(RepetitionRule, OnlyAThinkerThatStandsWellTurnsAway) {
    GameState& s = State();
    for (const bool standsWell : {true, false}) {
        const std::string fen =
            standsWell ? "6k1/5pp1/7p/8/8/7P/5PP1/2N3K1 w" : "2n3k1/5pp1/7p/8/8/7P/5PP1/6K1 w";
        // The history itself may change the choice: repeat the one made after it.
        std::string first = Choice(s, fen, {});
        for (int tries = 0; tries < 3 && Choice(s, fen, RepeatTwice(s, fen, first)) != first; ++tries)
            first = MoveName(s.earlierBestMove);
        EXPECT_EQ(MoveName(s.earlierBestMove), first);
        EXPECT_EQ(MoveName(s.bestMove) != first, standsWell);
        EXPECT_EQ(s.progressText.Equals(AltSearchingText), standsWell);
    }
}

// Both sides the computer's, with `line` played from the start position.
GameState& Computers(const std::string& line, Word level) {
    GameState& s = State();
    EXPECT_TRUE(PlayLine(s, line));
    s.sides[White].kind = s.sides[Black].kind = SideComputer;
    s.level = level;
    ResetHost();
    return s;
}

TEST(ThinkDriver, PlaysTheChosenMoveAndBooksTheClockFromTheTicks) {
    GameState& s = Computers("e2e4", 1);
    s.sides[Black].clockSeconds = 5;
    Host().tick = 10000;
    Host().tickStep = 700;
    s.thinkPending = 1;
    s.ThinkDriver();
    EXPECT_EQ(s.plyCount, 2);
    EXPECT_TRUE(s.sideToMove == White && s.thinking == 0 && s.thinkPending == 1 && s.gameDirty == 1);
    // The last reading of the tick count is the one before its last step.
    EXPECT_EQ(s.sides[Black].clockSeconds,
              static_cast<Word>(5 + (Host().tick - Host().tickStep - 10000) / 1000));
    EXPECT_EQ(s.sides[White].clockSeconds, 0);
    EXPECT_TRUE(Host().busyOn == 1 && Host().busyOff == 1 && Host().beeps == 1 && Host().drains == 1);
}

TEST(ThinkDriver, BreakBeforeTheFirstPassPlaysNothingButBooksTheClock) {
    GameState& s = Computers("d2d4", 2);
    Host().tickStep = 1500;
    Host().escapeReadings = {true};
    Host().yesNoAnswers = {1};
    s.ThinkDriver();
    EXPECT_EQ(Host().questions, std::vector<std::string>{"Break AI move. Are you sure?"});
    EXPECT_TRUE(s.plyCount == 1 && s.sideToMove == Black && s.thinking == 0 && s.thinkPending == 0);
    EXPECT_EQ(s.sides[Black].clockSeconds, 3); // readings at 0, 1500 (poll), 3000 (end)
    EXPECT_EQ(Host().titles, (std::vector<std::string>{"Velok-3 [0%]", "Velok-3"}));
}

} // namespace
