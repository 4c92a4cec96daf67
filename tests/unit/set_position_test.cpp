// Setting up a position by hand: what the palette places and refuses against the counts of what
// promotions can give, and the tests that end the mode with their messages.
#include <gtest/gtest.h>

#include <cstring>

#include "double/host_double.h"
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

// One click of a palette row on a square of `fen`: what the square holds after it.
TEST(SetPosition, PalettePlacesOnlyWhatPromotionsCanGive) {
    const struct {
        const char* fen;
        Word paletteRow, colour;
        const char *square, *after;
    } clicks[] = {
        {"8/8/8/8/8/8/8/8", SetupPawnRow, Black, "a7", "p"},
        {"8/8/8/8/8/8/8/8", SetupPawnRow, White, "a8", "."}, // no pawn on an end row
        {"4k3/8/8/8/8/8/8/4K3", SetupKingRow, Black, "a1", "."},
        {"4k3/8/8/8/8/8/8/4K3", SetupKingRow, White, "e1", "."}, // the same piece again is taken away
        {"4k3/8/8/8/8/8/PPPPPPPP/Q3K3", SetupPawnRow + (Queen - Pawn), White, "d1", "."},
        {"4k3/8/8/8/8/8/PPPPPPP1/Q3K3", SetupPawnRow + (Queen - Pawn), White, "d1", "Q"},
        // the queen replaced no longer counts
        {"4k3/8/8/8/8/8/PPPPPPPP/3QK3", SetupPawnRow + (Rook - Pawn), White, "d1", "R"},
        {"4k3/8/8/8/8/8/PPPPPPPP/2B1K3", SetupPawnRow + (Bishop - Pawn), White, "d1", "B"},
        {"4k3/8/8/8/8/8/PPPPPPPP/2B1K3", SetupPawnRow + (Bishop - Pawn), White, "a1", "."},
        {"4k3/8/8/8/8/8/8/4K3", SetupClearRow, White, "e8", "."},
        {"4k3/8/8/8/8/8/8/4K3", SetupWhiteMoveRow, White, "e8", "k"},
    };
    for (const auto& c : clicks) {
        Enter(c.fen);
        const Word file = c.square[0] - 'a', row = c.square[1] - '1';
        PlaceFromPalette(g, c.paletteRow, c.colour, file, row);
        EXPECT_EQ(BoardLetters(g.board)[(7 - row) * 8 + file], *c.after) << c.fen << " " << c.square;
    }
}

TEST(SetPosition, EachRefusalTellsWhyAndKeepsEditing) {
    const struct {
        const char* fen;
        Word row;
        const char* message;
    } refusals[] = {
        {"8/8/8/8/8/8/8/8", SetupWhiteMoveRow, KingsNotFoundText},
        {"4k3/8/8/8/8/8/P7/8", SetupWhiteMoveRow, WhiteKingNotFoundText},
        {"8/8/8/8/8/8/4R3/4K3", SetupWhiteMoveRow, BlackKingNotFoundText}, // told before the check
        {"4k3/8/8/8/8/8/8/4K3", SetupBlackMoveRow, OnlyKingsText},
        {"4k3/8/8/8/8/8/4R3/4K3", SetupWhiteMoveRow, BlackKingInCheckText},
        {"4k3/4r3/8/8/8/8/8/4K3", SetupBlackMoveRow, WhiteKingInCheckText},
        {"7k/8/6Q1/5K2/8/8/8/8", SetupBlackMoveRow, SetupFinishedText},    // stalemate
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

} // namespace
