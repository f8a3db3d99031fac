// The colouring pass of the script editor, without a window: from the text, the command words
// and the error patterns to the look of every character.
#pragma once

#include "editor/ScriptLooks.h"

#include <QStringList>
#include <vector>

class ScriptColorizer {
public:
    // Every occurrence of a command is coloured, of a pattern marked as an error; both are
    // found without regard to case. Patterns hold CR LF where they span lines.
    void setCommands(const QStringList& commands);
    void setErrorPatterns(const QStringList& patterns);

    // The looks after a full pass over `text` (line breaks as "\n"). The pass works on the
    // text with CR LF line ends, as the editor's rich text holds it, in this order: reset,
    // numbers, command words, comment and error lines, error patterns; a later pass wins.
    std::vector<Look> colour(const QString& text) const;

    // The language's numeric test on one word (sign, digits, point, exponent, "&H" and "&O").
    static bool isNumeric(QStringView word);

private:
    QStringList m_commands; // case folded
    QStringList m_patterns;
};
