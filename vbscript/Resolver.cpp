// Compile-time name resolution, so that running code never looks a variable up by name.
#include "Resolver.h"

#include "Engine.h"

#include <unordered_set>

namespace vbs {

namespace {

[[noreturn]] void failAt(ErrorCode code, int line, int column)
{
    ScriptError e(code);
    e.line = line;
    e.column = column;
    throw e;
}

class Resolver {
public:
    Resolver(Program& p, Engine& e, Procedure* scope) : m_prog(p), m_engine(e), m_scope(scope) {}

    void run()
    {
        declareGlobals();
        resolveProc(m_prog.top.get());
        for (auto& p : m_prog.procedures)
            resolveProc(p.get());
        for (auto& c : m_prog.classes)
            for (auto& p : c->procedures)
                resolveProc(p.get());
        if (m_prog.expression) {
            m_proc = m_prog.top.get();
            resolveExpr(m_prog.expression.get());
        }
    }

private:
    void claim(std::unordered_set<String>& seen, const String& name, int line, int column)
    {
        if (!seen.insert(foldCase(name)).second)
            failAt(ErrorCode::NameRedefined, line, column);
    }

    void declareGlobals()
    {
        std::unordered_set<String> seen;
        using Kind = GlobalSlot::Kind;
        for (const auto& d : m_prog.top->decls) {
            if (m_scope && d.kind == Procedure::Decl::Dim) {
                claim(seen, d.name, d.line, d.column);
                declareExecLocal(d);
                continue;
            }
            if (d.kind == Procedure::Decl::ReDim) {
                GlobalSlot& g = m_engine.global(m_engine.globalSlot(d.name));
                if (g.kind == Kind::Undeclared)
                    g.kind = Kind::Variable;
                continue;
            }
            claim(seen, d.name, d.line, d.column);
            GlobalSlot& g = m_engine.global(m_engine.globalSlot(d.name));
            if (g.kind != Kind::Variable)
                g.value.clear();
            g.kind = d.kind == Procedure::Decl::Const ? Kind::Const : Kind::Variable;
        }
        // Constants are known before any code runs, as literals are.
        for (const auto& s : m_prog.top->body) {
            if (s->kind != StmtKind::Const)
                continue;
            for (const auto& [name, value] : static_cast<ConstStmt*>(s.get())->items) {
                GlobalSlot& g = m_engine.global(m_engine.globalSlot(static_cast<NameExpr*>(name.get())->name));
                g.value = static_cast<LiteralExpr*>(value.get())->value;
            }
        }
        std::unordered_set<String> procedureNames;
        for (auto& p : m_prog.procedures) {
            // A later Sub or Function of the same name replaces the earlier one.
            if (procedureNames.insert(foldCase(p->name)).second)
                claim(seen, p->name, p->line, p->column);
            GlobalSlot& g = m_engine.global(m_engine.globalSlot(p->name));
            g.kind = Kind::Procedure;
            g.proc = p.get();
            g.value.clear();
        }
        for (auto& c : m_prog.classes) {
            claim(seen, c->name, c->line, c->column);
            GlobalSlot& g = m_engine.global(m_engine.globalSlot(c->name));
            if (g.kind == Kind::NativeClass)
                continue; // a provided class keeps its name
            g.kind = Kind::Class;
            g.cls = c.get();
            g.value.clear();
        }
    }

    // A Dim in code Execute'd inside a procedure declares a local of that procedure, which
    // later Execute/Eval code of the same call sees. The slot stays with the procedure, so a
    // second call running the same Dim reuses it.
    void declareExecLocal(const Procedure::Decl& d)
    {
        const String key = foldCase(d.name);
        if (m_scope->execLocals.count(key))
            return;
        if (m_scope->localIndex.count(key))
            failAt(ErrorCode::NameRedefined, d.line, d.column);
        auto imp = m_scope->implicitIndex.find(key);
        if (imp != m_scope->implicitIndex.end()) {
            // The procedure's own code already uses the name undeclared: share its slot.
            m_scope->localIndex[key] = imp->second.second;
            m_scope->implicitIndex.erase(imp);
        } else {
            addLocal(m_scope, d.name);
        }
        m_scope->execLocals.insert(key);
    }

