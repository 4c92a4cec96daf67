// The settings file: a small reader of the profile format that behaves as the Windows profile
// functions do for the keys the program uses, the writer of the 24-line file, and the user tag.
#include "records/settings_file.h"

#include <string_view>

namespace {

// A profile value buffer holds 65 characters with its terminating zero.
constexpr std::size_t ValueCapacity = 64;

// The characters the profile functions trim around keys and values.
bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

// The text without blanks at either end.
std::string_view Trim(std::string_view text) {
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

// Section and key names are compared without regard to case, as the profile functions do.
bool SameName(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        char x = a[i], y = b[i];
        if (x >= 'a' && x <= 'z') x = static_cast<char>(x - 'a' + 'A');
        if (y >= 'a' && y <= 'z') y = static_cast<char>(y - 'a' + 'A');
        if (x != y) return false;
    }
    return true;
}

// The profile text, looked up by section and key.
class Profile {
  public:
    explicit Profile(std::string_view text) : text(text) {}

    // The trimmed value of the first `key` in a section `section`, with one pair of enclosing
    // quotes removed and cut to the buffer; false when the key is absent.
    bool Find(std::string_view section, std::string_view key, std::string_view& value) const {
        bool inSection = false;
        std::size_t start = 0;
        while (start < text.size()) {
            std::size_t end = text.find('\n', start);
            if (end == std::string_view::npos) end = text.size();
            const std::string_view line = Trim(text.substr(start, end - start));
            start = end + 1;
            if (!line.empty() && line.front() == '[') {
                const std::size_t close = line.find(']');
                const std::string_view name =
                    line.substr(1, close == std::string_view::npos ? line.npos : close - 1);
                inSection = SameName(Trim(name), section);
                continue;
            }
            const std::size_t equals = line.find('=');
            if (!inSection || equals == std::string_view::npos) continue;
            if (!SameName(Trim(line.substr(0, equals)), key)) continue;
            value = Unquote(Trim(line.substr(equals + 1))).substr(0, ValueCapacity);
            return true;
        }
        return false;
    }

    // The value as a text, or `fallback` when the key is absent.
    std::string_view String(std::string_view section, std::string_view key, std::string_view fallback) const {
        std::string_view value;
        return Find(section, key, value) ? value : fallback;
    }

    // The leading decimal number of the value (0 when there is none), or `fallback` when the key
    // is absent or empty.
    std::int32_t Int(std::string_view section, std::string_view key, std::int32_t fallback) const {
        std::string_view value;
        if (!Find(section, key, value) || value.empty()) return fallback;
        std::size_t i = 0;
        const bool negative = value[0] == '-';
        if (negative || value[0] == '+') ++i;
        std::int64_t number = 0;
        for (; i < value.size() && value[i] >= '0' && value[i] <= '9'; ++i)
            if (number < 0x80000000LL) number = number * 10 + (value[i] - '0');
        return static_cast<std::int32_t>(negative ? -number : number);
    }

  private:
    static std::string_view Unquote(std::string_view value) {
        if (value.size() >= 2 && (value.front() == '"' || value.front() == '\'') &&
            value.back() == value.front())
            return value.substr(1, value.size() - 2);
        return value;
    }

    std::string_view text;
};

// A flag whose default is YES: only the exact text "NO" turns it off.
std::int32_t FlagDefaultYes(const Profile& profile, std::string_view section, std::string_view key) {
    return profile.String(section, key, "YES") == "NO" ? 0 : 1;
}

// One byte of a colour: a value outside 0 to 255 takes the key's default.
std::uint32_t ColourByte(const Profile& profile, std::string_view key, std::int32_t fallback) {
    const std::int32_t value = profile.Int("COLOR", key, fallback);
    return static_cast<std::uint32_t>(value < 0 || value > 255 ? fallback : value);
}

// A colour from its three keys, the first giving bits 16 to 23.
std::uint32_t Colour(const Profile& profile, const char* (&keys)[3], std::int32_t fallback) {
    return ColourByte(profile, keys[0], fallback) << 16 | ColourByte(profile, keys[1], fallback) << 8 |
           ColourByte(profile, keys[2], fallback);
}

// Appends a line and its CR LF.
void AppendLine(Text& text, const char* line) {
    text.Append(line);
    text.AppendCrLf();
}

// Appends "KEY = YES" or "KEY = NO".
void AppendFlag(Text& text, const char* key, std::int32_t flag) {
    text.Append(key);
    AppendLine(text, flag ? " = YES" : " = NO");
}

// Appends "KEY = " and a decimal number.
void AppendNumber(Text& text, const char* key, std::int32_t number) {
    text.Append(key);
    text.Append(" = ");
    text.AppendInt(number);
    text.AppendCrLf();
}

const char* backgroundKeys[3] = {"BACKGROUND_RED", "BACKGROUND_GREEN", "BACKGROUND_BLUE"};
const char* inkKeys[3] = {"INK_RED", "INK_GREEN", "INK_BLUE"};

// Appends the three keys of a colour, bits 16 to 23 first.
void AppendColour(Text& text, const char* (&keys)[3], std::uint32_t colour) {
    AppendNumber(text, keys[0], static_cast<std::int32_t>(colour >> 16 & 0xFF));
    AppendNumber(text, keys[1], static_cast<std::int32_t>(colour >> 8 & 0xFF));
    AppendNumber(text, keys[2], static_cast<std::int32_t>(colour & 0xFF));
}

} // namespace

