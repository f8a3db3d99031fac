// The slider: painted track and thumb; the mouse rules live in SliderLogic.
#include "controls/ctlSlider.h"

#include "controls/Twips.h"

#include <QMouseEvent>
#include <QPainter>

ctlSlider::ctlSlider(QWidget* parent) : QWidget(parent) {
    setMouseTracking(false);
}

int ctlSlider::thumbWidth() const {
    return Twips::toPixels(180);
}

QSize ctlSlider::sizeHint() const {
    return {Twips::toPixels(2400), Twips::toPixels(300)};
}

bool ctlSlider::onThumb(int x) const {
    return x >= m_logic.thumbLeft() && x < m_logic.thumbLeft() + thumbWidth();
}

void ctlSlider::resizeEvent(QResizeEvent*) {
    m_logic.setSizes(width(), thumbWidth());
}

void ctlSlider::mousePressEvent(QMouseEvent* event) {
    const int x = int(event->position().x());
    if (onThumb(x))
        m_logic.pressThumb(x - m_logic.thumbLeft());
    else
        m_logic.pointAtTrack(x);
    update();
}

void ctlSlider::mouseMoveEvent(QMouseEvent* event) {
    const int x = int(event->position().x());
    if (m_logic.dragging())
        m_logic.moveOnThumb(x - m_logic.thumbLeft());
    else
        m_logic.pointAtTrack(x);
    update();
}

void ctlSlider::mouseReleaseEvent(QMouseEvent*) {
    m_logic.release();
}

void ctlSlider::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const int mid = height() / 2;
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0xb8, 0xbe, 0xc8));
    painter.drawRoundedRect(QRectF(0, mid - 2, width(), 4), 2, 2);
    painter.setBrush(QColor(0x2c, 0x4a, 0x70));
    painter.drawRoundedRect(QRectF(m_logic.thumbLeft(), 2, thumbWidth(), height() - 4), 3, 3);
}
