// The script engine's host: its message boxes go through the current Messages object.
#pragma once

#include "vbscript/Host.h"

// MsgBox in a script shows the same boxes as the engine's own messages (a window's dialogs, or
// the console with its safe answers); output of the script goes to stdout.
class ScriptMessagesHost : public vbs::Host {
public:
    void echo(const vbs::String& text) override;
    int msgBox(const vbs::String& prompt, int buttons, const vbs::String& title) override;
    std::optional<vbs::String> inputBox(const vbs::String& prompt, const vbs::String& title,
                                        const vbs::String& defaultText) override;
};
