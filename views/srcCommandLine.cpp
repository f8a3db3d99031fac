// The command-line view: its texts, Run, the "Notice" question before Convert, the example.
#include "views/srcCommandLine.h"

#include "controls/Twips.h"
#include "controls/uCaptionBar.h"
#include "engine/ScriptHost.h"
#include "platform/Messages.h"
#include "views/frmScript.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

QLabel* label(const char* name, const QString& text, QWidget* parent) {
    auto* l = new QLabel(text, parent);
    l->setObjectName(QLatin1String(name));
    return l;
}

QPushButton* button(const char* name, const QString& text, QWidget* parent) {
    auto* b = new QPushButton(text, parent);
    b->setObjectName(QLatin1String(name));
    return b;
}

} // namespace

const QString& srcCommandLine::exampleLine() {
    static const QString line = QStringLiteral(
        "/files:c:\\1.jpg;2.jpg;c:\\3.jpg;5.jpg;7.jpg;8.jpg /cmd:progress.show /fx.Diffuse "
        "/fx.resize 30, 30 /fx.savefilename = NoExtension(fx.filename) & \".bmp\" /fx.savefile");
    return line;
}

srcCommandLine::srcCommandLine(QWidget* parent)
    : QWidget(parent), m_runner(&mEngineMain::RunCommandLine), m_caption(new uCaptionBar(this)),
      m_text(new QPlainTextEdit(this)), m_example(new QLineEdit(exampleLine(), this)) {
    setObjectName(QStringLiteral("srcCommandLine"));
    m_caption->setObjectName(QStringLiteral("uCap"));
    m_caption->setCaption(QStringLiteral("Command Line (Interface)"));
    auto* content = new QWidget(this);
    content->setObjectName(QStringLiteral("pContent"));
    m_text->setObjectName(QStringLiteral("txtCmd"));
    m_text->setPlainText(QStringLiteral("/files:"));
    m_example->setObjectName(QStringLiteral("Text2"));
    m_example->setReadOnly(true);
    m_example->installEventFilter(this);
    auto* welcome = label("lblWelcome",
                          QStringLiteral("Type a job in command-line syntax in the box below and "
                                         "run it, or turn it into a script to edit. Every switch "
                                         "and fx command is listed at "
                                         "https://vantorel.example.org/commands."),
                          content);
    welcome->setWordWrap(true);
    QPushButton* run = button("cmdCommandLine", QStringLiteral("&Run"), content);
    QPushButton* convert =
        button("cmdConvertVT3File", QStringLiteral("&Convert to .vt3 Script File"), content);
    connect(run, &QPushButton::clicked, this, &srcCommandLine::Run);
    connect(convert, &QPushButton::clicked, this, &srcCommandLine::Convert);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(run);
    buttons->addWidget(convert);
    buttons->addStretch(1);
    auto* inner = new QVBoxLayout(content);
    const int margin = Twips::toPixels(180);
    inner->setContentsMargins(margin, margin, margin, margin);
    inner->addWidget(welcome);
    inner->addWidget(label("Label1", QStringLiteral("Command Line:"), content));
    inner->addWidget(m_text, 1);
    inner->addLayout(buttons);
    inner->addSpacing(margin);
    inner->addWidget(label("Label3",
                           QStringLiteral("Example: Diffues, Resize to small Icon, and Save as BMP "
                                          "file. (1.jpg, 2.jpg, 3.jpg...)"),
                           content));
    inner->addWidget(m_example);
    m_text->setParent(content);
    m_example->setParent(content);
    auto* outer = new QVBoxLayout(this);
    outer->setContentsMargins(0, 0, 0, 0);
    outer->setSpacing(0);
    outer->addWidget(m_caption);
    outer->addWidget(content, 1);
}

void srcCommandLine::SetCommandLine(const QString& text) {
    m_text->setPlainText(text);
}

QString srcCommandLine::commandLine() const {
    return m_text->toPlainText();
}

void srcCommandLine::Run() {
    // Typed over several lines, the line runs as its one-line form.
    QString line = commandLine();
    line.replace(QStringLiteral("\r\n"), QStringLiteral(" "));
    line.replace(u'\n', u' ');
    if (m_runner) m_runner(line, false);
}

void srcCommandLine::Convert() {
    const QString text = QStringLiteral("Notice: The /files: Array will be lost in this "
                                        "conversion.\r\nOnly Imaging Effects are supported in vt3 "
                                        "scripts.\r\n\r\nDo you wish to continue?");
    if (messages().question(QStringLiteral("Notice"), text) != MsgAnswer::Yes) return;
    if (m_owner) m_owner->ConvertToScript(commandLine());
}

bool srcCommandLine::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_example && event->type() == QEvent::MouseButtonDblClick) {
        SetCommandLine(m_example->text());
        return true;
    }
    return QWidget::eventFilter(watched, event);
}
