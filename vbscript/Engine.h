// The engine behind a ScriptControl: global scope, compiled code, and the interpreter.
#pragma once

#include "Ast.h"
#include "Builtins.h"
#include "Host.h"
#include "Locale.h"
#include "ScriptControl.h"

#include <atomic>
#include <memory>
#include <unordered_map>

namespace vbs {

class ClassInstance;
class ErrObject;

// Thrown when the statement limit is reached; not a ScriptError, so no handler catches it.
struct ScriptInterrupted {};

struct GlobalSlot {
    enum class Kind : uint8_t { Undeclared, Variable, Const, Procedure, Builtin, Class, NativeClass, Object };
    Kind kind = Kind::Undeclared;
    String name;
    Value value;
    Procedure* proc = nullptr;
    const BuiltinDef* builtin = nullptr;
    ClassDef* cls = nullptr;
    Ref<Dispatch> (*create)() = nullptr; // NativeClass
    std::shared_ptr<Program> program; // keeps a class or procedure alive
};

// Global slots never move once made (ByRef arguments point at them), and indexing stays cheap.
class GlobalTable {
public:
    GlobalSlot& operator[](size_t i) { return m_chunks[i >> kShift][i & kMask]; }
    size_t size() const { return m_size; }
    GlobalSlot& emplace_back()
    {
        if ((m_size & kMask) == 0)
            m_chunks.push_back(std::make_unique<GlobalSlot[]>(kMask + 1));
        return (*this)[m_size++];
    }
    void clear()
    {
        m_chunks.clear();
        m_size = 0;
    }
    // Newest first: script variables go before the named objects their Class_Terminate may use.
    template <class Fn>
    void forEachNewestFirst(Fn&& fn)
    {
        for (size_t i = m_size; i-- > 0;)
            fn((*this)[i]);
    }

private:
    static constexpr size_t kShift = 6, kMask = (size_t(1) << kShift) - 1;
    std::vector<std::unique_ptr<GlobalSlot[]>> m_chunks;
    size_t m_size = 0;
};

// The locals of all active procedures. Reserved once, since frames and ByRef arguments point into
// it, but built only as deep as calls have gone: a new engine touches none of its memory.
class ValueStack {
public:
    explicit ValueStack(size_t capacity);
    ~ValueStack();
    ValueStack(const ValueStack&) = delete;
    ValueStack& operator=(const ValueStack&) = delete;
    Value* data() const { return m_items; }
    size_t built() const { return m_built; }
    // Makes the first n slots usable (Empty); false when n is past the capacity.
    bool build(size_t n);

private:
    Value* m_items;
    size_t m_built = 0;
    size_t m_capacity;
};

// One activation of a procedure (or of top-level code).
struct Frame {
    Procedure* proc = nullptr;
    Value* vars = nullptr;
    size_t size = 0; // slots of vars (Execute'd Dims may grow the innermost frame)
    Value** refs = nullptr;
    ClassInstance* me = nullptr;
    const Expr* node = nullptr; // the operation being run, for the error location
    const Stmt* stmt = nullptr; // the statement being run
    bool resumeNext = false;
    int chunk = 0;
};

class Engine {
public:
    explicit Engine(ScriptControl& control);
    ~Engine();

    // Global scope.
    int globalSlot(std::u16string_view name); // creates an Undeclared slot when missing
    int findGlobal(std::u16string_view name) const; // -1 when missing
    GlobalSlot& global(int i) { return m_globals[size_t(i)]; }
    void registerBuiltin(const BuiltinDef& def);
    void registerConstant(std::u16string_view name, Value value);
    void registerNativeClass(std::u16string_view name, Ref<Dispatch> (*create)());
    void addObject(const String& name, Ref<Dispatch> object, bool addMembers = false);
    // A name no script declares may be a member of an object added with addMembers.
    bool globalMember(const String& name, InvokeKind kind, std::span<Value*> args, Value& out);
    void reset();

    // Entry points used by ScriptControl; they throw located ScriptErrors.
    void addCode(std::u16string_view code);
    void checkSyntax(std::u16string_view code);
    Value run(std::u16string_view procName, std::vector<Value>& args);
    Value evalText(std::u16string_view expression);
    // Execute / ExecuteGlobal / Eval as scripts call them (in the caller's scope where possible).
    void executeStatements(std::u16string_view code, bool global);
    Value evaluate(std::u16string_view expression);

