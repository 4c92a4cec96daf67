// The root's repetition rule: a thinker that stands well turns away from a move that repeats a
// position for the third time, one that stands badly plays it, and a retry that finds only bad
// moves falls back on the first choice. The histories are built around the engine's own choice.
#include <gtest/gtest.h>

#include <vector>

#include "double/host_double.h"
#include "engine/search.h"
#include "support/engine_setup.h"

namespace {

GameState& State() {
    static GameState state;
    return state;
}

std::string Reversed(const std::string& move) {
    return move.substr(2, 2) + move.substr(0, 2);
}

// First quiet move, in generated order, of a piece other than a pawn of `colour` that starts on
// `from` (any square when empty) and is not `avoid`.
std::string QuietMove(GameState& s, Word colour, const std::string& from, const std::string& avoid) {
    MoveListEntry moves[MoveBufferCapacity];
    s.GenerateLegalMoves(moves, colour);
    for (Word i = 0; i < s.moveCount; ++i) {
        const MoveListEntry& m = moves[i];
        const std::string name = MoveName(m);
        if (s.board[m.fromRow][m.fromFile].piece == Pawn || s.board[m.toRow][m.toFile].piece != PieceNone)
            continue;
        if ((from.empty() || name.substr(0, 2) == from) && name != avoid) return name;
    }
    return "";
}

// Sets up `fen` (the start position when empty) and `opening`, and plays eight plies after which the position
// that White's choice `first` leads to has stood twice, reached by two different routes, and no position
// three times: first, a black shuffle, on to a third square, back, back to that square, the shuffle again,
// White back home, Black back home. Returns White's choice in the bare position.
std::string BuildTwiceSeen(GameState& s, const std::string& fen, Word level,
                           const std::vector<std::string>& opening = {}) {
    auto setUp = [&]() {
        if (fen.empty())
            s.ResetGameState(ResetStartPosition);
        else
            SetUpBoard(s, fen);
        for (const std::string& move : opening)
            EXPECT_TRUE(PlayMove(s, move)) << move;
    };
    setUp();
    ResetHost();
    SearchRootScore(s, level);
    const std::string first = MoveName(s.bestMove);
    PlayMove(s, first);
    const std::string shuffle = QuietMove(s, Black, "", "");
    PlayMove(s, shuffle);
    const std::string onward = QuietMove(s, White, first.substr(2, 2), Reversed(first));
    setUp();
    for (const std::string& move : {first, shuffle, onward, Reversed(shuffle), Reversed(onward), shuffle,
                                    Reversed(first), Reversed(shuffle)})
        EXPECT_TRUE(PlayMove(s, move)) << move;
    return first;
}

// Whether `move` repeats a position a third time, at once or after some reply.
bool Repeats(GameState& s, const MoveListEntry& move) {
    MoveRecord* record = &s.history[s.plyCount];
    s.MakeMove(record, move.fromFile, move.fromRow, move.toFile, move.toRow, Silent, Queen);
    ++s.plyCount;
    bool repeats = s.IsThreefoldRepetition() != 0;
    MoveListEntry replies[MoveBufferCapacity];
    s.GenerateLegalMoves(replies, Opposite(s.sideToMove));
    for (Word i = 0; i < s.moveCount && !repeats; ++i) {
        MoveRecord* reply = &s.history[s.plyCount];
        s.MakeMove(reply, replies[i].fromFile, replies[i].fromRow, replies[i].toFile, replies[i].toRow,
                   Silent, Queen);
        ++s.plyCount;
        repeats = s.IsThreefoldRepetition() != 0;
        --s.plyCount;
        s.TakeBackMove(reply);
    }
    --s.plyCount;
    s.TakeBackMove(record);
    return repeats;
}

TEST(RepetitionRule, AThinkerThatStandsWellTurnsAway) {
    GameState& s = State();
    for (Word level : {1, 2}) {
        const std::string first = BuildTwiceSeen(s, "6k1/5pp1/7p/8/8/7P/5PP1/2N3K1 w", level);
        ResetHost();
        const Word score = SearchRootScore(s, level);
        EXPECT_LT(score, 500);
        EXPECT_EQ(MoveName(s.earlierBestMove), first);
        EXPECT_TRUE(Repeats(s, s.earlierBestMove));
        EXPECT_NE(MoveName(s.bestMove), first);
        EXPECT_FALSE(Repeats(s, s.bestMove));
        EXPECT_TRUE(s.progressText.Equals(" [alt.searching] "));
        // The second pass polls each move left once behind the text, the struck move keeping
        // its place in the percentages.
        MoveListEntry moves[MoveBufferCapacity];
        s.GenerateLegalMoves(moves, White);
        const auto& titles = Host().titles;
        ASSERT_EQ(titles.size(), static_cast<std::size_t>(2 * s.moveCount - 1));
        EXPECT_EQ(titles.front(), "Velok-3 [0%]");
        for (std::size_t i = static_cast<std::size_t>(s.moveCount); i < titles.size(); ++i)
            EXPECT_EQ(titles[i].rfind("Velok-3 [alt.searching]  [", 0), 0u) << titles[i];
        EXPECT_EQ(titles.back(), "Velok-3 [alt.searching]  [" +
                                     std::to_string(100 * (s.moveCount - 1) / s.moveCount) + "%]");
    }
}

TEST(RepetitionRule, AThinkerThatStandsBadlyRepeats) {
    GameState& s = State();
    const std::string first = BuildTwiceSeen(s, "2n3k1/5pp1/7p/8/8/7P/5PP1/6K1 w", 1);
    MoveListEntry moves[MoveBufferCapacity];
    s.GenerateLegalMoves(moves, White);
    const Word n = s.moveCount;
    ResetHost();
    const Word score = SearchRootScore(s, 1);
    EXPECT_GE(score, 500);
    EXPECT_EQ(MoveName(s.bestMove), first);
    EXPECT_TRUE(Repeats(s, s.bestMove));
    EXPECT_EQ(s.progressText.Length(), 0);
    EXPECT_EQ(Host().pumps, n); // one pass
}

TEST(RepetitionRule, ARetryThatFindsOnlyBadMovesFallsBackOnTheFirstChoice) {
    GameState& s = State();
    // The knight on h4 is attacked by the g5 pawn: keeping it means going back to f3.
    const std::vector<std::string> opening = {"c2c3", "d7d5", "d2d4", "c8f5", "b1d2", "c7c6", "g1f3",
                                              "f7f6", "d1b3", "b7b6", "g2g3", "b8d7", "f1g2", "f5g6",
                                              "e1g1", "e7e6", "f3h4", "g6f7", "e2e4", "g7g5"};
    const std::string first = BuildTwiceSeen(s, "", 1, opening);
    ResetHost();
    const Word score = SearchRootScore(s, 1);
    // The first pass chose `first` below the limit; the retry's best was 500 or more.
    EXPECT_GE(score, 500);
    EXPECT_EQ(MoveName(s.bestMove), first);
    EXPECT_EQ(MoveName(s.earlierBestMove), first);
    EXPECT_TRUE(Repeats(s, s.bestMove));
    EXPECT_TRUE(s.progressText.Equals(" [alt.searching] "));
}

TEST(RepetitionRule, AMoveWhoseReplyWouldRepeatIsTurnedAwayFrom) {
    GameState& s = State();
    const std::string fen = "6k1/5pp1/7p/8/8/7P/5PP1/2N3K1 w";
    SetUpBoard(s, fen);
    ResetHost();
    SearchRootScore(s, 1);
    const std::string first = MoveName(s.bestMove);
    // After `first` the position has stood once, after `first` and Kh8 twice (the second time
    // reached by White's king coming round), so only the reply would repeat. Black's king
    // walks round once too, to hand the move back to White.
    SetUpBoard(s, fen);
    for (const std::string& move : {first, std::string("g8h8"), std::string("g1h1"), std::string("h8g8"),
                                    std::string("h1h2"), std::string("g8h8"), std::string("h2g1"),
                                    std::string("h8h7"), Reversed(first), std::string("h7g8")})
        ASSERT_TRUE(PlayMove(s, move)) << move;
    ResetHost();
    SearchRootScore(s, 1);
    EXPECT_EQ(MoveName(s.earlierBestMove), first);
    MoveRecord* record = &s.history[s.plyCount];
    s.MakeMove(record, s.earlierBestMove.fromFile, s.earlierBestMove.fromRow, s.earlierBestMove.toFile,
               s.earlierBestMove.toRow, Silent, Queen);
    ++s.plyCount;
    EXPECT_EQ(s.IsThreefoldRepetition(), 0);
    --s.plyCount;
    s.TakeBackMove(record);
    EXPECT_NE(MoveName(s.bestMove), first);
    EXPECT_TRUE(s.progressText.Equals(" [alt.searching] "));
}

TEST(RepetitionRule, ABreakAfterAPassPlaysThatPasssMove) {
    GameState& s = State();
    const std::string first = BuildTwiceSeen(s, "6k1/5pp1/7p/8/8/7P/5PP1/2N3K1 w", 1);
    MoveListEntry moves[MoveBufferCapacity];
    s.GenerateLegalMoves(moves, White);
    s.sides[White].kind = s.sides[Black].kind = SideComputer;
    s.level = 1;
    const Word plies = s.plyCount;
    ResetHost();
    Host().escapeReadings = std::deque<bool>(static_cast<std::size_t>(s.moveCount), false);
    Host().escapeReadings.push_back(true);
    Host().yesNoAnswers = {1};
    s.ThinkDriver();
    ASSERT_EQ(s.plyCount, plies + 1);
    const MoveRecord& played = s.history[plies];
    EXPECT_EQ(SquareName(played.fromFile, played.fromRow) + SquareName(played.toFile, played.toRow), first);
    EXPECT_EQ(Host().questions.size(), 1u);
}

} // namespace
