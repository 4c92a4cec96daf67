// GameState: the one record of a game (board, history, sides, flags, engine tables and scratch
// fields) and the declarations of its members, which the core, the engine and the records define.
#pragma once

#include <cstdint>

#include "core/host.h"
#include "core/types.h"
#include "records/text.h"

struct BoardCell {
    Word piece;
    Word colour; // meaningless while piece is PieceNone; moves leave the old value there
    Word mark;
    Word markAge;
    Word legalTarget;
};

struct MoveRecord {
    Word fromFile, fromRow;
    Word toFile, toRow;
    Word movedPiece;
    Word movedColour;
    Word capturedPiece;
    Word placedPiece;
    Word extraFromFile, extraFromRow;
    Word extraToFile, extraToRow;
    Word extraPiece;
    Word extraColour;
};

struct MoveListEntry {
    std::int8_t fromFile, fromRow, toFile, toRow;
};

// First byte of a MoveListEntry that stands for "no move" (bestMove) or "struck off" (root lists).
constexpr std::int8_t NoMoveByte = static_cast<std::int8_t>(0xFF);

struct SideRecord {
    Word kind;
    char name[SideNameBytes];
    Word clockSeconds;
};

// The placement of one position, one byte a cell (piece code, plus 8 for a black piece): what
// the repetition test compares, since it looks at piece and colour of occupied cells only.
struct Placement {
    std::uint8_t cells[64];
};

class GameState {
  public:
    // ---- Game state ----
    void ResetGameState(Word mode);

    // ---- Attack test and legal move generation ----
    Word IsSquareAttacked(Word colour, Word file, Word row);
    Word FindKing(Word colour, Word& outFile, Word& outRow) const;
    void GenerateLegalMoves(MoveListEntry* buffer, Word colour);
    // Finds the king of `colour` and sets everyTryTestsKing, as the generators need before a call.
    void PrepareKingTests(Word colour);
    void MarkLegalTargets(Word side, Word file, Word row);

    // ---- Moves on the board ----
    inline void MakeMove(MoveRecord* record, Word fromFile, Word fromRow, Word toFile, Word toRow,
                         Word silent, Word promotionPiece);
    inline void TakeBackMove(const MoveRecord* record);
    // Fills `record` as MakeMove(..., Silent, promotionPiece) would, leaving the board alone.
    inline void DescribeMove(MoveRecord* record, Word fromFile, Word fromRow, Word toFile, Word toRow,
                             Word promotionPiece) const;
    void ClearMarks(Word value);
    Word FindMarkedCell(Word value, Word& outFile, Word& outRow) const;
    Word SideAtListIndex(Word r) const;
    // The records that make the position on the board: all of the game, or, while the moves
    // list shows an earlier row of a played game, only those up to that row.
    Word RecordsInForce() const { return plyCount - pliesNotShown; }

    // ---- Game end and draw rules ----
    Word CheckGameEnd(Word colour, Word showMessages);
    Word IsThreefoldRepetition();

    // ---- Flow of turns ----
    void PlayChosenMove(const ListHandle* listHandle);

    // ---- Engine: position tables, evaluation, searches, think driver ----
    void FillBaseTables();
    void PreparePieceSquare();
    static void BuildPawnProximityMap(Word (&map)[8][8]);
    static Word IsOnBoard(Word file, Word row) { return file >= 0 && file <= 7 && row >= 0 && row <= 7; }
    Word Evaluate();
    Word SearchThinkerNode(Word depth, Word bound);
    Word SearchOpponentNode(Word depth, Word bound);
    Word CheckRecapture(Word toFile, Word toRow);
    Word MateThinkerNode(Word depth, Word isRoot, Word bound);
    Word MateOpponentNode(Word depth, Word bound);
    Word EvaluateMateRookQueen();
    Word EvaluateMateBishops();
    Word EvaluateMateBishopKnight(const Word (&cornerTable)[8][8]);
    void ThinkDriver();
    // The search part of a think: tables, phase and search for the side to move, leaving the
    // result in bestMove and the board as it was, and returning the root's score. ThinkDriver
    // and the UCI front end share it.
    Word ChooseComputerMove();
    void PollDuringThink(Word percent);

