// Registration entry of each builtin family (one file each), called by installStandardLibrary.
#pragma once

#include "vbscript/ScriptControl.h"

namespace vbs::lib {

void registerStringFunctions(ScriptControl& control);
void registerConversionFunctions(ScriptControl& control);
void registerMathFunctions(ScriptControl& control);
void registerDateFunctions(ScriptControl& control);
void registerFormatFunctions(ScriptControl& control);
void registerInspectionFunctions(ScriptControl& control);
void registerInteractionFunctions(ScriptControl& control);
void registerObjectFactory(ScriptControl& control);
void registerConstants(ScriptControl& control);

} // namespace vbs::lib
