// The scratch folder: the data folder when writable, else the cache.
#include "platform/ScratchFolder.h"

#include "platform/NativePath.h"
#include "platform/TextCodec.h"
#include "platform/mFile.h"

#include <QDir>
#include <QMutex>
#include <unistd.h>

namespace ScratchFolder {

namespace {

QMutex guard;
QString overridden;

QString cacheFolder() {
    QString base = qEnvironmentVariable("XDG_CACHE_HOME");
    if (base.isEmpty()) base = QDir::homePath() + QStringLiteral("/.cache");
    const QString folder = base + QStringLiteral("/vantorel");
    QDir().mkpath(folder);
    return TextCodec::fromNativeName(NativePath::toBackslash(folder.toStdString()));
}

} // namespace

QString path() {
    {
        QMutexLocker lock(&guard);
        if (!overridden.isEmpty())
            return mFile::AddBackslash(
                TextCodec::fromNativeName(NativePath::toBackslash(overridden.toStdString())));
    }
    const QString data = mFile::AddBackslash(mFile::programFolder()) + QStringLiteral("data");
    if (::access(mFile::toDisk(data).c_str(), W_OK) == 0) return mFile::AddBackslash(data);
    return mFile::AddBackslash(cacheFolder());
}

void setOverride(const QString& folder) {
    QMutexLocker lock(&guard);
    overridden = folder;
}

} // namespace ScratchFolder
