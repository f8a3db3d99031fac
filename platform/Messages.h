// Message boxes and questions: one small interface with a console implementation.
#pragma once

#include <QString>
#include <optional>

// Button sets, icons and answers carry the numbers VBScript's MsgBox uses, so the script host
// can pass its arguments through unchanged.
enum class MsgButtons {
    OkOnly = 0,
    OkCancel = 1,
    AbortRetryIgnore = 2,
    YesNoCancel = 3,
    YesNo = 4,
    RetryCancel = 5
};
enum class MsgIcon { None = 0, Critical = 16, Question = 32, Exclamation = 48, Information = 64 };
enum class MsgAnswer { Ok = 1, Cancel = 2, Abort = 3, Retry = 4, Ignore = 5, Yes = 6, No = 7 };

// Everything the engine and the platform layer tell the user or ask of them goes through the
// current Messages object: Qt dialogs when a window exists, the console otherwise, a recording
// fake in tests. An empty title means the application title, as a plain message box shows it.
class Messages {
public:
    virtual ~Messages() = default;
    virtual MsgAnswer messageBox(const QString& title, const QString& text, MsgIcon icon,
                                 MsgButtons buttons) = 0;

    // A Yes/No/Cancel question; callers proceed only on Yes.
    MsgAnswer question(const QString& title, const QString& text,
                       MsgIcon icon = MsgIcon::Question) {
        return messageBox(title, text, icon, MsgButtons::YesNoCancel);
    }
    void inform(const QString& title, const QString& text, MsgIcon icon = MsgIcon::None) {
        messageBox(title, text, icon, MsgButtons::OkOnly);
    }

    // A line of text asked of the user (a script's InputBox); nullopt when cancelled, which is
    // also the answer where nobody can be asked.
    virtual std::optional<QString> inputBox(const QString& title, const QString& prompt,
                                            const QString& defaultText) {
        (void)title, (void)prompt, (void)defaultText;
        return std::nullopt;
    }

    // The answer that never does harm: No where there is a No, else Cancel, else the first button.
    static MsgAnswer safeDefault(MsgButtons buttons);
};

// Texts on stderr. A box prints its title on one line and its text below it. A question is asked
// on the terminal when stdin and stderr are both one; otherwise it takes the safe default and
// says so, so that a batch started by another program (or logging to a file) never waits.
class ConsoleMessages : public Messages {
public:
    MsgAnswer messageBox(const QString& title, const QString& text, MsgIcon icon,
                         MsgButtons buttons) override;
    std::optional<QString> inputBox(const QString& title, const QString& prompt,
                                    const QString& defaultText) override;

private:
    MsgAnswer askOnTerminal(MsgButtons buttons);
};

// The process-wide current implementation (a ConsoleMessages until someone installs another).
Messages& messages();
// Installs `handler` (not owned; nullptr restores the console) and returns the previous one.
Messages* setMessages(Messages* handler);

// Installs a handler for the lifetime of a scope (tests, nested windows).
class ScopedMessages {
public:
    explicit ScopedMessages(Messages* handler) : m_previous(setMessages(handler)) {}
    ~ScopedMessages() { setMessages(m_previous); }
    ScopedMessages(const ScopedMessages&) = delete;
    ScopedMessages& operator=(const ScopedMessages&) = delete;

private:
    Messages* m_previous;
};

// The application title, used as the title of untitled boxes and for the settings store.
inline const QString& applicationTitle() {
    static const QString title = QStringLiteral("Vantorel 3 Caldrith");
    return title;
}
