// Conversions between script values and the imaging control's arguments, and error mapping.
#include "effects/FxConvert.h"

#include <cmath>

#include "vbscript/Text.h"

namespace fx {

using vbs::VarType;

imaging::Arg toControlArg(char code, const vbs::Value& v) {
    switch (code) {
    case 'i':
        return int32_t(v.toInteger());
    case 'l':
    case 'c':
        return v.toLong();
    case 'f':
        return double(v.toSingle());
    case 'd':
        return v.toDouble();
    case 'b':
        return bool(v.toBoolean());
    case 's':
        return vbs::toUtf8(v.toString());
    default:
        break;
    }
    // An optional argument keeps its own type; the control converts and applies defaults.
    if (v.isMissing() || v.isNull()) return imaging::Missing{};
    switch (v.type()) {
    case VarType::Empty:
        return int32_t(0);
    case VarType::Boolean:
        return bool(v.toBoolean());
    case VarType::Integer:
    case VarType::Long:
    case VarType::Byte:
        return v.toLong();
    case VarType::Single:
    case VarType::Double:
    case VarType::Currency:
    case VarType::Date:
        return v.toDouble();
    case VarType::String:
        return vbs::toUtf8(v.toString());
    default:
        vbs::raise(vbs::ErrorCode::TypeMismatch);
    }
}

int16_t toInteger16(double value) {
    double r = std::nearbyint(value);
    if (!(r >= -32768 && r <= 32767)) vbs::raise(vbs::ErrorCode::Overflow);
    return static_cast<int16_t>(r);
}

int32_t toLong32(double value) {
    double r = std::nearbyint(value);
    if (!(r >= -2147483648.0 && r <= 2147483647.0)) vbs::raise(vbs::ErrorCode::Overflow);
    return static_cast<int32_t>(r);
}

vbs::Value toScriptValue(char code, const imaging::Arg& value) {
    double number = 0;
    if (auto* i = std::get_if<int32_t>(&value))
        number = *i;
    else if (auto* d = std::get_if<double>(&value))
        number = *d;
    else if (auto* b = std::get_if<bool>(&value))
        number = *b ? -1 : 0;
    switch (code) {
    case 'i':
        return vbs::Value(toInteger16(number));
    case 'l':
        return vbs::Value(static_cast<int32_t>(number));
    case 'b':
        return vbs::Value(number != 0);
    case 's': {
        auto* s = std::get_if<std::string>(&value);
        return vbs::Value(vbs::fromUtf8(s ? *s : std::string()));
    }
    default:
        return vbs::Value(number);
    }
}

void raiseFromImaging(const imaging::ImagingError& error, std::u16string_view member) {
    vbs::String source = u"fx.";
    source += member;
    throw vbs::ScriptError(error.number(), vbs::fromUtf8(error.what()), source);
}

} // namespace fx
