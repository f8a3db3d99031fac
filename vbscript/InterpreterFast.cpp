// Interpreter: binary operators, and evaluators specialised by node shape.
//
// The resolver asks evaluatorFor() for each node once its names are resolved. A local, a
// parameter or a literal is then read without going through the general switch, and an
// arithmetic or comparison node gets a function with its operator and the kinds of its operands
// fixed, whose Integer, Long and Double cases run inline. Everything else, and every case the
// inline code does not take, goes through the same general operators (Operators.cpp) as before.
#include "Engine.h"

#include "ClassInstance.h"
#include "Operators.h"

#include <cmath>
#include <type_traits>

namespace vbs {

namespace {

inline bool isInt(VarType t)
{
    return t == VarType::Integer || t == VarType::Long;
}

inline int64_t rawInt(const Value& v)
{
    return v.type() == VarType::Integer ? v.rawInteger() : v.rawLong();
}

// Integer op Integer stays Integer while it fits, then Long, then Double (never an error).
[[gnu::always_inline]] inline Value fitInt(int64_t r, bool bothInteger)
{
    if (bothInteger && r >= -32768 && r <= 32767)
        return Value(int16_t(r));
    if (r >= INT32_MIN && r <= INT32_MAX)
        return Value(int32_t(r));
    return Value(double(r));
}

[[gnu::always_inline]] inline Value checkedDouble(double d)
{
    if (!std::isfinite(d))
        raise(ErrorCode::Overflow);
    return Value(d);
}

// What the operators do past the Integer, Long and Double cases.
[[gnu::noinline]] Value generalBinary(const BinaryExpr* e, const Value& l, const Value& r)
{
    switch (e->kind) {
    case ExprKind::Add: return ops::add(l, r);
    case ExprKind::Sub: return ops::sub(l, r);
    case ExprKind::Mul: return ops::mul(l, r);
    case ExprKind::Div: return ops::div(l, r);
    case ExprKind::IntDiv: return ops::intDiv(l, r);
    case ExprKind::Mod: return ops::mod(l, r);
    case ExprKind::Pow: return ops::pow(l, r);
    case ExprKind::Concat: return ops::concat(l, r);
    case ExprKind::And: return ops::logicAnd(l, r);
    case ExprKind::Or: return ops::logicOr(l, r);
    case ExprKind::Xor: return ops::logicXor(l, r);
    case ExprKind::Eqv: return ops::logicEqv(l, r);
    case ExprKind::Imp: return ops::logicImp(l, r);
    case ExprKind::Is: return Value(ops::same(l, r));
    default: break;
    }
    const int c = ops::compare(l, r, e->leftLiteral, e->rightLiteral);
    if (c == ops::kCompareNull)
        return Value::null();
    switch (e->kind) {
    case ExprKind::Eq: return Value(c == 0);
    case ExprKind::Ne: return Value(c != 0);
    case ExprKind::Lt: return Value(c < 0);
    case ExprKind::Gt: return Value(c > 0);
    case ExprKind::Le: return Value(c <= 0);
    default: return Value(c >= 0);
    }
}

// l op r for an operator known at compile time: Integer and Long operands in 64 bits, Double
// (with an Integer or Long) in double precision, anything else through generalBinary.
// The operators with Integer, Long and Double cases of their own; the others share one set of
// evaluators (kOtherOperator) that goes straight to generalBinary.
constexpr bool hasNumberCases(ExprKind k)
{
    return k >= ExprKind::Add && k <= ExprKind::Ge && k != ExprKind::Pow && k != ExprKind::Concat
        && k != ExprKind::Is;
}
constexpr ExprKind kOtherOperator = ExprKind::Concat;

template <ExprKind K>
[[gnu::always_inline]] inline Value applyBinary(const BinaryExpr* e, const Value& l, const Value& r)
{
    if constexpr (!hasNumberCases(K))
        return generalBinary(e, l, r);
    const VarType lt = l.type(), rt = r.type();
    if (isInt(lt) && isInt(rt)) {
        const int64_t x = rawInt(l), y = rawInt(r);
        const bool bothInteger = lt == VarType::Integer && rt == VarType::Integer;
        if constexpr (K == ExprKind::Add) return fitInt(x + y, bothInteger);
        if constexpr (K == ExprKind::Sub) return fitInt(x - y, bothInteger);
        if constexpr (K == ExprKind::Mul) return fitInt(x * y, bothInteger);
        if constexpr (K == ExprKind::Eq) return Value(x == y);
        if constexpr (K == ExprKind::Ne) return Value(x != y);
        if constexpr (K == ExprKind::Lt) return Value(x < y);
        if constexpr (K == ExprKind::Gt) return Value(x > y);
        if constexpr (K == ExprKind::Le) return Value(x <= y);
        if constexpr (K == ExprKind::Ge) return Value(x >= y);
        if constexpr (K == ExprKind::Mod || K == ExprKind::IntDiv) {
            if (y == 0)
                raise(ErrorCode::DivisionByZero);
            return fitInt(K == ExprKind::Mod ? x % y : x / y, bothInteger);
        }
        if constexpr (K == ExprKind::Div) {
            if (y == 0)
                raise(x == 0 ? ErrorCode::Overflow : ErrorCode::DivisionByZero);
            return Value(double(x) / double(y));
        }
    } else if ((lt == VarType::Double || isInt(lt)) && (rt == VarType::Double || isInt(rt))) {
        // At least one Double: the result is a Double (or a comparison).
        const double x = lt == VarType::Double ? l.rawDouble() : double(rawInt(l));
        const double y = rt == VarType::Double ? r.rawDouble() : double(rawInt(r));
        if constexpr (K == ExprKind::Add) return checkedDouble(x + y);
        if constexpr (K == ExprKind::Sub) return checkedDouble(x - y);
        if constexpr (K == ExprKind::Mul) return checkedDouble(x * y);
        if constexpr (K == ExprKind::Div) {
            if (y == 0)
                raise(x == 0 ? ErrorCode::Overflow : ErrorCode::DivisionByZero);
            return checkedDouble(x / y);
        }
        if constexpr (K == ExprKind::Lt) return Value(x < y);
        if constexpr (K == ExprKind::Gt) return Value(x > y);
        if constexpr (K == ExprKind::Le) return Value(x <= y);
        if constexpr (K == ExprKind::Ge) return Value(x >= y);
        if constexpr (K == ExprKind::Eq) return Value(x == y);
        if constexpr (K == ExprKind::Ne) return Value(x != y);
    }
    return generalBinary(e, l, r);
}

} // namespace

Value evalGeneral(Engine& engine, const Expr* e)
{
    return engine.evalNode(e);
}

struct Engine::Fast {
    // Operand shapes read in place: a local, a ByRef parameter, a field of Me, a literal. Any
    // other operand is evaluated into a temporary (AnyOperand).
    struct LocalOperand {
        static Value& get(Engine& en, const Expr* e)
        {
            return en.m_frame->vars[static_cast<const NameExpr*>(e)->slot];
        }
    };
    struct RefOperand {
        static const Value& get(Engine& en, const Expr* e)
        {
            return *en.m_frame->refs[static_cast<const NameExpr*>(e)->slot];
        }
    };
    struct FieldOperand {
        static Value& get(Engine& en, const Expr* e)
        {
            return en.m_frame->me->fields[size_t(static_cast<const NameExpr*>(e)->slot)];
        }
    };
    struct LiteralOperand {
        static const Value& get(Engine&, const Expr* e)
        {
            return static_cast<const LiteralExpr*>(e)->value;
        }
    };
    struct AnyOperand {};
    // An operand whose evaluation runs no script procedure that could change a local (numbers,
    // variables and operators, see callFree()): with a local on the left, it is evaluated first
    // and the local then read in place.
    struct CallFreeOperand {};
    static bool callFree(const Expr* e)
    {
        switch (e->kind) {
        case ExprKind::Literal: case ExprKind::Local: case ExprKind::RefParam:
            return true;
        case ExprKind::Neg: case ExprKind::Not:
            return callFree(static_cast<const UnaryExpr*>(e)->operand.get());
        case ExprKind::Add: case ExprKind::Sub: case ExprKind::Mul: case ExprKind::Div:
        case ExprKind::IntDiv: case ExprKind::Mod: case ExprKind::Pow: case ExprKind::Concat:
        case ExprKind::Eq: case ExprKind::Ne: case ExprKind::Lt: case ExprKind::Gt: case ExprKind::Le:
        case ExprKind::Ge: case ExprKind::And: case ExprKind::Or: case ExprKind::Xor:
        case ExprKind::Eqv: case ExprKind::Imp: {
            const auto* b = static_cast<const BinaryExpr*>(e);
            return callFree(b->left.get()) && callFree(b->right.get());
        }
        default:
            return false;
        }
    }

