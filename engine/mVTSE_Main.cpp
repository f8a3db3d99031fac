// Start-up: the application title, the lone "/exit" and the hand-over to the engine.
#include "engine/mVTSE_Main.h"

#include "engine/mEngineMain.h"
#include "platform/Messages.h"
#include "platform/TextCodec.h"

#include <QCoreApplication>
#include <cstdio>

namespace mVTSE_Main {

QString commandLineFromArguments(int argc, char** argv) {
    QStringList parts;
    for (int i = 1; i < argc; ++i)
        parts.append(QString::fromLocal8Bit(argv[i]));
    return TextCodec::toCrLf(parts.join(u' '));
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

    const mEngineMain::RunPlan plan = mEngineMain::prepareRun(line);
    switch (plan.next) {
    case mEngineMain::RunPlan::Next::Nothing:
        return 0;
    case mEngineMain::RunPlan::Next::Run:
        std::fprintf(stderr, "vantorel: cannot run the batch: the script host is not built yet\n");
        return 2;
    case mEngineMain::RunPlan::Next::OpenWindow:
        std::fprintf(stderr, "vantorel: cannot open the main window: it is not built yet\n");
        return 2;
    }
    return 2;
}

} // namespace mVTSE_Main
