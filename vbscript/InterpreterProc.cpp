// Interpreter: calls of script procedures and their frames.
#include "Engine.h"

#include "ClassInstance.h"

namespace vbs {

[[noreturn]] void raiseNamed(ErrorCode code, const String& name);

// Room for a frame of n locals and np ByRef parameters past the running ones: built when the
// value stack has not been this deep yet, 28 when either stack is full.
void Engine::deepen(size_t n, size_t np)
{
    if (m_rsp + np > (size_t(1) << 15) || !m_stack.build(m_sp + n))
        raise(ErrorCode::OutOfStackSpace);
}

// Runs proc in a new frame on the value stack. args holds one pointer per parameter: a ByRef
// parameter refers to it, a ByVal one copies it. Null args: the caller has put the pointers of a
// procedure whose parameters are all ByRef straight into the reference slots of the new frame.
[[gnu::always_inline]] inline Value Engine::runProcedure(Procedure* proc, ClassInstance* me, Value* const* args)
{
    checkStack();
    tick();
    const size_t n = size_t(proc->localCount), np = proc->paramCount;
    if (m_sp + n > m_stack.built() || m_rsp + np > (size_t(1) << 15)) [[unlikely]]
        deepen(n, np);
    Frame frame;
    frame.proc = proc;
    frame.vars = m_stack.data() + m_sp;
    frame.size = n;
    frame.refs = &m_refStack[m_rsp];
    frame.me = me;
    frame.chunk = proc->chunk;
    if (!args) {
        // Bound by the caller.
    } else if (proc->allByRef) {
        for (size_t i = 0; i < np; ++i)
            frame.refs[i] = args[i];
    } else {
        const Param* params = proc->params.data();
        for (size_t i = 0; i < np; ++i) {
            if (params[i].byRef)
                frame.refs[i] = args[i];
            else
                frame.vars[i] = *args[i];
        }
    }
    m_sp += n;
    m_rsp += np;
    ++m_depth;
    Frame* saved = m_frame;
    m_frame = &frame;
    struct Cleanup {
        Engine& e;
        Frame& f;
        Frame* saved;
        size_t np;
        ~Cleanup()
        {
            e.m_frame = saved;
            for (size_t i = 0; i < f.size; ++i)
                f.vars[i].clear();
            e.m_sp -= f.size;
            e.m_rsp -= np;
            --e.m_depth;
        }
    } cleanup{*this, frame, saved, np};
    runBlock(proc->body);
    if (proc->resultSlot >= 0)
        return std::move(frame.vars[proc->resultSlot]);
    return {};
}

Value Engine::callProcedure(Procedure* proc, ClassInstance* me, std::span<Value*> args)
{
    if (args.size() != proc->paramCount)
        raiseNamed(ErrorCode::WrongArgumentCount, proc->name);
    if (m_entryDepth == 0) {
        // Called from outside (a host holding a script object, a terminating object).
        Entry entry(*this);
        return callProcedure(proc, me, args);
    }
    return runProcedure(proc, me, args.data());
}

// The arguments of a call that CallExpr::directArgs allows, bound as evalArgs binds them:
// variables by reference, anything else evaluated into a temporary. The temporaries live in raw
// storage, constructed only for the arguments that need one and destroyed in order after the
// call (as evalArgs' are).
struct Engine::DirectArgs {
    alignas(Value) unsigned char raw[CallExpr::kMaxDirectArgs * sizeof(Value)];
    Value* ptrs[CallExpr::kMaxDirectArgs];
    uint32_t built = 0;

