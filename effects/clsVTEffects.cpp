// The fx object: dispatch through the member table, and the members with logic of their own.
#include "effects/clsVTEffects.h"

#include <cmath>

#include "effects/FxConvert.h"
#include "vbscript/ScriptError.h"
#include "vbscript/Text.h"

using fx::MemberDef;
using fx::MemberKind;
using vbs::ErrorCode;
using vbs::InvokeKind;
using vbs::Value;

namespace {

// The entry of a name that serves a kind of call. A property read may be written as a call and a
// set-only member as a one-argument statement, as scripts do.
const MemberDef* pick(int id, InvokeKind kind, size_t argCount) {
    auto table = fx::memberTable();
    const MemberDef* get = nullptr;
    const MemberDef* let = nullptr;
    const MemberDef* method = nullptr;
    for (size_t k = id; k < table.size() && vbs::equalsNoCase(table[k].name, table[id].name); ++k) {
        if (table[k].kind == MemberKind::Get) get = &table[k];
        if (table[k].kind == MemberKind::Let) let = &table[k];
        if (table[k].kind == MemberKind::Method) method = &table[k];
    }
    switch (kind) {
    case InvokeKind::PropertyLet:
    case InvokeKind::PropertySet:
        return let;
    case InvokeKind::PropertyGet:
        return get ? get : method;
    case InvokeKind::Method:
        if (method) return method;
        if (get) return get;
        return argCount == 1 ? let : nullptr;
    }
    return nullptr;
}

void checkArgCount(const MemberDef& def, std::span<Value*> args) {
    size_t required = 0;
    for (char c : def.args)
        required += c != 'v';
    if (args.size() < required || args.size() > def.args.size())
        vbs::raise(ErrorCode::WrongArgumentCount, vbs::String(def.name));
    for (size_t k = 0; k < required; ++k)
        if (args[k]->isMissing()) vbs::raise(ErrorCode::ArgumentNotOptional, vbs::String(def.name));
}

} // namespace

clsVTEffects::clsVTEffects() = default;
clsVTEffects::~clsVTEffects() = default;

void clsVTEffects::Init(std::shared_ptr<imaging::ImagingControl> control) {
    m_control = std::move(control);
    for (const char* flag : {"PictureSync", "UndoEnabled", "KeepMetadata"})
        m_control->setProperty(flag, true);
}

imaging::ImagingControl& clsVTEffects::control() {
    if (!m_control) vbs::raise(ErrorCode::ObjectVariableNotSet, u"fx");
    return *m_control;
}

vbs::Host& clsVTEffects::host() {
    return m_host ? *m_host : vbs::defaultHost();
}

int clsVTEffects::memberId(std::u16string_view name) const {
    auto table = fx::memberTable();
    for (size_t k = 0; k < table.size(); ++k)
        if (vbs::equalsNoCase(table[k].name, name)) return static_cast<int>(k);
    return -1;
}

Value clsVTEffects::invoke(int id, InvokeKind kind, std::span<Value*> args) {
    auto table = fx::memberTable();
    if (id < 0 || id >= static_cast<int>(table.size())) vbs::raise(ErrorCode::NoSuchMember);
    const MemberDef* def = pick(id, kind, args.size());
    if (!def) vbs::raise(ErrorCode::WrongArgumentCount, vbs::String(table[id].name));
    checkArgCount(*def, args);
    try {
        Value result = call(*def, args);
        noteSaveSite(def->name);
        return result;
    } catch (const imaging::DeferredSaveFailure& failure) {
        raiseDeferred(failure);
    } catch (const imaging::ImagingError& e) {
        fx::raiseFromImaging(e, def->name);
    }
}

// A save handed to the background is remembered with the statement that asked for it: if it
// fails, the error is reported there, as it would have been had the save been done at once.
void clsVTEffects::noteSaveSite(std::u16string_view member) {
    const std::optional<uint64_t> ticket = control().takeSaveTicket();
    if (!ticket) return;
    vbs::ScriptError site(0, {}, u"fx." + vbs::String(member));
    vbs::locateAtRunningStatement(site);
    m_saveSites.emplace(*ticket, std::move(site));
    // Only the last few saves can still be running or have an unreported failure.
    while (m_saveSites.size() > 256)
        m_saveSites.erase(m_saveSites.begin());
}

void clsVTEffects::raiseDeferred(const imaging::DeferredSaveFailure& failure) {
    auto site = m_saveSites.find(failure.ticket());
    vbs::ScriptError e(failure.number(), vbs::fromUtf8(failure.what()),
                       site == m_saveSites.end() ? vbs::String(u"fx.SaveFile")
                                                 : site->second.source);
    if (site != m_saveSites.end()) {
        e.line = site->second.line;
        e.column = site->second.column;
        e.chunk = site->second.chunk;
    }
    throw e;
}

std::optional<vbs::ScriptError> clsVTEffects::finishRun() {
    try {
        control().finishRun();
    } catch (const imaging::DeferredSaveFailure& failure) {
        try {
            raiseDeferred(failure);
        } catch (const vbs::ScriptError& e) {
            return e;
        }
    }
    return std::nullopt;
}

