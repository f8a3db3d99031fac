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
