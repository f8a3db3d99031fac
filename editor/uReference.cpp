// The reference pane's widgets; the look-up itself is ReferenceTopic's.
#include "editor/uReference.h"

#include "controls/uCaptionBar.h"
#include "editor/ReferenceTopic.h"
#include "platform/mFile.h"
#include "platform/mWindowsAPI.h"

#include <QAbstractTextDocumentLayout>
#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QTextBlock>
#include <QTextBrowser>
#include <QVBoxLayout>

uReference::uReference(QWidget* parent)
    : QWidget(parent), m_caption(new uCaptionBar(this)), m_reference(new QTextBrowser(this)),
      m_index(new QPushButton(QStringLiteral("Index"), this)),
      m_help(new QCheckBox(QStringLiteral("Enable Dynamic Help when Available"), this)),
      m_info(
          new InfoLabel(QStringLiteral("(Double-Click Caption to Hide the Preview Pane.)"), this)) {
    setObjectName(QStringLiteral("uReference"));
    m_caption->setObjectName(QStringLiteral("uCap"));
    m_reference->setObjectName(QStringLiteral("rtfReference"));
    m_index->setObjectName(QStringLiteral("cmdIndex"));
    m_index->setToolTip(QStringLiteral("Return the the Main Index Page"));
    m_help->setObjectName(QStringLiteral("chkHelp"));
    m_info->setObjectName(QStringLiteral("lblInfo"));
    m_reference->setOpenLinks(true);
    m_reference->setOpenExternalLinks(false);

    auto* tools = new QHBoxLayout;
    tools->setContentsMargins(4, 2, 4, 2);
    tools->addWidget(m_index);
    tools->addWidget(m_help);
    tools->addWidget(m_info, 1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_caption);
    layout->addLayout(tools);
    layout->addWidget(m_reference, 1);

    connect(m_caption, &uCaptionBar::CaptionDblClick, this, &uReference::MaximizeRequest);
    static_cast<InfoLabel*>(m_info)->doubleClicked = [this] { Q_EMIT MaximizeRequest(); };
    connect(m_index, &QPushButton::clicked, this, &uReference::ShowIndex);
    connect(m_help, &QCheckBox::toggled, this, &uReference::helpToggled);

    m_caption->setCaption(QStringLiteral("Reference Pane"));
    ShowIndex();
}

void uReference::LoadInitSettings() {
    m_help->setChecked(mWindowsAPI::preferences().SetDynamicHelp);
    m_caption->LoadInitSettings();
}

void uReference::ShowIndex() {
    const QString path =
        mFile::AddBackslash(mFile::programFolder()) + QStringLiteral("data\\index.html");
    m_reference->setHtml(mFile::FileExists(path) ? mFile::ReadFile(path) : QString());
}

void uReference::ShowTopic(const QString& word) {
    if (!mWindowsAPI::preferences().SetDynamicHelp) return;
    const ReferenceTopic topic = ReferenceTopic::find(m_reference->toPlainText(), word);
    if (topic.position < 0) return;
    QTextCursor c(m_reference->document());
    c.setPosition(topic.position);
    c.setPosition(topic.position + topic.length, QTextCursor::KeepAnchor);
    m_reference->setTextCursor(c);
    if (!topic.turnView) return;
    // A long document is laid out lazily; the positions below must be final ones.
    QTextDocument* doc = m_reference->document();
    doc->documentLayout()->blockBoundingRect(doc->lastBlock());
    // To the end first, so that going back leaves the entry at the top of the view.
    c.movePosition(QTextCursor::End);
    m_reference->setTextCursor(c);
    m_reference->ensureCursorVisible();
    c.setPosition(topic.caret);
    m_reference->setTextCursor(c);
    m_reference->ensureCursorVisible();
}

void uReference::helpToggled() {
    if (mWindowsAPI::isLoadingSettings()) return;
    mWindowsAPI::preferences().SetDynamicHelp = !mWindowsAPI::preferences().SetDynamicHelp;
    mWindowsAPI::SaveSettings();
}

void uReference::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    const bool cramped = 3 * m_caption->height() > height();
    m_info->setText(cramped ? QStringLiteral("(Double-Click Caption to Maximize Reference Pane.)")
                            : QString());
}