    // ---- Records: moves list, game files, position files ----
    void RebuildMovesList(const ListHandle* listHandle);
    void SaveGame();
    void OfferToSave();
    void SavePosition();
    void ParseGame(const Text& text);
    static Word ParseClock(const Text& text);
    Word CanMovePiece(Word piece, Word fromFile, Word fromRow, Word toFile, Word toRow);
    static Word FileIndex(char character);
    static Word RowIndex(char character);
    void ParsePosition(Text text);
    void ValidatePosition();

    // ---- The per-square families (core/squares) ----
    template <int Square> Word SquareAttackTest(Word colour) const;
    template <int Square> void GenerateSquareMoves(MoveListEntry* buffer, Word colour);

    // ---- Fields; ResetGameState clears every one, so a new field belongs there too ----
    BoardCell board[8][8];
    MoveRecord history[HistoryCapacity];
    SideRecord sides[2];
    Word sideToMove;
    Word otherSide;
    Word plyCount;
    Word enginePhase;
    Word legalTargetCount;
    Word gameActive;
    Word gameDirty;
    Word setupStart;
    BoardCell startBoard[8][8];
    Word setupFirstMover;
    Word thinking;
    MoveListEntry bestMove;
    MoveListEntry earlierBestMove;
    Word level;
    Word pawnWork[8][8];
    Word pawnBase[8][8];
    std::uint8_t fileCounts[2][7][8];
    Word kingWork[8][8];
    Word kingBase[8][8];
    Word kingFile, kingRow;
    // Set by the move generators: whether every try must test the king (it stands in check, or
    // no king was found), and whether the piece now generating must (it stands on a line with it).
    Word everyTryTestsKing, pieceTestsKing;
    Word castleTestFile, castleTestRow;
    Word knightBase[8][8];
    Word bishopBase[8][8];
    Word mateCorner[8][8];
    Word mateEdge[8][8];
    Word mateDiagonal[8][8];
    Word mateDiagonalMirror[8][8];
    MoveListEntry openingMoves[OpeningMoveCount];
    MoveListEntry legalMoves[MoveBufferCapacity];
    Word pieceSquare[2][7][8][8];
    Word moveCount;
    std::uint32_t thinkClockBase, thinkStartTick;
    Word thinkPending;
    Word savedPiece, savedColour;
    Text previewStatus;
    Text progressText;
    MoveListEntry rootMoves[MoveBufferCapacity];
    Word setupMode;
    Word loadDialogKind;
    // Nodes visited by the searches since the last think began (for benchmarks and UCI info).
    std::uint64_t searchNodes;
    // Plies of the history that lie beyond the position on display: 0, except while the moves
    // list shows an earlier row of a played game, whose plyCount stays at the game's end. The
    // castling, en passant and draw rules read only the records in force, so that a click on
    // such a row neither offers a move its position lacks nor alters its cells. Kept as a
    // distance from the end, so that a state that was never told of a view reads 0 here.
    Word pliesNotShown;

  private:
    // Tries the move From-To on the board and lists it when the mover's king is then safe.
    template <int From, int To, bool KingMoves> void TryMove(MoveListEntry* buffer, Word colour);
    template <int From, int Df, int Dr, int Step> void TryRay(MoveListEntry* buffer, Word colour);
    template <int From, int Df, int Dr, bool KingMoves> void TryStep(MoveListEntry* buffer, Word colour);
    template <int From, int Df, int Dr> void TryPawnCapture(MoveListEntry* buffer, Word colour);
    template <int From, int Df> void TryEnPassant(MoveListEntry* buffer, Word colour);
    template <int Row> void TryCastling(MoveListEntry* buffer, Word colour);
    Word HistoryLeaves(Word file, Word row) const;
};

// The two games of static lifetime: the one played and shown, and the work space of the load
// dialog and of the moves-list replay.
extern GameState game;
extern GameState previewGame;

// Working space of the repetition test: the placement before each move of the game and after
// the last, with room for the search's look-ahead.
extern Placement positionTrail[HistoryCapacity + 1];

#include "core/moves.h"
