// The engine's global scope, compilation and entry points.
#include "Engine.h"

#include "ClassInstance.h"
#include "Parser.h"
#include "Resolver.h"

#include <algorithm>
#include <pthread.h>

namespace vbs {

namespace {

constexpr size_t kValueStackSize = 1 << 17;   // locals of all active procedures
constexpr size_t kRefStackSize = 1 << 15;     // ByRef parameters of all active procedures
constexpr size_t kStackReserve = 384 * 1024;  // native stack kept free below the engine
constexpr size_t kBaseSlack = 4096;

// Native stack the engine may use from here on: what remains of this thread's stack minus a
// reserve for the host and for C++ exception handling.
size_t nativeStackBudget(char* here)
{
    pthread_attr_t attr;
    size_t budget = 4u << 20;
    if (pthread_getattr_np(pthread_self(), &attr) == 0) {
        void* addr = nullptr;
        size_t size = 0;
        if (pthread_attr_getstack(&attr, &addr, &size) == 0 && addr) {
            const size_t remaining = size_t(here - static_cast<char*>(addr));
            budget = remaining > kStackReserve * 2 ? remaining - kStackReserve : remaining / 2;
        }
        pthread_attr_destroy(&attr);
    }
    return budget;
}

} // namespace

void registerCoreBuiltins(Engine& engine);

ValueStack::ValueStack(size_t capacity)
    : m_items(static_cast<Value*>(::operator new(capacity * sizeof(Value)))), m_capacity(capacity)
{
}

ValueStack::~ValueStack()
{
    std::destroy_n(m_items, m_built);
    ::operator delete(m_items);
}

bool ValueStack::build(size_t n)
{
    if (n > m_capacity)
        return false;
    // A page's worth at least, so that a deepening recursion does not come here on every call.
    const size_t to = std::min(m_capacity, std::max(n, m_built + 256));
    std::uninitialized_value_construct(m_items + m_built, m_items + to);
    m_built = to;
    return true;
}

Engine::Engine(ScriptControl& control)
    : m_control(control), m_host(&defaultHost()), m_err(makeRef<ErrObject>()), m_stack(kValueStackSize)
{
    m_globalScope = makeRef<GlobalScope>(*this); // after m_alive, which it shares
    // Room past the end for the arguments a direct call binds before the depth is checked.
    m_refStack.reset(new Value*[kRefStackSize + CallExpr::kMaxDirectArgs]);
    registerCoreBuiltins(*this);
    reset();
}

Engine::~Engine()
{
    // Release script objects while the engine still runs their Class_Terminate.
    m_globals.forEachNewestFirst([](GlobalSlot& g) { g.value.clear(); });
    *m_alive = false;
    m_globals.clear();
}

int Engine::findGlobal(std::u16string_view name) const
{
    const auto it = m_globalIndex.find(foldCase(name));
    return it == m_globalIndex.end() ? -1 : it->second;
}

int Engine::globalSlot(std::u16string_view name)
{
    String key = foldCase(name);
    const auto it = m_globalIndex.find(key);
    if (it != m_globalIndex.end())
        return it->second;
    const int slot = int(m_globals.size());
    m_globals.emplace_back().name = String(name);
    m_globalIndex.emplace(std::move(key), slot);
    return slot;
}

void Engine::registerBuiltin(const BuiltinDef& def)
{
    m_builtins.push_back(&def);
    GlobalSlot& g = global(globalSlot(def.name));
    g.kind = GlobalSlot::Kind::Builtin;
    g.builtin = &def;
}

void Engine::registerConstant(std::u16string_view name, Value value)
{
    m_constants.emplace_back(String(name), value);
    GlobalSlot& g = global(globalSlot(name));
    g.kind = GlobalSlot::Kind::Const;
    g.value = std::move(value);
}

void Engine::registerNativeClass(std::u16string_view name, Ref<Dispatch> (*create)())
{
    m_nativeClasses.emplace_back(String(name), create);
    GlobalSlot& g = global(globalSlot(name));
    g.kind = GlobalSlot::Kind::NativeClass;
    g.create = create;
}

void Engine::addObject(const String& name, Ref<Dispatch> object, bool addMembers)
{
    if (addMembers)
        m_memberObjects.push_back(object);
    GlobalSlot& g = global(globalSlot(name));
    g.kind = GlobalSlot::Kind::Object;
    g.value = Value(object);
}

bool Engine::globalMember(const String& name, InvokeKind kind, std::span<Value*> args, Value& out)
{
    for (const auto& object : m_memberObjects) {
        const int id = object->memberId(name);
        if (id >= 0) {
            out = object->invoke(id, kind, args);
            return true;
        }
    }
    return false;
}

void Engine::setLocale(const Locale& locale)
{
    m_locale = &locale;
    LocaleScope::set(&locale);
}

const Locale& CallContext::locale() const
{
    return m_engine.locale();
}

void CallContext::setLocale(const Locale& locale) const
{
    m_engine.setLocale(locale);
}

void Engine::reset()
{
    ++m_generation;
    m_locale = &englishUs();
    m_globals.forEachNewestFirst([](GlobalSlot& g) { g.value.clear(); });
    m_globals.clear();
    m_globalIndex.clear();
    m_programs.clear();
    m_chunkSources.clear();
    m_chunkContinued.clear();
    m_memberObjects.clear();
    m_err->clear();
    const auto builtins = std::move(m_builtins);
    for (const BuiltinDef* b : builtins)
        registerBuiltin(*b);
    const auto constants = std::move(m_constants);
    for (const auto& [name, value] : constants)
        registerConstant(name, value);
    const auto classes = std::move(m_nativeClasses);
    for (const auto& [name, create] : classes)
        registerNativeClass(name, create);
    addObject(u"Err", m_err);
}

const String& Engine::chunkSource(int chunk) const
{
    static const String none;
    return chunk >= 0 && size_t(chunk) < m_chunkSources.size() ? m_chunkSources[size_t(chunk)] : none;
}

std::shared_ptr<Program> Engine::compile(std::u16string_view code, bool expression, Procedure* scope)
{
    auto program = std::make_shared<Program>();
    const bool stored = !expression && !scope;
    program->chunk = stored ? int(m_chunkSources.size()) : currentChunk();
    if (stored) {
        m_chunkSources.emplace_back(code);
        m_chunkContinued.emplace_back();
    }
    try {
        Parser parser(lex(code, stored ? &m_chunkContinued.back() : nullptr), *program);
        if (expression) {
            program->top = std::make_unique<Procedure>();
            program->top->kind = ProcKind::TopLevel;
            program->top->chunk = program->chunk;
            program->expression = parser.parseWholeExpression();
        } else {
            parser.parseAll();
        }
        if (scope)
            program->top->optionExplicit = scope->optionExplicit;
        resolveProgram(*program, *this, scope);
    } catch (ScriptError& e) {
        e.chunk = program->chunk;
        e.compileTime = true;
        throw;
    }
    // Programs that define procedures or classes stay here until reset(), so that a call never
    // outlives the code it runs even when ExecuteGlobal redefines its procedure meanwhile.
    if (!program->procedures.empty() || !program->classes.empty() || stored)
        m_programs.push_back(program);
    for (auto& p : program->procedures)
        global(findGlobal(p->name)).program = program;
    for (auto& c : program->classes)
        global(findGlobal(c->name)).program = program;
    return program;
}

void Engine::runTopLevel(const std::shared_ptr<Program>& program, bool inCallerFrame)
{
    if (inCallerFrame && m_frame) {
        growFrame(*m_frame);
        execBlock(program->top->body);
        return;
    }
    Frame frame;
    frame.proc = program->top.get();
    frame.chunk = program->chunk;
    FrameScope scope(*this, frame);
    execBlock(program->top->body);
}

// A Dim in code Execute'd inside a procedure adds locals to it; the running call gets the new
// slots too. Only the innermost call can grow: its slots end at the top of the stack.
void Engine::growFrame(Frame& frame)
{
    const size_t want = frame.proc ? size_t(frame.proc->localCount) : 0;
    if (want <= frame.size || !frame.vars)
        return;
    if (frame.vars + frame.size != m_stack.data() + m_sp)
        raise(ErrorCode::InternalError);
    const size_t extra = want - frame.size;
    if (m_sp + extra > m_stack.built() && !m_stack.build(m_sp + extra))
        raise(ErrorCode::OutOfStackSpace);
    m_sp += extra;
    frame.size = want;
}

namespace {

// 1-based column of the first non-blank character of a 1-based line of source.
int firstColumn(std::u16string_view source, int line)
{
    size_t pos = 0;
    for (int l = 1; l < line && pos < source.size(); ++pos) {
        // Line ends as the lexer counts them: "\r\n", "\n" or a lone "\r".
        if (source[pos] == u'\n' || (source[pos] == u'\r' && (pos + 1 >= source.size() || source[pos + 1] != u'\n')))
            ++l;
    }
    int column = 1;
    for (; pos < source.size() && (source[pos] == u' ' || source[pos] == u'\t'); ++pos)
        ++column;
    return column;
}

} // namespace

// Run-time errors name the line where the statement starts: an operation on a line continued
// with " _" is reported at the first line of the statement (stmt, when it starts later on that
// logical line, as after "x = 1 + _ / 2 : y = 1 / 0"), at its first character.
void Engine::locate(ScriptError& e, int line, int column, const Stmt* stmt)
{
    e.chunk = currentChunk();
    if (e.chunk >= 0 && size_t(e.chunk) < m_chunkContinued.size()) {
        const std::vector<int>& continued = m_chunkContinued[size_t(e.chunk)];
        const int first = line;
        auto it = std::lower_bound(continued.begin(), continued.end(), line);
        while (it != continued.end() && *it == line) {
            --line;
            it = it == continued.begin() ? continued.end() : it - 1;
        }
        if (stmt && line < stmt->line && first >= stmt->line) {
            line = stmt->line;
            column = stmt->column;
        } else if (line != first) {
            column = firstColumn(m_chunkSources[size_t(e.chunk)], line);
        }
    }
    e.line = line;
    e.column = column;
}


namespace {
thread_local Engine* t_running = nullptr;
} // namespace

Engine* Engine::running()
{
    return t_running;
}

Engine::Entry::~Entry()
{
    --m_engine.m_entryDepth;
    t_running = m_outer;
}

bool Engine::locateRunning(ScriptError& e)
{
    if (!m_frame || !m_frame->stmt)
        return false;
    // As the statement loop places an error that leaves the running operation.
    const Stmt* s = m_frame->stmt;
    const Expr* n = m_frame->node;
    if (n && n->line >= s->line)
        locate(e, n->line, n->column, s);
    else
        locate(e, s->line, s->column);
    return true;
}

bool locateAtRunningStatement(ScriptError& e)
{
    Engine* engine = Engine::running();
    return engine && engine->locateRunning(e);
}

Engine::Entry::Entry(Engine& e) : m_engine(e), m_outer(t_running), m_locale(e.m_locale)
{
    t_running = &e;
    if (e.m_entryDepth++ == 0) {
        e.m_steps = 0;
        char here;
        // The base sits a little above this frame: the first checks run in frames of callers
        // that may lie above it (this constructor's own frame can be the deeper one), and a
        // probe above the base would read as a huge depth.
        e.m_stackBase = reinterpret_cast<uintptr_t>(&here) + kBaseSlack;
        e.m_stackBudget = nativeStackBudget(&here);
    }
}

void Engine::addCode(std::u16string_view code)
{
    Entry entry(*this);
    auto program = compile(code, false, nullptr);
    runTopLevel(program, false);
}

void Engine::checkSyntax(std::u16string_view code)
{
    compile(code, false, nullptr);
}

Value Engine::run(std::u16string_view procName, std::vector<Value>& args)
{
    Entry entry(*this);
    const int slot = findGlobal(procName);
    if (slot < 0 || global(slot).kind != GlobalSlot::Kind::Procedure)
        throw ScriptError(int32_t(ErrorCode::ProcedureNotDefined),
            errorMessage(ErrorCode::ProcedureNotDefined) + u": '" + String(procName) + u"'");
    std::vector<Value*> ptrs;
    for (auto& a : args)
        ptrs.push_back(&a);
    std::shared_ptr<Program> keep = global(slot).program;
    Frame frame;
    frame.proc = global(slot).proc;
    frame.chunk = frame.proc->chunk;
    FrameScope scope(*this, frame);
    return callProcedure(global(slot).proc, nullptr, ptrs);
}

Value Engine::evalText(std::u16string_view expression)
{
    Entry entry(*this);
    auto program = compile(expression, true, nullptr);
    Frame frame;
    frame.proc = program->top.get();
    FrameScope scope(*this, frame);
    return eval(program->expression.get());
}

namespace {

// Code run by Execute/Eval reports its errors at the statement that ran it.
void unlocate(ScriptError& e)
{
    e.line = 0;
    e.column = 0;
    e.chunk = -1;
}

} // namespace

// Execute'd code that executes itself nests without a procedure call; it counts as one, so that
// it ends in "Out of stack space" like any other runaway recursion. Code run in the caller's frame
// leaves that frame's current node pointing into its own syntax tree, which is freed on return:
// the caller's node is put back.
struct Engine::NestedCode {
    Engine& engine;
    const Expr* callerNode;
    explicit NestedCode(Engine& e) : engine(e), callerNode(e.m_frame ? e.m_frame->node : nullptr)
    {
        engine.checkStack();
        ++engine.m_depth;
    }
    ~NestedCode()
    {
        --engine.m_depth;
        if (engine.m_frame)
            engine.m_frame->node = callerNode;
    }
};

void Engine::executeStatements(std::u16string_view code, bool globalScope)
{
    Procedure* scope = nullptr;
    if (!globalScope && m_frame && m_frame->proc && m_frame->proc->kind != ProcKind::TopLevel)
        scope = m_frame->proc;
    try {
        NestedCode nested(*this);
        auto program = compile(code, false, scope);
        runTopLevel(program, scope != nullptr);
    } catch (ScriptError& e) {
        unlocate(e);
        throw;
    }
}

Value Engine::evaluate(std::u16string_view expression)
{
    Procedure* scope = nullptr;
    if (m_frame && m_frame->proc && m_frame->proc->kind != ProcKind::TopLevel)
        scope = m_frame->proc;
    try {
        NestedCode nested(*this);
        auto program = compile(expression, true, scope);
        if (scope)
            growFrame(*m_frame); // a Dim Execute'd by a deeper call of the same procedure
        return eval(program->expression.get());
    } catch (ScriptError& e) {
        unlocate(e);
        throw;
    }
}

} // namespace vbs
