// Settings store in an isolated INI file: values, defaults, the preferences and the loading flag.
#include "platform/mWindowsAPI.h"
#include "RecordingMessages.h"
#include "TempTree.h"

#include <gtest/gtest.h>

using namespace mWindowsAPI;

namespace {

class SettingsTest : public testing::Test {
protected:
    void SetUp() override {
        setSettingsFile(tree.nativePath("settings.ini"));
        preferences() = Preferences{};
    }
    void TearDown() override {
        setApplySettingsHook({});
        setSettingsFile({});
    }
    TempTree tree;
};

} // namespace

TEST_F(SettingsTest, ValuesRoundTripPerSection) {
    EXPECT_EQ(GetSettingValue("Settings", "LastFolder", "none"), QStringLiteral("none"));
    SaveSettingValue("Settings", "LastFolder", "~\\photos");
    SaveSettingValue("Window", "LastFolder", "other");
    EXPECT_EQ(GetSettingValue("Settings", "LastFolder", "none"), QStringLiteral("~\\photos"));
    EXPECT_EQ(GetSettingValue("Window", "LastFolder"), QStringLiteral("other"));
    EXPECT_TRUE(tree.read("settings.ini").contains("[Settings]"));
}

TEST_F(SettingsTest, FirstRunHasAllPreferencesOn) {
    preferences() = Preferences{false, false, false, false};
    LoadSettings(false);
    EXPECT_TRUE(preferences().SetColorize);
    EXPECT_TRUE(preferences().SetAutoComplete);
    EXPECT_TRUE(preferences().SetDynamicHelp);
    EXPECT_TRUE(preferences().SetDynamicPreview);
}

TEST_F(SettingsTest, SavedPreferencesAreReadBack) {
    preferences().SetAutoComplete = false;
    preferences().SetDynamicPreview = false;
    SaveSettings();
    EXPECT_EQ(GetSettingValue("Settings", "SetAutoComplete"), QStringLiteral("False"));
    preferences() = Preferences{};
    LoadSettings(false);
    EXPECT_TRUE(preferences().SetColorize);
    EXPECT_FALSE(preferences().SetAutoComplete);
    EXPECT_FALSE(preferences().SetDynamicPreview);
    SaveSettingValue("Settings", "SetColorize", "0"); // numeric booleans are understood too
    LoadSettings(false);
    EXPECT_FALSE(preferences().SetColorize);
}

TEST_F(SettingsTest, ApplyingLoadedValuesDoesNotEchoIntoTheStore) {
    int applied = 0;
    setApplySettingsHook([&] {
        ++applied;
        EXPECT_TRUE(isLoadingSettings());
        preferences().SetColorize = false; // a menu check toggled while loading
        SaveSettings();                    // must not write
    });
    LoadSettings(false);
    EXPECT_EQ(applied, 1);
    EXPECT_FALSE(isLoadingSettings());
    EXPECT_EQ(GetSettingValue("Settings", "SetColorize", "missing"), QStringLiteral("missing"));
}

TEST_F(SettingsTest, SavingAppliesWithoutReadingBack) {
    int applied = 0;
    setApplySettingsHook([&] { ++applied; });
    preferences().SetDynamicHelp = false;
    SaveSettings();
    EXPECT_EQ(applied, 1);
    SaveSettingValue("Settings", "SetDynamicHelp", "True"); // changed behind our back
    LoadSettings(true);
    EXPECT_FALSE(preferences().SetDynamicHelp);
    EXPECT_EQ(applied, 2);
}

TEST_F(SettingsTest, UnwritableStoreShowsTheMessage) {
    RecordingMessages recorder;
    ScopedMessages scope(&recorder);
    setSettingsFile(tree.nativePath("no/such/folder/settings.ini"));
    tree.write("no", "a file where the folder should be");
    SaveSettingValue("Settings", "X", "1");
    ASSERT_EQ(recorder.boxes.size(), 1);
    EXPECT_EQ(recorder.boxes[0].text, QStringLiteral("Unable to create the registry key"));
}