    static Value literal(Engine&, const Expr* e) { return static_cast<const LiteralExpr*>(e)->value; }
    static Value local(Engine& en, const Expr* e) { return en.m_frame->vars[static_cast<const NameExpr*>(e)->slot]; }
    static Value refParam(Engine& en, const Expr* e) { return *en.m_frame->refs[static_cast<const NameExpr*>(e)->slot]; }
    static Value field(Engine& en, const Expr* e)
    {
        return en.m_frame->me->fields[size_t(static_cast<const NameExpr*>(e)->slot)];
    }

    template <class L>
    [[gnu::always_inline]] static Value leftCopy(Engine& en, const Expr* e)
    {
        if constexpr (std::is_same_v<L, AnyOperand>)
            return en.eval(e);
        else
            return L::get(en, e);
    }

    // l op r. A right side that is not read in place could change a variable the left side
    // reads, so the left side is then copied first.
    template <ExprKind K, class L, class R>
    static Value binary(Engine& en, const Expr* e)
    {
        return binaryInline<K, L, R>(en, e);
    }
    // binary() for the executors that store its result.
    template <ExprKind K, class L, class R>
    [[gnu::always_inline]] static Value binaryInline(Engine& en, const Expr* e)
    {
        const auto* b = static_cast<const BinaryExpr*>(e);
        if constexpr (std::is_same_v<R, CallFreeOperand>) {
            const Value r = en.eval(b->right.get());
            const Value& l = L::get(en, b->left.get());
            en.m_frame->node = e;
            return applyBinary<K>(b, l, r);
        } else if constexpr (std::is_same_v<R, AnyOperand>) {
            const Value l = leftCopy<L>(en, b->left.get());
            const Value r = en.eval(b->right.get());
            en.m_frame->node = e;
            return applyBinary<K>(b, l, r);
        } else if constexpr (std::is_same_v<L, AnyOperand>) {
            const Value l = en.eval(b->left.get());
            const Value& r = R::get(en, b->right.get());
            en.m_frame->node = e;
            return applyBinary<K>(b, l, r);
        } else {
            const Value& l = L::get(en, b->left.get());
            const Value& r = R::get(en, b->right.get());
            en.m_frame->node = e;
            return applyBinary<K>(b, l, r);
        }
    }

