// The reference text of the imaging control, generated from its tables (formats, properties,
// operations); the reference document of the product is built from it.
#pragma once

#include <string>

namespace imaging {

// Markdown: the format table (codes for SaveFileType and IFormat, load/save, notes), every
// property with type, access, range and meaning, every operation with its arguments, and the
// error codes.
std::string referenceMarkdown();

} // namespace imaging
