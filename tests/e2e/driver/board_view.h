// The board as the program draws it: where a square lies in the client area at each scale, and
// which tile of the skin it must show for a piece and a mark.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "image.h"

namespace e2e {

// Columns of the skin's tile grid that mark a square; plain squares take the light or dark one.
enum TileColumn : int {
    ColumnPlain = -1,
    ColumnTarget = 2,
    ColumnAlert = 3,
    ColumnLastMove = 4,
};

// The skin at the size the board uses, and the board's orientation.
struct BoardView {
    const Image* skin;
    int tileSize;
    bool whiteOnTop;
};

// Piece placement as the first field of a FEN line, rank 8 first; '.' for an empty square.
class Placement {
  public:
    explicit Placement(const char* fenField);
    char At(int file, int row) const { return cells[row][file]; }

    // Moves a piece as a plain move does (no castling or en passant), for expected boards.
    void Move(const char* fromTo);

  private:
    char cells[8][8];
};

extern const char* const StartPlacement;

// The client point in the middle of a square given as "e2".
POINT SquareCentre(const BoardView& view, const char* square);

// How the square on the captured client area differs from the tile of `piece` (a FEN letter or
// '.') over the given column.
ImageDifference TileDifference(const Image& client, const BoardView& view, const char* square, char piece,
                               TileColumn column);

// True when the square shows exactly that tile.
bool ShowsTile(const Image& client, const BoardView& view, const char* square, char piece, TileColumn column);

// The squares whose plain tiles differ from the placement, as "a1 b1 ...".
std::string SquaresDiffering(const Image& client, const BoardView& view, const Placement& placement);

} // namespace e2e
