// The editor's logic on an in-memory box with a hand-driven clock: keys are pressed as the
// window would forward them, and time passes only when a test says so.
#pragma once

#include "QtPrint.h"
#include "editor/PlainSurface.h"
#include "editor/ScriptEditorCore.h"
#include "platform/mWindowsAPI.h"

#include <map>

class ManualTimers : public TimerPort {
public:
    void setEnabled(EditorTimer timer, bool enabled) override {
        if (!enabled)
            m_due.erase(timer);
        else if (!m_due.count(timer))
            m_due[timer] = m_now + timerInterval(timer);
    }
    bool isEnabled(EditorTimer timer) const override { return m_due.count(timer) != 0; }

    // Lets ms pass, ticking every timer that falls due on the way, in time order.
    void advance(int ms, ScriptEditorCore& core) {
        const int end = m_now + ms;
        for (;;) {
            auto next = m_due.end();
            for (auto it = m_due.begin(); it != m_due.end(); ++it)
                if (it->second <= end && (next == m_due.end() || it->second < next->second))
                    next = it;
            if (next == m_due.end()) break;
            const EditorTimer timer = next->first;
            const int due = next->second;
            m_now = due;
            core.tick(timer);
            auto again = m_due.find(timer);
            if (again != m_due.end() && again->second == due) again->second += timerInterval(timer);
        }
        m_now = end;
    }

private:
    std::map<EditorTimer, int> m_due;
    int m_now = 0;
};

struct EditorHarness {
    PlainSurface box;
    ManualTimers timers;
    ScriptEditorCore core{box, timers};
    QStringList previews;

    explicit EditorHarness(const QStringList& commands = {}, const QStringList& patterns = {}) {
        mWindowsAPI::preferences() = {};
        core.setCommandList(commands, patterns);
        core.PreviewRequest = [this](QString& line) { previews.append(line); };
    }

    // Replaces the whole text and puts the caret at its end, as if typed, then recolours.
    void script(const QString& text) {
        box.setText(text);
        box.setSelStart(int(text.size()));
    }

    // One key as the window forwards it: down, its effect on the box unless used up, the typed
    // character's notice, up.
    void key(int code, const QString& typed = {}) {
        using namespace EditorKey;
        if (!core.keyDown(code)) {
            if (code == Backspace && box.selLength() == 0 && box.selStart() > 0) {
                box.setSelStart(box.selStart() - 1);
                box.setSelLength(1);
            }
            if (code == Left || code == Right)
                box.setSelStart(box.selStart() + (code == Left ? -1 : 1));
            else if (code != Up && code != Down)
                box.replaceSelection(code == Enter ? QStringLiteral("\n") : typed);
            if (code != Left && code != Right && code != Up && code != Down) core.keyPress();
        }
        core.keyUp(code);
    }
    void type(const QString& text) {
        for (QChar c : text)
            key(virtualKey(c), QString(c));
    }
    // Letters and digits have their own codes; other characters none that the editor reacts to.
    static int virtualKey(QChar c) {
        if (c == u'.') return EditorKey::FullStop;
        if (c == u' ') return EditorKey::Space;
        if (c.isLetter()) return c.toUpper().unicode();
        return c.isDigit() ? c.unicode() : 0;
    }
    void wait(int ms) { timers.advance(ms, core); }
    QString selected() const { return box.selectedText(); }
};
