// Generated script pieces of a batch: the ProcessEffects calls and the effects body.
#include "engine/mEngineMain.h"

#include "platform/mFile.h"

#include <functional>

namespace mEngineMain {

namespace {

using Warn = std::function<void(const QString&)>;

void tell(const Warn& warn, const QString& text) {
    if (warn) warn(text);
}

// "path;" for every image file of every existing folder named in the switch's value.
QString folderFiles(const QString& line, const QString& switchName, bool includeSubfolders,
                    const Warn& warn) {
    QString list;
    for (const QString& entry : switchValue(line, switchName).split(u';')) {
        const QString folder = entry.trimmed();
        if (!mFile::FolderExists(folder)) {
            if (!folder.isEmpty())
                tell(warn, QStringLiteral("folder not found: %1 (%2)").arg(folder, switchName));
            continue;
        }
        for (const QString& path : mFile::EnumerateFiles(folder, imageFilter(), includeSubfolders))
            list += path + u';';
    }
    return list;
}

bool startsWithWord(const QString& item, QLatin1String word) {
    return item.left(word.size()).compare(word, Qt::CaseInsensitive) == 0;
}

} // namespace

QString buildMainCode(const QString& line, bool* hasSource, const Warn& warn) {
    // Two statements: the warnings come in the order of the switches.
    QString folderList = folderFiles(line, QStringLiteral("/folder:"), false, warn);
    folderList += folderFiles(line, QStringLiteral("/folderall:"), true, warn);
    bool hasFilesSwitch = false;
    const QString explicitFiles = switchValue(line, QStringLiteral("/files:"), &hasFilesSwitch);
    *hasSource = hasFilesSwitch || !folderList.isEmpty();
    if (!*hasSource) return {};

    // Explicit files first, in their order, then the folders' files.
    const QString working =
        folderList.isEmpty() ? explicitFiles : explicitFiles + u';' + folderList;
    QString code;
    QString lastFolder;
    for (QString entry : (working + u';').split(u';')) {
        // A bare name is looked for in the folder of the entry before it.
        if (!mFile::FileExists(entry)) {
            const QString inLastFolder = mFile::AddBackslash(lastFolder) + entry;
            if (!entry.trimmed().isEmpty() && !mFile::FileExists(inLastFolder))
                tell(warn,
                     mFile::FolderExists(entry)
                         ? QStringLiteral("%1 is a folder: /folder: takes folders (/files:)")
                               .arg(entry.trimmed())
                         : QStringLiteral("photo not found: %1 (/files:)").arg(entry.trimmed()));
            entry = mFile::FileExists(inLastFolder) ? inLastFolder : QString();
        }
        if (!entry.isEmpty()) lastFolder = mFile::GetPathPart(entry, 1);
        // Written exactly as it stands: a quote in a path is not doubled.
        if (mFile::FileExists(entry))
            code += QStringLiteral("ProcessEffects \"") + entry + QStringLiteral("\"\r\n");
    }
    if (code.isEmpty()) tell(warn, QStringLiteral("no photo to process"));
    return code;
}

QString buildEffectsBody(const QString& line) {
    QString body;
    for (const QString& item : line.split(u'/')) {
        if (startsWithWord(item, QLatin1String("fx.")) ||
            startsWithWord(item, QLatin1String("progress."))) {
            body += item + QStringLiteral("\r\n");
        } else if (startsWithWord(item, QLatin1String("cmd:"))) {
            body += item.mid(4) + QStringLiteral("\r\n");
        }
        // Everything else (file and folder switches, exit, func. items, stray text) is no code.
    }
    return body;
}

} // namespace mEngineMain
