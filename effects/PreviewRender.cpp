// Example photo and preview rendering for the worker thread.
#include "effects/PreviewRender.h"

#include "effects/PhotoPixels.h"
#include "effects/PreviewPaneLogic.h"
#include "engine/PreviewRun.h"
#include "platform/ScratchFolder.h"
#include "platform/mFile.h"

#include <QDir>
#include <QFileInfo>
#include <QMutex>
#include <cstring>
#include <map>

namespace PreviewRender {

namespace {

QString native(const QString& path) {
    return QString::fromStdString(mFile::toDisk(path).string());
}

// A photo's version: the same path, size and modification time give the same pixels.
QString versionOf(const QString& photo) {
    const QFileInfo info(native(photo));
    return photo + u'|' + QString::number(info.size()) + u'|' +
           QString::number(info.lastModified().toMSecsSinceEpoch());
}

} // namespace

QImage imageOf(const PhotoPixels::Pixels& p) {
    if (p.rgb.empty()) return {};
    QImage image(p.width, p.height, QImage::Format_RGB888);
    const size_t row = size_t(p.width) * 3;
    for (int y = 0; y < p.height; ++y)
        std::memcpy(image.scanLine(y), p.rgb.data() + row * size_t(y), row);
    return image;
}

QString sourceFor(const QString& photo) {
    static QMutex guard;
    static std::map<QString, QString> made; // photo version -> file to run on
    const QString version = versionOf(photo);
    QMutexLocker lock(&guard);
    if (auto it = made.find(version); it != made.end() && mFile::FileExists(it->second))
        return it->second;
    QString source = photo;
    if (PhotoPixels::largerThan(photo.toStdString(), kSourceSide)) {
        // One folder per photo path, so that photos of the same name never share a copy.
        const QString folder = ScratchFolder::path() + QStringLiteral("preview_source\\") +
                               QString::number(qHash(photo), 16);
        QDir().mkpath(native(folder));
        // The same file name, so that a script that shows or builds on it sees the real one.
        const QString copy = mFile::AddBackslash(folder) + mFile::GetPathPart(photo, 2);
        if (PhotoPixels::writeShrunkCopy(photo.toStdString(), copy.toStdString(), kSourceSide,
                                         nullptr))
            source = copy;
    }
    made[version] = source;
    return source;
}

ExampleFrame loadExample(const QString& photo) {
    const PhotoPixels::Pixels p = PhotoPixels::load(photo.toStdString(), kSourceSide, true);
    return {imageOf(p), PreviewPaneLogic::infoLine(photo, p.uniqueColors)};
}

PreviewFrame render(const QString& commandLine, const QString& photo, const QString& output,
                    const std::atomic<bool>* cancel) {
    PreviewFrame frame;
    QFile::remove(native(output)); // a failed run must not show the previous preview
    mEngineMain::PreviewRunOptions options;
    options.output = output;
    options.cancel = cancel;
    const mEngineMain::PreviewRunResult run = mEngineMain::runPreviewLine(
        PreviewPaneLogic::runLine(commandLine, sourceFor(photo), output), options);
    frame.cancelled = run.cancelled;
    frame.errorText = run.errorText;
    if (frame.cancelled || !frame.errorText.isEmpty()) return frame;
    const PhotoPixels::Pixels p = PhotoPixels::load(output.toStdString(), kSourceSide, true);
    frame.image = imageOf(p);
    frame.info = PreviewPaneLogic::infoLine(output, p.uniqueColors);
    return frame;
}

} // namespace PreviewRender
