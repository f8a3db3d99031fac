// The script control: language, named objects, added code, running procedures, the last error.
#pragma once

#include "Builtins.h"
#include "Host.h"
#include "Value.h"

#include <atomic>
#include <memory>
#include <span>
#include <vector>

namespace vbs {

struct ErrorInfo {
    int32_t number = 0;
    String description;
    String source;     // "Microsoft VBScript runtime error", "... compilation error" or the raiser's
    String text;       // the source line of the error
    int line = 0;      // 1-based within the added code that holds the failing statement
    int column = 0;    // 1-based
    bool compileTime = false; // raised while compiling (also 28 for nesting too deep)
};

class ScriptControl {
public:
    ScriptControl();
    ~ScriptControl();
    ScriptControl(const ScriptControl&) = delete;
    ScriptControl& operator=(const ScriptControl&) = delete;

    // Only "VBScript" (any case) is accepted; returns false otherwise.
    bool setLanguage(const String& language);
    const String& language() const;

    // A named object: scripts reach it by name. With addMembers its members are also
    // reachable without the object's name.
    void addObject(const String& name, Ref<Dispatch> object, bool addMembers = false);
    // Compiles the code and runs its top-level statements. False on a compile or run-time
    // error (see error()).
    bool addCode(std::u16string_view code);
    // Calls a Sub or Function by name; args are passed by value. result receives a Function's
    // value. False on error.
    bool run(std::u16string_view procName, std::vector<Value> args, Value* result = nullptr);
    // Compiles the code without running it (declarations do enter the global scope).
    // False with error() set on a compile error.
    bool checkSyntax(std::u16string_view code);
    // Evaluates one expression in the global scope.
    bool eval(std::u16string_view expression, Value* result);

    const ErrorInfo& error() const;
    void clearError();
    // Drops all code, variables and named objects; built-ins stay registered.
    void reset();

    void setHost(Host* host); // nullptr restores the default host
    // Stops any later run after this many statements, loop turns and calls, with error 17
    // (0, the default: no limit). A guard for untrusted code.
    void setStatementLimit(uint64_t limit);
    // Stops a run at its next statement once *flag becomes true (set from any thread), again
    // with error 17; nullptr: never. The flag must outlive the runs it governs.
    void setInterruptFlag(const std::atomic<bool>* flag);
    Host& host() const;

    // Built-ins and constants live in the global scope beside the script's names.
    void registerBuiltins(std::span<const BuiltinDef> table);
    void registerConstants(std::span<const ConstantDef> table);
    void registerConstant(std::u16string_view name, Value value);
    // Classes for "New Name" implemented in C++; kept across reset() like built-ins.
    void registerClasses(std::span<const NativeClassDef> table);
    void registerClass(std::u16string_view name, Ref<Dispatch> (*create)());

    // The engine behind the control (for built-ins that need more than CallContext offers).
    Engine& engine() const { return *m_engine; }

private:
    template <class Fn>
    bool guarded(Fn&& fn);

    std::unique_ptr<Engine> m_engine;
    String m_language = u"VBScript";
    ErrorInfo m_error;
};

} // namespace vbs
