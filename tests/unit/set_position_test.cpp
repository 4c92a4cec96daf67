// Setting up a position by hand: entering the mode, what the palette places and refuses, and the
// tests that end the mode with their messages, or hand the position over to analysis.
#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "double/host_double.h"
#include "records/game_file.h"
#include "records/material.h"
#include "records/position_file.h"
#include "records/set_position.h"
#include "support/click_play.h"
#include "support/record_games.h"

namespace {

using Strings = std::vector<std::string>;

const Strings paletteRows{" Pawn", " Knight",      " Bishop",     " Rook",      " Queen",
                          " King", " Clear field", " White move", " Black move"};

// The palette row that places a piece given by its letter in a position file.
Word PaletteRowOf(char letter) {
    const std::string letters = "pnbrqk";
    return static_cast<Word>(letters.find(static_cast<char>(std::tolower(letter))));
}

// Piece and colour of every cell, row 7 first, in the letters of a position file.
std::string Cells(const BoardCell (&board)[8][8]) {
    std::string s;
    for (int row = 7; row >= 0; --row)
        for (int file = 0; file < 8; ++file) {
            const BoardCell& c = board[row][file];
            s += c.piece == PieceNone ? '.'
                                      : static_cast<char>("?pnbrqk"[c.piece] - (c.colour == White ? 32 : 0));
        }
    return s;
}

class SetPosition : public ::testing::Test {
  protected:
    void SetUp() override {
        ResetHost();
        movesListWindow = clickList;
    }
    void TearDown() override { movesListWindow = nullptr; }

    // Set-up entered from the start of the program, with nothing to save.
    GameState& Enter() {
        g.ResetGameState(ResetStartPosition);
        EnterSetPosition(g, 1);
        return g;
    }

    // A click on `square` ("e4") with the palette row of `piece` (a position file letter, upper
    // case placing white, lower case black). True when the square then holds that piece.
    static bool Click(const std::string& token) {
        const char letter = token[0];
        const Word colour = std::isupper(static_cast<unsigned char>(letter)) ? White : Black;
        const Word file = token[1] - 'a', row = token[2] - '1';
        PlaceFromPalette(g, PaletteRowOf(letter), colour, file, row);
        const BoardCell& cell = g.board[row][file];
        return cell.piece == PaletteRowOf(letter) + 1 && cell.colour == colour;
    }

    // Clicks each blank-separated token of `pieces`; false when one of them is refused.
    static bool Place(const std::string& pieces) {
        std::istringstream tokens(pieces);
        std::string token;
        bool all = true;
        while (tokens >> token)
            all = Click(token) && all;
        return all;
    }

    // The nine palette rows with row r selected, as the user leaves them before a move row.
    static void Choose(Word r) { Host().lists[movesListWindow].selection = r; }

