// DrawText: anti-aliased text laid out by pango in the control's Font, drawn with cairo.
#include <memory>

#include <pango/pangocairo.h>

#include "imaging/fx/DrawComposite.h"
#include "imaging/fx/DrawShared.h"
#include "imaging/fx/Drawing.h"
#include "imaging/fx/FxCatalogue.h"
#include "imaging/fx/FxError.h"
#include "imaging/fx/PixelHelpers.h"

using vips::VImage;

namespace fx {

namespace {

using LayoutPtr = std::unique_ptr<PangoLayout, decltype(&g_object_unref)>;

// Points at 96 dots per inch, as text drawn on a screen-sized bitmap.
constexpr double kPixelsPerPoint = 96.0 / 72.0;

LayoutPtr makeLayout(cairo_t* cr, const FontState& font, const std::string& text) {
    LayoutPtr layout(pango_cairo_create_layout(cr), g_object_unref);
    PangoFontDescription* desc = pango_font_description_new();
    pango_font_description_set_family(desc, font.name.empty() ? "Sans" : font.name.c_str());
    pango_font_description_set_absolute_size(desc, font.size * kPixelsPerPoint * PANGO_SCALE);
    pango_font_description_set_weight(desc, font.bold ? PANGO_WEIGHT_BOLD : PANGO_WEIGHT_NORMAL);
    pango_font_description_set_style(desc, font.italic ? PANGO_STYLE_ITALIC : PANGO_STYLE_NORMAL);
    pango_layout_set_font_description(layout.get(), desc);
    pango_font_description_free(desc);
    PangoAttrList* attrs = pango_attr_list_new();
    if (font.underline)
        pango_attr_list_insert(attrs, pango_attr_underline_new(PANGO_UNDERLINE_SINGLE));
    if (font.strikethrough) pango_attr_list_insert(attrs, pango_attr_strikethrough_new(TRUE));
    pango_layout_set_attributes(layout.get(), attrs);
    pango_attr_list_unref(attrs);
    pango_layout_set_text(layout.get(), text.c_str(), int(text.size()));
    return layout;
}

// The box the text covers, ink and logical extents together, relative to its origin.
PangoRectangle textExtents(const FontState& font, const std::string& text) {
    cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, 1, 1);
    cairo_t* cr = cairo_create(surface);
    LayoutPtr layout = makeLayout(cr, font, text);
    PangoRectangle ink, logical;
    pango_layout_get_pixel_extents(layout.get(), &ink, &logical);
    cairo_destroy(cr);
    cairo_surface_destroy(surface);
    int left = std::min(ink.x, logical.x), top = std::min(ink.y, logical.y);
    int right = std::max(ink.x + ink.width, logical.x + logical.width);
    int bottom = std::max(ink.y + ink.height, logical.y + logical.height);
    return {left, top, right - left, bottom - top};
}

} // namespace

VImage DrawText(const VImage& image, const DrawState& st, int x, int y, const std::string& text,
                Colour color) {
    checkDrawState(st);
    checkArgument("DrawText", "x", x);
    checkArgument("DrawText", "y", y);
    checkArgument("DrawText", "color", color);
    if (text.empty()) return image;
    return guarded("DrawText", [&] {
        VImage target = detail::withColours(image, {color});
        PangoRectangle e = textExtents(st.font, text);
        detail::Canvas canvas(target, st.mode, x + e.x - 1, y + e.y - 1, x + e.x + e.width + 2,
                              y + e.y + e.height + 2);
        if (canvas.empty()) return image;
        cairo_t* cr = canvas.cr();
        // The canvas puts pixel centres on integers; text lays out on pixel edges.
        cairo_translate(cr, -0.5, -0.5);
        LayoutPtr layout = makeLayout(cr, st.font, text);
        detail::setCairoColour(cr, color);
        cairo_move_to(cr, x, y);
        pango_cairo_show_layout(cr, layout.get());
        return canvas.compositeOnto(target, st.mode);
    });
}

} // namespace fx
