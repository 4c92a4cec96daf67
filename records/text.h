// Text: the program's own counted string of 8-bit characters, with plain value semantics.
// Every change allocates an exact-size buffer; lengths are capped at MaxTextLength.
#pragma once

#include <cstdint>

constexpr std::int32_t MaxTextLength = 0x1000000;

// Number of characters before the first 0 byte, counting at most MaxTextLength.
std::int32_t CountChars(const char* source);

// Copies count bytes from source + sourceOffset to target + targetOffset and terminates the target.
void CopyChars(const char* source, char* target, std::int32_t count, std::int32_t targetOffset,
               std::int32_t sourceOffset);

class Text {
  public:
    Text();
    Text(const char* chars);
    explicit Text(char character);
    Text(const Text& other);
    Text(Text&& other) noexcept;
    Text& operator=(const Text& other);
    Text& operator=(Text&& other) noexcept;
    ~Text();

    Text Assign(Text other);
    Text AssignChar(char character);
    Text Append(const char* chars);
    Text AppendText(Text other);
    Text AppendChar(char character);
    void AppendInt(std::int32_t number);
    void AppendCrLf();
    void Remove(char character);
    void AssignRange(const Text& source, std::int32_t start, std::int32_t count);
    void Left(std::int32_t count) { AssignRange(Text(*this), 0, count); }
    void Mid(std::int32_t start) { AssignRange(Text(*this), start, -1); }
    void TrimLeadingBlanks();

    std::int32_t Length() const { return length; }
    const char* Chars() const { return chars; }
    char CharAt(std::int32_t index) const;
    std::int32_t Find(char character, std::int32_t from) const;
    std::int32_t FindEnd(const char* needle) const;

    bool Equals(const char* other) const;

  private:
    // Replaces the buffer with one holding `count` bytes of `source` followed by `tailCount`
    // bytes of `tail`.
    void Rebuild(const char* source, std::int32_t count, const char* tail, std::int32_t tailCount);

    std::int32_t length;
    char* chars;
};
