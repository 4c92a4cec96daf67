// Input at the limits of the readers: placements with more moves than any game position, settings
// files that are empty, binary, huge or of very long lines, and the longest game a file can hold.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>
#include <tuple>

#include "records/load_file.h"
#include "records/position_file.h"
#include "records/settings_file.h"

namespace {

// Placements and their numbers of moves for the side to move, counted by hand. The first three
// have more moves than any game position (28 queens round the edge: the most found by a search
// over placements of queens, knights, bishops and pawns); the last is the published legal
// position with the most moves. The game-end test lists them all with no write past the move
// buffer (the sanitizer builds check every such write), and the preview says what it always did.
const std::tuple<const char*, const char*, Word> placements[] = {
    {"BQQQQQQB/Q6Q/Q6Q/Q6Q/Q6Q/Q6Q/Q6Q/QQQQQQQQ w", ErrorPositionText, 288},
    {"bqqqqqqb/q6q/q6q/q6q/q6q/q6q/q6q/qqqqqqqq b", ErrorPositionText, 288},
    {"QQQQQQQB/Q6Q/Q6Q/Q6Q/Q6Q/Q6Q/Q6Q/QQQQQQQB w", ErrorPositionText, 288},
    {"R6R/3Q4/1Q4Q1/4Q3/2Q4Q/Q4Q2/pp1Q4/kBNN1KB1 w", "", 218},
};

// Every byte value, 0 among them, four times over.
std::string AllBytes() {
    std::string bytes;
    for (int i = 0; i < 4 * 256; ++i)
        bytes += static_cast<char>(i);
    return bytes;
}

} // namespace

TEST(InputBounds, DensePlacementsAreListedInFull) {
    for (const auto& [line, status, moves] : placements) {
        previewGame.ParsePosition(Text(line));
        EXPECT_STREQ(previewGame.previewStatus.Chars(), status) << line;
        EXPECT_EQ(previewGame.moveCount, moves) << line;
    }
}

TEST(InputBounds, SettingsFilesOfAnyBytesGiveDefaultsOrTheirKeys) {
    // Each text, the board scale it gives and the length of the skin file name.
    const std::tuple<const char*, std::string, std::int32_t, std::int32_t> cases[] = {
        {"empty", "", 100, 0},
        {"binary", AllBytes(), 100, 0},
        {"4 MB before a key", std::string(4 << 20, 'x') + "\n[SHOW]\nSCALE OF BOARD = 75", 75, 0},
        {"64 KB line", "[SKIN]\nFILE NAME = " + std::string(64 << 10, 'a') + "\n[SHOW]\nSCALE OF BOARD=75",
         75, 64},
    };
    for (const auto& [what, bytes, boardScale, nameLength] : cases) {
        DisplaySettings settings;
        ParseSettingsText(bytes.data(), static_cast<std::int32_t>(bytes.size()), settings);
        EXPECT_EQ(settings.boardScale, boardScale) << what;
        EXPECT_EQ(settings.skinFileName.Length(), nameLength) << what;
        EXPECT_EQ(settings.showCheck, 1) << what;
    }
}

TEST(InputBounds, GameFileOfTheLimitHoldsTwoHundredPairsAndNoMore) {
    std::ifstream in(VELOK3_SOURCE_DIR "/tests/fuzz/corpus/fuzz_parse_game/two_hundred_pairs.pgn",
                     std::ios::binary);
    const std::string file{std::istreambuf_iterator<char>(in), {}};
    ASSERT_EQ(file.size(), std::size_t{MaxLoadFileBytes});
    // The same file with a 201st pair in its padding: the reader takes the first 200 alone.
    std::string longer = file.substr(0, file.find_last_not_of(' ') + 2) + "201. Nf3 Nf6 ";
    longer.resize(MaxLoadFileBytes, ' ');
    for (const std::string& bytes : {file, longer}) {
        PreviewSelectedFile(previewGame, LoadGames,
                            SelectedFile{true, static_cast<std::uint32_t>(bytes.size()), bytes.data()});
        EXPECT_STREQ(previewGame.previewStatus.Chars(), "");
        EXPECT_EQ(previewGame.plyCount, MaxGamePlies);
    }
}
