// The Text type: exact-size owned buffers, no sharing, and the MaxTextLength rule of the two
// general appends. Nothing here reports a failure; out-of-range arguments leave the text alone.
#include "records/text.h"

#include <cstring>

std::int32_t CountChars(const char* source) {
    std::int32_t n = 0;
    while (n < MaxTextLength && source[n] != 0)
        ++n;
    return n;
}

void CopyChars(const char* source, char* target, std::int32_t count, std::int32_t targetOffset,
               std::int32_t sourceOffset) {
    if (count > 0) std::memcpy(target + targetOffset, source + sourceOffset, count);
    target[count + targetOffset] = 0;
}

Text::Text() : length(0), chars(new char[1]) {
    chars[0] = 0;
}

Text::Text(const char* source) : length(0), chars(nullptr) {
    const std::int32_t n = source ? CountChars(source) : 0;
    chars = new char[n + 1];
    length = n;
    CopyChars(source ? source : "", chars, n, 0, 0);
}

Text::Text(char character) : length(character != 0), chars(new char[2]) {
    chars[0] = character;
    chars[1] = 0;
}

Text::Text(const Text& other) : length(other.length), chars(new char[other.length + 1]) {
    CopyChars(other.chars, chars, length, 0, 0);
}

Text::Text(Text&& other) noexcept : length(other.length), chars(other.chars) {
    // The moved-from text keeps a buffer of its own, as every Text must.
    other.chars = new char[1];
    other.chars[0] = 0;
    other.length = 0;
}

Text& Text::operator=(const Text& other) {
    if (this != &other) Rebuild(other.chars, other.length, nullptr, 0);
    return *this;
}

Text& Text::operator=(Text&& other) noexcept {
    if (this != &other) {
        char* old = chars;
        chars = other.chars;
        length = other.length;
        other.chars = old;
        other.length = 0;
        other.chars[0] = 0;
    }
    return *this;
}

Text::~Text() {
    delete[] chars;
}

void Text::Rebuild(const char* source, std::int32_t count, const char* tail, std::int32_t tailCount) {
    char* fresh = new char[count + tailCount + 1];
    CopyChars(source, fresh, count, 0, 0);
    if (tailCount > 0) CopyChars(tail, fresh, tailCount, count, 0);
    delete[] chars;
    chars = fresh;
    length = count + tailCount;
}

Text Text::Assign(Text other) {
    *this = static_cast<Text&&>(other);
    return *this;
}

Text Text::AssignChar(char character) {
    const char one[2] = {character, 0};
    Rebuild(one, character != 0, nullptr, 0);
    return *this;
}

Text Text::Append(const char* source) {
    if (source == nullptr || source[0] == 0) return *this;
    const std::int32_t n = CountChars(source);
    if (static_cast<std::int64_t>(length) + n <= MaxTextLength) Rebuild(chars, length, source, n);
    return *this;
}

Text Text::AppendText(Text other) {
    if (other.length != 0 && static_cast<std::int64_t>(length) + other.length <= MaxTextLength)
        Rebuild(chars, length, other.chars, other.length);
    return *this;
}

Text Text::AppendChar(char character) {
    if (character != 0) Rebuild(chars, length, &character, 1);
    return *this;
}

void Text::AppendInt(std::int32_t number) {
    char digits[12];
    int n = 0;
    // Work on the negative range so that the most negative number needs no special case.
    std::int32_t rest = number < 0 ? number : -number;
    do {
        digits[n++] = static_cast<char>('0' - rest % 10);
        rest /= 10;
    } while (rest != 0);
    char out[13];
    int k = 0;
    if (number < 0) out[k++] = '-';
    while (n > 0)
        out[k++] = digits[--n];
    Rebuild(chars, length, out, k);
}

void Text::AppendCrLf() {
    Rebuild(chars, length, "\r\n", 2);
}

void Text::Remove(char character) {
    if (Find(character, 0) < 0) return;
    char* fresh = new char[length + 1];
    std::int32_t k = 0;
    for (std::int32_t i = 0; i < length; ++i)
        if (chars[i] != character) fresh[k++] = chars[i];
    fresh[k] = 0;
    delete[] chars;
    chars = fresh;
    length = k;
}

void Text::AssignRange(const Text& source, std::int32_t start, std::int32_t count) {
    if (start < 0) start = 0;
    if (start > source.length || count == 0 || count < -1) return;
    const std::int32_t available = source.length - start;
    if (count == -1 || count > available) count = available;
    Rebuild(source.chars + start, count, nullptr, 0);
}

void Text::TrimLeadingBlanks() {
    std::int32_t n = 0;
    while (n < length && chars[n] == ' ')
        ++n;
    if (n > 0) Rebuild(chars + n, length - n, nullptr, 0);
}

char Text::CharAt(std::int32_t index) const {
    if (index < 0 || index > length) return ' ';
    return chars[index];
}

std::int32_t Text::Find(char character, std::int32_t from) const {
    if (from < 0) return -1;
    for (std::int32_t i = from; i < length; ++i)
        if (chars[i] == character) return i;
    return -1;
}

std::int32_t Text::FindEnd(const char* needle) const {
    const std::int32_t n = CountChars(needle);
    if (n == 0) return 0;
    if (n > length) return -1;
    for (std::int32_t i = 0; i + n <= length; ++i)
        if (std::memcmp(chars + i, needle, n) == 0) return i + n;
    return -1;
}

bool Text::Equals(const char* other) const {
    return std::strcmp(chars, other ? other : "") == 0;
}