    // Statements.
    // x = value for a local or field (T) or a global variable: the value replaces what the
    // variable holds unless one of them is an object (a default property may take the value).
    template <class T>
    static Flow assignLocal(Engine& en, const Stmt* s)
    {
        const auto* a = static_cast<const AssignStmt*>(s);
        store<T>(en, a, en.eval(a->value.get()));
        return Flow::Normal;
    }
    // x = l op r for a local or field x, the operation evaluated inline.
    template <class T, ExprKind K, class L, class R>
    static Flow assignBinary(Engine& en, const Stmt* s)
    {
        const auto* a = static_cast<const AssignStmt*>(s);
        store<T>(en, a, binaryInline<K, L, R>(en, a->value.get()));
        return Flow::Normal;
    }
    template <class T>
    [[gnu::always_inline]] static void store(Engine& en, const AssignStmt* a, Value&& v)
    {
        if (!v.isObject()) {
            Value& var = T::get(en, a->target.get());
            if (!var.isRefCounted()) {
                ValueAccess::overwritePlain(var, std::move(v)); // a number: nothing to release
                return;
            }
            if (!var.isObject()) {
                var = std::move(v);
                return;
            }
        }
        en.assignTo(a->target.get(), std::move(v), false);
    }
    static Flow assignGlobal(Engine& en, const Stmt* s)
    {
        const auto* a = static_cast<const AssignStmt*>(s);
        Value v = en.eval(a->value.get());
        if (!v.isObject()) {
            GlobalSlot& g = en.global(static_cast<const NameExpr*>(a->target.get())->slot);
            if (g.kind == GlobalSlot::Kind::Variable && !g.value.isObject()) {
                g.value = std::move(v);
                return Flow::Normal;
            }
        }
        en.assignTo(a->target.get(), std::move(v), false);
        return Flow::Normal;
    }
    [[gnu::noinline]] static void storeItem(Value& item, const Value& v) { item = v; }
    // a(i) = literal for a local a, i a local or a literal, and a literal that holds nothing:
    // assignItem's first case with the shapes known. Anything out of the ordinary (an error
    // included) goes to assignItem, so that the common case stores nothing but the item: in a
    // loop over a big array the item stores miss the cache, and every other store waits behind
    // them.
    static Flow assignLocalItemLiteral(Engine& en, const Stmt* s)
    {
        const auto* a = static_cast<const AssignStmt*>(s);
        const Frame* const frame = en.m_frame;
        const Value& var = frame->vars[a->itemArray];
        if (!var.isArray())
            return assignItemOutOfLine(en, s);
        const Value& iv = a->itemIndex >= 0 ? frame->vars[a->itemIndex] : *a->itemIndexLiteral;
        int64_t i;
        if (iv.type() == VarType::Long)
            i = iv.rawLong();
        else if (iv.type() == VarType::Integer)
            i = iv.rawInteger();
        else
            return assignItemOutOfLine(en, s);
        ArrayRep* rep = var.array();
        if (uint64_t(i) >= uint64_t(rep->length) || rep->refs != 1 || !rep->plain)
            return assignItemOutOfLine(en, s);
        // The item sixteen strides ahead (the stride as this statement last moved) is fetched
        // early: a loop stepping through a big array then finds its items in the cache rather
        // than waiting on memory for each.
        const int64_t next = i + 16 * (i - a->lastItem);
        a->lastItem = i;
        if (uint64_t(next) < uint64_t(rep->length))
            __builtin_prefetch(&rep->items[size_t(next)], 1);
        ValueAccess::copyPlain(rep->items[size_t(i)], *a->itemValue);
        return Flow::Normal;
    }
    [[gnu::noinline]] static Flow assignItemOutOfLine(Engine& en, const Stmt* s) { return assignItem(en, s); }
    // a(i) = value: an item of a one-dimensional array in a plain variable, else the general way.
    static Flow assignItem(Engine& en, const Stmt* s)
    {
        const auto* a = static_cast<const AssignStmt*>(s);
        const auto* c = static_cast<const CallExpr*>(a->target.get());
        Value* var = en.plainVector(c->target.get());
        if (!var) {
            en.execAssign(a);
            return Flow::Normal;
        }
        const Expr* ie = c->args[0].get();
        const Expr* ve = a->value.get();
        if (ve->kind == ExprKind::Literal
            && (ie->kind == ExprKind::Local || ie->kind == ExprKind::Literal)) {
            // An Integer or Long subscript read in place and a literal that holds nothing: no
            // code runs before the store, so var is still the array to write.
            const Value& v = static_cast<const LiteralExpr*>(ve)->value;
            const Value& iv = *en.leafValue(ie);
            if (!v.isRefCounted() && isInt(iv.type())) {
                const int64_t i = rawInt(iv);
                if (i < 0 || i >= var->array()->counts[0])
                    raise(ErrorCode::SubscriptOutOfRange);
                ArrayRep* rep = ValueAccess::unshareArray(*var);
                if (rep->plain)
                    ValueAccess::copyPlain(rep->items[size_t(i)], v);
                else
                    storeItem(rep->items[size_t(i)], v);
                return Flow::Normal;
            }
        }
        en.writeItem(c, ve);
        return Flow::Normal;
    }
    // a(i) as a value, and the general way for anything else written so.
    static Value callVariable(Engine& en, const Expr* e)
    {
        const auto* c = static_cast<const CallExpr*>(e);
        if (en.plainVector(c->target.get()))
            return en.readItem(c);
        return en.evalCall(c, false);
    }
    static Value notOperator(Engine& en, const Expr* e)
    {
        Value v = en.eval(static_cast<const UnaryExpr*>(e)->operand.get());
        if (v.type() == VarType::Boolean)
            return Value(!v.rawBool());
        en.m_frame->node = e;
        return ops::logicNot(v);
    }
    static Flow appendAssign(Engine& en, const Stmt* s)
    {
        en.appendToTarget(static_cast<const AssignStmt*>(s));
        return Flow::Normal;
    }
    static Flow ifStatement(Engine& en, const Stmt* s) { return en.execIf(static_cast<const IfStmt*>(s)); }
    // If ... Then ... End If without ElseIf or Else: a false condition costs no more than
    // testing it.
    static Flow ifThen(Engine& en, const Stmt* s)
    {
        const IfStmt::Arm& arm = static_cast<const IfStmt*>(s)->arms.front();
        if (!en.m_frame->resumeNext) [[likely]] {
            if (!en.condition(arm.condition.get()))
                return Flow::Normal;
        } else if (en.headCondition(arm.condition.get()) == Cond::False) {
            return Flow::Normal;
        }
        return en.execBlock(arm.body);
    }
    static Flow forStatement(Engine& en, const Stmt* s) { return en.execFor(static_cast<const ForStmt*>(s)); }
    static Flow doStatement(Engine& en, const Stmt* s) { return en.execDo(static_cast<const DoStmt*>(s)); }

