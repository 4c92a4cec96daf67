// The window's rules that need no window: the Options dialog's skin rows and what OK takes over,
// which mark a square shows, the board turned with White on top, and the names a side may have.
#include <gtest/gtest.h>

#include "records/settings_file.h"
#include "shell/board_geometry.h"
#include "shell/name_rules.h"
#include "shell/options_rules.h"
#include "support/board_setup.h"

namespace {

// The skin list as the dialog fills it: the stock names, then two skin files.
std::vector<Text> Rows() {
    std::vector<Text> rows(std::begin(StockSkinNames), std::end(StockSkinNames));
    rows.emplace_back("marble");
    rows.emplace_back("wood");
    return rows;
}

TEST(Options, OkWithoutChangesLeavesEachSettingAndEachChoiceReachesItsOwn) {
    const std::vector<Text> rows = Rows();
    DisplaySettings settings;
    for (const char* file : {"wood", "woo", ""}) {
        settings.skinFileName = Text(file);
        settings.skinNumber = 3;
        EXPECT_EQ(InitialSkinRow(settings, rows.data(), static_cast<std::int32_t>(rows.size())),
                  *file == 0                    ? 3
                  : std::string(file) == "wood" ? 8
                                                : 0)
            << file;
    }
    EXPECT_TRUE(IsSkinFile("a.Bmp", 640, 448) && !IsSkinFile("a.bmpx", 640, 448) &&
                !IsSkinFile("a.bmp", 640, 449));
    const std::string stored = Str(SettingsFileText(settings));
    std::int32_t OptionsChoices::*flags[] = {
        &OptionsChoices::showLegalMoves, &OptionsChoices::showLastMove,    &OptionsChoices::showCheck,
        &OptionsChoices::showAiProgress, &OptionsChoices::showCoordinates, &OptionsChoices::showMovesList,
        &OptionsChoices::whiteOnTop,     &OptionsChoices::beepAfterMove,   &OptionsChoices::boardScale,
    };
    for (auto flag : flags) {
        DisplaySettings changed = settings;
        OptionsChoices choices = ChoicesFromSettings(changed, 3);
        ApplyChoices(choices, rows[3], changed);
        EXPECT_EQ(Str(SettingsFileText(changed)), stored);
        choices.*flag = choices.*flag == 0 ? 1 : choices.*flag == 1 ? 0 : 75;
        choices.skinRow = 8;
        ApplyChoices(choices, rows[8], changed);
        // The file name and number, and exactly the one line of the choice, change.
        const std::string now = Str(SettingsFileText(changed));
        int differing = 0;
        for (std::size_t i = 0, j = 0; i < stored.size();
             i = stored.find('\n', i) + 1, j = now.find('\n', j) + 1)
            differing += stored.compare(i, stored.find('\n', i) - i, now, j, now.find('\n', j) - j) != 0;
        EXPECT_EQ(differing, 3);
        EXPECT_NE(now.find("FILE NAME = wood\r\nNUMBER = -1"), std::string::npos);
    }
}

TEST(BoardView, MarksOutrankTargetsTheLastMoveAndCheckInTheirOrder) {
    static GameState s;
    ASSERT_TRUE(PlayLine(s, "e2e4"));
    DisplaySettings settings;
    BoardViewFacts facts{1, false, White, false, 4, 0};
    auto column = [&](Word file, Word row) {
        return TileColumnOf(s, settings, facts, 7 - row, file, file, row);
    };
    EXPECT_EQ(column(4, 3), TileColumnLastMove);
    s.board[3][4].legalTarget = 1;
    EXPECT_EQ(column(4, 3), TileColumnLastMove); // targets show only with a piece selected
    facts.pieceSelected = true;
    EXPECT_EQ(column(4, 3), TileColumnTarget);
    facts = {1, true, White, true, 4, 3};
    EXPECT_EQ(column(4, 3), TileColumnAlert);
    facts = {0, false, White, false, 4, 0};
    s.board[2][4].mark = MarkRefused;
    s.board[3][4].mark = MarkTo;
    EXPECT_EQ(column(4, 2), TileColumnAlert);
    EXPECT_EQ(column(4, 3), TileColumnTarget);
    s.setupMode = 1;
    EXPECT_EQ(column(4, 0), TileColumnDark);
    settings.whiteOnTop = 1;
    Word file = -1, row = -1;
    ASSERT_TRUE(HitTestSquare(settings, 25, 25, file, row));
    EXPECT_EQ(SquareName(file, row), "h1");
}

TEST(NameRules, RefuseExactlyTheCharactersAFileNameCannotHold) {
    std::string refused;
    for (std::uint32_t c = 1; c < 256; ++c)
        if (IsRefusedInName(c)) refused += static_cast<char>(c);
    EXPECT_EQ(refused, "\"*/:<>?\\|");
    EXPECT_STREQ(MissingNameMessage("", ""), "Please enter name (WHITE AND BLACK SIDES)");
    EXPECT_EQ(MissingNameMessage("Ann", "Computer {Velok-3}"), nullptr);
}

} // namespace
