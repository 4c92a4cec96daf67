// Text: the MaxTextLength rule of the two general appends and of construction, the appends that
// ignore it, and the position and range rules of reading and cutting.
#include <gtest/gtest.h>

#include <climits>
#include <string>

#include "records/text.h"

namespace {

std::string Chars(const Text& text) {
    return std::string(text.Chars(), text.Length());
}

// A text of `n` copies of `c`, built from a terminated source.
Text Filled(std::int32_t n, char c) {
    return Text(std::string(static_cast<std::size_t>(n), c).c_str());
}

TEST(TextLimit, AppendReachesTheMaximumExactlyAndRefusesOneMore) {
    Text text = Filled(MaxTextLength - 3, 'a');
    text.Append("bcd");
    ASSERT_EQ(text.Length(), MaxTextLength);
    EXPECT_EQ(text.CharAt(MaxTextLength - 1), 'd');
    EXPECT_EQ(text.CharAt(MaxTextLength), 0);

    const Text refused = text.Append("e");
    EXPECT_EQ(text.Length(), MaxTextLength);
    EXPECT_EQ(refused.Length(), MaxTextLength);
    EXPECT_EQ(text.CharAt(MaxTextLength - 1), 'd');
    text.AppendText(Text("e"));
    EXPECT_EQ(text.Length(), MaxTextLength);
}

TEST(TextLimit, AnAppendThatWouldPassTheMaximumAddsNothingAtAll) {
    Text text = Filled(MaxTextLength - 2, 'a');
    text.Append("xyz");
    EXPECT_EQ(text.Length(), MaxTextLength - 2);
    text.AppendText(Text("xyz"));
    EXPECT_EQ(text.Length(), MaxTextLength - 2);
    text.AppendText(Text("xy"));
    EXPECT_EQ(text.Length(), MaxTextLength);
}

TEST(TextLimit, CharIntAndLineEndAppendsPassTheMaximum) {
    Text text = Filled(MaxTextLength, 'a');
    text.AppendChar('b');
    text.AppendInt(-42);
    text.AppendCrLf();
    ASSERT_EQ(text.Length(), MaxTextLength + 6);
    EXPECT_EQ(Chars(text).substr(MaxTextLength), "b-42\r\n");
    text.Append("c");
    EXPECT_EQ(text.Length(), MaxTextLength + 6);
}

TEST(TextLimit, ConstructionAndCountingStopAtTheMaximum) {
    const std::string longer(static_cast<std::size_t>(MaxTextLength) + 5, 'q');
    EXPECT_EQ(CountChars(longer.c_str()), MaxTextLength);
    const Text text(longer.c_str());
    EXPECT_EQ(text.Length(), MaxTextLength);
    EXPECT_EQ(text.CharAt(MaxTextLength), 0);
    EXPECT_EQ(CountChars("abc"), 3);
}

TEST(TextBuild, CharactersAndNumbers) {
    EXPECT_EQ(Text('x').Length(), 1);
    EXPECT_EQ(Text('\0').Length(), 0);
    Text text("ab");
    text.AppendChar('\0');
    text.Append(nullptr);
    text.Append("");
    EXPECT_EQ(Chars(text), "ab");
    text.AssignChar('\0');
    EXPECT_EQ(text.Length(), 0);
    text.AppendInt(0);
    text.AppendChar(' ');
    text.AppendInt(INT_MIN);
    text.AppendChar(' ');
    text.AppendInt(INT_MAX);
    text.AppendChar(' ');
    text.AppendInt(-7);
    EXPECT_EQ(Chars(text), "0 -2147483648 2147483647 -7");
}

TEST(TextBuild, CopiesOwnTheirBuffers) {
    Text a("abc");
    Text b = a;
    b.AppendChar('d');
    EXPECT_EQ(Chars(a), "abc");
    EXPECT_NE(a.Chars(), b.Chars());
    const Text returned = a.Assign(b);
    EXPECT_EQ(Chars(a), "abcd");
    EXPECT_EQ(Chars(returned), "abcd");
    const Text& same = a;
    a = same;
    a.Assign(same);
    EXPECT_EQ(Chars(a), "abcd");
}

TEST(TextBuild, CopyCharsTerminatesBehindTheCopy) {
    char target[8] = "zzzzzzz";
    CopyChars("hello", target, 3, 2, 1);
    EXPECT_EQ(std::string(target), "zzell");
}

TEST(TextRead, CharAtOutsideTheTextIsABlank) {
    const Text text("abc");
    EXPECT_EQ(text.CharAt(0), 'a');
    EXPECT_EQ(text.CharAt(3), 0);
    EXPECT_EQ(text.CharAt(4), ' ');
    EXPECT_EQ(text.CharAt(-1), ' ');
}

TEST(TextRead, FindGivesTheCharacterAndFindEndTheIndexBehind) {
    const Text text("abcdcd");
    EXPECT_EQ(text.Find('c', 0), 2);
    EXPECT_EQ(text.Find('c', 3), 4);
    EXPECT_EQ(text.Find('c', 5), -1);
    EXPECT_EQ(text.Find('a', -1), -1);
    EXPECT_EQ(text.Find('z', 0), -1);
    EXPECT_EQ(text.FindEnd("cd"), 4);
    EXPECT_EQ(text.FindEnd("abcdcd"), 6);
    EXPECT_EQ(text.FindEnd("abcdcdx"), -1);
    EXPECT_EQ(text.FindEnd("dd"), -1);
    EXPECT_EQ(text.FindEnd(""), 0);
}

TEST(TextRange, AssignRangeRules) {
    const Text source("abcdef");
    Text target("old");
    target.AssignRange(source, 0, 0);
    EXPECT_EQ(Chars(target), "old");
    target.AssignRange(source, 7, 2);
    EXPECT_EQ(Chars(target), "old");
    target.AssignRange(source, 1, -2);
    EXPECT_EQ(Chars(target), "old");
    target.AssignRange(source, -3, 2);
    EXPECT_EQ(Chars(target), "ab");
    target.AssignRange(source, 2, -1);
    EXPECT_EQ(Chars(target), "cdef");
    target.AssignRange(source, 4, 10);
    EXPECT_EQ(Chars(target), "ef");
    target.AssignRange(source, 6, 1);
    EXPECT_EQ(Chars(target), "");
}

TEST(TextRange, LeftAndMidOnTheTextItself) {
    Text text("abcdef");
    text.Left(0);
    EXPECT_EQ(Chars(text), "abcdef");
    text.Left(4);
    EXPECT_EQ(Chars(text), "abcd");
    text.Mid(1);
    EXPECT_EQ(Chars(text), "bcd");
    text.Mid(9);
    EXPECT_EQ(Chars(text), "bcd");
}

TEST(TextRange, RemoveAndTrim) {
    Text text("  a b  ");
    text.TrimLeadingBlanks();
    EXPECT_EQ(Chars(text), "a b  ");
    text.Remove(' ');
    EXPECT_EQ(Chars(text), "ab");
    text.Remove('z');
    EXPECT_EQ(Chars(text), "ab");
    Text blanks("   ");
    blanks.TrimLeadingBlanks();
    EXPECT_EQ(blanks.Length(), 0);
    EXPECT_EQ(blanks.CharAt(0), 0);
}

}  // namespace
