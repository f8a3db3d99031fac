// CreateObject and the creatable classes: VBScript.RegExp, Scripting.Dictionary and
// Scripting.FileSystemObject; any other ProgID is 429.
#include "DictionaryObject.h"
#include "Families.h"
#include "FileObjects.h"
#include "LibSupport.h"
#include "RegExpObject.h"

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

// `New RegExp` works because the language knows RegExp as a creatable class.
const NativeClassDef kClasses[] = {
    {u"RegExp", createRegExp},
};

} // namespace

void registerObjectFactory(ScriptControl& control) {
    control.registerBuiltins(kObjectFunctions);
    control.registerClasses(kClasses);
}

} // namespace vbs::lib
