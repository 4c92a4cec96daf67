// Setting up a position by hand: what the palette places and refuses against the counts of what
// promotions can give, the tests that end the mode with their messages, and the analysis that follows.
#include <gtest/gtest.h>

#include <cstring>
#include <random>

#include "double/host_double.h"
#include "records/material.h"
#include "records/position_file.h"
#include "records/set_position.h"
#include "support/board_setup.h"

namespace {

GameState g;

// Set-up entered from the start of the program, then the cells of `fen` placed by hand.
void Enter(const std::string& fen) {
    ResetHost();
    movesListWindow = clickList;
    g.ResetGameState(ResetStartPosition);
    EnterSetPosition(g, 1);
    static GameState placed;
    SetUpBoard(placed, fen);
    std::memcpy(static_cast<void*>(g.board), placed.board, sizeof g.board);
}

// Random clicks over the whole palette never leave a board that no game can reach, and every
// refused placing would have made one.
TEST(SetPosition, RandomPlacingStaysWithinWhatPromotionsCanGive) {
    std::mt19937 random(7);
    for (int round = 0; round < 20; ++round) {
        Enter("8/8/8/8/8/8/8/8 w");
        for (int click = 0; click < 300; ++click) {
            const Word paletteRow = static_cast<Word>(random() % SetupRowCount), colour = random() % 2;
            const Word file = static_cast<Word>(random() % 8), row = static_cast<Word>(random() % 8);
            BoardCell wished[8][8];
            std::memcpy(static_cast<void*>(wished), g.board, sizeof g.board);
            const BoardCell old = g.board[row][file];
            PlaceFromPalette(g, paletteRow, colour, file, row);
            const BoardCell& now = g.board[row][file];
            if (paletteRow >= SetupWhiteMoveRow) {
                ASSERT_EQ(std::memcmp(wished, g.board, sizeof g.board), 0) << "move rows place nothing";
            } else if (paletteRow == SetupClearRow || (old.piece == paletteRow + 1 && old.colour == colour)) {
                ASSERT_EQ(now.piece, PieceNone); // clear field, or the same piece again
            } else {
                wished[row][file] = BoardCell{paletteRow + 1, colour, MarkNone, 0, 0};
                const PieceCounts pieces = CountPieces(wished);
                const Word(&n)[7] = pieces.byPiece[colour];
                const bool reachable =
                    n[King] <= 1 &&
                    n[Pawn] + ExtraPieces(pieces, CountBishopsBySquareColour(wished), colour) <= 8 &&
                    !(paletteRow == SetupPawnRow && (row == 0 || row == 7));
                ASSERT_EQ(now.piece == paletteRow + 1 && now.colour == colour, reachable)
                    << BoardLetters(wished);
                ASSERT_TRUE(reachable || now.piece == old.piece);
            }
        }
    }
}

TEST(SetPosition, EachRefusalTellsWhyAndKeepsEditing) {
    const struct {
        const char* fen;
        Word row;
        const char* message;
    } refusals[] = {
        {"8/8/8/8/8/8/8/8", SetupWhiteMoveRow, KingsNotFoundText},
        {"3q4/8/8/8/8/8/P7/8", SetupBlackMoveRow, KingsNotFoundText},
        {"4k3/8/8/8/8/8/P7/8", SetupWhiteMoveRow, WhiteKingNotFoundText},
        {"8/8/8/8/8/8/4R3/4K3", SetupWhiteMoveRow, BlackKingNotFoundText}, // told before the check
        {"4k3/8/8/8/8/8/8/4K3", SetupBlackMoveRow, OnlyKingsText},
        {"4k3/8/8/8/8/8/4R3/4K3", SetupWhiteMoveRow, BlackKingInCheckText},
        {"4k3/4r3/8/8/8/8/8/4K3", SetupBlackMoveRow, WhiteKingInCheckText},
        {"7k/8/6Q1/5K2/8/8/8/8", SetupBlackMoveRow, SetupFinishedText}, // stalemate
        {"7k/6Q1/5K2/8/8/8/8/8", SetupBlackMoveRow, SetupFinishedText}, // mate
        {"7k/6Q1/5K2/8/8/8/8/8", SetupWhiteMoveRow, BlackKingInCheckText},
        {"1n2k3/8/8/8/8/8/8/2B1K3", SetupWhiteMoveRow, SetupFinishedText}, // neither side can mate
    };
    for (const auto& refusal : refusals) {
        Enter(refusal.fen);
        const std::vector<std::string> palette = ClickListRows();
        Host().lists[movesListWindow].selection = refusal.row;
        const std::string before = BoardLetters(g.board);
        EXPECT_EQ(LeaveSetPosition(g, refusal.row), 0) << refusal.fen;
        EXPECT_EQ(Host().messages, std::vector<std::string>{refusal.message}) << refusal.fen;
        EXPECT_EQ(BoardLetters(g.board), before);
        EXPECT_TRUE(g.setupMode == 1 && g.setupStart == 0 && g.gameDirty == 0);
        EXPECT_EQ(ClickListRows(), palette);
        EXPECT_EQ(Host().lists[movesListWindow].selection, refusal.row);
    }
}

TEST(SetPosition, AcceptedPositionStartsAnAnalysisForTwoPeople) {
    Enter("4k3/8/8/3p4/8/8/8/R3K3");
    g.sides[White].kind = SideComputer;
    g.sides[Black].clockSeconds = 9;
    Host().lists[movesListWindow].selection = SetupBlackMoveRow;
    ASSERT_EQ(LeaveSetPosition(g, SetupBlackMoveRow), 1);
    EXPECT_TRUE(Host().messages.empty());
    EXPECT_EQ(ClickListRows(), std::vector<std::string>{" 0."});
    EXPECT_TRUE(g.setupMode == 0 && g.setupStart == 1 && g.gameActive == 1 && g.gameDirty == 1);
    EXPECT_TRUE(g.sideToMove == Black && g.setupFirstMover == Black && g.plyCount == 0);
    EXPECT_TRUE(g.sides[White].kind == SideHuman && g.sides[Black].clockSeconds == 0);
    EXPECT_EQ(std::memcmp(g.startBoard, g.board, sizeof g.board), 0);
    EXPECT_FALSE(ClickMove(g, "a1a4")); // Black moves first
    ASSERT_TRUE(ClickMove(g, "d5d4") && ClickMove(g, "a1a4"));
    EXPECT_EQ(ClickListRows().size(), 3u);
    movesListWindow = nullptr;
}

} // namespace
