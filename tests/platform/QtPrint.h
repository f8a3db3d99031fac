// Test helper: readable QString values in GoogleTest failure messages.
#pragma once

#include <QString>
#include <ostream>

inline void PrintTo(const QString& text, std::ostream* os) {
    QString shown = text;
    shown.replace(QStringLiteral("\r"), QStringLiteral("\\r"))
        .replace(QStringLiteral("\n"), QStringLiteral("\\n"));
    *os << '"' << shown.toStdString() << '"';
}
