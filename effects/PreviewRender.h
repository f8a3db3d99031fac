// The preview pane's work off the user-interface thread: the example photo for display and the
// rendering of a script's preview, each as images ready to show.
#pragma once

#include <QImage>
#include <QString>
#include <atomic>

namespace PhotoPixels {
struct Pixels;
}

namespace PreviewRender {

// Decoded pixels as an image (null when the photo could not be read).
QImage imageOf(const PhotoPixels::Pixels& pixels);

// Photos larger than this on a side are previewed on a copy shrunk to it: previews follow the
// typing, and a pane shows no more than this anyway.
constexpr int kSourceSide = 1024;

// The file a preview of `photo` is run on: the photo itself when it is small enough, else its
// shrunken copy in the scratch folder (made once per photo version). "\" forms.
QString sourceFor(const QString& photo);

struct ExampleFrame {
    QImage image;
    QString info; // the information line of the shown photo
};
// The example photo as the pane shows it, with its information line.
ExampleFrame loadExample(const QString& photo);

struct PreviewFrame {
    QString errorText; // the engine's text; "" when the preview was produced
    QImage image;      // the preview (null after an error, or when nothing was written)
    QString info;      // its information line
    bool cancelled = false;
};
// Runs commandLine on the photo's preview source into output and reads the result back.
PreviewFrame render(const QString& commandLine, const QString& photo, const QString& output,
                    const std::atomic<bool>* cancel);

} // namespace PreviewRender
