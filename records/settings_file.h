// The settings file: reading its profile text into DisplaySettings, writing the settings back as
// the 24 lines of the file, and the tag that gives each login name a file of its own.
#pragma once

#include <cstdint>

#include "records/settings.h"
#include "records/text.h"

// Sets every stored field of `settings` (not userTag) from the text of a settings file; keys that
// are missing or hold values out of range take their defaults, so empty text gives the defaults.
void ParseSettingsText(const char* text, std::int32_t length, DisplaySettings& settings);

// The whole settings file for `settings`, CR LF after every line.
Text SettingsFileText(const DisplaySettings& settings);

// Eight upper-case hex digits derived from a UTF-16 login name: the same for the same name at
// every start, safe in a file name, and as a rule different for different names.
Text UserTagFromName(const std::uint16_t* name, std::int32_t length);

// "velok-3 {" + tag + "}.ini".
Text SettingsFileName(const Text& userTag);
