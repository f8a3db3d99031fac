// The script control: the host's face of the engine, turning script errors into ErrorInfo.
#include "ScriptControl.h"

#include "ClassInstance.h"
#include "Engine.h"

namespace vbs {

namespace {

String lineOf(const String& source, int line)
{
    size_t start = 0;
    for (int i = 1; i < line; ++i) {
        const size_t nl = source.find(u'\n', start);
        if (nl == String::npos)
            return {};
        start = nl + 1;
    }
    size_t end = source.find(u'\n', start);
    if (end == String::npos)
        end = source.size();
    if (end > start && source[end - 1] == u'\r')
        --end;
    return source.substr(start, end - start);
}

} // namespace

ScriptControl::ScriptControl() : m_engine(std::make_unique<Engine>(*this))
{
}

ScriptControl::~ScriptControl() = default;

bool ScriptControl::setLanguage(const String& language)
{
    if (!equalsNoCase(language, u"VBScript"))
        return false;
    m_language = u"VBScript";
    return true;
}

const String& ScriptControl::language() const
{
    return m_language;
}

void ScriptControl::addObject(const String& name, Ref<Dispatch> object, bool addMembers)
{
    m_engine->addObject(name, std::move(object), addMembers);
}

template <class Fn>
bool ScriptControl::guarded(Fn&& fn)
{
    Engine& engine = *m_engine;
    ErrorInfo& info = m_error;
    try {
        fn();
        return true;
    } catch (const ScriptError& e) {
        info.number = e.number;
        info.description = e.description.empty() ? errorMessage(e.number) : e.description;
        info.source = e.source.empty() ? defaultErrorSource(e.number, e.compileTime) : e.source;
        info.compileTime = e.compileTime || isCompileError(e.number);
        info.line = e.line;
        info.column = e.column;
        info.text = lineOf(engine.chunkSource(e.chunk), e.line);
    } catch (const ScriptInterrupted&) {
        info = ErrorInfo{};
        info.number = int32_t(ErrorCode::CantPerformOperation);
        info.description = errorMessage(info.number);
        info.source = defaultErrorSource(info.number);
    } catch (const std::bad_alloc&) {
        info = ErrorInfo{};
        info.number = int32_t(ErrorCode::OutOfMemory);
        info.description = errorMessage(ErrorCode::OutOfMemory);
        info.source = defaultErrorSource(info.number);
    } catch (const std::exception& e) {
        info = ErrorInfo{};
        info.number = int32_t(ErrorCode::AutomationError);
        info.description = fromUtf8(e.what());
        info.source = defaultErrorSource(info.number);
    }
    return false;
}

bool ScriptControl::addCode(std::u16string_view code)
{
    return guarded([&] { m_engine->addCode(code); });
}

bool ScriptControl::run(std::u16string_view procName, std::vector<Value> args, Value* result)
{
    return guarded([&] {
        Value r = m_engine->run(procName, args);
        if (result)
            *result = std::move(r);
    });
}

bool ScriptControl::checkSyntax(std::u16string_view code)
{
    return guarded([&] { m_engine->checkSyntax(code); });
}

bool ScriptControl::eval(std::u16string_view expression, Value* result)
{
    return guarded([&] {
        Value r = m_engine->evalText(expression);
        if (result)
            *result = std::move(r);
    });
}

const ErrorInfo& ScriptControl::error() const
{
    return m_error;
}

void ScriptControl::clearError()
{
    m_error = ErrorInfo{};
}

void ScriptControl::reset()
{
    m_engine->reset();
    clearError();
}

void ScriptControl::setStatementLimit(uint64_t limit)
{
    m_engine->setStatementLimit(limit);
}

void ScriptControl::setInterruptFlag(const std::atomic<bool>* flag)
{
    m_engine->setInterruptFlag(flag);
}

void ScriptControl::setHost(Host* host)
{
    m_engine->setHost(host);
}

Host& ScriptControl::host() const
{
    return m_engine->host();
}

void ScriptControl::registerBuiltins(std::span<const BuiltinDef> table)
{
    for (const auto& def : table)
        m_engine->registerBuiltin(def);
}

void ScriptControl::registerConstants(std::span<const ConstantDef> table)
{
    for (const auto& def : table)
        m_engine->registerConstant(def.name, def.make());
}

void ScriptControl::registerClasses(std::span<const NativeClassDef> table)
{
    for (const auto& def : table)
        m_engine->registerNativeClass(def.name, def.create);
}

void ScriptControl::registerClass(std::u16string_view name, Ref<Dispatch> (*create)())
{
    m_engine->registerNativeClass(name, create);
}

void ScriptControl::registerConstant(std::u16string_view name, Value value)
{
    m_engine->registerConstant(name, std::move(value));
}

} // namespace vbs
