// Installs the standard library's families into a script control.
#include "StandardLibrary.h"

#include "Families.h"

namespace vbs {

void installStandardLibrary(ScriptControl& control) {
    lib::registerConstants(control);
    lib::registerStringFunctions(control);
    lib::registerConversionFunctions(control);
    lib::registerMathFunctions(control);
    lib::registerDateFunctions(control);
    lib::registerFormatFunctions(control);
    lib::registerInspectionFunctions(control);
    lib::registerInteractionFunctions(control);
    lib::registerObjectFactory(control);
}

} // namespace vbs
