// A horizontal slider: a track and a thumb dragged along it. It keeps one value for its owner,
// who reads the thumb's position and gives it a meaning.
#pragma once

#include "controls/SliderLogic.h"

#include <QVariant>
#include <QWidget>

class ctlSlider : public QWidget {
    Q_OBJECT
public:
    explicit ctlSlider(QWidget* parent = nullptr);

    QVariant Value() const { return m_value; }
    void setValue(const QVariant& value) { m_value = value; }
    int thumbLeft() const { return m_logic.thumbLeft(); }
    int thumbWidth() const;
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    bool onThumb(int x) const;

    SliderLogic m_logic;
    QVariant m_value;
};
