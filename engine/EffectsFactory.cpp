// Creation of the effects object for the script host.
#include "engine/EffectsFactory.h"

#include "effects/clsVTEffects.h"
#include "engine/ScriptHost.h"
#include "engine/ScriptMessagesHost.h"
#include "platform/TextCodec.h"
#include "platform/mFile.h"

namespace mEngineMain {

vbs::Ref<vbs::Dispatch> createEffectsObject(frmConvProgress& form) {
    static ScriptMessagesHost host;
    if (!form.engine_IX) form.engine_IX = std::make_shared<imaging::ImagingControl>();
    // No save of this run may replace another of its photos, nor a file it already wrote for
    // another photo; the claims start over with each run.
    // The files as found on disk: a listed name may carry the blank before the next switch.
    const frmConvProgress::RunSettings& run = form.runSettings();
    std::vector<std::string> sources;
    for (const QString& file : run.files)
        sources.push_back(mFile::toDisk(file).native());
    form.engine_IX->beginRun(sources, {run.savesInFlight, run.skipNewer});
    auto fx = vbs::makeRef<clsVTEffects>();
    fx->Init(form.engine_IX);
    fx->setHost(&host);
    // The host ends the run through it: saves still in the background finish first.
    scriptHostServices().finishEffects = [fx, control = form.engine_IX]() {
        EffectsOutcome outcome;
        if (std::optional<vbs::ScriptError> e = fx->finishRun())
            outcome.failure =
                ScriptFailure{e->number, TextCodec::fromScriptText(e->description), e->line};
        outcome.skippedSaves = control->skippedSaves();
        return outcome;
    };
    return fx;
}

} // namespace mEngineMain
