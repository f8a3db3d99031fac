// Test helper: a temporary folder tree, with paths handed out in the "\" form.
#pragma once

#include "QtPrint.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

class TempTree {
public:
    TempTree() { EXPECT_TRUE(m_dir.isValid()); }

    // The "\" form of a path under the tree ("" is the root).
    QString path(const QString& relative = {}) const {
        QString native = m_dir.path();
        if (!relative.isEmpty()) native += u'/' + relative;
        return native.replace(u'/', u'\\');
    }
    QString nativePath(const QString& relative) const { return m_dir.path() + u'/' + relative; }

    void write(const QString& relative, const QByteArray& bytes = "x") const {
        const QString native = nativePath(relative);
        QDir().mkpath(QFileInfo(native).path());
        QFile file(native);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    void mkdir(const QString& relative) const { QDir().mkpath(nativePath(relative)); }
    QByteArray read(const QString& relative) const {
        QFile file(nativePath(relative));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

private:
    QTemporaryDir m_dir;
};