    [[gnu::always_inline]] DirectArgs(Engine& en, const CallExpr* c)
    {
        const size_t n = c->args.size();
        const ExprPtr* argv = c->args.data();
        Frame* const frame = en.m_frame;
        if (c->variableArgs) {
            bindVariables(c, frame, ptrs, n);
        } else {
            // An argument that raises leaves no constructed object behind to run the destructor:
            // the temporaries built before it are released here.
            try {
                bindValues(en, argv, n, frame);
            } catch (...) {
                release();
                throw;
            }
        }
        en.m_frame->node = c;
    }
    // The arguments of a call with variableArgs: pointers to the variables themselves.
    [[gnu::always_inline]] static void bindVariables(const CallExpr* c, Frame* frame, Value** out, size_t n)
    {
        for (size_t i = 0; i < n; ++i) {
            const int32_t k = c->argSlots[i];
            out[i] = k >= 0 ? &frame->vars[k] : frame->refs[~k];
        }
    }
    [[gnu::always_inline]] void bindValues(Engine& en, const ExprPtr* argv, size_t n, Frame* frame)
    {
        for (size_t i = 0; i < n; ++i) {
            const Expr* a = argv[i].get();
            Value* p = nullptr;
            if (!a->parenthesized) {
                switch (a->kind) {
                case ExprKind::Local: p = &frame->vars[static_cast<const NameExpr*>(a)->slot]; break;
                case ExprKind::RefParam: p = frame->refs[static_cast<const NameExpr*>(a)->slot]; break;
                case ExprKind::Field: case ExprKind::Global: case ExprKind::Implicit:
                    p = en.variableRef(a, RefMode::Arg);
                    break;
                default: break;
                }
            }
            ptrs[i] = p ? p : temp(i, en.eval(a));
        }
    }
    DirectArgs(const DirectArgs&) = delete;
    DirectArgs& operator=(const DirectArgs&) = delete;
    ~DirectArgs() { release(); }
    void release()
    {
        for (size_t i = 0; built; ++i, built >>= 1)
            if (built & 1)
                reinterpret_cast<Value*>(raw)[i].~Value();
    }
    Value* temp(size_t i, Value v)
    {
        Value* slot = new (reinterpret_cast<Value*>(raw) + i) Value(std::move(v));
        built |= 1u << i;
        return slot;
    }
};

// proc(args) for a call whose arguments CallExpr::directArgs allows and whose count matches:
// what evalArgs and callProcedure do, without their general cases. The caller runs script code,
// so the engine has been entered.
[[gnu::always_inline]] inline Value Engine::callDirect(Procedure* proc, const CallExpr* c)
{
    if (c->variableArgs && proc->allByRef) {
        // Nothing is evaluated, so the pointers go where the frame will look for them (the
        // reference stack has room for them past its end; runProcedure checks the depth).
        // The caller has checked that c has as many arguments as proc has parameters.
        DirectArgs::bindVariables(c, m_frame, &m_refStack[m_rsp], proc->paramCount);
        m_frame->node = c;
        return runProcedure(proc, nullptr, nullptr);
    }
    const DirectArgs args(*this, c);
    return runProcedure(proc, nullptr, args.ptrs);
}

// obj.name(args) for a call whose arguments CallExpr::directArgs allows: what evalArgs and
// evalMember do, and a method of a script class instance of this engine with as many
// parameters as there are arguments runs without going through invoke.
Value Engine::callMemberDirect(const CallExpr* c, bool statement)
{
    const auto* m = static_cast<const MemberExpr*>(c->target.get());
    DirectArgs args(*this, c);
    const Value obj = eval(m->object.get());
    m_frame->node = m;
    Dispatch* d = obj.isObject() && obj.object() ? obj.object()->asDispatch() : nullptr;
    if (!d)
        d = memberObject(obj, m); // raises what is wrong
    Procedure* method;
    const int id = visibleMemberId(d, m, &method);
    const size_t n = c->args.size();
    if (method && method->paramCount == n) {
        // The value obj keeps the instance alive while the method runs.
        return runProcedure(method, static_cast<ClassInstance*>(d), args.ptrs);
    }
    return d->invoke(id, statement ? InvokeKind::Method : InvokeKind::PropertyGet,
        std::span<Value*>(args.ptrs, n));
}

// name(args) and the statement name args, for a global name: a procedure or built-in is
// called without the test for an array item that evalCall starts with (only a variable holds an
// array), a procedure with plain arguments directly.
Value Engine::evalGlobalCall(Engine& en, const Expr* e)
{
    const auto* c = static_cast<const CallExpr*>(e);
    GlobalSlot& g = en.global(static_cast<const NameExpr*>(c->target.get())->slot);
    if (g.kind == GlobalSlot::Kind::Procedure && c->directArgs && c->args.size() == g.proc->paramCount)
        return en.callDirect(g.proc, c);
    if (g.kind == GlobalSlot::Kind::Procedure || g.kind == GlobalSlot::Kind::Builtin)
        return en.callGlobal(g, c, false);
    return en.evalCall(c, false);
}

// The statement name args for a global name, and any other call statement but a member's.
void Engine::execNameCall(const CallExpr* c)
{
    if (c->target->kind == ExprKind::Global) {
        GlobalSlot& g = global(static_cast<const NameExpr*>(c->target.get())->slot);
        if (g.kind == GlobalSlot::Kind::Procedure && c->directArgs && c->args.size() == g.proc->paramCount) {
            callDirect(g.proc, c);
            return;
        }
        if (g.kind == GlobalSlot::Kind::Procedure || g.kind == GlobalSlot::Kind::Builtin) {
            callGlobal(g, c, true);
            return;
        }
    }
    evalCall(c, true);
}

// Member calls apart from the others, so that they do not pay for the frame of an inlined
// direct call.
Flow Engine::execCall(Engine& en, const Stmt* s)
{
    const auto* c = static_cast<const CallExpr*>(static_cast<const CallStmt*>(s)->call.get());
    if (c->target->kind == ExprKind::Member) {
        // evalCall's array-item test never holds for a member.
        if (c->directArgs)
            en.callMemberDirect(c, true);
        else
            en.callOther(c, true);
        return Flow::Normal;
    }
    en.execNameCall(c);
    return Flow::Normal;
}

} // namespace vbs
