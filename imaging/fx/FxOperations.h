// The effects as operations of the imaging control: one row per member, generated from the
// effect table, so the control checks arguments and dispatches scripts' calls to them.
#pragma once

#include <span>

#include "imaging/Operation.h"

namespace imaging::fx {

std::span<const imaging::OperationDef> operationTable();

} // namespace imaging::fx