    static ExecFn assignmentFor(const AssignStmt& a)
    {
        const ExprKind t = a.target->kind;
        if (t == ExprKind::Call && !a.isSet && !a.isMid) {
            const auto& c = static_cast<const CallExpr&>(*a.target);
            const ExprKind v = c.target->kind;
            if (c.args.size() == 1 && c.args[0] && (v == ExprKind::Local || v == ExprKind::Global)) {
                const ExprKind i = c.args[0]->kind;
                const Expr& value = *a.value;
                if (v == ExprKind::Local && (i == ExprKind::Local || i == ExprKind::Literal)
                    && value.kind == ExprKind::Literal
                    && !static_cast<const LiteralExpr&>(value).value.isRefCounted()) {
                    a.itemArray = static_cast<const NameExpr&>(*c.target).slot;
                    if (i == ExprKind::Local)
                        a.itemIndex = static_cast<const NameExpr&>(*c.args[0]).slot;
                    else
                        a.itemIndexLiteral = &static_cast<const LiteralExpr&>(*c.args[0]).value;
                    a.itemValue = &static_cast<const LiteralExpr&>(value).value;
                    return &assignLocalItemLiteral;
                }
                return &assignItem;
            }
        }
        if (a.isMid || (t == ExprKind::Call && !a.isSet))
            return &execGeneral;
        if (a.appendsToTarget && a.appendPieces.size() <= 4)
            return &appendAssign;
        if (!a.isSet && t == ExprKind::Local)
            return assignmentTo<LocalOperand>(a);
        if (!a.isSet && t == ExprKind::Global)
            return &assignGlobal;
        if (!a.isSet && t == ExprKind::Field)
            return assignmentTo<FieldOperand>(a);
        return &execGeneral;
    }

