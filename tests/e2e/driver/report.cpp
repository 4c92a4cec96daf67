// PASS and FAIL lines of the checks, flushed at once so that a hang still leaves them in the
// runner's log, and the screenshots that go with them.
#include "report.h"

#include <windows.h>

#include <cstdio>

#include "image.h"

namespace e2e {

namespace {

std::string scenarioName;
std::string shotFolder;
int failed = 0;
int shotNumber = 0;

// A file name made of the check's words: letters and digits kept, everything else a dash.
std::string FileNameOf(const std::string& what) {
    std::string name;
    for (char c : what) {
        bool plain = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
        if (plain)
            name += c;
        else if (!name.empty() && name.back() != '-')
            name += '-';
        if (name.size() >= 48) break;
    }
    return name;
}

} // namespace

void StartReport(const std::string& scenario, const std::string& folder) {
    scenarioName = scenario;
    shotFolder = folder;
    CreateDirectoryA(shotFolder.c_str(), nullptr);
}

void Screenshot(const std::string& name) {
    char prefix[8];
    std::snprintf(prefix, sizeof prefix, "%02d-", ++shotNumber);
    std::string path = shotFolder + "\\" + prefix + FileNameOf(name) + ".bmp";
    if (!SaveBmp(CaptureWholeScreen(), path)) std::printf("note: could not write %s\n", path.c_str());
}

// The text on one line, a line break written as \n, so that every verdict is one line.
static std::string OneLine(const std::string& text) {
    std::string line;
    for (char c : text)
        line += c == '\n' ? std::string("\\n") : c == '\r' ? std::string() : std::string(1, c);
    return line;
}

bool Check(bool ok, const std::string& checked, const std::string& reason) {
    const std::string what = OneLine(checked), detail = OneLine(reason);
    if (ok) {
        std::printf("PASS %s: %s\n", scenarioName.c_str(), what.c_str());
    } else {
        ++failed;
        std::printf("FAIL %s: %s%s%s\n", scenarioName.c_str(), what.c_str(), detail.empty() ? "" : " -- ",
                    detail.c_str());
        Screenshot("fail-" + what);
    }
    std::fflush(stdout);
    return ok;
}

void Abort(const std::string& what, const std::string& detail) {
    Check(false, what, detail);
    std::printf("ABORT %s: the scenario stops here\n", scenarioName.c_str());
    std::fflush(stdout);
    ExitProcess(2);
}

const std::string& ShotFolder() {
    return shotFolder;
}

int FailedChecks() {
    return failed;
}

} // namespace e2e
