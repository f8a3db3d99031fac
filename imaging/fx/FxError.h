// The one error type the effects throw: the member, a kind and a message a script user can use.
#pragma once

#include <stdexcept>
#include <string>
#include <utility>

#include <vips/vips8>

namespace fx {

enum class FxErrorKind {
    BadArgument, // an argument outside its documented range, or an impossible combination
    Library,     // libvips, cairo or pango failed; their message is kept
    Unavailable, // the platform cannot do it here (no display for CaptureWindow)
};

class FxError : public std::runtime_error {
public:
    FxError(FxErrorKind kind, std::string member, const std::string& message);

    FxErrorKind kind() const { return m_kind; }
    const std::string& member() const { return m_member; }
    // The message without the "Member: " prefix that what() carries.
    const std::string& detail() const { return m_detail; }

private:
    FxErrorKind m_kind;
    std::string m_member;
    std::string m_detail;
};

[[noreturn]] void throwBadArgument(const std::string& member, const std::string& message);

// Runs a libvips pipeline builder and turns a vips::VError into an FxError of kind Library,
// keeping libvips' message, so nothing from libvips leaves the effects raw.
template <class F> vips::VImage guarded(const char* member, F&& build) {
    try {
        return std::forward<F>(build)();
    } catch (const vips::VError& e) {
        throw FxError(FxErrorKind::Library, member, e.what());
    }
}

} // namespace fx
