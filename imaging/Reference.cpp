// Generates the imaging control's reference text from its declaration tables.
#include "imaging/Reference.h"

#include <cmath>
#include <cstdio>
#include <sstream>

#include "imaging/ImagingError.h"
#include "imaging/Operation.h"
#include "imaging/Property.h"
#include "imaging/io/Formats.h"

namespace imaging {

namespace {

const char* typeName(ParamType t) {
    switch (t) {
    case ParamType::Int:
        return "integer";
    case ParamType::Long:
        return "long";
    case ParamType::Single:
        return "single";
    case ParamType::Double:
        return "double";
    case ParamType::Bool:
        return "boolean";
    case ParamType::String:
        return "string";
    case ParamType::Color:
        return "colour";
    }
    return "";
}

// Whole numbers in full (16777215, not 1.67772e+07).
std::string number(double v) {
    char buf[32];
    std::snprintf(buf, sizeof buf, v == std::trunc(v) && std::abs(v) < 1e15 ? "%.0f" : "%g", v);
    return buf;
}

std::string range(ParamType t, double min, double max) {
    if (t == ParamType::String || t == ParamType::Bool || min > max) return "";
    if (t == ParamType::Color) return "&H000000 to &HFFFFFF";
    return number(min) + " to " + number(max);
}

void formats(std::ostringstream& out) {
    out << "## Formats\n\n| code | format | extensions | load | save | notes "
           "|\n|---|---|---|---|---|---|\n";
    out << "| 0 | by the extension of SaveFileName | | | | |\n";
    for (const auto& f : allFormats())
        out << "| " << f.code << " | " << f.name << " | " << f.extensions << " | "
            << (f.canLoad ? "yes" : "no") << " | " << (f.canSave ? "yes" : "no") << " | " << f.note
            << " |\n";
}

void properties(std::ostringstream& out) {
    out << "\n## Properties\n\n| name | type | access | range | default | meaning "
           "|\n|---|---|---|---|---|---|\n";
    for (const PropertyDef* p : allProperties()) {
        const char* access = p->access == Access::Read    ? "read"
                             : p->access == Access::Write ? "write"
                                                          : "read/write";
        bool stored = p->access != Access::Read && p->type != ParamType::String;
        out << "| " << p->name << " | " << typeName(p->type) << " | " << access << " | "
            << (p->access == Access::Read ? "" : range(p->type, p->min, p->max)) << " | "
            << (stored ? (p->type == ParamType::Bool ? (p->def ? "True" : "False") : number(p->def))
                       : "")
            << " | " << p->meaning << " |\n";
    }
}

void operations(std::ostringstream& out) {
    out << "\n## Operations\n";
    for (const OperationDef* op : allOperations()) {
        out << "\n### " << op->name << "\n\n" << op->description << "\n";
        for (const auto& p : op->params) {
            out << "- " << p.name << " (" << typeName(p.type);
            std::string r = range(p.type, p.min, p.max);
            if (!r.empty()) out << ", " << r;
            if (p.def) out << ", default " << number(*p.def);
            out << "): " << p.meaning << "\n";
        }
    }
}

} // namespace

std::string referenceMarkdown() {
    std::ostringstream out;
    out << "# Imaging control reference\n\n";
    formats(out);
    properties(out);
    operations(out);
    out << "\n## Errors (ImagError)\n\n| code | message |\n|---|---|\n";
    for (const auto& e : errorCatalogue())
        out << "| " << static_cast<int32_t>(e.code) << " | " << e.message << " |\n";
    return out.str();
}

} // namespace imaging
