// The photo selection pane's list without a window: the selected files (the hidden list), their
// extensions, the filters, the shortened display texts and the array handed to the run.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <functional>

class PhotoList {
public:
    // lstFiles: full paths in the "\" form, in the order added.
    const QStringList& files() const { return m_files; }
    int count() const { return int(m_files.size()); }

    // The index of the item equal to text without regard to case, or -1.
    static int findInListBox(const QStringList& list, const QString& text);
    // Adds the path unless it is already there (any case); true when added.
    bool add(const QString& path);
    // Adds what an open dialog returned: full paths joined with ";".
    int addDialogResult(const QString& joined);
    // Adds the folder's photos (the image types), with or without its subfolders.
    int addFolder(const QString& folder, bool subfolders);
    // Adds dropped paths: photos of the image types, and folders with their subfolders.
    int addDropped(const QStringList& paths);

    // From the last item to the first: doubled separators become single ones, and an item
    // whose trimmed path is no existing file is removed.
    void FixList();
    void ClearList() { m_files.clear(); }
    // Removes the items at these indexes (as a multi-select list reports them).
    void removeAt(QList<int> indexes);

    // UpdateList's parts: the status text and the distinct extensions, lower case, in
    // first-seen order.
    QString statusText() const;
    QStringList extensions() const;

    // The extension filters: both compare the name's end with "." + extension, lower-cased.
    void removeWithExtension(const QString& extension);
    void keepOnlyExtension(const QString& extension);
    // The extension panel: keeps the files of the selected extensions only.
    void keepOnlyExtensions(const QStringList& selected);

    // Element 0 is "", then the files that exist now, in list order; empty for an empty list.
    QStringList GetAllFilesArray() const;

    // The menu captions of an extension ("JPG Extension.").
    static QString extensionCaption(const QString& extension);
    // The path with leading folders replaced by "...\" until `fits` accepts it (the file name
    // alone is the shortest form).
    static QString displayText(const QString& path,
                               const std::function<bool(const QString&)>& fits);
    // The preview's caption of a file name: past 20 characters, "..." and the last 18.
    static QString previewCaption(const QString& name);

private:
    static bool hasExtension(const QString& path, const QString& extension);

    QStringList m_files;
};
