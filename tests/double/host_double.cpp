// Link-time implementation of the host seam for the unit tests and benchmarks: records what the
// game asks of the window system and answers from the scripted values of HostDouble.
#include "double/host_double.h"

#include <cstring>

#include "records/text.h"

namespace {
HostDouble host;
}

HostDouble& Host() { return host; }
void ResetHost() { host = HostDouble(); }

void HostShowMessage(const char* text) { host.messages.emplace_back(text); }

std::int32_t HostAskYesNo(const char* text, AskDefault defaultButton) {
    host.questions.emplace_back(text);
    host.questionDefaults.push_back(defaultButton);
    if (host.yesNoAnswers.empty()) return 0;
    const std::int32_t answer = host.yesNoAnswers.front();
    host.yesNoAnswers.pop_front();
    return answer;
}

std::int32_t HostChoosePromotion(std::int32_t colour) {
    host.promotionAsks.push_back(colour);
    return host.promotionAnswer;
}

void HostListReset(ListHandle list) {
    host.lists[list].rows.clear();
    host.lists[list].selection = -1;
}
void HostListAdd(ListHandle list, const char* row) { host.lists[list].rows.emplace_back(row); }
void HostListSelect(ListHandle list, std::int32_t row) {
    auto& l = host.lists[list];
    l.selection = row >= 0 && row < static_cast<std::int32_t>(l.rows.size()) ? row : -1;
}
std::int32_t HostListCount(ListHandle list) { return static_cast<std::int32_t>(host.lists[list].rows.size()); }
std::int32_t HostListSelection(ListHandle list) { return host.lists[list].selection; }

std::uint32_t HostTickCount() {
    const std::uint32_t now = host.tick;
    host.tick += host.tickStep;
    return now;
}

// Repaints, updates, polls and flashes change nothing the tests read.
void HostRepaintWindow(bool) {}
void HostRepaintClock(std::int32_t) {}
void HostUpdateNow() {}
void HostPumpDuringThink() {}
void HostShowTitle(const char* suffix) { host.titles.push_back(std::string("Velok-3") + suffix); }

bool HostEscapeHeld() {
    if (host.escapeReadings.empty()) return false;
    const bool held = host.escapeReadings.front();
    host.escapeReadings.pop_front();
    return held;
}

void HostSetBusy(bool busy) { ++(busy ? host.busyOn : host.busyOff); }
void HostBeep() { ++host.beeps; }
void HostDropQueuedCommands() { ++host.drains; }
void HostFlashIfInactive() {}

LocalTime HostLocalTime() { return host.now; }

void HostShortDate(char* out, std::int32_t capacity) {
    std::strncpy(out, host.shortDate.c_str(), capacity - 1);
    out[capacity - 1] = 0;
}

bool HostAskSaveName(Text& name, const char* title) {
    host.saveTitles.emplace_back(title);
    if (host.saveNames.empty()) return false;
    const std::string answer = host.saveNames.front();
    host.saveNames.pop_front();
    if (answer.empty()) return false;
    // "=" keeps the proposed name, as pressing OK at once would.
    if (answer != "=") name = Text(answer.c_str());
    return true;
}

bool HostWriteSaveFile(const char* fileName, const char* data, std::int32_t length) {
    if (host.writeFails) return false;
    host.files[fileName] = std::string(data, length);
    return true;
}
