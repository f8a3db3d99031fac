// The picture box: fitted photo, printed text, hint strip, mouse reports.
#include "controls/PictureBox.h"

#include <QLabel>
#include <QMouseEvent>
#include <QPainter>

// Paints the photo fitted into its size; the fitted copy is kept until the photo or the size
// changes, so repaints (a tool strip shown, a window dragged over) cost no rescaling.
class PictureBox::ImageView : public QWidget {
public:
    explicit ImageView(PictureBox* box) : QWidget(box), m_box(box) {}
    void imageChanged() {
        m_fitted = QPixmap();
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override {
        const QImage& image = m_box->m_image;
        if (image.isNull()) return;
        QSize size = image.size();
        if (size.width() > width() || size.height() > height())
            size.scale(this->size(), Qt::KeepAspectRatio);
        if (m_fitted.size() != size)
            m_fitted = QPixmap::fromImage(
                image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
        QPainter(this).drawPixmap((width() - size.width()) / 2, (height() - size.height()) / 2,
                                  m_fitted);
    }

private:
    PictureBox* m_box;
    QPixmap m_fitted;
};

PictureBox::PictureBox(QWidget* parent)
    : QWidget(parent), m_view(new ImageView(this)), m_tools(new QLabel(this)) {
    setMouseTracking(true);
    m_view->setMouseTracking(true);
    m_view->installEventFilter(this);
    m_tools->setAutoFillBackground(true);
    m_tools->setContentsMargins(4, 1, 4, 1);
    m_tools->hide();
    QPalette palette = this->palette();
    palette.setColor(QPalette::Window, Qt::white);
    setPalette(palette);
    setAutoFillBackground(true);
}

QWidget* PictureBox::imageView() const {
    return m_view;
}

void PictureBox::setImage(const QImage& image) {
    m_image = image;
    m_view->imageChanged();
}

void PictureBox::setImageVisible(bool visible) {
    m_view->setVisible(visible);
}

bool PictureBox::imageVisible() const {
    return !m_view->isHidden();
}

void PictureBox::Cls() {
    m_lines.clear();
    update();
}

void PictureBox::Print(const QStringList& lines) {
    m_lines += lines;
    update();
}

void PictureBox::paintEvent(QPaintEvent*) {
    if (m_lines.isEmpty()) return;
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::WindowText));
    const int lineHeight = fontMetrics().lineSpacing();
    int y = fontMetrics().ascent() + 2;
    for (const QString& line : m_lines) {
        painter.drawText(4, y, line);
        y += lineHeight;
    }
}

void PictureBox::resizeEvent(QResizeEvent*) {
    m_view->setGeometry(rect());
    const int strip = m_tools->sizeHint().height();
    m_tools->setGeometry(0, height() - strip, width(), strip);
}

bool PictureBox::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_view) {
        if (event->type() == QEvent::MouseMove && mouseMoved) mouseMoved();
        if (event->type() == QEvent::MouseButtonRelease && rightReleased &&
            static_cast<QMouseEvent*>(event)->button() == Qt::RightButton)
            rightReleased(static_cast<QMouseEvent*>(event)->globalPosition().toPoint());
    }
    return QWidget::eventFilter(watched, event);
}

void PictureBox::mouseMoveEvent(QMouseEvent*) {
    if (mouseMoved) mouseMoved();
}

void PictureBox::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::RightButton && rightReleased)
        rightReleased(event->globalPosition().toPoint());
}
