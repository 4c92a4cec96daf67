// The settings file as the profile functions read it and as the program writes it, the user tag
// in its name, and the clock text the panel and the game files share.
#include <gtest/gtest.h>

#include <string>

#include "records/clock_text.h"
#include "records/settings_file.h"

namespace {

// The file the program writes with every setting at its default.
const std::string defaultFile = "[SHOW]\r\n"
                                "LEGAL MOVE = YES\r\n"
                                "CHECK = YES\r\n"
                                "LAST MOVE = YES\r\n"
                                "COORDINATES = YES\r\n"
                                "WHITE ON TOP = NO\r\n"
                                "MOVELIST = YES\r\n"
                                "AI PROGRESS = YES\r\n"
                                "SCALE OF BOARD = 100\r\n"
                                "\r\n"
                                "[SOUND]\r\n"
                                "BEEP = YES\r\n"
                                "\r\n"
                                "[COLOR]\r\n"
                                "BACKGROUND_RED = 128\r\n"
                                "BACKGROUND_GREEN = 128\r\n"
                                "BACKGROUND_BLUE = 128\r\n"
                                "INK_RED = 255\r\n"
                                "INK_GREEN = 255\r\n"
                                "INK_BLUE = 255\r\n"
                                "\r\n"
                                "[SKIN]\r\n"
                                "FILE NAME = \r\n"
                                "NUMBER = 0\r\n";

// Settings that differ from the defaults in every field, so a parse must overwrite each one.
DisplaySettings Scrambled() {
    DisplaySettings s;
    s.showLegalMoves = s.showCheck = s.showLastMove = s.showCoordinates = 0;
    s.whiteOnTop = 1;
    s.showMovesList = s.showAiProgress = s.beepAfterMove = 0;
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

void ExpectDefaults(const DisplaySettings& s) {
    EXPECT_EQ(Written(s), defaultFile);
}

std::string Tag(const std::u16string& name) {
    const Text tag = UserTagFromName(reinterpret_cast<const std::uint16_t*>(name.data()),
                                     static_cast<std::int32_t>(name.size()));
    return tag.Chars();
}

TEST(SettingsFile, DefaultsAreWrittenByteForByte) {
    EXPECT_EQ(Written(DisplaySettings{}), defaultFile);
}

TEST(SettingsFile, EmptyTextGivesTheSameAsNoFile) {
    ExpectDefaults(Parse(""));
    ExpectDefaults(Parse("\r\n\r\n"));
}

TEST(SettingsFile, DefaultFileReadsBackAsDefaults) {
    ExpectDefaults(Parse(defaultFile));
}

TEST(SettingsFile, ChangedSettingsSurviveAWriteAndARead) {
    DisplaySettings s = Scrambled();
    s.skinFileName = Text("");
    const DisplaySettings back = Parse(Written(s));
    EXPECT_EQ(Written(back), Written(s));
}

TEST(SettingsFile, OnlyUpperCaseNoTurnsAFlagOff) {
    EXPECT_EQ(Parse("[SHOW]\r\nLEGAL MOVE = no\r\n").showLegalMoves, 1);
    EXPECT_EQ(Parse("[SHOW]\r\nLEGAL MOVE = NO\r\n").showLegalMoves, 0);
    EXPECT_EQ(Parse("[SHOW]\r\nLEGAL MOVE = \r\n").showLegalMoves, 1);
    EXPECT_EQ(Parse("[SHOW]\r\nWHITE ON TOP = yes\r\n").whiteOnTop, 0);
    EXPECT_EQ(Parse("[SHOW]\r\nWHITE ON TOP = YES\r\n").whiteOnTop, 1);
}

TEST(SettingsFile, KeysAndValuesAreTrimmedAndNamesIgnoreCase) {
    const DisplaySettings s = Parse("  [ sound ]  \nbeep\t=   NO   \n[Show]\nmovelist=NO\n");
    EXPECT_EQ(s.beepAfterMove, 0);
    EXPECT_EQ(s.showMovesList, 0);
    EXPECT_EQ(s.showCheck, 1);
}

TEST(SettingsFile, AKeyCountsOnlyInItsOwnSection) {
    const DisplaySettings s = Parse("[SOUND]\r\nCHECK = NO\r\n[SHOW]\r\nBEEP = NO\r\n");
    EXPECT_EQ(s.showCheck, 1);
    EXPECT_EQ(s.beepAfterMove, 1);
}

TEST(SettingsFile, ScaleIsSeventyFiveOrElseAHundred) {
    EXPECT_EQ(Parse("[SHOW]\r\nSCALE OF BOARD = 75\r\n").boardScale, 75);
    const DisplaySettings fifty = Parse("[SHOW]\r\nSCALE OF BOARD = 50\r\n");
    EXPECT_EQ(fifty.boardScale, 100);
    EXPECT_NE(Written(fifty).find("SCALE OF BOARD = 100\r\n"), std::string::npos);
}

TEST(SettingsFile, ColourKeysFallBackOneByOne) {
    const DisplaySettings s =
        Parse("[COLOR]\r\nBACKGROUND_RED = 300\r\nBACKGROUND_GREEN = 1\r\nBACKGROUND_BLUE = 2\r\n"
              "INK_RED = 0\r\nINK_GREEN = -1\r\nINK_BLUE = 16\r\n");
    EXPECT_EQ(s.backgroundColor, 0x800102u);
    EXPECT_EQ(s.inkColor, 0x00FF10u);
}

TEST(SettingsFile, NumbersReadAsTheProfileFunctionsDo) {
    EXPECT_EQ(Parse("[COLOR]\r\nINK_RED = 12abc\r\n").inkColor, 0x0CFFFFu);
    EXPECT_EQ(Parse("[COLOR]\r\nINK_RED = abc\r\n").inkColor, 0x00FFFFu);
    EXPECT_EQ(Parse("[COLOR]\r\nINK_RED =\r\n").inkColor, 0xFFFFFFu);
    EXPECT_EQ(Parse("[COLOR]\r\nINK_RED = 99999999999\r\n").inkColor, 0xFFFFFFu);
}

TEST(SettingsFile, SkinFileIsWrittenWithMinusOneAndReadBackAsZero) {
    DisplaySettings s;
    s.skinFileName = Text("Marble");
    s.skinNumber = -1;
    const std::string written = Written(s);
    EXPECT_NE(written.find("FILE NAME = Marble\r\nNUMBER = -1\r\n"), std::string::npos);
    const DisplaySettings back = Parse(written);
    EXPECT_STREQ(back.skinFileName.Chars(), "Marble");
    EXPECT_EQ(back.skinNumber, 0);
}

TEST(SettingsFile, SkinNumberOutsideTheStockSkinsIsZero) {
    EXPECT_EQ(Parse("[SKIN]\r\nNUMBER = 6\r\n").skinNumber, 6);
    EXPECT_EQ(Parse("[SKIN]\r\nNUMBER = 7\r\n").skinNumber, 0);
}

TEST(SettingsFile, SkinFileNameIsCutAtSixtyFourCharacters) {
    const std::string longName(80, 'x');
    EXPECT_EQ(std::string(Parse("[SKIN]\r\nFILE NAME = " + longName + "\r\n").skinFileName.Chars()),
              std::string(64, 'x'));
}

TEST(UserTag, IsTheFnvHashOfTheUtf16Name) {
    EXPECT_EQ(Tag(u"Alice"), "6A68E7F7");
    EXPECT_EQ(Tag(u"J\u00fcrgen"), "A6743265");
    EXPECT_EQ(Tag(u""), "811C9DC5");
}

TEST(UserTag, SeparatesNamesThatDifferOnlyInCase) {
    EXPECT_NE(Tag(u"alice"), Tag(u"Alice"));
}

TEST(UserTag, GivesTheSettingsFileName) {
    EXPECT_STREQ(SettingsFileName(Text("6A68E7F7")).Chars(), "velok-3 {6A68E7F7}.ini");
}

TEST(ClockText, ShowsHoursMinutesAndSecondsWithLeadingZeros) {
    EXPECT_STREQ(FormatClock(0).Chars(), "00:00:00");
    EXPECT_STREQ(FormatClock(65).Chars(), "00:01:05");
    EXPECT_STREQ(FormatClock(3600 + 59 * 60 + 59).Chars(), "01:59:59");
    EXPECT_STREQ(FormatClock(100 * 3600).Chars(), "100:00:00");
}

} // namespace
