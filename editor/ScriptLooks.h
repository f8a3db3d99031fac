// How each character of the script is shown (its colour class and bold), and the map of looks
// that follows the text through edits between two colouring passes.
#pragma once

#include <QString>
#include <cstdint>
#include <optional>
#include <vector>

enum class Ink : uint8_t {
    Plain,   // 0, 0, 0
    Number,  // 255, 0, 0
    Command, // 20, 0, 150
    Comment, // the editor's CommentColor, 0, 150, 0
    Error,   // 166, 0, 0 (bold)
    Typed,   // 0, 0, 255: a typed word matching a command (the dormant word colouring)
};

struct Look {
    Ink ink = Ink::Plain;
    bool bold = false;
    bool operator==(const Look&) const = default;
};

struct Rgb {
    int red, green, blue;
};
Rgb inkColour(Ink ink);

// One look per character of the editor's text (line breaks count one character). Text typed
// between passes takes the pending insertion look when one is set, else the look of the
// character before it, as characters of a rich-text box carry their format.
class LookMap {
public:
    int size() const { return int(m_looks.size()); }
    const std::vector<Look>& looks() const { return m_looks; }
    Look at(int pos) const;
    // The look at the caret: the selection's first character, or the one before an empty one.
    Look atCaret(int selStart, int selLength) const;

    void reset(int length);
    void edit(int pos, int removed, int added);
    void setInsertionLook(std::optional<Look> look) { m_insertion = look; }

    // Takes the looks of a pass; returns the range [first, last) that differs from before
    // (first == last when nothing changed), so only that part has to be shown again.
    std::pair<int, int> assign(std::vector<Look> looks);

private:
    std::vector<Look> m_looks;
    std::optional<Look> m_insertion;
};
