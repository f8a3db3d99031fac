// Inspection builtins: Array, UBound, LBound, Is*, TypeName, VarType, RGB, ScriptEngine*.
#include "Families.h"
#include "LibSupport.h"

namespace vbs::lib {

namespace {

Value fnArray(CallContext&, Args a) {
    std::vector<Value> items;
    items.reserve(a.size());
    for (Value* v : a)
        items.push_back(v->isMissing() ? Value() : *v);
    return Value::makeArray(std::move(items));
}

// The bound of dimension n (1-based, default 1): 13 for a non-array, 9 for a bad dimension.
const ArrayRep& dimension(Args a, size_t& index) {
    if (!a[0]->isArray()) raise(ErrorCode::TypeMismatch);
    const ArrayRep& rep = *a[0]->array();
    const long dim = longArg(a, 1, 1);
    if (dim < 1 || size_t(dim) > rep.counts.size()) raise(ErrorCode::SubscriptOutOfRange);
    index = size_t(dim - 1);
    return rep;
}

Value fnUBound(CallContext&, Args a) {
    size_t index = 0;
    const ArrayRep& rep = dimension(a, index);
    return Value(int32_t(rep.counts[index] - 1));
}

Value fnLBound(CallContext&, Args a) {
    size_t index = 0;
    dimension(a, index);
    return Value(int32_t(0));
}

Value fnIsArray(CallContext&, Args a) {
    return Value(a[0]->isArray());
}
Value fnIsEmpty(CallContext&, Args a) {
    return Value(a[0]->isEmpty());
}
Value fnIsNull(CallContext&, Args a) {
    return Value(a[0]->isNull());
}
Value fnIsObject(CallContext&, Args a) {
    return Value(a[0]->isObject());
}

// Numbers, Empty and Booleans are numeric; strings when they read as a number (" 12 ",
// "&H1F", "1e3"); dates, Null, arrays and objects without a numeric default are not.
Value fnIsNumeric(CallContext&, Args a) {
    Value v = *a[0];
    if (v.isObject()) {
        if (!v.object()) return Value(false);
        try {
            v = plain(v);
        } catch (const ScriptError&) {
            return Value(false); // no default property
        }
    }
    if (v.isString()) {
        double d = 0;
        return Value(Value::parseNumber(v.str(), d));
    }
    return Value(v.isNumeric());
}

Value fnTypeName(CallContext&, Args a) {
    return Value(a[0]->typeName());
}
Value fnVarType(CallContext&, Args a) {
    return Value(int16_t(a[0]->type()));
}

// Components above 255 count as 255; negative ones are an invalid call.
Value fnRGB(CallContext&, Args a) {
    int32_t rgb = 0;
    for (int i = 2; i >= 0; --i) {
        const int32_t c = a[size_t(i)]->toLong();
        if (c < 0) invalidCall();
        rgb = rgb * 256 + (c > 255 ? 255 : c);
    }
    return Value(rgb);
}

Value fnScriptEngine(CallContext&, Args) {
    return Value(u"VBScript");
}
Value fnScriptEngineMajorVersion(CallContext&, Args) {
    return Value(int32_t(5));
}
Value fnScriptEngineMinorVersion(CallContext&, Args) {
    return Value(int32_t(8));
}
Value fnScriptEngineBuildVersion(CallContext&, Args) {
    return Value(int32_t(16384));
}

const BuiltinDef kInspectionFunctions[] = {
    {u"Array", 0, -1, fnArray},
    {u"UBound", 1, 2, fnUBound},
    {u"LBound", 1, 2, fnLBound},
    {u"IsArray", 1, 1, fnIsArray},
    {u"IsEmpty", 1, 1, fnIsEmpty},
    {u"IsNull", 1, 1, fnIsNull},
    {u"IsNumeric", 1, 1, fnIsNumeric},
    {u"IsObject", 1, 1, fnIsObject},
    {u"TypeName", 1, 1, fnTypeName},
    {u"VarType", 1, 1, fnVarType},
    {u"RGB", 3, 3, fnRGB},
    {u"ScriptEngine", 0, 0, fnScriptEngine},
    {u"ScriptEngineMajorVersion", 0, 0, fnScriptEngineMajorVersion},
    {u"ScriptEngineMinorVersion", 0, 0, fnScriptEngineMinorVersion},
    {u"ScriptEngineBuildVersion", 0, 0, fnScriptEngineBuildVersion},
};

} // namespace

void registerInspectionFunctions(ScriptControl& control) {
    control.registerBuiltins(kInspectionFunctions);
}

} // namespace vbs::lib
