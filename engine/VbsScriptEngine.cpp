// Adapter from the script host's ScriptEngine to the VBScript script control.
#include "engine/VbsScriptEngine.h"

#include "engine/ScriptMessagesHost.h"
#include "platform/TextCodec.h"
#include "vbscript/ScriptControl.h"
#include "vbscript/stdlib/StandardLibrary.h"

namespace mEngineMain {

namespace {

class VbsScriptEngine : public ScriptEngine {
public:
    VbsScriptEngine() {
        vbs::installStandardLibrary(m_control);
        m_control.setHost(&m_host);
    }
    bool setLanguage(const QString& language) override {
        return m_control.setLanguage(TextCodec::toScriptText(language));
    }
    void addObject(const QString& name, vbs::Ref<vbs::Dispatch> object) override {
        m_control.addObject(TextCodec::toScriptText(name), std::move(object));
    }
    bool addCode(const QString& code) override {
        return m_control.addCode(TextCodec::toScriptText(code));
    }
    bool run(const QString& procedure, QString* result) override {
        vbs::Value value;
        if (!m_control.run(TextCodec::toScriptText(procedure), {}, &value)) return false;
        // Main is a Sub, so this is normally Empty; Null converts to "" rather than failing.
        if (result && !value.isNull()) *result = TextCodec::fromScriptText(value.toString());
        return true;
    }
    ScriptFailure error() const override {
        const vbs::ErrorInfo& e = m_control.error();
        return {e.number, TextCodec::fromScriptText(e.description), e.line};
    }

private:
    ScriptMessagesHost m_host;
    vbs::ScriptControl m_control;
};

} // namespace

std::unique_ptr<ScriptEngine> createVbsScriptEngine() {
    return std::make_unique<VbsScriptEngine>();
}

} // namespace mEngineMain
