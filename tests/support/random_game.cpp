// Seeded random legal games for the tests and benchmarks: the choice of each move by policy, and
// the test whether the game goes on after it.
#include "support/random_game.h"

#include <algorithm>
#include <cstdlib>
#include <random>

namespace {

// Plies after which AvoidEnds insists on a pawn move or a capture.
constexpr Word QuietStreakLimit = 80;

bool IsIrreversible(const GameState& state, const MoveListEntry& m) {
    return state.board[m.fromRow][m.fromFile].piece == Pawn ||
           state.board[m.toRow][m.toFile].piece != PieceNone;
}

// True when the game goes on after the move just played. The quiet policy leaves the fifty-move
// rule to the tests and asks only for a legal reply, no check (so that the reply need not be a
// capture) and no third repetition.
bool GoesOn(GameState& state, RandomPolicy policy) {
    const Word next = Opposite(state.sideToMove);
    if (policy == RandomPolicy::QuietAvoidEnds) {
        MoveListEntry replies[MoveBufferCapacity];
        state.GenerateLegalMoves(replies, next);
        return state.moveCount > 0 && !state.IsSquareAttacked(next, state.kingFile, state.kingRow) &&
               state.IsThreefoldRepetition() == 0;
    }
    const Word result = state.CheckGameEnd(next, NoMessage);
    const bool longest =
        state.plyCount == MaxGamePlies && result == GameDrawn && !state.IsThreefoldRepetition();
    return result == GameGoesOn || longest;
}

// Plays m, and keeps it when the game then goes on.
bool TryAvoidingEnd(GameState& state, const MoveListEntry& m, RandomPolicy policy) {
    MoveRecord* record = &state.history[state.plyCount];
    state.MakeMove(record, m.fromFile, m.fromRow, m.toFile, m.toRow, Silent, Queen);
    ++state.plyCount;
    if (GoesOn(state, policy)) {
        state.sideToMove = Opposite(state.sideToMove);
        return true;
    }
    --state.plyCount;
    state.TakeBackMove(record);
    return false;
}

// Half the time the mover takes back its own last move where it can, else mostly a knight move:
// placements recur often, but not always.
MoveListEntry PickShuffle(const GameState& state, const std::vector<MoveListEntry>& moves,
                          std::mt19937& random) {
    const std::uint32_t roll = random() % 8;
    if (roll < 4 && state.plyCount >= 2) {
        const MoveRecord& own = state.history[state.plyCount - 2];
        for (const MoveListEntry& m : moves)
            if (m.fromFile == own.toFile && m.fromRow == own.toRow && m.toFile == own.fromFile &&
                m.toRow == own.fromRow)
                return m;
    }
    if (roll < 7)
        for (const MoveListEntry& m : moves)
            if (state.board[m.fromRow][m.fromFile].piece == Knight) return m;
    return moves.front();
}

// Castling whenever it is there, since a random pick would hardly ever find it; otherwise up to
// three draws, keeping a pawn move or a capture when one comes up.
MoveListEntry PickVaried(const GameState& state, const std::vector<MoveListEntry>& moves,
                         std::mt19937& random) {
    MoveListEntry chosen = moves[random() % moves.size()];
    for (int draw = 0; draw < 3 && !IsIrreversible(state, chosen); ++draw)
        chosen = moves[random() % moves.size()];
    for (const MoveListEntry& m : moves)
        if (state.board[m.fromRow][m.fromFile].piece == King && std::abs(m.toFile - m.fromFile) == 2)
            chosen = m;
    return chosen;
}

} // namespace

std::vector<std::string> PlayRandomMoves(GameState& state, Word plies, std::uint32_t seed,
                                         RandomPolicy policy) {
    std::mt19937 random(seed);
    std::vector<std::string> played;
    Word quietStreak = 0;
    for (Word n = 0; n < plies && state.plyCount < MaxGamePlies; ++n) {
        MoveListEntry buffer[MoveBufferCapacity];
        state.GenerateLegalMoves(buffer, state.sideToMove);
        std::vector<MoveListEntry> moves(buffer, buffer + state.moveCount);
        std::shuffle(moves.begin(), moves.end(), random);
        if (policy == RandomPolicy::KnightShuffles || policy == RandomPolicy::Varied) {
            if (moves.empty()) break;
            static constexpr Word promotions[4] = {Queen, Rook, Bishop, Knight};
            const MoveListEntry m = policy == RandomPolicy::Varied ? PickVaried(state, moves, random)
                                                                   : PickShuffle(state, moves, random);
            played.push_back(MoveName(m));
            PlayMove(state, played.back(), policy == RandomPolicy::Varied ? promotions[random() % 4] : Queen);
            continue;
        }
        // Irreversible moves first when the streak is long, last otherwise.
        const bool wantIrreversible = policy == RandomPolicy::AvoidEnds && quietStreak >= QuietStreakLimit;
        std::stable_partition(moves.begin(), moves.end(), [&](const MoveListEntry& m) {
            return IsIrreversible(state, m) == wantIrreversible;
        });
        bool moved = false;
        for (const MoveListEntry& m : moves) {
            const bool irreversible = IsIrreversible(state, m);
            if (policy == RandomPolicy::QuietAvoidEnds && irreversible) continue;
            if (TryAvoidingEnd(state, m, policy)) {
                played.push_back(MoveName(m));
                quietStreak = irreversible ? 0 : quietStreak + 1;
                moved = true;
                break;
            }
        }
        if (!moved) break;
    }
    return played;
}
