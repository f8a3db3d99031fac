// A picture box holding a photo shown whole (fitted, centred) or lines of printed text, with an
// optional hint strip along its bottom edge.
#pragma once

#include <QImage>
#include <QStringList>
#include <QWidget>
#include <functional>

class QLabel;

class PictureBox : public QWidget {
    Q_OBJECT
public:
    explicit PictureBox(QWidget* parent = nullptr);

    // The photo part: a child that can be hidden and carries the photo's tool tip.
    QWidget* imageView() const;
    void setImage(const QImage& image);
    const QImage& image() const { return m_image; }
    void setImageVisible(bool visible);
    bool imageVisible() const;

    // Printing: Clear empties the box (and sends the print position home), Print adds lines.
    void Cls();
    void Print(const QStringList& lines);
    const QStringList& printed() const { return m_lines; }

    // The hint strip (hidden until shown).
    QLabel* tools() const { return m_tools; }

    // Mouse movement over the box or its photo, and a right button released over either.
    std::function<void()> mouseMoved;
    std::function<void(const QPoint& globalPos)> rightReleased;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    class ImageView;
    ImageView* m_view;
    QLabel* m_tools;
    QImage m_image;
    QStringList m_lines;
};
