// The moves list and walking through it: the row of each kind of move, and every row of random
// games against a replay ending there.
#include <gtest/gtest.h>

#include "core/navigation.h"
#include "core/replay.h"
#include "double/host_double.h"
#include "support/random_game.h"

namespace {

using Rows = std::vector<std::string>;
const std::string Blanks(11, ' ');

GameState game, workspace, fresh;

// Clicks `moves` in a game from `fen` (the start position when empty) between two people.
GameState& Clicked(const std::string& fen, const Rows& moves, Word promotion = Queen) {
    ResetHost();
    Host().promotionAnswer = promotion;
    GameState& s = game;
    if (fen.empty()) {
        s.ResetGameState(ResetStartPosition);
        s.gameActive = 1;
    } else {
        SetUpGame(s, fen);
    }
    EXPECT_EQ(ClickMoves(s, moves), moves.size());
    return s;
}

TEST(MovesList, RowsNameEachKindOfMove) {
    Clicked("",
            {"e2e4", "d7d5", "e4d5", "c7c5", "d5c6", "g8f6", "c6b7", "e7e6", "b7a8", "f8e7", "g1f3", "e8g8",
             "a8c7", "d8d7", "f1b5", "d7d2"},
            Knight);
    EXPECT_EQ(ClickListRows(), (Rows{" 0.", " 1. e2-e4", Blanks + "d7-d5", " 2. e4xd5", Blanks + "c7-c5",
                                     " 3. d5xc6", Blanks + "Ng8-f6", " 4. c6xb7", Blanks + "e7-e6",
                                     " 5. b7xa8=N", Blanks + "Bf8-e7", " 6. Ng1-f3", Blanks + "0-0",
                                     " 7. Na8-c7", Blanks + "Qd8-d7", " 8. Bf1-b5", Blanks + "Qd7xd2+"}));
    EXPECT_EQ(Host().promotionAsks, std::vector<std::int32_t>{White});
    Clicked("4k3/4p3/8/8/8/8/4P3/R3K3 b", {"e7e5", "e2e4", "e8d7", "a1a7"});
    EXPECT_EQ(ClickListRows(),
              (Rows{" 0.", " 1. e7-e5", Blanks + "e2-e4", " 2. Ke8-d7", Blanks + "Ra1-a7+"}));
}

// At every row: the board of a fresh replay ending there, the same legal targets for every piece
// and the same end of game; and the played game comes back whole at the last row.
TEST(MovesList, EveryRowOfRandomGamesAgreesWithAReplayEndingThere) {
    for (std::uint32_t seed = 1; seed <= 12; ++seed) {
        GameState& s = Clicked("", {});
        PlayRandomMoves(s, 70, seed, RandomPolicy::Varied);
        s.RebuildMovesList(&clickList);
        const std::string end = BoardLetters(s.board);
        for (Word r = 0; r <= s.plyCount; ++r) {
            Host().lists[clickList].selection = r;
            SelectListRow(s, workspace, clickList);
            ReplayPlies(s, r, fresh);
            ASSERT_EQ(BoardLetters(s.board), BoardLetters(fresh.board)) << "seed " << seed << " row " << r;
            const Word side = s.SideAtListIndex(r);
            ASSERT_EQ(s.CheckGameEnd(side, NoMessage), fresh.CheckGameEnd(side, NoMessage));
            for (Word square = 0; square < 64; ++square) {
                s.MarkLegalTargets(side, square % 8, square / 8);
                fresh.MarkLegalTargets(side, square % 8, square / 8);
                ASSERT_EQ(s.legalTargetCount, fresh.legalTargetCount) << "seed " << seed << " row " << r;
            }
            ASSERT_EQ(BoardLetters(s.board), BoardLetters(fresh.board));
        }
        ReturnToLastRow(s, workspace, clickList);
        EXPECT_EQ(BoardLetters(s.board), end);
        EXPECT_EQ(s.RecordsInForce(), s.plyCount);
    }
}

} // namespace
