// Settings store: per-user values by section and key, and the four automation preferences.
#pragma once

#include <QString>
#include <functional>

// Values live in an INI file in the user's configuration folder (organisation "Kestrane",
// application "Vantorel 3 Caldrith"), one group per section.
namespace mWindowsAPI {

// The stored value, or defaultValue when there is none.
QString GetSettingValue(const QString& section, const QString& key,
                        const QString& defaultValue = {});

// Writes the value; when the store cannot be written, shows "Unable to create the registry key".
void SaveSettingValue(const QString& section, const QString& key, const QString& value);

// Booleans are stored as "True" / "False"; "-1", "1" and "0" are read as well.
bool GetSettingBool(const QString& section, const QString& key, bool defaultValue);
void SaveSettingBool(const QString& section, const QString& key, bool value);

// The automation preferences of the editor, held in memory (section "Settings").
struct Preferences {
    bool SetColorize = true;
    bool SetAutoComplete = true;
    bool SetDynamicHelp = true;
    bool SetDynamicPreview = true;
};
Preferences& preferences();

// True while LoadSettings runs; SaveSettings does nothing then, so applying loaded values to the
// menu checks cannot echo back into the store.
bool isLoadingSettings();

// Reads the four preferences (default True) unless applyOnly, then runs the apply hook.
void LoadSettings(bool applyOnly);
// Writes the four preferences and applies them again, unless settings are being loaded.
void SaveSettings();

// What applying means: the main window sets its menu checks and asks every view to re-read the
// preferences. Until a window installs it, applying does nothing.
void setApplySettingsHook(std::function<void()> hook);

// Redirects the store to one INI file (tests, portable set-ups); an empty path restores the
// per-user location.
void setSettingsFile(const QString& iniPath);

} // namespace mWindowsAPI
