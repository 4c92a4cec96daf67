// The host seam for console programs: no window, no dialogs. Messages go to standard output as
// one line each, questions are answered No (the break question Yes once a stop is asked for),
// promotions become queens and the moves list is kept in memory so that its rows can be printed.
#include <chrono>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <mutex>
#include <string>
#include <vector>

#include "console/host/console_host.h"
#include "core/types.h"
#include "records/text.h"

namespace {
std::vector<std::string> listRows;
std::int32_t listSelection = -1;
const char* messagePrefix = "";
std::mutex outputLock;
constexpr const char* BreakQuestion = "Break AI move. Are you sure?";
}  // namespace

void SetConsoleMessagePrefix(const char* prefix) { messagePrefix = prefix; }
const std::vector<std::string>& ConsoleListRows() { return listRows; }

void ConsoleWriteLine(const std::string& line) {
    const std::lock_guard<std::mutex> hold(outputLock);
    std::fwrite(line.data(), 1, line.size(), stdout);
    std::fputc('\n', stdout);
    std::fflush(stdout);
}

void HostShowMessage(const char* text) {
    // One line per message: the line breaks inside a message become blanks.
    std::string line = std::string(messagePrefix) + text;
    for (char& c : line)
        if (c == '\n' || c == '\r') c = ' ';
    ConsoleWriteLine(line);
}

// The only question a console program can be asked during a think is whether to break it off.
std::int32_t HostAskYesNo(const char* text, AskDefault) {
    return std::strcmp(text, BreakQuestion) == 0 && ConsoleStopRequested() ? 1 : 0;
}
std::int32_t HostChoosePromotion(std::int32_t) { return Queen; }

void HostListReset(ListHandle) {
    listRows.clear();
    listSelection = -1;
}
void HostListAdd(ListHandle, const char* row) { listRows.emplace_back(row); }
void HostListSelect(ListHandle, std::int32_t row) { listSelection = row; }
std::int32_t HostListCount(ListHandle) { return static_cast<std::int32_t>(listRows.size()); }
std::int32_t HostListSelection(ListHandle) { return listSelection; }

std::uint32_t HostTickCount() {
    using namespace std::chrono;
    return static_cast<std::uint32_t>(
        duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count());
}

void HostRepaintWindow(bool) {}
void HostRepaintClock(std::int32_t) {}
void HostUpdateNow() {}
void HostPumpDuringThink() { ConsolePollDuringThink(); }
void HostShowTitle(const char*) {}
bool HostEscapeHeld() { return ConsoleStopRequested(); }
void HostSetBusy(bool) {}
void HostBeep() {}
void HostDropQueuedCommands() {}
void HostFlashIfInactive() {}

LocalTime HostLocalTime() {
    const std::time_t t = std::time(nullptr);
    const std::tm* tm = std::localtime(&t);
    return {tm->tm_year + 1900, tm->tm_mon + 1, tm->tm_mday, tm->tm_hour, tm->tm_min};
}

void HostShortDate(char* out, std::int32_t capacity) {
    const LocalTime now = HostLocalTime();
    std::snprintf(out, capacity, "%02d.%02d.%04d", now.day, now.month, now.year);
}

bool HostAskSaveName(Text&, const char*) { return false; }
bool HostWriteSaveFile(const char*, const char*, std::int32_t) { return false; }
