// Calls members of a Dispatch object by name, as the engine would, for the object tests.
#pragma once

#include "vbscript/Object.h"
#include "vbscript/Value.h"

#include <gtest/gtest.h>
#include <vector>

namespace vbstest {

inline vbs::Value invoke(vbs::Dispatch& object, std::u16string_view name,
                         std::vector<vbs::Value> args = {},
                         vbs::InvokeKind kind = vbs::InvokeKind::Method) {
    const int id = object.memberId(name);
    if (id < 0) throw vbs::ScriptError(vbs::ErrorCode::NoSuchMember);
    std::vector<vbs::Value*> pointers;
    for (vbs::Value& v : args)
        pointers.push_back(&v);
    return object.invoke(id, kind, pointers);
}

inline vbs::Value get(vbs::Dispatch& object, std::u16string_view name,
                      std::vector<vbs::Value> args = {}) {
    return invoke(object, name, std::move(args), vbs::InvokeKind::PropertyGet);
}

inline void let(vbs::Dispatch& object, std::u16string_view name, std::vector<vbs::Value> args) {
    invoke(object, name, std::move(args), vbs::InvokeKind::PropertyLet);
}

// Holds a reference, so that an object returned by a call stays alive while a test uses it.
inline vbs::Ref<vbs::Dispatch> dispatchOf(const vbs::Value& v) {
    return vbs::Ref<vbs::Dispatch>(v.toDispatch());
}

using DispatchRef = vbs::Ref<vbs::Dispatch>;
inline vbs::Value invoke(const DispatchRef& o, std::u16string_view name,
                         std::vector<vbs::Value> args = {},
                         vbs::InvokeKind kind = vbs::InvokeKind::Method) {
    return invoke(*o, name, std::move(args), kind);
}
inline vbs::Value get(const DispatchRef& o, std::u16string_view name,
                      std::vector<vbs::Value> args = {}) {
    return get(*o, name, std::move(args));
}
inline void let(const DispatchRef& o, std::u16string_view name, std::vector<vbs::Value> args) {
    let(*o, name, std::move(args));
}

// The error number a call raises, 0 when it succeeds.
template <class F> int errorOf(F f) {
    try {
        f();
    } catch (const vbs::ScriptError& e) {
        return e.number;
    }
    return 0;
}

inline std::vector<vbs::Value> each(const vbs::Ref<vbs::Dispatch>& object) {
    std::vector<vbs::Value> items;
    EXPECT_TRUE(object->enumerate(items));
    return items;
}

} // namespace vbstest
