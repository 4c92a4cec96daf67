// The Options dialog's rules: which skin files are listed, which row opens selected, what OK and
// Apply take over into the settings and the file, and the colour pair picked from a skin's squares.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "records/settings_file.h"
#include "shell/options_rules.h"

namespace {

// The list as the dialog fills it: the stock names, then the given file rows.
std::vector<Text> ListWith(std::initializer_list<const char*> files) {
    std::vector<Text> rows;
    for (const char* name : StockSkinNames)
        rows.emplace_back(name);
    for (const char* name : files)
        rows.emplace_back(name);
    return rows;
}

std::int32_t OpeningRow(const DisplaySettings& settings, const std::vector<Text>& rows) {
    return InitialSkinRow(settings, rows.data(), static_cast<std::int32_t>(rows.size()));
}

DisplaySettings WithSkinFile(const char* name) {
    DisplaySettings settings;
    settings.skinFileName = Text(name);
    settings.skinNumber = 0;
    return settings;
}

std::string FileText(const DisplaySettings& settings) {
    const Text text = SettingsFileText(settings);
    return std::string(text.Chars(), static_cast<std::size_t>(text.Length()));
}

// How many CR LF lines of two texts of the same line count differ.
int LinesDiffering(const std::string& a, const std::string& b) {
    int differing = 0;
    std::size_t i = 0, j = 0;
    while (i < a.size() && j < b.size()) {
        const std::size_t endA = a.find("\r\n", i), endB = b.find("\r\n", j);
        if (a.compare(i, endA - i, b, j, endB - j) != 0) ++differing;
        i = endA + 2;
        j = endB + 2;
    }
    return differing;
}

// Sums for a tile whose pixels alternate between two colours, like a checked pattern.
TileSums SumsOf(std::uint32_t even, std::uint32_t odd) {
    TileSums sums;
    for (std::int32_t k = 0; k < SkinTilePixels * SkinTilePixels; ++k)
        sums.Add(k % 2 == 0 ? even : odd);
    return sums;
}

TEST(SkinFiles, OnlyBitmapsOfTheSkinSizeAreListed) {
    EXPECT_TRUE(IsSkinFile("marble.bmp", 640, 448));
    EXPECT_FALSE(IsSkinFile("marble.bmp", 448, 640));
    EXPECT_FALSE(IsSkinFile("marble.bmp", 320, 224));
    EXPECT_FALSE(IsSkinFile("marble.bmp", 640, 449));
    EXPECT_FALSE(IsSkinFile("marble.bmp", 0, 0));
}

TEST(SkinFiles, TheExtensionMustBeBmpInAnyCase) {
    EXPECT_TRUE(IsSkinFile("Marble.BMP", 640, 448));
    EXPECT_TRUE(IsSkinFile("a.Bmp", 640, 448));
    EXPECT_FALSE(IsSkinFile("marble.bmpx", 640, 448));
    EXPECT_FALSE(IsSkinFile("marble_bmp", 640, 448));
    EXPECT_FALSE(IsSkinFile(".bmp", 640, 448));
}

TEST(SkinFiles, ARowIsTheNameWithoutItsExtension) {
    EXPECT_STREQ(SkinRowName("marble.bmp").Chars(), "marble");
    EXPECT_STREQ(SkinRowName("my.old skin.BMP").Chars(), "my.old skin");
    EXPECT_STREQ(SkinRowName("x.bmp").Chars(), "x");
}

TEST(OpeningRow, AStockSkinOpensOnItsNumber) {
    const std::vector<Text> rows = ListWith({"marble"});
    DisplaySettings settings;
    for (std::int32_t number = 0; number < StockSkinCount; ++number) {
        settings.skinNumber = number;
        EXPECT_EQ(OpeningRow(settings, rows), number);
    }
}

TEST(OpeningRow, ANumberOutOfRangeOpensOnTheFirstRow) {
    const std::vector<Text> rows = ListWith({"marble", "wood"});
    DisplaySettings settings;
    for (std::int32_t number : {-1, 7, 8, 100}) {
        settings.skinNumber = number;
        EXPECT_EQ(OpeningRow(settings, rows), 0) << number;
    }
}

TEST(OpeningRow, ASkinFileOpensOnItsRow) {
    const std::vector<Text> rows = ListWith({"marble", "wood", "glass"});
    EXPECT_EQ(OpeningRow(WithSkinFile("wood"), rows), 8);
    EXPECT_EQ(OpeningRow(WithSkinFile("glass"), rows), 9);
}

TEST(OpeningRow, ARemovedSkinFileOpensOnTheFirstRow) {
    EXPECT_EQ(OpeningRow(WithSkinFile("wood"), ListWith({"marble"})), 0);
    EXPECT_EQ(OpeningRow(WithSkinFile("wood"), ListWith({})), 0);
    // Rows compare whole: a longer or shorter name is another file.
    EXPECT_EQ(OpeningRow(WithSkinFile("woo"), ListWith({"wood"})), 0);
    EXPECT_EQ(OpeningRow(WithSkinFile("wood"), ListWith({"wood2"})), 0);
}

TEST(OpeningRow, AFileNamedLikeAStockSkinIsLookedForAmongTheFiles) {
    const std::vector<Text> rows = ListWith({"marble", "3. Old"});
    EXPECT_EQ(OpeningRow(WithSkinFile("3. Old"), rows), 8);
    EXPECT_EQ(OpeningRow(WithSkinFile("1. Book"), rows), 0);
}

TEST(TakingOver, AStockRowClearsTheFileName) {
    DisplaySettings settings = WithSkinFile("marble");
    settings.skinNumber = -1;
    OptionsChoices choices = ChoicesFromSettings(settings, 4);
    ApplyChoices(choices, Text("5. Modern"), settings);
    EXPECT_EQ(settings.skinNumber, 4);
    EXPECT_EQ(settings.skinFileName.Length(), 0);
}

TEST(TakingOver, AFileRowStoresItsNameAndNoNumber) {
    DisplaySettings settings;
    settings.skinNumber = 3;
    OptionsChoices choices = ChoicesFromSettings(settings, 9);
    ApplyChoices(choices, Text("wood"), settings);
    EXPECT_EQ(settings.skinNumber, -1);
    EXPECT_STREQ(settings.skinFileName.Chars(), "wood");
    EXPECT_NE(FileText(settings).find("\r\nFILE NAME = wood\r\nNUMBER = -1\r\n"), std::string::npos);
}

TEST(TakingOver, EachChoiceReachesItsOwnSetting) {
    // One choice changed at a time, so that two crossed fields cannot hide each other.
    std::int32_t OptionsChoices::*flags[] = {
        &OptionsChoices::showLegalMoves, &OptionsChoices::showLastMove,    &OptionsChoices::showCheck,
        &OptionsChoices::showAiProgress, &OptionsChoices::showCoordinates, &OptionsChoices::showMovesList,
        &OptionsChoices::whiteOnTop,     &OptionsChoices::beepAfterMove,
    };
    std::int32_t DisplaySettings::*fields[] = {
        &DisplaySettings::showLegalMoves, &DisplaySettings::showLastMove,    &DisplaySettings::showCheck,
        &DisplaySettings::showAiProgress, &DisplaySettings::showCoordinates, &DisplaySettings::showMovesList,
        &DisplaySettings::whiteOnTop,     &DisplaySettings::beepAfterMove,
    };
    for (std::size_t k = 0; k < std::size(flags); ++k) {
        DisplaySettings settings;
        OptionsChoices choices = ChoicesFromSettings(settings, 0);
        choices.*flags[k] = 1 - choices.*flags[k];
        const std::string before = FileText(settings);
        ApplyChoices(choices, Text(StockSkinNames[0]), settings);
        EXPECT_EQ(settings.*fields[k], choices.*flags[k]) << k;
        // Exactly one line of the file changes.
        EXPECT_EQ(LinesDiffering(before, FileText(settings)), 1) << k;
    }
}

TEST(TakingOver, ColoursAndScaleAreTakenAsChosen) {
    DisplaySettings settings;
    OptionsChoices choices = ChoicesFromSettings(settings, 0);
    choices.background = 0x123456;
    choices.ink = 0xABCDEF;
    choices.boardScale = 75;
    ApplyChoices(choices, Text(StockSkinNames[0]), settings);
    EXPECT_EQ(settings.backgroundColor, 0x123456u);
    EXPECT_EQ(settings.inkColor, 0xABCDEFu);
    EXPECT_EQ(settings.boardScale, 75);
    choices.boardScale = 50;
    ApplyChoices(choices, Text(StockSkinNames[0]), settings);
    EXPECT_EQ(settings.boardScale, 100);
}

TEST(TakingOver, OkWithoutChangesLeavesTheFileAsItWas) {
    const std::string stored =
        "[SHOW]\r\nLEGAL MOVE = NO\r\nCHECK = YES\r\nLAST MOVE = NO\r\n"
        "COORDINATES = NO\r\nWHITE ON TOP = YES\r\nMOVELIST = NO\r\nAI PROGRESS = NO\r\n"
        "SCALE OF BOARD = 75\r\n\r\n[SOUND]\r\nBEEP = NO\r\n\r\n[COLOR]\r\n"
        "BACKGROUND_RED = 1\r\nBACKGROUND_GREEN = 2\r\nBACKGROUND_BLUE = 3\r\n"
        "INK_RED = 250\r\nINK_GREEN = 251\r\nINK_BLUE = 252\r\n\r\n[SKIN]\r\n"
        "FILE NAME = wood\r\nNUMBER = -1\r\n";
    DisplaySettings settings;
    ParseSettingsText(stored.c_str(), static_cast<std::int32_t>(stored.size()), settings);
    const std::vector<Text> rows = ListWith({"marble", "wood"});
    const std::int32_t row = OpeningRow(settings, rows);
    ApplyChoices(ChoicesFromSettings(settings, row), rows[row], settings);
    EXPECT_EQ(FileText(settings), stored);
}

TEST(TakingOver, DefaultsGiveTheFileOfAFreshStart) {
    DisplaySettings settings = WithSkinFile("wood");
    settings.skinNumber = -1;
    settings.showCheck = 0;
    settings.whiteOnTop = 1;
    settings.boardScale = 75;
    settings.backgroundColor = 0x010203;
    settings.inkColor = 0;
    ApplyChoices(DefaultChoices(), Text(StockSkinNames[0]), settings);
    EXPECT_EQ(FileText(settings), FileText(DisplaySettings()));
}

TEST(PickedColours, AverageOfEachByteDarkenedAndBrightened) {
    // Bytes 0x78, 0x50, 0x28 lose a tenth: 108, 72, 36; 0x50 and 0xC8 gain a fifth: 96, 240;
    // 0xE0 would pass 255.
    const PickedColours picked = PickColours(SumsOf(0x285078, 0x285078), SumsOf(0xE0C850, 0xE0C850));
    EXPECT_EQ(picked.background, 0x24486Cu);
    EXPECT_EQ(picked.ink, 0xFFF060u);
}

TEST(PickedColours, InkBytesStopAt255) {
    // 224 + 44 and 255 + 51 would overflow a byte; 212 + 42 just fits.
    const PickedColours picked = PickColours(SumsOf(0, 0), SumsOf(0xE0FFD4, 0xE0FFD4));
    EXPECT_EQ(picked.ink, 0xFFFFFEu);
    EXPECT_EQ(picked.background, 0u);
}

TEST(PickedColours, AveragesAndFractionsAreTruncated) {
    // Half the pixels 10, half 11: average 10.5 gives 10, less 1 is 9. Light 24 and 25: 24 + 4.
    const PickedColours picked = PickColours(SumsOf(0x0A0A0A, 0x0B0B0B), SumsOf(0x181818, 0x191919));
    EXPECT_EQ(picked.background, 0x090909u);
    EXPECT_EQ(picked.ink, 0x1C1C1Cu);
}

TEST(PickedColours, ByteRowsStayInTheirPlace) {
    const PickedColours picked = PickColours(SumsOf(0x0000C8, 0x0000C8), SumsOf(0x640000, 0x640000));
    EXPECT_EQ(picked.background, 0x0000B4u);
    EXPECT_EQ(picked.ink, 0x780000u);
}

} // namespace
