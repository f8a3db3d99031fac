// The preview pane's rules and texts.
#include "effects/PreviewPaneLogic.h"

#include "platform/ScratchFolder.h"
#include "platform/mFile.h"

namespace PreviewPaneLogic {

bool isCollapsed(int captionHeight, int innerHeight) {
    return 3 * captionHeight > innerHeight;
}

QString paneHint(bool collapsed) {
    return collapsed ? QStringLiteral("(Double-Click Caption to Maximize Preview Pane.)")
                     : QString();
}

QStringList noPreviewLines(bool dynamicPreviewOff) {
    return {dynamicPreviewOff ? QStringLiteral("Dynamic Preview is not enabled...")
                              : QStringLiteral("No Preview Available..."),
            QString(),
            QStringLiteral("Right-Click the Scripting Box (Editor)"),
            QStringLiteral("and Select 'Run Preview'."),
            QString(),
            QStringLiteral("Optionally Press CTRL+Q")};
}

QString neutraliseSaves(const QString& commandLine) {
    QString s = commandLine;
    s.replace(QStringLiteral("/fx.savefilename"), QStringLiteral("/errpass"));
    s.replace(QStringLiteral("/fx.savefile"), QStringLiteral("/errpasssave"));
    return s;
}

QString runLine(const QString& commandLine, const QString& photo, const QString& output) {
    return QStringLiteral("/files:") + photo + u' ' + neutraliseSaves(commandLine) +
           QStringLiteral(" /fx.savefilename = \"") + output + QStringLiteral("\" /fx.savefile");
}

QString infoLine(const QString& path, qint64 uniqueColors) {
    return QStringLiteral("File Size: ") + mFile::FormatFileSize(path, 1, true) +
           QStringLiteral(" (") + mFile::FormatFileSize(path, 0, true) +
           QStringLiteral(")  |  Unique Colors: ") + QString::number(uniqueColors);
}

QString builtInExample() {
    return mFile::AddBackslash(mFile::programFolder()) + QStringLiteral("data\\example.jpg");
}

QString outputFile() {
    return ScratchFolder::path() + QStringLiteral("preview_output.jpg");
}

MenuState menuState(const QString& path, const QString& storedDefault) {
    MenuState m;
    m.makeDefaultCaption = QStringLiteral("Make '") + mFile::GetPathPart(path, 2) +
                           QStringLiteral("' the Default Example");
    m.makeDefaultEnabled = storedDefault != path;
    if (m.makeDefaultEnabled) m.makeDefaultTag = path;
    m.restoreVisible = storedDefault != builtInExample();
    return m;
}

bool showsBothPhotos(int innerHeight, int captionHeight) {
    return innerHeight - 6 * captionHeight >= 3001;
}

} // namespace PreviewPaneLogic
