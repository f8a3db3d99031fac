// Reading and writing scripts and the editor's data files.
#include "editor/ScriptFiles.h"

#include "platform/mFile.h"

#include <QLocale>
#include <QVersionNumber>

namespace ScriptFiles {

namespace {

const QString kCrLf = QStringLiteral("\r\n");

// The locale's long time without the time zone, which the header never showed.
QString longTime(const QTime& time) {
    QString format = QLocale::system().timeFormat(QLocale::LongFormat);
    format.remove(QLatin1Char('t')).replace(QStringLiteral("  "), QStringLiteral(" "));
    return QLocale::system().toString(time, format.trimmed());
}

QStringList linesOf(const QString& path) {
    const QString text = mFile::ReadFile(path);
    return text.isEmpty() ? QStringList() : text.split(kCrLf);
}

} // namespace

QString headerVersion(const QString& applicationVersion) {
    const QVersionNumber v = QVersionNumber::fromString(applicationVersion);
    return QStringLiteral("%1.%2.0.%3")
        .arg(v.majorVersion())
        .arg(v.minorVersion())
        .arg(v.microVersion());
}

QString newScriptHeader(const QString& title, const QString& version, const QDateTime& now) {
    const QString date = QLocale::system().toString(now.date(), QLocale::ShortFormat);
    return QStringLiteral("//") + title + QStringLiteral(" 'Script File'") + kCrLf +
           QStringLiteral("//Created With: ") + title + QStringLiteral(" v.") + version +
           QStringLiteral(" On: ") + date + QStringLiteral(" - ") + longTime(now.time()) + kCrLf +
           QStringLiteral("//Script Name: Unknown") + kCrLf;
}

QString toCrLf(const QString& editorText) {
    QString out = editorText;
    return out.replace(u'\n', kCrLf);
}

QString fromCrLf(const QString& scriptText) {
    QString out = scriptText;
    return out.replace(kCrLf, QStringLiteral("\n"));
}

bool writeScript(const QString& path, const QString& editorText) {
    return mFile::writeTextFile(path, toCrLf(editorText) + kCrLf);
}

QString readScript(const QString& path) {
    return fromCrLf(mFile::ReadFile(path));
}

void loadCommandList(const QString& dataFolder, QStringList& commands, QStringList& patterns) {
    const QString folder = mFile::AddBackslash(dataFolder);
    if (mFile::FileExists(folder + QStringLiteral("commands.txt"))) {
        commands = linesOf(folder + QStringLiteral("commands.txt"));
        for (QString& command : commands)
            command = command.section(u' ', 0, 0);
    }
    if (mFile::FileExists(folder + QStringLiteral("errors.txt"))) {
        patterns = linesOf(folder + QStringLiteral("errors.txt"));
        for (QString& pattern : patterns)
            pattern.replace(QStringLiteral("{vbcrlf}"), kCrLf);
    }
}

} // namespace ScriptFiles
