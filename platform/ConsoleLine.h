// The one transient status line on stderr (progress), kept apart from messages printed below it.
#pragma once

#include <QString>

namespace ConsoleLine {

// Draws text as the status line, replacing the previous one in place. Only when stderr is a
// terminal; elsewhere status lines would only clutter logs.
void show(const QString& text);

// Ends the status line, so that whatever is printed next starts on a line of its own. Every
// console message calls this first.
void finish();

bool isTerminal();

} // namespace ConsoleLine
