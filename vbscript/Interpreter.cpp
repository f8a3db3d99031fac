// Interpreter: expressions.
#include "Engine.h"

#include "ClassInstance.h"
#include "Operators.h"

#include <cmath>

namespace vbs {

namespace {

String nameOf(const Expr* e)
{
    switch (e->kind) {
    case ExprKind::Name: case ExprKind::Local: case ExprKind::RefParam: case ExprKind::Global:
    case ExprKind::Implicit: case ExprKind::Field: case ExprKind::MeMember:
        return static_cast<const NameExpr*>(e)->name;
    case ExprKind::Member:
        return static_cast<const MemberExpr*>(e)->name;
    default:
        return {};
    }
}

} // namespace

[[noreturn]] void raiseNamed(ErrorCode code, const String& name)
{
    if (name.empty())
        raise(code);
    throw ScriptError(int32_t(code), errorMessage(code) + u": '" + name + u"'");
}

Value Engine::evalNode(const Expr* e)
{
    switch (e->kind) {
    case ExprKind::Literal:
        return static_cast<const LiteralExpr*>(e)->value;
    case ExprKind::Local:
        return m_frame->vars[static_cast<const NameExpr*>(e)->slot];
    case ExprKind::RefParam:
        return *m_frame->refs[static_cast<const NameExpr*>(e)->slot];
    case ExprKind::Field:
        return m_frame->me->fields[size_t(static_cast<const NameExpr*>(e)->slot)];
    case ExprKind::Global: {
        const GlobalSlot& g = global(static_cast<const NameExpr*>(e)->slot);
        if (g.kind == GlobalSlot::Kind::Variable)
            return g.value;
        return evalName(static_cast<const NameExpr*>(e));
    }
    case ExprKind::Implicit:
        return evalName(static_cast<const NameExpr*>(e));
    case ExprKind::MeMember:
        return callMeMember(static_cast<const NameExpr*>(e)->slot, {}, false);
    case ExprKind::Me:
        if (!m_frame->me)
            return Value(m_globalScope);
        return Value(Ref<Object>(m_frame->me));
    case ExprKind::WithObject:
        return withObject(static_cast<const WithExpr*>(e));
    case ExprKind::Call:
        return evalCall(static_cast<const CallExpr*>(e), false);
    case ExprKind::Member:
        return evalMember(static_cast<const MemberExpr*>(e), {}, false);
    case ExprKind::New:
        return evalNew(static_cast<const NewExpr*>(e));
    case ExprKind::Neg: {
        Value v = eval(static_cast<const UnaryExpr*>(e)->operand.get());
        m_frame->node = e;
        return ops::neg(v);
    }
    case ExprKind::Not: {
        Value v = eval(static_cast<const UnaryExpr*>(e)->operand.get());
        if (v.type() == VarType::Boolean)
            return Value(!v.rawBool());
        m_frame->node = e;
        return ops::logicNot(v);
    }
    case ExprKind::Name:
        raise(ErrorCode::InternalError);
    default:
        return evalBinary(static_cast<const BinaryExpr*>(e));
    }
}

Value Engine::evalName(const NameExpr* e)
{
    GlobalSlot& g = global(e->slot);
    using Kind = GlobalSlot::Kind;
    switch (g.kind) {
    case Kind::Variable: case Kind::Const: case Kind::Object:
        return g.value;
    case Kind::Undeclared: {
        Value member;
        if (!m_memberObjects.empty() && globalMember(e->name, InvokeKind::PropertyGet, {}, member))
            return member;
        if (e->kind == ExprKind::Implicit)
            return *implicitLocal(e);
        if (m_frame->proc && m_frame->proc->optionExplicit)
            raiseNamed(ErrorCode::VariableUndefined, e->name);
        return {};
    }
    case Kind::Procedure:
        return callProcedure(g.proc, nullptr, {});
    case Kind::Builtin:
        return callBuiltin(g.builtin, {});
    default:
        raiseNamed(ErrorCode::TypeMismatch, e->name);
    }
}

Value& Engine::withObject(const WithExpr* e)
{
    if (e->slot == -1)
        raise(ErrorCode::InvalidReference);
    if (e->slot >= 0)
        return m_frame->vars[e->slot];
    return global(-2 - e->slot).value;
}

Value* Engine::variableRef(const Expr* e, RefMode mode)
{
    switch (e->kind) {
    case ExprKind::Local:
        return &m_frame->vars[static_cast<const NameExpr*>(e)->slot];
    case ExprKind::RefParam:
        return m_frame->refs[static_cast<const NameExpr*>(e)->slot];
    case ExprKind::Field:
        return &m_frame->me->fields[size_t(static_cast<const NameExpr*>(e)->slot)];
    case ExprKind::Global: case ExprKind::Implicit: {
        const auto* n = static_cast<const NameExpr*>(e);
        GlobalSlot& g = global(n->slot);
        using Kind = GlobalSlot::Kind;
        switch (g.kind) {
        case Kind::Variable:
            return &g.value;
        case Kind::Undeclared:
            if (e->kind == ExprKind::Implicit)
                return implicitLocal(n);
            if (m_frame->proc && m_frame->proc->optionExplicit)
                raiseNamed(ErrorCode::VariableUndefined, n->name);
            g.kind = Kind::Variable;
            return &g.value;
        default:
            if (mode == RefMode::Write)
                raiseNamed(ErrorCode::IllegalAssignment, n->name);
            return nullptr;
        }
    }
    default:
        return nullptr;
    }
}

// The local an undeclared name of a procedure stands for when no global of that name exists.
// Under Option Explicit only a name that code Execute'd in the procedure declared has one.
Value* Engine::implicitLocal(const NameExpr* n)
{
    const Procedure* proc = m_frame->proc;
    if (proc->optionExplicit && !proc->execLocals.count(foldCase(n->name)))
        raiseNamed(ErrorCode::VariableUndefined, n->name);
    return &m_frame->vars[n->localSlot];
}

Value Engine::evalNew(const NewExpr* e)
{
    GlobalSlot& g = global(e->slot);
    if (g.kind == GlobalSlot::Kind::NativeClass) {
        Ref<Dispatch> object = g.create();
        if (!object)
            raiseNamed(ErrorCode::CantCreateObject, e->className);
        return Value(object);
    }
    if (g.kind != GlobalSlot::Kind::Class)
        raiseNamed(ErrorCode::ClassNotDefined, e->className);
    return newInstance(g.cls, g.program);
}

Value Engine::newInstance(ClassDef* cls, const std::shared_ptr<Program>& program)
{
    Ref<ClassInstance> obj(new ClassInstance(*this, cls, program));
    if (cls->initialize)
        callProcedure(cls->initialize, obj.get(), {});
    return Value(obj);
}

void Engine::runTerminate(ClassInstance* instance) noexcept
{
    try {
        Frame* saved = m_frame;
        Frame frame;
        if (!m_frame)
            m_frame = &frame;
        try {
            callProcedure(instance->classDef()->terminate, instance, {});
        } catch (...) {
        }
        m_frame = saved;
    } catch (...) {
    }
}

Value Engine::evalMember(const MemberExpr* e, std::span<Value*> args, bool statement)
{
    const Value obj = eval(e->object.get());
    m_frame->node = e;
    Dispatch* d = memberObject(obj, e);
    const int id = visibleMemberId(d, e);
    return d->invoke(id, statement ? InvokeKind::Method : InvokeKind::PropertyGet, args);
}

// The object whose member e names. Nothing has no members: 424, as for a non-object (91 is
// for using Nothing as a value).
Dispatch* Engine::memberObject(const Value& obj, const MemberExpr* e)
{
    if (!obj.isObject() || !obj.object())
        raiseNamed(ErrorCode::ObjectRequired, nameOf(e->object.get()));
    Dispatch* d = obj.object()->asDispatch();
    if (!d)
        raiseNamed(ErrorCode::NoSuchMember, e->name);
    return d;
}

int Engine::visibleMemberId(Dispatch* d, const MemberExpr* e, Procedure** method)
{
    // Code inside a class reaches the private members of its own instance.
    const bool own = m_frame->me && d == m_frame->me;
    const void* table = d->memberTable();
    MemberExpr::MemberCache& cache = e->cache;
    if (table && cache.table == table && cache.own == own && cache.generation == m_generation) {
        if (method)
            *method = cache.method;
        return cache.id;
    }
    return lookUpMember(d, e, method, own, table);
}

// visibleMemberId when the member's id is not remembered yet: looked up by name and remembered.
int Engine::lookUpMember(Dispatch* d, const MemberExpr* e, Procedure** method, bool own,
    const void* table)
{
    MemberExpr::MemberCache& cache = e->cache;
    if (method)
        *method = nullptr;
    const int id = own ? m_frame->me->anyMemberId(e->name) : d->memberId(e->name);
    if (id < 0)
        raiseNamed(ErrorCode::NoSuchMember, e->name);
    if (table) {
        Procedure* scriptMethod = nullptr;
        const auto* instance = dynamic_cast<const ClassInstance*>(d);
        if (instance && instance->ownedBy(*this)) {
            const ClassDef::Member& m = instance->classDef()->members[size_t(id)];
            if (m.field < 0)
                scriptMethod = m.method;
        }
        cache = {table, m_generation, id, own, scriptMethod};
        if (method)
            *method = scriptMethod;
    }
    return id;
}

} // namespace vbs
