// User interaction builtins: MsgBox and InputBox, answered by the engine's Host (which prints
// and answers with the safe default when there is no display).
#include "Families.h"
#include "LibSupport.h"
#include "vbscript/Host.h"

namespace vbs::lib {

namespace {

const String kDefaultTitle = u"VBScript";

// Buttons 0-5 in the low bits, icons 16/32/48/64, default button 0/256/512/768, modality.
bool validButtons(int32_t flags) {
    const int32_t buttons = flags & 0xF;
    const int32_t icon = flags & 0xF0;
    const int32_t defaultButton = flags & 0xF00;
    return buttons <= 5 && icon <= 0x40 && defaultButton <= 0x300 && flags >= 0;
}

Value fnMsgBox(CallContext& ctx, Args a) {
    const String prompt = a[0]->isNull() ? String() : a[0]->toString();
    const int32_t buttons = int32_t(longArg(a, 1, 0));
    if (!validButtons(buttons)) invalidCall();
    const String title = stringArg(a, 2, kDefaultTitle);
    return Value(int16_t(ctx.host().msgBox(prompt, buttons, title)));
}

// A cancelled box gives the empty string, as in VBScript.
Value fnInputBox(CallContext& ctx, Args a) {
    const String prompt = a[0]->toString();
    const String title = stringArg(a, 1, kDefaultTitle);
    const String defaultText = stringArg(a, 2, String());
    const auto answer = ctx.host().inputBox(prompt, title, defaultText);
    return Value(answer ? *answer : String());
}

const BuiltinDef kInteractionFunctions[] = {
    {u"MsgBox", 1, 5, fnMsgBox},
    {u"InputBox", 1, 7, fnInputBox},
};

} // namespace

void registerInteractionFunctions(ScriptControl& control) {
    control.registerBuiltins(kInteractionFunctions);
}

} // namespace vbs::lib
