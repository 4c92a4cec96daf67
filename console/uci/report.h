// The one way the UCI front end tells the GUI about a problem: an "info string" line, which
// every GUI shows or logs and none takes for an answer.
#pragma once

#include <string>

#include "console/host/console_host.h"

inline void Report(const std::string& text) {
    ConsoleWriteLine("info string " + text);
}
