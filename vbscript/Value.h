// The Variant: a 16-byte tagged value with VBScript's subtypes, arrays and conversions.
#pragma once

#include "Object.h"
#include "ScriptError.h"

#include <bit>
#include <cstdint>
#include <string_view>
#include <vector>

namespace vbs {

struct Locale;

enum class VarType : uint16_t {
    Empty = 0,
    Null = 1,
    Integer = 2,
    Long = 3,
    Single = 4,
    Double = 5,
    Currency = 6,
    Date = 7,
    String = 8,
    Object = 9,
    Error = 10,
    Boolean = 11,
    Variant = 12,
    Byte = 17,
    Array = 0x2000,
};

// Shared immutable text; a value with the only reference may append in place.
struct StringRep {
    int32_t refs = 1;
    String text;
};

class Value;

// Limits that turn runaway scripts into errors (14 Out of string space, 7 Out of memory)
// rather than exhausting the machine.
constexpr size_t kMaxStringLength = size_t(1) << 28; // code units
constexpr size_t kMaxArrayItems = size_t(1) << 26;

// Arrays keep VBScript's value semantics through copy-on-write: assignment shares the rep, and
// writing through a shared rep copies it first. Items are stored with the first index varying
// fastest, so ReDim Preserve of the last dimension only appends.
struct ArrayRep {
    int32_t refs = 1;
    bool fixed = false;       // Dim a(n): ReDim and Erase-to-empty are not allowed
    int32_t locks = 0;        // For Each over the array holds a lock
    // No item is a string, object or array: an item can then be overwritten without releasing
    // the old one (and so without reading it from memory first). Writers through
    // Value::mutableArray() clear it.
    bool plain = true;
    std::vector<int32_t> counts; // elements per dimension (upper bound + 1)
    std::vector<Value> items;
    // counts[0] of a one-dimensional array, 0 for any other shape: a(i) tests one number.
    int32_t length = 0;
};

class Value {
public:
    static constexpr int32_t kMissingCode = int32_t(0x80020004u);

    Value() noexcept { m_u.i64 = 0; }
    // The payload is always written as a whole 8-byte word: a narrow write followed by a wide
    // copy would stall the store forwarding on every assignment.
    Value(bool b) noexcept : m_type(VarType::Boolean) { m_u.i64 = b ? 1 : 0; }
    Value(int16_t i) noexcept : m_type(VarType::Integer) { m_u.i64 = int64_t(uint16_t(i)); }
    Value(int32_t i) noexcept : m_type(VarType::Long) { m_u.i64 = int64_t(uint32_t(i)); }
    Value(float f) noexcept : m_type(VarType::Single) { m_u.i64 = int64_t(std::bit_cast<uint32_t>(f)); }
    Value(double d) noexcept : m_type(VarType::Double) { m_u.d = d; }
    Value(String s);
    Value(std::u16string_view s) : Value(String(s)) {}
    Value(const char16_t* s) : Value(String(s)) {}
    Value(Ref<Object> o) noexcept : m_type(VarType::Object) { m_u.o = o.detach(); }
    template <class T>
    Value(const Ref<T>& o) noexcept : Value(Ref<Object>(o)) {}

    static Value null() { Value v; v.m_type = VarType::Null; return v; }
    static Value missing() { return fromError(kMissingCode); }
    static Value fromError(int32_t code) { Value v; v.m_type = VarType::Error; v.m_u.i64 = int64_t(uint32_t(code)); return v; }
    static Value fromByte(uint8_t b) { Value v; v.m_type = VarType::Byte; v.m_u.i64 = b; return v; }
    static Value fromDate(double oleDate) { Value v; v.m_type = VarType::Date; v.m_u.d = oleDate; return v; }
    // Currency is a fixed-point number with four decimals: scaled = value * 10000.
    static Value fromCurrency(int64_t scaled) { Value v; v.m_type = VarType::Currency; v.m_u.i64 = scaled; return v; }
    static Value fromCurrency(double value); // rounds, 6 Overflow when out of range
    static Value nothing() { return Value(Ref<Object>()); }
    // An array of the given per-dimension element counts, all items Empty.
    static Value makeArray(std::vector<int32_t> counts);
    // A one-dimensional array holding items (Array(), Split()).
    static Value makeArray(std::vector<Value> items);

