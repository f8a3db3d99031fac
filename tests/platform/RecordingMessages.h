// Test double for Messages: records every box and answers from a script of replies.
#pragma once

#include "QtPrint.h"
#include "platform/Messages.h"

#include <QList>
#include <QString>

struct RecordedBox {
    QString title;
    QString text;
    MsgIcon icon;
    MsgButtons buttons;
};

class RecordingMessages : public Messages {
public:
    MsgAnswer messageBox(const QString& title, const QString& text, MsgIcon icon,
                         MsgButtons buttons) override {
        boxes.append({title, text, icon, buttons});
        if (!replies.isEmpty()) return replies.takeFirst();
        return buttons == MsgButtons::OkOnly ? MsgAnswer::Ok : safeDefault(buttons);
    }

    QList<RecordedBox> boxes;
    QList<MsgAnswer> replies; // answers given in order; then the safe default
};
