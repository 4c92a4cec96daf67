// The clock as the panel and the game files show it: hours, minutes and seconds, two digits each.
#pragma once

#include <cstdint>

#include "records/text.h"

// "HH:MM:SS" for a count of seconds; hours go on past 24 (and past 99 with more digits).
Text FormatClock(std::int32_t seconds);
