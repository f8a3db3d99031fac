// Thumbnails on worker threads, cached on the user-interface thread.
#include "views/ThumbnailCache.h"

#include "effects/PhotoPixels.h"
#include "effects/PreviewRender.h"
#include "platform/WorkerQueue.h"
#include "platform/mFile.h"

#include <QDateTime>
#include <QFileInfo>
#include <utility>
#include <vector>

ThumbnailCache::ThumbnailCache(QObject* parent)
    : QObject(parent), m_cache(64 * 1024), m_icons(std::make_unique<WorkerQueue>()),
      m_preview(std::make_unique<WorkerQueue>()) {}

ThumbnailCache::~ThumbnailCache() {
    m_icons.reset();
    m_preview.reset();
}

QString ThumbnailCache::keyOf(const QString& path, int side) {
    const QFileInfo info(QString::fromStdString(mFile::toDisk(path).string()));
    return QString::number(side) + u'|' + QString::number(info.size()) + u'|' +
           QString::number(info.lastModified().toMSecsSinceEpoch()) + u'|' + path;
}

QImage ThumbnailCache::cached(const QString& path, int side) const {
    const QImage* image = m_cache.object(keyOf(path, side));
    return image ? *image : QImage();
}

void ThumbnailCache::request(Channel channel, const QStringList& paths, int side) {
    std::vector<std::pair<QString, QString>> missing; // path, key
    for (const QString& path : paths) {
        const QString key = keyOf(path, side);
        if (m_cache.contains(key))
            Q_EMIT ready(path, side, *m_cache.object(key));
        else
            missing.emplace_back(path, key);
    }
    WorkerQueue& worker = channel == Icons ? *m_icons : *m_preview;
    if (missing.empty()) {
        worker.cancel(0);
        return;
    }
    worker.submit(0, [this, missing, side](const std::atomic<bool>& cancel) {
        for (const auto& [path, key] : missing) {
            if (cancel) return;
            const QImage image =
                PreviewRender::imageOf(PhotoPixels::load(path.toStdString(), side, false));
            QMetaObject::invokeMethod(
                this,
                [this, path, key, side, image] {
                    m_cache.insert(key, new QImage(image), int(image.sizeInBytes() / 1024) + 1);
                    Q_EMIT ready(path, side, image);
                },
                Qt::QueuedConnection);
        }
    });
}
