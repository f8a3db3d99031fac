// libFuzzer target: arbitrary bytes compiled (lexer, parser, name resolution) and then run with
// a statement limit, so that endless loops end; also evaluated as one expression.
#include "vbscript/ScriptControl.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static vbs::ScriptControl* control = [] {
        auto* c = new vbs::ScriptControl;
        c->setStatementLimit(20000);
        return c;
    }();
    control->reset();
    const vbs::String code = vbs::fromUtf8(std::string_view(reinterpret_cast<const char*>(data), size));
    control->addCode(code);
    if (size < 300) {
        vbs::Value result;
        control->eval(code, &result);
    }
    return 0;
}
