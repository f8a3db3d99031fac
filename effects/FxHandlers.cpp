// Handlers of the fx members with logic: argument conversion, then the clsVTEffects member.
#include "effects/FxHandlers.h"

#include "effects/FxConvert.h"
#include "effects/clsVTEffects.h"
#include "vbscript/Text.h"

namespace fx {

using vbs::Value;

namespace {

// The picture read-back: a snapshot of the image's size, as a picture object offers it.
class PictureObject : public vbs::Dispatch {
public:
    PictureObject(int32_t width, int32_t height) : m_width(width), m_height(height) {}
    int memberId(std::u16string_view name) const override {
        static const std::u16string_view names[] = {u"width", u"height", u"type", u"handle"};
        vbs::String folded = vbs::foldCase(name);
        for (int k = 0; k < 4; ++k)
            if (folded == names[k]) return k;
        return -1;
    }
    Value invoke(int id, vbs::InvokeKind kind, std::span<Value*> args) override {
        if (kind == vbs::InvokeKind::PropertyLet || kind == vbs::InvokeKind::PropertySet ||
            !args.empty())
            vbs::raise(vbs::ErrorCode::WrongArgumentCount);
        switch (id) {
        case 0:
            return Value(m_width);
        case 1:
            return Value(m_height);
        case 2:
            return Value(int16_t(1)); // a bitmap
        case 3:
            return Value(int32_t(0));
        default:
            vbs::raise(vbs::ErrorCode::NoSuchMember);
        }
    }
    int defaultMemberId() const override { return 3; }
    vbs::String typeName() const override { return u"Picture"; }

private:
    int32_t m_width, m_height;
};

} // namespace

Value init(clsVTEffects& fx, Args args) {
    auto* ref = dynamic_cast<clsImagingControlRef*>(args[0]->toObject());
    if (!ref) vbs::raise(vbs::ErrorCode::TypeMismatch, u"Init");
    fx.Init(ref->control());
    return {};
}

Value colorize(clsVTEffects& fx, Args args) {
    fx.Colorize(args[0]->toLong());
    return {};
}

Value resizePercent(clsVTEffects& fx, Args args) {
    fx.ResizePercent(args[0]->toInteger());
    return {};
}

Value resizeAspect(clsVTEffects& fx, Args args) {
    fx.ResizeAspect(args[0]->toLong(), args[1]->toLong(), args[2]->toBoolean());
    return {};
}

Value saveFileNameAddPrefix(clsVTEffects& fx, Args args) {
    fx.SaveFileNameAddPrefix(args[0]->toString());
    return {};
}

Value saveFileNameExtension(clsVTEffects& fx, Args args) {
    fx.SaveFileNameExtension(args[0]->toString());
    return {};
}

// Sets the font in the order name, italic, bold, size, strikethrough, underline.
Value font(clsVTEffects& fx, Args args) {
    std::string name = vbs::toUtf8(args[0]->toString());
    int32_t size = args[1]->toLong();
    bool italic = args[2]->toBoolean(), bold = args[3]->toBoolean();
    bool underline = args[4]->toBoolean(), strike = args[5]->toBoolean();
    auto& c = fx.control();
    c.setProperty("FontName", name);
    c.setProperty("FontItalic", italic);
    c.setProperty("FontBold", bold);
    c.setProperty("FontSize", size);
    c.setProperty("FontStrikethrough", strike);
    c.setProperty("FontUnderline", underline);
    return {};
}

Value msgDisplay(clsVTEffects& fx, Args args) {
    constexpr int vbOKOnlyInformation = 64;
    fx.host().msgBox(args[0]->toString(), vbOKOnlyInformation, u"Info");
    return {};
}

Value filenameLet(clsVTEffects& fx, Args args) {
    fx.setFilename(args[0]->toString());
    return {};
}

Value picture(clsVTEffects& fx, Args) {
    auto& c = fx.control();
    c.setProperty("PictureSync", true);
    auto width = std::get<int32_t>(c.property("ImagWidth"));
    auto height = std::get<int32_t>(c.property("ImagHeight"));
    return Value(vbs::makeRef<PictureObject>(width, height));
}

Value numPages(clsVTEffects& fx, Args args) {
    return Value(fx.control().numPages(vbs::toUtf8(args[0]->toString())));
}

Value colorSeparation(clsVTEffects& fx, Args args) {
    fx.ColorSeparation(args[0]->toInteger());
    return {};
}

// The control receives the nine coefficients, then b, then a: the reverse of the script's order
// for the two scalars.
Value matrix(clsVTEffects& fx, Args args) {
    int16_t a = args[0]->toInteger(), b = args[1]->toInteger();
    std::vector<imaging::Arg> converted(11, imaging::Arg(int32_t(0)));
    for (size_t k = 2; k < 11; ++k)
        converted[k - 2] = int32_t(args[k]->toInteger());
    converted[9] = int32_t(b);
    converted[10] = int32_t(a);
    fx.control().invoke("Matrix", converted);
    return {};
}

} // namespace fx
