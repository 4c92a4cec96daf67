// Walking through a game in the moves list: each row shows the position the game had there, the
// rules of that position hold while it is shown, the game comes back whole, and a move made from
// an earlier row takes back the rest.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "core/navigation.h"
#include "core/replay.h"
#include "double/host_double.h"
#include "support/click_play.h"
#include "support/record_games.h"

namespace {

using Board = std::vector<Word>; // piece + 8 * colour per cell, 0 for an empty cell

Board Pieces(const GameState& state) {
    Board cells;
    for (const auto& row : state.board)
        for (const BoardCell& cell : row)
            cells.push_back(cell.piece == PieceNone ? 0 : cell.piece + 8 * cell.colour);
    return cells;
}

GameState& Game() {
    static GameState state;
    return state;
}
GameState& Workspace() {
    static GameState state;
    return state;
}

// Puts the double's list selection on row r and reacts to it as the program does.
void Select(GameState& state, Word r) {
    Host().lists[clickList].selection = r;
    SelectListRow(state, Workspace(), clickList);
}

// Starts a game between two humans and clicks `moves`, noting the board after every ply; a
// promotion takes `promotion`.
std::vector<Board> PlayedGame(const std::vector<std::string>& moves, Word promotion = Queen) {
    ResetHost();
    Host().promotionAnswer = promotion;
    GameState& s = Game();
    s.ResetGameState(ResetStartPosition);
    s.gameActive = 1;
    std::vector<Board> seen{Pieces(s)};
    for (const std::string& move : moves) {
        EXPECT_TRUE(ClickMove(s, move)) << move;
        seen.push_back(Pieces(s));
    }
    return seen;
}

// Hands a move over from list row r as a click on a target does.
void PlayFromRow(GameState& state, Word r, const std::string& move) {
    TakeBackToRow(state, r);
    ASSERT_TRUE(ClickMove(state, move)) << move;
}

// The legal targets of every piece of `side`, square by square, as MarkLegalTargets leaves them.
std::vector<Word> AllTargets(GameState& state, Word side) {
    std::vector<Word> targets;
    for (Word square = 0; square < 64; ++square) {
        const BoardCell& cell = state.board[square / 8][square % 8];
        if (cell.piece == PieceNone || cell.colour != side) continue;
        state.MarkLegalTargets(side, square % 8, square / 8);
        for (const auto& row : state.board)
            for (const BoardCell& c : row)
                targets.push_back(c.legalTarget);
    }
    return targets;
}

const std::vector<std::string> SpecialMoves = {"e2e4", "d7d5", "e4d5", "c7c5", "d5c6", "g8f6", "c6b7",
                                               "e7e6", "b7a8", "f8e7", "g1f3", "e8g8", "f1c4", "b8c6"};

TEST(ListNavigation, EachRowReplaysTheBoardItHadWithoutAskingForPromotion) {
    const std::vector<Board> seen = PlayedGame(SpecialMoves, Knight);
    ASSERT_EQ(Game().board[7][0].piece, Knight); // b7xa8 became a knight
    const std::size_t asked = Host().promotionAsks.size();
    for (Word r = static_cast<Word>(seen.size()) - 1; r >= 0; --r) {
        Select(Game(), r);
        EXPECT_EQ(Pieces(Game()), seen[r]) << "row " << r;
    }
    EXPECT_EQ(Host().promotionAsks.size(), asked);
    Select(Game(), 5); // after d5xc6 en passant: the pawn of c5 is gone
    EXPECT_EQ(Game().board[4][2].piece, PieceNone);
    Select(Game(), 12); // after 0-0 the rook stands on f8
    EXPECT_EQ(Game().board[7][5].piece, Rook);
    EXPECT_EQ(Game().board[7][7].piece, PieceNone);
    Select(Game(), 9);
    EXPECT_EQ(Game().board[7][0].piece, Knight);
}

TEST(ListNavigation, ASelectionEndsTheSelectionOnTheBoard) {
    PlayedGame({"e2e4", "e7e5", "g1f3"});
    GameState& s = Game();
    for (Word r : {1, 3}) { // Black is to move at both rows
        s.MarkLegalTargets(Black, 1, 7);
        ASSERT_EQ(s.legalTargetCount, 2);
        s.board[7][1].mark = MarkFrom;
        s.board[3][4].mark = MarkRefused;
        s.board[3][4].markAge = 4;
        const Word repaints = Host().windowRepaints;
        Select(s, r);
        for (const auto& row : s.board)
            for (const BoardCell& cell : row) {
                EXPECT_EQ(cell.mark, MarkNone);
                EXPECT_EQ(cell.markAge, 0);
                EXPECT_EQ(cell.legalTarget, 0);
            }
        EXPECT_EQ(Host().windowRepaints, repaints + 1);
    }
}

TEST(ListNavigation, SteppingBackAndForthLeavesThePlayedGameWhole) {
    const std::vector<std::string> moves = {"e2e4", "e7e5", "g1f3", "b8c6", "f1c4", "g8f6"};
    PlayedGame(moves);
    static GameState untouched;
    untouched = Game();
    const std::vector<std::string> rows = ClickListRows();
    for (Word r : {6, 3, 0, 5, 2, 6}) {
        Select(Game(), r);
        EXPECT_EQ(Game().plyCount, 6);
        EXPECT_EQ(Game().sideToMove, White);
    }
    EXPECT_EQ(Pieces(Game()), Pieces(untouched));
    EXPECT_EQ(std::memcmp(Game().history, untouched.history, sizeof(MoveRecord) * 6), 0);
    EXPECT_EQ(ClickListRows(), rows);
    // Both go on alike: castling, which the rows behind could have spoilt, is still there.
    ASSERT_TRUE(ClickMove(Game(), "e1g1"));
    ASSERT_TRUE(ClickMove(untouched, "e1g1"));
    EXPECT_EQ(Pieces(Game()), Pieces(untouched));
    EXPECT_EQ(ClickListSelection(), 7);
}

TEST(ListNavigation, AMoveFromAnEarlierRowDropsTheRowsBehindIt) {
    PlayedGame({"e2e4", "e7e5", "g1f3", "b8c6", "f1b5", "a7a6"});
    Select(Game(), 3);
    PlayFromRow(Game(), 3, "g8f6");
    EXPECT_EQ(ClickListRows().size(), 5u);
    EXPECT_EQ(ClickListRows().back(), std::string(11, ' ') + "Ng8-f6");
    EXPECT_EQ(ClickListSelection(), 4);
    static GameState cut;
    cut = Game();
    PlayedGame({"e2e4", "e7e5", "g1f3", "g8f6"});
    EXPECT_EQ(Pieces(cut), Pieces(Game()));
    EXPECT_EQ(cut.plyCount, 4);
    EXPECT_EQ(cut.sideToMove, White);
    EXPECT_EQ(cut.RecordsInForce(), 4);
}

// At an earlier row the en passant capture that the game's last move allows does not exist, and
// asking for the pawn's moves must not leave a pawn on the square it would have taken.
TEST(ListNavigation, AnEarlierRowOffersOnlyItsOwnEnPassant) {
    PlayedGame({"e2e4", "a7a6", "e4e5", "a6a5", "g1f3", "d7d5"});
    GameState& s = Game();
    s.MarkLegalTargets(White, 4, 4);
    EXPECT_EQ(s.board[5][3].legalTarget, 1); // e5xd6 at the end
    Select(s, 4);
    const Board shown = Pieces(s);
    s.MarkLegalTargets(White, 4, 4);
    EXPECT_EQ(s.legalTargetCount, 1);
    EXPECT_EQ(s.board[5][3].legalTarget, 0);
    EXPECT_EQ(Pieces(s), shown);
}

// A king that moves later in the game may still castle at the rows before that move.
TEST(ListNavigation, AnEarlierRowKeepsTheCastlingItHad) {
    PlayedGame({"e2e4", "e7e5", "g1f3", "b8c6", "f1c4", "f8c5", "e1e2"});
    GameState& s = Game();
    Select(s, 6);
    s.MarkLegalTargets(White, 4, 0);
    EXPECT_EQ(s.board[0][6].legalTarget, 1);
    PlayFromRow(s, 6, "e1g1");
    EXPECT_EQ(s.board[0][5].piece, Rook);
    EXPECT_EQ(ClickListRows().back(), " 4. 0-0");
}

// Against a fresh replay that ends at the row: the same legal moves for every piece, the same end
// of game, and a board that no question changes.
TEST(ListNavigation, RandomGamesAgreeAtEveryRowWithAReplayEndingThere) {
    static GameState fresh;
    for (std::uint32_t seed = 1; seed <= 12; ++seed) {
        ResetHost();
        GameState& s = Game();
        PlayRandomGame(s, seed, 70);
        const Board end = Pieces(s);
        for (Word r = 0; r <= s.plyCount; ++r) {
            ShowMovesList(s, r);
            SelectListRow(s, Workspace(), movesListWindow);
            ReplayPlies(s, r, fresh);
            const Word side = s.SideAtListIndex(r);
            ASSERT_EQ(AllTargets(s, side), AllTargets(fresh, side)) << "seed " << seed << " row " << r;
            ASSERT_EQ(s.CheckGameEnd(side, NoMessage), fresh.CheckGameEnd(side, NoMessage));
            ASSERT_EQ(Pieces(s), Pieces(fresh)) << "seed " << seed << " row " << r;
        }
        ReturnToLastRow(s, Workspace(), movesListWindow);
        EXPECT_EQ(Pieces(s), end);
        EXPECT_EQ(s.RecordsInForce(), s.plyCount);
    }
}

TEST(ListNavigation, WhileTheComputerIsDueTheListStaysOnTheEnd) {
    PlayedGame({"e2e4", "e7e5", "g1f3"});
    GameState& s = Game();
    const Board end = Pieces(s);
    s.thinkPending = 1;
    Select(s, 1);
    EXPECT_EQ(ClickListSelection(), 3);
    EXPECT_EQ(Pieces(s), end);
    EXPECT_EQ(s.RecordsInForce(), 3);
}

// A game from a set-up position with Black to move: row 0 is Black's, the row becomes the game's
// end at once, and the rows behind it stay until a move is made.
TEST(ListNavigation, AnalysisFromBlackToMoveStepsWithReversedParity) {
    ResetHost();
    GameState& s = Game();
    SetUpGame(s, "4k3/pppp4/8/8/8/8/4PPPP/4K2R b");
    ASSERT_EQ(ClickMoves(s, {"a7a5", "e1g1", "b7b5", "e2e4"}), 4u);
    Select(s, 0);
    EXPECT_EQ(s.sideToMove, Black);
    EXPECT_EQ(s.SideAtListIndex(0), Black);
    EXPECT_EQ(s.plyCount, 0);
    for (Word row = 0; row < 8; ++row)
        for (Word file = 0; file < 8; ++file)
            EXPECT_EQ(s.board[row][file].piece, s.startBoard[row][file].piece);
    Select(s, 1);
    EXPECT_EQ(s.sideToMove, White);
    s.MarkLegalTargets(White, 4, 0);
    EXPECT_EQ(s.board[0][6].legalTarget, 1); // castling, though the king moves at row 2
    Select(s, 4);
    EXPECT_EQ(s.plyCount, 4);
    EXPECT_EQ(s.board[3][4].piece, Pawn);
    Select(s, 2);
    EXPECT_EQ(ClickListRows().size(), 5u);
    ASSERT_TRUE(ClickMove(s, "c7c5"));
    EXPECT_EQ(ClickListRows().size(), 4u);
    EXPECT_EQ(s.history[2].fromFile, 2);
}

} // namespace
