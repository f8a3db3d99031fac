// Objects as scripts see them: reference-counted, and the Dispatch interface host objects implement.
#pragma once

#include "Text.h"

#include <cstdint>
#include <span>
#include <utility>
#include <vector>

namespace vbs {

class Value;
class Dispatch;

// Intrusively counted; a script releases its last reference and the object is deleted at once
// (Class_Terminate runs at that moment, as in VBScript).
class Object {
public:
    Object() = default;
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;
    virtual ~Object() = default;

    void addRef() noexcept { ++m_refs; }
    void release() noexcept
    {
        if (--m_refs == 0)
            destroy();
    }
    int32_t refCount() const noexcept { return m_refs; }

    // What TypeName returns for the object.
    virtual String typeName() const { return u"Object"; }
    virtual Dispatch* asDispatch() { return nullptr; }

protected:
    // Called when the last reference goes; script classes run Class_Terminate here.
    virtual void destroy() noexcept { delete this; }

private:
    int32_t m_refs = 0;
};

template <class T>
class Ref {
public:
    Ref() = default;
    Ref(std::nullptr_t) {}
    Ref(T* p) : m_p(p) { if (m_p) m_p->addRef(); }
    Ref(const Ref& o) : m_p(o.m_p) { if (m_p) m_p->addRef(); }
    Ref(Ref&& o) noexcept : m_p(std::exchange(o.m_p, nullptr)) {}
    template <class U>
    Ref(const Ref<U>& o) : m_p(o.get()) { if (m_p) m_p->addRef(); }
    ~Ref() { if (m_p) m_p->release(); }
    Ref& operator=(Ref o) noexcept { std::swap(m_p, o.m_p); return *this; }

    template <class... Args>
    static Ref make(Args&&... args) { return Ref(new T(std::forward<Args>(args)...)); }

    T* get() const { return m_p; }
    T* operator->() const { return m_p; }
    T& operator*() const { return *m_p; }
    explicit operator bool() const { return m_p != nullptr; }
    // Hands the reference over to the caller (for storage inside Value).
    T* detach() { return std::exchange(m_p, nullptr); }

private:
    T* m_p = nullptr;
};

template <class T, class... Args>
Ref<T> makeRef(Args&&... args)
{
    return Ref<T>::make(std::forward<Args>(args)...);
}

enum class InvokeKind { Method, PropertyGet, PropertyLet, PropertySet };

// The one interface through which scripts reach host objects (and script class instances).
class Dispatch : public Object {
public:
    Dispatch* asDispatch() override { return this; }

    // Case-insensitive; -1 when there is no such member (the engine then raises 438).
    virtual int memberId(std::u16string_view name) const = 0;
    // Arguments by reference in script order; for PropertyLet/PropertySet the assigned value is
    // the last element. Throws ScriptError (450 for a wrong argument count or kind, ...).
    virtual Value invoke(int memberId, InvokeKind kind, std::span<Value*> args) = 0;
    // The default member (obj(args), obj used as a value), -1 when there is none.
    virtual int defaultMemberId() const { return -1; }
    // Objects whose memberId answers depend only on what this returns (their class's member
    // table) may return it, so that the engine remembers a member's id where the script names
    // it; the table must outlive every such object. nullptr (the default): look the name up
    // every time.
    virtual const void* memberTable() const { return nullptr; }
    // For Each support: fill out with the items and return true; false means
    // "Object not a collection".
    virtual bool enumerate(std::vector<Value>& out);
};

} // namespace vbs