    // Stops a run after this many statements, loop turns and calls (0: no limit). The stop
    // cannot be caught by On Error Resume Next; the control reports it as error 17.
    void setStatementLimit(uint64_t limit)
    {
        m_stepLimit = limit;
        m_watched = m_stepLimit || m_interrupt;
    }
    // Stops a run at the next statement once *flag is set from another thread (0: never), with
    // the same error as the statement limit. A newer preview uses it to end an older one.
    void setInterruptFlag(const std::atomic<bool>* flag)
    {
        m_interrupt = flag;
        m_watched = m_stepLimit || m_interrupt;
    }
    // Runs before every statement, loop turn and call: one test when nothing watches the run.
    void tick()
    {
        if (m_watched) [[unlikely]]
            watchedTick();
    }
    void watchedTick()
    {
        if (m_stepLimit && ++m_steps > m_stepLimit)
            throw ScriptInterrupted{};
        if (m_interrupt && m_interrupt->load(std::memory_order_relaxed))
            throw ScriptInterrupted{};
    }

    Host& host() const { return *m_host; }
    const Locale& locale() const { return *m_locale; }
    void setLocale(const Locale& locale);
    void setHost(Host* host) { m_host = host ? host : &defaultHost(); }
    RandomState& random() { return m_random; }
    ErrObject& err() { return *m_err; }
    const String& chunkSource(int chunk) const;

    // Interpreter (Interpreter*.cpp).
    Value callProcedure(Procedure* proc, ClassInstance* me, std::span<Value*> args);
    Value newInstance(ClassDef* cls, const std::shared_ptr<Program>& program);
    void runTerminate(ClassInstance* instance) noexcept;
    // Arrays and default members, shared with ClassInstance.
    Value indexValue(const Value& v, std::span<Value*> args, bool statement, bool parens = false);
    Value* elementRef(Value& array, std::span<Value*> indices);
    static size_t flatIndex(const ArrayRep* rep, std::span<Value*> indices);
    // For error locations: the chunk of the running code.
    int currentChunk() const { return m_frame ? m_frame->chunk : 0; }
    // Places e where an error raised now would be placed; false outside a statement.
    bool locateRunning(ScriptError& e);
    // The engine running a script on this thread, if any.
    static Engine* running();
    // The evaluator for a resolved node and the executor for a resolved statement
    // (InterpreterFast.cpp).
    static EvalFn evaluatorFor(const Expr& e);
    static ExecFn executorFor(const Stmt& s);

private:
    friend class ClassInstance;
    friend class GlobalScope;
    struct Fast; // the specialised evaluators
    // Calls of script procedures (InterpreterProc.cpp).
    Value runProcedure(Procedure* proc, ClassInstance* me, Value* const* args);
    struct DirectArgs;
    Value callDirect(Procedure* proc, const CallExpr* c);
    Value callMemberDirect(const CallExpr* c, bool statement);
    static Value evalGlobalCall(Engine& en, const Expr* e);
    static Flow execCall(Engine& en, const Stmt* s);
    [[gnu::noinline]] void execNameCall(const CallExpr* c);
    // Marks the outermost entry into the engine, where the native stack budget is measured.
    struct Entry {
        explicit Entry(Engine& e);
        ~Entry();
        Entry(const Entry&) = delete;
        Entry& operator=(const Entry&) = delete;
        Engine& m_engine;
        Engine* m_outer;      // the engine running on this thread before this entry
        LocaleScope m_locale; // conversions follow this engine's locale while it runs
    };
    // Makes frame the running one until the end of the scope, then the one before it again.
    struct FrameScope {
        FrameScope(Engine& e, Frame& frame) : m_engine(e), m_saved(e.m_frame)
        {
            e.m_frame = &frame;
        }
        ~FrameScope() { m_engine.m_frame = m_saved; }
        FrameScope(const FrameScope&) = delete;
        FrameScope& operator=(const FrameScope&) = delete;
        Engine& m_engine;
        Frame* m_saved;
    };
    struct NestedCode;
    std::shared_ptr<Program> compile(std::u16string_view code, bool expression, Procedure* scope);
    void runTopLevel(const std::shared_ptr<Program>& program, bool inCallerFrame);
    void growFrame(Frame& frame);
    [[gnu::noinline]] void deepen(size_t n, size_t np);
    void checkStack()
    {
        char probe;
        if (m_stackBase - reinterpret_cast<uintptr_t>(&probe) > m_stackBudget || m_depth > 20000)
            raise(ErrorCode::OutOfStackSpace);
    }

