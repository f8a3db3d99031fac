// Dates as en-US text: parsing for CDate/DateValue/TimeValue/IsDate and the standard formats.
#pragma once

#include "OleDate.h"

#include <optional>
#include <string>
#include <string_view>

namespace vbs::lib {

enum class DateFormat { General = 0, LongDate = 1, ShortDate = 2, LongTime = 3, ShortTime = 4 };

// Reads "1/2/2003", "2003-01-02", "January 2, 2003", "2 Jan 03", "10:30 PM", "1/2/2003 22:30:15"
// and the like (month before day). A date without a year takes currentYear.
// Returns the serial, or nullopt when the text is not a date.
std::optional<double> parseDate(std::u16string_view text, int currentYear);

// Whether the parsed text held a date part and a time part.
struct ParsedDate {
    double serial = 0;
    bool hasDate = false;
    bool hasTime = false;
};
std::optional<ParsedDate> parseDateDetailed(std::u16string_view text, int currentYear);

std::u16string formatDate(double serial, DateFormat format = DateFormat::General);

// month 1..12, day 1..7 with 1 = Sunday.
std::u16string monthName(int month, bool abbreviate = false);
std::u16string weekdayName(int day, bool abbreviate = false);

} // namespace vbs::lib
