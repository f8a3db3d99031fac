// Main-window rules without widgets: view names, view menus, placement, web addresses.
#include "views/mInterface.h"

#include "controls/Twips.h"
#include "platform/Messages.h"
#include "platform/mWindowsAPI.h"

#include <QUrl>
#include <QUrlQuery>

namespace mInterface {

namespace {

const QString kSection = QStringLiteral("Settings");

int readInt(const QString& key, int fallback) {
    bool ok = false;
    const int value =
        mWindowsAPI::GetSettingValue(kSection, key, QString::number(fallback)).toInt(&ok);
    return ok ? value : fallback;
}

void writeInt(const QString& key, int value) {
    mWindowsAPI::SaveSettingValue(kSection, key, QString::number(value));
}

} // namespace

bool isViewName(const QString& name) {
    return name.startsWith(QStringLiteral("src"), Qt::CaseInsensitive);
}

std::optional<bool> menuVisibleFor(const QString& menuName, const QString& currentTool) {
    const QString name = menuName.toLower();
    const QString own = QStringLiteral("mnu") + currentTool.toLower();
    for (const QString& suffix :
         {QString(), QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("3")})
        if (name == own + suffix) return true;
    if (name.left(6) == u"mnusrc") return false;
    return std::nullopt;
}

Placement loadPlacement(const QString& formName, const Placement& defaults) {
    const QRect d = defaults.normalGeometry;
    Placement p;
    p.normalGeometry =
        QRect(Twips::toPixels(readInt(formName + "left", Twips::fromPixels(d.x()))),
              Twips::toPixels(readInt(formName + "top", Twips::fromPixels(d.y()))),
              Twips::toPixels(readInt(formName + "width", Twips::fromPixels(d.width()))),
              Twips::toPixels(readInt(formName + "height", Twips::fromPixels(d.height()))));
    p.windowState = readInt(formName + "window", defaults.windowState);
    return p;
}

void savePlacement(const QString& formName, const Placement& placement) {
    const QRect g = placement.normalGeometry;
    writeInt(formName + "window", placement.windowState);
    writeInt(formName + "left", Twips::fromPixels(g.x()));
    writeInt(formName + "top", Twips::fromPixels(g.y()));
    writeInt(formName + "width", Twips::fromPixels(g.width()));
    writeInt(formName + "height", Twips::fromPixels(g.height()));
}

QString productWebSite() {
    return mWindowsAPI::GetSettingValue(QStringLiteral("Web Sites"), applicationTitle(),
                                        QStringLiteral("https://vantorel.example.org/"));
}

QString feedbackPage() {
    QUrl url(QStringLiteral("https://vantorel.example.org/feedback"));
    QUrlQuery query;
    query.addQueryItem(QStringLiteral("app"), applicationTitle());
    url.setQuery(query);
    return url.toString(QUrl::FullyEncoded);
}

QString downloadsPage() {
    return QStringLiteral("https://vantorel.example.org/download");
}

} // namespace mInterface
