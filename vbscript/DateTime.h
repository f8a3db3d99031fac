// Calendar arithmetic on OLE dates (days since 30 December 1899, time as the fraction).
#pragma once

#include <cstdint>

namespace vbs {

struct DateParts {
    int year = 1899, month = 12, day = 30;
    int hour = 0, minute = 0, second = 0;
    int weekday = 7; // 1 = Sunday ... 7 = Saturday
};

// Like DateSerial: months and days outside their range roll over into the next unit.
double makeOleDate(int year, int month, int day);
// Like TimeSerial: the fraction of a day (may be negative or exceed a day).
double makeOleTime(int hour, int minute, int second);
// Combines a date part and a time part, keeping the OLE sign convention for negative dates.
double combineOleDateTime(double datePart, double timePart);
// Rounds to the nearest second, as the date functions see a date.
DateParts splitOleDate(double oleDate);
bool isValidOleDate(double oleDate);

} // namespace vbs
