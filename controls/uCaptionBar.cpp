// The caption bar: a painted background stretched over the strip, the caption and the status.
#include "controls/uCaptionBar.h"

#include "controls/Twips.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>

uCaptionBar::uCaptionBar(QWidget* parent)
    : QWidget(parent), m_caption(new QLabel(this)), m_status(new QLabel(this)) {
    m_caption->setObjectName(QStringLiteral("lblCap"));
    m_status->setObjectName(QStringLiteral("lblStat"));
    QFont bold = m_caption->font();
    bold.setBold(true);
    m_caption->setFont(bold);
    for (QLabel* label : {m_caption, m_status}) {
        // The labels let double-clicks through to the strip, which raises the one event.
        label->setAttribute(Qt::WA_TransparentForMouseEvents);
        QPalette palette = label->palette();
        palette.setColor(QPalette::WindowText, Qt::white);
        label->setPalette(palette);
    }
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(Twips::toPixels(90), 0, Twips::toPixels(90), 0);
    layout->setSpacing(Twips::toPixels(180));
    layout->addWidget(m_caption);
    layout->addWidget(m_status, 1);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

QString uCaptionBar::Caption() const {
    return m_caption->text();
}

void uCaptionBar::setCaption(const QString& caption) {
    m_caption->setText(caption);
}

QString uCaptionBar::Status() const {
    return m_status->text();
}

void uCaptionBar::setStatus(const QString& status) {
    m_status->setText(status);
}

QSize uCaptionBar::sizeHint() const {
    return {QWidget::sizeHint().width(), Twips::toPixels(330)};
}

void uCaptionBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    QLinearGradient gradient(0, 0, 0, height());
    gradient.setColorAt(0, QColor(0x4a, 0x6f, 0x9c));
    gradient.setColorAt(1, QColor(0x2c, 0x4a, 0x70));
    painter.fillRect(rect(), gradient);
}

void uCaptionBar::mouseDoubleClickEvent(QMouseEvent* event) {
    event->accept();
    Q_EMIT CaptionDblClick();
}
