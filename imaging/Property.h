// How a property of the imaging control is declared: type, access, range, default, meaning and
// (for the computed ones) its getter and setter. One table drives get/set and the reference.
#pragma once

#include <span>
#include <string_view>

#include "imaging/Operation.h"

namespace imaging {

enum class Access { Read, Write, ReadWrite };

struct PropertyDef {
    std::string_view name;
    ParamType type;
    Access access;
    double min;
    double max;
    double def; // default of a stored numeric or boolean property
    std::string_view meaning;
    Arg (*get)(ImagingControl&) = nullptr;              // nullptr: the stored value
    void (*set)(ImagingControl&, const Arg&) = nullptr; // nullptr: stored after the range check
};

std::span<const PropertyDef* const> allProperties();
const PropertyDef* findProperty(std::string_view name);

// Family tables.
std::span<const PropertyDef> fileProperties();
std::span<const PropertyDef> saveOptionProperties();
std::span<const PropertyDef> infoProperties();
std::span<const PropertyDef> stateProperties();

// The initial value of a stored property.
Arg defaultValue(const PropertyDef& def);

// Checks a value against the declaration and converts it to the declared type.
Arg checkedValue(std::string_view owner, std::string_view name, ParamType type, double min,
                 double max, const Arg& value);

} // namespace imaging
