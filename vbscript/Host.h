// Everything the engine says to the outside world goes through a Host; the engine never prints.
#pragma once

#include "Text.h"

#include <optional>

namespace vbs {

class Host {
public:
    virtual ~Host() = default;
    // WScript.Echo-style output of one line (without line end).
    virtual void echo(const String& text);
    // Returns vbOK = 1, vbCancel = 2, vbAbort = 3, vbRetry = 4, vbIgnore = 5, vbYes = 6, vbNo = 7.
    // The default answers without asking: OK where that is the only button, otherwise the
    // choice that changes nothing (No, Cancel, Abort).
    virtual int msgBox(const String& prompt, int buttons, const String& title);
    // nullopt means the user cancelled; the default cancels.
    virtual std::optional<String> inputBox(const String& prompt, const String& title,
        const String& defaultText);
};

// Answers every question with its safe default and drops output.
Host& defaultHost();

} // namespace vbs
