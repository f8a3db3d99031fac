// The in-memory editing box: a rich-text box's selection rules on a string.
#include "editor/PlainSurface.h"

#include <algorithm>

void PlainSurface::setText(const QString& text) {
    const int old = int(m_text.size());
    m_text = text;
    m_start = 0;
    m_length = 0;
    edited(0, old, int(text.size()));
}

void PlainSurface::setSelStart(int start) {
    m_start = std::clamp(start, 0, int(m_text.size()));
    m_length = 0;
}

void PlainSurface::setSelLength(int length) {
    m_length = std::clamp(length, 0, int(m_text.size()) - m_start);
}

void PlainSurface::replaceSelection(const QString& text) {
    const int at = m_start, removed = m_length;
    m_text.replace(at, removed, text);
    m_start = at + int(text.size());
    m_length = 0;
    edited(at, removed, int(text.size()));
}
