// Small cairo helpers shared by the shape and text drawing files.
#pragma once

#include <cairo.h>

#include "imaging/fx/FxTypes.h"

namespace fx::detail {

void setCairoColour(cairo_t* cr, Colour colour);

} // namespace fx::detail