// Reads each key as GetPrivateProfileStringA and GetPrivateProfileIntA would.
void ParseSettingsText(const char* text, std::int32_t length, DisplaySettings& settings) {
    const Profile profile(std::string_view(text, length > 0 ? static_cast<std::size_t>(length) : 0));
    settings.showLegalMoves = FlagDefaultYes(profile, "SHOW", "LEGAL MOVE");
    settings.showCheck = FlagDefaultYes(profile, "SHOW", "CHECK");
    settings.showLastMove = FlagDefaultYes(profile, "SHOW", "LAST MOVE");
    settings.showCoordinates = FlagDefaultYes(profile, "SHOW", "COORDINATES");
    settings.whiteOnTop = profile.String("SHOW", "WHITE ON TOP", "NO") == "YES" ? 1 : 0;
    settings.showMovesList = FlagDefaultYes(profile, "SHOW", "MOVELIST");
    settings.showAiProgress = FlagDefaultYes(profile, "SHOW", "AI PROGRESS");
    settings.boardScale = profile.Int("SHOW", "SCALE OF BOARD", 100) == 75 ? 75 : 100;
    settings.beepAfterMove = FlagDefaultYes(profile, "SOUND", "BEEP");
    settings.backgroundColor = Colour(profile, backgroundKeys, 128);
    settings.inkColor = Colour(profile, inkKeys, 255);
    const std::string_view fileName = profile.String("SKIN", "FILE NAME", "");
    Text skinFileName;
    for (char c : fileName)
        skinFileName.AppendChar(c);
    settings.skinFileName = skinFileName;
    // A skin file is stored with the number -1; it reads back as 0 and the file name decides.
    const std::int32_t number = profile.Int("SKIN", "NUMBER", 0);
    settings.skinNumber = number < 0 || number > 6 ? 0 : number;
}

// The 24 lines, in the order and spelling the program has always written them.
Text SettingsFileText(const DisplaySettings& settings) {
    Text text;
    AppendLine(text, "[SHOW]");
    AppendFlag(text, "LEGAL MOVE", settings.showLegalMoves);
    AppendFlag(text, "CHECK", settings.showCheck);
    AppendFlag(text, "LAST MOVE", settings.showLastMove);
    AppendFlag(text, "COORDINATES", settings.showCoordinates);
    AppendFlag(text, "WHITE ON TOP", settings.whiteOnTop);
    AppendFlag(text, "MOVELIST", settings.showMovesList);
    AppendFlag(text, "AI PROGRESS", settings.showAiProgress);
    AppendNumber(text, "SCALE OF BOARD", settings.boardScale == 75 ? 75 : 100);
    text.AppendCrLf();
    AppendLine(text, "[SOUND]");
    AppendFlag(text, "BEEP", settings.beepAfterMove);
    text.AppendCrLf();
    AppendLine(text, "[COLOR]");
    AppendColour(text, backgroundKeys, settings.backgroundColor);
    AppendColour(text, inkKeys, settings.inkColor);
    text.AppendCrLf();
    AppendLine(text, "[SKIN]");
    text.Append("FILE NAME = ");
    text.AppendText(settings.skinFileName);
    text.AppendCrLf();
    AppendNumber(text, "NUMBER", settings.skinNumber);
    return text;
}

// The hash of the name as hex digits.
Text UserTagFromName(const std::uint16_t* name, std::int32_t length) {
    // 32-bit FNV-1a over the UTF-16 code units, low byte first.
    std::uint32_t hash = 2166136261u;
    for (std::int32_t i = 0; i < length; ++i) {
        hash = (hash ^ (name[i] & 0xFFu)) * 16777619u;
        hash = (hash ^ (name[i] >> 8)) * 16777619u;
    }
    static constexpr char hexDigits[] = "0123456789ABCDEF";
    Text tag;
    for (int shift = 28; shift >= 0; shift -= 4)
        tag.AppendChar(hexDigits[hash >> shift & 0xF]);
    return tag;
}

// The settings file's name for a tag.
Text SettingsFileName(const Text& userTag) {
    Text name("velok-3 {");
    name.AppendText(userTag);
    name.Append("}.ini");
    return name;
}
