// Engine results recorded once: short self-play games whose every move and root score must come
// out as recorded, and one-ply scores of every move; a changed table entry or term shows unseen.
#include <gtest/gtest.h>

#include <sstream>

#include "double/host_double.h"
#include "engine/search.h"
#include "engine/think_driver.h"
#include "support/random_game.h"

namespace {

struct SelfPlayGame {
    const char* name;
    const char* fen; // empty for the start position
    Word level;
    const char* moves; // "move:score " per ply, each the root search's choice for the side to move
};

constexpr SelfPlayGame Games[] = {
    {"StartLevel1", "", 1,
     "d2d4:2 d7d5:7 c1f4:2 c8f5:7 b1d2:2 c7c6:12 c2c3:2 b8d7:10 g1f3:4 f7f6:9 f3h4:1 f5g4:16 "
     "f2f3:5 g4h5:19 f4g3:-2 g7g5:11 "},
    {"StartLevel2", "", 2, "b1c3:2 g8f6:6 d2d4:0 e7e6:10 g1f3:4 f8b4:8 c1g5:36 b4c3:-28 "},
    {"StartLevel3", "", 3, "b1c3:2 "},
    {"MiddlegameLevel1", "r1bq1rk1/2p1bppp/p1np1n2/1p2p3/4P3/1BP2N1P/PP1P1PP1/RNBQR1K1 b", 1,
     "c6a5:7 b3c2:7 c8e6:11 f3g5:7 e6c4:11 b1a3:8 c7c6:994 a3c4:8 a5c4:9 c2b3:8 f6d7:1016 "
     "g5f3:4 "},
    {"PawnEndingLevel3", "8/5pk1/6p1/8/8/6P1/5PK1/8 w", 3, "g2h1:7 g7g8:7 f2f4:6 f7f6:6 h1g1:6 f6f5:6 "},
    {"RookMate", "8/8/8/4k3/8/8/8/R3K3 w", 1,
     "a1a5:-5002 e5f6:5005 e1e2:-5004 f6g7:5000 e2e3:-5012 g7g8:5000 a5a7:-5022 g8h8:5000 "
     "e3e4:-5024 h8g8:4995 e4e5:-5030 g8h8:4990 e5e6:-5025 h8g8:5000 e6f6:-999990 g8h8:4995 "
     "f6g6:-999991 h8g8:1000000 a7a8:-999992 "},
    {"TwoBishopsMate", "8/8/8/4k3/8/8/8/2B1KB2 w", 1,
     "c1b2:-6005 e5d6:6015 e1e2:-6006 d6c7:6005 b2a3:-6013 c7b8:6000 e2d3:-6017 b8a7:6000 "
     "d3d4:-6018 a7a8:5995 a3d6:-6028 a8b7:6001 d4c5:-6030 b7a8:6001 c5c6:-6033 a8a7:6006 "
     "c6c7:-6038 a7a8:6017 f1e2:-999990 a8a7:6027 d6c5:-999991 a7a8:1000000 e2f3:-999992 "},
    {"BishopKnightMate", "8/8/8/4k3/8/8/8/2B1KN2 w", 1,
     "e1d2:-5991 e5f6:6017 f1e3:-5994 f6g7:6011 d2d3:-6012 g7g8:6006 d3d4:-6015 g8h8:6001 "
     "e3f5:-6034 h8g8:6001 c1g5:-6033 g8h8:6007 d4e5:-6053 h8g8:6002 e5e6:-6053 g8h8:6012 "
     "g5h6:-6055 h8g8:6006 f5e7:-6055 g8h7:5990 h6f8:-6064 h7h8:6009 e6f7:-6055 h8h7:5999 "
     "e7g8:-999990 h7h8:6002 f8g7:-999991 h8h7:1000000 g8f6:-999992 "},
};

// The side to move's choice and root score, searched as ChooseComputerMove searches.
std::string Think(GameState& s, Word level) {
    ResetHost();
    s.level = level;
    s.thinking = 1;
    s.searchNodes = 0;
    s.otherSide = Opposite(s.sideToMove);
    s.PreparePieceSquare();
    s.enginePhase = ChooseEnginePhase(s);
    s.bestMove.fromFile = NoMoveByte;
    const Word score = s.enginePhase == PhaseNormal ? s.SearchThinkerNode(level, NodeStartLow)
                                                    : s.MateThinkerNode(MateSearchDepth, 1, NodeStartLow);
    return MoveName(s.bestMove) + ":" + std::to_string(score);
}

class SelfPlay : public ::testing::TestWithParam<SelfPlayGame> {};

TEST_P(SelfPlay, PlaysTheRecordedMovesWithTheRecordedScores) {
    const SelfPlayGame& game = GetParam();
    static GameState s;
    if (*game.fen)
        SetUpBoard(s, game.fen);
    else
        s.ResetGameState(ResetStartPosition);
    std::istringstream expected(game.moves);
    std::string ply;
    for (int n = 0; expected >> ply; ++n) {
        const std::string played = Think(s, game.level);
        ASSERT_EQ(played, ply) << "ply " << n;
        ASSERT_TRUE(PlayMove(s, played.substr(0, 4)));
    }
}

INSTANTIATE_TEST_SUITE_P(Recorded, SelfPlay, ::testing::ValuesIn(Games),
                         [](const auto& info) { return std::string(info.param.name); });

// Every move of the side to move scored by a whole Evaluate one ply on, summed with its place in
// the generated order: one recorded number per position that any table entry reached changes.
TEST(OnePly, ScoresOfEveryMoveAreAsRecorded) {
    const struct {
        const char* fen;
        Word plies; // random plies played first: past ply 50 the kings seek the pawns
        long long sum;
    } positions[] = {
        {"r3k2r/p1ppqpb1/bn2pnp1/3PN3/1p2P3/2N2Q1p/PPPBBPPP/R3K2R w KQkq -", 0, -410240},
        {"4k3/pppppppp/8/8/8/8/PPPPPPP1/R3K2R w", 0, -3928603}, // the short side barred to the king
        {"4k3/pppppppp/8/8/8/8/PP1PPPPP/R3K2R w", 0, -2484191}, // the long side barred
        {"r1bq1rk1/2p1bppp/p1np1n2/1p2p3/4P3/1BP2N1P/PP1P1PP1/RNBQR1K1 b", 0, -35301},
        {"4k3/pp6/8/8/8/8/5PP1/4K3 w", 56, 8285},
    };
    static GameState s;
    for (const auto& p : positions) {
        SetUpBoard(s, p.fen);
        PlayRandomMoves(s, p.plies, 5, RandomPolicy::AvoidEnds);
        s.otherSide = Opposite(s.sideToMove);
        s.PreparePieceSquare();
        MoveListEntry moves[MoveBufferCapacity];
        s.GenerateLegalMoves(moves, s.sideToMove);
        long long sum = 0;
        for (Word i = 0; i < s.moveCount; ++i) {
            MoveRecord* record = &s.history[s.plyCount];
            s.MakeMove(record, moves[i].fromFile, moves[i].fromRow, moves[i].toFile, moves[i].toRow, Silent,
                       Queen);
            sum += (i + 1) * static_cast<long long>(s.Evaluate());
            s.TakeBackMove(record);
        }
        EXPECT_EQ(sum, p.sum) << p.fen;
    }
}

} // namespace
