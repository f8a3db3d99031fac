// Bad input never crashes the parser: the fuzz corpus replayed, and pathological nesting.
#include "vbscript/ScriptControl.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

using namespace vbs;

namespace {

// Compiles text without running it; returns the error number (0 when it compiled).
int compileOnly(const std::string& bytes)
{
    ScriptControl sc;
    if (sc.checkSyntax(fromUtf8(bytes)))
        return 0;
    return sc.error().number;
}

} // namespace

TEST(ParserRobustness, CorpusReplaysWithoutCrash)
{
    const std::filesystem::path dir(VBS_FUZZ_CORPUS);
    ASSERT_TRUE(std::filesystem::is_directory(dir));
    int files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(dir)) {
        std::ifstream in(entry.path(), std::ios::binary);
        std::ostringstream s;
        s << in.rdbuf();
        const int n = compileOnly(s.str());
        EXPECT_GE(n, 0) << entry.path();
        ++files;
    }
    EXPECT_GT(files, 10);
}

TEST(ParserRobustness, DeepNestingIsAnErrorNotACrash)
{
    EXPECT_EQ(compileOnly("x = " + std::string(100000, '(') + "1"), 28);
    EXPECT_EQ(compileOnly("x = " + std::string(100000, '-') + "1"), 28);
    std::string chain = "x = 1";
    for (int i = 0; i < 100000; ++i)
        chain += " + 1";
    EXPECT_EQ(compileOnly(chain), 28);
    std::string ifs;
    for (int i = 0; i < 5000; ++i)
        ifs += "If x Then\n";
    EXPECT_EQ(compileOnly(ifs), 28);
    std::string members = "x = a";
    for (int i = 0; i < 100000; ++i)
        members += ".b";
    EXPECT_EQ(compileOnly(members), 28);
}

TEST(ParserRobustness, GarbageGivesCompileErrors)
{
    const char* inputs[] = {"\x01\x02\x03", "If", "End", "Class", "Sub", "x = \"", "#1/2", "&H",
        "Dim a(", "For Each", "Select Case", "With", "x.", "Call", "On Error", "ReDim",
        "Property Get", "Class A\nProperty", "x = 1 +", "[unterminated"};
    for (const char* in : inputs) {
        const int n = compileOnly(in);
        EXPECT_TRUE(n >= 1001 && n <= 1058) << in << " -> " << n;
    }
}
