// The reference pane's look-up of a topic.
#include "editor/ReferenceTopic.h"

ReferenceTopic ReferenceTopic::find(const QString& documentText, const QString& word) {
    ReferenceTopic topic;
    if (word.isEmpty()) return topic;
    topic.position = int(documentText.indexOf(word, 0, Qt::CaseInsensitive));
    if (topic.position < 0) return topic;
    topic.length = int(word.size());
    topic.turnView = topic.position > 21;
    if (topic.turnView) topic.caret = topic.position - 20;
    return topic;
}
