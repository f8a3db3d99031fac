// Generated script pieces of a batch: the ProcessEffects calls and the effects body.
#include "engine/mEngineMain.h"

#include "platform/TextCodec.h"
#include "platform/mFile.h"

#include <QFile>
#include <QRegularExpression>

#include <functional>

namespace mEngineMain {

namespace {

void tell(const std::function<void(const QString&)>& sink, const QString& text) {
    if (sink) sink(text);
}

// The image files of every folder named in the switch's value, appended to `files`.
void addFolderFiles(FileList& list, QStringList& files, const QString& line,
                    const QString& switchName, bool includeSubfolders, const Reports& reports,
                    bool followLinks) {
    for (const QString& entry : switchValue(line, switchName).split(u';')) {
        const QString folder = entry.trimmed();
        if (folder.isEmpty()) continue;
        if (!mFile::FolderExists(folder)) {
            tell(reports.problem,
                 QStringLiteral("folder not found: %1 (%2)").arg(folder, switchName));
            continue;
        }
        mFile::Enumeration walk;
        walk.followLinks = followLinks;
        const QStringList found =
            mFile::EnumerateFiles(folder, imageFilter(), includeSubfolders, &walk);
        for (const QString& link : walk.folderLinks)
            tell(reports.note, QStringLiteral("not following the link to a folder: %1 (add "
                                              "/followlinks to follow links)")
                                   .arg(link));
        for (const QString& name : walk.unnameable)
            tell(reports.note, QStringLiteral("skipped %1: a name holding \"\\\" cannot be written "
                                              "as a path here; rename it to process it")
                                   .arg(name));
        list.skipped += int(walk.unnameable.size());
        if (found.isEmpty())
            tell(reports.problem, QStringLiteral("no photos in %1 (%2)").arg(folder, switchName));
        files += found;
    }
}

// The "/files:" entries: a bare name is looked for in the folder of the entry before it.
void addListedFiles(QStringList& files, const QString& value, const Reports& reports) {
    QString lastFolder;
    for (QString entry : value.split(u';')) {
        if (entry.trimmed().isEmpty()) continue;
        if (!mFile::FileExists(entry)) {
            const QString inLastFolder = mFile::AddBackslash(lastFolder) + entry;
            if (!mFile::FileExists(inLastFolder)) {
                tell(reports.problem,
                     mFile::FolderExists(entry)
                         ? QStringLiteral("%1 is a folder: /folder: takes folders (/files:)")
                               .arg(entry.trimmed())
                         : QStringLiteral("photo not found: %1 (/files:)").arg(entry.trimmed()));
                continue;
            }
            entry = inLastFolder;
        }
        lastFolder = mFile::GetPathPart(entry, 1);
        files.append(entry);
    }
}

// The lines of a photo list: bytes, so that any name but one holding a line break can be listed.
QByteArray readList(const QString& source) {
    if (source == u"-") {
        QFile in;
        return in.open(stdin, QIODevice::ReadOnly) ? in.readAll() : QByteArray();
    }
    QFile file(QString::fromStdString(mFile::toDisk(source).native()));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// "/filelist:" entries, in the "\" form; a name holding "\" cannot be written so.
void addListFiles(FileList& list, const QString& value, const Reports& reports) {
    const QString source = value.trimmed();
    if (source != u"-" && !mFile::FileExists(source)) {
        tell(reports.problem, QStringLiteral("file list not found: %1 (/filelist:)").arg(source));
        return;
    }
    for (QByteArray line : readList(source).split('\n')) {
        if (line.endsWith('\r')) line.chop(1);
        if (line.isEmpty()) continue;
        QString path =
            TextCodec::fromNativeName(std::string_view(line.constData(), size_t(line.size())));
        if (path.contains(u'\\')) {
            tell(reports.note,
                 QStringLiteral("skipped \"%1\": a name holding \"\\\" cannot be written as a "
                                "path here; rename it to process it")
                     .arg(path));
            ++list.skipped;
            continue;
        }
        path.replace(u'/', u'\\');
        if (mFile::FileExists(path))
            list.files.append(path);
        else
            tell(reports.problem, QStringLiteral("photo not found: %1 (/filelist:)").arg(path));
    }
}

bool startsWithWord(const QString& item, QLatin1String word) {
    return item.left(word.size()).compare(word, Qt::CaseInsensitive) == 0;
}

} // namespace

FileList collectFiles(const QString& line, const Reports& reports, bool followLinks) {
    // The folders first, so that their reports come in the order of the switches.
    FileList list;
    QStringList folderFiles;
    addFolderFiles(list, folderFiles, line, QStringLiteral("/folder:"), false, reports,
                   followLinks);
    addFolderFiles(list, folderFiles, line, QStringLiteral("/folderall:"), true, reports,
                   followLinks);
    bool hasFilesSwitch = false, hasList = false;
    const QString explicitFiles = switchValue(line, QStringLiteral("/files:"), &hasFilesSwitch);
    const QString fileList = switchValue(line, QStringLiteral("/filelist:"), &hasList);
    list.hasSource = hasFilesSwitch || hasList || !folderFiles.isEmpty();
    if (!list.hasSource) return list;
    addListedFiles(list.files, explicitFiles, reports);
    if (hasList) addListFiles(list, fileList, reports);
    list.files += folderFiles;
    if (list.files.isEmpty()) tell(reports.problem, QStringLiteral("no photo to process"));
    return list;
}

namespace {

// The pieces joined with "&" as a balanced tree, so that the nesting grows with the logarithm of
// their number: a name of a thousand line breaks stays well inside the parser's depth limit.
QString joinBalanced(const QStringList& pieces, qsizetype from, qsizetype to, bool outer) {
    if (to - from == 1) return pieces[from];
    const qsizetype middle = (from + to) / 2;
    const QString joined = joinBalanced(pieces, from, middle, false) + QStringLiteral(" & ") +
                           joinBalanced(pieces, middle, to, false);
    return outer ? joined : u'(' + joined + u')';
}

} // namespace

QString scriptStringExpression(const QString& text) {
    // Quoted runs of ordinary characters, and the constants for line breaks between them.
    QStringList pieces;
    QString run;
    auto closeRun = [&] {
        if (!run.isEmpty()) pieces.append(u'"' + run + u'"');
        run.clear();
    };
    for (const QChar c : text) {
        if (c == u'\r' || c == u'\n') {
            closeRun();
            pieces.append(c == u'\r' ? QStringLiteral("vbCr") : QStringLiteral("vbLf"));
        } else {
            run += c == u'"' ? QStringLiteral("\"\"") : QString(c);
        }
    }
    closeRun();
    if (pieces.isEmpty()) return QStringLiteral("\"\"");
    return joinBalanced(pieces, 0, pieces.size(), true);
}

bool backgroundSavesAllowed(const QString& script) {
    static const QRegularExpression observers(
        QStringLiteral("\\b(On\\s+Error|MsgBox|InputBox|MsgDisplay|CreateObject|GetObject|"
                       "Execute|ExecuteGlobal|Eval)\\b"),
        QRegularExpression::CaseInsensitiveOption);
    return !script.contains(observers);
}

QString mainCodeFor(const QStringList& files) {
    QString code;
    for (const QString& file : files)
        code += QStringLiteral("ProcessEffects ") + scriptStringExpression(file) +
                QStringLiteral("\r\n");
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
