// Where the reference pane shows a topic: the first match of the word in the document's plain
// text, and whether the view is turned so that the match stands near the top.
#pragma once

#include <QString>

struct ReferenceTopic {
    int position = -1; // the match, found without regard to case; -1: none
    int length = 0;
    // With a match past position 21 the caret goes to the end of the text (scrolling there),
    // then to 20 characters before the match, which brings the entry up to the top.
    bool turnView = false;
    int caret = -1;

    static ReferenceTopic find(const QString& documentText, const QString& word);
};
