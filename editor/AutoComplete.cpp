// The completion state machine, driven by the editor's key and timer events.
#include "editor/AutoComplete.h"

#include "platform/mWindowsAPI.h"

namespace {

const QString kSuggestion = QStringLiteral("fx");

bool enabled() {
    return mWindowsAPI::preferences().SetAutoComplete;
}

} // namespace

AutoComplete::AutoComplete(EditorState& state, EditSurface& box, TimerPort& timers,
                           std::function<void()> colorizeIfChanged)
    : m_state(state), m_box(box), m_timers(timers),
      m_colorizeIfChanged(std::move(colorizeIfChanged)) {}

void AutoComplete::StartListTimer() {
    if (!enabled()) return;
    if (m_state.SkipNextList) {
        m_state.SkipNextList = false;
        return;
    }
    m_timers.setEnabled(EditorTimer::Help, true);
}

void AutoComplete::FillHelpList() {
    const QString& line = m_state.findTag;
    CompletionList& list = m_state.list;
    if (line.left(3).toLower() != QStringLiteral("fx.") || line.contains(u' ')) {
        list.visible = false;
        m_state.ListShown = false;
    } else if (m_state.SkipNextList) {
        m_state.SkipNextList = false;
    } else {
        list.items.clear();
        list.current = -1;
        for (const QString& command : m_state.Commands)
            if (command.startsWith(line, Qt::CaseInsensitive)) list.items.append(command);
        list.visible = !list.items.isEmpty();
        // Too many matches to choose from: the list only shows what there is.
        if (list.visible && list.items.size() < 26)
            ShowProposal(line);
        else
            m_state.ListShown = false;
    }
    m_timers.setEnabled(EditorTimer::Help, false);
}

void AutoComplete::ShowProposal(const QString& typed) {
    CompletionList& list = m_state.list;
    if (list.items.isEmpty()) return;
    const int caret = m_box.selStart();
    if (list.current < 0) list.current = 0;
    QString proposal = list.items[list.current];
    proposal.remove(typed, Qt::CaseInsensitive);
    proposal += u' ';
    m_state.TypedText = typed;
    m_state.Proposal = proposal;
    m_box.replaceSelection(proposal);
    m_box.setSelStart(caret);
    m_box.setSelLength(int(proposal.size()));
    m_state.ListShown = true;
}

bool AutoComplete::keyDown(int key) {
    using namespace EditorKey;
    const bool listKey =
        key == Space || key == Enter || key == Tab || key == Backspace || key == Up || key == Down;
    const bool suggestion = m_box.selectedText() == kSuggestion;
    if (listKey) {
        if (m_box.selLength() >= 1 && m_state.ListShown) return proposalKey(key);
        if (key == Enter)
            StartListTimer();
        else if ((key == Down || key == Up) && suggestion)
            m_box.replaceSelection(QString());
        return false;
    }
    if (suggestion && (key == Backspace || key == Left)) {
        m_box.replaceSelection(QString());
    } else if (suggestion && key == FullStop) {
        m_box.setSelStart(m_box.selStart() + 2); // keeps the "fx"; the full stop follows it
        StartListTimer();
    } else if (key != Left && key != Right) {
        StartListTimer();
    }
    return false;
}

// A proposal is pending: Tab and Space accept it, Enter accepts it and starts a new line,
// Backspace drops it (and then deletes a character), Up and Down choose another entry.
bool AutoComplete::proposalKey(int key) {
    using namespace EditorKey;
    switch (key) {
    case Tab:
    case Space:
        m_box.setSelStart(m_box.selStart() + m_box.selLength());
        m_state.ListShown = false;
        m_colorizeIfChanged();
        return true;
    case Backspace:
        m_box.replaceSelection(QString());
        StartListTimer();
        return false;
    case Enter:
        m_box.setSelStart(m_box.selStart() + m_box.selLength());
        m_state.list.visible = false;
        m_state.ListShown = false;
        StartListTimer();
        m_colorizeIfChanged();
        return false;
    default:
        moveCurrent(key == Down ? 1 : -1);
        return true;
    }
}

void AutoComplete::moveCurrent(int step) {
    CompletionList& list = m_state.list;
    m_state.SkipNextList = true;
    const int count = int(list.items.size());
    if (count > 0) list.current = ((list.current + step) % count + count) % count;
    ShowProposal(m_state.TypedText);
}

void AutoComplete::keyUp(int key) {
    using namespace EditorKey;
    const bool recolourKey = key == Space || key == Enter || key == Up || key == Down;
    if (!m_state.ListShown && recolourKey && m_box.selectedText() != kSuggestion)
        m_colorizeIfChanged();
    if (key == Enter && enabled()) {
        m_box.replaceSelection(kSuggestion);
        m_box.setSelStart(m_box.selStart() - 2);
        m_box.setSelLength(2);
    }
}

void AutoComplete::listDoubleClicked(int index) {
    CompletionList& list = m_state.list;
    if (index >= 0 && index < list.items.size()) {
        QString line = m_box.caretLineText();
        const QString selected = m_box.selectedText();
        if (!selected.isEmpty()) line.remove(selected);
        QString item = list.items[index];
        if (!line.contains(u' ') && item.contains(line, Qt::CaseInsensitive))
            m_box.replaceSelection(item.remove(line, Qt::CaseInsensitive) + u' ');
    }
    list.visible = false;
}

void AutoComplete::dropSuggestion() {
    if (m_box.selectedText() == kSuggestion) m_box.replaceSelection(QString());
}