// A member without a handler is the control's operation or property of the same name.
Value clsVTEffects::call(const MemberDef& def, std::span<Value*> args) {
    if (def.handler) return def.handler(*this, args);
    std::vector<imaging::Arg> converted;
    for (size_t k = 0; k < args.size(); ++k)
        converted.push_back(fx::toControlArg(def.args[k], *args[k]));
    std::string name = vbs::toUtf8(def.name);
    switch (def.kind) {
    case MemberKind::Get:
        return fx::toScriptValue(def.result, control().property(name));
    case MemberKind::Let:
        control().setProperty(name, converted.back());
        return {};
    case MemberKind::Method:
        control().invoke(name, converted);
        return {};
    }
    return {};
}

void clsVTEffects::setFilename(const vbs::String& name) {
    control().setFileName(vbs::toUtf8(name));
    control().setProperty("SaveFileName", control().fileName());
}

void clsVTEffects::Colorize(int32_t color) {
    int16_t red = fx::toInteger16(color & 255);
    int16_t green = fx::toInteger16((color & 65280) / 256.0);
    int16_t blue = fx::toInteger16((color & 16711680) / 65536.0);
    std::vector<imaging::Arg> hsl{int32_t(0), int32_t(-100), int32_t(0)};
    control().invoke("AdjustHSL", hsl);
    std::vector<imaging::Arg> rgb{int32_t(1), int32_t(red), int32_t(green), int32_t(blue)};
    control().invoke("AdjustRGB", rgb);
}

// Sizes are 32-bit throughout: a panorama may be far wider than 32767 pixels.
void clsVTEffects::ResizePercent(int16_t percent) {
    double w = std::get<int32_t>(control().property("ImagWidth"));
    double h = std::get<int32_t>(control().property("IHeight"));
    ResizeAspect(fx::toLong32(w * (percent / 100.0)), fx::toLong32(h * (percent / 100.0)), false);
}

// Fits the image into maxWidth x maxHeight keeping its proportions. Without allowEnlarge a fit
// that grows one side calls itself again with crossed arguments; that crossing is deliberate.
void clsVTEffects::ResizeAspect(int32_t maxWidth, int32_t maxHeight, bool allowEnlarge, int depth) {
    if (depth > 64) vbs::raise(ErrorCode::OutOfStackSpace, u"ResizeAspect");
    double w = std::get<int32_t>(control().property("ImagWidth"));
    double h = std::get<int32_t>(control().property("IHeight"));
    if (w == 0 || h == 0) vbs::raise(ErrorCode::DivisionByZero, u"ResizeAspect");
    double newWidth, newHeight;
    if (h > w) {
        newWidth = std::nearbyint(w * (maxHeight / h));
        newHeight = maxHeight;
        if (newWidth > maxWidth) {
            newHeight = std::nearbyint(h * (maxWidth / w));
            newWidth = maxWidth;
        }
    } else {
        newHeight = std::nearbyint(h * (maxWidth / w));
        newWidth = maxWidth;
        if (newHeight > maxHeight) {
            newWidth = std::nearbyint(w * (maxHeight / h));
            newHeight = maxHeight;
        }
    }
    if (!allowEnlarge) {
        if (newHeight > h && newWidth > w) return;
        if (newWidth > w) return ResizeAspect(maxHeight, static_cast<int32_t>(w), false, depth + 1);
        if (newHeight > h) return ResizeAspect(static_cast<int32_t>(h), maxWidth, false, depth + 1);
    }
    std::vector<imaging::Arg> size{fx::toLong32(newWidth), fx::toLong32(newHeight)};
    control().invoke("PICResize", size);
}

void clsVTEffects::ColorSeparation(int16_t mode) {
    if (mode < 0 || mode > 12) return;
    int32_t kind = mode == 12 ? 3 : mode / 3;
    int32_t plane = mode == 12 ? 3 : mode % 3;
    std::vector<imaging::Arg> args{kind};
    control().invoke("ColorSeparation", args);
    control().selectSeparatedPlane(plane);
}

// Puts the prefix between the folder part (through the last "\") and the name part.
void clsVTEffects::SaveFileNameAddPrefix(const vbs::String& prefix) {
    vbs::String s = vbs::fromUtf8(std::get<std::string>(control().property("SaveFileName")));
    size_t cut = s.rfind(u'\\');
    vbs::String folder = cut == vbs::String::npos ? vbs::String() : s.substr(0, cut + 1);
    vbs::String name = cut == vbs::String::npos ? s : s.substr(cut + 1);
    if (folder.empty() || folder.back() != u'\\') folder += u'\\';
    control().setProperty("SaveFileName", vbs::toUtf8(folder + prefix + name));
}

// Replaces the extension, looking for its dot only at five fixed distances from the end, in the
// order 4, 5, 3, 2, 6 (three-, four-, two-, one- and five-letter extensions).
void clsVTEffects::SaveFileNameExtension(const vbs::String& extension) {
    vbs::String ext;
    for (char16_t c : extension)
        if (c != u'.') ext += c;
    vbs::String s = vbs::fromUtf8(std::get<std::string>(control().property("SaveFileName")));
    for (size_t k : {4, 5, 3, 2, 6}) {
        if (s.size() >= k && s[s.size() - k] == u'.') {
            s.resize(s.size() - k);
            break;
        }
    }
    control().setProperty("SaveFileName", vbs::toUtf8(s + u"." + ext));
}

Value clsImagingControlRef::invoke(int, vbs::InvokeKind, std::span<Value*>) {
    vbs::raise(ErrorCode::NoSuchMember);
}