    int addLocal(Procedure* p, const String& name)
    {
        const int slot = p->localCount++;
        p->localNames.push_back(name);
        if (!name.empty() && name[0] != u'\x01')
            p->localIndex[foldCase(name)] = slot;
        return slot;
    }

    void resolveProc(Procedure* p)
    {
        m_proc = p;
        m_localConsts.clear();
        p->paramCount = p->params.size();
        if (p->kind != ProcKind::TopLevel) {
            for (const auto& param : p->params) {
                addLocal(p, param.name);
                p->allByRef = p->allByRef && param.byRef;
            }
            if (p->kind == ProcKind::Function || p->kind == ProcKind::PropertyGet) {
                const String key = foldCase(p->name);
                if (!p->localIndex.count(key))
                    p->resultSlot = addLocal(p, p->name);
                else
                    p->resultSlot = addLocal(p, u"\x01result");
            }
            for (const auto& d : p->decls) {
                const String key = foldCase(d.name);
                const bool exists = p->localIndex.count(key) > 0;
                if (d.kind == Procedure::Decl::ReDim) {
                    // ReDim of an undeclared name declares a local, unless it names a field
                    // or a global.
                    const int g = m_engine.findGlobal(d.name);
                    const bool isGlobal = g >= 0 && m_engine.global(g).kind == GlobalSlot::Kind::Variable;
                    if (!exists && !isGlobal && !(p->owner && p->owner->memberIndex.count(key)))
                        addLocal(p, d.name);
                    continue;
                }
                if (exists)
                    failAt(ErrorCode::NameRedefined, d.line, d.column);
                addLocal(p, d.name);
            }
        }
        resolveBlock(p->body);
    }

    Procedure* localScope() const
    {
        return m_proc->kind == ProcKind::TopLevel ? m_scope : m_proc;
    }

    void resolveName(NameExpr* n, bool asCall)
    {
        const String key = foldCase(n->name);
        if (Procedure* lp = localScope()) {
            auto imp = lp->implicitIndex.find(key);
            if (imp != lp->implicitIndex.end()) {
                n->kind = ExprKind::Implicit;
                n->slot = imp->second.first;
                n->localSlot = imp->second.second;
                return;
            }
        }
        if (Procedure* lp = localScope()) {
            auto it = lp->localIndex.find(key);
            if (it != lp->localIndex.end() && !(asCall && it->second == lp->resultSlot)) {
                const int slot = it->second;
                const bool byRef = slot < int(lp->params.size()) && lp->params[size_t(slot)].byRef;
                n->kind = byRef ? ExprKind::RefParam : ExprKind::Local;
                n->slot = slot;
                n->isConst = m_localConsts.count(key) > 0;
                return;
            }
            if (ClassDef* cls = lp->owner) {
                auto m = cls->memberIndex.find(key);
                if (m != cls->memberIndex.end()) {
                    const auto& member = cls->members[size_t(m->second)];
                    n->kind = member.field >= 0 ? ExprKind::Field : ExprKind::MeMember;
                    n->slot = member.field >= 0 ? member.field : m->second;
                    return;
                }
            }
        }
        const int existing = m_engine.findGlobal(n->name);
        if (existing >= 0 && m_engine.global(existing).kind != GlobalSlot::Kind::Undeclared) {
            n->kind = ExprKind::Global;
            n->slot = existing;
            const GlobalSlot& g = m_engine.global(existing);
            n->isConst = g.kind == GlobalSlot::Kind::Const && g.value.isNumeric();
            return;
        }
        n->kind = ExprKind::Global;
        n->slot = m_engine.globalSlot(n->name);
        if (m_proc->kind == ProcKind::TopLevel && m_scope && !m_proc->optionExplicit && !asCall) {
            // Undeclared in code Execute'd inside a procedure: like the procedure's own
            // undeclared names, a local of it unless a global exists when it runs.
            n->kind = ExprKind::Implicit;
            n->localSlot = addLocal(m_scope, u"\x01" + n->name);
            m_scope->implicitIndex[key] = {n->slot, n->localSlot};
            return;
        }
        if (m_proc->kind == ProcKind::TopLevel || asCall)
            return;
        // Undeclared inside a procedure: a global of that name if one exists when it runs,
        // otherwise a local of the procedure (under Option Explicit only once code Execute'd in
        // the procedure has declared it).
        n->kind = ExprKind::Implicit;
        n->localSlot = addLocal(m_proc, u"\x01" + n->name);
        m_proc->implicitIndex[key] = {n->slot, n->localSlot};
    }

