// Square geometry and expected tiles: the board starts at (20, 20) of the client area, a tile's
// row in the skin is the piece and its column the square's look, five more for a black piece.
#include "board_view.h"

#include <cstring>

namespace e2e {

namespace {

constexpr int BoardOrigin = 20;
constexpr int BlackPieceColumnOffset = 5;

struct Square {
    int file;
    int row;
};

Square ParseSquare(const char* name) {
    return {name[0] - 'a', name[1] - '1'};
}

// Screen column and row of a board square, turned half round when White is on top.
POINT ScreenCell(const BoardView& view, Square square) {
    if (view.whiteOnTop) return {7 - square.file, square.row};
    return {square.file, 7 - square.row};
}

// The skin's tile row of a FEN letter: empty 0, pawn 1 up to king 6.
int PieceRow(char piece) {
    const char* order = ".pnbrqk";
    const char* found = std::strchr(order, piece >= 'A' && piece <= 'Z' ? piece - 'A' + 'a' : piece);
    return found ? static_cast<int>(found - order) : 0;
}

} // namespace

const char* const StartPlacement = "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR";

Placement::Placement(const char* fenField) {
    std::memset(cells, '.', sizeof cells);
    int file = 0;
    int row = 7;
    for (const char* c = fenField; *c && row >= 0; ++c) {
        if (*c == '/') {
            --row;
            file = 0;
        } else if (*c >= '1' && *c <= '8') {
            file += *c - '0';
        } else if (file < 8) {
            cells[row][file++] = *c;
        }
    }
}

void Placement::Move(const char* fromTo) {
    Square from = ParseSquare(fromTo);
    Square to = ParseSquare(fromTo + 2);
    cells[to.row][to.file] = cells[from.row][from.file];
    cells[from.row][from.file] = '.';
}

POINT SquareCentre(const BoardView& view, const char* name) {
    POINT cell = ScreenCell(view, ParseSquare(name));
    return {BoardOrigin + cell.x * view.tileSize + view.tileSize / 2,
            BoardOrigin + cell.y * view.tileSize + view.tileSize / 2};
}

ImageDifference TileDifference(const Image& client, const BoardView& view, const char* name, char piece,
                               TileColumn column) {
    POINT cell = ScreenCell(view, ParseSquare(name));
    int look = column;
    if (column == ColumnPlain) look = (cell.x + cell.y) % 2 == 0 ? 1 : 0;
    bool black = piece >= 'a' && piece <= 'z';
    int sourceX = (look + (black ? BlackPieceColumnOffset : 0)) * view.tileSize;
    int sourceY = PieceRow(piece) * view.tileSize;
    return CompareAreas(client, BoardOrigin + cell.x * view.tileSize, BoardOrigin + cell.y * view.tileSize,
                        *view.skin, sourceX, sourceY, view.tileSize, view.tileSize, 0);
}

bool ShowsTile(const Image& client, const BoardView& view, const char* square, char piece,
               TileColumn column) {
    return TileDifference(client, view, square, piece, column).pixels == 0;
}

std::string SquaresDiffering(const Image& client, const BoardView& view, const Placement& placement) {
    std::string differing;
    for (int row = 0; row < 8; ++row) {
        for (int file = 0; file < 8; ++file) {
            char name[3] = {static_cast<char>('a' + file), static_cast<char>('1' + row), '\0'};
            if (ShowsTile(client, view, name, placement.At(file, row), ColumnPlain)) continue;
            if (!differing.empty()) differing += ' ';
            differing += name;
        }
    }
    return differing;
}

} // namespace e2e
