// ScriptControl: named host objects on Dispatch, Run, error information, reset, built-ins.
#include "vbscript/ScriptControl.h"

#include <gtest/gtest.h>

#include <pthread.h>
#include <stdexcept>

using namespace vbs;

namespace {

// A host object with a property, a method writing back through ByRef, and a failing member.
class Probe : public Dispatch {
public:
    int memberId(std::u16string_view name) const override
    {
        if (equalsNoCase(name, u"Level")) return 0;
        if (equalsNoCase(name, u"Double")) return 1;
        if (equalsNoCase(name, u"Fail")) return 2;
        if (equalsNoCase(name, u"Items")) return 3;
        if (equalsNoCase(name, u"Throw")) return 4;
        return -1;
    }
    Value invoke(int id, InvokeKind kind, std::span<Value*> args) override
    {
        switch (id) {
        case 0:
            if (kind == InvokeKind::PropertyLet) {
                level = args.back()->toLong();
                return {};
            }
            return Value(level);
        case 1:
            if (args.size() != 1)
                raise(ErrorCode::WrongArgumentCount);
            *args[0] = Value(args[0]->toLong() * 2); // writes back to the caller's variable
            return {};
        case 2:
            throw ScriptError(20001, u"Probe failed", u"Probe");
        case 4:
            throw std::runtime_error("native failure");
        default:
            return Value::makeArray(std::vector<Value>{Value(1), Value(2)});
        }
    }
    bool enumerate(std::vector<Value>& out) override
    {
        out = {Value(u"a"), Value(u"b")};
        return true;
    }
    String typeName() const override { return u"Probe"; }
    int32_t level = 0;
};

class RecordingHost : public Host {
public:
    void echo(const String& text) override { lines.push_back(text); }
    std::vector<String> lines;
};

Value fnTwice(CallContext&, std::span<Value*> args)
{
    return Value(args[0]->toLong() * 2);
}

const BuiltinDef kTestBuiltins[] = {{u"Twice", 1, 1, fnTwice}};

Ref<Dispatch> createProbe()
{
    return makeRef<Probe>();
}

const NativeClassDef kTestClasses[] = {{u"Probe", createProbe}};

// The same object with Level as its default member.
class DefaultProbe : public Probe {
public:
    int defaultMemberId() const override { return 0; }
};

} // namespace

TEST(ScriptControl, HostObjectMembersAndByRef)
{
    ScriptControl sc;
    auto probe = makeRef<Probe>();
    sc.addObject(u"FX", probe);
    ASSERT_TRUE(sc.addCode(u"fx.level = 7\r\nDim v : v = 21\r\nFX.Double v\r\nfx.Level = fx.Level + v"));
    EXPECT_EQ(probe->level, 49);
    Value r;
    ASSERT_TRUE(sc.eval(u"v & \"/\" & fx.LEVEL", &r));
    EXPECT_EQ(r.toString(), u"42/49");
}

TEST(ScriptControl, LetToVariableHoldingHostObjectUsesDefaultMember)
{
    ScriptControl sc;
    auto probe = makeRef<DefaultProbe>();
    sc.addObject(u"fx", probe);
    ASSERT_TRUE(sc.addCode(u"Dim p\nSet p = fx\np = 7\nSub S(q)\nq = q + 1\nEnd Sub\nS p"));
    EXPECT_EQ(probe->level, 8);
    Value r;
    ASSERT_TRUE(sc.eval(u"p Is fx", &r));
    EXPECT_TRUE(r.toBoolean());

    // Without a default member the variable simply takes the value, as for script objects.
    sc.addObject(u"plain", makeRef<Probe>());
    ASSERT_TRUE(sc.addCode(u"Dim o\nSet o = plain\no = 1"));
    ASSERT_TRUE(sc.eval(u"o + 1", &r));
    EXPECT_EQ(r.toLong(), 2);
}

