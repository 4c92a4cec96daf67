// Whether the game is over for the colour about to move, and the repetition test behind it.
// Nothing stores the end of a game; every caller asks again and gets the answer from the cells.
#include <cstring>

#include "core/game_state.h"

namespace {

constexpr const char* MessageWhiteMates = "Game over.\nWhite wins by checkmate.";
constexpr const char* MessageBlackMates = "Game over.\nBlack wins by checkmate.";
constexpr const char* MessageStalemate = "Game over.\nStalemate.";
constexpr const char* MessageNoMaterial =
    "Game over.\nNeither player has sufficient material to force checkmate.\nThis game is a draw.";
constexpr const char* MessageRepetition =
    "Game over.\nThis position has been repeated three times.\nThis game is a draw.";
constexpr const char* MessageFiftyMoves =
    "Game over.\nNo pawns moved or pieces captured in last fifty moves.\nThis game is a draw.";
constexpr const char* MessageLongestGame =
    "Game over.\nThe game has reached 200 moves, the longest a game can be.\nThis game is a draw.";

// Plies without a pawn move or a capture after which the game is drawn.
constexpr Word FiftyMovePlies = 100;
// No placement can stand three times before this many plies have been played.
constexpr Word FewestPliesToRepeat = 8;
// Slots of the repetition test's hash table: a power of two, over twice the longest trail.
constexpr Word TrailSlots = 1024;

// Returns `result`, first telling the user `text` when the caller asked for messages.
Word Report(Word result, const char* text, Word showMessages) {
    if (showMessages == ShowMessage) HostShowMessage(text);
    return result;
}

// True when neither side keeps a pawn, rook or queen, and each has at most one knight or bishop.
bool IsMaterialInsufficient(const BoardCell (&board)[8][8]) {
    Word heavy[2] = {0, 0};
    Word minor[2] = {0, 0};
    for (const auto& cells : board)
        for (const BoardCell& cell : cells) {
            if (cell.piece == Pawn || cell.piece == Rook || cell.piece == Queen) ++heavy[cell.colour];
            if (cell.piece == Knight || cell.piece == Bishop) ++minor[cell.colour];
        }
    return heavy[White] == 0 && heavy[Black] == 0 && minor[White] <= 1 && minor[Black] <= 1;
}

// True when the last hundred plies hold no pawn move and no capture.
bool IsFiftyMoveDraw(const MoveRecord* history, Word plyCount) {
    if (plyCount < FiftyMovePlies) return false;
    for (Word i = plyCount - 1; i >= plyCount - FiftyMovePlies; --i)
        if (history[i].movedPiece == Pawn || history[i].capturedPiece != PieceNone) return false;
    return true;
}

// The byte a placement holds for a piece of a colour: empty cells are 0 whatever their colour.
std::uint8_t PlacementCode(Word piece, Word colour) {
    return piece == PieceNone ? 0 : static_cast<std::uint8_t>(piece + 8 * colour);
}

// Undoes one record on a placement with the very steps TakeBackMove takes on the board.
void TakeBackOnPlacement(Placement& placement, const MoveRecord& record) {
    placement.cells[record.fromFile + 8 * record.fromRow] =
        PlacementCode(record.movedPiece, record.movedColour);
    placement.cells[record.toFile + 8 * record.toRow] =
        PlacementCode(record.capturedPiece, Opposite(record.movedColour));
    if (record.extraPiece == PieceNone) return;
    if (record.extraFromFile != -1)
        placement.cells[record.extraFromFile + 8 * record.extraFromRow] =
            PlacementCode(record.extraPiece, record.extraColour);
    if (record.extraToFile != -1) placement.cells[record.extraToFile + 8 * record.extraToRow] = 0;
}

// A 64-bit fingerprint of a placement; equal placements give equal fingerprints.
std::uint64_t PlacementHash(const Placement& placement) {
    std::uint64_t hash = 0x9E3779B97F4A7C15ull;
    for (int k = 0; k < 8; ++k) {
        std::uint64_t word;
        std::memcpy(&word, placement.cells + 8 * k, sizeof word);
        hash = (hash ^ word) * 0xFF51AFD7ED558CCDull;
        hash ^= hash >> 32;
    }
    return hash;
}

// True when some placement of trail[0 .. last] stands there three times or more. Each entry is
// counted against the first equal entry before it, found by fingerprint and confirmed byte by byte.
bool AnyPlacementThrice(const Placement* trail, Word last) {
    std::int16_t firstEntry[TrailSlots];
    std::int16_t occurrences[TrailSlots];
    std::uint64_t fingerprint[TrailSlots];
    std::memset(firstEntry, -1, sizeof firstEntry);
    for (Word i = 0; i <= last; ++i) {
        const std::uint64_t hash = PlacementHash(trail[i]);
        Word slot = static_cast<Word>(hash & (TrailSlots - 1));
        while (firstEntry[slot] >= 0 &&
               (fingerprint[slot] != hash ||
                std::memcmp(&trail[firstEntry[slot]], &trail[i], sizeof(Placement)) != 0))
            slot = (slot + 1) & (TrailSlots - 1);
        if (firstEntry[slot] < 0) {
            firstEntry[slot] = static_cast<std::int16_t>(i);
            occurrences[slot] = 1;
            fingerprint[slot] = hash;
        } else if (++occurrences[slot] >= 3) {
            return true;
        }
    }
    return false;
}

}  // namespace

Word GameState::CheckGameEnd(Word colour, Word showMessages) {
    // The legal moves of the side to move; having none ends the game at once.
    GenerateLegalMoves(legalMoves, colour);
    // Mate and stalemate come before every draw.
    if (moveCount == 0) {
        if (IsSquareAttacked(colour, kingFile, kingRow))
            return Report(GameCheckmate, colour == Black ? MessageWhiteMates : MessageBlackMates,
                          showMessages);
        return Report(GameStalemate, MessageStalemate, showMessages);
    }
    if (IsMaterialInsufficient(board)) return Report(GameDrawn, MessageNoMaterial, showMessages);
    if (IsThreefoldRepetition()) return Report(GameDrawn, MessageRepetition, showMessages);
    if (IsFiftyMoveDraw(history, RecordsInForce())) return Report(GameDrawn, MessageFiftyMoves, showMessages);
    // The history has room for no more plies, so the longest game ends drawn.
    if (RecordsInForce() >= MaxGamePlies) return Report(GameDrawn, MessageLongestGame, showMessages);
    // Nothing ends the game.
    return GameGoesOn;
}

Word GameState::IsThreefoldRepetition() {
    // Only the records that led to the position on the board count.
    const Word plies = RecordsInForce();
    if (plies < FewestPliesToRepeat) return 0;
    // The trail is built on a placement of its own, so the board is never touched:
    // entry i is the placement before history[i], entry `plies` the present one.
    Placement placement;
    for (Word row = 0; row < 8; ++row)
        for (Word file = 0; file < 8; ++file)
            placement.cells[file + 8 * row] = PlacementCode(board[row][file].piece, board[row][file].colour);
    positionTrail[CheckedIndex(plies, HistoryCapacity + 1)] = placement;
    for (Word i = plies - 1; i >= 0; --i) {
        TakeBackOnPlacement(placement, history[i]);
        positionTrail[CheckedIndex(i, HistoryCapacity + 1)] = placement;
    }
    // Some entry equal to two earlier ones is the same as some placement standing thrice.
    return AnyPlacementThrice(positionTrail, plies) ? 1 : 0;
}
