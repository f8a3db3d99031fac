// libFuzzer target: the conversions between command lines and scripts on arbitrary text, and the
// promise that makes file names safe in generated scripts: any text written as a script string
// expression reads back as exactly that text.
#include "engine/mEngineMain.h"
#include "platform/TextCodec.h"
#include "vbscript/ScriptControl.h"
#include "vbscript/stdlib/StandardLibrary.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QString text = TextCodec::fromNativeName(
        std::string_view(reinterpret_cast<const char*>(data), size));
    const QString script = mEngineMain::CommandLineToScript(text);
    (void)mEngineMain::ScriptToCommandLine(script);
    (void)mEngineMain::ScriptToCommandLine(text);
    (void)mEngineMain::buildEffectsBody(text);
    (void)mEngineMain::switchValue(text, QStringLiteral("/files:"));

    // As the script host has it: the standard library gives vbCr and vbLf.
    static vbs::ScriptControl* control = [] {
        auto* c = new vbs::ScriptControl;
        vbs::installStandardLibrary(*c);
        return c;
    }();
    vbs::Value value;
    const QString expression = mEngineMain::scriptStringExpression(text);
    if (!control->eval(TextCodec::toScriptText(expression), &value) ||
        TextCodec::fromScriptText(value.toString()) != text)
        std::abort(); // a name would not reach the script as itself
    return 0;
}
