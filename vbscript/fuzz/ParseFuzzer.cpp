// libFuzzer target: arbitrary bytes through the lexer, parser and name resolution.
#include "vbscript/ScriptControl.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static vbs::ScriptControl* control = new vbs::ScriptControl;
    control->reset();
    control->checkSyntax(vbs::fromUtf8(std::string_view(reinterpret_cast<const char*>(data), size)));
    // Expressions go through the Eval entry as well (compiled, then evaluated: no loops there).
    if (size < 200)
        control->checkSyntax(u"x = " + vbs::fromUtf8(std::string_view(reinterpret_cast<const char*>(data), size)));
    return 0;
}
