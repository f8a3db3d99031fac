// The rich-text helpers of the editor on Qt: the script box (a QPlainTextEdit that forwards its
// key, mouse and focus events to the editor's logic) and the editing surface over it, which
// shows the looks as formats of the text's layout (never as document formats, so colouring
// changes no text, adds nothing to undo and reports no change).
#pragma once

#include "editor/EditorState.h"

#include <QPlainTextEdit>

class ScriptEditorCore;

namespace mRichTextBox {

// Qt's key to the key code the editor's logic reacts to; 0 for keys it treats alike.
int keyCode(int qtKey);

} // namespace mRichTextBox

class ScriptTextBox : public QPlainTextEdit {
    Q_OBJECT
public:
    explicit ScriptTextBox(QWidget* parent = nullptr);
    void setCore(ScriptEditorCore* core) { m_core = core; }

Q_SIGNALS:
    // The right mouse button was released: the editor's menu is due.
    void rightButtonReleased(const QPoint& globalPos);
    // An event went to the editor's logic, which may have changed the completion list.
    void eventForwarded();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    ScriptEditorCore* m_core = nullptr;
};

class RichTextSurface : public QObject, public EditSurface {
    Q_OBJECT
public:
    explicit RichTextSurface(QPlainTextEdit* box);
    // The looks shown again where the text is edited (layout formats stay where they were).
    void setLooks(const LookMap* looks) { m_looks = looks; }

    QString text() const override;
    void setText(const QString& text) override;
    int selStart() const override;
    int selLength() const override;
    void setSelStart(int start) override;
    void setSelLength(int length) override;
    void replaceSelection(const QString& text) override;
    void showLooks(const LookMap& looks, int from, int to) override;
    int firstVisibleLine() const override;

private:
    void contentsChanged(int pos, int removed, int added);

    QPlainTextEdit* m_box;
    const LookMap* m_looks = nullptr;
    int m_length = 0;       // the text's length as last reported
    bool m_showing = false; // layout formats being set: not an edit
};
