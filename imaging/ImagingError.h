// Errors of the imaging control: one catalogue of codes and messages, and the exception type.
#pragma once

#include <cstdint>
#include <exception>
#include <span>
#include <string>
#include <string_view>

namespace imaging {

// The codes are what `ImagError` reads back after a failure; the script sees the same number.
enum class ErrorCode : int32_t {
    None = 0,
    ActionNotSupported = 445,
    FileNotFound = 20001,
    UnknownFormat = 20002,
    DamagedImage = 20003,
    ImageTooLarge = 20004,
    CannotWrite = 20005,
    FormatNotWritable = 20006,
    FormatNotReadable = 20007,
    ArgumentOutOfRange = 20008,
    NoImage = 20009,
    PageNotFound = 20010,
    ProcessingFailed = 20011,
    NothingToPaste = 20012,
    UnknownProperty = 20014,
    ReadOnlyProperty = 20015,
    WrongArgumentCount = 20016,
};

struct ErrorInfo {
    ErrorCode code;
    std::string_view message;
};

// Every code with its fixed message; a test checks the numbers are unique.
std::span<const ErrorInfo> errorCatalogue();
std::string_view errorMessage(ErrorCode code);

// Thrown by the control. what() is the full text: the fixed message, then the detail (the file,
// the argument, or the library's own message).
class ImagingError : public std::exception {
public:
    ImagingError(ErrorCode code, std::string detail);
    ErrorCode code() const { return m_code; }
    int32_t number() const { return static_cast<int32_t>(m_code); }
    const std::string& detail() const { return m_detail; }
    const char* what() const noexcept override { return m_text.c_str(); }

private:
    ErrorCode m_code;
    std::string m_detail;
    std::string m_text;
};

[[noreturn]] void fail(ErrorCode code, std::string detail);

} // namespace imaging
