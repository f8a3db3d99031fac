// The scripting view's frame: caption, description, the script text and the status line.
#include "views/srcScripting.h"

#include "controls/uCaptionBar.h"
#include "controls/uDialog.h"
#include "engine/mEngineMain.h"

#include <QFontDatabase>
#include <QPlainTextEdit>
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
      m_editor(new QPlainTextEdit(this)), m_status(new uCaptionBar(this)) {
    setObjectName(QStringLiteral("srcScripting"));
    m_caption->setObjectName(QStringLiteral("uCap"));
    m_caption->setCaption(QStringLiteral("Scripting Editor"));
    m_dialog->setObjectName(QStringLiteral("uDialog"));
    m_dialog->setText(description());
    m_editor->setObjectName(QStringLiteral("uScriptingWindow"));
    m_editor->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_editor->setPlainText(QStringLiteral("fx.ResizeAspect 1600, 1600, False\nfx.savefile\n"));
    m_status->setObjectName(QStringLiteral("uStatus"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_caption);
    layout->addWidget(m_dialog);
    layout->addWidget(m_editor, 1);
    layout->addWidget(m_status);
}

void srcScripting::LoadCommandLine(const QString& commandLine) {
    QString script = mEngineMain::CommandLineToScript(commandLine);
    script.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    m_editor->setPlainText(script.trimmed() + u'\n');
}

QString srcScripting::scriptText() const {
    return m_editor->toPlainText();
}
