// File, clipboard and undo operations of the control.
#include "imaging/ImagingControl.h"

namespace imaging {

void colorDepthRun(ImagingControl& c, const OpArgs& a);

namespace {

void copy(ImagingControl& c, const OpArgs&) {
    c.copyToClipboard();
}
void paste(ImagingControl& c, const OpArgs&) {
    c.pasteFromClipboard();
}
void undo(ImagingControl& c, const OpArgs&) {
    c.undo();
}
void saveFile(ImagingControl& c, const OpArgs&) {
    c.saveFile();
}

constexpr OperationDef kEdit[] = {
    {"SaveFile",
     "writes the image to SaveFileName in the format SaveFileType (0: by its extension), "
     "atomically",
     {},
     nullptr,
     saveFile},
    {"Copy",
     "copies the image (or the processing area) to the control's clipboard",
     {},
     nullptr,
     copy},
    {"Paste", "makes the clipboard's image the current image", {}, nullptr, paste},
    {"Undo",
     "restores the image as it was before the last change (needs UndoEnabled)",
     {},
     nullptr,
     undo},
};

} // namespace

std::span<const OperationDef> editOperations() {
    return kEdit;
}

} // namespace imaging
