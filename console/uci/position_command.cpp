// Setting up the position to think about. A FEN is read for its placement and side to move;
// castling rights and en passant follow, as everywhere in the game, from the cells and from the
// moves played after it, so its other fields are checked for form and not used further.
#include "console/uci/position_command.h"

#include <sstream>
#include <vector>

#include "console/host/console_host.h"
#include "console/uci/notation.h"
#include "console/uci/report.h"
#include "core/game_state.h"

namespace {

// "startpos" or "fen" and the FEN's fields: the start of the position line that `d` shows.
std::string positionBase = "startpos";

// Checks the board field: eight ranks of eight squares in known letters and digits.
std::string CheckPlacement(const std::string& placement) {
    int ranks = 1, squares = 0;
    for (const char c : placement) {
        if (c == '/') {
            if (squares != 8) return "rank " + std::to_string(9 - ranks) + " does not have 8 squares";
            ++ranks;
            squares = 0;
        } else if (c >= '1' && c <= '8') {
            squares += c - '0';
        } else if (std::string("PNBRQKpnbrqk").find(c) != std::string::npos) {
            ++squares;
        } else {
            return std::string("unknown character '") + c + "' in the placement";
        }
        if (squares > 8) return "rank " + std::to_string(9 - ranks) + " has more than 8 squares";
    }
    if (ranks != 8) return "the placement has " + std::to_string(ranks) + " ranks, not 8";
    if (squares != 8) return "rank 1 does not have 8 squares";
    return "";
}

// True for a non-empty run of decimal digits.
bool AllDigits(const std::string& text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
}

// Checks the form of the fields of a FEN; "" when they can be read.
std::string CheckFenFields(const std::vector<std::string>& fields) {
    if (fields.size() < 2) return "a FEN needs at least the placement and the side to move";
    if (fields.size() > 6) return "a FEN has at most six fields";
    if (std::string problem = CheckPlacement(fields[0]); !problem.empty()) return problem;
    if (fields[1] != "w" && fields[1] != "b") return "the side to move is '" + fields[1] + "', not w or b";
    if (fields.size() > 2 && fields[2] != "-" && fields[2].find_first_not_of("KQkq") != std::string::npos)
        return "bad castling field '" + fields[2] + "'";
    if (fields.size() > 3 && fields[3] != "-" &&
        (fields[3].size() != 2 || fields[3][0] < 'a' || fields[3][0] > 'h' ||
         (fields[3][1] != '3' && fields[3][1] != '6')))
        return "bad en passant field '" + fields[3] + "'";
    for (std::size_t i = 4; i < fields.size(); ++i)
        if (!AllDigits(fields[i])) return "bad move counter '" + fields[i] + "'";
    return "";
}

// Checks what the engine relies on: one king a side, no pawn on a first or last rank, and the
// side that is not to move not in check.
std::string CheckPlayable(GameState& state) {
    int kings[2] = {0, 0};
    for (Word row = 0; row < 8; ++row)
        for (Word file = 0; file < 8; ++file) {
            const BoardCell& cell = state.board[row][file];
            if (cell.piece == King) ++kings[cell.colour];
            if (cell.piece == Pawn && (row == 0 || row == 7)) return "a pawn stands on a first or last rank";
        }
    if (kings[White] != 1 || kings[Black] != 1) return "each side needs exactly one king";
    if (state.IsSquareAttacked(Opposite(state.sideToMove), -1, -1)) return "the side not to move is in check";
    return "";
}

// Places the pieces and the side to move of a checked FEN on a reset `state`.
void PlaceFen(GameState& state, const std::string& placement, const std::string& side) {
    state.ResetGameState(ResetEmpty);
    Word row = 7, file = 0;
    for (const char c : placement) {
        if (c == '/') {
            --row;
            file = 0;
        } else if (c >= '1' && c <= '8') {
            file += c - '0';
        } else {
            const std::string letters = "pnbrqk";
            const char lower = static_cast<char>(c | 0x20);
            state.board[row][file].piece = static_cast<Word>(letters.find(lower) + 1);
            state.board[row][file].colour = c == lower ? Black : White;
            ++file;
        }
    }
    state.sideToMove = state.setupFirstMover = side == "w" ? White : Black;
    state.setupStart = 1;
    for (Word r = 0; r < 8; ++r)
        for (Word f = 0; f < 8; ++f)
            state.startBoard[r][f] = state.board[r][f];
}

// Sets up `previewGame` from "startpos" or "fen ..." at the head of `words`, advancing `next`
// past them. Returns "" on success.
std::string SetUpBase(const std::vector<std::string>& words, std::size_t& next, std::string& base) {
    if (words.empty()) return "position needs startpos or fen";
    if (words[0] == "startpos") {
        previewGame.ResetGameState(ResetStartPosition);
        next = 1;
        base = "startpos";
        return "";
    }
    if (words[0] != "fen") return "position needs startpos or fen, not '" + words[0] + "'";
    std::vector<std::string> fields;
    for (next = 1; next < words.size() && words[next] != "moves"; ++next)
        fields.push_back(words[next]);
    if (std::string problem = CheckFenFields(fields); !problem.empty()) return problem;
    PlaceFen(previewGame, fields[0], fields[1]);
    if (std::string problem = CheckPlayable(previewGame); !problem.empty()) return problem;
    base = "fen";
    for (const std::string& field : fields)
        base += " " + field;
    return "";
}

} // namespace

void ResetToStartPosition() {
    game.ResetGameState(ResetStartPosition);
    positionBase = "startpos";
}

void SetUpPosition(const std::string& arguments) {
    std::istringstream in(arguments);
    std::vector<std::string> words;
    for (std::string word; in >> word;)
        words.push_back(word);

    std::size_t next = 0;
    std::string base;
    if (std::string problem = SetUpBase(words, next, base); !problem.empty()) {
        Report("position ignored: " + problem);
        return;
    }
    if (next < words.size() && words[next] != "moves") {
        Report("position: '" + words[next] + "' ignored, expected moves");
    } else if (next < words.size()) {
        for (std::size_t i = next + 1; i < words.size(); ++i) {
            MoveInput input{};
            std::string problem = ReadMoveText(words[i], input) ? PlayMoveInput(previewGame, input)
                                                                : "not a move in long algebraic notation";
            if (!problem.empty()) {
                Report("move " + words[i] + " ignored (" + problem + "), and the moves after it");
                break;
            }
        }
    }
    game = previewGame;
    positionBase = base;
}

void ShowPosition() {
    static constexpr char letters[] = ".pnbrqk";
    for (Word row = 7; row >= 0; --row) {
        std::string line = std::to_string(row + 1);
        for (Word file = 0; file < 8; ++file) {
            const BoardCell& cell = game.board[row][file];
            char c = letters[cell.piece];
            if (cell.piece != PieceNone && cell.colour == White) c = static_cast<char>(c - 'a' + 'A');
            line += ' ';
            line += c;
        }
        ConsoleWriteLine(line);
    }
    ConsoleWriteLine("  a b c d e f g h");
    ConsoleWriteLine(std::string("Side to move: ") + (game.sideToMove == White ? "white" : "black"));
    ConsoleWriteLine("Fen: " + PositionFen(game));
    std::string line = "Position: position " + positionBase;
    if (game.plyCount > 0) line += " moves";
    for (Word i = 0; i < game.plyCount; ++i)
        line += " " + RecordText(game.history[i]);
    ConsoleWriteLine(line);
}
