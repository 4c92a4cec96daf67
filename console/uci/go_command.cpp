// "go": the engine's think as the game runs it (tables, phase, main or mating search with the
// root's repetition rule), its result turned into the protocol's terms. The engine's depth is
// fixed by its level, so the clock parameters are read and have no effect.
#include "console/uci/go_command.h"

#include <algorithm>
#include <sstream>
#include <vector>

#include "console/host/console_host.h"
#include "console/uci/command_input.h"
#include "console/uci/notation.h"
#include "console/uci/report.h"
#include "core/game_state.h"
#include "engine/perft.h"

namespace {

constexpr Word MinLevel = 1;
constexpr Word MaxLevel = 3;
// The mating search looks three moves of each side deep whatever the level.
constexpr Word MateRootDepth = 2;
// The longest perft the history has room for behind the longest game.
constexpr Word MaxPerftDepth = SearchReserve;

GoLimits goLimits{MaxLevel, MaxPerftDepth};

struct GoRequest {
    Word level;
    bool waitForRelease; // "infinite" or "ponder": the best move waits for stop or ponderhit
    Word perftDepth;     // 0 when this is a search
    bool refused;        // "perft" without a depth it can count to: nothing runs
};

// Reads a whole number argument; false when `text` is not one.
bool ReadNumber(const std::string& text, long long& out) {
    if (text.empty() || text.size() > 18 || text.find_first_not_of("-0123456789") != std::string::npos ||
        text.find('-', 1) != std::string::npos || text == "-")
        return false;
    out = std::stoll(text);
    return true;
}

// Reads the parameters of "go". Unknown words and bad numbers are reported and skipped.
GoRequest ReadGoRequest(const std::string& arguments, Word optionLevel) {
    static const std::vector<std::string> ignoredWithNumber = {"wtime",     "btime", "winc", "binc",
                                                               "movestogo", "nodes", "mate", "movetime"};
    std::istringstream in(arguments);
    std::vector<std::string> words;
    for (std::string word; in >> word;)
        words.push_back(word);

    GoRequest request{optionLevel, false, 0, false};
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::string& word = words[i];
        long long number = 0;
        const bool hasNumber = i + 1 < words.size() && ReadNumber(words[i + 1], number);
        if (word == "infinite" || word == "ponder") {
            request.waitForRelease = true;
        } else if (word == "searchmoves") {
            // The root searches every legal move; the moves named here are skipped over.
            while (i + 1 < words.size()) {
                MoveInput input{};
                if (!ReadMoveText(words[i + 1], input)) break;
                ++i;
            }
        } else if (word == "perft") {
            request.refused = !hasNumber || number < 1 || number > MaxPerftDepth;
            request.perftDepth = request.refused ? 0 : static_cast<Word>(number);
            i += hasNumber ? 1 : 0;
        } else if (word == "depth" && hasNumber) {
            request.level = LevelForDepth(static_cast<Word>(number < 0 ? 0 : number > 100 ? 100 : number));
            ++i;
        } else if (hasNumber && std::find(ignoredWithNumber.begin(), ignoredWithNumber.end(), word) !=
                                    ignoredWithNumber.end()) {
            ++i;
        } else {
            Report("go: '" + word + "' ignored");
        }
    }
    return request;
}

// The divided perft count: one line per root move, its time and the total.
void RunPerft(Word depth) {
    static PerftRootCount counts[PerftRootCapacity];
    const std::uint32_t start = HostTickCount();
    const Word n = PerftDivide(game, depth, counts);
    std::uint64_t total = 0;
    for (Word i = 0; i < n; ++i) {
        ConsoleWriteLine(MoveText(counts[i].move, counts[i].promotionPiece) + ": " +
                         std::to_string(counts[i].nodes));
        total += counts[i].nodes;
    }
    const std::uint32_t elapsed = HostTickCount() - start;
    Report("perft " + std::to_string(depth) + " took " + std::to_string(elapsed) + " ms");
    ConsoleWriteLine("Nodes searched: " + std::to_string(total));
}

// The score as the protocol gives it, for the side to move: the engine's scores are seen from
// the opponent in thousandths of a pawn; mates carry the depth counter of the node they fell at.
std::string ScoreText(Word score, Word rootDepth) {
    if (score >= ThinkerMated) {
        // Mated within the horizon; the engine does not know how soon, so the horizon stands in.
        return "mate -" + std::to_string(rootDepth + 1);
    }
    if (score <= OpponentMatedBase) {
        const Word counter = OpponentMatedBase - score;
        return "mate " + std::to_string(rootDepth - counter + 1);
    }
    return "cp " + std::to_string(-score / 10);
}

// True when the listed move takes a pawn to its last row (the search always makes it a queen).
bool Promotes(const GameState& state, const MoveListEntry& m) {
    return state.board[m.fromRow][m.fromFile].piece == Pawn && (m.toRow == 0 || m.toRow == 7);
}

