// The shared vocabulary of the game: piece codes, colours, marks, side kinds and the capacities
// of every fixed-size buffer. Everything else in the program names these instead of numbers.
#pragma once

#include <cstdint>
#include <cstdlib>

using Word = std::int32_t;

enum Piece : Word { PieceNone = 0, Pawn = 1, Knight = 2, Bishop = 3, Rook = 4, Queen = 5, King = 6 };

enum Colour : Word { White = 0, Black = 1 };

enum SideKind : Word { SideHuman = 0, SideComputer = 1 };

enum Mark : Word { MarkNone = 0, MarkFrom = 1, MarkTo = 2, MarkRefused = 3 };

enum ResetMode : Word { ResetEmpty = 0, ResetStartPosition = 1 };

// The two ways MakeMove may treat a promotion: ask the human, or take the piece it is given.
enum MoveMode : Word { AskPromotion = 0, Silent = 1 };

// Whether CheckGameEnd tells the user what it found.
enum MessageMode : Word { NoMessage = 0, ShowMessage = 1 };

// Results of CheckGameEnd.
enum GameEnd : Word { GameGoesOn = 0, GameStalemate = 1, GameCheckmate = 2, GameDrawn = 3 };

enum Capacity : Word {
    // A game holds at most this many plies; the game ends drawn when it reaches the limit.
    MaxGamePlies = 400,
    // The search writes its look-ahead above the game's plies: level 3 needs eight records,
    // the mating search six. The history keeps room for them beyond the longest game.
    SearchReserve = 16,
    HistoryCapacity = MaxGamePlies + SearchReserve,
    // The readers let any placement through to the game-end test, legal or not (28 queens round
    // the edge have 288 moves). Every listed move joins its square to one a queen or a knight
    // could reach from there, and such a pair of squares carries a move one way at most, since
    // one end holds a piece of the mover and the other does not: the board has 896 such pairs.
    // So no placement fills a move buffer, and no generator needs a bounds test.
    MoveBufferCapacity = 896,
    OpeningMoveCount = 7,
    SideNameBytes = 52,
};

// Material in score units (a pawn is 1000).
enum Material : Word {
    PawnValue = 1000,
    KnightValue = 3000,
    BishopValue = 3000,
    RookValue = 5000,
    QueenValue = 10000,
};

// Score bounds of the searches; scores are seen from the opponent of the side that thinks.
enum ScoreBound : Word {
    ThinkerMated = 1000000,
    OpponentMatedBase = -999990,
    NodeStartLow = -1000000,
    RepetitionLimit = 500,
};

// The index of a write into a fixed buffer of `capacity` entries. The sanitizer and fuzz builds
// abort on an index outside the buffer, which AddressSanitizer misses when the buffer is a
// member with more of its object behind it; other builds take the index as it is, at no cost.
inline Word CheckedIndex(Word index, Word capacity) {
#ifdef VELOK3_CHECKED_WRITES
    if (index < 0 || index >= capacity) std::abort();
#else
    (void)capacity;
#endif
    return index;
}

constexpr Word Opposite(Word colour) { return !colour; }
