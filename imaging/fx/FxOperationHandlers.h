// The handler of each effect operation, by member name; FxOperations.cpp joins them with the
// parameters from the effect table.
#pragma once

#include <span>
#include <string_view>

#include "imaging/Operation.h"

namespace imaging::fx {

struct HandlerDef {
    std::string_view name;
    ApplyFn apply = nullptr;
    RunFn run = nullptr;
    unsigned flags = OpNone;
};

std::span<const HandlerDef> handlers();

} // namespace imaging::fx