TEST(ScriptControl, AddMembersMakesMembersGlobal)
{
    ScriptControl sc;
    auto probe = makeRef<Probe>();
    sc.addObject(u"fx", probe, true);
    probe->level = 4;
    Value r;
    ASSERT_TRUE(sc.addCode(u"Dim v : v = 5 : Double v\nFunction Get() : Get = Level + v : End Function"));
    ASSERT_TRUE(sc.run(u"Get", {}, &r));
    EXPECT_EQ(r.toLong(), 14);
}

TEST(ScriptControl, RunReportsErrorLocation)
{
    ScriptControl sc;
    sc.addObject(u"fx", makeRef<Probe>());
    ASSERT_TRUE(sc.addCode(u"Sub Main()\r\n  Dim a\r\n  fx.Fail\r\nEnd Sub\r\nSub Other()\r\n  fx.Missing\r\nEnd Sub"));
    EXPECT_FALSE(sc.run(u"main", {}));
    EXPECT_EQ(sc.error().number, 20001);
    EXPECT_EQ(sc.error().description, u"Probe failed");
    EXPECT_EQ(sc.error().source, u"Probe");
    EXPECT_EQ(sc.error().line, 3);
    EXPECT_EQ(sc.error().text, u"  fx.Fail");
    sc.clearError();
    EXPECT_FALSE(sc.run(u"Other", {}));
    EXPECT_EQ(sc.error().number, 438);
    EXPECT_EQ(sc.error().line, 6);
}

TEST(ScriptControl, HostCppExceptionIsAnAutomationError)
{
    ScriptControl sc;
    sc.addObject(u"fx", makeRef<Probe>());
    EXPECT_FALSE(sc.addCode(u"Dim a\nfx.Throw"));
    EXPECT_EQ(sc.error().number, 440);
    EXPECT_EQ(sc.error().description, u"native failure");
    EXPECT_EQ(sc.error().line, 2);
    ASSERT_TRUE(sc.addCode(u"On Error Resume Next\nfx.Throw\nDim n : n = Err.Number"));
    Value r;
    ASSERT_TRUE(sc.eval(u"n", &r));
    EXPECT_EQ(r.toLong(), 440);
}

TEST(ScriptControl, CompileErrorHasLineColumnAndText)
{
    ScriptControl sc;
    EXPECT_FALSE(sc.addCode(u"Dim a\r\na = 1 2\r\n"));
    EXPECT_EQ(sc.error().number, 1025);
    EXPECT_EQ(sc.error().description, u"Expected end of statement");
    EXPECT_EQ(sc.error().line, 2);
    EXPECT_EQ(sc.error().column, 7);
    EXPECT_EQ(sc.error().text, u"a = 1 2");
    EXPECT_EQ(sc.error().source, u"Microsoft VBScript compilation error");
}

