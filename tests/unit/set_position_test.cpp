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
#include "support/board_setup.h"
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
    const std::string before = BoardLetters(g.board);
    EnterSetPosition(g, 0);
    EXPECT_EQ(Host().messages, Strings{MovesListNeededText});
    EXPECT_TRUE(Host().questions.empty());
    EXPECT_EQ(BoardLetters(g.board), before);
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
    EXPECT_EQ(BoardLetters(g.board), std::string(64, '.'));
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

// ---- Placing and the material a side may hold ----

struct Placing {
    std::string before; // pieces placed first, all of them accepted
    const char* token;  // the placing tried next
    bool allowed;
};

TEST_F(SetPosition, PiecesAboveTheStartingSetArePaidForByMissingPawns) {
    const std::string pawns = "Pa2 Pb2 Pc2 Pd2 Pe2 Pf2 Pg2 Ph2 ";
    const std::string sevenPawns = "Pa2 Pb2 Pc2 Pd2 Pe2 Pf2 Pg2 ";
    const Placing placings[] = {
        {"", "Pa1", false},
        {"", "pe8", false},
        {pawns, "Pa3", false},
        {pawns, "pa3", true},
        // A second queen spends the missing pawn, so the eighth pawn finds none.
        {sevenPawns + "Qd1 Qe1", "Ph3", false},
        {pawns + "Nb1 Ng1", "Nc3", false},
        {sevenPawns + "Nb1 Ng1", "Nc3", true},
        {sevenPawns + "Nb1 Ng1 Nc3", "Nd3", false},
        {pawns + "Ra1 Rh1", "Rd3", false},
        {sevenPawns + "Ra1 Rh1", "Rd3", true},
        {pawns + "Qd1", "Qe3", false},
        // c1 and e3 are dark squares, f1 a light one.
        {pawns + "Bc1", "Be3", false},
        {pawns + "Bc1", "Bf1", true},
        {sevenPawns + "Bc1", "Be3", true},
        {sevenPawns + "Bc1 Be3", "Bg5", false},
        {sevenPawns + "Bc1 Be3", "Bh3", true},
        {"Ke1", "Kd4", false},
        // Kings may touch; only leaving the mode looks at checks.
        {"Ke1", "kf2", true},
        // White's promoted queen takes nothing from Black's own missing pawn.
        {sevenPawns + "Qd1 Qe1 pa7 pb7 pc7 pd7 pe7 pf7 pg7 qd8", "qe8", true},
    };
    for (const Placing& placing : placings) {
        Enter();
        ASSERT_TRUE(Place(placing.before)) << placing.before;
        const std::string before = BoardLetters(g.board);
        const int repaints = Host().windowRepaints;
        EXPECT_EQ(Click(placing.token), placing.allowed) << placing.before << "+ " << placing.token;
        if (!placing.allowed) {
            // A refusal is silent and leaves everything as it was.
            EXPECT_EQ(BoardLetters(g.board), before) << placing.token;
            EXPECT_EQ(Host().windowRepaints, repaints) << placing.token;
            EXPECT_TRUE(Host().messages.empty());
        }
    }
}

TEST_F(SetPosition, PieceBeingReplacedDoesNotCountAgainstItsSuccessor) {
    Enter();
    ASSERT_TRUE(Place("Pa2 Pb2 Pc2 Pd2 Pe2 Pf2 Pg2 Ph2 Nb1 Ng1"));
    EXPECT_FALSE(Click("Nc3"));
    // The pawn on e2 becomes the third knight, which its own absence pays for.
    EXPECT_TRUE(Click("Ne2"));
    EXPECT_FALSE(Click("Nc3"));
}

// Random clicks over the whole palette never leave a board that no game can reach, and every
// refused placing would have made one; a piece of the other colour is turned over when it may.
TEST_F(SetPosition, RandomPlacingStaysWithinWhatPromotionsCanGive) {
    std::mt19937 random(7);
    for (int round = 0; round < 20; ++round) {
        Enter();
        for (int click = 0; click < 300; ++click) {
            const Word paletteRow = static_cast<Word>(random() % SetupRowCount);
            const Word colour = static_cast<Word>(random() % 2);
            const Word file = static_cast<Word>(random() % 8), row = static_cast<Word>(random() % 8);
            BoardCell wished[8][8];
            std::memcpy(static_cast<void*>(wished), g.board, sizeof g.board);
            const BoardCell old = g.board[row][file];
            PlaceFromPalette(g, paletteRow, colour, file, row);
            const BoardCell& now = g.board[row][file];
            if (paletteRow >= SetupWhiteMoveRow) {
                ASSERT_EQ(std::memcmp(wished, g.board, sizeof g.board), 0) << "move rows place nothing";
                continue;
            }
            // Clear field, or the same piece again, empties the square.
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
            ASSERT_EQ(placed, reachable) << BoardLetters(wished) << " round " << round << " click " << click;
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
        const std::string before = BoardLetters(g.board);
        EXPECT_EQ(LeaveSetPosition(g, refusal.row), 0) << refusal.pieces;
        EXPECT_EQ(Host().messages, Strings{refusal.message}) << refusal.pieces << " row " << refusal.row;
        EXPECT_EQ(BoardLetters(g.board), before);
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
    EXPECT_EQ(BoardLetters(g.startBoard), BoardLetters(g.board));
    EXPECT_EQ(std::memcmp(g.startBoard, g.board, sizeof g.board), 0);
    EXPECT_GT(Host().windowRepaints, repaints);

    // Row 0 belongs to Black, who moves first; White answers; the game stays unsaved work.
    EXPECT_EQ(g.SideAtListIndex(0), Black);
    EXPECT_FALSE(ClickMove(g, "a1a4"));
    ASSERT_TRUE(ClickMove(g, "d5d4"));
    ASSERT_TRUE(ClickMove(g, "a1a4"));
    EXPECT_EQ(ClickListRows().size(), 3u);
    EXPECT_EQ(g.gameDirty, 1);
    EXPECT_EQ(BoardLetters(g.startBoard)[8 * 3 + 3], 'p');
}

} // namespace
