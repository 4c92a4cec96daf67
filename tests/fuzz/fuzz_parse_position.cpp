// Fuzz target for the position file reader: any text of up to 4096 bytes must parse without
// fault, and what lands on the board must be written and read back to the same position.
#include <cstdint>
#include <string>

#include "records/position_file.h"
#include "fuzz/require.h"

namespace {

constexpr std::size_t MaxFileBytes = 4096;

bool SamePlacement(const GameState& a, const GameState& b) {
    for (Word row = 0; row < 8; ++row)
        for (Word file = 0; file < 8; ++file) {
            const BoardCell &x = a.board[row][file], &y = b.board[row][file];
            if (x.piece != y.piece || (x.piece != PieceNone && x.colour != y.colour)) return false;
        }
    return true;
}

bool KnownStatus(const Text& status) {
    return status.Length() == 0 || status.Equals(ErrorPositionText) || status.Equals(GameOverText);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size > MaxFileBytes) return 0;
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    previewGame.ParsePosition(Text(bytes.c_str()));
    const GameState& g = previewGame;
    Require(KnownStatus(g.previewStatus));
    Require(g.sideToMove == White || g.sideToMove == Black);
    Require(g.setupFirstMover == g.sideToMove && g.plyCount == 0);
    for (Word row = 0; row < 8; ++row)
        for (Word file = 0; file < 8; ++file) {
            const BoardCell& cell = g.board[row][file];
            Require(cell.piece >= PieceNone && cell.piece <= King);
            Require(cell.piece == g.startBoard[row][file].piece &&
                    cell.colour == g.startBoard[row][file].colour);
        }

    static GameState again;
    again.ParsePosition(PositionLine(g.board, g.sideToMove));
    Require(SamePlacement(g, again));
    Require(again.sideToMove == g.sideToMove);
    Require(again.previewStatus.Equals(g.previewStatus.Chars()));
    return 0;
}
