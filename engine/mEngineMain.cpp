// Conversions between the command-line form and script lines, and the image-type test.
#include "engine/mEngineMain.h"

#include "platform/mFile.h"

namespace mEngineMain {

namespace {

// Stands for a line boundary while script lines are joined into one line.
const QString kBoundary = QStringLiteral("% /%");

QString repeated(int count) {
    return kBoundary.repeated(count);
}

void replaceTimes(QString& text, const QString& from, const QString& to, int times) {
    for (int i = 0; i < times; ++i)
        text.replace(from, to);
}

} // namespace

QString switchValue(const QString& line, const QString& switchName, bool* present) {
    const qsizetype at = line.indexOf(switchName, 0, Qt::CaseInsensitive);
    if (present) *present = at >= 0;
    if (at < 0) return {};
    const qsizetype start = at + switchName.size();
    const qsizetype end = line.indexOf(u'/', start);
    return line.mid(start, end < 0 ? -1 : end - start);
}

QString CommandLineToScript(const QString& commandLine, QString* files) {
    QString s = commandLine;
    const QString value = switchValue(s, QStringLiteral("/files:"));
    if (files) *files = value;
    // Found without regard to case but removed as written in lower case: "/FILES:x" stays.
    s.replace(QStringLiteral("/files:") + value, QString());
    for (const char* prefix : {"fx.", "progress.", "func."}) {
        const QString item = QStringLiteral("/") + QLatin1String(prefix);
        s.replace(QStringLiteral("  ") + item, QStringLiteral(" ") + item);
    }
    for (const char* prefix : {"fx.", "progress.", "func."}) {
        const QString word = QLatin1String(prefix);
        s.replace(QStringLiteral("/") + word, QStringLiteral("\r\n") + word);
    }
    return s;
}

QString ScriptToCommandLine(const QString& scriptText) {
    QStringList lines = (scriptText + QStringLiteral("\r\n")).split(QStringLiteral("\r\n"));
    for (QString& line : lines) {
        if (line.startsWith(QStringLiteral("\\\\")) || line.startsWith(QStringLiteral("//")))
            line.clear();
    }
    QString s = lines.join(kBoundary);
    // A fixed series of passes, not a loop: very long runs of blank lines are not fully merged.
    replaceTimes(s, repeated(6), kBoundary, 1);
    replaceTimes(s, repeated(5), kBoundary, 1);
    replaceTimes(s, repeated(4), kBoundary, 2);
    replaceTimes(s, repeated(3), kBoundary, 2);
    replaceTimes(s, repeated(2), kBoundary, 6);
    s.replace(kBoundary, QStringLiteral(" /"));
    s = QStringLiteral(" /") + s + QStringLiteral("%endline");
    s.replace(QStringLiteral(" /%endline"), QString());
    for (const char* prefix : {"fx.", "progress.", "func."}) {
        const QString word = QLatin1String(prefix);
        s.replace(QStringLiteral("/ /") + word, QStringLiteral("/") + word);
        s.replace(QStringLiteral("   /") + word, QStringLiteral(" /") + word);
        s.replace(QStringLiteral("  /") + word, QStringLiteral(" /") + word);
    }
    return s;
}

bool IsSupportedImageFile(const QString& path) {
    const QString extension = mFile::GetExtension(path).toLower();
    if (extension.isEmpty()) return false;
    return imageFilter().indexOf(extension, 0, Qt::CaseSensitive) >= 1;
}

} // namespace mEngineMain
