// Objects the engine itself makes: script class instances, the Err object, GetRef references.
#pragma once

#include "Ast.h"

#include <memory>

namespace vbs {

class Engine;

class ClassInstance : public Dispatch {
public:
    ClassInstance(Engine& engine, ClassDef* cls, std::shared_ptr<Program> program);
    String typeName() const override { return m_cls->name; }
    int memberId(std::u16string_view name) const override; // public members only
    Value invoke(int memberId, InvokeKind kind, std::span<Value*> args) override;
    int defaultMemberId() const override { return m_cls->defaultMember; }
    const void* memberTable() const override { return m_cls; }
    ClassDef* classDef() const { return m_cls; }
    bool ownedBy(const Engine& engine) const { return &m_engine == &engine; }
    // Any member, public or private (code inside the class).
    int anyMemberId(std::u16string_view name) const;

    std::vector<Value> fields;

protected:
    void destroy() noexcept override;

private:
    Engine& m_engine;
    std::shared_ptr<bool> m_engineAlive;
    ClassDef* m_cls;
    std::shared_ptr<Program> m_program;
    bool m_terminated = false;
};

// The Err object: the last error seen under On Error Resume Next, and Err.Raise.
class ErrObject : public Dispatch {
public:
    String typeName() const override { return u"ErrObject"; }
    int memberId(std::u16string_view name) const override;
    Value invoke(int memberId, InvokeKind kind, std::span<Value*> args) override;
    int defaultMemberId() const override { return 0; }
    void clear();
    void set(const ScriptError& e);
    [[noreturn]] void raiseFrom(std::span<Value*> args);

    int32_t number = 0;
    String description;
    String source;
    String helpFile;
    int32_t helpContext = 0;
};

// GetRef("name"): calling the object's default member calls the procedure.
class ProcedureRef : public Dispatch {
public:
    ProcedureRef(Engine& engine, Procedure* proc, std::shared_ptr<Program> program);
    String typeName() const override { return u"Object"; }
    int memberId(std::u16string_view) const override { return -1; }
    Value invoke(int memberId, InvokeKind kind, std::span<Value*> args) override;
    int defaultMemberId() const override { return 0; }

private:
    Engine& m_engine;
    std::shared_ptr<bool> m_engineAlive;
    Procedure* m_proc;
    std::shared_ptr<Program> m_program;
};

// Me outside a class: the script's global scope, whose members are its global variables,
// procedures and functions.
class GlobalScope : public Dispatch {
public:
    explicit GlobalScope(Engine& engine);
    int memberId(std::u16string_view name) const override;
    Value invoke(int memberId, InvokeKind kind, std::span<Value*> args) override;

private:
    Engine& m_engine;
    std::shared_ptr<bool> m_engineAlive;
};

String defaultErrorSource(int32_t number, bool compileTime = false);

// Whether the engine made the object (a script class instance, Err, a GetRef reference) rather
// than a host or library.
bool isEngineObject(const Object* object);

} // namespace vbs
