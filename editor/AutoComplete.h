// Inline completion of fx calls: the list of matching command words, the proposal inserted and
// selected at the caret, the keys that accept or cycle it, and the "fx" started after Enter.
#pragma once

#include "editor/EditorState.h"

#include <functional>

class AutoComplete {
public:
    // colorizeIfChanged runs the colouring pass when the text changed since the last one.
    AutoComplete(EditorState& state, EditSurface& box, TimerPort& timers,
                 std::function<void()> colorizeIfChanged);

    // Asks for the list (tHelp) unless completion is off or the request is to be skipped.
    void StartListTimer();
    // tHelp's tick: fills the list from the caret line and proposes its current entry.
    void FillHelpList();
    // Inserts the current entry's rest for `typed` and selects it.
    void ShowProposal(const QString& typed);

    // Key down: true when the key is used up here and must not reach the box.
    bool keyDown(int key);
    void keyUp(int key);
    // A double-click on entry `index` of the list puts that command's rest at the caret.
    void listDoubleClicked(int index);
    // A mouse button pressed in the box, or the box losing the focus: a selected "fx" goes.
    void dropSuggestion();

private:
    bool proposalKey(int key);
    void moveCurrent(int step);

    EditorState& m_state;
    EditSurface& m_box;
    TimerPort& m_timers;
    std::function<void()> m_colorizeIfChanged;
};
