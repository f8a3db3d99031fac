// The script host and the command-line run around it.
#include "engine/ScriptHost.h"

#include "engine/ProgressObject.h"
#include "platform/ConsoleLine.h"
#include "platform/Messages.h"
#include "platform/TextCodec.h"
#include "vbscript/ScriptError.h"

#include <cstdlib>
#include <optional>
#include <utility>

namespace mEngineMain {

namespace {

// Reports a failed run: as text in preview mode, else as a box.
QString reportFailure(const QString& scriptText, const ScriptFailure& failure, bool previewMode) {
    QString errorLine;
    const QString excerpt = scriptErrorExcerpt(scriptText, failure, &errorLine);
    if (previewMode) return previewErrorText(failure, errorLine);
    // The host's own view of the error is the same error, so its description shows twice.
    messages().inform(kRuntimeErrorTitle, runtimeErrorText(failure, failure.description, excerpt));
    return {};
}

} // namespace

int exitStatus(ScriptStatus status) {
    switch (status) {
    case ScriptStatus::NotRun:
    case ScriptStatus::Succeeded:
        return 0;
    case ScriptStatus::Failed:
        return 1;
    case ScriptStatus::NoEngine:
    case ScriptStatus::Refused:
        return 2;
    case ScriptStatus::Cancelled:
        return 130;
    }
    return 2;
}

ScriptHostServices& scriptHostServices() {
    static ScriptHostServices services{
        {}, {}, {}, [](int status) { std::exit(status); }, [](const QString&) {},
    };
    return services;
}

frmConvProgress& loadProgressWindow() {
    // Never destroyed: the window may hold a Qt widget and the imaging control, which must not
    // be torn down after QApplication and libvips during the process's exit.
    static frmConvProgress* const window = new frmConvProgress;
    return *window;
}

namespace {

// Creates the objects, adds the code and runs Main; a failure of any of these comes back as the
// ScriptFailure to report.
std::optional<ScriptFailure> runSteps(ScriptEngine& engine, const QString& scriptText,
                                      frmConvProgress& progress, QString* result) {
    try {
        const ScriptHostServices& services = scriptHostServices();
        const vbs::Ref<vbs::Dispatch> effects =
            services.createEffects ? services.createEffects(progress) : vbs::Ref<vbs::Dispatch>();
        engine.setLanguage(QStringLiteral("VBScript"));
        if (effects) engine.addObject(QStringLiteral("FX"), effects);
        engine.addObject(QStringLiteral("Progress"), vbs::makeRef<ProgressObject>(progress));
        if (engine.addCode(scriptText) && engine.run(QStringLiteral("Main"), result))
            return std::nullopt;
        return engine.error();
    } catch (const vbs::ScriptError& e) {
        return ScriptFailure{e.number, TextCodec::fromScriptText(e.description), e.line};
    } catch (const std::exception& e) {
        // Nothing else should escape the engine; if it does, it is reported like a script error.
        return ScriptFailure{51, QStringLiteral("Internal error: ") + QString::fromUtf8(e.what()),
                             0};
    }
}

} // namespace

QString RunScript(const QString& scriptText, bool previewMode, ScriptStatus* status,
                  int* skippedSaves) {
    ScriptStatus ignored;
    ScriptStatus& outcome = status ? *status : ignored;
    outcome = ScriptStatus::Succeeded;
    frmConvProgress& progress = loadProgressWindow();
    const ScriptHostServices& services = scriptHostServices();
    std::unique_ptr<ScriptEngine> engine =
        services.createEngine ? services.createEngine() : nullptr;
    if (!engine) {
        messages().inform(QString(), noScriptEngineText(), MsgIcon::Exclamation);
        outcome = ScriptStatus::NoEngine;
        return {};
    }
    QString result;
    std::optional<ScriptFailure> failure = runSteps(*engine, scriptText, progress, &result);
    bool savedLate = false;
    if (std::function<EffectsOutcome()> finish =
            std::exchange(scriptHostServices().finishEffects, {})) {
        EffectsOutcome end = finish();
        // A save that failed in the background was asked for before whatever stopped the script.
        if (end.failure) failure = end.failure, savedLate = true;
        if (skippedSaves) *skippedSaves = end.skippedSaves;
    }
    if (!failure) return result;
    if (progress.cancelRequested() && !savedLate) {
        outcome = ScriptStatus::Cancelled;
        return {};
    }
    outcome = ScriptStatus::Failed;
    return reportFailure(scriptText, *failure, previewMode);
}

RunOutcome runCommandLine(const QString& commandLine, bool previewMode, const RunOptions& options) {
    const RunPlan plan = prepareRun(commandLine, options);
    RunOutcome outcome;
    outcome.problems = plan.problems;
    outcome.skippedFiles = plan.skippedFiles;
    ScriptHostServices& services = scriptHostServices();
    switch (plan.next) {
    case RunPlan::Next::Nothing:
        break;
    case RunPlan::Next::Refuse:
        outcome.status = ScriptStatus::Refused;
        break;
    case RunPlan::Next::Run:
        loadProgressWindow().beginRun({plan.files, plan.savesInFlight, plan.skipNewer});
        outcome.result =
            RunScript(plan.script, previewMode, &outcome.status, &outcome.skippedSaves);
        ConsoleLine::finish(); // the shell's prompt or the next message starts on a line of its own
        if (plan.exitAfterRun)
            services.exitProcess(exitStatus(outcome.status));
        else
            services.showMainWindow(QString());
        break;
    case RunPlan::Next::OpenWindow:
        services.showMainWindow(plan.commandViewText);
        break;
    }
    return outcome;
}

QString RunCommandLine(const QString& commandLine, bool previewMode) {
    const RunOutcome outcome = runCommandLine(commandLine, previewMode);
    if (outcome.status != ScriptStatus::Refused) return outcome.result;
    const QString why = outcome.problems.join(QStringLiteral("\r\n"));
    if (previewMode) return why;
    messages().inform(QStringLiteral("Cannot Run"),
                      why + QStringLiteral("\r\n\r\nNothing was run."), MsgIcon::Exclamation);
    return {};
}

} // namespace mEngineMain
