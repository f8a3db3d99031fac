// The command-line run up to the finished script: expansion, mode, template and generated code.
#include "engine/mEngineMain.h"

#include "platform/Messages.h"
#include "platform/mFile.h"

#include <filesystem>
#include <utility>

namespace mEngineMain {

namespace {

bool has(const QString& line, const QString& text) {
    return line.contains(text, Qt::CaseInsensitive);
}

void warn(const RunOptions& options, const QString& text) {
    if (options.warn) options.warn(text);
}

// A path read up to the next "/" runs across the line break of a stored file when the switch
// ends a line there; the file is then not found, which deserves a hint.
QString notFound(const QString& path, const QString& switchName) {
    QString text = QStringLiteral("file not found: %1 (%2)").arg(path.trimmed(), switchName);
    if (path.contains(QStringLiteral("\r\n")))
        text += QStringLiteral("; its path runs on into the next line: put a blank and the next "
                               "item behind it on the same line");
    return text;
}

// One pass of the expansion loops must be allowed to go on.
bool mayContinue(const RunOptions& options) {
    return !options.expansionGuard || options.expansionGuard();
}

// A file that exists and has bytes but yields no text could not be read; it is treated as
// missing rather than as the empty file that keeps the expansion waiting.
bool unreadable(const QString& path, const QString& text) {
    if (!text.isEmpty()) return false;
    std::error_code ec;
    return std::filesystem::file_size(mFile::toDisk(path), ec) > 0 && !ec;
}

// Replaces each "<switch><path>" by the file's text (converted by `convert`) until none is left.
// A missing file makes the switch vanish; an existing empty file leaves the line unchanged, so
// the loop asks again, and without a guard never ends.
void expandFileSwitch(QString& line, const QString& switchName, QString (*convert)(const QString&),
                      const RunOptions& options) {
    bool toldEmpty = false;
    while (has(line, switchName) && mayContinue(options)) {
        const QString path = switchValue(line, switchName);
        const QString whole = switchName + path;
        if (!mFile::FileExists(path)) {
            warn(options, notFound(path, switchName));
            line.replace(whole, QString(), Qt::CaseInsensitive);
            continue;
        }
        const QString text = mFile::ReadFile(path);
        if (unreadable(path, text)) {
            warn(options, QStringLiteral("cannot read %1 (%2)").arg(path.trimmed(), switchName));
            line.replace(whole, QString(), Qt::CaseInsensitive);
        } else if (!text.isEmpty()) {
            line.replace(whole, convert ? convert(text) : text, Qt::CaseInsensitive);
        } else if (!std::exchange(toldEmpty, true)) {
            warn(options, QStringLiteral("%1 is empty (%2): waiting until it holds text; Ctrl+C "
                                         "stops")
                              .arg(path.trimmed(), switchName));
        }
    }
}

void removeQuotes(QString& line) {
    if (line.startsWith(u'"')) line.remove(0, 1);
    if (line.endsWith(u'"')) line.chop(1);
}

QString loadTemplate(const QString& line, const RunOptions& options) {
    bool hasScriptFile = false;
    const QString scriptFile = switchValue(line, QStringLiteral("/scriptfile:"), &hasScriptFile);
    QString text;
    if (hasScriptFile) {
        const bool exists = mFile::FileExists(scriptFile);
        if (exists) text = mFile::ReadFile(scriptFile);
        if (text.isEmpty())
            warn(options,
                 QStringLiteral("script template %1: %2 (/scriptfile:); using the default")
                     .arg(exists ? QStringLiteral("is empty") : QStringLiteral("not found"),
                          scriptFile.trimmed()));
    }
    if (text.isEmpty()) {
        const QString folder =
            options.programFolder.isEmpty() ? mFile::programFolder() : options.programFolder;
        const QString path = mFile::AddBackslash(folder) + QStringLiteral("Data\\template.txt");
        text = mFile::ReadFile(path);
        if (text.isEmpty())
            warn(options,
                 QStringLiteral("script template not found or empty: %1; the run has no code")
                     .arg(path));
    }
    return text;
}

// The question of a batch that ends the process without ever saving.
void warnAboutMissingSave(QString& line) {
    if (!has(line, QStringLiteral("/exit")) || has(line, QStringLiteral("/fx.savefile"))) return;
    const QString text =
        QStringLiteral("Possible Error: fx.savefile is never called.\r\n\r\n"
                       "Any image conversion settings you process will not be saved unless "
                       "/fx.savefile is added into command line.\r\n"
                       "Would you like to automatically add /fx.savefile to the command line now?");
    if (messages().question(QStringLiteral("Possible Error"), text) == MsgAnswer::Yes) {
        // Replaced as written: a line that spells it "/EXIT" is warned about but left alone.
        line.replace(QStringLiteral("/exit"), QStringLiteral("/fx.savefile /exit"));
    }
}

RunPlan prepareBatch(QString line, const RunOptions& options) {
    RunPlan plan;
    QString script = loadTemplate(line, options);
    if (!has(line, QStringLiteral("/cmd:progress.")) && !has(line, QStringLiteral("/progress.")))
        line += QStringLiteral(" /progress.show");
    if (has(script, kMainCodePlaceholder)) {
        bool hasSource = false;
        const QString mainCode = buildMainCode(line, &hasSource, options.warn);
        if (hasSource) script.replace(kMainCodePlaceholder, mainCode, Qt::CaseInsensitive);
        plan.fileCount = int(mainCode.count(QStringLiteral("\r\n")));
    }
    if (has(script, kEffectsPlaceholder)) {
        warnAboutMissingSave(line);
        script.replace(kEffectsPlaceholder, buildEffectsBody(line), Qt::CaseInsensitive);
    }
    plan.line = line;
    plan.script = script;
    plan.exitAfterRun = has(line, QStringLiteral("/exit"));
    plan.next = has(line, QStringLiteral("/showscriptwindow")) ? RunPlan::Next::OpenWindow
                                                               : RunPlan::Next::Run;
    return plan;
}

RunPlan prepareInteractive(QString line) {
    RunPlan plan;
    plan.next = RunPlan::Next::OpenWindow;
    line.replace(QStringLiteral("/showscriptwindow"), QString(), Qt::CaseInsensitive);
    line = line.trimmed();
    if (!line.isEmpty())
        line.replace(QStringLiteral(" /fx."), QStringLiteral(" \r\n/fx."), Qt::CaseInsensitive);
    plan.line = line;
    plan.commandViewText = line;
    return plan;
}

} // namespace

RunPlan prepareRun(const QString& commandLine, const RunOptions& options) {
    QString line = commandLine;
    removeQuotes(line);
    expandFileSwitch(line, QStringLiteral("/loadcmdscript:"), nullptr, options);
    expandFileSwitch(line, QStringLiteral("/loadvt3script:"), &ScriptToCommandLine, options);
    line.remove(QStringLiteral("\r\n"));
    if (line.trimmed().isEmpty()) line = QStringLiteral("/showscriptwindow");
    if (line.trimmed().toLower() == u"/exit") {
        RunPlan plan;
        plan.line = line;
        return plan;
    }
    if (has(line, QStringLiteral("/scriptfile:")) ||
        !has(line, QStringLiteral("/showscriptwindow")))
        return prepareBatch(line, options);
    return prepareInteractive(line);
}

} // namespace mEngineMain
