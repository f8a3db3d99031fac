// CaptureWindow: the contents of a desktop window as the new current image (X11 only).
#pragma once

#include <vips/vips8>

namespace fx {

// handle is an X11 window id; 0 is the whole screen. Throws FxError of kind Unavailable when no
// X11 display can be reached (or the build has no X11 support), BadArgument for an unknown or
// unmapped window.
vips::VImage CaptureWindow(long handle);

// True when this build can capture windows at all (it was built with xcb).
bool captureSupported();

} // namespace fx
