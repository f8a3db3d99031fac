// File and folder dialogs handing back "\"-form paths.
#include "controls/FileDialogs.h"

#include "platform/NativePath.h"

#include <QFileDialog>
#include <QRegularExpression>

namespace FileDialogs {

namespace {

QString toBackslash(const QString& native) {
    return QString::fromStdString(NativePath::toBackslash(native.toStdString()));
}

QString nativeFolder(const QString& folder) {
    return folder.isEmpty() ? QString()
                            : QString::fromStdString(NativePath::toNative(folder.toStdString()));
}

} // namespace

QStringList qtNameFilters(const QString& pairs) {
    static const QRegularExpression ownPatterns(QStringLiteral("\\s*\\([^()]*\\)$"));
    const QStringList parts = pairs.split(u'|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QString description = parts[i];
        description.remove(ownPatterns);
        filters.append(description + QStringLiteral(" (") +
                       QString(parts[i + 1]).replace(u';', u' ') + u')');
    }
    return filters;
}

QStringList openFiles(QWidget* parent, const QString& title, const QString& folder,
                      const QString& filterPairs, bool multiple) {
    QFileDialog dialog(parent, title, nativeFolder(folder));
    dialog.setFileMode(multiple ? QFileDialog::ExistingFiles : QFileDialog::ExistingFile);
    dialog.setNameFilters(qtNameFilters(filterPairs));
    if (dialog.exec() != QDialog::Accepted) return {};
    QStringList chosen;
    for (const QString& file : dialog.selectedFiles())
        chosen.append(toBackslash(file));
    return chosen;
}

QString chooseFolder(QWidget* parent, const QString& title, const QString& folder) {
    const QString chosen = QFileDialog::getExistingDirectory(parent, title, nativeFolder(folder));
    return chosen.isEmpty() ? QString() : toBackslash(chosen);
}

} // namespace FileDialogs
