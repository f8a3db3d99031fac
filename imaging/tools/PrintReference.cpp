// Prints the imaging control's reference (formats, properties, operations, errors) as Markdown,
// for building the product's reference document: imaging_reference > imaging-reference.md
#include <cstdio>

#include "imaging/ImagingControl.h"
#include "imaging/Reference.h"

int main() {
    imaging::ensureVipsStarted();
    std::fputs(imaging::referenceMarkdown().c_str(), stdout);
    return 0;
}
