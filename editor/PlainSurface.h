// An editing box in plain memory, for the editor's logic without a window (tests, benchmarks).
#pragma once

#include "editor/EditorState.h"

class PlainSurface : public EditSurface {
public:
    QString text() const override { return m_text; }
    void setText(const QString& text) override;
    int selStart() const override { return m_start; }
    int selLength() const override { return m_length; }
    void setSelStart(int start) override;
    void setSelLength(int length) override;
    void replaceSelection(const QString& text) override;
    void showLooks(const LookMap&, int, int) override {}

    // What a typed character does: it replaces the selection.
    void type(const QString& text) { replaceSelection(text); }

private:
    QString m_text;
    int m_start = 0;
    int m_length = 0;
};
