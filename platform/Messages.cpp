// Console message boxes and the process-wide current Messages object.
#include "platform/Messages.h"

#include "platform/ConsoleLine.h"
#include "platform/TextCodec.h"

#include <cctype>
#include <cstdio>
#include <iostream>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

struct Choice {
    char key;
    const char* label;
    MsgAnswer answer;
};

std::vector<Choice> choicesFor(MsgButtons buttons) {
    switch (buttons) {
    case MsgButtons::OkOnly:
        return {{'o', "OK", MsgAnswer::Ok}};
    case MsgButtons::OkCancel:
        return {{'o', "OK", MsgAnswer::Ok}, {'c', "Cancel", MsgAnswer::Cancel}};
    case MsgButtons::AbortRetryIgnore:
        return {{'a', "Abort", MsgAnswer::Abort},
                {'r', "Retry", MsgAnswer::Retry},
                {'i', "Ignore", MsgAnswer::Ignore}};
    case MsgButtons::YesNoCancel:
        return {{'y', "Yes", MsgAnswer::Yes},
                {'n', "No", MsgAnswer::No},
                {'c', "Cancel", MsgAnswer::Cancel}};
    case MsgButtons::YesNo:
        return {{'y', "Yes", MsgAnswer::Yes}, {'n', "No", MsgAnswer::No}};
    case MsgButtons::RetryCancel:
        return {{'r', "Retry", MsgAnswer::Retry}, {'c', "Cancel", MsgAnswer::Cancel}};
    }
    return {{'o', "OK", MsgAnswer::Ok}};
}

const char* answerName(MsgAnswer answer) {
    switch (answer) {
    case MsgAnswer::Ok:
        return "OK";
    case MsgAnswer::Cancel:
        return "Cancel";
    case MsgAnswer::Abort:
        return "Abort";
    case MsgAnswer::Retry:
        return "Retry";
    case MsgAnswer::Ignore:
        return "Ignore";
    case MsgAnswer::Yes:
        return "Yes";
    case MsgAnswer::No:
        return "No";
    }
    return "OK";
}

// Someone can answer only when the question is seen on a terminal and typed on one: with
// stderr sent to a file, a prompt nobody sees would wait for ever.
bool canAsk() {
    return isatty(STDIN_FILENO) && isatty(STDERR_FILENO);
}

ConsoleMessages& consoleMessages() {
    static ConsoleMessages console;
    return console;
}

Messages* g_current = nullptr;

} // namespace

MsgAnswer Messages::safeDefault(MsgButtons buttons) {
    const std::vector<Choice> choices = choicesFor(buttons);
    for (MsgAnswer preferred : {MsgAnswer::No, MsgAnswer::Cancel, MsgAnswer::Abort}) {
        for (const Choice& c : choices)
            if (c.answer == preferred) return preferred;
    }
    return choices.front().answer;
}

MsgAnswer ConsoleMessages::messageBox(const QString& title, const QString& text, MsgIcon icon,
                                      MsgButtons buttons) {
    (void)icon; // a terminal has no icons; the title and text carry the message
    ConsoleLine::finish();
    const QString heading = title.isEmpty() ? applicationTitle() : title;
    QString body = text;
    body.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    std::fprintf(stderr, "%s\n%s\n", TextCodec::forDisplay(heading).constData(),
                 TextCodec::forDisplay(body).constData());
    std::fflush(stderr);
    if (buttons == MsgButtons::OkOnly) return MsgAnswer::Ok;
    if (canAsk()) return askOnTerminal(buttons);
    const MsgAnswer answer = safeDefault(buttons);
    std::fprintf(stderr, "(no terminal to answer on: taking \"%s\")\n", answerName(answer));
    return answer;
}

MsgAnswer ConsoleMessages::askOnTerminal(MsgButtons buttons) {
    const std::vector<Choice> choices = choicesFor(buttons);
    std::string prompt;
    for (const Choice& c : choices) {
        if (!prompt.empty()) prompt += " / ";
        prompt += std::string("[") + char(c.key - 'a' + 'A') + "]" + (c.label + 1);
    }
    for (int attempt = 0; attempt < 5; ++attempt) {
        std::fprintf(stderr, "%s? ", prompt.c_str());
        std::fflush(stderr);
        std::string line;
        if (!std::getline(std::cin, line)) break;
        const auto first = line.find_first_not_of(" \t");
        if (first == std::string::npos) continue;
        const char key = char(std::tolower(static_cast<unsigned char>(line[first])));
        for (const Choice& c : choices)
            if (c.key == key) return c.answer;
    }
    const MsgAnswer answer = safeDefault(buttons);
    std::fprintf(stderr, "(no answer: taking \"%s\")\n", answerName(answer));
    return answer;
}

std::optional<QString> ConsoleMessages::inputBox(const QString& title, const QString& prompt,
                                                 const QString& defaultText) {
    ConsoleLine::finish();
    QString body = prompt;
    body.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    const QString heading = title.isEmpty() ? applicationTitle() : title;
    std::fprintf(stderr, "%s\n%s\n", TextCodec::forDisplay(heading).constData(),
                 TextCodec::forDisplay(body).constData());
    if (!canAsk()) {
        std::fprintf(stderr, "(no terminal to answer on: cancelled)\n");
        return std::nullopt;
    }
    std::fprintf(stderr, "[%s]? ", defaultText.toUtf8().constData());
    std::fflush(stderr);
    std::string line;
    if (!std::getline(std::cin, line)) return std::nullopt;
    return line.empty() ? defaultText : QString::fromLocal8Bit(line.c_str());
}

Messages& messages() {
    return g_current ? *g_current : consoleMessages();
}

Messages* setMessages(Messages* handler) {
    Messages* previous = g_current;
    g_current = handler;
    return previous;
}
