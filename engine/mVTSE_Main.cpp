// Start-up: the application title, the lone "/exit" and the hand-over to the engine.
#include "engine/mVTSE_Main.h"

#include "engine/ScriptHost.h"
#include "platform/Messages.h"
#include "platform/TextCodec.h"

#include <QCoreApplication>
#include <cstdio>
#include <optional>

#ifdef VANTOREL_HAVE_SCRIPT_ENGINE
#include "engine/VbsScriptEngine.h"
#endif
#ifdef VANTOREL_HAVE_EFFECTS
#include "engine/EffectsFactory.h"
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
    "  /fx.<statement>       one statement on the effects object, e.g. /fx.ResizePercent 50\n"
    "  /progress.<statement> one statement on the progress display\n"
    "  /cmd:<statement>      any script statement\n"
    "  /loadcmdscript:FILE   the command line stored in FILE\n"
    "  /loadvt3script:FILE   the script file FILE in its command-line form\n"
    "  /scriptfile:FILE      a script template in place of data\\template.txt\n"
    "  /exit                 end after the batch (without it the main window opens)\n"
    "Paths use \"\\\" as the folder separator, e.g. /files:~\\photos\\a.jpg\n"
    "Exit status: 0 done, 1 script error, 2 the command line could not be carried out.\n";

} // namespace

bool hasDisplay() {
    return !qEnvironmentVariableIsEmpty("DISPLAY") ||
           !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ||
           qEnvironmentVariable("QT_QPA_PLATFORM") == u"offscreen";
}

int Main(int argc, char** argv) {
    QCoreApplication::setApplicationName(applicationTitle());
    QCoreApplication::setOrganizationName(QStringLiteral("Kestrane"));
    QCoreApplication::setApplicationVersion(QStringLiteral("3.0.0"));
    if (argc <= 1) {
        // Until the main window exists, an empty command line names the program.
        std::printf("%s %s\n", applicationTitle().toUtf8().constData(), "3.0.0");
        return 0;
    }
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

    // The run reports back here instead of ending the process in the middle of start-up.
    std::optional<int> exitRequested;
    bool windowRequested = false;
    mEngineMain::ScriptHostServices& services = mEngineMain::scriptHostServices();
#ifdef VANTOREL_HAVE_SCRIPT_ENGINE
    services.createEngine = &mEngineMain::createVbsScriptEngine;
#endif
#ifdef VANTOREL_HAVE_EFFECTS
    services.createEffects = &mEngineMain::createEffectsObject;
#endif
    services.exitProcess = [&](int status) { exitRequested = status; };
    services.showMainWindow = [&](const QString&) { windowRequested = true; };
    const mEngineMain::RunOutcome outcome = mEngineMain::runCommandLine(line, false);
    if (exitRequested) return *exitRequested;
    if (windowRequested) {
        if (!hasDisplay())
            std::fprintf(stderr, "vantorel: cannot open the main window: there is no display "
                                 "(a batch whose command line holds /exit needs none)\n");
        else
            std::fprintf(stderr, "vantorel: cannot open the main window: this build has none\n");
        return 2;
    }
    return mEngineMain::exitStatus(outcome.status);
}

} // namespace mVTSE_Main
