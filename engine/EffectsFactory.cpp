// Creation of the effects object for the script host.
#include "engine/EffectsFactory.h"

#include "effects/clsVTEffects.h"
#include "engine/ScriptMessagesHost.h"
#include "platform/mFile.h"

namespace mEngineMain {

vbs::Ref<vbs::Dispatch> createEffectsObject(frmConvProgress& form) {
    static ScriptMessagesHost host;
    if (!form.engine_IX) form.engine_IX = std::make_shared<imaging::ImagingControl>();
    // No save of this run may replace another of its photos, nor a file it already wrote for
    // another photo; the claims start over with each run.
    // The files as found on disk: a listed name may carry the blank before the next switch.
    std::vector<std::string> sources;
    for (const QString& file : form.runFiles())
        sources.push_back(mFile::toDisk(file).native());
    form.engine_IX->beginRun(sources);
    auto fx = vbs::makeRef<clsVTEffects>();
    fx->Init(form.engine_IX);
    fx->setHost(&host);
    return fx;
}

} // namespace mEngineMain
