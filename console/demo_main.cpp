// A console demonstration of the core: lists the legal moves of the start position, then plays
// a random legal game until no move is left or the game reaches its longest length.
#include <cstdio>
#include <cstdlib>
#include <ctime>

#include "console/host/console_host.h"
#include "core/game_state.h"

void ConsolePollDuringThink() {}
bool ConsoleStopRequested() { return false; }

namespace {

void PrintSquare(int file, int row) { std::printf("%c%c", 'a' + file, '1' + row); }

void PrintBoard(const GameState& state) {
    static const char letters[] = ".PNBRQK";
    for (int row = 7; row >= 0; --row) {
        std::printf("%d ", row + 1);
        for (int file = 0; file < 8; ++file) {
            const BoardCell& cell = state.board[row][file];
            char c = letters[cell.piece];
            if (cell.piece != PieceNone && cell.colour == Black) c = static_cast<char>(c - 'A' + 'a');
            std::printf("%c ", c);
        }
        std::printf("\n");
    }
    std::printf("  a b c d e f g h\n");
}

}  // namespace

int main(int argc, char** argv) {
    const unsigned seed = argc > 1 ? static_cast<unsigned>(std::atoi(argv[1])) : static_cast<unsigned>(std::time(nullptr));
    std::srand(seed);
    game.ResetGameState(ResetStartPosition);
    MoveListEntry moves[MoveBufferCapacity];
    game.GenerateLegalMoves(moves, White);
    std::printf("Start position, %d legal moves for White:", game.moveCount);
    for (Word i = 0; i < game.moveCount; ++i) {
        std::printf(" ");
        PrintSquare(moves[i].fromFile, moves[i].fromRow);
        std::printf("-");
        PrintSquare(moves[i].toFile, moves[i].toRow);
    }
    std::printf("\n\nA random game (seed %u):\n", seed);
    while (game.plyCount < MaxGamePlies) {
        game.GenerateLegalMoves(moves, game.sideToMove);
        if (game.moveCount == 0) break;
        const MoveListEntry m = moves[std::rand() % game.moveCount];
        if (game.plyCount % 2 == 0) std::printf("%d. ", game.plyCount / 2 + 1);
        PrintSquare(m.fromFile, m.fromRow);
        PrintSquare(m.toFile, m.toRow);
        std::printf(" ");
        game.MakeMove(&game.history[game.plyCount], m.fromFile, m.fromRow, m.toFile, m.toRow, Silent, Queen);
        ++game.plyCount;
        game.sideToMove = Opposite(game.sideToMove);
    }
    std::printf("\n\nFinal position after %d plies:\n", game.plyCount);
    PrintBoard(game);
    const bool check = game.IsSquareAttacked(game.sideToMove, -1, -1);
    if (game.plyCount >= MaxGamePlies) std::printf("The game reached its longest length.\n");
    else std::printf("%s has no legal move: %s.\n", game.sideToMove == White ? "White" : "Black",
                     check ? "checkmate" : "stalemate");
    return 0;
}