    Value(const Value& o) noexcept : m_type(o.m_type), m_u(o.m_u) { retain(); }
    Value(Value&& o) noexcept : m_type(o.m_type), m_u(o.m_u) { o.m_type = VarType::Empty; }
    Value& operator=(const Value& o) noexcept
    {
        if (this != &o) {
            Value tmp(o);
            swap(tmp);
        }
        return *this;
    }
    Value& operator=(Value&& o) noexcept
    {
        if (this != &o) {
            releaseRef();
            m_type = o.m_type;
            m_u = o.m_u;
            o.m_type = VarType::Empty;
        }
        return *this;
    }
    ~Value() { releaseRef(); }
    void swap(Value& o) noexcept { std::swap(m_type, o.m_type); std::swap(m_u, o.m_u); }
    void clear() noexcept { releaseRef(); m_type = VarType::Empty; }

    // The raw tag; arrays report VarType(Array | Variant) as VarType() does.
    VarType type() const { return m_type == kArrayTag ? VarType(0x200C) : m_type; }
    bool isEmpty() const { return m_type == VarType::Empty; }
    bool isNull() const { return m_type == VarType::Null; }
    bool isObject() const { return m_type == VarType::Object; }
    bool isNothing() const { return m_type == VarType::Object && !m_u.o; }
    bool isString() const { return m_type == VarType::String; }
    bool isArray() const { return m_type == kArrayTag; }
    bool isMissing() const { return m_type == VarType::Error && m_u.i32 == kMissingCode; }
    // Numeric subtypes (Empty and Boolean count, as for IsNumeric of a non-string).
    bool isNumeric() const;

    // Raw access, valid only for the matching subtype.
    bool rawBool() const { return m_u.b; }
    int16_t rawInteger() const { return m_u.i16; }
    int32_t rawLong() const { return m_u.i32; }
    uint8_t rawByte() const { return m_u.u8; }
    float rawSingle() const { return m_u.f; }
    double rawDouble() const { return m_u.d; }
    double rawDate() const { return m_u.d; }
    int64_t rawCurrency() const { return m_u.i64; }
    int32_t rawError() const { return m_u.i32; }
    const String& str() const { return m_u.s->text; }
    StringRep* stringRep() const { return m_u.s; }
    Object* object() const { return m_u.o; }
    ArrayRep* array() const { return m_u.a; }
    // Makes this value's array unshared (copying it if needed) and returns it for writing.
    ArrayRep* mutableArray();
    bool isRefCounted() const { return !holdsNoReference(m_type); }

    // Conversions with VBScript's rules; they throw ScriptError (13, 6, 94, ...).
    bool toBoolean() const;
    uint8_t toByte() const;
    int16_t toInteger() const;
    int32_t toLong() const;
    float toSingle() const;
    double toDouble() const;
    int64_t toCurrency() const;   // scaled by 10000
    double toDate() const;        // OLE date
    String toString() const;
    // The text of the value without copying a String: a view of str() for strings, otherwise
    // the CStr text placed in scratch. Use it for read-only text (Len, Mid, InStr, ...), since
    // toString() copies the whole string.
    std::u16string_view textView(String& scratch) const
    {
        if (m_type == VarType::String)
            return m_u.s->text;
        scratch = toString();
        return scratch;
    }
    Object* toObject() const;     // 424 Object required when not an object
    Dispatch* toDispatch() const; // 424 when not an object, 91 for Nothing
    // An object's default property value (or the value itself when not an object).
    Value defaultValue() const;
    // For arithmetic: Empty -> Integer 0, strings parsed (13 when not numeric), Boolean kept,
    // objects replaced by their default value, Null kept.
    Value toNumber() const;

