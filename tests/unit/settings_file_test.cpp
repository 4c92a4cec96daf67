// The settings file as the profile functions read it and as the program writes it, and the clock
// text of the panel.
#include <gtest/gtest.h>

#include <string>

#include "records/clock_text.h"
#include "records/settings_file.h"

namespace {

// The file the program writes with every setting at its default.
const std::string defaultFile =
    "[SHOW]\r\nLEGAL MOVE = YES\r\nCHECK = YES\r\nLAST MOVE = YES\r\nCOORDINATES = YES\r\n"
    "WHITE ON TOP = NO\r\nMOVELIST = YES\r\nAI PROGRESS = YES\r\nSCALE OF BOARD = 100\r\n\r\n"
    "[SOUND]\r\nBEEP = YES\r\n\r\n[COLOR]\r\nBACKGROUND_RED = 128\r\nBACKGROUND_GREEN = 128\r\n"
    "BACKGROUND_BLUE = 128\r\nINK_RED = 255\r\nINK_GREEN = 255\r\nINK_BLUE = 255\r\n\r\n"
    "[SKIN]\r\nFILE NAME = \r\nNUMBER = 0\r\n";

// Settings that differ from the defaults in every field, so a parse must overwrite each one.
DisplaySettings Scrambled() {
    DisplaySettings s;
    s.showLegalMoves = s.showCheck = s.showLastMove = s.showCoordinates = s.showMovesList = 0;
    s.showAiProgress = s.beepAfterMove = 0;
    s.whiteOnTop = 1;
    s.boardScale = 75;
    s.backgroundColor = 0x010203;
    s.inkColor = 0x040506;
    s.skinFileName = Text("stale");
    s.skinNumber = 5;
    return s;
}

DisplaySettings Parse(const std::string& text) {
    DisplaySettings s = Scrambled();
    ParseSettingsText(text.data(), static_cast<std::int32_t>(text.size()), s);
    return s;
}

std::string Written(const DisplaySettings& s) {
    const Text text = SettingsFileText(s);
    return std::string(text.Chars(), static_cast<std::size_t>(text.Length()));
}

TEST(SettingsFile, DefaultsAreWrittenByteForByteAndReadBack) {
    EXPECT_EQ(Written(DisplaySettings{}), defaultFile);
    for (const std::string& text : {std::string(), std::string("\r\n\r\n"), defaultFile})
        EXPECT_EQ(Written(Parse(text)), defaultFile);
}

TEST(SettingsFile, ChangedSettingsSurviveAWriteAndARead) {
    DisplaySettings s = Scrambled();
    s.skinFileName = Text("");
    EXPECT_EQ(Written(Parse(Written(s))), Written(s));
    s.skinFileName = Text("Marble");
    s.skinNumber = -1;
    EXPECT_NE(Written(s).find("FILE NAME = Marble\r\nNUMBER = -1\r\n"), std::string::npos);
    EXPECT_NE(Written(Parse(Written(s))).find("FILE NAME = Marble\r\nNUMBER = 0\r\n"), std::string::npos);
}

// Each text read, then written again: the line it must give.
TEST(SettingsFile, ReadsAsTheProfileFunctionsDo) {
    const struct {
        std::string text, line;
    } cases[] = {
        {"[SHOW]\r\nLEGAL MOVE = no\r\n", "LEGAL MOVE = YES"}, // only an upper-case NO turns a flag off
        {"  [ sound ]  \nbeep\t=   NO   \n", "BEEP = NO"},
        {"[Show]\nmovelist=NO\n", "MOVELIST = NO"},
        {"[SOUND]\r\nCHECK = NO\r\n[SHOW]\r\nBEEP = NO\r\n", "CHECK = YES\r\n"},
        {"[SHOW]\r\nSCALE OF BOARD = 50\r\n", "SCALE OF BOARD = 100"},
        {"[COLOR]\r\nBACKGROUND_RED = 300\r\nBACKGROUND_GREEN = 1\r\n",
         "RED = 128\r\nBACKGROUND_GREEN = 1\r"},
        {"[COLOR]\r\nINK_RED = 12abc\r\nINK_GREEN = -1\r\nINK_BLUE = +16\r\n",
         "INK_RED = 12\r\nINK_GREEN = 255\r\nINK_BLUE = 16\r"},
        {"[COLOR]\r\nINK_RED = abc\r\nINK_GREEN =\r\nINK_BLUE = 99999999999\r\n",
         "INK_RED = 0\r\nINK_GREEN = 255\r\nINK_BLUE = 255\r"},
        {"[SKIN]\r\nNUMBER = 6\r\n", "NUMBER = 6"},
        {"[SKIN]\r\nNUMBER = 7\r\n", "NUMBER = 0"},
        {"[SKIN]\r\nFILE NAME = " + std::string(80, 'x') + "\r\n", "= " + std::string(64, 'x') + "\r"},
    };
    for (const auto& c : cases)
        EXPECT_NE(Written(Parse(c.text)).find(c.line), std::string::npos) << c.text;
}

TEST(ClockText, HoursGrowPastTwoDigits) {
    EXPECT_STREQ(FormatClock(100 * 3600 + 59 * 60 + 9).Chars(), "100:59:09");
}

} // namespace
