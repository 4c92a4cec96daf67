// The rules for the names a user types: which characters a name may not hold, so that it can
// become part of a file name, and which message a missing player's name brings up.
#pragma once

#include <cstdint>

// The name a computer side carries; one character longer than a typed name may be.
constexpr char ComputerName[] = "Computer {Velok-3}";

// Whether `character` is one of the nine that a Windows file name cannot hold.
constexpr bool IsRefusedInName(std::uint32_t character) {
    constexpr char refused[] = "<>\"\\/*?:|";
    for (char c : refused)
        if (c != 0 && character == static_cast<unsigned char>(c)) return true;
    return false;
}

// The message for names missing from the New game dialog, or null when both are there.
constexpr const char* MissingNameMessage(const char* whiteName, const char* blackName) {
    const bool white = whiteName[0] != 0, black = blackName[0] != 0;
    if (!white && black) return "Please enter name (WHITE SIDE)";
    if (white && !black) return "Please enter name (BLACK SIDE)";
    if (!white && !black) return "Please enter name (WHITE AND BLACK SIDES)";
    return nullptr;
}
