// The leaf scores of the mating search: drive the lone king to the edge or to the bishop's
// corner and bring the thinker's king, and in phases 3 and 4 its knight, up to it.
#include "core/game_state.h"

#include <cstdlib>

namespace {

constexpr Word MaterialOf[7] = {0, PawnValue, KnightValue, BishopValue, RookValue, QueenValue, 0};

// What the evaluators share: the two kings and the material, with the opponent's pieces added.
struct MateView {
    Word thinkerFile, thinkerRow;
    Word loneFile, loneRow;
    Word df, dr;
    Word material;
    Word knightTerm; // each thinker's knight's distance to the lone king, divided by 4
};

MateView LookAtBoard(const GameState& state) {
    MateView view{};
    const Word thinker = Opposite(state.otherSide);
    state.FindKing(thinker, view.thinkerFile, view.thinkerRow);
    state.FindKing(state.otherSide, view.loneFile, view.loneRow);
    view.df = std::abs(view.loneFile - view.thinkerFile);
    view.dr = std::abs(view.loneRow - view.thinkerRow);
    for (Word row = 0; row < 8; ++row)
        for (Word file = 0; file < 8; ++file) {
            const BoardCell& cell = state.board[row][file];
            if (cell.piece == PieceNone) continue;
            view.material +=
                cell.colour == state.otherSide ? MaterialOf[cell.piece] : -MaterialOf[cell.piece];
            if (cell.piece == Knight && cell.colour == thinker)
                view.knightTerm += (std::abs(view.loneFile - file) + std::abs(view.loneRow - row)) / 4;
        }
    return view;
}

// 1 when the kings share a file or a row: a diagonal approach is slightly better.
Word SharesLine(const MateView& view) {
    return view.df == 0 || view.dr == 0 ? 1 : 0;
}

} // namespace

// Phase 1: the lone king to any corner, the thinker's king close by.
Word GameState::EvaluateMateRookQueen() {
    const MateView v = LookAtBoard(*this);
    return mateCorner[v.loneRow][v.loneFile] + 2 * (v.df + v.dr) + SharesLine(v) + v.material;
}

// Phase 2: the lone king to the edge, the thinker's king at half weight.
Word GameState::EvaluateMateBishops() {
    const MateView v = LookAtBoard(*this);
    return mateEdge[v.loneRow][v.loneFile] + (v.df + v.dr) + v.material;
}

// Phases 3 and 4: the lone king to a corner of the bishop's colour, kings and knights close by.
Word GameState::EvaluateMateBishopKnight(const Word (&cornerTable)[8][8]) {
    const MateView v = LookAtBoard(*this);
    return cornerTable[v.loneRow][v.loneFile] + 2 * (v.df + v.dr) + SharesLine(v) + v.material + v.knightTerm;
}
