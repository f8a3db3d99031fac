// Test fixture: a temporary folder of real photos and the built `vantorel` beside its data.
#pragma once

#include "Process.h"
#include "QtPrint.h"

#include <QDir>
#include <QFile>
#include <QStringList>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <utility>

// Width and height from a JPEG's frame header; nullopt when the bytes are no complete JPEG
// (no start marker, no frame header, or no end marker).
std::optional<std::pair<int, int>> jpegSize(const QByteArray& bytes);

class E2eTest : public testing::Test {
protected:
    void SetUp() override;
    // Removes the folder by bytes: QTemporaryDir cannot name entries that are not UTF-8.
    void TearDown() override;

    // The "\" form of a path under the temporary folder, as command lines write paths.
    std::string path(const QString& relative = {}) const;
    QString nativePath(const QString& relative) const { return m_dir.path() + u'/' + relative; }

    // Copies data/example.jpg (as the given name) or a sample photo into the folder.
    void copyExample(const QString& relative) const;
    void copySample(const QString& name, const QString& relative) const;
    void write(const QString& relative, const QByteArray& bytes) const;
    QByteArray read(const QString& relative) const;
    bool exists(const QString& relative) const { return QFile::exists(nativePath(relative)); }
    // Names of the entries of a folder, hidden ones included, sorted.
    QStringList entries(const QString& relative = {}) const;
    // Width and height of a JPEG in the folder, nullopt when it is missing or incomplete.
    std::optional<std::pair<int, int>> sizeOf(const QString& relative) const {
        return jpegSize(read(relative));
    }

    ProcessResult run(const std::vector<std::string>& args, ProcessOptions options = {}) const;
    ProcessResult runInTerminal(const std::vector<std::string>& args,
                                std::vector<std::string> answers,
                                ProcessOptions options = {}) const;

    static const QStringList& sampleNames();

private:
    QTemporaryDir m_dir;
    QString m_configHome;
};

inline bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}
// The text in double quotes, as a script string without quotes inside.
inline std::string q(const std::string& text) {
    return "\"" + text + "\"";
}

// Prints a run's outcome when an expectation about it fails.
std::string describe(const ProcessResult& r);
