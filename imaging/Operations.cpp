// The operation registry (one list of family tables) and argument checking.
#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdio>
#include <vector>

#include "imaging/ImagingError.h"
#include "imaging/Operation.h"
#include "imaging/Property.h"

#ifdef VANTOREL_HAVE_IMAGING_FX
#include "imaging/fx/FxOperations.h"
#endif

namespace imaging {

bool equalsIgnoreCase(std::string_view a, std::string_view b) {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
               return std::tolower(static_cast<unsigned char>(x)) ==
                      std::tolower(static_cast<unsigned char>(y));
           });
}

Rgb unpackColor(int32_t color) {
    auto c = static_cast<uint32_t>(color);
    return {double(c & 0xFF), double((c >> 8) & 0xFF), double((c >> 16) & 0xFF)};
}

namespace {

// Every family of operations, in the order the reference lists them.
std::vector<const OperationDef*> buildRegistry() {
    std::vector<const OperationDef*> all;
    auto add = [&all](std::span<const OperationDef> family) {
        for (const auto& op : family)
            all.push_back(&op);
    };
    add(geometryOperations());
    add(colorOperations());
    add(editOperations());
#ifdef VANTOREL_HAVE_IMAGING_FX
    add(fx::operationTable());
#endif
    return all;
}

// Whole numbers in full (16777215, not 1.67772e+07); fractions as short as they print.
std::string formatNumber(double v) {
    char buf[32];
    std::snprintf(buf, sizeof buf, v == std::trunc(v) && std::abs(v) < 1e15 ? "%.0f" : "%g", v);
    return buf;
}

double numericOf(const Arg& value, bool& ok) {
    ok = true;
    if (auto* i = std::get_if<int32_t>(&value)) return *i;
    if (auto* d = std::get_if<double>(&value)) return *d;
    if (auto* b = std::get_if<bool>(&value)) return *b ? -1 : 0;
    if (auto* s = std::get_if<std::string>(&value)) {
        char* end = nullptr;
        double v = std::strtod(s->c_str(), &end);
        if (!s->empty() && end && *end == '\0') return v;
    }
    ok = false;
    return 0;
}

} // namespace

std::span<const OperationDef* const> allOperations() {
    static const std::vector<const OperationDef*> registry = buildRegistry();
    return registry;
}

const OperationDef* findOperation(std::string_view name) {
    for (const OperationDef* op : allOperations())
        if (equalsIgnoreCase(op->name, name)) return op;
    return nullptr;
}

Arg checkedValue(std::string_view owner, std::string_view name, ParamType type, double min,
                 double max, const Arg& value) {
    if (type == ParamType::String) {
        if (auto* s = std::get_if<std::string>(&value)) return *s;
        bool ok = false;
        double v = numericOf(value, ok);
        return ok ? formatNumber(v) : std::string();
    }
    bool ok = false;
    double v = numericOf(value, ok);
    if (!ok)
        fail(ErrorCode::ArgumentOutOfRange,
             std::string(owner) + ": " + std::string(name) + " must be a number");
    if (type == ParamType::Bool) return v != 0;
    if (type != ParamType::Single && type != ParamType::Double) v = std::nearbyint(v);
    if (v < min || v > max)
        fail(ErrorCode::ArgumentOutOfRange, std::string(owner) + ": " + std::string(name) + " = " +
                                                formatNumber(v) + " (allowed " + formatNumber(min) +
                                                " to " + formatNumber(max) + ")");
    if (type == ParamType::Single || type == ParamType::Double) return v;
    return static_cast<int32_t>(v);
}

OpArgs::OpArgs(std::string_view op, std::span<const ParamDef> params, std::span<const Arg> given) {
    if (given.size() > params.size())
        fail(ErrorCode::WrongArgumentCount,
             std::string(op) + " takes at most " + std::to_string(params.size()) + " arguments");
    for (size_t k = 0; k < params.size(); ++k) {
        const ParamDef& p = params[k];
        bool present = k < given.size() && !std::holds_alternative<Missing>(given[k]);
        if (!present && !p.def)
            fail(ErrorCode::WrongArgumentCount,
                 std::string(op) + ": argument " + std::string(p.name) + " is required");
        Arg raw = present ? given[k] : Arg(*p.def);
        m_values.push_back(checkedValue(op, p.name, p.type, p.min, p.max, raw));
        m_given.push_back(present);
    }
}

int32_t OpArgs::i(size_t k) const {
    const Arg& a = m_values.at(k);
    if (auto* v = std::get_if<int32_t>(&a)) return *v;
    if (auto* d = std::get_if<double>(&a)) return static_cast<int32_t>(std::nearbyint(*d));
    if (auto* b = std::get_if<bool>(&a)) return *b ? -1 : 0;
    return 0;
}

double OpArgs::d(size_t k) const {
    const Arg& a = m_values.at(k);
    if (auto* v = std::get_if<double>(&a)) return *v;
    return i(k);
}

bool OpArgs::b(size_t k) const {
    const Arg& a = m_values.at(k);
    if (auto* v = std::get_if<bool>(&a)) return *v;
    return i(k) != 0;
}

const std::string& OpArgs::s(size_t k) const {
    static const std::string empty;
    auto* v = std::get_if<std::string>(&m_values.at(k));
    return v ? *v : empty;
}

bool OpArgs::given(size_t k) const {
    return k < m_given.size() && m_given[k];
}

} // namespace imaging