    static bool isNumericLiteral(const Expr* e)
    {
        switch (e->kind) {
        case ExprKind::Literal: return static_cast<const LiteralExpr*>(e)->numericLiteral;
        case ExprKind::Neg: return isNumericLiteral(static_cast<const UnaryExpr*>(e)->operand.get());
        case ExprKind::Local: case ExprKind::Global: return static_cast<const NameExpr*>(e)->isConst;
        default: return false;
        }
    }

    void resolveExpr(Expr* e, bool asCall = false)
    {
        resolveNode(e, asCall);
        e->evaluate = Engine::evaluatorFor(*e);
    }

    void resolveNode(Expr* e, bool asCall)
    {
        switch (e->kind) {
        case ExprKind::Name:
            resolveName(static_cast<NameExpr*>(e), asCall);
            return;
        case ExprKind::Call: {
            auto* c = static_cast<CallExpr*>(e);
            resolveExpr(c->target.get(), asCall || c->parens || !c->args.empty());
            c->directArgs = c->args.size() <= CallExpr::kMaxDirectArgs;
            c->variableArgs = true;
            for (auto& a : c->args) {
                if (a)
                    resolveExpr(a.get());
                if (!a || (a->kind == ExprKind::Call && !a->parenthesized))
                    c->directArgs = false;
                if (!a || a->parenthesized
                    || (a->kind != ExprKind::Local && a->kind != ExprKind::RefParam))
                    c->variableArgs = false;
            }
            c->variableArgs = c->variableArgs && c->directArgs;
            if (c->variableArgs) {
                for (size_t i = 0; i < c->args.size(); ++i) {
                    const auto* a = static_cast<const NameExpr*>(c->args[i].get());
                    c->argSlots[i] = a->kind == ExprKind::Local ? a->slot : ~a->slot;
                }
            }
            return;
        }
        case ExprKind::Member:
            resolveExpr(static_cast<MemberExpr*>(e)->object.get());
            return;
        case ExprKind::WithObject:
            static_cast<WithExpr*>(e)->slot = m_withSlots.empty() ? -1 : m_withSlots.back();
            return;
        case ExprKind::New: {
            auto* n = static_cast<NewExpr*>(e);
            n->slot = m_engine.globalSlot(n->className);
            return;
        }
        case ExprKind::Neg: case ExprKind::Not:
            resolveExpr(static_cast<UnaryExpr*>(e)->operand.get());
            return;
        case ExprKind::Literal: case ExprKind::Me:
            return;
        default: {
            auto* b = static_cast<BinaryExpr*>(e);
            resolveExpr(b->left.get());
            resolveExpr(b->right.get());
            b->leftLiteral = isNumericLiteral(b->left.get());
            b->rightLiteral = isNumericLiteral(b->right.get());
            return;
        }
        }
    }

    void resolveBlock(Block& block)
    {
        for (auto& s : block)
            resolveStmt(s.get());
    }

    void resolveStmt(Stmt* s)
    {
        resolveStmtNode(s);
        s->run = Engine::executorFor(*s);
    }

