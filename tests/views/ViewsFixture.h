// The views' tests share this: settings in a scratch INI file, boxes recorded, raw mouse events.
#pragma once

#include "QtPrint.h"
#include "RecordingMessages.h"
#include "TempTree.h"
#include "platform/mWindowsAPI.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QSettings>
#include <QWidget>
#include <gtest/gtest.h>

class ViewsTest : public testing::Test {
protected:
    void SetUp() override {
        mWindowsAPI::setSettingsFile(tree.nativePath("settings.ini"));
        mWindowsAPI::preferences() = {};
    }
    void TearDown() override { mWindowsAPI::setSettingsFile({}); }

    // The value stored under [Settings].
    QString stored(const QString& key) const {
        return QSettings(tree.nativePath("settings.ini"), QSettings::IniFormat)
            .value("Settings/" + key)
            .toString();
    }
    // Press, move and release one at a time, to stop between them.
    static void mouse(QWidget* w, QEvent::Type type, QPoint at) {
        QMouseEvent e(type, at, w->mapToGlobal(at), Qt::LeftButton,
                      type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton,
                      Qt::NoModifier);
        QCoreApplication::sendEvent(w, &e);
    }

    TempTree tree;
    RecordingMessages recorder;
    ScopedMessages scope{&recorder};
};
