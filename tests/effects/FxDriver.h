// Drives the fx object through its dispatch interface, as the script engine does.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "effects/clsVTEffects.h"
#include "vbscript/ScriptError.h"
#include "vbscript/Text.h"

// Records message boxes instead of showing them.
class RecordingHost : public vbs::Host {
public:
    int msgBox(const vbs::String& prompt, int buttons, const vbs::String& title) override {
        prompts.push_back(prompt);
        titles.push_back(title);
        lastButtons = buttons;
        return 1;
    }
    std::vector<vbs::String> prompts, titles;
    int lastButtons = -1;
};

class FxDriver {
public:
    FxDriver()
        : control(std::make_shared<imaging::ImagingControl>()), fx(vbs::makeRef<clsVTEffects>()) {
        fx->Init(control);
        fx->setHost(&host);
    }

    vbs::Value invoke(const std::u16string& name, vbs::InvokeKind kind,
                      std::vector<vbs::Value> args) {
        int id = fx->memberId(name);
        if (id < 0) throw vbs::ScriptError(vbs::ErrorCode::NoSuchMember, name);
        std::vector<vbs::Value*> refs;
        for (auto& a : args)
            refs.push_back(&a);
        return fx->invoke(id, kind, refs);
    }
    vbs::Value call(const std::u16string& name, std::vector<vbs::Value> args = {}) {
        return invoke(name, vbs::InvokeKind::Method, std::move(args));
    }
    vbs::Value get(const std::u16string& name, std::vector<vbs::Value> args = {}) {
        return invoke(name, vbs::InvokeKind::PropertyGet, std::move(args));
    }
    void let(const std::u16string& name, vbs::Value value) {
        invoke(name, vbs::InvokeKind::PropertyLet, {std::move(value)});
    }
    void letPath(const std::u16string& name, const std::string& path) {
        let(name, vbs::Value(vbs::fromUtf8(path)));
    }
    void load(const std::string& path) { letPath(u"filename", path); }
    void saveAs(const std::string& path) {
        letPath(u"SaveFileName", path);
        call(u"SaveFile");
    }
    int width() { return get(u"ImagWidth").toLong(); }
    int height() { return get(u"IHeight").toLong(); }
    std::string str(const std::u16string& name) { return vbs::toUtf8(get(name).toString()); }

    // The script error number a call raises, 0 when it succeeds.
    template <class F> int errorOf(F&& body) {
        try {
            body();
        } catch (const vbs::ScriptError& e) {
            lastDescription = vbs::toUtf8(e.description);
            return e.number;
        }
        return 0;
    }

    RecordingHost host;
    std::shared_ptr<imaging::ImagingControl> control;
    vbs::Ref<clsVTEffects> fx;
    std::string lastDescription;
};

inline vbs::Value I(int v) {
    return vbs::Value(int16_t(v));
}
inline vbs::Value L(int v) {
    return vbs::Value(int32_t(v));
}
inline vbs::Value S(const char* s) {
    return vbs::Value(vbs::fromUtf8(s));
}