// The best move's text, or "0000" when there is none.
std::string BestMoveText(const MoveListEntry& best) {
    if (best.fromFile == NoMoveByte) return "0000";
    return MoveText(best, Promotes(game, best) ? Queen : PieceNone);
}

// When a stop came before the first pass over the root moves ended, the engine has no result,
// but the protocol wants a move: the one the main search's root tries first stands in, the best
// by a one-ply Evaluate, the first of equals (the first generated in the mating search). The
// tables are still those of the think.
MoveListEntry MoveAfterEarlyStop() {
    MoveListEntry moves[MoveBufferCapacity];
    game.GenerateLegalMoves(moves, game.sideToMove);
    const Word n = game.moveCount;
    Word chosen = 0, chosenKey = 0;
    for (Word i = 0; n > 0 && game.enginePhase == 0 && i < n; ++i) {
        const MoveListEntry& m = moves[i];
        MoveRecord* record = &game.history[CheckedIndex(game.plyCount, HistoryCapacity)];
        game.MakeMove(record, m.fromFile, m.fromRow, m.toFile, m.toRow, Silent, Queen);
        const Word key = -game.Evaluate();
        game.TakeBackMove(record);
        if (i == 0 || key > chosenKey) {
            chosen = i;
            chosenKey = key;
        }
    }
    return n > 0 ? moves[chosen] : game.bestMove;
}

// The score of the chosen move as the root scored it. The think hands over its move and not its
// score, so the move is searched once more, to the same depth and with no bound.
Word ScoreOfMove(const MoveListEntry& m, Word rootDepth) {
    MoveRecord* record = &game.history[CheckedIndex(game.plyCount, HistoryCapacity)];
    game.MakeMove(record, m.fromFile, m.fromRow, m.toFile, m.toRow, Silent, Queen);
    ++game.plyCount;
    const Word score = game.enginePhase == 0 ? game.SearchOpponentNode(rootDepth, ThinkerMated)
                                             : game.MateOpponentNode(rootDepth, ThinkerMated);
    --game.plyCount;
    game.TakeBackMove(record);
    return score;
}

// Runs the think and writes its info line; returns the move to send.
MoveListEntry Think(Word level) {
    game.level = level;
    game.thinking = 1;
    const std::uint32_t start = HostTickCount();
    game.ChooseComputerMove();
    const std::uint32_t elapsed = HostTickCount() - start;
    const bool broken = game.thinking == 0;
    game.thinking = 0;

    // enginePhase 0 is the main search; any other phase is the mating search.
    MoveListEntry best = game.bestMove;
    const Word rootDepth = game.enginePhase == 0 ? level : MateRootDepth;
    const std::uint64_t nodes = game.searchNodes;
    const std::uint64_t nps = nodes * 1000 / (elapsed > 0 ? elapsed : 1);
    std::string info = "info depth " + std::to_string(2 * (rootDepth + 1));
    if (best.fromFile != NoMoveByte && !broken)
        info += " score " + ScoreText(ScoreOfMove(best, rootDepth), rootDepth);
    else if (best.fromFile == NoMoveByte && !broken)
        info += game.IsSquareAttacked(game.sideToMove, -1, -1) ? " score mate 0" : " score cp 0";
    info += " nodes " + std::to_string(nodes) + " nps " + std::to_string(nps) + " time " +
            std::to_string(elapsed);
    if (best.fromFile == NoMoveByte && broken) {
        best = MoveAfterEarlyStop();
        Report("stopped before the first pass over the root moves ended: the move searched first stands in");
    }
    if (best.fromFile != NoMoveByte) info += " pv " + BestMoveText(best);
    ConsoleWriteLine(info);
    return best;
}

} // namespace

Word LevelForDepth(Word plies) {
    Word level = (plies + 1) / 2 - 1;
    if (level < MinLevel) level = MinLevel;
    if (level > MaxLevel) level = MaxLevel;
    return level;
}

void SetGoLimits(const GoLimits& limits) {
    goLimits = limits;
}

void RunGo(const std::string& arguments, Word optionLevel) {
    GoRequest request = ReadGoRequest(arguments, optionLevel);
    request.level = std::min(request.level, goLimits.highestLevel);
    request.perftDepth = std::min(request.perftDepth, goLimits.deepestPerft);
    if (request.refused) {
        Report("go perft needs a depth from 1 to " + std::to_string(MaxPerftDepth));
        return;
    }
    BeginBusy();
    if (request.perftDepth > 0) {
        RunPerft(request.perftDepth);
        EndBusy();
        return;
    }
    const MoveListEntry best = Think(request.level);
    if (request.waitForRelease && !StopRequested() && !PonderhitArrived() && !QuitRequested())
        WaitForRelease();
    EndBusy();
    ConsoleWriteLine("bestmove " + BestMoveText(best));
}
