// The scripting view's frame: caption, description, editor and reference, and the status line.
#include "views/srcScripting.h"

#include "controls/uCaptionBar.h"
#include "controls/uDialog.h"
#include "editor/mRichTextBox.h"
#include "editor/uReference.h"
#include "editor/uScriptingWindow.h"
#include "views/frmScript.h"

#include <QSplitter>
#include <QVBoxLayout>

const QString& srcScripting::description() {
    static const QString text = QStringLiteral(
        "The scripting editor allows you to manipulate photos directly using VBScript and the "
        "Vantorel 3 Engine. The Reference pane on the right can assist you in finding all the "
        "photo engine commands available to you. Note: The scripting engine supports all normal "
        "VBScript functions.");
    return text;
}

srcScripting::srcScripting(QWidget* parent)
    : QWidget(parent), m_caption(new uCaptionBar(this)), m_dialog(new uDialog(this)),
      m_split(new QSplitter(Qt::Horizontal, this)), m_editor(new uScriptingWindow(m_split)),
      m_reference(new uReference(m_split)), m_status(new uCaptionBar(this)) {
    setObjectName(QStringLiteral("srcScripting"));
    m_caption->setObjectName(QStringLiteral("uCap"));
    m_caption->setCaption(QStringLiteral("Scripting Editor"));
    m_dialog->setObjectName(QStringLiteral("uDialog"));
    m_dialog->setText(description());
    m_split->setObjectName(QStringLiteral("pSplit"));
    m_split->setChildrenCollapsible(false);
    m_split->setStretchFactor(0, 3);
    m_split->setStretchFactor(1, 2);
    m_status->setObjectName(QStringLiteral("uStatus"));
    // A long command line on the status line must not widen the window.
    m_status->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_caption);
    layout->addWidget(m_dialog);
    layout->addWidget(m_split, 1);
    layout->addWidget(m_status);
    m_editor->setReferencePane(m_reference);
    // Until the preview pane takes them, the requests are shown on the status line.
    connect(m_editor, &uScriptingWindow::PreviewRequest, this, [this](const QString& line) {
        m_status->setCaption(QStringLiteral("Preview:"));
        m_status->setStatus(line);
    });
    setFocusProxy(m_editor->box());
}

void srcScripting::LoadInitSettings() {
    m_caption->LoadInitSettings();
    m_dialog->LoadInitSettings();
    m_editor->LoadInitSettings();
    m_reference->LoadInitSettings();
    m_status->LoadInitSettings();
}

void srcScripting::SetOwner(frmScript* owner) {
    m_owner = owner;
    m_editor->SetOwner(owner);
}

void srcScripting::LoadCommandLine(const QString& commandLine) {
    m_editor->LoadCommandLine(commandLine);
}

QString srcScripting::scriptText() const {
    return m_editor->scriptText();
}
