// The dialog strip: the text starts 200 twips from the left edge and wraps over the rest.
#include "controls/uDialog.h"

#include "controls/Twips.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>

uDialog::uDialog(QWidget* parent) : QWidget(parent), m_label(new QLabel(this)) {
    m_label->setObjectName(QStringLiteral("lblDialog"));
    m_label->setWordWrap(true);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(Twips::toPixels(200), Twips::toPixels(90), Twips::toPixels(120),
                               Twips::toPixels(90));
    layout->addWidget(m_label);
}

QString uDialog::Text() const {
    return m_label->text();
}

void uDialog::setText(const QString& text) {
    m_label->setText(text);
}

void uDialog::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), QColor(0xf3, 0xf1, 0xe6));
    painter.setPen(QColor(0xc8, 0xc2, 0xa8));
    painter.drawLine(0, height() - 1, width(), height() - 1);
}
