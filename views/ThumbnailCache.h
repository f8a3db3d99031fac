// Thumbnails of the photo pane, made off the user-interface thread and kept by path and
// modification time, so a photo changed on disk gets a new one.
#pragma once

#include <QCache>
#include <QImage>
#include <QObject>
#include <QStringList>
#include <memory>

class WorkerQueue;

class ThumbnailCache : public QObject {
    Q_OBJECT
public:
    // The small icons of the list, and the one large preview of the current photo.
    enum Channel { Icons, Preview };

    explicit ThumbnailCache(QObject* parent = nullptr);
    ~ThumbnailCache() override;

    // The thumbnail of the file as it is now, or a null image when none was made yet.
    QImage cached(const QString& path, int side) const;
    // Makes the missing thumbnails of these files; a newer request on the same channel replaces
    // what an older one still had to do. Each one arrives through ready().
    void request(Channel channel, const QStringList& paths, int side);

Q_SIGNALS:
    void ready(const QString& path, int side, const QImage& image);

private:
    static QString keyOf(const QString& path, int side);

    QCache<QString, QImage> m_cache; // cost in kilobytes
    std::unique_ptr<WorkerQueue> m_icons;
    std::unique_ptr<WorkerQueue> m_preview;
};
