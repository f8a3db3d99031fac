// Facts about the caret's line, read from the box's text and selection.
#include "editor/EditorState.h"

QVariant EditSurface::GetEditInfo(int what) const {
    const QString all = text();
    const int caret = selStart();
    const int lineStart = int(all.lastIndexOf(u'\n', caret - 1)) + 1;
    int lineEnd = int(all.indexOf(u'\n', lineStart));
    if (lineEnd < 0) lineEnd = int(all.size());
    switch (what) {
    case 1:
        return {};
    case 2:
        return firstVisibleLine();
    case 3:
        return int(QStringView(all).left(lineStart).count(u'\n'));
    case 4:
        return caret;
    case 5:
        return lineStart;
    case 6:
        return lineEnd - lineStart;
    case 7:
        return int(all.count(u'\n')) + 1;
    case 8:
        return all.mid(lineStart, lineEnd - lineStart);
    default:
        return QStringLiteral("This should not happen!! Try Again!!");
    }
}
