// Message boxes and questions as Qt dialogs, for a process with a display.
#pragma once

#include "platform/Messages.h"

#include <QMessageBox>
#include <memory>

class QWidget;

class QtMessages : public Messages {
public:
    explicit QtMessages(QWidget* parent = nullptr) : m_parent(parent) {}
    MsgAnswer messageBox(const QString& title, const QString& text, MsgIcon icon,
                         MsgButtons buttons) override;
    std::optional<QString> inputBox(const QString& title, const QString& prompt,
                                    const QString& defaultText) override;

    // The dialog for a box, not yet shown.
    static std::unique_ptr<QMessageBox> buildBox(const QString& title, const QString& text,
                                                 MsgIcon icon, MsgButtons buttons,
                                                 QWidget* parent = nullptr);
    static MsgAnswer answerFor(int standardButton);

private:
    QWidget* m_parent;
};
