// The effect member table joined from its families, look-ups and range checks over it.
#include "imaging/fx/FxCatalogue.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdio>
#include <stdexcept>

#include "imaging/fx/FxError.h"
#include "imaging/fx/FxTableFamilies.h"

namespace fx {

namespace {

bool sameName(std::string_view a, std::string_view b) {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
               return std::tolower(static_cast<unsigned char>(x)) ==
                      std::tolower(static_cast<unsigned char>(y));
           });
}

// Whole numbers in full (16777215, not 1.67772e+07).
std::string numberText(double v) {
    char buf[32];
    std::snprintf(buf, sizeof buf, v == std::trunc(v) && std::abs(v) < 1e15 ? "%.0f" : "%g", v);
    return buf;
}

} // namespace

const std::vector<FxMemberInfo>& effectCatalogue() {
    static const std::vector<FxMemberInfo> table = [] {
        std::vector<FxMemberInfo> all = filterEntries();
        for (auto* family : {&distortionEntries, &drawingEntries})
            for (auto& m : (*family)())
                all.push_back(std::move(m));
        return all;
    }();
    return table;
}

const FxMemberInfo* findEffect(std::string_view name) {
    for (const FxMemberInfo& m : effectCatalogue())
        if (sameName(m.name, name)) return &m;
    return nullptr;
}

const FxArgument& findArgument(std::string_view member, std::string_view argument) {
    const FxMemberInfo* info = findEffect(member);
    if (info)
        for (const FxArgument& a : info->arguments)
            if (a.name == argument) return a;
    // A programming error of the effects themselves, not of a script.
    throw std::logic_error("effect table has no argument " + std::string(member) + "." +
                           std::string(argument));
}

std::string rangeText(const FxArgument& a) {
    if (!a.ranged) return "";
    if (a.type == "colour") return "0 to &HFFFFFF";
    return numberText(a.min) + " to " + numberText(a.max);
}

void checkArgument(std::string_view member, std::string_view argument, double value) {
    const FxArgument& a = findArgument(member, argument);
    if (!a.ranged || (value >= a.min && value <= a.max && !std::isnan(value))) return;
    std::string got = a.type == "colour" && value < 0 ? "&H" : "";
    if (a.type == "colour" && value < 0) {
        char buf[16];
        std::snprintf(buf, sizeof buf, "%X", static_cast<unsigned>(static_cast<long long>(value)));
        got += buf;
    } else {
        got = numberText(value);
    }
    throwBadArgument(std::string(member),
                     std::string(argument) + " must be " + rangeText(a) + " (got " + got + ")");
}

std::string referenceEntry(const FxMemberInfo& m) {
    std::string call(m.name), lines;
    // The drawing state's "default" is the value the control starts with, not an omission.
    bool state = m.family == "Drawing state";
    for (size_t k = 0; k < m.arguments.size(); ++k) {
        const FxArgument& a = m.arguments[k];
        bool optional = !a.defaultValue.empty() && !state;
        call += (k == 0 ? " " : ", ") + std::string(optional ? "[" : "") + std::string(a.name) +
                (optional ? "]" : "");
        lines += "    " + std::string(a.name) + ": " + std::string(a.type);
        if (a.ranged) lines += ", " + rangeText(a);
        if (!a.defaultValue.empty())
            lines += (state ? ", initially " : ", default ") + std::string(a.defaultValue);
        lines += " - " + std::string(a.meaning) + "\n";
    }
    return call + "\n    " + std::string(m.description) + "\n" + lines;
}

} // namespace fx
