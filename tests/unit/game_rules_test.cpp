// The ends of a game and the turns around them, played the way the click handling plays them: each
// end told once and the computer stopped, and the fast repetition test against a plain comparison.
#include <gtest/gtest.h>

#include <algorithm>

#include "double/host_double.h"
#include "support/random_game.h"

namespace {

const char* const Mated[2] = {"Game over.\nWhite wins by checkmate.", "Game over.\nBlack wins by checkmate."};
const char* const Stalemate = "Game over.\nStalemate.";
const char* const NoMaterial =
    "Game over.\nNeither player has sufficient material to force checkmate.\nThis game is a draw.";

GameState state;

TEST(CheckGameEnd, MateStalemateAndMaterial) {
    const struct {
        const char* fen;
        Word end;
        const char* message;
    } cases[] = {
        {"rnb1kbnr/pppp1ppp/8/4p3/6Pq/5P2/PPPPP2P/RNBQKBNR w", GameCheckmate, Mated[Black]},
        {"7k/5Q2/6K1/8/8/8/8/8 b", GameStalemate, Stalemate},
        {"k7/8/1K6/4B3/8/8/8/8 b", GameStalemate, Stalemate}, // stalemate before material
        {"4k3/8/8/8/8/8/8/4K3 w", GameDrawn, NoMaterial},
        {"4k3/8/8/8/8/8/8/2B1K3 b", GameDrawn, NoMaterial},
        {"4k3/4b3/8/8/8/8/8/1N2K3 w", GameDrawn, NoMaterial},
        {"4k3/8/8/8/8/8/8/1N2K1N1 w", GameGoesOn, nullptr},
        {"4k3/8/8/8/8/8/8/R3K3 b", GameGoesOn, nullptr},
        {"4k3/8/8/4p3/4P3/8/8/4K3 w", GameGoesOn, nullptr}, // a pawn, even one that cannot move
    };
    // Asked silently it gives the same answer as aloud, and only aloud shows the message.
    for (const auto& c : cases) {
        SetUpBoard(state, c.fen);
        ResetHost();
        EXPECT_EQ(state.CheckGameEnd(state.sideToMove, NoMessage), c.end) << c.fen;
        EXPECT_EQ(state.CheckGameEnd(state.sideToMove, ShowMessage), c.end) << c.fen;
        EXPECT_EQ(Host().messages,
                  c.message ? std::vector<std::string>{c.message} : std::vector<std::string>{});
    }
}

// Clicks `moves` in a game between people, with the side to move a computer before the last one.
void ClickGame(GameState& s, const std::vector<std::string>& moves) {
    ResetHost();
    s.ResetGameState(ResetStartPosition);
    s.gameActive = 1;
    ASSERT_EQ(ClickMoves(s, std::vector<std::string>(moves.begin(), moves.end() - 1)), moves.size() - 1);
    EXPECT_TRUE(Host().messages.empty());
    EXPECT_EQ(s.gameDirty, 1);
    s.sides[Opposite(s.sideToMove)].kind = SideComputer;
    ASSERT_TRUE(ClickMove(s, moves.back()));
    EXPECT_EQ(ClickListRows().size(), moves.size() + 1);
    // The computer is asked to think exactly when no end was told.
    EXPECT_EQ(s.thinkPending, Host().messages.empty() ? 1 : 0);
}

TEST(Turns, EachEndIsToldOnceAndStopsTheComputer) {
    GameState& s = state;
    ClickGame(s, {"e2e4", "e7e5", "f1c4", "b8c6", "d1h5", "g8f6", "h5f7"});
    EXPECT_EQ(Host().messages, std::vector<std::string>{Mated[White]});
    EXPECT_EQ(ClickListRows().back(), " 4. Qh5xf7#");

    ClickGame(s, {"g1f3", "g8f6", "f3g1", "f6g8", "g1f3", "g8f6", "f3g1", "f6g8"});
    EXPECT_EQ(Host().messages, std::vector<std::string>{"Game over.\nThis position has been repeated three "
                                                        "times.\nThis game is a draw."});

    // The hundredth quiet ply after a capture.
    std::vector<std::string> moves = {"e2e4", "d7d5", "e4d5"};
    ASSERT_TRUE(PlayLine(s, "e2e4 d7d5 e4d5"));
    const auto quiet = PlayRandomMoves(s, 100, 21, RandomPolicy::QuietAvoidEnds);
    moves.insert(moves.end(), quiet.begin(), quiet.end());
    ClickGame(s, moves);
    EXPECT_EQ(Host().messages, std::vector<std::string>{"Game over.\nNo pawns moved or pieces captured in "
                                                        "last fifty moves.\nThis game is a draw."});

    // The longest game, after which a further pair of marks finds no record to fill.
    s.ResetGameState(ResetStartPosition);
    ClickGame(s, PlayRandomMoves(s, MaxGamePlies, 3, RandomPolicy::AvoidEnds));
    EXPECT_EQ(Host().messages, std::vector<std::string>{"Game over.\nThe game has reached 200 moves, the "
                                                        "longest a game can be.\nThis game is a draw."});
    MoveListEntry replies[MoveBufferCapacity];
    s.GenerateLegalMoves(replies, s.sideToMove);
    ClickMove(s, MoveName(replies[0]));
    EXPECT_EQ(s.plyCount, MaxGamePlies);

    ClickGame(s, {"e2e4", "e7e5"}); // the game goes on
}

// The repetition rule written out plainly: every placement of the game against every earlier one.
Word PairwiseRepetition(const std::vector<std::string>& placements) {
    for (std::size_t i = 0; i < placements.size(); ++i)
        if (std::count(placements.begin(), placements.begin() + i, placements[i]) >= 2) return 1;
    return 0;
}

TEST(Repetition, AgreesWithThePairwiseComparisonOnRandomGames) {
    GameState& s = state;
    int repeated = 0, notRepeated = 0;
    for (std::uint32_t seed = 1; seed <= 40; ++seed) {
        s.ResetGameState(ResetStartPosition);
        std::vector<std::string> placements{BoardLetters(s.board)};
        for (int ply = 0; ply < 90; ++ply) {
            if (PlayRandomMoves(s, 1, seed * 1000 + ply, RandomPolicy::KnightShuffles).empty()) break;
            placements.push_back(BoardLetters(s.board));
            const Word fast = s.IsThreefoldRepetition();
            ASSERT_EQ(fast, PairwiseRepetition(placements)) << "seed " << seed << " ply " << s.plyCount;
            ASSERT_EQ(BoardLetters(s.board), placements.back());
            ++(fast ? repeated : notRepeated);
        }
    }
    // Both answers must have been put to the test.
    EXPECT_GT(repeated, 100);
    EXPECT_GT(notRepeated, 100);
}

} // namespace
