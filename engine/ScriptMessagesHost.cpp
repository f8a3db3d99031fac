// Routing of the script engine's MsgBox and output.
#include "engine/ScriptMessagesHost.h"

#include "platform/Messages.h"
#include "platform/TextCodec.h"
#include "vbscript/Text.h"

#include <cstdio>

void ScriptMessagesHost::echo(const vbs::String& text) {
    std::printf("%s\n", vbs::toUtf8(text).c_str());
    std::fflush(stdout);
}

int ScriptMessagesHost::msgBox(const vbs::String& prompt, int buttons, const vbs::String& title) {
    // MsgBox packs the button set into the low bits and the icon into 16..64.
    const int set = buttons & 7;
    const int icon = buttons & 0x70;
    const MsgButtons buttonSet = set <= 5 ? MsgButtons(set) : MsgButtons::OkOnly;
    const MsgIcon iconKind =
        (icon == 16 || icon == 32 || icon == 48 || icon == 64) ? MsgIcon(icon) : MsgIcon::None;
    return int(messages().messageBox(TextCodec::fromScriptText(title),
                                     TextCodec::fromScriptText(prompt), iconKind, buttonSet));
}

std::optional<vbs::String> ScriptMessagesHost::inputBox(const vbs::String& prompt,
                                                        const vbs::String& title,
                                                        const vbs::String& defaultText) {
    const std::optional<QString> answer =
        messages().inputBox(TextCodec::fromScriptText(title), TextCodec::fromScriptText(prompt),
                            TextCodec::fromScriptText(defaultText));
    if (!answer) return std::nullopt;
    return TextCodec::toScriptText(*answer);
}