    static GameState g;
};

GameState SetPosition::g;

// ---- Entering the mode ----

TEST_F(SetPosition, HiddenListOnlyTellsTheUserAndKeepsTheGame) {
    ASSERT_TRUE(PlayLine(g, "e2e4 e7e5"));
    g.gameActive = g.gameDirty = 1;
    ShowMovesList(g, 2);
    const std::string before = Cells(g.board);
    EnterSetPosition(g, 0);
    EXPECT_EQ(Host().messages, Strings{MovesListNeededText});
    EXPECT_TRUE(Host().questions.empty());
    EXPECT_EQ(Cells(g.board), before);
    EXPECT_EQ(g.plyCount, 2);
    EXPECT_EQ(g.setupMode, 0);
    EXPECT_EQ(g.gameDirty, 1);
    EXPECT_EQ(Host().lists[movesListWindow].rows.size(), 3u);
}

TEST_F(SetPosition, RunningGameIsOfferedForSavingThenTheBoardIsEmptied) {
    ASSERT_TRUE(PlayLine(g, "e2e4 e7e5"));
    g.gameActive = g.gameDirty = 1;
    std::strcpy(g.sides[White].name, "Alice");
    g.sides[Black].kind = SideComputer;
    g.sides[White].clockSeconds = 40;
    ShowMovesList(g, 2);
    Host().yesNoAnswers = {0};
    EnterSetPosition(g, 1);

    EXPECT_EQ(Host().questions, Strings{SaveGameQuestion});
    EXPECT_TRUE(Host().messages.empty());
    EXPECT_EQ(Cells(g.board), std::string(64, '.'));
    EXPECT_EQ(Host().lists[movesListWindow].rows, paletteRows);
    EXPECT_EQ(Host().lists[movesListWindow].selection, -1);
    EXPECT_EQ(g.setupMode, 1);
    EXPECT_EQ(g.gameActive, 1);
    EXPECT_EQ(g.setupStart, 0);
    EXPECT_EQ(g.plyCount, 0);
    EXPECT_EQ(g.gameDirty, 0);
    EXPECT_STREQ(g.sides[White].name, "");
    EXPECT_EQ(g.sides[Black].kind, SideHuman);
    EXPECT_EQ(g.sides[White].clockSeconds, 0);
    EXPECT_GT(Host().windowRepaints, 0);
}

TEST_F(SetPosition, SetUpGameIsOfferedAsItsBeginPosition) {
    Enter();
    ASSERT_TRUE(Place("Ke1 ke8 Ra1"));
    Choose(SetupWhiteMoveRow);
    ASSERT_EQ(LeaveSetPosition(g, SetupWhiteMoveRow), 1);
    ASSERT_TRUE(ClickMove(g, "a1a7"));

    Host().yesNoAnswers = {1};
    Host().saveNames = {"begin"};
    EnterSetPosition(g, 1);
    EXPECT_EQ(Host().questions, Strings{SaveBeginPositionQuestion});
    EXPECT_EQ(Host().files["begin.fen"], "4k3/8/8/8/8/8/8/R3K3 w - - 0 0\"");
    EXPECT_EQ(g.setupMode, 1);
    EXPECT_EQ(Cells(g.board), std::string(64, '.'));
}

// ---- Placing and taking away ----

TEST_F(SetPosition, SameClickTwicePutsThePieceAndTakesItAway) {
    Enter();
    for (const char* token :
         {"Pd4", "Nd4", "Bd4", "Rd4", "Qd4", "Kd4", "pd4", "nd4", "bd4", "rd4", "qd4", "kd4"}) {
        EXPECT_TRUE(Click(token)) << token;
        const int repaints = Host().windowRepaints;
        EXPECT_FALSE(Click(token)) << token;
        EXPECT_EQ(g.board[3][3].piece, PieceNone) << token;
        EXPECT_EQ(Host().windowRepaints, repaints + 1) << token;
    }
}

TEST_F(SetPosition, OtherButtonTurnsAPieceToTheOtherColourWhenItsMaterialAllows) {
    Enter();
    ASSERT_TRUE(Place("Ra1"));
    EXPECT_TRUE(Click("ra1"));

    // Black, with the rook of a1, now holds two rooks and all eight pawns: the white rook on h1
    // stays as it was.
    ASSERT_TRUE(Place("Rh1 rh8 pa7 pb7 pc7 pd7 pe7 pf7 pg7 ph7"));
    const std::string before = Cells(g.board);
    const int repaints = Host().windowRepaints;
    EXPECT_FALSE(Click("rh1"));
    EXPECT_EQ(Cells(g.board), before);
    EXPECT_EQ(Host().windowRepaints, repaints);
    EXPECT_TRUE(Host().messages.empty());
}

TEST_F(SetPosition, PieceBeingReplacedDoesNotCountAgainstItsSuccessor) {
    Enter();
    ASSERT_TRUE(Place("Pa2 Pb2 Pc2 Pd2 Pe2 Pf2 Pg2 Ph2 Nb1 Ng1"));
    EXPECT_FALSE(Click("Nc3"));
    // The pawn on e2 becomes the third knight, which its own absence pays for.
    EXPECT_TRUE(Click("Ne2"));
    EXPECT_FALSE(Click("Nc3"));
}

TEST_F(SetPosition, ClearFieldEmptiesAnySquareAndMoveRowsDoNothing) {
    Enter();
    ASSERT_TRUE(Place("Ke1 qd8"));
    PlaceFromPalette(g, SetupClearRow, Black, 4, 0);
    PlaceFromPalette(g, SetupClearRow, White, 3, 7);
    EXPECT_EQ(Cells(g.board), std::string(64, '.'));

    ASSERT_TRUE(Place("Ke1"));
    const int repaints = Host().windowRepaints;
    PlaceFromPalette(g, SetupClearRow, White, 4, 3);
    for (const Word r : {SetupWhiteMoveRow, SetupBlackMoveRow})
        for (const Word colour : {White, Black}) {
            PlaceFromPalette(g, r, colour, 4, 0);
            PlaceFromPalette(g, r, colour, 4, 4);
        }
    EXPECT_EQ(Host().windowRepaints, repaints);
    EXPECT_EQ(g.board[0][4].piece, King);
    EXPECT_EQ(g.board[4][4].piece, PieceNone);
}

// ---- The material a side may hold ----

TEST_F(SetPosition, PawnsStayOffTheEdgeRowsAndNumberAtMostEight) {
    Enter();
    for (const char* token : {"Pa1", "Ph8", "pd8", "pe1"})
        EXPECT_FALSE(Click(token)) << token;
    ASSERT_TRUE(Place("Pa2 Pb3 Pc4 Pd5 Pe6 Pf7 Pg2 Ph2"));
    EXPECT_FALSE(Click("Pa3"));
    EXPECT_TRUE(Click("pa3"));
    // A second queen spends a pawn, so seven pawns and two queens leave no room for an eighth.
    PlaceFromPalette(g, SetupClearRow, White, 7, 1);
    ASSERT_TRUE(Place("Qd1 Qe1"));
    EXPECT_FALSE(Click("Ph2"));
}

TEST_F(SetPosition, ThirdKnightOrRookAndSecondQueenNeedAMissingPawn) {
    for (const std::string piece : {"N", "R"}) {
        Enter();
        ASSERT_TRUE(Place("Pa2 Pb2 Pc2 Pd2 Pe2 Pf2 Pg2 Ph2 " + piece + "a1 " + piece + "b1"));
        EXPECT_FALSE(Click(piece + "c1")) << piece;
        PlaceFromPalette(g, SetupClearRow, White, 0, 1);
        EXPECT_TRUE(Click(piece + "c1")) << piece;
        EXPECT_FALSE(Click(piece + "d1")) << piece;
    }
    Enter();
    ASSERT_TRUE(Place("Pa2 Pb2 Pc2 Pd2 Pe2 Pf2 Pg2 Ph2 Qd1"));
    EXPECT_FALSE(Click("Qe1"));
    PlaceFromPalette(g, SetupClearRow, White, 0, 1);
    EXPECT_TRUE(Click("Qe1"));
    EXPECT_FALSE(Click("Qf1"));
}

TEST_F(SetPosition, SecondBishopOnTheSameSquareColourNeedsAMissingPawn) {
    Enter();
    // c1 and e3 are dark, f1 is light.
    ASSERT_TRUE(Place("Pa2 Pb2 Pc2 Pd2 Pe2 Pf2 Pg2 Ph2 Bc1"));
    EXPECT_FALSE(Click("Be3"));
    EXPECT_TRUE(Click("Bf1"));
    PlaceFromPalette(g, SetupClearRow, White, 7, 1);
    EXPECT_TRUE(Click("Be3"));
    EXPECT_FALSE(Click("Bg5"));
    EXPECT_FALSE(Click("Bh3"));
}

TEST_F(SetPosition, OneKingPerColourAndEachColourCountsAlone) {
    Enter();
    ASSERT_TRUE(Place("Ke1"));
    EXPECT_FALSE(Click("Kd4"));
    // Kings may touch; only leaving the mode looks at checks.
    EXPECT_TRUE(Click("kf2"));
    EXPECT_FALSE(Click("kd4"));
    // White at its limit, seven pawns and two queens, takes nothing from Black's full set.
    ASSERT_TRUE(Place("Pa2 Pb2 Pc2 Pd2 Pe3 Pf3 Pg2 Qd1 Qe2"));
    EXPECT_FALSE(Click("Ph2"));
    EXPECT_TRUE(Place("pa7 pb7 pc7 pd7 pe7 pf7 pg7 ph7 qd8 nb8 ng8 rc8 rf8 bc6 bd6"));
    EXPECT_FALSE(Click("qe8"));
}

// Random clicks over the whole palette never leave a board that no game can reach, and every
// refused placing would have made one.
TEST_F(SetPosition, RandomPlacingStaysWithinWhatPromotionsCanGive) {
    std::mt19937 random(7);
    for (int round = 0; round < 20; ++round) {
        Enter();
        for (int click = 0; click < 300; ++click) {
            const Word paletteRow = static_cast<Word>(random() % 7), colour = static_cast<Word>(random() % 2);
            const Word file = static_cast<Word>(random() % 8), row = static_cast<Word>(random() % 8);
            BoardCell wished[8][8];
            std::memcpy(static_cast<void*>(wished), g.board, sizeof g.board);
            const BoardCell old = g.board[row][file];
            PlaceFromPalette(g, paletteRow, colour, file, row);
            const BoardCell& now = g.board[row][file];
            if (paletteRow == SetupClearRow || (old.piece == paletteRow + 1 && old.colour == colour)) {
                ASSERT_EQ(now.piece, PieceNone);
                continue;
            }
            wished[row][file] = BoardCell{paletteRow + 1, colour, MarkNone, 0, 0};
            const PieceCounts pieces = CountPieces(wished);
            const BishopCounts bishops = CountBishopsBySquareColour(wished);
            const Word(&n)[7] = pieces.byPiece[colour];
            const bool reachable = n[King] <= 1 && n[Pawn] + ExtraPieces(pieces, bishops, colour) <= 8 &&
                                   !(paletteRow == SetupPawnRow && (row == 0 || row == 7));
            const bool placed = now.piece == paletteRow + 1 && now.colour == colour;
            ASSERT_EQ(placed, reachable) << Cells(wished) << " round " << round << " click " << click;
            if (!placed) {
                ASSERT_EQ(now.piece, old.piece);
            }
        }
    }
}

// ---- Leaving the mode ----

struct Refusal {
    const char* pieces;
    Word row;
    const char* message;
};

TEST_F(SetPosition, EachRefusalTellsWhyAndKeepsEditing) {
    const Refusal refusals[] = {
        {"", SetupWhiteMoveRow, KingsNotFoundText},
        {"Pa2 qd8", SetupBlackMoveRow, KingsNotFoundText},
        {"ke8 Pa2", SetupWhiteMoveRow, WhiteKingNotFoundText},
        {"Ke1 Pa2", SetupWhiteMoveRow, BlackKingNotFoundText},
        {"Ke1 ke8", SetupBlackMoveRow, OnlyKingsText},
        // The missing piece is told before the check: no black king to be in check.
        {"Ke1 Re2", SetupWhiteMoveRow, BlackKingNotFoundText},
        {"Ke1 ke8 Re2", SetupWhiteMoveRow, BlackKingInCheckText},
        {"Ke1 ke8 re7", SetupBlackMoveRow, WhiteKingInCheckText},
        // Black stalemated, and mated, with Black to move.
        {"kh8 Qg6 Kf7", SetupBlackMoveRow, SetupFinishedText},
        {"kh8 Qg7 Kf6", SetupBlackMoveRow, SetupFinishedText},
        // Check comes before the end: White to move with Black mated is a check.
        {"kh8 Qg7 Kf6", SetupWhiteMoveRow, BlackKingInCheckText},
        // Neither side can mate, for either side to move.
        {"Ke1 ke8 Bc1 nb8", SetupWhiteMoveRow, SetupFinishedText},
        {"Ke1 ke8 Bc1 nb8", SetupBlackMoveRow, SetupFinishedText},
    };
    for (const Refusal& refusal : refusals) {
        Enter();
        ASSERT_TRUE(Place(refusal.pieces)) << refusal.pieces;
        Choose(refusal.row);
        Host().messages.clear();
        const std::string before = Cells(g.board);
        EXPECT_EQ(LeaveSetPosition(g, refusal.row), 0) << refusal.pieces;
        EXPECT_EQ(Host().messages, Strings{refusal.message}) << refusal.pieces << " row " << refusal.row;
        EXPECT_EQ(Cells(g.board), before);
        EXPECT_EQ(g.setupMode, 1);
        EXPECT_EQ(g.setupStart, 0);
        EXPECT_EQ(g.gameDirty, 0);
        EXPECT_EQ(Host().lists[movesListWindow].rows, paletteRows);
        EXPECT_EQ(Host().lists[movesListWindow].selection, refusal.row);
    }
}

TEST_F(SetPosition, CheckedSideMayBeTheOneToMove) {
    Enter();
    ASSERT_TRUE(Place("Ke1 ke8 Re2"));
    Choose(SetupWhiteMoveRow);
    ASSERT_EQ(LeaveSetPosition(g, SetupWhiteMoveRow), 0);
    // After the refusal the user picks the other row, with no change to the board.
    Choose(SetupBlackMoveRow);
    EXPECT_EQ(LeaveSetPosition(g, SetupBlackMoveRow), 1);
    EXPECT_EQ(Host().messages, Strings{BlackKingInCheckText});
    EXPECT_EQ(g.sideToMove, Black);
    EXPECT_EQ(g.setupFirstMover, Black);
}

TEST_F(SetPosition, AcceptedPositionStartsAnAnalysisForTwoPeople) {
    Enter();
    ASSERT_TRUE(Place("Ke1 ke8 Ra1 pd5"));
    g.sides[White].kind = SideComputer;
    std::strcpy(g.sides[Black].name, "left over");
    g.sides[Black].clockSeconds = 9;
    Choose(SetupBlackMoveRow);
    const int repaints = Host().windowRepaints;
    ASSERT_EQ(LeaveSetPosition(g, SetupBlackMoveRow), 1);

    EXPECT_TRUE(Host().messages.empty());
    EXPECT_EQ(ClickListRows(), Strings{" 0."});
    EXPECT_EQ(ClickListSelection(), 0);
    EXPECT_EQ(g.setupMode, 0);
    EXPECT_EQ(g.setupStart, 1);
    EXPECT_EQ(g.gameActive, 1);
    EXPECT_EQ(g.gameDirty, 1);
    EXPECT_EQ(g.sideToMove, Black);
    EXPECT_EQ(g.setupFirstMover, Black);
    EXPECT_EQ(g.plyCount, 0);
    for (const Word colour : {White, Black}) {
        EXPECT_EQ(g.sides[colour].kind, SideHuman);
        EXPECT_STREQ(g.sides[colour].name, "");
        EXPECT_EQ(g.sides[colour].clockSeconds, 0);
    }
    EXPECT_EQ(Cells(g.startBoard), Cells(g.board));
    EXPECT_EQ(std::memcmp(g.startBoard, g.board, sizeof g.board), 0);
    EXPECT_GT(Host().windowRepaints, repaints);

    // Row 0 belongs to Black, who moves first; White answers; the game stays unsaved work.
    EXPECT_EQ(g.SideAtListIndex(0), Black);
    EXPECT_FALSE(ClickMove(g, "a1a4"));
    ASSERT_TRUE(ClickMove(g, "d5d4"));
    ASSERT_TRUE(ClickMove(g, "a1a4"));
    EXPECT_EQ(ClickListRows().size(), 3u);
    EXPECT_EQ(g.gameDirty, 1);
    EXPECT_EQ(Cells(g.startBoard)[8 * 3 + 3], 'p');
}

TEST_F(SetPosition, WithoutAListTheModeStillEnds) {
    movesListWindow = nullptr;
    Enter();
    EXPECT_EQ(g.setupMode, 1);
    ASSERT_TRUE(Place("Ke1 ke8 Ra1"));
    EXPECT_EQ(LeaveSetPosition(g, SetupWhiteMoveRow), 1);
    EXPECT_EQ(g.setupStart, 1);
    EXPECT_EQ(g.sideToMove, White);
    EXPECT_TRUE(Host().lists.empty());
}

} // namespace