// Each compile error with its number, and its line where the offending token has one (0: the
// code ends before the missing part). The report of one through vbsrun: the golden scripts.
TEST(ScriptControl, CompileErrorsNameNumberAndLine)
{
    struct Case {
        const char16_t* code;
        int32_t number, line;
    };
    const Case cases[] = {
        {u"Class A\nPrivate Default Function F()\nEnd Function\nEnd Class", 1057, 2},
        {u"Select 5\nEnd Select", 1021, 1}, {u"If True Then\nx = 1\n", 1014, 0},
        {u"Dim a\na = 1 2", 1025, 2}, {u"For i 1 To 5\nNext", 1011, 1},
        {u"Dim a\na = (1 + ", 1023, 2}, {u"Dim 5", 1010, 1},
        {u"If True Then\nx = 1\nEnd Sub", 1012, 3}, {u"Dim n\nDim a(n)", 1026, 2},
        {u"Dim a\nConst C = a", 1045, 2}, {u"Do\nx = 1\n", 1019, 0}, {u"ReDim a", 1005, 1},
        {u"For i = 1 To 2\nx = 1\n", 1020, 0}, {u"x = (1 + 2", 1006, 1},
        {u"Dim a\n)", 1024, 2}, {u"If True\nx = 1\nEnd If", 1017, 1},
        {u"For i = 1 5\nNext", 1013, 1}, {u"While True\nx = 1\n", 1018, 0},
        {u"Exit Do", 1039, 1}, {u"Dim a\nLoop", 1038, 2}, {u"Dim a\nOption Explicit", 1042, 2},
        {u"Sub A()\nSub B()\nEnd Sub\nEnd Sub", 1002, 2}, {u"Next", 1055, 1},
        {u"Dim x\nx = 5 ? 3", 1032, 2}, {u"Dim s\ns = \"abc", 1033, 2},
        {u"Class Twice\nPublic Sub A()\nEnd Sub\nPublic Sub A()\nEnd Sub\nEnd Class", 1041,
         4},
        {u"Class P\nPublic Property Get V(i)\nEnd Property\nPublic Property Let V(x)\n"
         u"End Property\nEnd Class",
         1051, 4},
        {u"Property Get Loose()\nEnd Property", 1048, 1}, {u"Dim a\nDim a", 1041, 2},
        {u"Sub Show(a, b)\nEnd Sub\nShow(1, 2)", 1044, 3},
        {u"Select Case 5\nCase Is > 3\nx = 1\nEnd Select", 1002, 2},
        {u"Select Case 5\nCase 1 To 9\nx = 1\nEnd Select", 1025, 2},
        {u"Dim total\ntotal = 1 + _\n2 + _\n* 3", 1002, 4}, // the offending token's line
    };
    for (const Case& c : cases) {
        ScriptControl sc;
        EXPECT_FALSE(sc.addCode(c.code)) << toUtf8(c.code);
        EXPECT_EQ(sc.error().number, c.number) << toUtf8(c.code);
        EXPECT_TRUE(sc.error().compileTime) << toUtf8(c.code);
        if (c.line) {
            EXPECT_EQ(sc.error().line, c.line) << toUtf8(c.code);
        }
    }
}

// Each run-time error with its number and the line of the statement that raised it.
TEST(ScriptControl, RuntimeErrorsNameNumberAndLine)
{
    struct Case {
        const char16_t* code;
        int32_t number, line;
    };
    const Case cases[] = {
        {u"Sub S()\nEnd Sub\nS = 5", 501, 3}, {u"Set o = New Missing", 506, 1},
        {u"Err.Raise 1234, \"mysource\", \"my description\"", 1234, 1},
        {u"Sub Inner()\nDim x\nx = \"a\" * 2\nEnd Sub\nInner", 13, 3},
        {u"Function Level2(x)\nLevel2 = x(1)\nEnd Function\nFunction Level1(x)\n"
         u"Level1 = Level2(x) + 1\nEnd Function\nx = Level1(5)",
         13, 2},
        {u"Dim a(2)\nReDim a(\"not a number\")", 10, 2}, // refused before the bounds are read
        {u"x = 5 Mod 0", 11, 1},
        {u"Class C\nPublic A\nEnd Class\nSet o = New C\nx = o.B", 438, 5},
        {u"For Each x In 5 : Next", 451, 1}, {u"Dim o\nSet o = Nothing\nx = o + 1", 91, 3},
        {u"Dim s\ns = 5\nx = s.Name", 424, 3},
        {u"Function F(a, b)\nF = a + b\nEnd Function\nx = F(1)", 450, 4},
        {u"Dim o\nSet o = 5", 424, 2}, {u"Dim a(2)\na(2) = 1\na(3) = 1", 9, 3},
        {u"Dim s\ns = 5\nx = s(1)", 13, 3}, {u"Sub T() : .Name = 1 : End Sub : T", 505, 1},
        {u"Sub S(a)\nEnd Sub\nS 1, 2", 450, 3}, {u"Dim a(2, 2)\nx = a(1)", 9, 2},
        {u"Dim x\nx = 0 / 0", 6, 2}, {u"Dim a()\nReDim a(2, 2)\nReDim Preserve a(3, 3)", 9, 3},
        {u"Dim d()\nReDim d(2)\nSub Grow(item)\nReDim d(5)\nEnd Sub\nGrow d(1)", 10, 4},
        {u"Class Broken\nPrivate Sub Class_Initialize()\nDim x\nx = 1 / 0\nEnd Sub\nEnd Class\n"
         u"Dim b\nSet b = New Broken",
         11, 4},
        {u"Dim n\nn = 3\nn.Go", 424, 3},
        {u"Class Secret\nPrivate hidden\nEnd Class\nDim s\nSet s = New Secret\nx = s.hidden", 438,
         6},
        {u"Const A = 1\nA = 2", 501, 2}, {u"Dim s\ns = \"abc\"\nMid(s, 0) = \"x\"", 5, 3},
        {u"Option Explicit\nSub Test()\nDim ok\nok = 1\nnotDeclared = 2\nEnd Sub\nTest", 500, 5},
        {u"x = \"abc\" + 1", 13, 1}, {u"NotThere 1, 2", 13, 1},
        {u"Option Explicit\nDim a\na = 1\nb = 2", 500, 4},
        // A continued statement is reported at its first line; a second statement starting on a
        // continued line at its own start; the condition after Loop at the Loop line.
        {u"Sub Show(a, b, c)\nEnd Sub\nShow 1, _\n2, _\n\"x\" * 2", 13, 3},
        {u"Dim x, y\nx = 1 + _\n2 : y = _\n1 / 0", 11, 3},
        {u"Dim a\na = 1\nDo\na = a + 1\nLoop While a < _\n(1 / 0)", 11, 5},
    };
    for (const Case& c : cases) {
        ScriptControl sc;
        EXPECT_FALSE(sc.addCode(c.code)) << toUtf8(c.code);
        EXPECT_EQ(sc.error().number, c.number) << toUtf8(c.code);
        EXPECT_FALSE(sc.error().compileTime) << toUtf8(c.code);
        EXPECT_EQ(sc.error().line, c.line) << toUtf8(c.code);
    }
}

