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

// Acts on a line that concerns the running search; false when the line must wait. The quit
// line stays queued (the caller keeps it) so that the main loop ends after the search.
bool HandleWhileBusy(const std::string& line) {
    const std::string word = FirstWord(line);
    if (word == "isready") {
        ConsoleWriteLine("readyok");
        return true;
    }
    if (word == "stop") {
        stopRequested = true;
        return true;
    }
    if (word == "ponderhit") {
        ponderhit = true;
        return true;
    }
    if (word == "quit") stopRequested = quitRequested = true;
    return false;
}

// Hands one line over from the reader, under the lock.
void Accept(std::string line) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    const std::lock_guard<std::mutex> hold(lock);
    if (busy && HandleWhileBusy(line)) {
        arrived.notify_all();
        return;
    }
    queue.push_back(std::move(line));
    arrived.notify_all();
}

// The reader thread: every line of the input, then a quit at its end.
void ReadLines() {
    std::string line;
    while (std::getline(std::cin, line))
        Accept(line);
    Accept("quit");
}

} // namespace

std::string FirstWord(const std::string& line) {
    const std::size_t start = line.find_first_not_of(" \t");
    if (start == std::string::npos) return "";
    const std::size_t end = line.find_first_of(" \t", start);
    return line.substr(start, end == std::string::npos ? std::string::npos : end - start);
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
    // Lines queued right behind the "go" belong to this search; the first other line, and
    // everything after it, waits for the search to end.
    while (!queue.empty() && HandleWhileBusy(queue.front()))
        queue.pop_front();
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
