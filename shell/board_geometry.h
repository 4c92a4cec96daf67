// Where the board lies in the window and which skin tile each square shows. Plain arithmetic on
// the game and the settings, free of the window system, so that the tests can check it natively.
#pragma once

#include <cstdint>

#include "core/game_state.h"
#include "records/settings.h"

// The board's upper left corner in client pixels; the coordinate strips fill the margin.
constexpr std::int32_t BoardOrigin = 20;

// Columns of the skin's tile grid; a black piece sits BlackPieceColumnOffset columns further on.
enum TileColumn : std::int32_t {
    TileColumnDark = 0,
    TileColumnLight = 1,
    TileColumnTarget = 2,
    TileColumnAlert = 3,
    TileColumnLastMove = 4,
    BlackPieceColumnOffset = 5,
};

// Pixels of one square at the given board scale.
constexpr std::int32_t TileSizeForScale(std::int32_t boardScale) {
    return boardScale == 75 ? 48 : 64;
}

// The moves list's rectangle in client pixels; the panel keeps its width at either scale, and
// only the list gives up height.
struct ListRect {
    std::int32_t left, top, width, height;
};
constexpr ListRect ListRectForScale(std::int32_t boardScale) {
    return boardScale == 75 ? ListRect{424, 148, 128, 128} : ListRect{552, 148, 128, 256};
}

// Pixels of a clock's rectangle, which the paint recognises by this height alone.
constexpr std::int32_t ClockHeight = 32;

// The top of the clock of `colour`: below the list for the side at the bottom of the board,
// above it for the side on top.
constexpr std::int32_t ClockTop(Word colour, std::int32_t whiteOnTop, const ListRect& list) {
    const bool atBottom = (colour == White) == (whiteOnTop == 0);
    return atBottom ? list.top + list.height + ClockHeight : list.top - ClockHeight;
}

// Turns screen row i and column j into a board square: seen from White's side unless White
// is on top, in which case the board is turned half a turn.
constexpr void ScreenToBoard(std::int32_t i, std::int32_t j, std::int32_t whiteOnTop, Word& file, Word& row) {
    file = whiteOnTop ? 7 - j : j;
    row = whiteOnTop ? i : 7 - i;
}

// The board square under client point (x, y); false for the margins and the panel.
constexpr bool HitTestSquare(const DisplaySettings& settings, std::int32_t x, std::int32_t y, Word& file,
                             Word& row) {
    const std::int32_t tileSize = TileSizeForScale(settings.boardScale);
    if (x < BoardOrigin || y < BoardOrigin) return false;
    const std::int32_t j = (x - BoardOrigin) / tileSize, i = (y - BoardOrigin) / tileSize;
    if (i > 7 || j > 7) return false;
    ScreenToBoard(i, j, settings.whiteOnTop, file, row);
    return true;
}

// What the paint learns once before it draws the squares.
struct BoardViewFacts {
    std::int32_t selectedRow; // of the moves list, -1 with none
    bool pieceSelected;       // some cell holds MarkFrom
    Word viewSide;            // the side to move in the position shown
    bool inCheck;             // viewSide's king is attacked
    Word kingFile, kingRow;   // viewSide's king, when it has one
};

// The skin column of the square (file, row) at screen position (i, j); later rules override
// earlier ones, so a legal target beats the last move and a check beats both.
inline std::int32_t TileColumnOf(const GameState& state, const DisplaySettings& settings,
                                 const BoardViewFacts& facts, std::int32_t i, std::int32_t j, Word file,
                                 Word row) {
    const BoardCell& cell = state.board[row][file];
    std::int32_t column = (i % 2 == j % 2) ? TileColumnLight : TileColumnDark;
    if (cell.mark == MarkFrom || cell.mark == MarkRefused) column = TileColumnAlert;
    if (cell.mark == MarkTo) column = TileColumnTarget;
    if (settings.showLastMove && !state.setupMode && facts.selectedRow > 0) {
        const MoveRecord& last = state.history[facts.selectedRow - 1];
        if ((last.fromFile == file && last.fromRow == row) || (last.toFile == file && last.toRow == row))
            column = TileColumnLastMove;
    }
    if (settings.showLegalMoves && facts.pieceSelected && state.sides[facts.viewSide].kind == SideHuman &&
        cell.legalTarget)
        column = TileColumnTarget;
    if (settings.showCheck && facts.inCheck && file == facts.kingFile && row == facts.kingRow &&
        !state.setupMode)
        column = TileColumnAlert;
    if (cell.piece != PieceNone && cell.colour == Black) column += BlackPieceColumnOffset;
    return column;
}
