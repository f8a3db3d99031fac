// The progress window and the message host as the script engine reaches them.
#include "engine/ProgressObject.h"
#include "RecordingMessages.h"
#include "engine/ScriptMessagesHost.h"
#include "vbscript/ScriptError.h"

#include <gtest/gtest.h>
#include <vector>

using vbs::InvokeKind;
using vbs::Value;

namespace {

struct NullBackend : ProgressBackend {
    void render(const ProgressState&) override {}
    void processEvents() override { ++eventPasses; }
    int eventPasses = 0;
};

Value call(vbs::Dispatch& object, std::u16string_view name, InvokeKind kind,
           std::vector<Value> args = {}) {
    const int id = object.memberId(name);
    EXPECT_GE(id, 0);
    std::vector<Value*> refs;
    for (Value& v : args)
        refs.push_back(&v);
    return object.invoke(id, kind, refs);
}

int errorNumber(const std::function<void()>& f) {
    try {
        f();
    } catch (const vbs::ScriptError& e) {
        return e.number;
    }
    return 0;
}

} // namespace

TEST(ProgressObject, ShowHideCaptionAndLabel) {
    auto backend = std::make_unique<NullBackend>();
    NullBackend* events = backend.get();
    frmConvProgress form(std::move(backend));
    auto progress = vbs::makeRef<ProgressObject>(form);
    call(*progress, u"show", InvokeKind::Method);
    EXPECT_TRUE(form.Visible());
    EXPECT_TRUE(call(*progress, u"Visible", InvokeKind::PropertyGet).toBoolean());
    call(*progress, u"hide", InvokeKind::Method);
    EXPECT_FALSE(form.Visible());
    call(*progress, u"Visible", InvokeKind::PropertyLet, {Value(true)});
    EXPECT_TRUE(form.Visible());
    call(*progress, u"DoXEvents", InvokeKind::Method);
    EXPECT_EQ(events->eventPasses, 1);
    call(*progress, u"Caption", InvokeKind::PropertyLet, {Value(u"Working")});
    EXPECT_EQ(form.Caption(), QStringLiteral("Working"));
    EXPECT_EQ(call(*progress, u"caption", InvokeKind::PropertyGet).toString(), u"Working");

    const Value label = call(*progress, u"Label1", InvokeKind::PropertyGet);
    ASSERT_TRUE(label.isObject());
    vbs::Dispatch& labelObject = *label.toDispatch();
    EXPECT_EQ(labelObject.defaultMemberId(), labelObject.memberId(u"caption"));
    call(labelObject, u"Caption", InvokeKind::PropertyLet, {Value(u"Now Converting: \u00e9.jpg")});
    EXPECT_EQ(form.state().currentName(), QString::fromUtf8("é.jpg"));
    EXPECT_EQ(form.state().fileNumber, 1);
}

TEST(ProgressObject, WrongUseRaisesScriptErrors) {
    frmConvProgress form(std::make_unique<NullBackend>());
    ProgressObject progress(form);
    EXPECT_EQ(
        errorNumber([&] { call(progress, u"Show", InvokeKind::Method, {Value(int32_t(1))}); }),
        450);
    EXPECT_EQ(errorNumber([&] { call(progress, u"Label1", InvokeKind::PropertyLet, {Value()}); }),
              450);
    EXPECT_EQ(errorNumber([&] { progress.invoke(99, InvokeKind::Method, {}); }), 438);
}

TEST(ScriptMessagesHost, MsgBoxGoesThroughMessages) {
    RecordingMessages recorder;
    ScopedMessages scope(&recorder);
    recorder.replies = {MsgAnswer::Yes};
    ScriptMessagesHost host;
    EXPECT_EQ(host.msgBox(u"Go on?", 3 + 32 + 256, u"Ask"), 6); // vbYesNoCancel + vbQuestion
    ASSERT_EQ(recorder.boxes.size(), 1);
    EXPECT_EQ(recorder.boxes[0].title, QStringLiteral("Ask"));
    EXPECT_EQ(recorder.boxes[0].text, QStringLiteral("Go on?"));
    EXPECT_EQ(recorder.boxes[0].buttons, MsgButtons::YesNoCancel);
    EXPECT_EQ(recorder.boxes[0].icon, MsgIcon::Question);
    EXPECT_EQ(host.msgBox(u"Info", 64, u""), 1);
    EXPECT_EQ(recorder.boxes[1].icon, MsgIcon::Information);
}

TEST(ScriptMessagesHost, InputBoxGoesThroughMessages) {
    RecordingMessages recorder;
    ScopedMessages scope(&recorder);
    recorder.inputs = {"typed", ""};
    ScriptMessagesHost host;
    EXPECT_EQ(host.inputBox(u"Name?", u"Ask", u"def"), std::optional<vbs::String>(u"typed"));
    EXPECT_EQ(host.inputBox(u"Name?", u"Ask", u"def"), std::optional<vbs::String>(u"def"));
    EXPECT_EQ(host.inputBox(u"Name?", u"Ask", u"def"), std::nullopt); // cancelled
    EXPECT_EQ(recorder.boxes[0].title, QStringLiteral("Ask"));
    EXPECT_EQ(recorder.boxes[0].text, QStringLiteral("Name?"));
}
