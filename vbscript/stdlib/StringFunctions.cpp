// String builtins: Len, Left, Mid, InStr, Replace, Split, Join, Asc, Chr, the byte forms, ...
#include "Families.h"
#include "LibSupport.h"

#include <algorithm>

namespace vbs::lib {

namespace {

// Null in, Null out: the rule of most string functions.
#define RETURN_NULL_IF_NULL(v)                                                                     \
    if (isNullArg(v)) return Value::null()

long count(const Value& v) {
    const int32_t n = v.toLong();
    if (n < 0) invalidCall();
    return n;
}

// Space and String build text from a count alone; past 128 Mi code units is out of string space.
size_t builtLength(const Value& v) {
    const long n = count(v);
    if (n > (1L << 27)) raise(ErrorCode::OutOfStringSpace);
    return size_t(n);
}

// The bytes of a string (UTF-16LE), one per code unit, for the B functions.
String toBytes(std::u16string_view s) {
    String bytes;
    bytes.reserve(s.size() * 2);
    for (char16_t c : s) {
        bytes += char16_t(c & 0xFF);
        bytes += char16_t(c >> 8);
    }
    return bytes;
}

// An odd trailing byte becomes a code unit of its own (our strings hold whole code units).
String fromBytes(std::u16string_view bytes) {
    String s;
    for (size_t i = 0; i < bytes.size(); i += 2)
        s += char16_t(bytes[i] | (i + 1 < bytes.size() ? bytes[i + 1] << 8 : 0));
    return s;
}

String mid(std::u16string_view s, long start, long length) {
    if (start > long(s.size())) return {};
    return String(s.substr(size_t(start - 1), length < 0 ? String::npos : size_t(length)));
}

Value fnLen(CallContext&, Args a) {
    RETURN_NULL_IF_NULL(*a[0]);
    String scratch;
    return Value(int32_t(a[0]->textView(scratch).size()));
}

Value fnLenB(CallContext&, Args a) {
    RETURN_NULL_IF_NULL(*a[0]);
    String scratch;
    return Value(int32_t(a[0]->textView(scratch).size() * 2));
}

Value fnLeft(CallContext&, Args a) {
    const long n = count(*a[1]);
    RETURN_NULL_IF_NULL(*a[0]);
    String scratch;
    return Value(a[0]->textView(scratch).substr(0, size_t(n)));
}

Value fnRight(CallContext&, Args a) {
    const long n = count(*a[1]);
    RETURN_NULL_IF_NULL(*a[0]);
    String scratch;
    const std::u16string_view s = a[0]->textView(scratch);
    return Value(s.substr(s.size() - std::min(s.size(), size_t(n))));
}

Value fnMid(CallContext&, Args a) {
    const long start = a[1]->toLong();
    const long length = given(a, 2) ? count(*a[2]) : -1;
    if (start < 1) invalidCall();
    RETURN_NULL_IF_NULL(*a[0]);
    String scratch;
    return Value(mid(a[0]->textView(scratch), start, length));
}

Value fnLeftB(CallContext&, Args a) {
    const long n = count(*a[1]);
    RETURN_NULL_IF_NULL(*a[0]);
    return Value(fromBytes(toBytes(a[0]->toString()).substr(0, size_t(n))));
}

Value fnRightB(CallContext&, Args a) {
    const long n = count(*a[1]);
    RETURN_NULL_IF_NULL(*a[0]);
    const String b = toBytes(a[0]->toString());
    return Value(fromBytes(b.substr(b.size() - std::min(b.size(), size_t(n)))));
}

Value fnMidB(CallContext&, Args a) {
    const long start = a[1]->toLong();
    const long length = given(a, 2) ? count(*a[2]) : -1;
    if (start < 1) invalidCall();
    RETURN_NULL_IF_NULL(*a[0]);
    return Value(fromBytes(mid(toBytes(a[0]->toString()), start, length)));
}

// InStr([start, ]string1, string2[, compare]): with three or more arguments the first is start.
Value inStrCommon(Args a, bool bytes) {
    const bool hasStart = a.size() >= 3;
    long start = 1;
    if (hasStart) {
        start = a[0]->toLong();
        if (start < 1) invalidCall();
    }
    const Value& s1 = *a[hasStart ? 1 : 0];
    const Value& s2 = *a[hasStart ? 2 : 1];
    const Compare compare = compareArg(a, 3);
    if (isNullArg(s1) || isNullArg(s2)) return Value::null();
    String hScratch, nScratch;
    const std::u16string_view h = s1.textView(hScratch), n = s2.textView(nScratch);
    if (bytes)
        return Value(int32_t(inStr(start, toBytes(h), toBytes(n), Compare::Binary)));
    return Value(int32_t(inStr(start, h, n, compare)));
}

Value fnInStr(CallContext&, Args a) {
    return inStrCommon(a, false);
}
Value fnInStrB(CallContext&, Args a) {
    return inStrCommon(a, true);
}

Value fnInStrRev(CallContext&, Args a) {
    const long start = longArg(a, 2, -1);
    if (start == 0 || start < -1) invalidCall();
    const Compare compare = compareArg(a, 3);
    if (isNullArg(*a[0]) || isNullArg(*a[1])) return Value::null();
    String hScratch, nScratch;
    return Value(int32_t(
        inStrRev(a[0]->textView(hScratch), a[1]->textView(nScratch), start, compare)));
}

Value fnLCase(CallContext&, Args a) {
    RETURN_NULL_IF_NULL(*a[0]);
    return Value(toLower(a[0]->toString()));
}

Value fnUCase(CallContext&, Args a) {
    RETURN_NULL_IF_NULL(*a[0]);
    return Value(toUpper(a[0]->toString()));
}

Value fnLTrim(CallContext&, Args a) {
    RETURN_NULL_IF_NULL(*a[0]);
    return Value(trimLeft(a[0]->toString()));
}

Value fnRTrim(CallContext&, Args a) {
    RETURN_NULL_IF_NULL(*a[0]);
    return Value(trimRight(a[0]->toString()));
}

Value fnTrim(CallContext&, Args a) {
    RETURN_NULL_IF_NULL(*a[0]);
    const String s = a[0]->toString();
    return Value(trimRight(trimLeft(s)));
}

Value fnSpace(CallContext&, Args a) {
    return Value(String(builtLength(*a[0]), u' '));
}

Value fnString(CallContext&, Args a) {
    const size_t n = builtLength(*a[0]);
    RETURN_NULL_IF_NULL(*a[1]);
    char16_t c;
    if (a[1]->isString()) {
        if (a[1]->str().empty()) invalidCall();
        c = a[1]->str()[0];
    } else {
        c = unicodeFromAnsi(uint8_t(a[1]->toLong() & 0xFF));
    }
    return Value(String(n, c));
}

Value fnStrComp(CallContext&, Args a) {
    const Compare compare = compareArg(a, 2);
    if (isNullArg(*a[0]) || isNullArg(*a[1])) return Value::null();
    String aScratch, bScratch;
    return Value(
        int16_t(compareStrings(a[0]->textView(aScratch), a[1]->textView(bScratch), compare)));
}

Value fnStrReverse(CallContext&, Args a) {
    String s = a[0]->toString();
    std::reverse(s.begin(), s.end());
    return Value(std::move(s));
}

Value fnReplace(CallContext&, Args a) {
    const long start = longArg(a, 3, 1);
    const long n = longArg(a, 4, -1);
    if (start < 1 || n < -1) invalidCall();
    const Compare compare = compareArg(a, 5);
    const String text = a[0]->toString(); // Null raises 94, as VBScript does
    return Value(replace(text, a[1]->toString(), a[2]->toString(), start, n, compare));
}

Value fnSplit(CallContext&, Args a) {
    const String delimiter = stringArg(a, 1, u" ");
    const long limit = longArg(a, 2, -1);
    if (limit < -1) invalidCall();
    const Compare compare = compareArg(a, 3);
    return stringArray(split(a[0]->toString(), delimiter, limit, compare));
}

Value fnJoin(CallContext&, Args a) {
    const String delimiter = stringArg(a, 1, u" ");
    String out;
    bool first = true;
    // An object is read through its default property (438 without one); Null items do not join.
    for (const Value& item : arrayItems(plain(*a[0]))) {
        if (!first) out += delimiter;
        first = false;
        if (isNullArg(item)) raise(ErrorCode::TypeMismatch);
        out += item.toString();
    }
    return Value(std::move(out));
}

Value fnFilter(CallContext&, Args a) {
    const String value = a[1]->toString();
    const bool include = boolArg(a, 2, true);
    const Compare compare = compareArg(a, 3);
    std::vector<String> items;
    for (const Value& item : arrayItems(*a[0]))
        items.push_back(item.toString());
    return stringArray(filter(items, value, include, compare));
}

Value fnAsc(CallContext&, Args a) {
    String scratch;
    const std::u16string_view s = a[0]->textView(scratch);
    if (s.empty()) invalidCall();
    const int code = ansiFromUnicode(s[0]);
    return Value(int16_t(code < 0 ? u'?' : code));
}

Value fnAscB(CallContext&, Args a) {
    String scratch;
    const std::u16string_view s = a[0]->textView(scratch);
    if (s.empty()) invalidCall();
    return Value(int16_t(s[0] & 0xFF));
}

Value fnAscW(CallContext&, Args a) {
    String scratch;
    const std::u16string_view s = a[0]->textView(scratch);
    if (s.empty()) invalidCall();
    return Value(int16_t(s[0]));
}

Value fnChr(CallContext&, Args a) {
    const int32_t n = a[0]->toLong();
    if (n < 0 || n > 255) invalidCall();
    return Value(String(1, unicodeFromAnsi(uint8_t(n))));
}

Value fnChrB(CallContext&, Args a) {
    const int32_t n = a[0]->toLong();
    if (n < 0 || n > 255) invalidCall();
    return Value(String(1, char16_t(n)));
}

Value fnChrW(CallContext&, Args a) {
    const int32_t n = a[0]->toLong();
    if (n < -32768 || n > 65535) invalidCall();
    return Value(String(1, char16_t(n & 0xFFFF)));
}

Value fnEscape(CallContext&, Args a) {
    RETURN_NULL_IF_NULL(*a[0]);
    return Value(escape(a[0]->toString()));
}

Value fnUnescape(CallContext&, Args a) {
    RETURN_NULL_IF_NULL(*a[0]);
    return Value(unescape(a[0]->toString()));
}

const BuiltinDef kStringFunctions[] = {
    {u"Len", 1, 1, fnLen},           {u"LenB", 1, 1, fnLenB},
    {u"Left", 2, 2, fnLeft},         {u"LeftB", 2, 2, fnLeftB},
    {u"Right", 2, 2, fnRight},       {u"RightB", 2, 2, fnRightB},
    {u"Mid", 2, 3, fnMid},           {u"MidB", 2, 3, fnMidB},
    {u"InStr", 2, 4, fnInStr},       {u"InStrB", 2, 4, fnInStrB},
    {u"InStrRev", 2, 4, fnInStrRev}, {u"LCase", 1, 1, fnLCase},
    {u"UCase", 1, 1, fnUCase},       {u"LTrim", 1, 1, fnLTrim},
    {u"RTrim", 1, 1, fnRTrim},       {u"Trim", 1, 1, fnTrim},
    {u"Space", 1, 1, fnSpace},       {u"String", 2, 2, fnString},
    {u"StrComp", 2, 3, fnStrComp},   {u"StrReverse", 1, 1, fnStrReverse},
    {u"Replace", 3, 6, fnReplace},   {u"Split", 1, 4, fnSplit},
    {u"Join", 1, 2, fnJoin},         {u"Filter", 2, 4, fnFilter},
    {u"Asc", 1, 1, fnAsc},           {u"AscB", 1, 1, fnAscB},
    {u"AscW", 1, 1, fnAscW},         {u"Chr", 1, 1, fnChr},
    {u"ChrB", 1, 1, fnChrB},         {u"ChrW", 1, 1, fnChrW},
    {u"Escape", 1, 1, fnEscape},     {u"Unescape", 1, 1, fnUnescape},
};

} // namespace

void registerStringFunctions(ScriptControl& control) {
    control.registerBuiltins(kStringFunctions);
}

} // namespace vbs::lib
