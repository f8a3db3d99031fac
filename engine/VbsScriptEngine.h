// The script host's engine: the VBScript script control with its standard library.
#pragma once

#include "engine/ScriptHost.h"

namespace mEngineMain {

// A fresh VBScript control with the standard library, its MsgBox routed through Messages.
std::unique_ptr<ScriptEngine> createVbsScriptEngine();

} // namespace mEngineMain
