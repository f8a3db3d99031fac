// The command-line run up to the finished script: expansion, mode, template and generated code.
#include "engine/mEngineMain.h"

#include "platform/Messages.h"
#include "platform/mFile.h"

#include <chrono>
#include <filesystem>
#include <thread>
#include <utility>
#include <vector>

namespace mEngineMain {

namespace {

bool has(const QString& line, const QString& text) {
    return line.contains(text, Qt::CaseInsensitive);
}

// Collects what the run cannot use. A run that writes files (headless, or one that ends the
// process after the batch) refuses to start when a source it names cannot be used; one that may
// go on reports the same texts as warnings, once the mode is known.
class Reporter {
public:
    explicit Reporter(const RunOptions& options) : m_options(options) {}
    void problem(const QString& text) { m_problems.append(text); }
    void note(const QString& text) const {
        if (m_options.warn) m_options.warn(text);
    }
    // A line that can never be carried out, whatever the mode.
    void fatal(const QString& text) {
        m_problems.append(text);
        m_fatal = true;
    }
    bool hasFatal() const { return m_fatal; }
    Reports reports() {
        return {[this](const QString& t) { problem(t); }, [this](const QString& t) { note(t); }};
    }
    // Refuses the plan when it must be; otherwise the problems become warnings.
    void settle(RunPlan& plan, bool strict) const {
        plan.problems = m_problems;
        if (m_fatal || (strict && !m_problems.isEmpty())) {
            plan.next = RunPlan::Next::Refuse;
            return;
        }
        for (const QString& text : m_problems)
            note(text);
    }

private:
    const RunOptions& m_options;
    QStringList m_problems;
    bool m_fatal = false;
};

// A path read up to the next "/" runs across the line break of a stored file when the switch
// ends a line there; the file is then not found, which deserves a hint.
QString notFound(const QString& path, const QString& switchName) {
    QString text = QStringLiteral("file not found: %1 (%2)").arg(path.trimmed(), switchName);
    if (path.contains(QStringLiteral("\r\n")))
        text += QStringLiteral("; its path runs on into the next line: put a blank and the next "
                               "item behind it on the same line");
    return text;
}

// A file that exists and has bytes but yields no text could not be read; it is treated as
// missing rather than as the empty file that keeps the expansion waiting.
bool unreadable(const QString& path, const QString& text) {
    if (!text.isEmpty()) return false;
    std::error_code ec;
    return std::filesystem::file_size(mFile::toDisk(path), ec) > 0 && !ec;
}

// Stored lines may include each other, but their expansion must stay a size a line can have.
constexpr qsizetype kMaxExpandedLine = 4 * 1024 * 1024;

// Expands every "<switch><path>" of one kind from left to right; text spliced in is expanded in
// turn, as each occurrence is replaced by its file's text. A missing file makes its switch
// vanish; an existing empty file is waited for (polled, not spun on) until it holds text. Each
// spliced text is remembered with the file it came from while the scan is inside it, so a file
// that includes itself, directly or through others, is found and named instead of expanding for
// ever.
class Expansion {
public:
    Expansion(QString& line, const QString& switchName, QString (*convert)(const QString&),
              const RunOptions& options, Reporter& reporter)
        : m_line(line), m_switch(switchName), m_convert(convert), m_options(options),
          m_reporter(reporter) {}

    void run() {
        qsizetype at = 0;
        while ((at = m_line.indexOf(m_switch, at, Qt::CaseInsensitive)) >= 0) {
            while (!m_open.empty() && m_open.back().end <= at)
                m_open.pop_back();
            if (!expandAt(at)) return;
        }
    }

private:
    struct Spliced {
        qsizetype end;    // where the file's text ends in the line
        QString identity; // the file, as the file system knows it
    };

    bool expandAt(qsizetype at) {
        const QString path = switchValue(m_line.mid(at), m_switch);
        const qsizetype length = m_switch.size() + path.size();
        if (!mFile::FileExists(path)) {
            m_reporter.problem(notFound(path, m_switch));
            splice(at, length, QString());
            return true;
        }
        const QString identity = identityOf(path);
        for (const Spliced& open : m_open) {
            if (open.identity != identity) continue;
            m_reporter.fatal(QStringLiteral("%1 includes itself (%2): a stored line cannot "
                                            "contain itself")
                                 .arg(path.trimmed(), m_switch));
            return false;
        }
        QString text = mFile::ReadFile(path);
        if (unreadable(path, text)) {
            m_reporter.problem(QStringLiteral("cannot read %1 (%2)").arg(path.trimmed(), m_switch));
            splice(at, length, QString());
            return true;
        }
        if (text.isEmpty() && !waitForText(path, text)) return false;
        const QString replacement = m_convert ? m_convert(text) : text;
        if (m_line.size() - length + replacement.size() > kMaxExpandedLine) {
            m_reporter.fatal(QStringLiteral("%1 (%2) makes the command line longer than %3 "
                                            "characters")
                                 .arg(path.trimmed(), m_switch)
                                 .arg(kMaxExpandedLine));
            return false;
        }
        splice(at, length, replacement);
        m_open.push_back({at + replacement.size(), identity});
        return true;
    }