    // Statements.
    Flow execBlock(const Block& block);
    // execBlock inline, for the loops and calls that spend their time running blocks. Each
    // statement notes itself for error locations and counts towards the statement limit; an error
    // it raises is located and handled (On Error Resume Next) by statementFailed.
    [[gnu::always_inline]] Flow runBlock(const Block& block)
    {
        return runStatements(block.data(), block.data() + block.size());
    }
    // The same over a block's statements, for a loop that finds them once rather than every turn
    // (a block does not change while it runs).
    [[gnu::always_inline]] Flow runStatements(const StmtPtr* first, const StmtPtr* last)
    {
        // Calls restore the running frame before they return, so it stays the same through the
        // block.
        Frame* const frame = m_frame;
        for (; first != last; ++first) {
            const Stmt* s = first->get();
            frame->node = nullptr;
            frame->stmt = s;
            tick();
            try {
                const Flow f = s->run(*this, s);
                if (f != Flow::Normal)
                    return f;
            } catch (...) {
                statementFailed(s);
            }
        }
        return Flow::Normal;
    }
    Flow exec(const Stmt* s);
    friend Flow execGeneral(Engine& engine, const Stmt* s);
    [[gnu::noinline]] void statementFailed(const Stmt* s);
    enum class Cond : uint8_t { False, True, Failed };
    template <class Fn>
    bool runHead(Fn&& fn);
    Cond headCondition(const Expr* e);
    Flow runOnce(const Block& body);
    Flow execIf(const IfStmt* s);
    Flow execFor(const ForStmt* s);
    Flow execIntegerFor(const ForStmt* s, const Value& from, const Value& to, const Value& step);
    Flow execForEach(const ForEachStmt* s);
    Flow execDo(const DoStmt* s);
    Flow execSelect(const SelectStmt* s);
    Flow execWith(const WithStmt* s);
    void execAssign(const AssignStmt* s);
    [[gnu::noinline]] void appendToTarget(const AssignStmt* s);
    void execMidAssign(const AssignStmt* s);
    // The array held by a plain local or global variable, or nullptr.
    Value* plainArray(const Expr* e)
    {
        if (e->kind == ExprKind::Local) {
            Value* v = &m_frame->vars[static_cast<const NameExpr*>(e)->slot];
            return v->isArray() ? v : nullptr;
        }
        if (e->kind == ExprKind::Global) {
            GlobalSlot& g = global(static_cast<const NameExpr*>(e)->slot);
            return g.kind == GlobalSlot::Kind::Variable && g.value.isArray() ? &g.value : nullptr;
        }
        return nullptr;
    }
    // A one-dimensional array held by a plain local or global variable, or nullptr.
    Value* plainVector(const Expr* e)
    {
        Value* v = plainArray(e);
        return v && v->array()->counts.size() == 1 ? v : nullptr;
    }
    // a(i) and a(i) = value where plainVector(a) holds before i is evaluated (InterpreterFast.cpp).
    Value vectorItem(const CallExpr* c);
    void assignVectorItem(const CallExpr* c, const Expr* valueExpr);
    Value readItem(const CallExpr* c);
    void writeItem(const CallExpr* c, const Expr* valueExpr);
    int32_t subscript(const Expr* ie);
    void execDim(const DimStmt* s);
    void execErase(const EraseStmt* s);
    void locate(ScriptError& e, int line, int column, const Stmt* stmt = nullptr);
    void noteError(const ScriptError& e);

