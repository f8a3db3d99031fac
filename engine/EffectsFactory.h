// The `fx` object of a run, bound to the progress window's imaging control.
#pragma once

#include "engine/frmConvProgress.h"
#include "vbscript/Object.h"

namespace mEngineMain {

// A new effects object on form.engine_IX (created when the window has none yet); its
// MsgDisplay boxes go through the current Messages object.
vbs::Ref<vbs::Dispatch> createEffectsObject(frmConvProgress& form);

} // namespace mEngineMain
