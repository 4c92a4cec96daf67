// The scenarios of the end-to-end run, each a behaviour of the real program checked as a user
// would see it. main.cpp runs one of them by name.
#pragma once

namespace e2e {

using ScenarioFunction = void (*)();

struct Scenario {
    const char* name;
    ScenarioFunction run;
};

// Start-up at both scales, the settings written at exit, and a second start.
void StartUpAtFullScale();
void StartUpAtThreeQuarterScale();
void SecondStart();

// Two people at the board: selection, targets, a refused click, a mate, the clocks, a promotion.
void HumanGameToMate();
void HumanPromotion();

// The computer's side: replies at both levels with the human as either colour, and a game of
// two computers.
void HumanWhiteAgainstEasy();
void HumanBlackAgainstNormal();
void ComputerAgainstComputer();

// A settings file edited by hand, read and written back; the board turned by the settings.
void HandEditedSettings();
void WhiteOnTop();

// The moves list as the way through a game: stepping back against the computer and playing on
// from there, the cursor keys of the main window, and the same keys with the list hidden.
void StepBackAgainstComputer();
void ListKeys();
void ListHiddenKeys();

// Files: a game and a position saved and loaded back, the files the Load dialog refuses and
// deletes, and the question asked before a game with new moves is left.
void SaveAndLoadGame();
void SaveAndLoadPosition();
void LoadRefusals();
void OfferToSaveOnLeaving();

// A position set up by hand with both buttons, then analysed; every refusal of set-up; the offers
// to save before it and the saved begin position; and set-up refused with the list hidden.
void SetPositionByHand();
void SetPositionRefusals();
void SetPositionSave();
void SetPositionWithHiddenList();
// Analysis after a set-up: stepping back through the list, playing on from an earlier row, and
// the begin position saved on leaving.
void AnalyseStepBackAndPlayOn();

// The Options dialog: display choices on the board, skin files, colours from a skin, Cancel, and
// choices kept across a restart.
void OptionsDisplay();
void OptionsRestart();
void OptionsSkinFiles();
void OptionsColours();
void OptionsCancelKeepsAll();

// The folder unpacked from the release zip: its files, the manual from the Help menu, a move,
// the exit, the settings file beside the program, and the example skin.
void ReleaseFolder();

// The faces Windows has: the moves list's rows whole, the caption's symbols.
void FontsAsOnWindows();

// The pictures of the user manual.
void ManualPictures();

} // namespace e2e
