// Date builtins: Now, Date, Time, Timer, DateAdd, DateDiff, DatePart, DateSerial, Year, ...
#include "Families.h"
#include "LibSupport.h"
#include "OleDate.h"
#include "vbscript/Locale.h"

#include <chrono>
#include <cmath>
#include <ctime>

namespace vbs::lib {

namespace {

struct LocalNow {
    double day;     // serial of today
    double seconds; // since local midnight, with milliseconds
};

LocalNow localNow() {
    using namespace std::chrono;
    const auto now = system_clock::now();
    const std::time_t t = system_clock::to_time_t(now);
    std::tm local{};
    localtime_r(&t, &local);
    const double ms = double(duration_cast<milliseconds>(now.time_since_epoch()).count() % 1000);
    return {double(daysFromCivil(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday)),
            local.tm_hour * 3600.0 + local.tm_min * 60.0 + local.tm_sec + ms / 1000.0};
}

double wholeSecondsOfDay(const LocalNow& n) {
    return std::floor(n.seconds) / 86400.0;
}

Value fnNow(CallContext&, Args) {
    const LocalNow n = localNow();
    return Value::fromDate(n.day + wholeSecondsOfDay(n));
}
Value fnDate(CallContext&, Args) {
    return Value::fromDate(localNow().day);
}
Value fnTime(CallContext&, Args) {
    return Value::fromDate(wholeSecondsOfDay(localNow()));
}
Value fnTimer(CallContext&, Args) {
    return Value(float(localNow().seconds));
}

Interval intervalArg(const Value& v) {
    const auto interval = parseInterval(v.toString());
    if (!interval) invalidCall();
    return *interval;
}

int firstDayArg(Args a, size_t i) {
    const long n = longArg(a, i, 1);
    if (n < 0 || n > 7) invalidCall();
    return int(n);
}

int firstWeekArg(Args a, size_t i) {
    const long n = longArg(a, i, 1);
    if (n < 0 || n > 3) invalidCall();
    return n == 0 ? 1 : int(n);
}

Value checkedDate(const std::optional<double>& serial) {
    if (!serial) invalidCall();
    return Value::fromDate(*serial);
}

Value fnDateAdd(CallContext&, Args a) {
    const Interval interval = intervalArg(*a[0]);
    const double number = std::trunc(a[1]->toDouble());
    if (isNullArg(*a[2])) return Value::null();
    if (std::fabs(number) > 1e9) invalidCall();
    return checkedDate(dateAdd(interval, (long long)number, a[2]->toDate()));
}

Value fnDateDiff(CallContext&, Args a) {
    const Interval interval = intervalArg(*a[0]);
    const int firstDay = firstDayArg(a, 3);
    const int firstWeek = firstWeekArg(a, 4);
    if (isNullArg(*a[1]) || isNullArg(*a[2])) return Value::null();
    return longValue(dateDiff(interval, a[1]->toDate(), a[2]->toDate(), firstDay, firstWeek));
}

Value fnDatePart(CallContext&, Args a) {
    const Interval interval = intervalArg(*a[0]);
    const int firstDay = firstDayArg(a, 2);
    const int firstWeek = firstWeekArg(a, 3);
    if (isNullArg(*a[1])) return Value::null();
    return Value(int16_t(datePart(interval, a[1]->toDate(), firstDay, firstWeek)));
}

Value fnDateSerial(CallContext&, Args a) {
    return checkedDate(dateSerial(a[0]->toLong(), a[1]->toLong(), a[2]->toLong()));
}

Value fnTimeSerial(CallContext&, Args a) {
    return checkedDate(timeSerial(a[0]->toLong(), a[1]->toLong(), a[2]->toLong()));
}

Value fnDateValue(CallContext&, Args a) {
    if (isNullArg(*a[0])) return Value::null();
    return Value::fromDate(std::trunc(a[0]->toDate()));
}

Value fnTimeValue(CallContext&, Args a) {
    if (isNullArg(*a[0])) return Value::null();
    const double serial = a[0]->toDate();
    return Value::fromDate(std::fabs(serial - std::trunc(serial)));
}

// Year, Month, ... share one shape: Null gives Null, anything else is read as a date.
template <Interval I> Value part(CallContext&, Args a) {
    if (isNullArg(*a[0])) return Value::null();
    return Value(int16_t(datePart(I, a[0]->toDate())));
}

Value fnWeekday(CallContext&, Args a) {
    const int firstDay = firstDayArg(a, 1);
    if (isNullArg(*a[0])) return Value::null();
    return Value(int16_t(weekday(a[0]->toDate(), firstDay)));
}

Value fnMonthName(CallContext& ctx, Args a) {
    const int32_t month = a[0]->toLong();
    if (month < 1 || month > 12) invalidCall();
    const Locale& locale = ctx.locale();
    return Value((boolArg(a, 1, false) ? locale.monthsShort : locale.months)[size_t(month - 1)]);
}

Value fnWeekdayName(CallContext& ctx, Args a) {
    const int32_t day = a[0]->toLong();
    const bool abbreviate = boolArg(a, 1, false);
    int firstDay = firstDayArg(a, 2);
    if (day < 1 || day > 7) invalidCall();
    if (firstDay == 0) firstDay = 1;
    const Locale& locale = ctx.locale();
    return Value((abbreviate ? locale.daysShort : locale.days)[size_t((day - 1 + firstDay - 1) % 7)]);
}

Value fnIsDate(CallContext&, Args a) {
    // Nothing and objects without a default property are simply not dates.
    if (a[0]->isObject() && (a[0]->isNothing() || !a[0]->object()->asDispatch()
                                || a[0]->object()->asDispatch()->defaultMemberId() < 0))
        return Value(false);
    const Value v = plain(*a[0]);
    if (v.type() == VarType::Date) return Value(true);
    double serial = 0;
    return Value(v.isString() && Value::parseDate(v.str(), serial));
}

const BuiltinDef kDateFunctions[] = {
    {u"Now", 0, 0, fnNow},
    {u"Date", 0, 0, fnDate},
    {u"Time", 0, 0, fnTime},
    {u"Timer", 0, 0, fnTimer},
    {u"DateAdd", 3, 3, fnDateAdd},
    {u"DateDiff", 3, 5, fnDateDiff},
    {u"DatePart", 2, 4, fnDatePart},
    {u"DateSerial", 3, 3, fnDateSerial},
    {u"TimeSerial", 3, 3, fnTimeSerial},
    {u"DateValue", 1, 1, fnDateValue},
    {u"TimeValue", 1, 1, fnTimeValue},
    {u"Year", 1, 1, part<Interval::Year>},
    {u"Month", 1, 1, part<Interval::Month>},
    {u"Day", 1, 1, part<Interval::Day>},
    {u"Hour", 1, 1, part<Interval::Hour>},
    {u"Minute", 1, 1, part<Interval::Minute>},
    {u"Second", 1, 1, part<Interval::Second>},
    {u"Weekday", 1, 2, fnWeekday},
    {u"MonthName", 1, 2, fnMonthName},
    {u"WeekdayName", 1, 3, fnWeekdayName},
    {u"IsDate", 1, 1, fnIsDate},
};

} // namespace

void registerDateFunctions(ScriptControl& control) {
    control.registerBuiltins(kDateFunctions);
}

} // namespace vbs::lib
