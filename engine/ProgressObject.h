// The progress window as the script sees it (`progress`), on the script engine's Dispatch.
#pragma once

#include "engine/frmConvProgress.h"
#include "vbscript/Object.h"
#include "vbscript/Value.h"

// Members: Show, Hide, DoXEvents, Caption (read/write), Visible (read/write) and Label1, the
// label object with its Caption. The window outlives the object: it stays loaded between runs.
class ProgressObject : public vbs::Dispatch {
public:
    explicit ProgressObject(frmConvProgress& form) : m_form(form) {}
    vbs::String typeName() const override { return u"frmConvProgress"; }
    int memberId(std::u16string_view name) const override;
    vbs::Value invoke(int memberId, vbs::InvokeKind kind, std::span<vbs::Value*> args) override;

private:
    frmConvProgress& m_form;
};

// `progress.Label1`: a label whose default member is its Caption.
class ProgressLabelObject : public vbs::Dispatch {
public:
    explicit ProgressLabelObject(frmConvProgress& form) : m_form(form) {}
    vbs::String typeName() const override { return u"Label"; }
    int memberId(std::u16string_view name) const override;
    vbs::Value invoke(int memberId, vbs::InvokeKind kind, std::span<vbs::Value*> args) override;
    int defaultMemberId() const override { return 0; }

private:
    frmConvProgress& m_form;
};
