// Dates as en-US text: FormatDateTime's named formats and the month and weekday names.
#pragma once

#include "OleDate.h"

#include <string>
#include <string_view>

namespace vbs::lib {

// FormatDateTime's named formats; General is CStr's rendering and lives in the core's Value.
enum class DateFormat { General = 0, LongDate = 1, ShortDate = 2, LongTime = 3, ShortTime = 4 };

// The en-US long date, short date, long time and short time; General falls back to the short
// date and long time joined, with either left out when zero.
std::u16string formatDate(double serial, DateFormat format = DateFormat::General);

// month 1..12, day 1..7 with 1 = Sunday.
std::u16string monthName(int month, bool abbreviate = false);
std::u16string weekdayName(int day, bool abbreviate = false);

} // namespace vbs::lib
