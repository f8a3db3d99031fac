// How an operation of the imaging control is declared: its parameters, ranges, defaults and
// handler. Every operation is one row of a family table; the rows feed the dispatch, the argument
// checks and the reference document.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include <vips/vips8>

namespace imaging {

class ImagingControl;

// An argument as the caller hands it over: an omitted optional argument is Missing.
struct Missing {
    bool operator==(const Missing&) const = default;
};
using Arg = std::variant<Missing, int32_t, double, bool, std::string>;

enum class ParamType { Int, Long, Single, Double, Bool, String, Color };

struct ParamDef {
    std::string_view name;
    ParamType type;
    double min;
    double max;
    std::optional<double> def; // no default: the argument is required
    std::string_view meaning;
};

// Arguments after checking: every declared parameter has a value (given or default) within range.
class OpArgs {
public:
    OpArgs(std::string_view op, std::span<const ParamDef> params, std::span<const Arg> given);
    int32_t i(size_t index) const;
    double d(size_t index) const;
    bool b(size_t index) const;
    const std::string& s(size_t index) const;
    bool given(size_t index) const;
    size_t size() const { return m_values.size(); }

private:
    std::vector<Arg> m_values;
    std::vector<bool> m_given;
};

// Colours are 0x00BBGGRR as scripts write them.
struct Rgb {
    double r, g, b;
};
Rgb unpackColor(int32_t color);

struct FontState {
    std::string name = "Arial";
    int32_t size = 12;
    bool italic = false, bold = false, underline = false, strikethrough = false;
};

// Drawing settings stored on the control and used by every later drawing call.
struct DrawState {
    int32_t drawMode = 13; // copy pen
    int32_t drawFillColor = 0;
    int32_t drawFillStyle = 1; // transparent
    int32_t drawStyle = 0;     // solid
    int32_t drawWidth = 1;
    FontState font;
};

// The processing area; when enabled, area-aware operations touch only this rectangle.
struct AreaState {
    bool enabled = false;
    int32_t x = 0, y = 0, width = 0, height = 0;
};

struct OpContext {
    const DrawState& draw;
    const AreaState& area;
    int32_t backColor;
};

enum OpFlags : unsigned {
    OpNone = 0,
    OpWholeImage = 1, // changes the geometry: ignores the processing area
};

// An image operation: input image to output image. The control supplies the image (the area
// cut out when the area is on and the operation is area-aware), pastes the result back, keeps the
// undo snapshot and turns library failures into ImagingError.
using ApplyFn = vips::VImage (*)(const vips::VImage& in, const OpArgs& args, const OpContext& ctx);
// An operation that needs the whole control (clipboard, undo, state); it does its own work.
using RunFn = void (*)(ImagingControl& control, const OpArgs& args);

struct OperationDef {
    std::string_view name;
    std::string_view description;
    std::span<const ParamDef> params;
    ApplyFn apply = nullptr;
    RunFn run = nullptr;
    unsigned flags = OpNone;
};

// All operations of the control, from the family tables listed in Operations.cpp.
std::span<const OperationDef* const> allOperations();
const OperationDef* findOperation(std::string_view name); // case-insensitive, nullptr if absent

// Family tables (one per file under ops/).
std::span<const OperationDef> geometryOperations();
std::span<const OperationDef> colorOperations();
std::span<const OperationDef> editOperations();

bool equalsIgnoreCase(std::string_view a, std::string_view b);

} // namespace imaging
