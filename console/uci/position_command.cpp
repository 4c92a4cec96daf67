// Setting up the position to think about: a FEN's board and side to move are read as a position file is;
// castling and en passant follow from the cells and the moves after it, so its other fields are only checked.
#include "console/uci/position_command.h"

#include <sstream>
#include <vector>

#include "console/host/console_host.h"
#include "console/uci/notation.h"
#include "console/uci/report.h"
#include "core/game_state.h"
#include "records/position_file.h"
#include "records/text.h"

namespace {

// "startpos" or "fen" and the FEN's fields: the start of the position line that `d` shows.
std::string positionBase = "startpos";

// Checks the board field: eight ranks of eight squares in known letters and digits.
std::string CheckPlacementField(const std::string& placement) {
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
    if (std::string problem = CheckPlacementField(fields[0]); !problem.empty()) return problem;
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

// Reads a checked FEN's placement and side to move with the game's own position reader, which
// refuses what no game can reach (kings, pawns on the edge rows, too many promoted pieces, the
// side not to move in check). A position that is already over is kept: go then answers 0000.
std::string ReadFenPosition(GameState& state, const std::string& placement, const std::string& side) {
    state.ParsePosition(Text((placement + " " + side).c_str()));
    if (PositionIsImpossible(state)) return "no game can reach this position";
    state.setupStart = 1;
    return "";
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
    if (std::string problem = ReadFenPosition(previewGame, fields[0], fields[1]); !problem.empty())
        return problem;
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
