// Conversions between script values and the imaging control's arguments, and error mapping.
#pragma once

#include "imaging/ImagingError.h"
#include "imaging/Operation.h"
#include "vbscript/ScriptError.h"
#include "vbscript/Value.h"

namespace fx {

// Converts a script argument by its conversion code (see FxMember.h).
imaging::Arg toControlArg(char code, const vbs::Value& value);
// Converts a control value to the script type of a Get's result code.
vbs::Value toScriptValue(char code, const imaging::Arg& value);
// CInt of a computed number: banker's rounding, 6 Overflow outside the 16-bit range.
int16_t toInteger16(double value);
// CLng of a computed number: banker's rounding, 6 Overflow outside the 32-bit range.
int32_t toLong32(double value);

[[noreturn]] void raiseFromImaging(const imaging::ImagingError& error, std::u16string_view member);

} // namespace fx
