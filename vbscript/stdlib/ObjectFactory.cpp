// CreateObject and the creatable classes: VBScript.RegExp, Scripting.Dictionary and
// Scripting.FileSystemObject; any other ProgID is 429.
#include "DictionaryObject.h"
#include "Families.h"
#include "FileObjects.h"
#include "LibSupport.h"
#include "RegExpObject.h"

#include <type_traits>

namespace vbs::lib {

namespace {

struct ProgId {
    std::u16string_view name;
    Ref<Dispatch> (*create)();
};

const ProgId kProgIds[] = {
    {u"VBScript.RegExp", createRegExp},
    {u"Scripting.Dictionary", createDictionary},
    {u"Scripting.FileSystemObject", createFileSystemObject},
};

Value fnCreateObject(CallContext&, Args a) {
    const String progId = a[0]->toString();
    for (const ProgId& p : kProgIds)
        if (equalsNoCase(p.name, progId)) return Value(p.create());
    raise(ErrorCode::CantCreateObject);
}

// No running objects exist to attach to.
Value fnGetObject(CallContext&, Args) {
    raise(ErrorCode::CantCreateObject);
}

const BuiltinDef kObjectFunctions[] = {
    {u"CreateObject", 1, 2, fnCreateObject},
    {u"GetObject", 0, 2, fnGetObject},
};

// The element type of the table a registerClasses(std::span<const T>) member takes.
template <class F> struct TableElement;
template <class C, class T> struct TableElement<void (C::*)(std::span<const T>)> {
    using type = T;
};

// `New RegExp` needs the language to know the class; the core takes creatable classes either as
// a table of {name, factory} or one at a time. Without such a hook only CreateObject works.
template <class Control> void registerCreatableClasses(Control& control) {
    if constexpr (requires { &Control::registerClasses; }) {
        using Def = typename TableElement<decltype(&Control::registerClasses)>::type;
        static const Def classes[] = {{u"RegExp", createRegExp}};
        control.registerClasses(classes);
    } else if constexpr (requires(Control & c) { c.registerClass(u"RegExp", createRegExp); }) {
        control.registerClass(u"RegExp", createRegExp);
    }
}

} // namespace

void registerObjectFactory(ScriptControl& control) {
    control.registerBuiltins(kObjectFunctions);
    registerCreatableClasses(control);
}

} // namespace vbs::lib
