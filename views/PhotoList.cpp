// The photo selection pane's list logic.
#include "views/PhotoList.h"

#include "engine/mEngineMain.h"
#include "platform/mFile.h"

#include <algorithm>

int PhotoList::findInListBox(const QStringList& list, const QString& text) {
    for (int i = 0; i < list.size(); ++i)
        if (list[i].compare(text, Qt::CaseInsensitive) == 0) return i;
    return -1;
}

bool PhotoList::add(const QString& path) {
    if (path.isEmpty() || findInListBox(m_files, path) >= 0) return false;
    m_files.append(path);
    return true;
}

int PhotoList::addDialogResult(const QString& joined) {
    const QStringList parts = (joined + u';').split(u';');
    int added = 0;
    for (qsizetype i = 0; i + 1 < parts.size(); ++i)
        added += add(parts[i]) ? 1 : 0;
    return added;
}

int PhotoList::addFolder(const QString& folder, bool subfolders) {
    int added = 0;
    for (const QString& file :
         mFile::EnumerateFiles(folder, mEngineMain::imageFilter(), subfolders))
        added += add(file) ? 1 : 0;
    return added;
}

int PhotoList::addDropped(const QStringList& paths) {
    int added = 0;
    for (const QString& path : paths) {
        if (mFile::FolderExists(path))
            added += addFolder(path, true);
        else if (mEngineMain::IsSupportedImageFile(path) && mFile::FileExists(path))
            added += add(path) ? 1 : 0;
    }
    return added;
}

void PhotoList::FixList() {
    for (qsizetype i = m_files.size() - 1; i >= 0; --i) {
        QString& item = m_files[i];
        while (item.contains(QStringLiteral("\\\\")))
            item.replace(QStringLiteral("\\\\"), QStringLiteral("\\"));
        if (!mFile::FileExists(item.trimmed())) m_files.removeAt(i);
    }
}

void PhotoList::removeAt(QList<int> indexes) {
    std::sort(indexes.begin(), indexes.end(), std::greater<int>());
    for (int index : indexes)
        if (index >= 0 && index < m_files.size()) m_files.removeAt(index);
}

QString PhotoList::statusText() const {
    return QString::number(m_files.size()) + QStringLiteral(" files.");
}

QStringList PhotoList::extensions() const {
    QStringList found;
    for (const QString& file : m_files) {
        const QString extension = mFile::GetExtension(file).toLower();
        if (!extension.isEmpty() && findInListBox(found, extension) < 0) found.append(extension);
    }
    return found;
}

bool PhotoList::hasExtension(const QString& path, const QString& extension) {
    return path.toLower().endsWith(u'.' + extension.toLower());
}

void PhotoList::removeWithExtension(const QString& extension) {
    m_files.removeIf([&](const QString& f) { return hasExtension(f, extension); });
}

void PhotoList::keepOnlyExtension(const QString& extension) {
    m_files.removeIf([&](const QString& f) { return !hasExtension(f, extension); });
}

void PhotoList::keepOnlyExtensions(const QStringList& selected) {
    m_files.removeIf([&](const QString& f) {
        return std::none_of(selected.begin(), selected.end(),
                            [&](const QString& e) { return hasExtension(f, e); });
    });
}

QStringList PhotoList::GetAllFilesArray() const {
    if (m_files.isEmpty()) return {};
    QStringList existing;
    for (const QString& file : m_files)
        if (mFile::FileExists(file)) existing.append(file);
    // Built as a list, not by joining and splitting, so that no name is ever cut at a ";".
    return QStringList{QString()} + existing;
}

QString PhotoList::extensionCaption(const QString& extension) {
    return extension.toUpper() + QStringLiteral(" Extension.");
}

QString PhotoList::displayText(const QString& path,
                               const std::function<bool(const QString&)>& fits) {
    if (fits(path)) return path;
    QStringList parts = path.split(u'\\');
    while (parts.size() > 1) {
        parts.removeFirst();
        const QString shortened = QStringLiteral("...\\") + parts.join(u'\\');
        if (fits(shortened) || parts.size() == 1) return shortened;
    }
    return path;
}

QString PhotoList::previewCaption(const QString& name) {
    return name.size() > 20 ? QStringLiteral("...") + name.right(18) : name;
}
