// Where the workbench writes its scratch files (the preview's output, the test run's output, the
// shrunken copy of the example photo): never a folder of the user's photos.
#pragma once

#include <QString>

namespace ScratchFolder {

// The folder in the "\" form with a trailing "\": the program's data folder when it can be
// written (a build tree, a portable copy), else the user's cache folder ($XDG_CACHE_HOME or
// ~/.cache, then "vantorel"), created when missing.
QString path();

// Uses `folder` (native or "\" form) instead: tests, so that they write nothing into the build
// tree. "" restores.
void setOverride(const QString& folder);

} // namespace ScratchFolder
