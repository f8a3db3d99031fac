// Creation of the effects object for the script host.
#include "engine/EffectsFactory.h"

#include "effects/clsVTEffects.h"
#include "engine/ScriptMessagesHost.h"

namespace mEngineMain {

vbs::Ref<vbs::Dispatch> createEffectsObject(frmConvProgress& form) {
    static ScriptMessagesHost host;
    if (!form.engine_IX) form.engine_IX = std::make_shared<imaging::ImagingControl>();
    auto fx = vbs::makeRef<clsVTEffects>();
    fx->Init(form.engine_IX);
    fx->setHost(&host);
    return fx;
}

} // namespace mEngineMain
