// The clock text of the panel and of the game files.
#include "records/clock_text.h"

namespace {
// Appends number with a leading zero when it has one digit.
void AppendTwoDigits(Text& text, std::int32_t number) {
    if (number < 10) text.AppendChar('0');
    text.AppendInt(number);
}
} // namespace

Text FormatClock(std::int32_t seconds) {
    Text text;
    AppendTwoDigits(text, seconds / 3600);
    text.AppendChar(':');
    AppendTwoDigits(text, seconds % 3600 / 60);
    text.AppendChar(':');
    AppendTwoDigits(text, seconds % 60);
    return text;
}
