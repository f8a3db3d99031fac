// The workbench's file dialogs in the system's terms: filters as description|pattern pairs,
// folders and answers in the "\" form of paths.
#pragma once

#include <QString>
#include <QStringList>

class QWidget;

namespace FileDialogs {

// "desc|*.a;*.b|..." as Qt's name filters "desc (*.a *.b)"; a description that already ends in
// its own "(...)" keeps it only once.
QStringList qtNameFilters(const QString& pairs);

// Files chosen in an open dialog starting in `folder`; empty when cancelled.
QStringList openFiles(QWidget* parent, const QString& title, const QString& folder,
                      const QString& filterPairs, bool multiple);

// A folder chosen in a folder dialog starting in `folder`; "" when cancelled.
QString chooseFolder(QWidget* parent, const QString& title, const QString& folder);

} // namespace FileDialogs
