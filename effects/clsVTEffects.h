// The fx object: the one object through which scripts touch images, a facade over the imaging
// control with the save-name rules, MsgDisplay, Picture and the resize/colour helpers.
#pragma once

#include <map>
#include <memory>
#include <optional>

#include "effects/FxMember.h"
#include "imaging/ImagingControl.h"
#include "vbscript/Host.h"
#include "vbscript/Object.h"
#include "vbscript/ScriptError.h"

class clsVTEffects : public vbs::Dispatch {
public:
    clsVTEffects();
    ~clsVTEffects() override;

    // Hands over the imaging control (a counted reference) and switches on picture sync, undo and
    // metadata keeping. The script host calls it before adding the object to the engine.
    void Init(std::shared_ptr<imaging::ImagingControl> control);
    // Where MsgDisplay sends its box; the engine's host (the default host when not set).
    void setHost(vbs::Host* host) { m_host = host; }

    int memberId(std::u16string_view name) const override;
    vbs::Value invoke(int memberId, vbs::InvokeKind kind, std::span<vbs::Value*> args) override;
    vbs::String typeName() const override { return u"clsVTEffects"; }

    imaging::ImagingControl& control();
    vbs::Host& host();

    // The members with logic (scripts reach them through invoke).
    void ResizeAspect(int32_t maxWidth, int32_t maxHeight, bool allowEnlarge, int depth = 0);
    void ResizePercent(int16_t percent);
    void Colorize(int32_t color);
    void ColorSeparation(int16_t mode);
    void SaveFileNameAddPrefix(const vbs::String& prefix);
    void SaveFileNameExtension(const vbs::String& extension);
    void setFilename(const vbs::String& name);

    // The end of a run: waits for the saves still running in the background and returns the
    // first failure among them that no statement has reported yet, placed at its SaveFile.
    std::optional<vbs::ScriptError> finishRun();

private:
    vbs::Value call(const fx::MemberDef& def, std::span<vbs::Value*> args);
    void noteSaveSite(std::u16string_view member);
    [[noreturn]] void raiseDeferred(const imaging::DeferredSaveFailure& failure);

    std::shared_ptr<imaging::ImagingControl> m_control;
    vbs::Host* m_host = nullptr;
    std::map<uint64_t, vbs::ScriptError> m_saveSites; // by save ticket
};

// Wraps an imaging control so that a script host can hand it to fx.Init as an object.
class clsImagingControlRef : public vbs::Dispatch {
public:
    explicit clsImagingControlRef(std::shared_ptr<imaging::ImagingControl> control)
        : m_control(std::move(control)) {}
    int memberId(std::u16string_view) const override { return -1; }
    vbs::Value invoke(int, vbs::InvokeKind, std::span<vbs::Value*>) override;
    vbs::String typeName() const override { return u"ImagingControl"; }
    const std::shared_ptr<imaging::ImagingControl>& control() const { return m_control; }

private:
    std::shared_ptr<imaging::ImagingControl> m_control;
};
