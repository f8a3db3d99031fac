// A command-line run on private objects, for previews and the test run.
#include "engine/PreviewRun.h"

#include "effects/clsVTEffects.h"
#include "engine/ProgressObject.h"
#include "engine/mEngineMain.h"
#include "platform/TextCodec.h"
#include "platform/mFile.h"
#include "vbscript/ScriptControl.h"
#include "vbscript/ScriptError.h"
#include "vbscript/stdlib/StandardLibrary.h"

#include <optional>

namespace mEngineMain {

namespace {

// Nobody watches a preview's progress.
class SilentProgress : public ProgressBackend {
public:
    void render(const ProgressState&) override {}
};

// Saves under any name but the output go to "<output without extension>_discard.<ext>", so the
// format the script chose is still written (and its errors still raised).
void guardSaves(imaging::ImagingControl& control, const QString& output) {
    const std::filesystem::path allowed = mFile::toDisk(output);
    const QString base = output.left(output.size() - mFile::GetExtension(output).size() -
                                     (mFile::GetExtension(output).isEmpty() ? 0 : 1));
    control.setInvokeObserver(
        [&control, allowed, base](std::string_view op, std::span<const imaging::Arg>) {
            if (QString::fromUtf8(op.data(), qsizetype(op.size()))
                    .compare(u"SaveFile", Qt::CaseInsensitive))
                return;
            const imaging::Arg name = control.property("SaveFileName");
            const auto* text = std::get_if<std::string>(&name);
            const QString target = text ? QString::fromStdString(*text) : QString();
            if (mFile::toDisk(target) == allowed) return;
            QString ext = mFile::GetExtension(target);
            if (ext.isEmpty()) ext = mFile::GetExtension(QString::fromStdString(allowed.string()));
            const QString discard = base + QStringLiteral("_discard.") + ext;
            control.setProperty("SaveFileName", discard.toStdString());
        });
}

std::optional<ScriptFailure> runScript(const RunPlan& plan, const PreviewRunOptions& options) {
    auto control = std::make_shared<imaging::ImagingControl>();
    std::vector<std::string> sources;
    for (const QString& file : plan.files)
        sources.push_back(mFile::toDisk(file).native());
    control->beginRun(sources, {1, false});
    guardSaves(*control, options.output);
    auto fx = vbs::makeRef<clsVTEffects>();
    fx->Init(control);
    fx->setHost(&vbs::defaultHost());
    frmConvProgress progress(std::make_unique<SilentProgress>());
    progress.beginRun(plan.fileCount);
    vbs::ScriptControl script;
    vbs::installStandardLibrary(script);
    script.setInterruptFlag(options.cancel);
    std::optional<ScriptFailure> failure;
    try {
        script.addObject(u"FX", fx);
        script.addObject(u"Progress", vbs::makeRef<ProgressObject>(progress));
        if (!script.addCode(TextCodec::toScriptText(plan.script)) || !script.run(u"Main", {})) {
            const vbs::ErrorInfo& e = script.error();
            failure = ScriptFailure{e.number, TextCodec::fromScriptText(e.description), e.line};
        }
    } catch (const vbs::ScriptError& e) {
        failure = ScriptFailure{e.number, TextCodec::fromScriptText(e.description), e.line};
    }
    // A save that failed in the background was asked for before whatever stopped the script.
    if (std::optional<vbs::ScriptError> late = fx->finishRun())
        return ScriptFailure{late->number, TextCodec::fromScriptText(late->description),
                             late->line};
    return failure;
}

} // namespace

PreviewRunResult runPreviewLine(const QString& line, const PreviewRunOptions& options) {
    PreviewRunResult result;
    const auto cancelled = [&] { return options.cancel && options.cancel->load(); };
    RunOptions run;
    run.programFolder = options.programFolder;
    // An empty stored line is waited for only until a newer request comes.
    run.expansionGuard = [&] { return !cancelled(); };
    const RunPlan plan = prepareRun(line, run);
    if (plan.next == RunPlan::Next::Refuse)
        result.errorText = plan.problems.join(QStringLiteral("\r\n"));
    if (plan.next != RunPlan::Next::Run) {
        result.cancelled = cancelled();
        return result;
    }
    const std::optional<ScriptFailure> failure = runScript(plan, options);
    result.cancelled = cancelled();
    if (failure && !result.cancelled) {
        QString errorLine;
        scriptErrorExcerpt(plan.script, *failure, &errorLine);
        result.errorText = previewErrorText(*failure, errorLine);
    }
    return result;
}

} // namespace mEngineMain
