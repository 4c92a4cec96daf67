// The window system as the unit tests see it: every call the game makes is recorded, and every
// answer the user or the clock would give is set by the test beforehand.
#pragma once

#include <cstdint>
#include <deque>
#include <map>
#include <string>
#include <vector>

#include "core/host.h"

struct HostDouble {
    // What the game showed or asked.
    std::vector<std::string> messages;
    std::vector<std::string> questions;
    std::vector<AskDefault> questionDefaults;  // the default button of each question
    std::vector<std::string> titles;
    std::vector<std::int32_t> promotionAsks;  // the colour of each promotion dialog
    std::int32_t beeps = 0, drains = 0, busyOn = 0, busyOff = 0;

    // The moves list controls, by handle: rows and the selected row (-1 for none).
    struct List {
        std::vector<std::string> rows;
        std::int32_t selection = -1;
    };
    std::map<ListHandle, List> lists;

    // Answers and readings the test sets.
    std::deque<std::int32_t> yesNoAnswers;     // 1 Yes, 0 No; empty means No
    std::int32_t promotionAnswer = Queen();    // piece code returned by the promotion dialog
    std::uint32_t tick = 0;                    // the tick count
    std::uint32_t tickStep = 0;                // added to the tick count after each reading
    std::deque<bool> escapeReadings;           // successive readings of the Esc key; empty means up
    LocalTime now{2007, 3, 9, 14, 35};
    std::string shortDate = "09.03.2007";
    std::deque<std::string> saveNames;         // answers of the save-name dialog; "" cancels
    std::vector<std::string> saveTitles;
    bool writeFails = false;
    std::map<std::string, std::string> files;  // what was written under Save, by file name

    static constexpr std::int32_t Queen() { return 5; }
};

// The one double of the process; Reset() puts it back to its first state.
HostDouble& Host();
void ResetHost();
