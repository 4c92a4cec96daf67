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

// The folder unpacked from the release zip: its files, the manual from the Help menu, a move,
// the exit, the settings file beside the program, and the example skin.
void ReleaseFolder();

// The pictures of the user manual.
void ManualPictures();

} // namespace e2e
