// The control's declaration tables: errors, formats, operations and properties are consistent.
#include <set>
#include <string>

#include <gtest/gtest.h>

#include "imaging/ImagingControl.h"
#include "imaging/Property.h"
#include "imaging/Reference.h"
#include "imaging/io/Formats.h"

using namespace imaging;

TEST(ImagingTables, ErrorNumbersAreUniqueAndHaveMessages) {
    std::set<int32_t> seen;
    for (const auto& e : errorCatalogue()) {
        EXPECT_TRUE(seen.insert(static_cast<int32_t>(e.code)).second) << e.message;
        EXPECT_FALSE(e.message.empty());
    }
    EXPECT_EQ(errorMessage(ErrorCode::ActionNotSupported), "Object doesn't support this action");
}

TEST(ImagingTables, FormatCodesAndExtensionsAreUnique) {
    std::set<int32_t> codes;
    std::set<std::string> extensions;
    for (const auto& f : allFormats()) {
        EXPECT_GT(f.code, 0);
        EXPECT_TRUE(codes.insert(f.code).second) << f.name;
        std::string list(f.extensions);
        size_t start = 0;
        while (start < list.size()) {
            size_t end = std::min(list.find(';', start), list.size());
            EXPECT_TRUE(extensions.insert(list.substr(start, end - start)).second) << list;
            start = end + 1;
        }
        if (f.canSave) {
            EXPECT_FALSE(f.saver.empty()) << f.name;
        }
    }
}

TEST(ImagingTables, EveryExtensionOfTheImageFilterHasAFormat) {
    for (const char* ext : {"bmp", "dib", "gif", "jpg",  "jpeg", "tif",  "tiff", "wmf", "ico",
                            "dcx", "jif", "ljp", "pbm",  "pcx",  "pgm",  "pic",  "png", "ppm",
                            "rle", "tga", "wpg", "webp", "heic", "avif", "jxl",  "JPG"})
        EXPECT_NE(formatByExtension(ext), nullptr) << ext;
}

TEST(ImagingTables, OperationsAreUniqueWithDefaultsInRange) {
    std::set<std::string> names;
    for (const OperationDef* op : allOperations()) {
        std::string lower(op->name);
        for (auto& ch : lower)
            ch = static_cast<char>(std::tolower(static_cast<unsigned char>(ch)));
        EXPECT_TRUE(names.insert(lower).second) << op->name;
        EXPECT_TRUE(op->apply || op->run) << op->name;
        EXPECT_FALSE(op->description.empty()) << op->name;
        for (const auto& p : op->params) {
            EXPECT_LE(p.min, p.max) << op->name << "." << p.name;
            if (p.def && p.type != ParamType::Bool) {
                EXPECT_TRUE(*p.def >= p.min && *p.def <= p.max) << op->name << "." << p.name;
            }
        }
    }
    EXPECT_EQ(findOperation("rotate"), findOperation("ROTATE"));
    EXPECT_EQ(findOperation("NoSuchThing"), nullptr);
}

TEST(ImagingTables, PropertiesAreUniqueWithDefaultsInRange) {
    std::set<std::string> names;
    ImagingControl control;
    for (const PropertyDef* p : allProperties()) {
        EXPECT_TRUE(names.insert(std::string(p->name)).second) << p->name;
        bool numeric = p->type != ParamType::String && p->type != ParamType::Bool;
        if (numeric && p->access != Access::Read) {
            EXPECT_TRUE(p->def >= p->min && p->def <= p->max) << p->name;
        }
    }
}

TEST(ImagingTables, ReferenceNamesEveryFormatPropertyAndOperation) {
    std::string text = referenceMarkdown();
    for (const auto& f : allFormats())
        EXPECT_NE(text.find(std::string(f.name)), std::string::npos);
    for (const PropertyDef* p : allProperties())
        EXPECT_NE(text.find("| " + std::string(p->name) + " |"), std::string::npos) << p->name;
    for (const OperationDef* op : allOperations())
        EXPECT_NE(text.find("### " + std::string(op->name) + "\n"), std::string::npos) << op->name;
    EXPECT_NE(text.find("| 20 | Pegasus PIC | pic | no | no |"), std::string::npos);
}
