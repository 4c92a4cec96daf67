// The skins and colours of the Options dialog: skin files dropped into SKIN listed only at the
// right size, previewed, used and remembered; colours picked from a skin; Cancel after "Set to
// default" taking nothing over.
#include <windows.h>

#include <cctype>
#include <cmath>

#include "options_view.h"
#include "report.h"
#include "scenarios.h"
#include "steps.h"

namespace e2e {

namespace {

constexpr COLORREF DefaultBackground = RGB(128, 128, 128);
constexpr COLORREF DefaultInk = RGB(255, 255, 255);
// The edits of the colour dialog that hold the chosen colour's channels.
enum ColourDialogEdit : int { ColourRedEdit = 706, ColourGreenEdit = 707, ColourBlueEdit = 708 };
constexpr const char* StockNames[7] = {"1. Book",   "2. Classic", "3. Old",  "4. Bright",
                                       "5. Modern", "6. Desk",    "7. Clear"};

std::vector<std::string> StockRowsAnd(const std::vector<std::string>& files) {
    std::vector<std::string> rows(StockNames, StockNames + 7);
    rows.insert(rows.end(), files.begin(), files.end());
    return rows;
}

std::string Joined(const std::vector<std::string>& rows) {
    std::string text;
    for (const std::string& row : rows)
        text += (text.empty() ? "" : "|") + row;
    return text;
}

// Scaling a bitmap of the screen's kind and one from a file may round apart at the edges of the
// pieces; a few hundred of the board's 65536 pixels, where another skin differs in nearly all.
constexpr int PreviewTolerance = 1300;

// Pixels of the preview's board, White at the bottom, that differ noticeably from the tiles of
// `half`; the scaling may round a channel here and there, so small differences do not count.
int PreviewDifference(const Image& preview, const Image& half, const Placement& placement) {
    int differing = 0;
    for (int i = 0; i < 8; ++i) {
        for (int j = 0; j < 8; ++j) {
            char piece = placement.At(j, 7 - i);
            int row = piece == '.' ? 0 : static_cast<int>(std::string(".pnbrqk").find(std::tolower(piece)));
            int column = (i % 2 == j % 2 ? 1 : 0) + (piece >= 'a' && piece <= 'z' ? 5 : 0);
            differing +=
                CompareAreas(preview, 1 + 32 * j, 1 + 32 * i, half, 32 * column, 32 * row, 32, 32, 24).pixels;
        }
    }
    return differing;
}

// The board of the start position shows `skin`, White at the bottom, at scale 100.
bool ShowsStartIn(Program& program, const Image& skin, Image* shown) {
    BoardView view{&skin, 64, false};
    return WaitForScreen(
        program,
        [&](const Image& now) { return SquaresDiffering(now, view, Placement(StartPlacement)).empty(); },
        ShortWait, shown);
}

// The colour pair a skin gives: the average of each channel over the dark and the light empty
// square, the first less a tenth, the second plus a fifth up to 255.
struct ColourPair {
    COLORREF background;
    COLORREF ink;
};
ColourPair ExpectedPick(const Image& skin) {
    double sums[2][3] = {};
    for (int square = 0; square < 2; ++square) {
        for (int y = 0; y < 64; ++y) {
            for (int x = 0; x < 64; ++x) {
                COLORREF pixel = skin.Pixel(64 * square + x, y);
                sums[square][0] += GetRValue(pixel);
                sums[square][1] += GetGValue(pixel);
                sums[square][2] += GetBValue(pixel);
            }
        }
    }
    int dark[3], light[3];
    for (int k = 0; k < 3; ++k) {
        int a = static_cast<int>(sums[0][k] / 4096);
        dark[k] = a - static_cast<int>(std::trunc(a * 0.1));
        int b = static_cast<int>(sums[1][k] / 4096);
        light[k] = std::min(255, b + static_cast<int>(std::trunc(b * 0.2)));
    }
    return {RGB(dark[0], dark[1], dark[2]), RGB(light[0], light[1], light[2])};
}

// The screen around a control, wide enough to hold the frame of its group box.
Image CaptureAround(HWND dialog, int id) {
    RECT frame{};
    GetWindowRect(GetDlgItem(dialog, id), &frame);
    return CaptureScreen(frame.left - 12, frame.top - 24, frame.right - frame.left + 24,
                         frame.bottom - frame.top + 36);
}

std::string Hex(COLORREF colour) {
    char text[16];
    std::snprintf(text, sizeof text, "%06lX", static_cast<unsigned long>(colour));
    return text;
}

} // namespace

void OptionsSkinFiles() {
    std::string settingsName = LearnSettingsFileName();
    ProgramSkin stock = LoadProgramSkin(".\\velok3.exe");
    if (stock.full.Empty()) Abort("stock skin readable from velok3.exe", "bitmap 133 not found");
    Image inverted = InvertedSkin(stock.full);
    CreateDirectoryA("SKIN", nullptr);
    if (!SaveBmp(inverted, "SKIN\\inverted.bmp") ||
        !SaveBmp(ScaledSkin(stock.full, 320, 224), "SKIN\\small.bmp"))
        Abort("skin files written", "SKIN\\inverted.bmp, SKIN\\small.bmp");
    WriteWholeFile("SKIN\\broken.bmp", "BM this is no bitmap");

    Program program;
    program.Start();
    HWND dialog = OpenOptions(program);
    std::vector<std::string> rows = SkinRows(dialog);
    Check(rows == StockRowsAnd({"inverted"}), "the list holds the stock skins and only the file of skin size",
          Joined(rows));
    Check(SelectedSkinRow(dialog) == 0, "the first stock skin opens selected");
    Placement start(StartPlacement);
    Image preview;
    Image stockHalf = ScaledSkin(stock.full, 320, 224);
    bool stockShown = program.WaitUntil(
        [&] {
            preview = CaptureControl(dialog, OptionsPreview);
            return PreviewDifference(preview, stockHalf, start) < PreviewTolerance;
        },
        ShortWait);
    Check(stockShown, "the preview shows the position in the stock skin at half size",
          std::to_string(PreviewDifference(preview, stockHalf, start)) + " pixels differ");
    Check(preview.Pixel(0, 0) == DefaultBackground && preview.Pixel(1, 1) != DefaultBackground,
          "the preview is framed in the background colour");
    Image half = ScaledSkin(inverted, 320, 224);
    Check(PreviewDifference(preview, half, start) > 20 * PreviewTolerance,
          "the stock preview is far from the file skin's, so the next check can tell them apart");
    SelectSkinRow(dialog, 7);
    bool previewed = program.WaitUntil(
        [&] {
            return PreviewDifference(CaptureControl(dialog, OptionsPreview), half, start) < PreviewTolerance;
        },
        ShortWait);
    Screenshot("file skin previewed");
    Check(previewed, "selecting the file shows it in the preview",
          std::to_string(PreviewDifference(CaptureControl(dialog, OptionsPreview), half, start)) +
              " pixels differ");
    program.PressButton(dialog, OptionsOk, ClosesDialog);
    Image shown;
    Check(ShowsStartIn(program, inverted, &shown), "OK draws the board in the file skin",
          "squares differing: " + SquaresDiffering(shown, BoardView{&inverted, 64, false}, start));
    program.Command(CommandExit);
    Check(program.WaitForExit(ShortWait * 2) == 0, "the program ends with 0");
    std::string written = ReadWholeFile(settingsName);
    Check(SettingsLine(written, "FILE NAME") == "FILE NAME = inverted" &&
              SettingsLine(written, "NUMBER") == "NUMBER = -1",
          "the file skin is stored by name with number -1",
          SettingsLine(written, "FILE NAME") + " / " + SettingsLine(written, "NUMBER"));

    Program second;
    second.Start("velok3.exe, second run");
    Check(ShowsStartIn(second, inverted, &shown), "the next start draws the file skin");
    dialog = OpenOptions(second);
    Check(SelectedSkinRow(dialog) == 7, "the dialog opens on the file's row",
          std::to_string(SelectedSkinRow(dialog)));
    second.PressButton(dialog, OptionsCancel, ClosesDialog);
    second.Command(CommandExit);
    second.WaitForExit(ShortWait * 2);

    DeleteFileA("SKIN\\inverted.bmp");
    Program third;
    third.Start("velok3.exe, third run");
    Check(ShowsStartIn(third, stock.full, &shown),
          "with the file gone the board falls back to the first skin");
    dialog = OpenOptions(third);
    rows = SkinRows(dialog);
    Check(rows == StockRowsAnd({}) && SelectedSkinRow(dialog) == 0,
          "with the file gone the dialog opens on the first row", Joined(rows));
    third.PressButton(dialog, OptionsCancel, ClosesDialog);
    third.Command(CommandExit);
    third.WaitForExit(ShortWait * 2);
}

void OptionsColours() {
    std::string settingsName = LearnSettingsFileName();
    Image old = LoadStockSkinImage(".\\velok3.exe", 2);
    if (old.Empty()) Abort("stock skin 3 readable from velok3.exe", "bitmap 135 not found");
    Program program;
    program.Start();
    HWND dialog = OpenOptions(program);
    bool swatches = program.WaitUntil(
        [&] {
            return SwatchColour(dialog, OptionsBackground) == DefaultBackground &&
                   SwatchColour(dialog, OptionsInk) == DefaultInk;
        },
        ShortWait);
    Check(swatches, "the swatches show the present colours",
          Hex(SwatchColour(dialog, OptionsBackground)) + " and " + Hex(SwatchColour(dialog, OptionsInk)));

    program.PressButton(dialog, OptionsBackground, KeepsOpen);
    HWND colourDialog = program.WaitForDialog("Color");
    program.PressButton(colourDialog, IDCANCEL, ClosesDialog);
    Check(SwatchColour(dialog, OptionsBackground) == DefaultBackground,
          "Cancel in the colour dialog keeps the background");

    // The colour dialog's edits for red, green and blue take a colour as typed.
    program.PressButton(dialog, OptionsInk, KeepsOpen);
    colourDialog = program.WaitForDialog("Color");
    const int channelEdits[3] = {ColourRedEdit, ColourGreenEdit, ColourBlueEdit};
    const char* typed[3] = {"10", "20", "30"};
    for (int k = 0; k < 3; ++k)
        program.SetText(colourDialog, channelEdits[k], typed[k]);
    program.PressButton(colourDialog, IDOK, ClosesDialog);
    bool chosen =
        program.WaitUntil([&] { return SwatchColour(dialog, OptionsInk) == RGB(10, 20, 30); }, ShortWait);
    Check(chosen, "OK in the colour dialog makes its colour the ink", Hex(SwatchColour(dialog, OptionsInk)));

    SelectSkinRow(dialog, 2);
    Image soundBefore = CaptureAround(dialog, OptionsBeep);
    program.PressButton(dialog, OptionsPick, KeepsOpen);
    ColourPair expected = ExpectedPick(old);
    bool picked = program.WaitUntil(
        [&] {
            return SwatchColour(dialog, OptionsBackground) == expected.background &&
                   SwatchColour(dialog, OptionsInk) == expected.ink;
        },
        ShortWait);
    Screenshot("colours picked from the third skin");
    Check(picked, "Pick from skin: background " + Hex(expected.background) + ", ink " + Hex(expected.ink),
          "swatches show " + Hex(SwatchColour(dialog, OptionsBackground)) + " and " +
              Hex(SwatchColour(dialog, OptionsInk)));
    Image soundAfter = CaptureAround(dialog, OptionsBeep);
    Check(CompareAreas(soundBefore, 0, 0, soundAfter, 0, 0, soundAfter.width, soundAfter.height, 0).pixels ==
              0,
          "the dialog drawn anew keeps the frame of the Sound group");
    MoveAside(dialog);
    Image shown = program.CaptureClient();
    Check(shown.Pixel(690, 10) == DefaultBackground, "the window keeps its colours until OK");
    program.PressButton(dialog, OptionsOk, ClosesDialog);
    bool coloured = WaitForScreen(
        program,
        [&](const Image& now) {
            return now.Pixel(690, 10) == expected.background && now.Pixel(551, 200) == expected.ink;
        },
        ShortWait, &shown);
    Check(coloured, "OK paints the window in the picked colours",
          Hex(shown.Pixel(690, 10)) + " and frame " + Hex(shown.Pixel(551, 200)));
    Check(ShowsStartIn(program, old, &shown), "and the board in the third skin");
    program.Command(CommandExit);
    program.WaitForExit(ShortWait * 2);
    // The _RED key holds bits 16 to 23 of the colour, which GDI calls blue.
    std::string written = ReadWholeFile(settingsName);
    std::string keys[6] = {"BACKGROUND_RED", "BACKGROUND_GREEN", "BACKGROUND_BLUE",
                           "INK_RED",        "INK_GREEN",        "INK_BLUE"};
    COLORREF colours[2] = {expected.background, expected.ink};
    for (int k = 0; k < 6; ++k) {
        int value = static_cast<int>(colours[k / 3] >> (16 - 8 * (k % 3)) & 0xFF);
        std::string line = keys[k] + " = " + std::to_string(value);
        Check(SettingsLine(written, keys[k]) == line, "the file holds " + line,
              SettingsLine(written, keys[k]));
    }
    Check(SettingsLine(written, "NUMBER") == "NUMBER = 2", "the file holds the third skin's number");
}

void OptionsCancelKeepsAll() {
    std::string settingsName = LearnSettingsFileName();
    std::vector<std::string> lines = {"[SHOW]",
                                      "LEGAL MOVE = NO",
                                      "CHECK = YES",
                                      "LAST MOVE = NO",
                                      "COORDINATES = NO",
                                      "WHITE ON TOP = YES",
                                      "MOVELIST = YES",
                                      "AI PROGRESS = NO",
                                      "SCALE OF BOARD = 75",
                                      "",
                                      "[SOUND]",
                                      "BEEP = NO",
                                      "",
                                      "[COLOR]",
                                      "BACKGROUND_RED = 0",
                                      "BACKGROUND_GREEN = 64",
                                      "BACKGROUND_BLUE = 32",
                                      "INK_RED = 200",
                                      "INK_GREEN = 220",
                                      "INK_BLUE = 240",
                                      "",
                                      "[SKIN]",
                                      "FILE NAME = ",
                                      "NUMBER = 3"};
    const std::string stored = CrLfLines(lines);
    WriteWholeFile(settingsName, stored);
    const COLORREF background = RGB(32, 64, 0);
    Program program;
    program.Start();
    Image before;
    WaitForScreen(
        program, [&](const Image& now) { return now.Pixel(560, 10) == background; }, ShortWait);
    Sleep(300);
    before = program.CaptureClient();
    SIZE size = program.ClientSize();

    HWND dialog = OpenOptions(program);
    const bool fromFile[8] = {false, false, true, false, false, true, true, false};
    int differing = 0;
    for (int k = 0; k < 8; ++k)
        differing += IsChecked(dialog, OptionsCheckBoxes[k]) != fromFile[k];
    program.WaitUntil([&] { return SwatchColour(dialog, OptionsBackground) == background; }, ShortWait);
    Check(differing == 0 && IsChecked(dialog, OptionsScale75) && SelectedSkinRow(dialog) == 3 &&
              SwatchColour(dialog, OptionsBackground) == background,
          "the dialog opens with the choices of the file",
          std::to_string(differing) + " boxes differ, row " + std::to_string(SelectedSkinRow(dialog)) +
              ", background " + Hex(SwatchColour(dialog, OptionsBackground)));
    // The press is posted, and the reads below are sent, which the dialog may answer first.
    program.PressButton(dialog, OptionsDefault, KeepsOpen);
    auto showsDefaults = [&] {
        differing = 0;
        for (int k = 0; k < 8; ++k)
            differing +=
                IsChecked(dialog, OptionsCheckBoxes[k]) != (OptionsCheckBoxes[k] != OptionsWhiteOnTop);
        return differing == 0 && IsChecked(dialog, OptionsScale100) && !IsChecked(dialog, OptionsScale75) &&
               SelectedSkinRow(dialog) == 0 && SwatchColour(dialog, OptionsBackground) == DefaultBackground &&
               SwatchColour(dialog, OptionsInk) == DefaultInk;
    };
    Check(program.WaitUntil(showsDefaults, ShortWait), "Set to default shows the defaults in the dialog",
          std::to_string(differing) + " boxes differ, row " + std::to_string(SelectedSkinRow(dialog)) +
              ", colours " + Hex(SwatchColour(dialog, OptionsBackground)) + " and " +
              Hex(SwatchColour(dialog, OptionsInk)));
    Screenshot("set to default");
    program.PressButton(dialog, OptionsCancel, ClosesDialog);
    Sleep(300);
    Image after = program.CaptureClient();
    SIZE sizeAfter = program.ClientSize();
    int changed = after.width == before.width && after.height == before.height
                      ? CompareAreas(after, 0, 0, before, 0, 0, before.width, before.height, 0).pixels
                      : -1;
    Check(changed == 0 && sizeAfter.cx == size.cx && sizeAfter.cy == size.cy,
          "Cancel after Set to default leaves the window as it was",
          std::to_string(changed) + " pixels changed");

    // An Apply before Cancel stays taken over.
    dialog = OpenOptions(program);
    SetChecked(dialog, OptionsCoordinates, true);
    program.PressButton(dialog, OptionsApply, KeepsOpen);
    program.PressButton(dialog, OptionsDefault, KeepsOpen);
    program.PressButton(dialog, OptionsCancel, ClosesDialog);
    program.Command(CommandExit);
    Check(program.WaitForExit(ShortWait * 2) == 0, "the program ends with 0");
    lines[4] = "COORDINATES = YES";
    std::string expected = CrLfLines(lines);
    std::string written = ReadWholeFile(settingsName);
    Check(written == expected, "the file keeps what Apply took over and nothing of the defaults",
          FirstDifference(expected, written));
}

} // namespace e2e
