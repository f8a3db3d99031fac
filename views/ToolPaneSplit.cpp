// The tool pane's boundary arithmetic.
#include "views/ToolPaneSplit.h"

int ToolPaneSplit::dragPosition(int y, int paneHeight) const {
    int position = m_top + y;
    if (position < kMargin) position = kMargin;
    if (position > paneHeight - kMargin) position = paneHeight - kMargin;
    return position;
}

void ToolPaneSplit::drop(int top) {
    m_top = top;
    m_tag = top;
}

void ToolPaneSplit::togglePreview(int) {
    if (m_top == kMargin) {
        m_top = m_previewTag;
    } else {
        m_previewTag = m_top;
        m_top = kMargin;
    }
    m_tag = m_top;
}

void ToolPaneSplit::toggleReference(int paneHeight) {
    if (m_top == paneHeight - kMargin) {
        m_top = m_referenceTag;
    } else {
        m_referenceTag = m_top;
        m_top = paneHeight - kMargin;
    }
    m_tag = m_top;
}
