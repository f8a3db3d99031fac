// The library installed in a script control: MsgBox and InputBox reach the control's Host with
// their arguments, the library survives reset(), and values cross into C++ with their subtypes.
#include "vbscript/Host.h"
#include "vbscript/ScriptControl.h"
#include "vbscript/stdlib/StandardLibrary.h"

#include <gtest/gtest.h>

using namespace vbs;

namespace {

class RecordingHost : public Host {
public:
    int msgBox(const String& prompt, int buttons, const String& title) override {
        boxes.push_back({prompt, buttons, title});
        return answer;
    }
    std::optional<String> inputBox(const String& prompt, const String& title,
                                   const String& defaultText) override {
        boxes.push_back({prompt + u"|" + defaultText, -1, title});
        return typed;
    }
    struct Box {
        String prompt;
        int buttons;
        String title;
    };
    std::vector<Box> boxes;
    int answer = 6;
    std::optional<String> typed = String(u"typed");
};

class InstalledLibrary : public ::testing::Test {
protected:
    void SetUp() override {
        installStandardLibrary(control);
        control.setHost(&host);
    }
    Value eval(std::u16string_view expression) {
        Value result;
        EXPECT_TRUE(control.eval(expression, &result)) << toUtf8(control.error().description);
        return result;
    }
    ScriptControl control;
    RecordingHost host;
};

} // namespace

TEST_F(InstalledLibrary, MsgBoxPassesItsArgumentsToTheHost) {
    EXPECT_EQ(eval(u"MsgBox(\"Save?\", vbYesNo + vbQuestion, \"Photos\")").toLong(), 6);
    ASSERT_EQ(host.boxes.size(), 1u);
    EXPECT_EQ(host.boxes[0].prompt, u"Save?");
    EXPECT_EQ(host.boxes[0].buttons, 4 + 32);
    EXPECT_EQ(host.boxes[0].title, u"Photos");
    eval(u"MsgBox(42)");
    EXPECT_EQ(host.boxes[1].prompt, u"42");
    EXPECT_EQ(host.boxes[1].buttons, 0);
    EXPECT_EQ(host.boxes[1].title, u"VBScript");
}

TEST_F(InstalledLibrary, InputBoxReturnsWhatTheHostAnswers) {
    EXPECT_EQ(eval(u"InputBox(\"Name?\", \"T\", \"def\")").toString(), u"typed");
    EXPECT_EQ(host.boxes[0].prompt, u"Name?|def");
    EXPECT_EQ(host.boxes[0].title, u"T");
    host.typed.reset(); // cancelled
    const Value cancelled = eval(u"InputBox(\"Name?\")");
    EXPECT_TRUE(cancelled.isString());
    EXPECT_EQ(cancelled.toString(), u"");
}

TEST_F(InstalledLibrary, SurvivesReset) {
    control.reset();
    EXPECT_EQ(eval(u"UCase(Left(\"abc\", 2)) & vbTab").toString(), u"AB\t");
    EXPECT_EQ(eval(u"TypeName(CreateObject(\"Scripting.Dictionary\"))").toString(), u"Dictionary");
}

// (TypeName of InStr, Year and Split: the golden scripts.)
TEST_F(InstalledLibrary, ResultsKeepTheirSubtypes) {
    EXPECT_EQ(eval(u"Len(\"abc\")").type(), VarType::Long);
    EXPECT_EQ(eval(u"AscW(\"a\")").type(), VarType::Integer);
    EXPECT_EQ(eval(u"DateSerial(2003, 1, 2)").type(), VarType::Date);
    EXPECT_DOUBLE_EQ(eval(u"DateSerial(2003, 1, 2)").rawDate(), 37623);
    EXPECT_EQ(eval(u"CCur(1.5)").rawCurrency(), 15000);
    EXPECT_EQ(eval(u"Fix(CSng(2.5))").type(), VarType::Single);
}

TEST_F(InstalledLibrary, ErrorsCarryNumberAndMessage) {
    EXPECT_FALSE(control.addCode(u"x = 1\nx = Mid(\"abc\", 0)\n"));
    EXPECT_EQ(control.error().number, 5);
    EXPECT_EQ(control.error().description, u"Invalid procedure call or argument");
    EXPECT_EQ(control.error().line, 2);
}

// Each function refusing what it is given, with its error number: the function called with
// a value out of its range, of no use to it, or Null where it takes none.
TEST_F(InstalledLibrary, RefusedArgumentsRaiseTheirErrors) {
    // clang-format off
    const std::pair<const char16_t*, int32_t> cases[] = {
        {u"CByte(256)", 6}, {u"CStr(Null)", 94}, {u"CBool(\"maybe\")", 13}, {u"Hex(2147483648)", 6},
        {u"DateAdd(\"x\", 1, Now)", 5}, {u"DateAdd(\"yyyy\", 1, #12/31/9999#)", 5},
        {u"DateDiff(\"d\", Now, Now, 8)", 5}, {u"DateSerial(10000, 1, 1)", 5},
        {u"DateSerial(9999, 12, 32)", 5}, {u"DateAdd(\"d\", -1, #1/1/100#)", 5},
        {u"DateAdd(\"yyyy\", 1000000000, 0)", 5}, {u"MonthName(13)", 5}, {u"WeekdayName(0)", 5},
        {u"DateValue(\"not a date\")", 13}, {u"FormatNumber(\"abc\")", 13},
        {u"FormatDateTime(Now, 5)", 5}, {u"SetLocale(4242)", 5}, {u"FormatNumber(1, -2)", 5},
        {u"FormatCurrency(Null)", 13}, {u"MsgBox(\"bad\", 6)", 5}, {u"Sqr(-1)", 5}, {u"Log(0)", 5},
        {u"Exp(1000)", 6}, {u"Round(1.5, -1)", 5}, {u"Abs(\"abc\")", 13}, {u"Asc(\"\")", 5},
        {u"Chr(256)", 5}, {u"ChrW(65536)", 5}, {u"Asc(Null)", 94}, {u"Mid(\"abc\", 0)", 5},
        {u"Left(\"abc\", -1)", 5}, {u"Space(-1)", 5}, {u"String(2, \"\")", 5},
        {u"Mid(\"abc\", 1, -1)", 5}, {u"Space(2000000000)", 14},
        {u"Replace(\"abc\", \"a\", \"b\", 0)", 5}, {u"Split(\"a\", \",\", -2)", 5},
        {u"Join(\"not an array\")", 13}, {u"Join(Array(1, Null))", 13},
        {u"Replace(Null, \"a\", \"b\")", 94}, {u"InStr(0, \"abc\", \"a\")", 5},
        {u"InStr(1, \"abc\", \"a\", 2)", 5}, {u"InStrRev(\"abc\", \"a\", 0)", 5},
    };
    // clang-format on
    for (const auto& [expression, number] : cases) {
        EXPECT_FALSE(control.addCode(u"x = " + String(expression))) << toUtf8(expression);
        EXPECT_EQ(control.error().number, number) << toUtf8(expression);
        control.clearError();
    }
}
