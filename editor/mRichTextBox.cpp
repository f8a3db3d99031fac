// The script box's event forwarding and the surface's selection and formats on Qt.
#include "editor/mRichTextBox.h"

#include "editor/ScriptEditorCore.h"

#include <QKeyEvent>
#include <QTextBlock>
#include <QTextLayout>
#include <algorithm>

int mRichTextBox::keyCode(int qtKey) {
    switch (qtKey) {
    case Qt::Key_Backspace:
        return EditorKey::Backspace;
    case Qt::Key_Tab:
        return EditorKey::Tab;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return EditorKey::Enter;
    case Qt::Key_Space:
        return EditorKey::Space;
    case Qt::Key_Left:
        return EditorKey::Left;
    case Qt::Key_Up:
        return EditorKey::Up;
    case Qt::Key_Right:
        return EditorKey::Right;
    case Qt::Key_Down:
        return EditorKey::Down;
    case Qt::Key_Period:
        return EditorKey::FullStop;
    default:
        return (qtKey >= Qt::Key_A && qtKey <= Qt::Key_Z) ||
                       (qtKey >= Qt::Key_0 && qtKey <= Qt::Key_9)
                   ? qtKey
                   : 0;
    }
}

ScriptTextBox::ScriptTextBox(QWidget* parent) : QPlainTextEdit(parent) {}

void ScriptTextBox::keyPressEvent(QKeyEvent* event) {
    if (!m_core) return QPlainTextEdit::keyPressEvent(event);
    if (m_core->keyDown(mRichTextBox::keyCode(event->key()))) {
        event->accept(); // used up: nothing is typed
    } else {
        QPlainTextEdit::keyPressEvent(event);
        if (!event->text().isEmpty()) m_core->keyPress();
    }
    Q_EMIT eventForwarded();
}

void ScriptTextBox::keyReleaseEvent(QKeyEvent* event) {
    QPlainTextEdit::keyReleaseEvent(event);
    // A held key repeats its press, not its release.
    if (!m_core || event->isAutoRepeat()) return;
    m_core->keyUp(mRichTextBox::keyCode(event->key()));
    Q_EMIT eventForwarded();
}

void ScriptTextBox::mousePressEvent(QMouseEvent* event) {
    if (m_core) m_core->mouseDown();
    QPlainTextEdit::mousePressEvent(event);
}

void ScriptTextBox::mouseReleaseEvent(QMouseEvent* event) {
    QPlainTextEdit::mouseReleaseEvent(event);
    if (!m_core) return;
    if (event->button() == Qt::RightButton) {
        Q_EMIT rightButtonReleased(event->globalPosition().toPoint());
        return;
    }
    m_core->mouseUp();
    m_core->click();
    Q_EMIT eventForwarded();
}

void ScriptTextBox::focusOutEvent(QFocusEvent* event) {
    if (m_core) m_core->focusLost();
    QPlainTextEdit::focusOutEvent(event);
}

void ScriptTextBox::contextMenuEvent(QContextMenuEvent* event) {
    event->accept(); // the editor's own menu opens on the button's release
}

RichTextSurface::RichTextSurface(QPlainTextEdit* box) : m_box(box) {
    m_length = int(box->toPlainText().size());
    connect(box->document(), &QTextDocument::contentsChange, this,
            &RichTextSurface::contentsChanged);
}

QString RichTextSurface::text() const {
    return m_box->toPlainText();
}

void RichTextSurface::setText(const QString& text) {
    m_box->setPlainText(text);
}

int RichTextSurface::selStart() const {
    return m_box->textCursor().selectionStart();
}

int RichTextSurface::selLength() const {
    const QTextCursor c = m_box->textCursor();
    return c.selectionEnd() - c.selectionStart();
}

void RichTextSurface::setSelStart(int start) {
    QTextCursor c = m_box->textCursor();
    c.setPosition(std::clamp(start, 0, m_length));
    m_box->setTextCursor(c);
}

void RichTextSurface::setSelLength(int length) {
    QTextCursor c = m_box->textCursor();
    const int start = c.selectionStart();
    c.setPosition(start);
    c.setPosition(std::clamp(start + length, start, m_length), QTextCursor::KeepAnchor);
    m_box->setTextCursor(c);
}

void RichTextSurface::replaceSelection(const QString& text) {
    QTextCursor c = m_box->textCursor();
    c.insertText(text);
    m_box->setTextCursor(c);
}

int RichTextSurface::firstVisibleLine() const {
    return m_box->cursorForPosition(QPoint(0, 0)).blockNumber();
}

namespace {

QTextCharFormat formatOf(Look look) {
    const Rgb rgb = inkColour(look.ink);
    QTextCharFormat f;
    f.setForeground(QColor(rgb.red, rgb.green, rgb.blue));
    f.setFontWeight(look.bold ? QFont::Bold : QFont::Normal);
    return f;
}

// The looks of one block as runs of equal looks.
QList<QTextLayout::FormatRange> blockFormats(const LookMap& looks, const QTextBlock& block) {
    QList<QTextLayout::FormatRange> ranges;
    const int start = block.position(), end = std::min(start + block.length() - 1, looks.size());
    for (int i = start; i < end;) {
        int j = i + 1;
        while (j < end && looks.at(j) == looks.at(i))
            ++j;
        ranges.append({i - start, j - i, formatOf(looks.at(i))});
        i = j;
    }
    return ranges;
}

} // namespace

void RichTextSurface::showLooks(const LookMap& looks, int from, int to) {
    QTextDocument* doc = m_box->document();
    QTextBlock block = doc->findBlock(std::clamp(from, 0, m_length));
    const QTextBlock last = doc->findBlock(std::clamp(to, 0, m_length));
    if (!block.isValid()) return;
    const int dirtyFrom = block.position();
    int dirtyTo = dirtyFrom;
    m_showing = true;
    for (;; block = block.next()) {
        block.layout()->setFormats(blockFormats(looks, block));
        dirtyTo = block.position() + block.length();
        if (block == last || !block.next().isValid()) break;
    }
    doc->markContentsDirty(dirtyFrom, dirtyTo - dirtyFrom);
    m_showing = false;
}

// Qt reports a replaced document (setPlainText) with its closing paragraph mark counted; the
// counts are brought back to the text's own length.
void RichTextSurface::contentsChanged(int pos, int removed, int added) {
    if (m_showing) return;
    const int newLength = m_box->document()->characterCount() - 1;
    removed = std::clamp(removed, 0, std::max(m_length - pos, 0));
    added = newLength - (m_length - removed);
    if (added < 0) {
        removed -= added;
        added = 0;
    }
    m_length = newLength;
    if (removed == 0 && added == 0) return;
    edited(pos, removed, added);
    if (m_looks) showLooks(*m_looks, pos, pos + added);
}
