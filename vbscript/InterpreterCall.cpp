// Interpreter: calls, arguments by reference, arrays, default members and assignment.
#include "Engine.h"

#include "ClassInstance.h"

namespace vbs {

[[noreturn]] void raiseNamed(ErrorCode code, const String& name);

// Argument pointers for one call. Temporaries of small calls live in raw storage on the
// native stack and are constructed only for the arguments that need one; calls with more
// arguments, and array items passed by reference, use storage made on demand.
struct Engine::ArgList {
    static constexpr size_t kInline = 6;
    struct Extra {
        std::unique_ptr<Value[]> temps;
        std::unique_ptr<Value*[]> ptrs;
        std::vector<Value> lockedArrays; // arrays whose items are passed by reference
        ~Extra()
        {
            for (auto& a : lockedArrays)
                --a.array()->locks;
        }
    };
    alignas(Value) unsigned char raw[kInline * sizeof(Value)];
    Value* inlinePtrs[kInline];
    uint32_t built = 0; // which inline temporaries exist
    Value** ptrs = inlinePtrs;
    size_t count = 0;
    std::unique_ptr<Extra> extra;

    ArgList() = default;
    ArgList(const ArgList&) = delete;
    ArgList& operator=(const ArgList&) = delete;

    ~ArgList()
    {
        for (size_t i = 0; built; ++i, built >>= 1)
            if (built & 1)
                reinterpret_cast<Value*>(raw)[i].~Value();
    }
    Extra& more()
    {
        if (!extra)
            extra = std::make_unique<Extra>();
        return *extra;
    }
    // Keeps the array alive and locked (no ReDim, no Erase) while a pointer to its item is out.
    void lock(const Value& array)
    {
        more().lockedArrays.push_back(array);
        ++array.array()->locks;
    }
    void reserve(size_t n)
    {
        if (n > kInline) {
            Extra& x = more();
            x.temps.reset(new Value[n]);
            x.ptrs.reset(new Value*[n]);
            ptrs = x.ptrs.get();
        }
        count = n;
    }
    void setTemp(size_t i, Value v)
    {
        if (ptrs != inlinePtrs) {
            extra->temps[i] = std::move(v);
            ptrs[i] = &extra->temps[i];
        } else {
            Value* slot = reinterpret_cast<Value*>(raw) + i;
            new (slot) Value(std::move(v));
            built |= 1u << i;
            ptrs[i] = slot;
        }
    }
    std::span<Value*> span() { return {ptrs, count}; }
};

// Variables are passed by reference (a ByVal parameter copies on entry); anything else, and
// a variable in parentheses, as a temporary.
void Engine::evalArgs(const std::vector<ExprPtr>& args, const Expr* owner, ArgList& out)
{
    out.reserve(args.size());
    for (size_t i = 0; i < args.size(); ++i) {
        const Expr* a = args[i].get();
        if (!a) {
            out.setTemp(i, Value::missing());
            continue;
        }
        if (a->kind == ExprKind::Local && !a->parenthesized) {
            out.ptrs[i] = &m_frame->vars[static_cast<const NameExpr*>(a)->slot];
            continue;
        }
        if (a->kind == ExprKind::RefParam && !a->parenthesized) {
            out.ptrs[i] = m_frame->refs[static_cast<const NameExpr*>(a)->slot];
            continue;
        }
        if (!a->parenthesized) {
            if (Value* p = variableRef(a, RefMode::Arg)) {
                out.ptrs[i] = p;
                continue;
            }
            if (a->kind == ExprKind::Call) {
                if (Value* item = elementArg(static_cast<const CallExpr*>(a), out)) {
                    out.ptrs[i] = item;
                    continue;
                }
            }
        }
        out.setTemp(i, eval(a));
    }
    m_frame->node = owner;
}

// An array item given as an argument is passed by reference, as a variable is.
Value* Engine::elementArg(const CallExpr* c, ArgList& out)
{
    Value* var = plainArray(c->target.get());
    if (!var || c->args.empty())
        return nullptr;
    for (const auto& a : c->args)
        if (!a)
            return nullptr;
    ArgList indices;
    evalArgs(c->args, c, indices);
    var = plainArray(c->target.get());
    if (!var)
        raise(ErrorCode::TypeMismatch);
    const size_t i = flatIndex(var->array(), indices.span());
    ArrayRep* rep = ValueAccess::unshareArray(*var);
    rep->plain = false;
    out.lock(*var);
    return &rep->items[i];
}

Value Engine::evalCall(const CallExpr* c, bool statement)
{
    const Expr* t = c->target.get();
    if (c->args.size() == 1 && c->args[0] && plainVector(t))
        return vectorItem(c);
    if (t->kind == ExprKind::Global)
        return callGlobal(global(static_cast<const NameExpr*>(t)->slot), c, statement);
    return callOther(c, statement);
}

// evalCall for anything but a global name, apart so that recursion through global procedures
// keeps a small native frame.
Value Engine::callOther(const CallExpr* c, bool statement)
{
    const Expr* t = c->target.get();
    if (t->kind == ExprKind::Member && c->directArgs)
        return callMemberDirect(c, statement);
    ArgList args;
    switch (t->kind) {
    case ExprKind::Implicit: {
        GlobalSlot& g = global(static_cast<const NameExpr*>(t)->slot);
        if (g.kind != GlobalSlot::Kind::Undeclared || (!m_memberObjects.empty() && c->args.size() + statement > 0))
            return callGlobal(g, c, statement);
        evalArgs(c->args, c, args);
        return indexValue(*implicitLocal(static_cast<const NameExpr*>(t)), args.span(), statement, c->parens);
    }
    case ExprKind::MeMember:
        evalArgs(c->args, c, args);
        return callMeMember(static_cast<const NameExpr*>(t)->slot, args.span(), statement);
    case ExprKind::Member:
        evalArgs(c->args, c, args);
        return evalMember(static_cast<const MemberExpr*>(t), args.span(), statement);
    case ExprKind::Local: case ExprKind::RefParam: case ExprKind::Field: {
        Value* v = variableRef(t, RefMode::Arg);
        evalArgs(c->args, c, args);
        return indexValue(*v, args.span(), statement, c->parens);
    }
    default: {
        const Value v = eval(t);
        evalArgs(c->args, c, args);
        return indexValue(v, args.span(), statement, c->parens);
    }
    }
}

Value Engine::callGlobal(GlobalSlot& g, const CallExpr* c, bool statement)
{
    using Kind = GlobalSlot::Kind;
    ArgList args;
    switch (g.kind) {
    case Kind::Procedure: {
        // ExecuteGlobal may replace g.program while the procedure runs; the engine's list of
        // programs keeps the old one alive until reset().
        Procedure* proc = g.proc;
        evalArgs(c->args, c, args);
        return callProcedure(proc, nullptr, args.span());
    }
    case Kind::Builtin:
        evalArgs(c->args, c, args);
        return callBuiltin(g.builtin, args.span());
    case Kind::Variable: case Kind::Const: case Kind::Object: {
        evalArgs(c->args, c, args);
        return indexValue(g.value, args.span(), statement, c->parens);
    }
    case Kind::Undeclared: {
        if (!m_memberObjects.empty()) {
            evalArgs(c->args, c, args);
            Value member;
            if (globalMember(g.name, statement ? InvokeKind::Method : InvokeKind::PropertyGet, args.span(), member))
                return member;
        }
        if (m_frame->proc && m_frame->proc->optionExplicit)
            raiseNamed(ErrorCode::VariableUndefined, g.name);
        if (c->args.empty() && !statement)
            return {};
        raiseNamed(ErrorCode::TypeMismatch, g.name);
    }
    default:
        raiseNamed(ErrorCode::TypeMismatch, g.name);
    }
}

Value Engine::callBuiltin(const BuiltinDef* def, std::span<Value*> args)
{
    // Trailing omitted arguments are not passed at all.
    while (!args.empty() && args.back()->isMissing())
        args = args.first(args.size() - 1);
    if (int(args.size()) < def->minArgs || (def->maxArgs >= 0 && int(args.size()) > def->maxArgs))
        raiseNamed(ErrorCode::WrongArgumentCount, String(def->name));
    CallContext ctx(*this, *m_host, m_random);
    return def->fn(ctx, args);
}

Value Engine::callMeMember(int member, std::span<Value*> args, bool statement)
{
    return m_frame->me->invoke(member, statement ? InvokeKind::Method : InvokeKind::PropertyGet, args);
}

size_t Engine::flatIndex(const ArrayRep* rep, std::span<Value*> indices)
{
    if (indices.size() != rep->counts.size())
        raise(ErrorCode::SubscriptOutOfRange);
    size_t flat = 0, stride = 1;
    for (size_t d = 0; d < indices.size(); ++d) {
        const Value& iv = *indices[d];
        const int32_t i = iv.type() == VarType::Integer ? iv.rawInteger()
            : iv.type() == VarType::Long ? iv.rawLong() : iv.toLong();
        if (i < 0 || i >= rep->counts[d])
            raise(ErrorCode::SubscriptOutOfRange);
        flat += size_t(i) * stride;
        stride *= size_t(rep->counts[d]);
    }
    return flat;
}

Value* Engine::elementRef(Value& array, std::span<Value*> indices)
{
    if (!array.isArray())
        raise(ErrorCode::TypeMismatch);
    const size_t i = flatIndex(array.array(), indices);
    return &array.mutableArray()->items[i];
}

// v(args). An object with no arguments is itself unless written with parentheses (o() calls its
// default member) or called as a statement.
Value Engine::indexValue(const Value& v, std::span<Value*> args, bool statement, bool parens)
{
    if (v.isArray()) {
        if (args.empty())
            return v;
        return v.array()->items[flatIndex(v.array(), args)];
    }
    if (v.isObject()) {
        if (args.empty() && !statement && !parens)
            return v;
        Dispatch* d = v.toDispatch();
        const int id = d->defaultMemberId();
        if (id < 0)
            raise(ErrorCode::NoSuchMember);
        return d->invoke(id, statement ? InvokeKind::Method : InvokeKind::PropertyGet, args);
    }
    if (args.empty())
        return v;
    raise(ErrorCode::TypeMismatch);
}

// Plain assignment replaces what a variable holds, whatever it holds, except for a host object
// with a default property, which takes the value. Script class instances never take it (their
// Default can only be a Property Get), nor do the engine's own Err and GetRef objects.
bool Engine::letsThroughDefault(const Value& var)
{
    if (!var.isObject() || var.isNothing() || isEngineObject(var.object()))
        return false;
    const Dispatch* d = var.object()->asDispatch();
    return d && d->defaultMemberId() >= 0;
}

void Engine::assignTo(const Expr* target, Value value, bool isSet)
{
    if (isSet) {
        if (!value.isObject())
            raise(ErrorCode::ObjectRequired);
    } else if (value.isObject()) {
        value = value.defaultValue();
    }
    const InvokeKind kind = isSet ? InvokeKind::PropertySet : InvokeKind::PropertyLet;
    switch (target->kind) {
    case ExprKind::Local: case ExprKind::RefParam: case ExprKind::Field: case ExprKind::Global:
    case ExprKind::Implicit: {
        Value* var = variableRef(target, RefMode::Write);
        if (!isSet && letsThroughDefault(*var)) {
            // A variable holding a host object with a default property keeps the object: the
            // value goes to that property.
            Dispatch* d = var->toDispatch();
            const int id = d->defaultMemberId();
            Value* args[] = {&value};
            m_frame->node = target;
            const Value keep = *var; // the Let may reassign the variable
            d->invoke(id, InvokeKind::PropertyLet, args);
            return;
        }
        *var = std::move(value);
        return;
    }
    case ExprKind::MeMember: {
        Value* args[] = {&value};
        m_frame->node = target;
        m_frame->me->invoke(static_cast<const NameExpr*>(target)->slot, kind, args);
        return;
    }
    case ExprKind::Member: {
        const auto* m = static_cast<const MemberExpr*>(target);
        const Value obj = eval(m->object.get());
        Dispatch* d = memberObject(obj, m);
        const int id = visibleMemberId(d, m);
        Value* args[] = {&value};
        m_frame->node = target;
        d->invoke(id, kind, args);
        return;
    }
    case ExprKind::Call:
        break;
    default:
        raise(ErrorCode::IllegalAssignment);
    }
    // target(args) = value: an array element, or a property / default member with arguments.
    const auto* c = static_cast<const CallExpr*>(target);
    const Expr* t = c->target.get();
    ArgList args;
    if (Value* var = variableRef(t, RefMode::Arg)) {
        evalArgs(c->args, c, args);
        if (var->isArray()) {
            *elementRef(*var, args.span()) = std::move(value);
            return;
        }
        if (!var->isObject())
            raise(ErrorCode::TypeMismatch);
        Dispatch* d = var->toDispatch();
        std::vector<Value*> all(args.span().begin(), args.span().end());
        all.push_back(&value);
        const int id = d->defaultMemberId();
        if (id < 0)
            raise(ErrorCode::NoSuchMember);
        d->invoke(id, kind, all);
        return;
    }
    evalArgs(c->args, c, args);
    std::vector<Value*> all(args.span().begin(), args.span().end());
    all.push_back(&value);
    if (t->kind == ExprKind::MeMember) {
        m_frame->me->invoke(static_cast<const NameExpr*>(t)->slot, kind, all);
        return;
    }
    if (t->kind == ExprKind::Member) {
        const auto* m = static_cast<const MemberExpr*>(t);
        const Value obj = eval(m->object.get());
        Dispatch* d = memberObject(obj, m);
        const int id = visibleMemberId(d, m);
        d->invoke(id, kind, all);
        return;
    }
    raise(ErrorCode::IllegalAssignment);
}

} // namespace vbs
