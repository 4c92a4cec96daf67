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
    // The thinking time so far goes onto the thinker's clock.
    sides[sideToMove].clockSeconds =
        static_cast<Word>(thinkClockBase + (HostTickCount() - thinkStartTick) / 1000);

    // That clock is shown, and timers and paints get through while the think runs.
    HostRepaintClock(sideToMove);
    HostPumpDuringThink();

    // The progress text and the share done go into the title when the user asked to see them.
    if (displaySettings.showAiProgress) {
        Text suffix(progressText);
        suffix.Append(" [");
        suffix.AppendInt(percent);
        suffix.Append("%]");
        HostShowTitle(suffix.Chars());
    }

    // Escape asks whether to break off; only a yes stops the think.
    if (HostEscapeHeld() && HostAskYesNo(BreakQuestion, DefaultNo) == 1) thinking = 0;
}