    // TypeName's answer ("Integer", "String", "Variant()", the class name, "Nothing", ...).
    String typeName() const;

    // Number and date text as CStr renders them in the active locale.
    static String formatDouble(double d);
    static String formatSingle(float f);
    static String formatCurrency(int64_t scaled);
    static String formatDate(double oleDate);
    // Text to number the way IsNumeric and the coercions read it in the active locale: blanks
    // around, sign, digits with group separators, decimals, exponent, &H/&O, the currency symbol.
    static bool parseNumber(std::u16string_view text, double& out);
    // Text to Boolean as CBool reads it: "True", "False", "#TRUE#", "#FALSE#" in any case.
    static bool parseBoolean(std::u16string_view text, bool& out);
    // Text to date as CDate reads it in the active locale (day, month and year in its order, month
    // names in English or its language, times, AM/PM); the second form in a given locale.
    static bool parseDate(std::u16string_view text, double& out);
    static bool parseDate(std::u16string_view text, double& out, const Locale& locale);

private:
    static constexpr VarType kArrayTag = VarType(0x200C);
    // Only String (8), Object (9) and arrays hold a reference: numbers, Empty and Null sort below
    // them and pass with one comparison.
    static bool holdsNoReference(VarType t) noexcept
    {
        return t < VarType::String || (t > VarType::Object && t != kArrayTag);
    }
    void retain() const noexcept
    {
        if (holdsNoReference(m_type)) return;
        if (m_type == VarType::String) ++m_u.s->refs;
        else if (m_type == VarType::Object) { if (m_u.o) m_u.o->addRef(); }
        else if (m_type == kArrayTag) ++m_u.a->refs;
    }
    void releaseRef() noexcept
    {
        if (holdsNoReference(m_type)) return;
        if (m_type == VarType::String) { if (--m_u.s->refs == 0) delete m_u.s; }
        else if (m_type == VarType::Object) { if (m_u.o) m_u.o->release(); }
        else if (m_type == kArrayTag) releaseArray();
    }
    void releaseArray() noexcept;
    int64_t toInt64Checked(int64_t lo, int64_t hi) const;

    friend class ValueAccess;
    VarType m_type = VarType::Empty;
    union U {
        bool b;
        uint8_t u8;
        int16_t i16;
        int32_t i32;
        int64_t i64;
        float f;
        double d;
        StringRep* s;
        Object* o;
        ArrayRep* a;
    } m_u;
};

static_assert(sizeof(Value) == 16, "Value must stay 16 bytes");

// Internal access for the engine (in-place string appends, wrapping a rep).
class ValueAccess {
public:
    static Value fromArrayRep(ArrayRep* rep) { Value v; v.m_type = Value::kArrayTag; v.m_u.a = rep; return v; }
    // Appends text to a String value, in place when the value holds the only reference.
    static void appendString(Value& v, std::u16string_view text);
    // Unshares the array of v without touching its `plain` flag.
    static ArrayRep* unshareArray(Value& v)
    {
        return v.m_u.a->refs == 1 ? v.m_u.a : copyArray(v);
    }
    static ArrayRep* copyArray(Value& v);
    // Stores into an item of a plain array: the old item holds nothing to release.
    static void overwritePlain(Value& item, Value&& v) noexcept
    {
        item.m_type = v.m_type;
        item.m_u = v.m_u;
        v.m_type = VarType::Empty;
    }
    // A new number in a value that is a Long already.
    static void setLong(Value& v, int32_t i) noexcept { v.m_u.i64 = int64_t(uint32_t(i)); }
    // The same with a copy of a value that holds no reference either (nothing to retain).
    static void copyPlain(Value& item, const Value& v) noexcept
    {
        item.m_type = v.m_type;
        item.m_u = v.m_u;
    }
};

// Banker's rounding as CInt/CLng do it.
double roundHalfEven(double d);

} // namespace vbs