    void resolveStmtNode(Stmt* s)
    {
        switch (s->kind) {
        case StmtKind::Call:
            resolveExpr(static_cast<CallStmt*>(s)->call.get(), true);
            return;
        case StmtKind::Assign: {
            auto* a = static_cast<AssignStmt*>(s);
            resolveExpr(a->target.get());
            resolveExpr(a->value.get());
            markAppend(a);
            return;
        }
        case StmtKind::If:
            for (auto& arm : static_cast<IfStmt*>(s)->arms) {
                resolveExpr(arm.condition.get());
                resolveBlock(arm.body);
            }
            resolveBlock(static_cast<IfStmt*>(s)->elseBody);
            return;
        case StmtKind::For: {
            auto* f = static_cast<ForStmt*>(s);
            resolveExpr(f->var.get());
            resolveExpr(f->from.get());
            resolveExpr(f->to.get());
            if (f->step)
                resolveExpr(f->step.get());
            resolveBlock(f->body);
            return;
        }
        case StmtKind::ForEach: {
            auto* f = static_cast<ForEachStmt*>(s);
            resolveExpr(f->var.get());
            resolveExpr(f->collection.get());
            resolveBlock(f->body);
            return;
        }
        case StmtKind::Do: {
            auto* d = static_cast<DoStmt*>(s);
            if (d->condition)
                resolveExpr(d->condition.get());
            resolveBlock(d->body);
            return;
        }
        case StmtKind::Select: {
            auto* sel = static_cast<SelectStmt*>(s);
            resolveExpr(sel->subject.get());
            for (auto& arm : sel->arms) {
                for (auto& v : arm.values)
                    resolveExpr(v.get());
                resolveBlock(arm.body);
            }
            resolveBlock(sel->elseBody);
            return;
        }
        case StmtKind::With: {
            auto* w = static_cast<WithStmt*>(s);
            resolveExpr(w->object.get());
            if (m_proc->kind == ProcKind::TopLevel) {
                // Top-level code has no frame of its own: the With object lives in a hidden global.
                w->slot = -2 - m_engine.globalSlot(u"\x01with" + fromAscii(std::to_string(m_hiddenCounter++))
                    + u"." + fromAscii(std::to_string(m_prog.chunk)));
            } else {
                w->slot = addLocal(m_proc, u"\x01with");
            }
            m_withSlots.push_back(w->slot);
            resolveBlock(w->body);
            m_withSlots.pop_back();
            return;
        }
        case StmtKind::Dim: case StmtKind::ReDim:
            for (auto& item : static_cast<DimStmt*>(s)->items) {
                resolveExpr(item.var.get());
                for (auto& b : item.bounds)
                    resolveExpr(b.get());
            }
            return;
        case StmtKind::Erase:
            for (auto& v : static_cast<EraseStmt*>(s)->vars)
                resolveExpr(v.get());
            return;
        case StmtKind::Const:
            for (auto& [name, value] : static_cast<ConstStmt*>(s)->items) {
                auto* n = static_cast<NameExpr*>(name.get());
                if (m_proc->kind != ProcKind::TopLevel
                    && static_cast<LiteralExpr*>(value.get())->value.isNumeric())
                    m_localConsts.insert(foldCase(n->name));
                resolveExpr(name.get());
            }
            return;
        default:
            return;
        }
    }

    // "s = s & a & b" (left-associated concatenations starting with the target itself).
    static void markAppend(AssignStmt* a)
    {
        if (a->isSet || a->value->kind != ExprKind::Concat)
            return;
        const Expr* t = a->target.get();
        if (t->kind != ExprKind::Local && t->kind != ExprKind::Global)
            return;
        std::vector<const Expr*> pieces;
        const Expr* e = a->value.get();
        while (e->kind == ExprKind::Concat && !e->parenthesized) {
            pieces.push_back(static_cast<const BinaryExpr*>(e)->right.get());
            e = static_cast<const BinaryExpr*>(e)->left.get();
        }
        if (e->kind != t->kind || static_cast<const NameExpr*>(t)->slot != static_cast<const NameExpr*>(e)->slot)
            return;
        a->appendPieces.assign(pieces.rbegin(), pieces.rend());
        a->appendsToTarget = true;
    }

    Program& m_prog;
    Engine& m_engine;
    Procedure* m_scope;
    Procedure* m_proc = nullptr;
    std::vector<int> m_withSlots;
    std::unordered_set<String> m_localConsts;
    int m_hiddenCounter = 0;
};

} // namespace

void resolveProgram(Program& program, Engine& engine, Procedure* scope)
{
    Resolver(program, engine, scope).run();
}

} // namespace vbs
