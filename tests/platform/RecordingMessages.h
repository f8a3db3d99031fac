// Test double for Messages: records every box and answers from a script of replies.
#pragma once

#include "QtPrint.h"
#include "platform/Messages.h"

#include <QList>
#include <QString>
#include <QStringList>

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

    std::optional<QString> inputBox(const QString& title, const QString& prompt,
                                    const QString& defaultText) override {
        boxes.append({title, prompt, MsgIcon::None, MsgButtons::OkCancel});
        if (inputs.isEmpty()) return std::nullopt;
        const QString answer = inputs.takeFirst();
        return answer.isEmpty() ? defaultText : answer;
    }

    QList<RecordedBox> boxes;
    QStringList inputs;       // typed answers in order ("" takes the default); then cancelled
    QList<MsgAnswer> replies; // answers given in order; then the safe default
};
