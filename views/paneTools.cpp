// The tool pane's widgets; the boundary's rules are ToolPaneSplit's.
#include "views/paneTools.h"

#include "controls/Twips.h"
#include "editor/uReference.h"
#include "effects/uPreview.h"
#include "platform/mWindowsAPI.h"

#include <QMouseEvent>

namespace {

const QString kSection = QStringLiteral("Settings");
const QString kKey = QStringLiteral("paneToolsSplitter");
constexpr int kBarTwips = 75;

int storedBoundary() {
    bool ok = false;
    const int value =
        mWindowsAPI::GetSettingValue(kSection, kKey, QString::number(ToolPaneSplit::kDefault))
            .toInt(&ok);
    return ok ? value : ToolPaneSplit::kDefault;
}

} // namespace

paneTools::paneTools(QWidget* parent)
    : QWidget(parent), m_reference(new uReference(this)), m_bar(new QWidget(this)),
      m_indicator(new QWidget(this)), m_preview(new uPreview(this)), m_split(storedBoundary()) {
    setObjectName(QStringLiteral("paneTools"));
    m_bar->setObjectName(QStringLiteral("pSplit"));
    m_indicator->setObjectName(QStringLiteral("pVsplit"));
    m_bar->setCursor(Qt::SplitVCursor);
    m_bar->installEventFilter(this);
    m_indicator->setAutoFillBackground(true);
    QPalette palette = m_indicator->palette();
    palette.setColor(QPalette::Window, palette.color(QPalette::Dark));
    m_indicator->setPalette(palette);
    m_indicator->hide();
    connect(m_preview, &uPreview::MaximizeRequest, this, [this] {
        m_split.togglePreview(heightTwips());
        changed();
    });
    connect(m_reference, &uReference::MaximizeRequest, this, [this] {
        m_split.toggleReference(heightTwips());
        changed();
    });
}

void paneTools::LoadInitSettings() {
    m_reference->LoadInitSettings();
    m_preview->LoadInitSettings();
}

void paneTools::SetOwner(QWidget* owner) {
    m_preview->SetOwner(owner);
}

int paneTools::heightTwips() const {
    return Twips::fromPixels(height());
}

void paneTools::changed() {
    mWindowsAPI::SaveSettingValue(kSection, kKey, QString::number(m_split.saved()));
    layoutPane();
}

void paneTools::layoutPane() {
    const int bar = Twips::toPixels(kBarTwips);
    const int top = std::clamp(Twips::toPixels(m_split.boundary()), 0, std::max(0, height() - bar));
    m_reference->setGeometry(0, 0, width(), top);
    m_bar->setGeometry(0, top, width(), bar);
    m_preview->setGeometry(0, top + bar, width(), std::max(0, height() - top - bar));
}

void paneTools::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    layoutPane();
}

// The bar's drag: the indicator follows the mouse within the margins and the bar drops there.
bool paneTools::eventFilter(QObject* watched, QEvent* event) {
    if (watched != m_bar) return QWidget::eventFilter(watched, event);
    const auto* mouse = static_cast<QMouseEvent*>(event);
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        m_indicator->setGeometry(m_bar->geometry());
        m_dragTop = m_split.boundary();
        m_indicator->show();
        m_indicator->raise();
        return true;
    case QEvent::MouseMove:
        if (m_indicator->isVisible()) {
            const int y = Twips::fromPixels(int(mouse->position().y()));
            m_dragTop = m_split.dragPosition(y, heightTwips());
            m_indicator->move(0, Twips::toPixels(m_dragTop));
        }
        return true;
    case QEvent::MouseButtonRelease:
        if (!m_indicator->isVisible()) return true;
        m_indicator->hide();
        m_split.drop(m_dragTop); // in twips, so that the margins are met exactly
        changed();
        return true;
    default:
        return QWidget::eventFilter(watched, event);
    }
}
