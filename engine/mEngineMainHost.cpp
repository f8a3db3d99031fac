// Reports of the script host: the excerpt around a failing line and the texts built from it.
#include "engine/mEngineMain.h"

namespace mEngineMain {

QString scriptErrorExcerpt(const QString& scriptText, const ScriptFailure& failure,
                           QString* errorLineText) {
    const QStringList lines = scriptText.split(QStringLiteral("\r\n"));
    const qsizetype failing = qsizetype(failure.line) - 1;
    QString excerpt;
    if (errorLineText) errorLineText->clear();
    for (qsizetype index = failing - 5; index <= failing + 5; ++index) {
        if (index < 0 || index >= lines.size()) continue;
        QString text = lines[index];
        text = text.remove(u'\t').trimmed();
        excerpt += QStringLiteral("Line %1:  ").arg(index + 1, 3, 10, QChar(u'0')) + text;
        if (index == failing) {
            excerpt +=
                QStringLiteral("   'ERROR: %1: %2").arg(failure.number).arg(failure.description);
            if (errorLineText) *errorLineText = text;
        }
        excerpt += QStringLiteral("\r\n");
    }
    return excerpt;
}

QString previewErrorText(const ScriptFailure& failure, const QString& errorLineText) {
    return QStringLiteral(
               "Error was found: %1: %2\r\n\r\nPlease correct the below line:\r\n\r\n   ")
               .arg(failure.number)
               .arg(failure.description) +
           errorLineText;
}

QString runtimeErrorText(const ScriptFailure& failure, const QString& hostDescription,
                         const QString& excerpt) {
    return QStringLiteral("Error in Code...") + hostDescription + QStringLiteral("\r\n") +
           QStringLiteral("%1: %2 at line %3")
               .arg(failure.number)
               .arg(failure.description)
               .arg(failure.line) +
           QStringLiteral("\r\n\r\nScript Preview: \r\n") + excerpt;
}

QString noScriptEngineText() {
    return QStringLiteral(
        "Error: Could not initilize Windows Script 5.6, please make sure that it has been "
        "installed. Also ensure that you have all the latest service packs and patches for your "
        "operating system by visiting Windows Update.\r\n\r\nNote: This application is not "
        "supported on Windows 95, 98 or ME and may not ever run. Please upgrade to 2000, or XP.");
}

} // namespace mEngineMain
