// Test helper: readable QString values in GoogleTest failure messages.
#pragma once

#include <QString>
#include <QStringList>
#include <ostream>

inline void PrintTo(const QString& text, std::ostream* os) {
    QString shown = text;
    shown.replace(QStringLiteral("\r"), QStringLiteral("\\r"))
        .replace(QStringLiteral("\n"), QStringLiteral("\\n"));
    *os << '"' << shown.toStdString() << '"';
}

inline void PrintTo(const QStringList& list, std::ostream* os) {
    *os << '{';
    for (qsizetype i = 0; i < list.size(); ++i) {
        if (i) *os << ", ";
        PrintTo(list[i], os);
    }
    *os << '}';
}
