// Operation rows for the effects, one per entry of the effect table that has a handler: the
// entry's arguments become the operation's parameters.
#include "imaging/fx/FxOperations.h"

#include <cstdlib>
#include <deque>
#include <string>
#include <vector>

#include "imaging/ImagingControl.h"
#include "imaging/fx/Effects.h"

namespace imaging::fx {

namespace {

ParamType paramType(std::string_view type) {
    if (type == "long") return ParamType::Long;
    if (type == "number") return ParamType::Double;
    if (type == "colour") return ParamType::Color;
    if (type == "boolean") return ParamType::Bool;
    if (type == "string") return ParamType::String;
    return ParamType::Int;
}

// "13", "0 (black)", "False": the default as a number; an optional argument whose default is a
// description ("none") is given 0 and its handler asks OpArgs::given.
std::optional<double> defaultOf(std::string_view text) {
    if (text.empty()) return std::nullopt;
    if (text == "False") return 0.0;
    if (text == "True") return -1.0;
    std::string s(text);
    return std::strtod(s.c_str(), nullptr);
}

ParamDef paramFor(const ::fx::FxArgument& a) {
    ParamType type = paramType(a.type);
    double min = a.ranged ? a.min : type == ParamType::Int ? -32768 : -2147483648.0;
    double max = a.ranged ? a.max : type == ParamType::Int ? 32767 : 2147483647.0;
    if (type == ParamType::Double && !a.ranged) min = -1e308, max = 1e308;
    return {a.name, type, min, max, defaultOf(a.defaultValue), a.meaning};
}

// Names of expanded arguments must outlive the table.
std::deque<std::string>& nameStore() {
    static std::deque<std::string> names;
    return names;
}

// Matrix's kernel and DrawPolygon's extra points are one entry in the effect table and several
// arguments of the operation.
void expand(const ::fx::FxArgument& a, std::vector<ParamDef>& out) {
    if (a.name == "matrix") {
        for (int k = 1; k <= 9; ++k) {
            const std::string& name = nameStore().emplace_back("m" + std::to_string(k));
            const std::string& meaning =
                nameStore().emplace_back("kernel row " + std::to_string((k + 2) / 3) + ", column " +
                                         std::to_string((k - 1) % 3 + 1));
            out.push_back({name, ParamType::Int, -32768, 32767, std::nullopt, meaning});
        }
        return;
    }
    if (a.name == "x3 ... y6") {
        for (int k = 3; k <= 6; ++k)
            for (const char* axis : {"x", "y"}) {
                const std::string& name = nameStore().emplace_back(axis + std::to_string(k));
                const std::string& meaning =
                    nameStore().emplace_back(std::string(axis) + " of point " + std::to_string(k) +
                                             "; leave out both of a pair for fewer points");
                out.push_back({name, ParamType::Long, -2147483648.0, 2147483647.0, 0.0, meaning});
            }
        return;
    }
    out.push_back(paramFor(a));
}

} // namespace

std::span<const OperationDef> operationTable() {
    static const std::vector<OperationDef> table = [] {
        static std::deque<std::vector<ParamDef>> paramStore;
        std::vector<OperationDef> rows;
        for (const ::fx::FxMemberInfo& info : ::fx::effectCatalogue()) {
            if (!info.apply && !info.run) continue; // drawing state: properties of the control
            std::vector<ParamDef>& params = paramStore.emplace_back();
            for (const ::fx::FxArgument& a : info.arguments)
                expand(a, params);
            rows.push_back({info.name, info.description, params, info.apply, info.run, info.flags});
        }
        return rows;
    }();
    return table;
}

} // namespace imaging::fx
