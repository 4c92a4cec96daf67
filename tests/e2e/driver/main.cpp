// Entry of the end-to-end driver: velok3-e2e-driver.exe <scenario> <screenshot folder> runs one
// scenario against velok3.exe of the current folder; "list" prints the scenario names.
#include <cstdio>
#include <cstring>

#include "report.h"
#include "scenarios.h"

namespace {

constexpr e2e::Scenario scenarios[] = {
    {"startup-100", e2e::StartUpAtFullScale},
    {"startup-75", e2e::StartUpAtThreeQuarterScale},
    {"second-start", e2e::SecondStart},
    {"human-mate", e2e::HumanGameToMate},
    {"human-promotion", e2e::HumanPromotion},
    {"white-vs-easy", e2e::HumanWhiteAgainstEasy},
    {"black-vs-normal", e2e::HumanBlackAgainstNormal},
    {"computer-vs-computer", e2e::ComputerAgainstComputer},
    {"settings-edited", e2e::HandEditedSettings},
    {"white-on-top", e2e::WhiteOnTop},
    {"step-back-vs-computer", e2e::StepBackAgainstComputer},
    {"list-keys", e2e::ListKeys},
    {"list-hidden-keys", e2e::ListHiddenKeys},
    {"save-load-game", e2e::SaveAndLoadGame},
    {"save-load-position", e2e::SaveAndLoadPosition},
    {"load-refusals", e2e::LoadRefusals},
    {"offer-to-save", e2e::OfferToSaveOnLeaving},
    {"set-position", e2e::SetPositionByHand},
    {"set-position-refusals", e2e::SetPositionRefusals},
    {"set-position-save", e2e::SetPositionSave},
    {"set-position-hidden-list", e2e::SetPositionWithHiddenList},
    {"analyse-step-back", e2e::AnalyseStepBackAndPlayOn},
    {"options-display", e2e::OptionsDisplay},
    {"options-restart", e2e::OptionsRestart},
    {"options-skins", e2e::OptionsSkinFiles},
    {"options-colours", e2e::OptionsColours},
    {"options-cancel", e2e::OptionsCancelKeepsAll},
    {"release-folder", e2e::ReleaseFolder},
    {"fonts", e2e::FontsAsOnWindows},
    {"manual-shots", e2e::ManualPictures},
};

} // namespace

int main(int argc, char** argv) {
    if (argc == 2 && std::strcmp(argv[1], "list") == 0) {
        for (const auto& scenario : scenarios)
            std::printf("%s\n", scenario.name);
        return 0;
    }
    if (argc != 3) {
        std::fprintf(stderr, "usage: velok3-e2e-driver <scenario> <screenshot folder> | list\n");
        return 2;
    }
    for (const auto& scenario : scenarios) {
        if (std::strcmp(argv[1], scenario.name) != 0) continue;
        e2e::StartReport(scenario.name, argv[2]);
        scenario.run();
        return e2e::FailedChecks() == 0 ? 0 : 1;
    }
    std::fprintf(stderr, "unknown scenario %s\n", argv[1]);
    return 2;
}
