// Shared argument handling of the library's builtins, and a table-driven Dispatch base.
#pragma once

#include "StringAlgo.h"
#include "vbscript/Builtins.h"
#include "vbscript/Object.h"
#include "vbscript/Value.h"

#include <span>
#include <string_view>
#include <vector>

namespace vbs::lib {

using Args = std::span<Value*>;

// An argument that was written (not omitted, not left empty between commas).
inline bool given(Args args, size_t i) {
    return i < args.size() && !args[i]->isMissing();
}

[[noreturn]] inline void invalidCall() {
    raise(ErrorCode::InvalidProcedureCall);
}

// The value itself, or an object's default property value, for functions that read data.
Value plain(const Value& v);
bool isNullArg(const Value& v);

// vbBinaryCompare (0) unless given; 5 for anything but 0 and 1.
Compare compareArg(Args args, size_t i, Compare fallback = Compare::Binary);
// A whole-number argument with a default when omitted.
long longArg(Args args, size_t i, long fallback);
bool boolArg(Args args, size_t i, bool fallback);
String stringArg(Args args, size_t i, const String& fallback);

// A one-dimensional array's items (13 Type mismatch otherwise).
const std::vector<Value>& arrayItems(const Value& v);
Value stringArray(const std::vector<String>& items);

// Wraps a whole number as VBScript's smallest fitting subtype for results of Long range.
Value longValue(long long n);

// inner(args) for a one-dimensional array: 9 Subscript out of range outside its bounds.
Value indexArray(const Value& array, Args args);

// A Dispatch whose members come from one static table (name, argument counts, handlers).
// Derived classes provide `static std::span<const Member<Derived>> members()`.
template <class T> struct Member {
    std::u16string_view name;
    int minArgs;
    int maxArgs;
    Value (T::*get)(Args args);                    // method or property get; null = write-only
    void (T::*let)(Args args, const Value& value); // property let/set; null = read-only
};

template <class T> class TableDispatch : public Dispatch {
public:
    int memberId(std::u16string_view name) const override {
        const auto table = T::members();
        for (size_t i = 0; i < table.size(); ++i)
            if (equalsNoCase(table[i].name, name)) return int(i);
        return -1;
    }
    const void* memberTable() const override { return T::members().data(); }

    Value invoke(int id, InvokeKind kind, Args args) override {
        const auto table = T::members();
        if (id < 0 || size_t(id) >= table.size()) raise(ErrorCode::NoSuchMember);
        const Member<T>& m = table[size_t(id)];
        T& self = static_cast<T&>(*this);
        if (kind == InvokeKind::PropertyLet || kind == InvokeKind::PropertySet) {
            const int indexCount = int(args.size()) - 1;
            if (!m.let || indexCount < 0 || indexCount < m.minArgs || indexCount > m.maxArgs)
                raise(ErrorCode::WrongArgumentCount);
            (self.*m.let)(args.first(args.size() - 1), *args.back());
            return Value();
        }
        if (!m.get) raise(ErrorCode::WrongArgumentCount);
        const int count = int(args.size());
        if (count > m.maxArgs && m.maxArgs == 0) {
            // obj.Collection(i) and obj.Keys(i): the index goes to the returned object's default
            // member, or into the returned array.
            Value inner = (self.*m.get)(Args{});
            if (inner.isArray()) return indexArray(inner, args);
            Dispatch* d =
                inner.isObject() && inner.object() ? inner.object()->asDispatch() : nullptr;
            if (!d || d->defaultMemberId() < 0) raise(ErrorCode::WrongArgumentCount);
            return d->invoke(d->defaultMemberId(), InvokeKind::PropertyGet, args);
        }
        if (count < m.minArgs || count > m.maxArgs) raise(ErrorCode::WrongArgumentCount);
        return (self.*m.get)(args);
    }
};

} // namespace vbs::lib
