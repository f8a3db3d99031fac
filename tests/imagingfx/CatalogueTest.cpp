// The effect table: complete, consistent, and the source of the range messages.
#include "imaging/fx/FxCatalogue.h"

#include <set>

#include "FxTestSupport.h"

// Each effect is found by its argument checks and its operation (FxMembers, ControlOperations).
TEST(Catalogue, HoldsEveryEffectMemberOnce) {
    std::set<std::string_view> names;
    for (const auto& m : fx::effectCatalogue())
        EXPECT_TRUE(names.insert(m.name).second) << "twice: " << m.name;
    EXPECT_EQ(names.size(), 44u);
    EXPECT_EQ(fx::findEffect("mblur"), fx::findEffect("MBlur"));
    EXPECT_EQ(fx::findEffect("Resize"), nullptr);
}

TEST(Catalogue, EntriesAreWellFormed) {
    for (const auto& m : fx::effectCatalogue()) {
        EXPECT_FALSE(m.description.empty()) << m.name;
        EXPECT_FALSE(m.family.empty()) << m.name;
        std::set<std::string_view> args;
        bool optionalSeen = false;
        for (const auto& a : m.arguments) {
            EXPECT_TRUE(args.insert(a.name).second) << m.name << "." << a.name;
            EXPECT_FALSE(a.meaning.empty()) << m.name << "." << a.name;
            if (a.ranged) {
                EXPECT_LE(a.min, a.max) << m.name << "." << a.name;
            }
            // Once an argument is optional, the ones after it are too.
            if (optionalSeen) {
                EXPECT_FALSE(a.defaultValue.empty()) << m.name << "." << a.name;
            }
            optionalSeen = optionalSeen || !a.defaultValue.empty();
        }
    }
}

TEST(Catalogue, ReferenceEntryShowsCallRangesAndDefaults) {
    std::string entry = fx::referenceEntry(*fx::findEffect("DrawCircle"));
    EXPECT_EQ(entry.substr(0, entry.find('\n')), "DrawCircle x, y, radius, [color], [aspect]");
    EXPECT_NE(entry.find("radius: integer, 0 to 32767 - horizontal radius in pixels"),
              std::string::npos)
        << entry;
    EXPECT_NE(entry.find("aspect: number, 0.01 to 100, default 1 - "), std::string::npos) << entry;
    std::string mode = fx::referenceEntry(*fx::findEffect("DrawMode"));
    EXPECT_EQ(mode.substr(0, mode.find('\n')), "DrawMode mode");
    EXPECT_NE(mode.find("initially 13"), std::string::npos) << mode;
}

TEST(Catalogue, RangeMessagesNameMemberArgumentRangeAndValue) {
    fxtest::expectBadArgument([] { fx::checkArgument("Posterize", "levels", 1); }, "Posterize",
                              "Posterize: levels must be 2 to 64 (got 1)");
    fxtest::expectBadArgument([] { fx::checkArgument("Swirl", "angle", 3600.5); }, "Swirl",
                              "(got 3600.5)");
    EXPECT_NO_THROW(fx::checkArgument("Posterize", "levels", 64));
    EXPECT_EQ(fx::rangeText(fx::findArgument("DrawFillColor", "color")), "0 to &HFFFFFF");
    EXPECT_THROW(fx::checkArgument("Posterize", "nonsense", 1), std::logic_error);
}
