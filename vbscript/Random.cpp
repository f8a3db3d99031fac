// VBScript's Rnd generator: a 24-bit linear congruential sequence, seeded by Randomize.
#include "Builtins.h"

#include <chrono>
#include <cstring>

namespace vbs {

float RandomState::rnd(double arg)
{
    if (arg < 0) {
        // A negative argument always gives the same number for the same argument.
        const float f = float(arg);
        uint32_t bits;
        std::memcpy(&bits, &f, sizeof bits);
        m_seed = (bits + (bits >> 24)) & 0xFFFFFF;
    }
    if (arg != 0)
        m_seed = (m_seed * 0x43FD43FDu + 0xC39EC3u) & 0xFFFFFF;
    return float(m_seed) / 16777216.0f;
}

void RandomState::randomize(double seed)
{
    uint64_t bits;
    std::memcpy(&bits, &seed, sizeof bits);
    uint32_t hi = uint32_t(bits >> 32);
    hi ^= hi >> 16;
    m_seed = (m_seed & 0xFF) | ((hi & 0xFFFF) << 8);
    m_seed &= 0xFFFFFF;
}

void RandomState::randomizeNow()
{
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    const double secs = double(std::chrono::duration_cast<std::chrono::microseconds>(now).count()
        % 86400000000LL) / 1e6;
    randomize(secs);
}

} // namespace vbs
