// Rules of the main window that need no widgets: which menus a view shows, which children are
// views, how a stored placement is read. The widgets apply them.
#pragma once

#include <QRect>
#include <QString>
#include <optional>

namespace mInterface {

// Views are the main window's children whose names begin with "src" (any case).
bool isViewName(const QString& name);

// A menu belongs to a view when it is named "mnu" + the view's name, optionally followed by 1, 2
// or 3: shown while that view is current, hidden while another is. Other menus are not the
// view's business (nullopt).
std::optional<bool> menuVisibleFor(const QString& menuName, const QString& currentTool);

// The window's placement as the settings store keeps it: twips, and the window state as
// 0 normal, 1 minimised, 2 maximised.
struct Placement {
    QRect normalGeometry; // in pixels
    int windowState = 0;
};
// Reads the five keys "<form>left" ... "<form>window" of section Settings, each defaulting to
// the given placement's value.
Placement loadPlacement(const QString& formName, const Placement& defaults);
// Writes the state first, then the normal-state left, top, width and height.
void savePlacement(const QString& formName, const Placement& placement);

// The addresses the web menu items open (the product page may be overridden in the settings,
// section "Web Sites", key = the application title).
QString productWebSite();
QString feedbackPage();
QString downloadsPage();

} // namespace mInterface
