// The editor's tests: settings go to a scratch INI file, never the user's.
#include <QCoreApplication>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include "platform/mWindowsAPI.h"

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationVersion(QStringLiteral("3.0.12"));
    QTemporaryDir settings;
    mWindowsAPI::setSettingsFile(settings.filePath(QStringLiteral("settings.ini")));
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