TEST(ScriptControl, RuntimeErrorInContinuedStatementNamesItsFirstLine)
{
    ScriptControl sc;
    EXPECT_FALSE(sc.addCode(u"Dim a\r\na = 1 + _\r\n    2 / 0\r\n"));
    EXPECT_EQ(sc.error().number, 11);
    EXPECT_EQ(sc.error().line, 2);
    EXPECT_EQ(sc.error().column, 1);
    EXPECT_EQ(sc.error().text, u"a = 1 + _");
}

TEST(ScriptControl, RunFunctionWithArgumentsAndResult)
{
    ScriptControl sc;
    ASSERT_TRUE(sc.addCode(u"Function Add(a, b)\nAdd = a + b\nEnd Function"));
    Value r;
    ASSERT_TRUE(sc.run(u"ADD", {Value(2), Value(3)}, &r));
    EXPECT_EQ(r.toLong(), 5);
    EXPECT_FALSE(sc.run(u"Add", {Value(1)}));
    EXPECT_EQ(sc.error().number, 450);
    EXPECT_FALSE(sc.run(u"NoSuch", {}));
    EXPECT_EQ(sc.error().number, 35);
}

TEST(ScriptControl, TopLevelRunsOnAddAndCodeAccumulates)
{
    ScriptControl sc;
    RecordingHost host;
    sc.setHost(&host);
    sc.registerBuiltins(kTestBuiltins);
    sc.registerConstant(u"Answer", Value(int16_t(42)));
    ASSERT_TRUE(sc.addCode(u"Dim total : total = Twice(Answer)"));
    ASSERT_TRUE(sc.addCode(u"Function Get() : Get = total : End Function"));
    Value r;
    ASSERT_TRUE(sc.run(u"Get", {}, &r));
    EXPECT_EQ(r.toLong(), 84);
    sc.reset();
    EXPECT_FALSE(sc.run(u"Get", {}));
    ASSERT_TRUE(sc.eval(u"Twice(2) + Answer", &r)); // built-ins and constants survive a reset
    EXPECT_EQ(r.toLong(), 46);
}

