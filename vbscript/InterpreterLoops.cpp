// Interpreter: If, the loops, Select Case and With, and their heads under On Error Resume Next.
#include "Engine.h"

#include "Operators.h"

#include <type_traits>

namespace vbs {

// Runs part of a block statement's head (a condition, a bound, a collection, the With object).
// Under On Error Resume Next a failure there does not skip the block: the error is noted, false
// returned, and the caller goes on with the first statement inside the block, as Windows does.
template <class Fn>
bool Engine::runHead(Fn&& fn)
{
    if (!m_frame->resumeNext) {
        fn();
        return true;
    }
    try {
        fn();
        return true;
    } catch (ScriptError& e) {
        noteError(e);
        return false;
    }
}

Engine::Cond Engine::headCondition(const Expr* e)
{
    bool c = false;
    if (!runHead([&] { c = evalCondition(e); }))
        return Cond::Failed;
    return c ? Cond::True : Cond::False;
}

Flow Engine::execIf(const IfStmt* s)
{
    for (const auto& arm : s->arms)
        if (headCondition(arm.condition.get()) != Cond::False)
            return runBlock(arm.body);
    return runBlock(s->elseBody);
}

// The body of a loop whose head failed under On Error Resume Next runs once.
Flow Engine::runOnce(const Block& body)
{
    const Flow f = execBlock(body);
    return f == Flow::ExitFor || f == Flow::ExitDo ? Flow::Normal : f;
}

Flow Engine::execFor(const ForStmt* s)
{
    Value from, to, step(int16_t(1));
    const bool headOk = runHead([&] {
        from = eval(s->from.get()).toNumber();
        to = eval(s->to.get()).toNumber();
        if (s->step)
            step = eval(s->step.get()).toNumber();
        if (from.isNull() || to.isNull() || step.isNull())
            raise(ErrorCode::InvalidUseOfNull);
    });
    if (!headOk)
        return runOnce(s->body); // the counter keeps its value
    auto isIntType = [](const Value& v) {
        return v.type() == VarType::Integer || v.type() == VarType::Long || v.type() == VarType::Byte
            || v.type() == VarType::Boolean || v.type() == VarType::Empty;
    };
    if (isIntType(from) && isIntType(to) && isIntType(step))
        return execIntegerFor(s, from, to, step);
    double i = from.toDouble();
    const double end = to.toDouble(), inc = step.toDouble();
    const bool single = from.type() == VarType::Single && to.type() != VarType::Double && step.type() != VarType::Double;
    auto store = [&](double v) {
        *variableRef(s->var.get(), RefMode::Write) = single ? Value(float(v)) : Value(v);
    };
    store(i);
    while (inc >= 0 ? i <= end : i >= end) {
        tick();
        const Flow f = runBlock(s->body);
        if (f == Flow::ExitFor)
            break;
        if (f != Flow::Normal)
            return f;
        i = variableRef(s->var.get(), RefMode::Write)->toDouble() + inc;
        store(i);
    }
    return Flow::Normal;
}

Flow Engine::execIntegerFor(const ForStmt* s, const Value& from, const Value& to, const Value& step)
{
    const bool useLong = from.type() == VarType::Long || to.type() == VarType::Long
        || step.type() == VarType::Long;
    int64_t i = from.toLong();
    const int64_t end = to.toLong(), inc = step.toLong();
    // The counter's storage does not move during the loop, except for an undeclared name
    // that a new global may take over.
    const bool fixedVar = s->var->kind != ExprKind::Implicit;
    Value* var = variableRef(s->var.get(), RefMode::Write);
    auto counter = [&](int64_t v) {
        return !useLong && v >= -32768 && v <= 32767 ? Value(int16_t(v)) : Value(int32_t(v));
    };
    *var = counter(i);
    // One loop per direction: the end test and the overflow test then have one side each (the
    // counter read back is a Long at most, so adding inc can only leave the range on its side).
    // A Long counter and a counter in a fixed place have loops of their own too.
    auto turns = [&](auto up, auto longs, auto fixed) {
        constexpr bool kUp = decltype(up)::value, kLong = decltype(longs)::value;
        constexpr bool kFixed = decltype(fixed)::value;
        auto next = [&](int64_t v) { return kLong ? Value(int32_t(v)) : counter(v); };
        const StmtPtr* const first = s->body.data();
        const StmtPtr* const last = first + s->body.size();
        while (kUp ? i <= end : i >= end) {
            tick();
            const Flow f = runStatements(first, last);
            if (f == Flow::ExitFor)
                break;
            if (f != Flow::Normal)
                return f;
            if (!kFixed)
                var = variableRef(s->var.get(), RefMode::Write);
            const VarType vt = var->type();
            const bool plain = vt == VarType::Integer || vt == VarType::Long;
            i = (vt == VarType::Integer ? var->rawInteger() : vt == VarType::Long ? var->rawLong() : var->toLong()) + inc;
            if (kUp ? i > INT32_MAX : i < INT32_MIN)
                raise(ErrorCode::Overflow);
            if (kLong && vt == VarType::Long)
                ValueAccess::setLong(*var, int32_t(i)); // one store: the tag stays
            else if (plain)
                ValueAccess::overwritePlain(*var, next(i)); // an Integer or Long holds nothing to release
            else
                *var = next(i);
        }
        return Flow::Normal;
    };
    using Yes = std::true_type;
    using No = std::false_type;
    if (!fixedVar)
        return inc >= 0 ? turns(Yes{}, No{}, No{}) : turns(No{}, No{}, No{});
    if (useLong)
        return inc >= 0 ? turns(Yes{}, Yes{}, Yes{}) : turns(No{}, Yes{}, Yes{});
    return inc >= 0 ? turns(Yes{}, No{}, Yes{}) : turns(No{}, No{}, Yes{});
}

Flow Engine::execForEach(const ForEachStmt* s)
{
    std::vector<Value> items;
    const bool headOk = runHead([&] {
        const Value coll = eval(s->collection.get());
        if (coll.isArray()) {
            items = coll.array()->items;
        } else if (coll.isObject()) {
            Dispatch* d = coll.toDispatch();
            if (!d->enumerate(items))
                raise(ErrorCode::NotACollection);
        } else {
            raise(ErrorCode::NotACollection);
        }
    });
    if (!headOk)
        return runOnce(s->body); // the loop variable keeps its value
    for (auto& item : items) {
        *variableRef(s->var.get(), RefMode::Write) = std::move(item);
        const Flow f = runBlock(s->body);
        if (f == Flow::ExitFor)
            break;
        if (f != Flow::Normal)
            return f;
    }
    return Flow::Normal;
}

// A condition tested before the body that fails enters the body; one tested after it leaves
// the loop.
Flow Engine::execDo(const DoStmt* s)
{
    while (true) {
        tick();
        if (s->testAtTop && s->condition) {
            const Cond c = headCondition(s->condition.get());
            if (c == (s->until ? Cond::True : Cond::False))
                break;
        }
        const Flow f = runBlock(s->body);
        if (f == Flow::ExitDo && !s->isWhileWend)
            break;
        if (f != Flow::Normal)
            return f;
        if (!s->testAtTop && s->condition) {
            const Cond c = headCondition(s->condition.get());
            if (c == Cond::Failed || c == (s->until ? Cond::True : Cond::False))
                break;
        }
    }
    return Flow::Normal;
}

namespace {

bool numericLiteral(const Expr* e)
{
    if (e->kind == ExprKind::Literal)
        return static_cast<const LiteralExpr*>(e)->numericLiteral;
    if (e->kind == ExprKind::Neg)
        return numericLiteral(static_cast<const UnaryExpr*>(e)->operand.get());
    if (e->kind == ExprKind::Local || e->kind == ExprKind::Global)
        return static_cast<const NameExpr*>(e)->isConst;
    return false;
}

} // namespace

// A failing selector skips the whole statement (it is the statement that failed); a failing Case
// value enters that Case.
Flow Engine::execSelect(const SelectStmt* s)
{
    const Value subject = eval(s->subject.get());
    const bool subjectLiteral = numericLiteral(s->subject.get());
    for (const auto& arm : s->arms) {
        for (const auto& v : arm.values) {
            int c = 1;
            const bool ok = runHead([&] {
                const Value candidate = eval(v.get());
                c = ops::compare(subject, candidate, subjectLiteral, numericLiteral(v.get()));
            });
            if (!ok || c == 0)
                return execBlock(arm.body);
        }
    }
    return execBlock(s->elseBody);
}

// A With object that fails leaves Empty as the object of the body's ".member" uses.
Flow Engine::execWith(const WithStmt* s)
{
    WithExpr where(0, 0);
    where.slot = s->slot;
    Value object;
    runHead([&] { object = eval(s->object.get()); });
    withObject(&where) = std::move(object);
    struct Clear {
        Engine& e;
        WithExpr& where;
        ~Clear() { e.withObject(&where).clear(); }
    } clear{*this, where};
    return execBlock(s->body);
}

} // namespace vbs
