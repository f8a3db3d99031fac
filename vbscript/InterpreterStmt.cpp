// Interpreter: statements, assignments, Dim and On Error Resume Next.
#include "Engine.h"

#include "ClassInstance.h"
#include "Operators.h"

#include <algorithm>

namespace vbs {

void Engine::noteError(const ScriptError& e)
{
    m_err->set(e);
}

Flow Engine::execBlock(const Block& block)
{
    return runBlock(block);
}

// Called inside the handler of a statement's exception: locates it, then rethrows it unless
// On Error Resume Next is on. Kept out of execBlock so that recursion through it stays cheap on
// the native stack.
void Engine::statementFailed(const Stmt* s)
{
    try {
        throw;
    } catch (ScriptError& e) {
        if (!e.located()) {
            // The operation that failed when it is known, else the statement.
            const Expr* n = m_frame->node;
            if (n && n->line >= s->line)
                locate(e, n->line, n->column, s);
            else
                locate(e, s->line, s->column);
        }
        if (!m_frame->resumeNext)
            throw;
        noteError(e);
    } catch (const std::bad_alloc&) {
        ScriptError e(ErrorCode::OutOfMemory);
        locate(e, s->line, s->column);
        if (!m_frame->resumeNext)
            throw e;
        noteError(e);
    } catch (const std::exception& ex) {
        // A host object that failed with a C++ exception: an automation error with its text.
        ScriptError e(int32_t(ErrorCode::AutomationError), fromUtf8(ex.what()));
        locate(e, s->line, s->column);
        if (!m_frame->resumeNext)
            throw e;
        noteError(e);
    }
}

Flow execGeneral(Engine& engine, const Stmt* s)
{
    return engine.exec(s);
}

Flow Engine::exec(const Stmt* s)
{
    switch (s->kind) {
    case StmtKind::Call:
        evalCall(static_cast<const CallExpr*>(static_cast<const CallStmt*>(s)->call.get()), true);
        return Flow::Normal;
    case StmtKind::Assign:
        execAssign(static_cast<const AssignStmt*>(s));
        return Flow::Normal;
    case StmtKind::If:
        return execIf(static_cast<const IfStmt*>(s));
    case StmtKind::For:
        return execFor(static_cast<const ForStmt*>(s));
    case StmtKind::ForEach:
        return execForEach(static_cast<const ForEachStmt*>(s));
    case StmtKind::Do:
        return execDo(static_cast<const DoStmt*>(s));
    case StmtKind::Select:
        return execSelect(static_cast<const SelectStmt*>(s));
    case StmtKind::With:
        return execWith(static_cast<const WithStmt*>(s));
    case StmtKind::Dim: case StmtKind::ReDim:
        execDim(static_cast<const DimStmt*>(s));
        return Flow::Normal;
    case StmtKind::Erase:
        execErase(static_cast<const EraseStmt*>(s));
        return Flow::Normal;
    case StmtKind::Exit:
        switch (static_cast<const ExitStmt*>(s)->exitKind) {
        case ExitKind::Do: return Flow::ExitDo;
        case ExitKind::For: return Flow::ExitFor;
        default: return Flow::ExitProc;
        }
    case StmtKind::Const:
        for (const auto& [name, value] : static_cast<const ConstStmt*>(s)->items) {
            const Value& v = static_cast<const LiteralExpr*>(value.get())->value;
            if (name->kind == ExprKind::Global)
                global(static_cast<const NameExpr*>(name.get())->slot).value = v;
            else
                *variableRef(name.get(), RefMode::Write) = v;
        }
        return Flow::Normal;
    case StmtKind::OnErrorResumeNext:
        m_frame->resumeNext = true;
        m_err->clear();
        return Flow::Normal;
    case StmtKind::OnErrorGoto0:
        m_frame->resumeNext = false;
        m_err->clear();
        return Flow::Normal;
    case StmtKind::Nop:
        return Flow::Normal;
    }
    return Flow::Normal;
}

// Mid(var, start[, length]) = text: replaces characters of the variable's string in place.
void Engine::execMidAssign(const AssignStmt* s)
{
    const auto* c = static_cast<const CallExpr*>(s->target.get());
    Value* var = variableRef(c->args[0].get(), RefMode::Write);
    if (!var)
        raise(ErrorCode::IllegalAssignment);
    String text = var->toString();
    const int32_t start = eval(c->args[1].get()).toLong();
    const int32_t length = c->args.size() > 2 ? eval(c->args[2].get()).toLong() : INT32_MAX;
    const String with = eval(s->value.get()).toString();
    if (start < 1 || length < 0 || size_t(start) > text.size())
        raise(ErrorCode::InvalidProcedureCall);
    const size_t n = std::min({size_t(length), with.size(), text.size() - size_t(start - 1)});
    text.replace(size_t(start - 1), n, with.substr(0, n));
    *var = Value(std::move(text));
}

namespace {

// CStr of an Integer or Long, written at the end of buf.
std::u16string_view integerText(int32_t v, char16_t (&buf)[12])
{
    uint32_t u = v < 0 ? 0u - uint32_t(v) : uint32_t(v);
    char16_t* const end = buf + 12;
    char16_t* b = end;
    do {
        *--b = char16_t(u'0' + u % 10);
        u /= 10;
    } while (u);
    if (v < 0)
        *--b = u'-';
    return {b, size_t(end - b)};
}

} // namespace

// "s = s & x & y" appends in place when the variable holds the only reference. The pieces are
// evaluated first, since they may read the variable too; literals are read where they are.
void Engine::appendToTarget(const AssignStmt* s)
{
    const Expr* t = s->target.get();
    // Temporaries only for the pieces that are not literals, destroyed in order.
    struct Temps {
        alignas(Value) unsigned char raw[4 * sizeof(Value)];
        uint32_t built = 0;
        Value* make(size_t i, Value v)
        {
            Value* slot = new (reinterpret_cast<Value*>(raw) + i) Value(std::move(v));
            built |= 1u << i;
            return slot;
        }
        ~Temps()
        {
            for (size_t i = 0; built; ++i, built >>= 1)
                if (built & 1)
                    reinterpret_cast<Value*>(raw)[i].~Value();
        }
    } temps;
    const Value* pieces[4];
    const size_t n = s->appendPieces.size();
    for (size_t i = 0; i < n; ++i) {
        const Expr* pe = s->appendPieces[i];
        if (pe->kind == ExprKind::Literal)
            pieces[i] = &static_cast<const LiteralExpr*>(pe)->value;
        else
            pieces[i] = temps.make(i, eval(pe));
    }
    Value* p = t->kind == ExprKind::Local ? &m_frame->vars[static_cast<const NameExpr*>(t)->slot]
                                          : variableRef(t, RefMode::Write);
    if (p->isObject() && letsThroughDefault(*p)) {
        // A host object keeps its place: the text goes to its default property.
        Value text = p->defaultValue();
        for (size_t i = 0; i < n; ++i)
            text = ops::concat(text, *pieces[i]);
        assignTo(t, std::move(text), false);
        return;
    }
    for (size_t i = 0; i < n; ++i) {
        const Value& rhs = *pieces[i];
        if (!p->isString()) {
            *p = ops::concat(*p, rhs);
        } else if (rhs.isString()) {
            ValueAccess::appendString(*p, rhs.str());
        } else if (rhs.type() == VarType::Integer || rhs.type() == VarType::Long) {
            char16_t buf[12];
            const int32_t number = rhs.type() == VarType::Integer ? rhs.rawInteger() : rhs.rawLong();
            ValueAccess::appendString(*p, integerText(number, buf));
        } else if (!rhs.isNull()) {
            ValueAccess::appendString(*p, rhs.toString());
        }
    }
}

void Engine::execAssign(const AssignStmt* s)
{
    const Expr* t = s->target.get();
    if (t->kind == ExprKind::Call && !s->isSet && !s->isMid) {
        const auto* c = static_cast<const CallExpr*>(t);
        if (c->args.size() == 1 && c->args[0] && plainVector(c->target.get())) {
            assignVectorItem(c, s->value.get());
            return;
        }
    }
    if (s->isMid) {
        execMidAssign(s);
        return;
    }
    if (s->appendsToTarget && s->appendPieces.size() <= 4) {
        appendToTarget(s);
        return;
    }
    if (!s->isSet && (t->kind == ExprKind::Local || t->kind == ExprKind::Global)) {
        // Plain variables take the short way unless the value is an object (default member).
        Value v = eval(s->value.get());
        if (!v.isObject()) {
            if (t->kind == ExprKind::Local) {
                Value& var = m_frame->vars[static_cast<const NameExpr*>(t)->slot];
                if (!var.isObject()) {
                    var = std::move(v);
                    return;
                }
            }
            if (t->kind == ExprKind::Global) {
                GlobalSlot& g = global(static_cast<const NameExpr*>(t)->slot);
                if (g.kind == GlobalSlot::Kind::Variable && !g.value.isObject()) {
                    g.value = std::move(v);
                    return;
                }
            }
        }
        assignTo(t, std::move(v), false);
        return;
    }
    assignTo(t, eval(s->value.get()), s->isSet);
}

void Engine::execDim(const DimStmt* s)
{
    for (const auto& item : s->items) {
        if (!item.isArray)
            continue;
        if (s->kind == StmtKind::ReDim && !s->preserve) {
            // A fixed array refuses a plain ReDim before the new bounds are even read.
            const Value* old = variableRef(item.var.get(), RefMode::Write);
            if (old->isArray() && (old->array()->fixed || old->array()->locks > 0))
                raise(ErrorCode::ArrayFixedOrLocked);
        }
        std::vector<int32_t> counts;
        for (const auto& b : item.bounds) {
            const int32_t ub = eval(b.get()).toLong();
            if (ub < -1)
                raise(ErrorCode::SubscriptOutOfRange);
            counts.push_back(ub + 1);
        }
        Value* var = variableRef(item.var.get(), RefMode::Write);
        if (s->kind == StmtKind::Dim) {
            *var = Value::makeArray(std::move(counts));
            var->array()->fixed = !item.bounds.empty();
            continue;
        }
        if (var->isArray() && (var->array()->fixed || var->array()->locks > 0))
            raise(ErrorCode::ArrayFixedOrLocked);
        Value fresh = Value::makeArray(counts);
        if (s->preserve && var->isArray()) {
            const ArrayRep* old = var->array();
            if (old->counts.size() != counts.size() && !old->counts.empty())
                raise(ErrorCode::SubscriptOutOfRange);
            for (size_t d = 0; d + 1 < counts.size() && !old->counts.empty(); ++d)
                if (old->counts[d] != counts[d])
                    raise(ErrorCode::SubscriptOutOfRange);
            ArrayRep* rep = ValueAccess::unshareArray(fresh);
            rep->plain = old->plain;
            const size_t keep = std::min(old->items.size(), rep->items.size());
            for (size_t i = 0; i < keep; ++i)
                rep->items[i] = old->items[i];
        }
        *var = std::move(fresh);
    }
}

void Engine::execErase(const EraseStmt* s)
{
    for (const auto& v : s->vars) {
        Value* var = variableRef(v.get(), RefMode::Write);
        if (!var || !var->isArray())
            raise(ErrorCode::TypeMismatch);
        if (var->array()->locks > 0)
            raise(ErrorCode::ArrayFixedOrLocked);
        if (var->array()->fixed) {
            for (auto& item : var->mutableArray()->items)
                item.clear();
        } else {
            *var = Value::makeArray(std::vector<int32_t>{});
        }
    }
}

} // namespace vbs
