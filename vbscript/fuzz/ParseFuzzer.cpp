// libFuzzer target: arbitrary bytes through the lexer, parser and name resolution, and short
// inputs evaluated as expressions (operators, conversions, number and date text).
#include "vbscript/ScriptControl.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static vbs::ScriptControl* control = new vbs::ScriptControl;
    control->reset();
    control->checkSyntax(vbs::fromUtf8(std::string_view(reinterpret_cast<const char*>(data), size)));
    // Expressions cannot loop, except through Execute, which is left out.
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    if (size < 300) {
        const vbs::String code = vbs::fromUtf8(text);
        if (vbs::foldCase(code).find(u"execute") == vbs::String::npos) {
            vbs::Value result;
            control->eval(code, &result);
        }
    }
    return 0;
}
