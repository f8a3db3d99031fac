// The VBScript standard library: installs every builtin family and class into a script control.
#pragma once

namespace vbs {

class ScriptControl;

// Registers the functions, constants and creatable classes (RegExp, Scripting.Dictionary,
// Scripting.FileSystemObject) of the standard library.
void installStandardLibrary(ScriptControl& control);

} // namespace vbs