    // Expressions.
    Value eval(const Expr* e) { return e->evaluate(*this, e); }
    friend Value evalGeneral(Engine& engine, const Expr* e);
    Value evalNode(const Expr* e);
    Value evalBinary(const BinaryExpr* e);
    // A local variable, parameter or literal, read in place; nullptr for anything else.
    const Value* leafValue(const Expr* e) const
    {
        if (e->kind == ExprKind::Local)
            return &m_frame->vars[static_cast<const NameExpr*>(e)->slot];
        if (e->kind == ExprKind::RefParam)
            return m_frame->refs[static_cast<const NameExpr*>(e)->slot];
        if (e->kind == ExprKind::Literal)
            return &static_cast<const LiteralExpr*>(e)->value;
        return nullptr;
    }
    bool evalCondition(const Expr* e);
    bool condition(const Expr* e); // evalCondition, inline in InterpreterFast.cpp
    // A local, parameter or literal, or a(i) for a local a holding a one-dimensional array and i
    // an Integer or Long local or literal, read in place (raising only what a(i) raises for a
    // subscript out of range); nullptr for anything else. Nothing runs, so the expression can
    // still be evaluated when it gives nullptr.
    const Value* peek(const Expr* e);
    const Value* peekInline(const Expr* e); // peek, inline in InterpreterFast.cpp
    Value evalName(const NameExpr* e);
    Value evalCall(const CallExpr* e, bool statement);
    [[gnu::noinline]] Value callOther(const CallExpr* c, bool statement);
    Value evalMember(const MemberExpr* e, std::span<Value*> args, bool statement);
    Value evalNew(const NewExpr* e);
    Value callGlobal(GlobalSlot& g, const CallExpr* call, bool statement);
    Value callBuiltin(const BuiltinDef* def, std::span<Value*> args);
    Value callMeMember(int member, std::span<Value*> args, bool statement);
    // The id of a member of d as the running code sees it; 438 naming it when there is none.
    // method (when given): the Sub or Function it names on a script class instance of this
    // engine, else nullptr.
    int visibleMemberId(Dispatch* d, const MemberExpr* e, Procedure** method = nullptr);
    [[gnu::noinline]] int lookUpMember(Dispatch* d, const MemberExpr* e, Procedure** method, bool own,
        const void* table);
    Dispatch* memberObject(const Value& obj, const MemberExpr* e);
    enum class RefMode { Arg, Write };
    Value* variableRef(const Expr* e, RefMode mode); // nullptr when e is not a plain variable
    Value* implicitLocal(const NameExpr* n);
    void assignTo(const Expr* target, Value value, bool isSet);
    static bool letsThroughDefault(const Value& var);
    Value& withObject(const WithExpr* e);

    struct ArgList;
    Value* elementArg(const CallExpr* c, ArgList& out);
    void evalArgs(const std::vector<ExprPtr>& args, const Expr* owner, ArgList& out);

    ScriptControl& m_control;
    Host* m_host;
    RandomState m_random;
    Ref<ErrObject> m_err;
    Ref<Dispatch> m_globalScope; // Me outside classes
    const Locale* m_locale = &englishUs();
    GlobalTable m_globals;
    std::unordered_map<String, int> m_globalIndex;
    std::vector<const BuiltinDef*> m_builtins; // re-registered after reset
    std::vector<std::pair<String, Value>> m_constants;
    std::vector<std::pair<String, Ref<Dispatch> (*)()>> m_nativeClasses;
    std::vector<Ref<Dispatch>> m_memberObjects;
    std::vector<std::shared_ptr<Program>> m_programs;
    std::vector<String> m_chunkSources;
    std::vector<std::vector<int>> m_chunkContinued; // per chunk: lines continuing a " _" line

    ValueStack m_stack;
    size_t m_sp = 0;
    std::unique_ptr<Value*[]> m_refStack;
    size_t m_rsp = 0;
    Frame* m_frame = nullptr;
    Frame m_globalFrame;
    int m_depth = 0;
    uint64_t m_generation = 1; // counts resets, for the member ids remembered in the syntax tree
    uint64_t m_steps = 0;
    uint64_t m_stepLimit = 0;
    const std::atomic<bool>* m_interrupt = nullptr;
    bool m_watched = false; // a statement limit or an interrupt flag is set
    uintptr_t m_stackBase = 0;    // native stack at the outermost entry
    size_t m_stackBudget = 0;     // bytes of native stack the engine may use
    int m_entryDepth = 0;

public:
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
};

} // namespace vbs
