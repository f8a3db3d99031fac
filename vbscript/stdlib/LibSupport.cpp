// Shared argument handling of the library's builtins.
#include "LibSupport.h"

namespace vbs::lib {

Value plain(const Value& v) {
    return v.isObject() ? v.defaultValue() : v;
}

bool isNullArg(const Value& v) {
    return v.isNull() || (v.isObject() && plain(v).isNull());
}

Compare compareArg(Args args, size_t i, Compare fallback) {
    if (!given(args, i)) return fallback;
    const int32_t n = args[i]->toLong();
    if (n != 0 && n != 1) invalidCall();
    return Compare(n);
}

long longArg(Args args, size_t i, long fallback) {
    return given(args, i) ? long(args[i]->toLong()) : fallback;
}

bool boolArg(Args args, size_t i, bool fallback) {
    return given(args, i) ? args[i]->toBoolean() : fallback;
}

String stringArg(Args args, size_t i, const String& fallback) {
    return given(args, i) ? args[i]->toString() : fallback;
}

const std::vector<Value>& arrayItems(const Value& v) {
    if (!v.isArray() || v.array()->counts.size() != 1) raise(ErrorCode::TypeMismatch);
    return v.array()->items;
}

Value stringArray(const std::vector<String>& items) {
    std::vector<Value> values;
    values.reserve(items.size());
    for (const String& s : items)
        values.emplace_back(s);
    return Value::makeArray(std::move(values));
}

Value indexArray(const Value& array, Args args) {
    const std::vector<Value>& items = arrayItems(array);
    if (args.size() != 1) raise(ErrorCode::SubscriptOutOfRange);
    const int32_t i = args[0]->toLong();
    if (i < 0 || size_t(i) >= items.size()) raise(ErrorCode::SubscriptOutOfRange);
    return items[size_t(i)];
}

Value longValue(long long n) {
    if (n < INT32_MIN || n > INT32_MAX) raise(ErrorCode::Overflow);
    return Value(int32_t(n));
}

} // namespace vbs::lib
