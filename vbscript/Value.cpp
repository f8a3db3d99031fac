// Value construction, arrays and the conversions between subtypes.
#include "Value.h"

#include <sys/mman.h>

#include <cmath>
#include <limits>

namespace vbs {

Value::Value(String s) : m_type(VarType::String)
{
    m_u.s = new StringRep{1, std::move(s)};
}

Value Value::fromCurrency(double value)
{
    const double scaled = std::nearbyint(value * 10000.0);
    if (!(scaled >= -9.2233720368547758e18 && scaled < 9.2233720368547758e18))
        raise(ErrorCode::Overflow);
    return fromCurrency(int64_t(scaled));
}

// Room for n items. A big array asks for huge pages: filling it then takes a few page faults
// rather than one per 4 KiB, and a sieve over it misses the TLB less.
static void reserveItems(std::vector<Value>& items, size_t n)
{
    constexpr size_t kHuge = size_t(2) << 20;
    if (n * sizeof(Value) < 2 * kHuge)
        return;
    items.reserve(n);
    const auto begin = reinterpret_cast<uintptr_t>(items.data());
    const uintptr_t from = (begin + kHuge - 1) & ~(kHuge - 1);
    const uintptr_t to = (begin + n * sizeof(Value)) & ~(kHuge - 1);
    if (to > from)
        madvise(reinterpret_cast<void*>(from), to - from, MADV_HUGEPAGE);
}

Value Value::makeArray(std::vector<int32_t> counts)
{
    auto* rep = new ArrayRep;
    size_t total = counts.empty() ? 0 : 1; // "Dim a()": no dimensions yet
    for (int32_t c : counts) {
        if (c < 0 || (c > 0 && total > kMaxArrayItems / size_t(c))) {
            delete rep;
            raise(c < 0 ? ErrorCode::SubscriptOutOfRange : ErrorCode::OutOfMemory);
        }
        total *= size_t(c);
    }
    rep->length = counts.size() == 1 ? counts[0] : 0;
    rep->counts = std::move(counts);
    reserveItems(rep->items, total);
    rep->items.resize(total);
    return ValueAccess::fromArrayRep(rep);
}

Value Value::makeArray(std::vector<Value> items)
{
    auto* rep = new ArrayRep;
    rep->plain = false;
    rep->counts = {int32_t(items.size())};
    rep->length = rep->counts[0];
    rep->items = std::move(items);
    return ValueAccess::fromArrayRep(rep);
}

void Value::releaseArray() noexcept
{
    if (--m_u.a->refs == 0)
        delete m_u.a;
}

ArrayRep* ValueAccess::copyArray(Value& v)
{
    ArrayRep*& a = v.m_u.a;
    auto* copy = new ArrayRep{1, a->fixed, 0, a->plain, a->counts, a->items, a->length};
    --a->refs;
    a = copy;
    return a;
}

ArrayRep* Value::mutableArray()
{
    ArrayRep* rep = ValueAccess::unshareArray(*this);
    rep->plain = false;
    return rep;
}

void ValueAccess::appendString(Value& v, std::u16string_view text)
{
    if (v.m_type == VarType::String && v.m_u.s->text.size() + text.size() > kMaxStringLength)
        raise(ErrorCode::OutOfStringSpace);
    if (v.m_type == VarType::String && v.m_u.s->refs == 1) {
        v.m_u.s->text.append(text);
        return;
    }
    String joined = v.toString();
    joined.append(text);
    v = Value(std::move(joined));
}

bool Value::isNumeric() const
{
    switch (m_type) {
    case VarType::Empty: case VarType::Integer: case VarType::Long: case VarType::Single:
    case VarType::Double: case VarType::Currency: case VarType::Boolean: case VarType::Byte:
        return true;
    default:
        return false;
    }
}

double roundHalfEven(double d)
{
    return std::nearbyint(d); // the default rounding mode is to nearest, ties to even
}

Value Value::defaultValue() const
{
    if (m_type != VarType::Object)
        return *this;
    Value current = *this;
    // A default member may return another object; follow a few levels, never forever.
    for (int level = 0; level < 16; ++level) {
        if (!current.m_u.o)
            raise(ErrorCode::ObjectVariableNotSet);
        Dispatch* d = current.m_u.o->asDispatch();
        const int id = d ? d->defaultMemberId() : -1;
        if (id < 0)
            raise(ErrorCode::NoSuchMember);
        Value next = d->invoke(id, InvokeKind::PropertyGet, {});
        if (!next.isObject())
            return next;
        current = std::move(next);
    }
    raise(ErrorCode::NoSuchMember);
}

Value Value::toNumber() const
{
    switch (m_type) {
    case VarType::Empty:
        return Value(int16_t(0));
    case VarType::String: {
        double d;
        if (!parseNumber(str(), d))
            raise(ErrorCode::TypeMismatch);
        return Value(d);
    }
    case VarType::Object:
        return defaultValue().toNumber();
    case VarType::Error:
        raise(ErrorCode::TypeMismatch);
    default:
        if (m_type == kArrayTag)
            raise(ErrorCode::TypeMismatch);
        return *this;
    }
}

double Value::toDouble() const
{
    switch (m_type) {
    case VarType::Empty: return 0.0;
    case VarType::Null: raise(ErrorCode::InvalidUseOfNull);
    case VarType::Boolean: return m_u.b ? -1.0 : 0.0;
    case VarType::Byte: return m_u.u8;
    case VarType::Integer: return m_u.i16;
    case VarType::Long: return m_u.i32;
    case VarType::Single: return m_u.f;
    case VarType::Double: case VarType::Date: return m_u.d;
    case VarType::Currency: return double(m_u.i64) / 10000.0;
    case VarType::String: {
        double d;
        if (parseNumber(str(), d))
            return d;
        raise(ErrorCode::TypeMismatch);
    }
    case VarType::Object: return defaultValue().toDouble();
    default: raise(ErrorCode::TypeMismatch);
    }
}

int64_t Value::toInt64Checked(int64_t lo, int64_t hi) const
{
    switch (m_type) {
    case VarType::Boolean: return m_u.b ? -1 : 0;
    case VarType::Byte: return m_u.u8;
    case VarType::Integer: return m_u.i16 >= lo && m_u.i16 <= hi ? m_u.i16 : (raise(ErrorCode::Overflow), 0);
    case VarType::Long: return m_u.i32 >= lo && m_u.i32 <= hi ? m_u.i32 : (raise(ErrorCode::Overflow), 0);
    case VarType::Currency: {
        // Currency rounds half to even on its four decimals.
        const int64_t q = m_u.i64 / 10000, r = m_u.i64 % 10000;
        int64_t v = q;
        if (r > 5000 || (r == 5000 && (q & 1))) ++v;
        else if (r < -5000 || (r == -5000 && (q & 1))) --v;
        if (v < lo || v > hi)
            raise(ErrorCode::Overflow);
        return v;
    }
    default: {
        const double d = roundHalfEven(toDouble());
        if (!(d >= double(lo) && d <= double(hi)))
            raise(ErrorCode::Overflow);
        return int64_t(d);
    }
    }
}

bool Value::toBoolean() const
{
    switch (m_type) {
    case VarType::Empty: return false;
    case VarType::Null: raise(ErrorCode::InvalidUseOfNull);
    case VarType::Boolean: return m_u.b;
    case VarType::Byte: return m_u.u8 != 0;
    case VarType::Integer: return m_u.i16 != 0;
    case VarType::Long: return m_u.i32 != 0;
    case VarType::Single: return m_u.f != 0;
    case VarType::Double: case VarType::Date: return m_u.d != 0;
    case VarType::Currency: return m_u.i64 != 0;
    case VarType::String: {
        bool b;
        if (parseBoolean(str(), b))
            return b;
        double d;
        if (parseNumber(str(), d))
            return d != 0;
        raise(ErrorCode::TypeMismatch);
    }
    case VarType::Object: return defaultValue().toBoolean();
    default: raise(ErrorCode::TypeMismatch);
    }
}

bool Value::parseBoolean(std::u16string_view text, bool& out)
{
    if (equalsNoCase(text, u"True") || equalsNoCase(text, u"#TRUE#"))
        out = true;
    else if (equalsNoCase(text, u"False") || equalsNoCase(text, u"#FALSE#"))
        out = false;
    else
        return false;
    return true;
}

uint8_t Value::toByte() const { return uint8_t(toInt64Checked(0, 255)); }
int16_t Value::toInteger() const { return int16_t(toInt64Checked(-32768, 32767)); }

int32_t Value::toLong() const
{
    if (m_type == VarType::Long)
        return m_u.i32;
    if (m_type == VarType::Integer)
        return m_u.i16;
    return int32_t(toInt64Checked(std::numeric_limits<int32_t>::min(), std::numeric_limits<int32_t>::max()));
}

float Value::toSingle() const
{
    if (m_type == VarType::Single)
        return m_u.f;
    const double d = toDouble();
    if (std::isfinite(d) && std::fabs(d) > 3.402823466e38)
        raise(ErrorCode::Overflow);
    return float(d);
}

int64_t Value::toCurrency() const
{
    switch (m_type) {
    case VarType::Currency: return m_u.i64;
    case VarType::Boolean: return m_u.b ? -10000 : 0;
    case VarType::Byte: return int64_t(m_u.u8) * 10000;
    case VarType::Integer: return int64_t(m_u.i16) * 10000;
    case VarType::Long: return int64_t(m_u.i32) * 10000;
    default: return fromCurrency(toDouble()).m_u.i64;
    }
}

double Value::toDate() const
{
    switch (m_type) {
    case VarType::Date: return m_u.d;
    case VarType::String: {
        double d;
        if (parseDate(str(), d) || parseNumber(str(), d))
            return d;
        raise(ErrorCode::TypeMismatch);
    }
    default: {
        const double d = toDouble();
        if (!(d >= -657434.0 && d < 2958466.0))
            raise(ErrorCode::Overflow);
        return d;
    }
    }
}

String Value::toString() const
{
    switch (m_type) {
    case VarType::Empty: return {};
    case VarType::Null: raise(ErrorCode::InvalidUseOfNull);
    case VarType::Boolean: return m_u.b ? u"True" : u"False";
    case VarType::Byte: return fromAscii(std::to_string(m_u.u8));
    case VarType::Integer: return fromAscii(std::to_string(m_u.i16));
    case VarType::Long: return fromAscii(std::to_string(m_u.i32));
    case VarType::Single: return formatSingle(m_u.f);
    case VarType::Double: return formatDouble(m_u.d);
    case VarType::Currency: return formatCurrency(m_u.i64);
    case VarType::Date: return formatDate(m_u.d);
    case VarType::String: return str();
    case VarType::Object: return defaultValue().toString();
    case VarType::Error:
        if (isMissing())
            raise(ErrorCode::TypeMismatch);
        return u"Error " + fromAscii(std::to_string(m_u.i32));
    default: raise(ErrorCode::TypeMismatch);
    }
}

Object* Value::toObject() const
{
    if (m_type != VarType::Object)
        raise(ErrorCode::ObjectRequired);
    return m_u.o;
}

Dispatch* Value::toDispatch() const
{
    Object* o = toObject();
    if (!o)
        raise(ErrorCode::ObjectVariableNotSet);
    Dispatch* d = o->asDispatch();
    if (!d)
        raise(ErrorCode::NoSuchMember);
    return d;
}

String Value::typeName() const
{
    switch (m_type) {
    case VarType::Empty: return u"Empty";
    case VarType::Null: return u"Null";
    case VarType::Boolean: return u"Boolean";
    case VarType::Byte: return u"Byte";
    case VarType::Integer: return u"Integer";
    case VarType::Long: return u"Long";
    case VarType::Single: return u"Single";
    case VarType::Double: return u"Double";
    case VarType::Currency: return u"Currency";
    case VarType::Date: return u"Date";
    case VarType::String: return u"String";
    case VarType::Object: return m_u.o ? m_u.o->typeName() : u"Nothing";
    case VarType::Error: return u"Error";
    default: return u"Variant()";
    }
}

bool Dispatch::enumerate(std::vector<Value>&)
{
    return false;
}

} // namespace vbs
