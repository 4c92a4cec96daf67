// The reader thread and the queue between it and the engine's thread. The engine's thread never
// blocks on input while it thinks: it asks the flags set here between root moves.
#include "console/uci/command_input.h"

#include <condition_variable>
#include <deque>
#include <iostream>
#include <mutex>
#include <thread>

#include "console/host/console_host.h"

namespace {

std::mutex lock;
std::condition_variable arrived;
std::deque<std::string> queue;
bool busy = false;
bool stopRequested = false;
bool ponderhit = false;
bool quitRequested = false;

// True when a "go" waits in the queue: the lines behind it belong to that later search.
bool SearchQueued() {
    for (const std::string& line : queue)
        if (FirstWord(line) == "go") return true;
    return false;
}

// Acts on a line that concerns the running search; false when the line must wait. A stop or a
// ponderhit behind a queued "go" is for that search and waits for it. The quit line stays
// queued (the caller keeps it) so that the main loop ends after the search.
bool HandleWhileBusy(const std::string& line, bool searchQueued) {
    const std::string word = FirstWord(line);
    if (word == "quit") {
        stopRequested = quitRequested = true;
        return false;
    }
    if (word == "isready") {
        ConsoleWriteLine("readyok");
        return true;
    }
    if (searchQueued) return false;
    if (word == "stop") {
        stopRequested = true;
        return true;
    }
    if (word == "ponderhit") {
        ponderhit = true;
        return true;
    }
    return false;
}

// The reader thread: every line of the input, then a quit at its end.
void ReadLines() {
    std::string line;
    while (std::getline(std::cin, line))
        QueueCommand(line);
    QueueCommand("quit");
}

} // namespace

std::string FirstWord(const std::string& line) {
    const std::size_t start = line.find_first_not_of(" \t");
    if (start == std::string::npos) return "";
    const std::size_t end = line.find_first_of(" \t", start);
    return line.substr(start, end == std::string::npos ? std::string::npos : end - start);
}

void QueueCommand(std::string line) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    const std::lock_guard<std::mutex> hold(lock);
    if (busy && HandleWhileBusy(line, SearchQueued())) {
        arrived.notify_all();
        return;
    }
    queue.push_back(std::move(line));
    arrived.notify_all();
}

void ClearCommands() {
    const std::lock_guard<std::mutex> hold(lock);
    queue.clear();
    busy = stopRequested = ponderhit = quitRequested = false;
}

void StartCommandInput() {
    // The reader blocks in the read for good once the last command came; the process ends
    // around it, so it is never joined.
    std::thread(ReadLines).detach();
}

std::string NextCommand() {
    std::unique_lock<std::mutex> hold(lock);
    arrived.wait(hold, [] { return !queue.empty(); });
    std::string line = std::move(queue.front());
    queue.pop_front();
    return line;
}

void BeginBusy() {
    const std::lock_guard<std::mutex> hold(lock);
    busy = true;
    stopRequested = ponderhit = false;
    // What came in while the "go" waited in the queue: the lines for this search act now, all
    // others stay in their order. Reading goes on meanwhile, so nothing can hold back a stop.
    bool searchQueued = false;
    for (auto line = queue.begin(); line != queue.end();) {
        if (HandleWhileBusy(*line, searchQueued)) {
            line = queue.erase(line);
        } else {
            searchQueued = searchQueued || FirstWord(*line) == "go";
            ++line;
        }
    }
}

void EndBusy() {
    const std::lock_guard<std::mutex> hold(lock);
    busy = false;
}

bool StopRequested() {
    const std::lock_guard<std::mutex> hold(lock);
    return stopRequested;
}

bool PonderhitArrived() {
    const std::lock_guard<std::mutex> hold(lock);
    return ponderhit;
}

bool QuitRequested() {
    const std::lock_guard<std::mutex> hold(lock);
    return quitRequested;
}

void WaitForRelease() {
    std::unique_lock<std::mutex> hold(lock);
    arrived.wait(hold, [] { return stopRequested || ponderhit || quitRequested; });
}
