// The built-ins that are part of the language: Eval, Execute, ExecuteGlobal, GetRef, Randomize.
#include "ClassInstance.h"
#include "Engine.h"

namespace vbs {

namespace {

Value fnEval(CallContext& ctx, std::span<Value*> args)
{
    return ctx.engine().evaluate(args[0]->toString());
}

Value fnExecute(CallContext& ctx, std::span<Value*> args)
{
    ctx.engine().executeStatements(args[0]->toString(), false);
    return {};
}

Value fnExecuteGlobal(CallContext& ctx, std::span<Value*> args)
{
    ctx.engine().executeStatements(args[0]->toString(), true);
    return {};
}

Value fnGetRef(CallContext& ctx, std::span<Value*> args)
{
    Engine& engine = ctx.engine();
    const String name = args[0]->toString();
    const int slot = engine.findGlobal(name);
    if (slot < 0 || engine.global(slot).kind != GlobalSlot::Kind::Procedure)
        raise(ErrorCode::InvalidProcedureCall);
    const GlobalSlot& g = engine.global(slot);
    return Value(makeRef<ProcedureRef>(engine, g.proc, g.program));
}

Value fnRandomize(CallContext& ctx, std::span<Value*> args)
{
    if (args.empty())
        ctx.random().randomizeNow();
    else
        ctx.random().randomize(args[0]->toDouble());
    return {};
}

const BuiltinDef kCoreBuiltins[] = {
    {u"Eval", 1, 1, fnEval},
    {u"Execute", 1, 1, fnExecute},
    {u"ExecuteGlobal", 1, 1, fnExecuteGlobal},
    {u"GetRef", 1, 1, fnGetRef},
    {u"Randomize", 0, 1, fnRandomize},
};

} // namespace

void registerCoreBuiltins(Engine& engine)
{
    for (const auto& def : kCoreBuiltins)
        engine.registerBuiltin(def);
}

} // namespace vbs
