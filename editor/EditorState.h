// What the script editor's logic shares: its fields, the key codes it reacts to, its timers and
// the text box it works on. The window implements the box and the timers on Qt; tests implement
// them in plain memory with a hand-driven clock.
#pragma once

#include "editor/ScriptLooks.h"

#include <QString>
#include <QStringList>
#include <QVariant>

// Key codes as the editor's key handlers see them (Windows virtual keys).
namespace EditorKey {
constexpr int Backspace = 8, Tab = 9, Enter = 13, Space = 32, Left = 37, Up = 38, Right = 39,
              Down = 40, FullStop = 190;
} // namespace EditorKey

// The completion list lstProperties: its entries, the current one (-1: none) and whether shown.
struct CompletionList {
    QStringList items;
    int current = -1;
    bool visible = false;
};

struct EditorState {
    QStringList Commands;      // command words of data/commands.txt
    QStringList ErrorPatterns; // patterns of data/errors.txt, "{vbcrlf}" made CR LF
    bool TextChanged = false;  // a change since the last colouring pass
    bool ListShown = false;    // a completion proposal is in use
    bool SkipNextList = false; // the next request to open the list does nothing
    QString LastHelpWord;
    QString LastCommandLine;
    QString TypedText;   // the caret line the proposal was made for
    QString Proposal;    // the inserted rest of the command, with its trailing space
    QString findTag;     // tFind's tag: the caret line as last tracked
    QString colorizeTag; // tColorize's tag, for the dormant word colouring
    CompletionList list;
};

// The editor's four timers. Each ticks every interval while enabled; enabling an enabled timer
// does not restart it (disable, then enable, does). Their handlers switch them off.
enum class EditorTimer { Colorize, Find, Help, DoPreview };
constexpr int timerInterval(EditorTimer t) {
    return t == EditorTimer::Colorize || t == EditorTimer::DoPreview ? 500 : 200;
}

class TimerPort {
public:
    virtual ~TimerPort() = default;
    virtual void setEnabled(EditorTimer timer, bool enabled) = 0;
    virtual bool isEnabled(EditorTimer timer) const = 0;
};

// The editing box, as the logic uses a rich-text box: plain text with "\n" line breaks, a
// selection whose start can be set (which empties it) and then extended, and replacement of the
// selection. Every change of the text is reported to the listener.
class EditSurface {
public:
    class Listener {
    public:
        virtual ~Listener() = default;
        // [pos, pos + removed) of the old text became `added` new characters.
        virtual void textEdited(int pos, int removed, int added) = 0;
    };

    virtual ~EditSurface() = default;
    virtual QString text() const = 0;
    virtual void setText(const QString& text) = 0;
    virtual int selStart() const = 0;
    virtual int selLength() const = 0;
    virtual void setSelStart(int start) = 0;
    virtual void setSelLength(int length) = 0;
    virtual void replaceSelection(const QString& text) = 0;
    // Shows the looks of [from, to); a box without a window has nothing to show.
    virtual void showLooks(const LookMap& looks, int from, int to) = 0;
    virtual int firstVisibleLine() const { return 0; }

    void setListener(Listener* listener) { m_listener = listener; }
    QString selectedText() const { return text().mid(selStart(), selLength()); }

    // Facts about the caret's line: 2 first visible line, 3 caret line (from 0), 4 caret
    // position, 5 start of the caret line, 6 its length, 7 line count, 8 its text; 1 is reserved
    // (an empty result), any other value answers "This should not happen!! Try Again!!".
    QVariant GetEditInfo(int what) const;
    QString caretLineText() const { return GetEditInfo(8).toString(); }

protected:
    void edited(int pos, int removed, int added) {
        if (m_listener) m_listener->textEdited(pos, removed, added);
    }

private:
    Listener* m_listener = nullptr;
};
