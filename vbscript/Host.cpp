// The default host: silent, and every question answered with its safe default.
#include "Host.h"

namespace vbs {

void Host::echo(const String&)
{
}

int Host::msgBox(const String&, int buttons, const String&)
{
    switch (buttons & 7) {
    case 0: return 1;  // OK only
    case 1: return 2;  // OK, Cancel -> Cancel
    case 2: return 3;  // Abort, Retry, Ignore -> Abort
    case 3: return 7;  // Yes, No, Cancel -> No
    case 4: return 7;  // Yes, No -> No
    case 5: return 2;  // Retry, Cancel -> Cancel
    default: return 2;
    }
}

std::optional<String> Host::inputBox(const String&, const String&, const String&)
{
    return std::nullopt;
}

Host& defaultHost()
{
    static Host host;
    return host;
}

} // namespace vbs
