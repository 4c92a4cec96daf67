// The per-think tables: pieceSquare with material, sign and the particular adjustments of the
// position at the start of the think, so that Evaluate is a plain sum over the cells.
#include "core/game_state.h"

#include <cstring>
#include <initializer_list>

namespace {

// Ply from which the late-game rules hold; the pawn bonus needs a ply beyond it.
constexpr Word LatePly = 50;
constexpr Word LatePawnBonus = 55;
constexpr Word LateBonusLimit = 500;
// A king or castled square the thinker should not choose.
constexpr Word BarredKingSquare = 50;
constexpr Word BishopBlocksPawn = 10;
constexpr Word ProximityWeight = 4;

constexpr Word MaterialOf[7] = {0, PawnValue, KnightValue, BishopValue, RookValue, QueenValue, 0};

// Whether some move of the game so far started from (file, row).
bool HasLeft(const GameState& state, Word file, Word row) {
    for (Word i = 0; i < state.plyCount; ++i)
        if (state.history[i].fromFile == file && state.history[i].fromRow == row) return true;
    return false;
}

bool IsPieceAt(const GameState& state, Word file, Word row, Word piece, Word colour) {
    const BoardCell& cell = state.board[row][file];
    return cell.piece == piece && cell.colour == colour;
}

// Whether a pawn of `colour` stands on `file` off the home rows.
bool FileHoldsPawn(const GameState& state, Word file, Word colour) {
    for (Word row = 1; row <= 6; ++row)
        if (IsPieceAt(state, file, row, Pawn, colour)) return true;
    return false;
}

} // namespace

// Spreads the caller's seeds (7 on every pawn, 0 elsewhere) so that each cell ends with 7 minus
// the king's distance to the nearest pawn, never below 0.
void GameState::BuildPawnProximityMap(Word (&map)[8][8]) {
    // Neighbours in the order (x, y-1), (x+1, y-1), (x+1, y), (x+1, y+1), (x, y+1), (x-1, y+1),
    // (x-1, y), (x-1, y-1).
    static constexpr Word dx[8] = {0, 1, 1, 1, 0, -1, -1, -1};
    static constexpr Word dy[8] = {-1, -1, 0, 1, 1, 1, 0, -1};
    for (Word pass = 0; pass < 8; ++pass)
        for (Word y = 0; y < 8; ++y)
            for (Word x = 0; x < 8; ++x)
                for (Word n = 0; n < 8; ++n) {
                    const Word nx = x + dx[n], ny = y + dy[n];
                    if (IsOnBoard(nx, ny) && map[ny][nx] < map[y][x] - 1) map[ny][nx] = map[y][x] - 1;
                }
}

