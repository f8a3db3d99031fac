// The WScript object of vbsrun: Echo, Quit, Arguments, ScriptName, StdOut, StdErr.
#pragma once

#include "vbscript/Host.h"
#include "vbscript/Value.h"

#include <cstdio>
#include <string>
#include <vector>

namespace vbsrun {

// Thrown by WScript.Quit; carries the exit status out through the engine.
struct QuitRequest {
    int status;
};

// Output of the engine (WScript.Echo, MsgBox) on stdout; questions get their safe default.
class ConsoleHost : public vbs::Host {
public:
    void echo(const vbs::String& text) override;
    int msgBox(const vbs::String& prompt, int buttons, const vbs::String& title) override;
};

vbs::Ref<vbs::Dispatch> makeWScript(vbs::Host& host, std::string scriptPath,
    std::vector<std::string> arguments);

} // namespace vbsrun
