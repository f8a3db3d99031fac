// Qt dialogs for the engine's message boxes, questions and input boxes.
#include "engine/QtMessages.h"

#include <QInputDialog>
#include <QLineEdit>

namespace {

QMessageBox::StandardButtons standardButtons(MsgButtons buttons) {
    switch (buttons) {
    case MsgButtons::OkOnly:
        return QMessageBox::Ok;
    case MsgButtons::OkCancel:
        return QMessageBox::Ok | QMessageBox::Cancel;
    case MsgButtons::AbortRetryIgnore:
        return QMessageBox::Abort | QMessageBox::Retry | QMessageBox::Ignore;
    case MsgButtons::YesNoCancel:
        return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case MsgButtons::YesNo:
        return QMessageBox::Yes | QMessageBox::No;
    case MsgButtons::RetryCancel:
        return QMessageBox::Retry | QMessageBox::Cancel;
    }
    return QMessageBox::Ok;
}

QMessageBox::Icon standardIcon(MsgIcon icon) {
    switch (icon) {
    case MsgIcon::None:
        return QMessageBox::NoIcon;
    case MsgIcon::Critical:
        return QMessageBox::Critical;
    case MsgIcon::Question:
        return QMessageBox::Question;
    case MsgIcon::Exclamation:
        return QMessageBox::Warning;
    case MsgIcon::Information:
        return QMessageBox::Information;
    }
    return QMessageBox::NoIcon;
}

} // namespace

std::unique_ptr<QMessageBox> QtMessages::buildBox(const QString& title, const QString& text,
                                                  MsgIcon icon, MsgButtons buttons,
                                                  QWidget* parent) {
    QString body = text;
    body.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    auto box = std::make_unique<QMessageBox>(standardIcon(icon),
                                             title.isEmpty() ? applicationTitle() : title, body,
                                             standardButtons(buttons), parent);
    box->setTextFormat(Qt::PlainText);
    // Closing the box with Escape or the window button gives the safe answer.
    const MsgAnswer safe = safeDefault(buttons);
    for (QAbstractButton* button : box->buttons())
        if (answerFor(box->standardButton(button)) == safe) box->setEscapeButton(button);
    return box;
}

MsgAnswer QtMessages::answerFor(int standardButton) {
    switch (standardButton) {
    case QMessageBox::Ok:
        return MsgAnswer::Ok;
    case QMessageBox::Cancel:
        return MsgAnswer::Cancel;
    case QMessageBox::Abort:
        return MsgAnswer::Abort;
    case QMessageBox::Retry:
        return MsgAnswer::Retry;
    case QMessageBox::Ignore:
        return MsgAnswer::Ignore;
    case QMessageBox::Yes:
        return MsgAnswer::Yes;
    case QMessageBox::No:
        return MsgAnswer::No;
    default:
        return MsgAnswer::Cancel;
    }
}

MsgAnswer QtMessages::messageBox(const QString& title, const QString& text, MsgIcon icon,
                                 MsgButtons buttons) {
    const auto box = buildBox(title, text, icon, buttons, m_parent);
    box->exec();
    // Escape and the close button count as the escape button, which is the safe answer.
    QAbstractButton* clicked = box->clickedButton();
    return clicked ? answerFor(box->standardButton(clicked)) : safeDefault(buttons);
}

std::optional<QString> QtMessages::inputBox(const QString& title, const QString& prompt,
                                            const QString& defaultText) {
    bool ok = false;
    QString body = prompt;
    body.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    const QString text =
        QInputDialog::getText(m_parent, title.isEmpty() ? applicationTitle() : title, body,
                              QLineEdit::Normal, defaultText, &ok);
    if (!ok) return std::nullopt;
    return text;
}
