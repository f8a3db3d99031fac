// The progress window's widgets.
#include "engine/frmConvProgressWindow.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

frmConvProgressWindow::frmConvProgressWindow(QWidget* parent)
    : QWidget(parent, Qt::Dialog), m_label1(new QLabel(this)), m_bar(new QProgressBar(this)),
      m_rate(new QLabel(this)), m_cancel(new QPushButton(QStringLiteral("Cancel"), this)) {
    auto* layout = new QVBoxLayout(this);
    m_label1->setObjectName(QStringLiteral("Label1"));
    // Long paths are cut in the middle rather than widening the window.
    m_label1->setMinimumWidth(320);
    m_label1->setTextFormat(Qt::PlainText);
    m_bar->setTextVisible(true);
    m_cancel->setToolTip(QStringLiteral("Stops after the photo being converted"));
    connect(m_cancel, &QPushButton::clicked, this, [this] {
        if (m_onCancel) m_onCancel();
    });
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(m_rate, 1);
    bottom->addWidget(m_cancel);
    layout->addWidget(m_label1);
    layout->addWidget(m_bar);
    layout->addLayout(bottom);
    resize(380, 120);
}

void frmConvProgressWindow::render(const ProgressState& state) {
    setWindowTitle(state.caption);
    const QFontMetrics metrics(m_label1->font());
    m_label1->setText(metrics.elidedText(state.label, Qt::ElideMiddle, m_label1->width()));
    m_label1->setToolTip(state.label);
    m_bar->setVisible(state.fileCount > 0);
    if (state.fileCount > 0) {
        m_bar->setRange(0, state.fileCount);
        m_bar->setValue(qMin(state.fileNumber, state.fileCount));
        m_bar->setFormat(QStringLiteral("%v of %m"));
    }
    m_rate->setText(
        state.photosPerSecond > 0
            ? QStringLiteral("%1 photos per second").arg(state.photosPerSecond, 0, 'f', 1)
            : QString());
    m_cancel->setEnabled(!state.cancelRequested);
    m_cancel->setText(state.cancelRequested ? QStringLiteral("Stopping...")
                                            : QStringLiteral("Cancel"));
    if (state.visible != isVisible()) setVisible(state.visible);
}

void frmConvProgressWindow::setCancelHandler(std::function<void()> handler) {
    m_onCancel = std::move(handler);
}

void frmConvProgressWindow::processEvents() {
    QCoreApplication::processEvents();
}
