// Writes the editor's data files from the code's tables: editor_data TEMPLATE OUT_FOLDER makes
// OUT_FOLDER/commands.txt, errors.txt and index.html (a build step; see editor/CMakeLists.txt).
#include "editor/EditorData.h"
#include "imaging/ImagingControl.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <cstdio>

namespace {

bool write(const QString& path, const QString& text) {
    QFile file(path);
    const QByteArray bytes = text.toUtf8();
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: editor_data TEMPLATE OUT_FOLDER\n");
        return 2;
    }
    imaging::ensureVipsStarted();
    QFile templ(QString::fromLocal8Bit(argv[1]));
    if (!templ.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "editor_data: cannot read %s\n", argv[1]);
        return 1;
    }
    const QString templateText = QString::fromUtf8(templ.readAll());
    const QDir out(QString::fromLocal8Bit(argv[2]));
    out.mkpath(QStringLiteral("."));
    const bool ok = write(out.filePath("commands.txt"), EditorData::commandsText()) &&
                    write(out.filePath("errors.txt"), EditorData::errorsText()) &&
                    write(out.filePath("index.html"), EditorData::referenceHtml(templateText));
    if (!ok) std::fprintf(stderr, "editor_data: cannot write to %s\n", argv[2]);
    return ok ? 0 : 1;
}
