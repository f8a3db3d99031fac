// Settings store on QSettings, and loading and saving of the automation preferences.
#include "platform/mWindowsAPI.h"

#include "platform/Messages.h"

#include <QSettings>
#include <memory>

namespace mWindowsAPI {

namespace {

QString g_settingsFile;
Preferences g_preferences;
bool g_loading = false;
std::function<void()> g_applyHook;

const QString kSection = QStringLiteral("Settings");

std::unique_ptr<QSettings> openStore() {
    if (!g_settingsFile.isEmpty())
        return std::make_unique<QSettings>(g_settingsFile, QSettings::IniFormat);
    return std::make_unique<QSettings>(QSettings::IniFormat, QSettings::UserScope,
                                       QStringLiteral("Kestrane"), applicationTitle());
}

// A key inside its section's group; "/" would open a subgroup, so it is kept out of names.
QString keyPath(const QString& section, const QString& key) {
    QString s = section, k = key;
    s.replace(u'/', u'_');
    k.replace(u'/', u'_');
    return s + u'/' + k;
}

} // namespace

QString GetSettingValue(const QString& section, const QString& key, const QString& defaultValue) {
    const auto store = openStore();
    const QVariant value = store->value(keyPath(section, key));
    return value.isValid() ? value.toString() : defaultValue;
}

void SaveSettingValue(const QString& section, const QString& key, const QString& value) {
    const auto store = openStore();
    store->setValue(keyPath(section, key), value);
    store->sync();
    if (store->status() != QSettings::NoError)
        messages().inform(QString(), QStringLiteral("Unable to create the registry key"),
                          MsgIcon::Exclamation);
}

bool GetSettingBool(const QString& section, const QString& key, bool defaultValue) {
    const QString text = GetSettingValue(section, key).trimmed();
    if (text.compare(u"True", Qt::CaseInsensitive) == 0) return true;
    if (text.compare(u"False", Qt::CaseInsensitive) == 0) return false;
    bool isNumber = false;
    const long long number = text.toLongLong(&isNumber);
    return isNumber ? number != 0 : defaultValue;
}

void SaveSettingBool(const QString& section, const QString& key, bool value) {
    SaveSettingValue(section, key, value ? QStringLiteral("True") : QStringLiteral("False"));
}

Preferences& preferences() {
    return g_preferences;
}

bool isLoadingSettings() {
    return g_loading;
}

void LoadSettings(bool applyOnly) {
    g_loading = true;
    if (!applyOnly) {
        g_preferences.SetColorize = GetSettingBool(kSection, QStringLiteral("SetColorize"), true);
        g_preferences.SetAutoComplete =
            GetSettingBool(kSection, QStringLiteral("SetAutoComplete"), true);
        g_preferences.SetDynamicHelp =
            GetSettingBool(kSection, QStringLiteral("SetDynamicHelp"), true);
        g_preferences.SetDynamicPreview =
            GetSettingBool(kSection, QStringLiteral("SetDynamicPreview"), true);
    }
    // The flag must drop even if applying throws, or saving would stay blocked for good.
    struct ClearFlag {
        ~ClearFlag() { g_loading = false; }
    } clearFlag;
    if (g_applyHook) g_applyHook();
}

void SaveSettings() {
    if (g_loading) return;
    SaveSettingBool(kSection, QStringLiteral("SetColorize"), g_preferences.SetColorize);
    SaveSettingBool(kSection, QStringLiteral("SetAutoComplete"), g_preferences.SetAutoComplete);
    SaveSettingBool(kSection, QStringLiteral("SetDynamicHelp"), g_preferences.SetDynamicHelp);
    SaveSettingBool(kSection, QStringLiteral("SetDynamicPreview"), g_preferences.SetDynamicPreview);
    LoadSettings(true);
}

void setApplySettingsHook(std::function<void()> hook) {
    g_applyHook = std::move(hook);
}

void setSettingsFile(const QString& iniPath) {
    g_settingsFile = iniPath;
}

} // namespace mWindowsAPI