// Rebuilds pawnWork, kingWork and pieceSquare for the position at the start of a think, with
// sideToMove the thinker and otherSide the opponent.
void GameState::PreparePieceSquare() {
    const Word thinker = sideToMove;
    const Word opponent = otherSide;
    auto& own = pieceSquare[thinker];
    auto& their = pieceSquare[opponent];
    const bool early = plyCount < LatePly;

    // All zero first: empty cells and the piece rows not written below must read nothing.
    std::memset(pieceSquare, 0, sizeof pieceSquare);

    // From LatePly on, pawns earn two more for every row they have come forward, and the king
    // takes the knight's table in place of its own.
    for (Word r = 0; r < 8; ++r)
        for (Word f = 0; f < 8; ++f) {
            pawnWork[r][f] = early ? pawnBase[r][f] : pawnBase[r][f] + 2 * r;
            kingWork[r][f] = early ? kingBase[r][f] : knightBase[r][f];
        }

    // The opponent's pawn bonus is tested on the table as filled so far, cell by cell.
    auto lateBonus = [this]() {
        return plyCount > LatePly && Evaluate() < LateBonusLimit ? LatePawnBonus : 0;
    };
    for (Word r = 0; r < 8; ++r)
        for (Word f = 0; f < 8; ++f) {
            if (thinker == White) {
                own[Pawn][r][f] = -pawnWork[r][f];
                own[Knight][r][f] = -knightBase[r][f];
                own[Bishop][r][f] = -bishopBase[r][f];
                own[King][r][f] = -kingWork[r][f];
                their[Pawn][r][f] = pawnWork[7 - r][f];
                their[Pawn][r][f] += lateBonus();
                their[Knight][r][f] = knightBase[r][f];
                their[Bishop][r][f] = bishopBase[r][f];
                their[King][r][f] = kingWork[r][f];
            } else {
                their[Pawn][r][f] = pawnWork[r][f];
                their[Pawn][r][f] += lateBonus();
                their[Knight][r][f] = knightBase[r][f];
                their[Bishop][r][f] = bishopBase[r][f];
                their[King][r][f] = kingWork[r][f];
                own[Pawn][r][f] = -pawnWork[7 - r][f];
                own[Knight][r][f] = -knightBase[r][f];
                own[Bishop][r][f] = -bishopBase[r][f];
                own[King][r][f] = -kingWork[r][f];
            }
        }

    const Word home = thinker == White ? 0 : 7;
    if (early) {
        // The pawns beside the king get no reward for moving.
        FindKing(thinker, kingFile, kingRow);
        if (kingFile < 3 || kingFile >= 6) {
            const Word first = kingFile < 3 ? 0 : 5;
            for (Word r = 0; r < 8; ++r)
                for (Word f = first; f < first + 3; ++f)
                    own[Pawn][r][f] = 0;
        }

        // Castling is worth a move only with the way clear and the pawn cover whole.
        if (IsPieceAt(*this, 4, home, King, thinker) && !HasLeft(*this, 4, home)) {
            auto bar = [&](Word from, Word to) {
                for (Word f = from; f <= to; ++f)
                    own[King][home][f] = BarredKingSquare;
            };
            if (!(FileHoldsPawn(*this, 0, thinker) && FileHoldsPawn(*this, 1, thinker) &&
                  FileHoldsPawn(*this, 2, thinker)))
                bar(0, 2);
            if (!(FileHoldsPawn(*this, 6, thinker) && FileHoldsPawn(*this, 7, thinker))) bar(6, 7);
            if (board[home][1].piece != PieceNone || board[home][2].piece != PieceNone ||
                board[home][3].piece != PieceNone)
                bar(0, 2);
            if (board[home][5].piece != PieceNone || board[home][6].piece != PieceNone) bar(6, 7);
        }
    }

    // A bishop should not block an unmoved centre pawn; knights should leave home.
    const Word pawnRow = thinker == White ? 1 : 6;
    const Word blockRow = thinker == White ? 2 : 5;
    for (Word f = 3; f <= 4; ++f)
        if (IsPieceAt(*this, f, pawnRow, Pawn, thinker)) own[Bishop][blockRow][f] = BishopBlocksPawn;
    for (Word f : {1, 6})
        if (!HasLeft(*this, f, home)) own[Knight][home][f] = 0;

    // From ply 50 on both kings are drawn towards the pawns.
    if (!early) {
        Word map[8][8];
        for (Word r = 0; r < 8; ++r)
            for (Word f = 0; f < 8; ++f)
                map[r][f] = board[r][f].piece == Pawn ? 7 : 0;
        BuildPawnProximityMap(map);
        for (Word r = 0; r < 8; ++r)
            for (Word f = 0; f < 8; ++f) {
                own[King][r][f] = -ProximityWeight * map[r][f];
                their[King][r][f] = ProximityWeight * map[r][f];
            }
    }

    // Material: the thinker's pieces count negative and the opponent's positive, as every score is
    // seen from the opponent.
    for (Word piece = Pawn; piece <= Queen; ++piece)
        for (Word r = 0; r < 8; ++r)
            for (Word f = 0; f < 8; ++f) {
                own[piece][r][f] -= MaterialOf[piece];
                their[piece][r][f] += MaterialOf[piece];
            }
}
