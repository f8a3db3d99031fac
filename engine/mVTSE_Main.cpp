// Start-up: the application title, the lone "/exit" and the hand-over to the engine.
#include "engine/mVTSE_Main.h"

#include "engine/ScriptHost.h"
#include "platform/Messages.h"
#include "platform/TextCodec.h"

#include <QCoreApplication>
#include <cstdio>
#include <memory>
#include <optional>

#ifdef VANTOREL_HAVE_SCRIPT_ENGINE
#include "engine/VbsScriptEngine.h"
#endif
#ifdef VANTOREL_HAVE_EFFECTS
#include "engine/EffectsFactory.h"
#endif
#ifdef VANTOREL_HAVE_WORKBENCH
#include "views/Workbench.h"
#else
// A build without the workbench: never a window.
class Workbench {
public:
    static bool displayAvailable() { return false; }
    Workbench(int&, char**) {}
    void showMainWindow(const QString&) {}
    bool windowShown() const { return false; }
    int exec() { return 0; }
    void exit(int) {}
};
#endif

namespace mVTSE_Main {

QString commandLineFromArguments(int argc, char** argv) {
    QStringList parts;
    for (int i = 1; i < argc; ++i)
        parts.append(QString::fromLocal8Bit(argv[i]));
    return TextCodec::toCrLf(parts.join(u' '));
}

namespace {

const char* const kUsage =
    "Usage: vantorel [ITEM]...\n"
    "Runs a photo batch described by command-line items, each starting with \"/\":\n"
    "  /files:A;B;C          photos to process (a bare name is taken from the folder before it)\n"
    "  /folder:F;G           every image of these folders\n"
    "  /folderall:F          every image of this folder and its subfolders\n"
    "  /followlinks          let /folderall: follow links to folders (left out by default)\n"
    "  /filelist:FILE        one photo per line of FILE (\"-\": standard input)\n"
    "  /skipnewer            skip a save whose file is newer than its photo (resumes a run)\n"
    "  /parallel:N           photos saved at once (default: the number of cores; 1: one)\n"
    "  /fx.<statement>       one statement on the effects object, e.g. /fx.ResizePercent 50\n"
    "  /progress.<statement> one statement on the progress display\n"
    "  /cmd:<statement>      any script statement\n"
    "  /loadcmdscript:FILE   the command line stored in FILE\n"
    "  /loadvt3script:FILE   the script file FILE in its command-line form\n"
    "  /scriptfile:FILE      a script template in place of data\\template.txt\n"
    "  /exit                 end after the batch (without it the main window opens)\n"
    "  /showscriptwindow     open the main window with the rest of the line\n"
    "Paths use \"\\\" as the folder separator, e.g. /files:~\\photos\\a.jpg\n"
    "A \"/\" always starts a new item, so no value can hold one. One double quote at each end\n"
    "of the whole line is removed: end a line with an item such as /exit, not a quoted text.\n"
    "A batch that ends with /exit, or runs without a display, starts only when every file,\n"
    "folder and stored line it names exists and the folders hold photos.\n"
    "Without a terminal, questions take their safe answer (No). Ctrl+C stops at once and\n"
    "removes unfinished saves.\n"
    "Exit status:\n"
    "  0    every listed photo was processed\n"
    "  1    a script error stopped the run (the error was reported)\n"
    "  2    the command line could not be carried out: a named source is missing, a folder\n"
    "       has no photos, a photo's name could not be written as a path, a stored line\n"
    "       includes itself, no script engine, or no display for the window\n"
    "  130  interrupted (Ctrl+C, or Cancel in the progress window)\n";

} // namespace

bool hasDisplay() {
    return Workbench::displayAvailable();
}

namespace {

// What a run asked of the process, recorded instead of acted on in the middle of the engine.
struct Requests {
    std::optional<int> exitStatus;
    bool windowRequested = false;
};

void installServices(Requests& requests, Workbench* workbench) {
    mEngineMain::ScriptHostServices& services = mEngineMain::scriptHostServices();
#ifdef VANTOREL_HAVE_SCRIPT_ENGINE
    services.createEngine = &mEngineMain::createVbsScriptEngine;
#endif
#ifdef VANTOREL_HAVE_EFFECTS
    services.createEffects = &mEngineMain::createEffectsObject;
#endif
    // A line with "/exit" run from the window ends the process too, once the run is over.
    services.exitProcess = [&requests, workbench](int status) {
        requests.exitStatus = status;
        if (workbench) workbench->exit(status);
    };
    services.showMainWindow = [&requests, workbench](const QString& commandViewText) {
        requests.windowRequested = true;
        if (workbench) workbench->showMainWindow(commandViewText);
    };
}

// Without a display the main window cannot open; the batch, if any, has run.
int refuseMainWindow(bool batchRan) {
    std::fprintf(stderr, "vantorel: cannot open the main window: there is no display (DISPLAY "
                         "and WAYLAND_DISPLAY are unset or unreachable).\n");
    if (batchRan)
        std::fputs("vantorel: the batch ran; add /exit to its command line to end after it.\n",
                   stderr);
    else
        std::fputs("vantorel: a batch whose command line ends in /exit needs no window; "
                   "see vantorel --help.\n",
                   stderr);
    return 2;
}

void printWarning(const QString& text) {
    std::fprintf(stderr, "vantorel: %s\n", TextCodec::forDisplay(text).constData());
}

// Why a line was refused, then that nothing was touched.
int reportRefusal(const QStringList& problems) {
    for (const QString& problem : problems)
        printWarning(problem);
    std::fputs("vantorel: nothing was run: the command line names what cannot be used (see "
               "above)\n",
               stderr);
    return 2;
}

} // namespace

int Main(int argc, char** argv) {
    QCoreApplication::setApplicationName(applicationTitle());
    QCoreApplication::setOrganizationName(QStringLiteral("Kestrane"));
    QCoreApplication::setApplicationVersion(QStringLiteral("3.0.0"));
    const QString line = commandLineFromArguments(argc, argv);
    // No item starts with "-", so the usual options of a command-line tool cannot clash.
    if (argc == 2 && (line == u"--help" || line == u"-h")) {
        std::fputs(kUsage, stdout);
        return 0;
    }
    if (argc == 2 && line == u"--version") {
        std::printf("%s %s\n", applicationTitle().toUtf8().constData(), "3.0.0");
        return 0;
    }
    if (line.trimmed().toLower() == u"/exit") return 0;

    // With a display every box is a Qt dialog and the progress shows in a window, for a batch
    // too; without one nothing touches Qt Gui.
    std::unique_ptr<Workbench> workbench;
    if (hasDisplay()) workbench = std::make_unique<Workbench>(argc, argv);
    Requests requests;
    installServices(requests, workbench.get());
    mEngineMain::RunOptions options;
    options.warn = &printWarning;
    options.headless = !workbench;
    const mEngineMain::RunOutcome outcome = mEngineMain::runCommandLine(line, false, options);
    if (outcome.status == mEngineMain::ScriptStatus::Refused)
        return reportRefusal(outcome.problems);
    if (outcome.skippedSaves > 0)
        printWarning(QStringLiteral("%1 saves skipped: the file each would write is newer than its "
                                    "photo (/skipnewer)")
                         .arg(outcome.skippedSaves));
    int status =
        requests.exitStatus ? *requests.exitStatus : mEngineMain::exitStatus(outcome.status);
    // Photos left out for their names were not processed: the run did not do all it was asked.
    if (status == 0 && outcome.skippedFiles > 0) status = 2;
    if (requests.exitStatus || !requests.windowRequested) return status;
    if (!workbench) {
        const int windowStatus =
            refuseMainWindow(outcome.status != mEngineMain::ScriptStatus::NotRun);
        // A script error was the first thing that went wrong; it decides the status.
        return status == 0 ? windowStatus : status;
    }
    const int windowStatus = workbench->exec();
    if (requests.exitStatus) return *requests.exitStatus;
    return status == 0 ? windowStatus : status;
}

} // namespace mVTSE_Main
