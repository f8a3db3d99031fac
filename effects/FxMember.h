// How a member of the fx object is declared: name, kind, argument conversions, result type,
// description and handler. One table (FxMemberTable.cpp) drives the dispatch, the command list,
// the editor's completion and the reference document.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "vbscript/Value.h"

class clsVTEffects;

namespace fx {

enum class MemberKind { Get, Let, Method };

// Argument conversion codes, one letter per script argument, in order:
//   i 16-bit integer (CInt: 6 Overflow, 13 Type mismatch)   l 32-bit integer (CLng)
//   f single   d double   b boolean   s string   c colour (CLng, passed by value)
//   o object   v optional: passed on as the script's variant, the control applies its default
// The result code of a Get is one of i l b s o.
using Handler = vbs::Value (*)(clsVTEffects& fx, std::span<vbs::Value*> args);

struct MemberDef {
    std::u16string_view name;
    MemberKind kind;
    std::string_view args;
    char result; // Get: the result's type; otherwise '-'
    std::string_view argNames;
    std::string_view description;
    Handler handler = nullptr; // nullptr: the control's operation or property of the same name
    // The arguments of an example call, for a member whose arguments declare no range to make
    // one from (the reference document shows it).
    std::string_view example = {};
};

std::span<const MemberDef> memberTable();

// For completion, the command list and the reference: a member's argument names (optional ones
// in brackets) and its one-line description. Plain methods take both from the control's
// operation of the same name, so there is one source for them.
std::string argumentNames(const MemberDef& def);
std::string_view description(const MemberDef& def);

} // namespace fx
