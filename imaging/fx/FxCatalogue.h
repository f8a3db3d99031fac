// One table describing every effect member: arguments with meaning, range and default, a one-line
// description and the handler that runs it. It feeds the imaging control's operations, the
// reference document and the effects' own range checks.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "imaging/Operation.h"

namespace fx {

struct FxArgument {
    std::string_view name;
    std::string_view type; // integer, long, boolean, number, string, colour
    double min = 0;        // inclusive range, checked by checkArgument when ranged
    double max = 0;
    bool ranged = false;
    std::string_view defaultValue; // empty: the script must give it
    std::string_view meaning;
};

struct FxMemberInfo {
    std::string_view name;
    std::string_view
        family; // Filters, Distortions, Drawing, Drawing state, Area and merge, Capture
    std::vector<FxArgument> arguments;
    std::string_view description;
    // How the imaging control runs it; a member without either is a drawing-state property.
    imaging::ApplyFn apply = nullptr;
    imaging::RunFn run = nullptr;
    unsigned flags = imaging::OpNone;
};

const std::vector<FxMemberInfo>& effectCatalogue();

// Case-insensitive, as scripts name members; nullptr when the name is not an effect member.
const FxMemberInfo* findEffect(std::string_view name);
const FxArgument& findArgument(std::string_view member, std::string_view argument);

// Throws FxError (BadArgument) naming the member, the argument, its range and the value given.
void checkArgument(std::string_view member, std::string_view argument, double value);

// "2 to 64", "-360 to 360", "0 to &HFFFFFF" for colours: the range as the reference shows it.
std::string rangeText(const FxArgument& argument);

// The member as the reference document shows it: the call with optional arguments in brackets,
// the description, then one line per argument with type, range, default and meaning.
std::string referenceEntry(const FxMemberInfo& member);

} // namespace fx
