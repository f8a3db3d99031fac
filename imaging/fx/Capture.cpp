// CaptureWindow over the X protocol (xcb): GetGeometry and GetImage of the window.
#include "imaging/fx/Capture.h"

#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

#include "imaging/fx/FxError.h"

#ifdef VANTOREL_HAVE_XCB
#include <xcb/xcb.h>
#endif

using vips::VImage;

namespace fx {

#ifdef VANTOREL_HAVE_XCB

namespace {

using Connection = std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)>;
template <class T> using Reply = std::unique_ptr<T, decltype(&std::free)>;

[[noreturn]] void unavailable(const std::string& message) {
    throw FxError(FxErrorKind::Unavailable, "CaptureWindow", message);
}

Connection connectDisplay() {
    const char* display = std::getenv("DISPLAY");
    if (!display || !*display) unavailable("no X11 display is available (DISPLAY is not set)");
    Connection c(xcb_connect(nullptr, nullptr), xcb_disconnect);
    if (xcb_connection_has_error(c.get()))
        unavailable(std::string("cannot connect to the X11 display \"") + display + "\"");
    return c;
}

} // namespace

bool captureSupported() {
    return true;
}

VImage CaptureWindow(long handle) {
    if (handle < 0)
        throwBadArgument("CaptureWindow",
                         "handle must be a window id or 0 (got " + std::to_string(handle) + ")");
    Connection c = connectDisplay();
    xcb_window_t window = handle;
    if (handle == 0) window = xcb_setup_roots_iterator(xcb_get_setup(c.get())).data->root;
    Reply<xcb_get_geometry_reply_t> geometry(
        xcb_get_geometry_reply(c.get(), xcb_get_geometry(c.get(), window), nullptr), std::free);
    if (!geometry)
        throwBadArgument("CaptureWindow",
                         "there is no window with handle " + std::to_string(handle));
    int w = geometry->width, h = geometry->height;
    Reply<xcb_get_image_reply_t> image(
        xcb_get_image_reply(
            c.get(), xcb_get_image(c.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, window, 0, 0, w, h, ~0u),
            nullptr),
        std::free);
    if (!image)
        throwBadArgument("CaptureWindow",
                         "window " + std::to_string(handle) + " is not visible on the screen");
    int length = xcb_get_image_data_length(image.get());
    if ((image->depth != 24 && image->depth != 32) || length != w * h * 4)
        unavailable("the display's pixel format (depth " + std::to_string(image->depth) +
                    ") is not supported");
    // 24-bit true colour arrives as 32-bit words, bytes B, G, R, unused.
    return guarded("CaptureWindow", [&] {
        VImage bgrx = VImage::new_from_memory(xcb_get_image_data(image.get()), size_t(length), w, h,
                                              4, VIPS_FORMAT_UCHAR);
        VImage rgb =
            VImage::bandjoin({bgrx.extract_band(2), bgrx.extract_band(1), bgrx.extract_band(0)});
        return rgb.copy(VImage::option()->set("interpretation", VIPS_INTERPRETATION_sRGB))
            .copy_memory();
    });
}

#else

bool captureSupported() {
    return false;
}

VImage CaptureWindow(long) {
    throw FxError(FxErrorKind::Unavailable, "CaptureWindow",
                  "window capture is not available in this build (built without X11 support)");
}

#endif

} // namespace fx
