// Script class instances, the Err object and procedure references.
#include "ClassInstance.h"

#include "Engine.h"

namespace vbs {

String defaultErrorSource(int32_t number, bool compileTime)
{
    return compileTime || isCompileError(number) ? u"Microsoft VBScript compilation error"
                                  : u"Microsoft VBScript runtime error";
}

bool isEngineObject(const Object* object)
{
    return dynamic_cast<const ClassInstance*>(object) || dynamic_cast<const ErrObject*>(object)
        || dynamic_cast<const ProcedureRef*>(object) || dynamic_cast<const GlobalScope*>(object);
}

ClassInstance::ClassInstance(Engine& engine, ClassDef* cls, std::shared_ptr<Program> program)
    : m_engine(engine), m_engineAlive(engine.m_alive), m_cls(cls), m_program(std::move(program))
{
    fields.resize(cls->fields.size());
    for (size_t i = 0; i < cls->fields.size(); ++i) {
        const auto& f = cls->fields[i];
        if (f.isArray) {
            fields[i] = Value::makeArray(f.dims);
            fields[i].array()->fixed = !f.dims.empty();
        }
    }
}

int ClassInstance::anyMemberId(std::u16string_view name) const
{
    const auto it = m_cls->memberIndex.find(foldCase(name));
    return it == m_cls->memberIndex.end() ? -1 : it->second;
}

int ClassInstance::memberId(std::u16string_view name) const
{
    const int id = anyMemberId(name);
    return id >= 0 && m_cls->members[size_t(id)].isPublic ? id : -1;
}

Value ClassInstance::invoke(int memberId, InvokeKind kind, std::span<Value*> args)
{
    if (!*m_engineAlive)
        raise(ErrorCode::ObjectRequired);
    const ClassDef::Member& m = m_cls->members[size_t(memberId)];
    if (m.field >= 0) {
        Value& f = fields[size_t(m.field)];
        if (kind == InvokeKind::PropertyLet || kind == InvokeKind::PropertySet) {
            Value value = *args.back();
            if (kind == InvokeKind::PropertySet && !value.isObject())
                raise(ErrorCode::ObjectRequired);
            if (args.size() == 1) {
                f = std::move(value);
            } else {
                *m_engine.elementRef(f, args.first(args.size() - 1)) = std::move(value);
            }
            return {};
        }
        if (args.empty())
            return f;
        return m_engine.indexValue(f, args, false);
    }
    Procedure* proc = nullptr;
    switch (kind) {
    case InvokeKind::PropertyLet: proc = m.let; break;
    case InvokeKind::PropertySet: proc = m.set ? m.set : nullptr; break;
    default: proc = m.method ? m.method : m.get; break;
    }
    if (!proc)
        throw ScriptError(int32_t(ErrorCode::NoSuchMember), errorMessage(ErrorCode::NoSuchMember) + u": '" + m.name + u"'");
    Ref<Object> keep(this);
    if (!args.empty() && proc->params.empty()
        && (kind == InvokeKind::PropertyGet || kind == InvokeKind::Method)) {
        // obj.Items(2) where Items takes no arguments: index what it returns.
        const Value result = m_engine.callProcedure(proc, this, {});
        return m_engine.indexValue(result, args, false);
    }
    return m_engine.callProcedure(proc, this, args);
}

void ClassInstance::destroy() noexcept
{
    if (!m_terminated && m_cls->terminate && *m_engineAlive) {
        m_terminated = true;
        addRef();
        m_engine.runTerminate(this);
        release(); // comes back here with m_terminated set, unless Class_Terminate kept Me
        return;
    }
    delete this;
}

namespace {

enum ErrMember { ENumber, EDescription, ESource, ERaise, EClear, EHelpFile, EHelpContext };

} // namespace

int ErrObject::memberId(std::u16string_view name) const
{
    static const char16_t* const names[] = {u"number", u"description", u"source", u"raise",
        u"clear", u"helpfile", u"helpcontext"};
    for (int i = 0; i < 7; ++i)
        if (equalsNoCase(name, names[i]))
            return i;
    return -1;
}

void ErrObject::clear()
{
    number = 0;
    description.clear();
    source.clear();
    helpFile.clear();
    helpContext = 0;
}

void ErrObject::set(const ScriptError& e)
{
    number = e.number;
    description = e.description.empty() ? errorMessage(e.number) : e.description;
    source = e.source.empty() ? defaultErrorSource(e.number, e.compileTime) : e.source;
    helpFile = e.helpFile;
    helpContext = e.helpContext;
}

Value ErrObject::invoke(int memberId, InvokeKind kind, std::span<Value*> args)
{
    const bool put = kind == InvokeKind::PropertyLet;
    if (put && args.size() != 1)
        raise(ErrorCode::WrongArgumentCount);
    switch (memberId) {
    case ENumber:
        if (put) { number = args[0]->toLong(); return {}; }
        return Value(number);
    case EDescription:
        if (put) { description = args[0]->toString(); return {}; }
        return Value(description);
    case ESource:
        if (put) { source = args[0]->toString(); return {}; }
        return Value(source);
    case EHelpFile:
        if (put) { helpFile = args[0]->toString(); return {}; }
        return Value(helpFile);
    case EHelpContext:
        if (put) { helpContext = args[0]->toLong(); return {}; }
        return Value(helpContext);
    case EClear:
        clear();
        return {};
    case ERaise:
        raiseFrom(args);
    default:
        raise(ErrorCode::NoSuchMember);
    }
}

// Err.Raise number[, source, description, helpfile, helpcontext]: what is left out keeps the
// Err object's current value (a Raise right after a handled error repeats its description), or
// the standard text when that is empty.
void ErrObject::raiseFrom(std::span<Value*> args)
{
    if (args.empty() || args.size() > 5)
        raise(ErrorCode::WrongArgumentCount);
    const int32_t n = args[0]->toLong();
    if (n == 0 || n > 65535 || n < -2147483647)
        raise(ErrorCode::InvalidProcedureCall);
    auto given = [&](size_t i) { return args.size() > i && !args[i]->isMissing(); };
    const int32_t mapped = errorFromHresult(n);
    String src = given(1) ? args[1]->toString() : source;
    String desc = given(2) ? args[2]->toString() : description;
    ScriptError e(mapped, desc.empty() ? errorMessage(mapped) : desc,
        src.empty() ? defaultErrorSource(mapped) : src);
    e.helpFile = given(3) ? args[3]->toString() : helpFile;
    e.helpContext = given(4) ? args[4]->toLong() : helpContext;
    throw e;
}

ProcedureRef::ProcedureRef(Engine& engine, Procedure* proc, std::shared_ptr<Program> program)
    : m_engine(engine), m_engineAlive(engine.m_alive), m_proc(proc), m_program(std::move(program))
{
}

Value ProcedureRef::invoke(int memberId, InvokeKind, std::span<Value*> args)
{
    if (memberId != 0)
        raise(ErrorCode::NoSuchMember);
    if (!*m_engineAlive)
        raise(ErrorCode::ObjectRequired);
    return m_engine.callProcedure(m_proc, nullptr, args);
}

GlobalScope::GlobalScope(Engine& engine) : m_engine(engine), m_engineAlive(engine.m_alive)
{
}

int GlobalScope::memberId(std::u16string_view name) const
{
    if (!*m_engineAlive)
        return -1;
    const int slot = m_engine.findGlobal(name);
    if (slot < 0)
        return -1;
    using Kind = GlobalSlot::Kind;
    switch (m_engine.global(slot).kind) {
    case Kind::Variable: case Kind::Const: case Kind::Procedure: case Kind::Builtin: case Kind::Object:
        return slot;
    default:
        return -1;
    }
}

Value GlobalScope::invoke(int memberId, InvokeKind kind, std::span<Value*> args)
{
    if (!*m_engineAlive)
        raise(ErrorCode::ObjectRequired);
    GlobalSlot& g = m_engine.global(memberId);
    using Kind = GlobalSlot::Kind;
    if (g.kind == Kind::Procedure) {
        std::shared_ptr<Program> keep = g.program;
        return m_engine.callProcedure(g.proc, nullptr, args);
    }
    if (g.kind == Kind::Builtin)
        return m_engine.callBuiltin(g.builtin, args);
    if (kind == InvokeKind::PropertyLet || kind == InvokeKind::PropertySet) {
        if (g.kind != Kind::Variable || args.size() != 1)
            raise(ErrorCode::IllegalAssignment);
        g.value = *args.back();
        return {};
    }
    return m_engine.indexValue(g.value, args, false);
}

} // namespace vbs