    // The evaluator (EvalFn) or the executor of "local = l op r" (ExecFn) for the operand shapes.
    template <class Fn>
    using FnType = std::conditional_t<std::is_same_v<Fn, EvalFn>, EvalFn, ExecFn>;
    template <class Fn, ExprKind K, class L, class R>
    static FnType<Fn> pick()
    {
        if constexpr (std::is_same_v<Fn, EvalFn>)
            return &binary<K, L, R>;
        else
            return &assignBinary<typename Fn::Target, K, L, R>;
    }
    // Fn for the executor of "x = l op r" with x a T.
    template <class T>
    struct AssignTo {
        using Target = T;
    };

    template <class Fn, ExprKind K, class L>
    static FnType<Fn> binaryFor(const Expr* right)
    {
        switch (right->kind) {
        case ExprKind::Local: return pick<Fn, K, L, LocalOperand>();
        case ExprKind::RefParam: return pick<Fn, K, L, RefOperand>();
        case ExprKind::Literal: return pick<Fn, K, L, LiteralOperand>();
        case ExprKind::Field: return pick<Fn, K, L, FieldOperand>();
        default:
            if constexpr (std::is_same_v<L, LocalOperand>)
                if (callFree(right))
                    return pick<Fn, K, L, CallFreeOperand>();
            return pick<Fn, K, L, AnyOperand>();
        }
    }

