// Conversion builtins: CBool, CByte, CCur, CDate, CDbl, CInt, CLng, CSng, CStr, Hex, Oct.
#include "Families.h"
#include "LibSupport.h"
#include "NumberText.h"

namespace vbs::lib {

namespace {

// The conversions themselves are the Value's (banker's rounding, 6 Overflow, 13 Type mismatch,
// 94 Invalid use of Null); these builtins only pick the subtype.
Value fnCBool(CallContext&, Args a) {
    return Value(a[0]->toBoolean());
}
Value fnCByte(CallContext&, Args a) {
    return Value::fromByte(a[0]->toByte());
}
Value fnCCur(CallContext&, Args a) {
    return Value::fromCurrency(int64_t(a[0]->toCurrency()));
}
Value fnCDate(CallContext&, Args a) {
    return Value::fromDate(a[0]->toDate());
}
Value fnCDbl(CallContext&, Args a) {
    return Value(a[0]->toDouble());
}
Value fnCInt(CallContext&, Args a) {
    return Value(a[0]->toInteger());
}
Value fnCLng(CallContext&, Args a) {
    return Value(a[0]->toLong());
}
Value fnCSng(CallContext&, Args a) {
    return Value(a[0]->toSingle());
}
Value fnCStr(CallContext&, Args a) {
    return Value(a[0]->toString());
}

// Negative Integers show 16 bits, everything else is taken as a Long and shows 32.
Value radix(const Value& arg, bool hex) {
    const Value v = plain(arg);
    if (v.isNull()) return Value::null();
    const VarType t = v.type();
    const bool integerWidth =
        t == VarType::Integer || t == VarType::Byte || t == VarType::Boolean || t == VarType::Empty;
    const int32_t n = v.toLong();
    return Value(hex ? hexString(n, integerWidth) : octString(n, integerWidth));
}

Value fnHex(CallContext&, Args a) {
    return radix(*a[0], true);
}
Value fnOct(CallContext&, Args a) {
    return radix(*a[0], false);
}

const BuiltinDef kConversionFunctions[] = {
    {u"CBool", 1, 1, fnCBool}, {u"CByte", 1, 1, fnCByte}, {u"CCur", 1, 1, fnCCur},
    {u"CDate", 1, 1, fnCDate}, {u"CDbl", 1, 1, fnCDbl},   {u"CInt", 1, 1, fnCInt},
    {u"CLng", 1, 1, fnCLng},   {u"CSng", 1, 1, fnCSng},   {u"CStr", 1, 1, fnCStr},
    {u"Hex", 1, 1, fnHex},     {u"Oct", 1, 1, fnOct},
};

} // namespace

void registerConversionFunctions(ScriptControl& control) {
    control.registerBuiltins(kConversionFunctions);
}

} // namespace vbs::lib
