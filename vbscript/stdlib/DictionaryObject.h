// Scripting.Dictionary: an insertion-ordered map of variant keys to items.
#pragma once

#include "vbscript/Object.h"

namespace vbs::lib {

Ref<Dispatch> createDictionary();

} // namespace vbs::lib
