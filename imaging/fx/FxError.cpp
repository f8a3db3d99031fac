// The effects' error type.
#include "imaging/fx/FxError.h"

namespace fx {

namespace {
std::string trimmed(std::string text) {
    while (!text.empty() && (text.back() == '\n' || text.back() == ' '))
        text.pop_back();
    return text;
}
} // namespace

FxError::FxError(FxErrorKind kind, std::string member, const std::string& message)
    : std::runtime_error(member + ": " + trimmed(message)), m_kind(kind),
      m_member(std::move(member)), m_detail(trimmed(message)) {}

void throwBadArgument(const std::string& member, const std::string& message) {
    throw FxError(FxErrorKind::BadArgument, member, message);
}

} // namespace fx
