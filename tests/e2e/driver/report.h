// What a scenario tells the runner: one PASS or FAIL line per check, screenshots in the scenario's
// folder, and a hard stop with a screenshot when the program hangs or shows something unexpected.
#pragma once

#include <string>

namespace e2e {

// Names the scenario in every line and sets the folder for its screenshots.
void StartReport(const std::string& scenario, const std::string& shotFolder);

// Prints PASS or FAIL for one check and, on failure, the detail and a screenshot. Returns `ok`.
bool Check(bool ok, const std::string& what, const std::string& detail = "");

// Prints FAIL with a screenshot and ends the driver; the job object takes the program with it.
[[noreturn]] void Abort(const std::string& what, const std::string& detail);

// Saves a screenshot of the whole screen as <name>.bmp in the scenario's folder.
void Screenshot(const std::string& name);

// The scenario's folder for screenshots, for pictures that a scenario names itself.
const std::string& ShotFolder();

// The number of checks that have failed so far.
int FailedChecks();

} // namespace e2e
