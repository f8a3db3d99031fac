// What the preview pane decides without a window: when it counts as collapsed, the texts it
// prints, the run line that renders a preview, its information line and its menu's state.
#pragma once

#include <QString>
#include <QStringList>

namespace PreviewPaneLogic {

// The photos' hint strip.
inline const QString kToolsHint = QStringLiteral("Right-Click the Image for Addtional Options.");

// Three caption bars do not fit into the pane's inner height (both in the same unit).
bool isCollapsed(int captionHeight, int innerHeight);
// The hint beside the pane's caption.
QString paneHint(bool collapsed);
// The initial hint, before the pane was laid out.
inline const QString kInitialHint =
    QStringLiteral("(Double-Click Caption to Hide the Preview Pane.)");

// Printed in place of the preview photo: the pane is collapsed, or dynamic preview is off.
QStringList noPreviewLines(bool dynamicPreviewOff);

// The script's own save switches made harmless: "/fx.savefilename" becomes "/errpass", then
// "/fx.savefile" becomes "/errpasssave" (as written: both case-sensitive, in that order).
QString neutraliseSaves(const QString& commandLine);

// The line that renders a preview of commandLine on photo into output ("\" forms).
QString runLine(const QString& commandLine, const QString& photo, const QString& output);

// "File Size: <KB> (<Bytes>)  |  Unique Colors: <n>" for the file at path.
QString infoLine(const QString& path, qint64 uniqueColors);

// The built-in example photo and the scratch file every preview is written to.
QString builtInExample();
QString outputFile();
// The key of the example photo in section Settings, and of the folder of the last choice.
inline const QString kExamplePhotoKey = QStringLiteral("ExamplePhoto");
inline const QString kFolderKey = QStringLiteral("PreviewExampleImage");

// The pop-up menu after `path` was made the example photo, given the stored default.
struct MenuState {
    QString makeDefaultCaption;
    bool makeDefaultEnabled = false;
    QString makeDefaultTag; // the path the entry would make the default
    bool restoreVisible = false;
};
MenuState menuState(const QString& path, const QString& storedDefault);

// Whether both photos are shown: the height left for them (all in twips) is at least 3001.
bool showsBothPhotos(int innerHeight, int captionHeight);

} // namespace PreviewPaneLogic
