// The error catalogue: unique numbers, ascending order, messages present.
#include "vbscript/ScriptError.h"

#include <gtest/gtest.h>
#include <set>

using namespace vbs;

TEST(ErrorCatalogue, NumbersAreUniqueAndSorted)
{
    std::set<int32_t> seen;
    int32_t last = 0;
    for (const auto& e : errorCatalogue()) {
        EXPECT_TRUE(seen.insert(e.number).second) << e.number;
        EXPECT_GT(e.number, last);
        EXPECT_STRNE(e.message, "");
        last = e.number;
    }
}

TEST(ErrorCatalogue, KnownMessages)
{
    EXPECT_EQ(errorMessage(ErrorCode::TypeMismatch), u"Type mismatch");
    EXPECT_EQ(errorMessage(ErrorCode::ExpectedEndOfStatement), u"Expected end of statement");
    EXPECT_EQ(errorMessage(424), u"Object required");
    EXPECT_EQ(errorMessage(99999), u"Unknown runtime error");
    EXPECT_TRUE(isCompileError(1002));
    EXPECT_FALSE(isCompileError(13));
}

// The compile family 1001-1058 is complete apart from the numbers VBScript never used.
TEST(ErrorCatalogue, CompileErrorsAreComplete)
{
    int compileErrors = 0;
    for (const auto& e : errorCatalogue())
        compileErrors += isCompileError(e.number);
    EXPECT_EQ(compileErrors, 53);
}

TEST(ErrorCatalogue, RaiseCarriesNumberAndMessage)
{
    try {
        raise(ErrorCode::Overflow, u"src");
        FAIL();
    } catch (const ScriptError& e) {
        EXPECT_EQ(e.number, 6);
        EXPECT_EQ(e.description, u"Overflow");
        EXPECT_EQ(e.source, u"src");
        EXPECT_FALSE(e.located());
    }
}
