// Test helpers for whole games and the moves list beside them.
#include "support/record_games.h"

#include <random>
#include <sstream>

#include "double/host_double.h"
#include "records/game_file.h"
#include "support/board_setup.h"

int testMovesList = 0;

bool PlayLine(GameState& state, const std::string& line) {
    state.ResetGameState(ResetStartPosition);
    std::istringstream moves(line);
    std::string move;
    while (moves >> move) {
        Word promotion = Queen;
        if (move.size() == 5)
            promotion = move[4] == 'n' ? Knight : move[4] == 'b' ? Bishop : move[4] == 'r' ? Rook : Queen;
        if (!PlayMove(state, move.substr(0, 4), promotion)) return false;
    }
    return true;
}

namespace {

bool IsCastling(const GameState& state, const MoveListEntry& m) {
    return state.board[m.fromRow][m.fromFile].piece == King &&
           (m.toFile - m.fromFile == 2 || m.fromFile - m.toFile == 2);
}

bool IsPawnMoveOrCapture(const GameState& state, const MoveListEntry& m) {
    return state.board[m.fromRow][m.fromFile].piece == Pawn ||
           state.board[m.toRow][m.toFile].piece != PieceNone;
}

} // namespace

void PlayRandomGame(GameState& state, std::uint32_t seed, int maxPlies) {
    state.ResetGameState(ResetStartPosition);
    std::mt19937 random(seed);
    static constexpr Word promotions[4] = {Queen, Rook, Bishop, Knight};
    for (int ply = 0; ply < maxPlies; ++ply) {
        MoveListEntry moves[MoveBufferCapacity];
        state.GenerateLegalMoves(moves, state.sideToMove);
        if (state.moveCount == 0) return;
        // Castling whenever it is there, since a random pick would hardly ever find it; otherwise
        // three draws, keeping a pawn move or a capture when one comes up.
        MoveListEntry chosen = moves[random() % state.moveCount];
        for (int draw = 0; draw < 3 && !IsPawnMoveOrCapture(state, chosen); ++draw)
            chosen = moves[random() % state.moveCount];
        for (Word i = 0; i < state.moveCount; ++i)
            if (IsCastling(state, moves[i])) chosen = moves[i];
        state.MakeMove(&state.history[state.plyCount], chosen.fromFile, chosen.fromRow, chosen.toFile,
                       chosen.toRow, Silent, promotions[random() % 4]);
        ++state.plyCount;
        state.sideToMove = Opposite(state.sideToMove);
    }
}

void ShowMovesList(const GameState& state, std::int32_t selected) {
    movesListWindow = &testMovesList;
    HostDouble::List& list = Host().lists[movesListWindow];
    list.rows.assign(state.plyCount + 1, "row");
    list.selection = selected;
}

std::string GameFileOf(GameState& state, const LocalTime& date) {
    const Word end = state.CheckGameEnd(state.sideToMove, NoMessage);
    Text text = GameFileHeader(state, date, ResultText(end, state.sideToMove));
    text.AppendText(GameFileMoves(state, state.plyCount));
    return Str(text);
}

std::string Str(const Text& text) {
    return std::string(text.Chars(), text.Length());
}
