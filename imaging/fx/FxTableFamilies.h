// The effect table's families, each declared in its own file; FxCatalogue.cpp joins them.
#pragma once

#include <vector>

#include "imaging/fx/FxCatalogue.h"

namespace fx {

std::vector<FxMemberInfo> filterEntries();     // FxFilterTable.cpp
std::vector<FxMemberInfo> distortionEntries(); // FxFilterTable.cpp
std::vector<FxMemberInfo> drawingEntries();    // FxDrawingTable.cpp

} // namespace fx
