// The one place where a running think hands control back: between root moves it books the
// clock, lets timers and paints through, shows the progress and asks whether to break.
#include "core/game_state.h"
#include "records/settings.h"

namespace {
constexpr const char* BreakQuestion = "Break AI move. Are you sure?";
}

// Called by the roots before each root move with the share of the pass done so far (0 to 99);
// clears `thinking` when the user breaks the think off.
void GameState::PollDuringThink(Word percent) {
    // Step 1.
    sides[sideToMove].clockSeconds =
        static_cast<Word>(thinkClockBase + (HostTickCount() - thinkStartTick) / 1000);

    // Steps 2 and 3.
    HostRepaintClock(sideToMove);
    HostPumpDuringThink();

    // Step 4.
    if (displaySettings.showAiProgress) {
        Text suffix(progressText);
        suffix.Append(" [");
        suffix.AppendInt(percent);
        suffix.Append("%]");
        HostShowTitle(suffix.Chars());
    }

    // Step 5.
    if (HostEscapeHeld() && HostAskYesNo(BreakQuestion, DefaultNo) == 1) thinking = 0;
}
