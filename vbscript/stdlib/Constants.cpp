// The library's named constants: compare modes, dates, MsgBox flags and answers, VarType codes,
// tristates, colours and string constants.
#include "Families.h"

namespace vbs::lib {

namespace {

struct IntegerConstant {
    std::u16string_view name;
    int32_t value;
    bool isLong = false; // a Long even where the value would fit an Integer
};

const IntegerConstant kConstants[] = {
    {u"vbBinaryCompare", 0},
    {u"vbTextCompare", 1},
    {u"vbDatabaseCompare", 2},
    {u"vbUseSystemDayOfWeek", 0},
    {u"vbSunday", 1},
    {u"vbMonday", 2},
    {u"vbTuesday", 3},
    {u"vbWednesday", 4},
    {u"vbThursday", 5},
    {u"vbFriday", 6},
    {u"vbSaturday", 7},
    {u"vbUseSystem", 0},
    {u"vbFirstJan1", 1},
    {u"vbFirstFourDays", 2},
    {u"vbFirstFullWeek", 3},
    {u"vbGeneralDate", 0},
    {u"vbLongDate", 1},
    {u"vbShortDate", 2},
    {u"vbLongTime", 3},
    {u"vbShortTime", 4},
    {u"vbTrue", -1},
    {u"vbFalse", 0},
    {u"vbUseDefault", -2},
    {u"vbOKOnly", 0},
    {u"vbOKCancel", 1},
    {u"vbAbortRetryIgnore", 2},
    {u"vbYesNoCancel", 3},
    {u"vbYesNo", 4},
    {u"vbRetryCancel", 5},
    {u"vbCritical", 16},
    {u"vbQuestion", 32},
    {u"vbExclamation", 48},
    {u"vbInformation", 64},
    {u"vbDefaultButton1", 0},
    {u"vbDefaultButton2", 256},
    {u"vbDefaultButton3", 512},
    {u"vbDefaultButton4", 768},
    {u"vbApplicationModal", 0},
    {u"vbSystemModal", 4096},
    {u"vbMsgBoxHelpButton", 16384, true},
    {u"vbMsgBoxSetForeground", 65536, true},
    {u"vbMsgBoxRight", 524288, true},
    {u"vbMsgBoxRtlReading", 1048576, true},
    {u"vbOK", 1},
    {u"vbCancel", 2},
    {u"vbAbort", 3},
    {u"vbRetry", 4},
    {u"vbIgnore", 5},
    {u"vbYes", 6},
    {u"vbNo", 7},
    {u"vbEmpty", 0},
    {u"vbNull", 1},
    {u"vbInteger", 2},
    {u"vbLong", 3},
    {u"vbSingle", 4},
    {u"vbDouble", 5},
    {u"vbCurrency", 6},
    {u"vbDate", 7},
    {u"vbString", 8},
    {u"vbObject", 9},
    {u"vbError", 10},
    {u"vbBoolean", 11},
    {u"vbVariant", 12},
    {u"vbDataObject", 13},
    {u"vbDecimal", 14},
    {u"vbByte", 17},
    {u"vbArray", 8192},
    {u"vbBlack", 0x000000, true},
    {u"vbRed", 0x0000FF, true},
    {u"vbGreen", 0x00FF00, true},
    {u"vbYellow", 0x00FFFF, true},
    {u"vbBlue", 0xFF0000, true},
    {u"vbMagenta", 0xFF00FF, true},
    {u"vbCyan", 0xFFFF00, true},
    {u"vbWhite", 0xFFFFFF, true},
    {u"vbObjectError", int32_t(0x80040000u)},
};

} // namespace

void registerConstants(ScriptControl& control) {
    for (const IntegerConstant& c : kConstants) {
        // VBScript's intrinsic constants are Integers where they fit, Longs otherwise; the
        // colours and the MsgBox option flags are always Longs.
        const bool fitsInteger = !c.isLong && c.value >= -32768 && c.value <= 32767;
        control.registerConstant(c.name, fitsInteger ? Value(int16_t(c.value)) : Value(c.value));
    }
    control.registerConstant(u"vbCr", Value(u"\r"));
    control.registerConstant(u"vbLf", Value(u"\n"));
    control.registerConstant(u"vbCrLf", Value(u"\r\n"));
    control.registerConstant(u"vbNewLine", Value(u"\r\n"));
    control.registerConstant(u"vbTab", Value(u"\t"));
    control.registerConstant(u"vbFormFeed", Value(u"\f"));
    control.registerConstant(u"vbVerticalTab", Value(u"\v"));
    control.registerConstant(u"vbNullChar", Value(String(1, u'\0')));
    control.registerConstant(u"vbNullString", Value(u""));
}

} // namespace vbs::lib