TEST(ScriptControl, ForEachOverHostCollectionAndTypeName)
{
    ScriptControl sc;
    sc.addObject(u"fx", makeRef<Probe>());
    ASSERT_TRUE(sc.addCode(u"Dim s, x\nFor Each x In fx : s = s & x : Next\nFor Each x In fx.Items : s = s & x : Next"));
    Value r;
    ASSERT_TRUE(sc.eval(u"s", &r));
    EXPECT_EQ(r.toString(), u"ab12");
}

TEST(ScriptControl, StatementLimitStopsEndlessLoops)
{
    ScriptControl sc;
    sc.setStatementLimit(10000);
    EXPECT_FALSE(sc.addCode(u"On Error Resume Next\nDo\nLoop"));
    EXPECT_EQ(sc.error().number, 17);
    EXPECT_FALSE(sc.addCode(u"Sub R() : R : End Sub\nOn Error Resume Next\nR"));
    EXPECT_TRUE(sc.addCode(u"Dim i, n : For i = 1 To 100 : n = n + i : Next")); // counts per run
}

TEST(ScriptControl, RunawayStringsAndArraysAreErrors)
{
    ScriptControl sc;
    EXPECT_FALSE(sc.addCode(u"Dim s : s = \"x\" : Do : s = s & s : Loop"));
    EXPECT_EQ(sc.error().number, 14);
    EXPECT_FALSE(sc.addCode(u"ReDim a(100000, 100000)"));
    EXPECT_EQ(sc.error().number, 7);
}

TEST(ScriptControl, NativeClassesForNew)
{
    ScriptControl sc;
    sc.registerClasses(kTestClasses);
    sc.reset(); // kept across a reset
    Value r;
    ASSERT_TRUE(sc.addCode(u"Dim p : Set p = New probe : p.Level = 3"));
    ASSERT_TRUE(sc.eval(u"p.Level", &r));
    EXPECT_EQ(r.toLong(), 3);
    // A script class of the same name is accepted, but New still makes the provided one.
    ASSERT_TRUE(sc.addCode(u"Class Probe\nPublic Level\nEnd Class\nSet p = New Probe"));
    ASSERT_TRUE(sc.eval(u"p.Level", &r));
    EXPECT_EQ(r.toLong(), 0);
}

TEST(ScriptControl, LanguageIsVBScriptOnly)
{
    ScriptControl sc;
    EXPECT_TRUE(sc.setLanguage(u"vbscript"));
    EXPECT_FALSE(sc.setLanguage(u"JScript"));
    EXPECT_EQ(sc.language(), u"VBScript");
}

TEST(ScriptControl, DeepRecursionOnASmallThreadStack)
{
    // The stack budget follows the running thread's stack, not a fixed depth.
    struct Result {
        int32_t number = 0;
    } result;
    pthread_attr_t attr;
    pthread_attr_init(&attr);
    pthread_attr_setstacksize(&attr, 1 << 20);
    pthread_t thread;
    auto body = [](void* p) -> void* {
        ScriptControl sc;
        sc.addCode(u"Function R(n)\nR = R(n + 1) + 1\nEnd Function");
        sc.run(u"R", {Value(0)});
        static_cast<Result*>(p)->number = sc.error().number;
        return nullptr;
    };
    ASSERT_EQ(pthread_create(&thread, &attr, body, &result), 0);
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attr);
    EXPECT_EQ(result.number, 28);
}

TEST(ScriptControl, ObjectOutlivingControlIsSafe)
{
    Value kept;
    {
        ScriptControl sc;
        ASSERT_TRUE(sc.addCode(u"Class C\nPublic V\nPrivate Sub Class_Terminate()\nV = 0\nEnd Sub\nEnd Class\nDim o : Set o = New C"));
        ASSERT_TRUE(sc.eval(u"o", &kept));
    }
    EXPECT_EQ(kept.typeName(), u"C");
    kept.clear(); // no Class_Terminate once the engine is gone, and no crash
}
