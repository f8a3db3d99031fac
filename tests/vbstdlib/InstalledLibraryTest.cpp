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

TEST_F(InstalledLibrary, ResultsKeepTheirSubtypes) {
    EXPECT_EQ(eval(u"InStr(\"abc\", \"c\")").type(), VarType::Long);
    EXPECT_EQ(eval(u"Len(\"abc\")").type(), VarType::Long);
    EXPECT_EQ(eval(u"AscW(\"a\")").type(), VarType::Integer);
    EXPECT_EQ(eval(u"Year(Now)").type(), VarType::Integer);
    EXPECT_EQ(eval(u"DateSerial(2003, 1, 2)").type(), VarType::Date);
    EXPECT_DOUBLE_EQ(eval(u"DateSerial(2003, 1, 2)").rawDate(), 37623);
    EXPECT_EQ(eval(u"CCur(1.5)").rawCurrency(), 15000);
    EXPECT_EQ(eval(u"Fix(CSng(2.5))").type(), VarType::Single);
    EXPECT_EQ(eval(u"Split(\"a b\")").type(), VarType(0x200C));
}

TEST_F(InstalledLibrary, ErrorsCarryNumberAndMessage) {
    EXPECT_FALSE(control.addCode(u"x = 1\nx = Mid(\"abc\", 0)\n"));
    EXPECT_EQ(control.error().number, 5);
    EXPECT_EQ(control.error().description, u"Invalid procedure call or argument");
    EXPECT_EQ(control.error().line, 2);
}
