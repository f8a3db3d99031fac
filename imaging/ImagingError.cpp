// The imaging control's error catalogue.
#include "imaging/ImagingError.h"

#include <algorithm>

namespace imaging {

namespace {
constexpr ErrorInfo kCatalogue[] = {
    {ErrorCode::None, "No error"},
    {ErrorCode::ActionNotSupported, "Object doesn't support this action"},
    {ErrorCode::FileNotFound, "File not found"},
    {ErrorCode::UnknownFormat, "Not a supported image file"},
    {ErrorCode::DamagedImage, "Image file is damaged or truncated"},
    {ErrorCode::ImageTooLarge, "Image is too large"},
    {ErrorCode::CannotWrite, "Cannot write the file"},
    {ErrorCode::FormatNotWritable, "This format cannot be written"},
    {ErrorCode::FormatNotReadable, "This format cannot be read"},
    {ErrorCode::ArgumentOutOfRange, "Argument out of range"},
    {ErrorCode::NoImage, "No image is loaded"},
    {ErrorCode::PageNotFound, "Page not found"},
    {ErrorCode::ProcessingFailed, "Image operation failed"},
    {ErrorCode::NothingToPaste, "The clipboard holds no image"},
    {ErrorCode::UnknownProperty, "Unknown property"},
    {ErrorCode::ReadOnlyProperty, "Property is read-only"},
    {ErrorCode::WrongArgumentCount, "Wrong number of arguments"},
};
} // namespace

std::span<const ErrorInfo> errorCatalogue() {
    return kCatalogue;
}

std::string_view errorMessage(ErrorCode code) {
    auto it = std::find_if(std::begin(kCatalogue), std::end(kCatalogue),
                           [code](const ErrorInfo& e) { return e.code == code; });
    return it == std::end(kCatalogue) ? std::string_view("Imaging error") : it->message;
}

ImagingError::ImagingError(ErrorCode code, std::string detail)
    : m_code(code), m_detail(std::move(detail)) {
    m_text = std::string(errorMessage(code));
    if (!m_detail.empty()) m_text += ": " + m_detail;
}

void fail(ErrorCode code, std::string detail) {
    throw ImagingError(code, std::move(detail));
}

} // namespace imaging
