// The RegExp object (New RegExp, CreateObject("VBScript.RegExp")) and its match collections.
#pragma once

#include "vbscript/Object.h"

namespace vbs::lib {

Ref<Dispatch> createRegExp();

} // namespace vbs::lib