    void splice(qsizetype at, qsizetype length, const QString& text) {
        m_line.replace(at, length, text);
        for (Spliced& open : m_open)
            open.end += text.size() - length;
    }

    static QString identityOf(const QString& path) {
        std::error_code ec;
        const std::filesystem::path real = std::filesystem::canonical(mFile::toDisk(path), ec);
        return ec ? path.trimmed() : QString::fromStdString(real.native());
    }

    // An empty stored file is waited for until it holds text; false when the guard gave up.
    bool waitForText(const QString& path, QString& text) {
        m_reporter.note(QStringLiteral("%1 is empty (%2): waiting until it holds text; Ctrl+C "
                                       "stops")
                            .arg(path.trimmed(), m_switch));
        while (text.isEmpty()) {
            if (m_options.expansionGuard && !m_options.expansionGuard()) return false;
            if (!m_options.expansionGuard)
                std::this_thread::sleep_for(std::chrono::milliseconds(250));
            text = mFile::ReadFile(path);
        }
        return true;
    }

    QString& m_line;
    const QString m_switch;
    QString (*m_convert)(const QString&);
    const RunOptions& m_options;
    Reporter& m_reporter;
    std::vector<Spliced> m_open;
};

void removeQuotes(QString& line) {
    if (line.startsWith(u'"')) line.remove(0, 1);
    if (line.endsWith(u'"')) line.chop(1);
}

QString loadTemplate(const QString& line, const RunOptions& options, Reporter& reporter) {
    bool hasScriptFile = false;
    const QString scriptFile = switchValue(line, QStringLiteral("/scriptfile:"), &hasScriptFile);
    QString text;
    if (hasScriptFile) {
        const bool exists = mFile::FileExists(scriptFile);
        if (exists) text = mFile::ReadFile(scriptFile);
        if (text.isEmpty())
            reporter.problem(
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
            reporter.problem(
                QStringLiteral("script template not found or empty: %1; the run has no code")
                    .arg(path));
    }
    return text;
}

// "/parallel:N" photos at once (1: one at a time); by default as many as there are cores.
int savesInFlight(const QString& line, Reporter& reporter) {
    bool present = false;
    const QString value = switchValue(line, QStringLiteral("/parallel:"), &present).trimmed();
    if (!present) return std::max(1, int(std::thread::hardware_concurrency()));
    bool ok = false;
    const int n = value.toInt(&ok);
    if (ok && n >= 1 && n <= 64) return n;
    reporter.problem(
        QStringLiteral("not a number of photos from 1 to 64: %1 (/parallel:)").arg(value));
    return 1;
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

RunPlan prepareBatch(QString line, const RunOptions& options, Reporter& reporter) {
    RunPlan plan;
    QString script = loadTemplate(line, options, reporter);
    if (!has(line, QStringLiteral("/cmd:progress.")) && !has(line, QStringLiteral("/progress.")))
        line += QStringLiteral(" /progress.show");
    if (has(script, kMainCodePlaceholder)) {
        const FileList list =
            collectFiles(line, reporter.reports(), has(line, QStringLiteral("/followlinks")));
        if (list.hasSource)
            script.replace(kMainCodePlaceholder, mainCodeFor(list.files), Qt::CaseInsensitive);
        plan.files = list.files;
        plan.fileCount = int(list.files.size());
        plan.skippedFiles = list.skipped;
    }
    plan.savesInFlight = savesInFlight(line, reporter);
    plan.skipNewer = has(line, QStringLiteral("/skipnewer"));
    plan.line = line;
    plan.exitAfterRun = has(line, QStringLiteral("/exit"));
    plan.next = has(line, QStringLiteral("/showscriptwindow")) ? RunPlan::Next::OpenWindow
                                                               : RunPlan::Next::Run;
    // Nothing is asked of a line that will not run.
    reporter.settle(plan,
                    plan.next == RunPlan::Next::Run && (options.headless || plan.exitAfterRun));
    if (plan.next == RunPlan::Next::Refuse) return plan;
    if (has(script, kEffectsPlaceholder)) {
        warnAboutMissingSave(line);
        script.replace(kEffectsPlaceholder, buildEffectsBody(line), Qt::CaseInsensitive);
    }
    if (!backgroundSavesAllowed(script)) plan.savesInFlight = 1;
    plan.line = line;
    plan.script = script;
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
    Reporter reporter(options);
    Expansion(line, QStringLiteral("/loadcmdscript:"), nullptr, options, reporter).run();
    if (!reporter.hasFatal())
        Expansion(line, QStringLiteral("/loadvt3script:"), &ScriptToCommandLine, options, reporter)
            .run();
    RunPlan plan;
    if (reporter.hasFatal()) {
        reporter.settle(plan, true);
        return plan;
    }
    line.remove(QStringLiteral("\r\n"));
    if (line.trimmed().isEmpty()) line = QStringLiteral("/showscriptwindow");
    if (line.trimmed().toLower() == u"/exit") {
        plan.line = line;
        return plan;
    }
    if (has(line, QStringLiteral("/scriptfile:")) ||
        !has(line, QStringLiteral("/showscriptwindow")))
        return prepareBatch(line, options, reporter);
    reporter.settle(plan, false);
    return prepareInteractive(line);
}

} // namespace mEngineMain
