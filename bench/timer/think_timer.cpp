// The think suite timed without Google Benchmark, for builds that lack it (the 32-bit one): every
// think is checked against the golden file, and the per-level figures are printed.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <vector>

#include "bench/think_suite.h"

namespace {

GameState state;

// Thinks on the whole suite at `level`, printing the golden lines when `record` is set and
// otherwise the times; returns the number of thinks that differ from the golden file.
int RunLevel(Word level, bool record) {
    std::vector<double> seconds;
    std::uint64_t nodes = 0;
    int differences = 0;
    for (int index = 0; index < ThinkSuiteSize; ++index) {
        const std::clock_t start = std::clock();
        const std::string line = ThinkSuiteLine(state, level, index);
        seconds.push_back(static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC);
        nodes += state.searchNodes;
        if (record) {
            std::printf("%s\n", line.c_str());
            std::fflush(stdout);
        } else if (line != GoldenThinkLine(level, index)) {
            std::fprintf(stderr, "DIFFERS FROM GOLDEN: got \"%s\", expected \"%s\"\n", line.c_str(),
                         GoldenThinkLine(level, index).c_str());
            ++differences;
        }
    }
    if (record) return 0;
    double total = 0;
    for (double s : seconds)
        total += s;
    const double worstAt =
        static_cast<double>(std::max_element(seconds.begin(), seconds.end()) - seconds.begin());
    std::sort(seconds.begin(), seconds.end());
    std::printf(
        "ThinkLevel%d median_ms=%.1f worst_ms=%.1f worst_position=%.0f total_ms=%.1f nodes=%llu nps=%.0f\n",
        static_cast<int>(level), 1000 * seconds[seconds.size() / 2], 1000 * seconds.back(), worstAt,
        1000 * total, static_cast<unsigned long long>(nodes), static_cast<double>(nodes) / total);
    std::fflush(stdout);
    return differences;
}

} // namespace

// Arguments: the levels to run (1 2 3 when none), after an optional --record that prints the
// golden lines instead of checking them.
int main(int argc, char** argv) {
    const bool record = argc > 1 && std::strcmp(argv[1], "--record") == 0;
    std::vector<Word> levels;
    for (int i = record ? 2 : 1; i < argc; ++i)
        levels.push_back(std::atoi(argv[i]));
    if (levels.empty()) levels = {1, 2, 3};
    int differences = 0;
    for (Word level : levels)
        differences += RunLevel(level, record);
    if (differences != 0) {
        std::fprintf(stderr, "%d thinks differ from tests/golden/think.txt\n", differences);
        return 1;
    }
    return 0;
}
