// Script members of the progress window and of its label.
#include "engine/ProgressObject.h"

#include "platform/TextCodec.h"
#include "vbscript/Engine.h"
#include "vbscript/ScriptError.h"
#include "vbscript/Text.h"

#include <array>

using vbs::InvokeKind;
using vbs::Value;

namespace {

enum ProgressMember { Show, Hide, DoXEvents, Caption, Visible, Label1 };
constexpr std::array<std::u16string_view, 6> kProgressNames = {u"Show",    u"Hide",    u"DoXEvents",
                                                               u"Caption", u"Visible", u"Label1"};

int findName(std::span<const std::u16string_view> names, std::u16string_view name) {
    for (size_t i = 0; i < names.size(); ++i)
        if (vbs::equalsNoCase(names[i], name)) return int(i);
    return -1;
}

bool isAssignment(InvokeKind kind) {
    return kind == InvokeKind::PropertyLet || kind == InvokeKind::PropertySet;
}

// A method takes no arguments; a property get none; a property let exactly the value.
void expectArguments(std::span<Value*> args, size_t count) {
    if (args.size() != count) vbs::raise(vbs::ErrorCode::WrongArgumentCount);
}

QString textOf(const Value& v) {
    return TextCodec::fromScriptText(v.toString());
}

} // namespace

int ProgressObject::memberId(std::u16string_view name) const {
    return findName(kProgressNames, name);
}

Value ProgressObject::invoke(int memberId, InvokeKind kind, std::span<Value*> args) {
    switch (memberId) {
    case Show:
    case Hide:
    case DoXEvents:
        if (isAssignment(kind)) vbs::raise(vbs::ErrorCode::WrongArgumentCount);
        expectArguments(args, 0);
        if (memberId == Show) m_form.Show();
        if (memberId == Hide) m_form.Hide();
        if (memberId == DoXEvents) m_form.DoXEvents();
        return Value();
    case Caption:
        if (isAssignment(kind)) {
            expectArguments(args, 1);
            m_form.setCaption(textOf(*args[0]));
            return Value();
        }
        expectArguments(args, 0);
        return Value(TextCodec::toScriptText(m_form.Caption()));
    case Visible:
        if (isAssignment(kind)) {
            expectArguments(args, 1);
            args[0]->toBoolean() ? m_form.Show() : m_form.Hide();
            return Value();
        }
        expectArguments(args, 0);
        return Value(m_form.Visible());
    case Label1:
        if (isAssignment(kind)) vbs::raise(vbs::ErrorCode::WrongArgumentCount);
        expectArguments(args, 0);
        return Value(vbs::makeRef<ProgressLabelObject>(m_form));
    }
    vbs::raise(vbs::ErrorCode::NoSuchMember);
}

int ProgressLabelObject::memberId(std::u16string_view name) const {
    static constexpr std::array<std::u16string_view, 1> names = {u"Caption"};
    return findName(names, name);
}

Value ProgressLabelObject::invoke(int memberId, InvokeKind kind, std::span<Value*> args) {
    if (memberId != 0) vbs::raise(vbs::ErrorCode::NoSuchMember);
    if (isAssignment(kind)) {
        expectArguments(args, 1);
        // The template names each photo here as it starts it: the place to stop when asked.
        // The stop cannot be caught by the script's On Error Resume Next.
        if (m_form.cancelRequested()) throw vbs::ScriptInterrupted{};
        m_form.setLabelCaption(textOf(*args[0]));
        return Value();
    }
    expectArguments(args, 0);
    return Value(TextCodec::toScriptText(m_form.labelCaption()));
}