    template <ExprKind K, class Fn = EvalFn>
    static FnType<Fn> binaryFor(const BinaryExpr& b)
    {
        switch (b.left->kind) {
        case ExprKind::Local: return binaryFor<Fn, K, LocalOperand>(b.right.get());
        case ExprKind::RefParam: return binaryFor<Fn, K, RefOperand>(b.right.get());
        case ExprKind::Literal: return binaryFor<Fn, K, LiteralOperand>(b.right.get());
        case ExprKind::Field: return binaryFor<Fn, K, FieldOperand>(b.right.get());
        default: return binaryFor<Fn, K, AnyOperand>(b.right.get());
        }
    }

    // "x = value" for a local or field x (T), with the arithmetic operators evaluated inline.
    template <class T>
    static ExecFn assignmentTo(const AssignStmt& a)
    {
        const Expr& v = *a.value;
        const auto& b = static_cast<const BinaryExpr&>(v);
        using Fn = AssignTo<T>;
        switch (v.kind) {
        case ExprKind::Add: return binaryFor<ExprKind::Add, Fn>(b);
        case ExprKind::Sub: return binaryFor<ExprKind::Sub, Fn>(b);
        case ExprKind::Mul: return binaryFor<ExprKind::Mul, Fn>(b);
        case ExprKind::Div: return binaryFor<ExprKind::Div, Fn>(b);
        case ExprKind::IntDiv: return binaryFor<ExprKind::IntDiv, Fn>(b);
        case ExprKind::Mod: return binaryFor<ExprKind::Mod, Fn>(b);
        default: return &assignLocal<T>;
        }
    }
};

// The subscript of a(i): Integer and Long as they are, anything else converted.
[[gnu::always_inline]] inline int32_t subscriptOf(const Value& v)
{
    if (v.type() == VarType::Integer)
        return v.rawInteger();
    if (v.type() == VarType::Long)
        return v.rawLong();
    return v.toLong();
}

[[gnu::always_inline]] inline int32_t Engine::subscript(const Expr* ie)
{
    if (ie->kind == ExprKind::Local)
        return subscriptOf(m_frame->vars[static_cast<const NameExpr*>(ie)->slot]);
    return subscriptOf(eval(ie));
}

// Evaluating the subscript (and the value) may have changed the variable: it is looked up
// again, and must still hold a one-dimensional array.
[[gnu::always_inline]] inline Value Engine::readItem(const CallExpr* c)
{
    const int32_t i = subscript(c->args[0].get());
    const Value* arr = plainVector(c->target.get());
    if (!arr)
        raise(ErrorCode::TypeMismatch);
    const ArrayRep* rep = arr->array();
    if (i < 0 || i >= rep->counts[0])
        raise(ErrorCode::SubscriptOutOfRange);
    return rep->items[size_t(i)];
}

[[gnu::always_inline]] inline void Engine::writeItem(const CallExpr* c, const Expr* valueExpr)
{
    const int32_t i = subscript(c->args[0].get());
    Value v = valueExpr->kind == ExprKind::Literal ? static_cast<const LiteralExpr*>(valueExpr)->value
                                                   : eval(valueExpr);
    if (v.isObject())
        v = v.defaultValue();
    Value* var = plainVector(c->target.get());
    if (!var)
        raise(ErrorCode::TypeMismatch);
    if (i < 0 || i >= var->array()->counts[0])
        raise(ErrorCode::SubscriptOutOfRange);
    ArrayRep* rep = ValueAccess::unshareArray(*var);
    if (rep->plain && !v.isRefCounted()) {
        ValueAccess::overwritePlain(rep->items[size_t(i)], std::move(v));
    } else {
        rep->plain = false;
        rep->items[size_t(i)] = std::move(v);
    }
}

Value Engine::vectorItem(const CallExpr* c)
{
    return readItem(c);
}

const Value* Engine::peek(const Expr* e)
{
    return peekInline(e);
}

[[gnu::always_inline]] inline const Value* Engine::peekInline(const Expr* e)
{
    switch (e->kind) {
    case ExprKind::Local: return &m_frame->vars[static_cast<const NameExpr*>(e)->slot];
    case ExprKind::RefParam: return m_frame->refs[static_cast<const NameExpr*>(e)->slot];
    case ExprKind::Literal: return &static_cast<const LiteralExpr*>(e)->value;
    case ExprKind::Call: break;
    default: return nullptr;
    }
    // a(i) for a local a, as callVariable reads it, when nothing has to run to find the item.
    const auto* c = static_cast<const CallExpr*>(e);
    if (c->itemArray < 0)
        return nullptr;
    const Value* iv = c->itemIndex >= 0 ? &m_frame->vars[c->itemIndex] : c->itemIndexLiteral;
    if (!isInt(iv->type()))
        return nullptr;
    const Value& var = m_frame->vars[c->itemArray];
    if (!var.isArray())
        return nullptr;
    const ArrayRep* rep = var.array();
    const int64_t i = rawInt(*iv);
    if (uint64_t(i) < uint64_t(rep->length))
        return &rep->items[size_t(i)];
    if (rep->counts.size() != 1)
        return nullptr;
    raise(ErrorCode::SubscriptOutOfRange);
}

namespace {

[[gnu::always_inline]] inline bool truth(const Value& v)
{
    if (v.type() == VarType::Boolean)
        return v.rawBool();
    if (v.isNull())
        return false;
    return v.toBoolean();
}

} // namespace

// Conditions read their operands in place where peek() can: a variable or a(i), Not of one
// (a Boolean inverted, anything else through Not), and comparisons of two Integer or Long
// values. Everything else is evaluated.
bool Engine::evalCondition(const Expr* e)
{
    return condition(e);
}

[[gnu::always_inline]] inline bool Engine::condition(const Expr* e)
{
    switch (e->kind) {
    case ExprKind::Not:
        if (const Value* v = peekInline(static_cast<const UnaryExpr*>(e)->operand.get())) {
            if (v->type() == VarType::Boolean)
                return !v->rawBool();
            m_frame->node = e;
            return truth(ops::logicNot(*v));
        }
        break;
    case ExprKind::Eq: case ExprKind::Ne: case ExprKind::Lt: case ExprKind::Gt: case ExprKind::Le:
    case ExprKind::Ge: {
        const auto* b = static_cast<const BinaryExpr*>(e);
        const Value* l = peekInline(b->left.get());
        if (!l || !isInt(l->type()))
            break;
        const Value* r = peekInline(b->right.get());
        if (!r || !isInt(r->type()))
            break;
        const int64_t x = rawInt(*l), y = rawInt(*r);
        m_frame->node = e;
        switch (e->kind) {
        case ExprKind::Eq: return x == y;
        case ExprKind::Ne: return x != y;
        case ExprKind::Lt: return x < y;
        case ExprKind::Gt: return x > y;
        case ExprKind::Le: return x <= y;
        default: return x >= y;
        }
    }
    default:
        if (const Value* v = peekInline(e))
            return truth(*v);
        break;
    }
    return truth(eval(e));
}

void Engine::assignVectorItem(const CallExpr* c, const Expr* valueExpr)
{
    writeItem(c, valueExpr);
}

// The general evaluator's binary operators: operands read in place when they are locals,
// parameters or literals, as the specialised evaluators do.
Value Engine::evalBinary(const BinaryExpr* e)
{
    return evaluatorFor(*e)(*this, e);
}

EvalFn Engine::evaluatorFor(const Expr& e)
{
    switch (e.kind) {
    case ExprKind::Literal: return &Fast::literal;
    case ExprKind::Local: return &Fast::local;
    case ExprKind::RefParam: return &Fast::refParam;
    case ExprKind::Field: return &Fast::field;
    case ExprKind::Call: {
        const auto& c = static_cast<const CallExpr&>(e);
        const ExprKind t = c.target->kind;
        if (c.args.size() == 1 && c.args[0] && t == ExprKind::Local) {
            const Expr& index = *c.args[0];
            if (index.kind == ExprKind::Local || index.kind == ExprKind::Literal) {
                c.itemArray = static_cast<const NameExpr&>(*c.target).slot;
                if (index.kind == ExprKind::Local)
                    c.itemIndex = static_cast<const NameExpr&>(index).slot;
                else
                    c.itemIndexLiteral = &static_cast<const LiteralExpr&>(index).value;
            }
            return &Fast::callVariable;
        }
        if (t == ExprKind::Global)
            return &evalGlobalCall;
        return &evalGeneral;
    }
    case ExprKind::Not: return &Fast::notOperator;
    case ExprKind::Add: return Fast::binaryFor<ExprKind::Add>(static_cast<const BinaryExpr&>(e));
    case ExprKind::Sub: return Fast::binaryFor<ExprKind::Sub>(static_cast<const BinaryExpr&>(e));
    case ExprKind::Mul: return Fast::binaryFor<ExprKind::Mul>(static_cast<const BinaryExpr&>(e));
    case ExprKind::Div: return Fast::binaryFor<ExprKind::Div>(static_cast<const BinaryExpr&>(e));
    case ExprKind::IntDiv: return Fast::binaryFor<ExprKind::IntDiv>(static_cast<const BinaryExpr&>(e));
    case ExprKind::Mod: return Fast::binaryFor<ExprKind::Mod>(static_cast<const BinaryExpr&>(e));
    case ExprKind::Eq: return Fast::binaryFor<ExprKind::Eq>(static_cast<const BinaryExpr&>(e));
    case ExprKind::Ne: return Fast::binaryFor<ExprKind::Ne>(static_cast<const BinaryExpr&>(e));
    case ExprKind::Lt: return Fast::binaryFor<ExprKind::Lt>(static_cast<const BinaryExpr&>(e));
    case ExprKind::Gt: return Fast::binaryFor<ExprKind::Gt>(static_cast<const BinaryExpr&>(e));
    case ExprKind::Le: return Fast::binaryFor<ExprKind::Le>(static_cast<const BinaryExpr&>(e));
    case ExprKind::Ge: return Fast::binaryFor<ExprKind::Ge>(static_cast<const BinaryExpr&>(e));
    case ExprKind::Pow: case ExprKind::Concat: case ExprKind::And: case ExprKind::Or:
    case ExprKind::Xor: case ExprKind::Eqv: case ExprKind::Imp: case ExprKind::Is:
        return Fast::binaryFor<kOtherOperator>(static_cast<const BinaryExpr&>(e));
    default: return &evalGeneral;
    }
}

ExecFn Engine::executorFor(const Stmt& s)
{
    switch (s.kind) {
    case StmtKind::Call: return &execCall;
    case StmtKind::Assign: return Fast::assignmentFor(static_cast<const AssignStmt&>(s));
    case StmtKind::If: {
        const auto& i = static_cast<const IfStmt&>(s);
        return i.arms.size() == 1 && i.elseBody.empty() ? &Fast::ifThen : &Fast::ifStatement;
    }
    case StmtKind::For: return &Fast::forStatement;
    case StmtKind::Do: return &Fast::doStatement;
    default: return &execGeneral;
    }
}

} // namespace vbs
