// The library's whole-image primitives under Pythonic names: tone,
// saturation, gamma, blur, sharpening, levels, colour balance, tone curves
// and the blend modes.
#include <qtzqeffect/blur.h>
#include <qtzqeffect/curve.h>
#include <qtzqeffect/pixel.h>

#include <cmath>
#include <optional>
#include <utility>

#include "qtzq_app/blend_modes.h"

#include "arrays.h"
#include "bindings.h"

namespace qtzq_py {
namespace {

using qtzq_app::BlendMode;

void require(bool ok, const std::string& message) {
    if (!ok) throw py::value_error(message);
}

bool within(double value, double low, double high) {
    return std::isfinite(value) && value >= low && value <= high;
}

const BlendMode& resolve_blend_mode(const std::string& name) {
    if (const BlendMode* mode = qtzq_app::find_any_blend_mode(name)) return *mode;
    throw py::value_error("unknown blend mode '" + name +
                          "' (qtzqeffect.blend_modes() lists them)");
}

int saturation_mode(const std::string& mode) {
    if (mode == "matrix") return 0;
    if (mode == "hsl") return 1;
    if (mode == "yuv") return 2;
    throw py::value_error("mode must be 'hsl', 'yuv' or 'matrix', not '" + mode + "'");
}

_TONE_REGION tone_region(const std::string& region) {
    if (region == "shadows") return TONE_REGION_SHADOWS;
    if (region == "midtones") return TONE_REGION_MIDTONES;
    if (region == "highlights") return TONE_REGION_HIGHLIGHTS;
    throw py::value_error("region must be 'shadows', 'midtones' or 'highlights', not '" + region +
                          "'");
}

Channel curve_channel(const std::string& channel) {
    if (channel == "rgb") return CHANNEL_RGB;
    if (channel == "red") return CHANNEL_RED;
    if (channel == "green") return CHANNEL_GREEN;
    if (channel == "blue") return CHANNEL_BLUE;
    throw py::value_error("channel must be 'rgb', 'red', 'green' or 'blue', not '" + channel + "'");
}

std::vector<_POINT> curve_points(const std::vector<std::pair<int, int>>& points) {
    require(!points.empty(), "a curve needs at least one point");
    std::vector<_POINT> out;
    for (const auto& [x, y] : points) {
        require(within(x, 0, 255) && within(y, 0, 255), "curve points must lie in 0..255, not (" +
                                                            std::to_string(x) + ", " +
                                                            std::to_string(y) + ")");
        require(out.empty() || x > out.back().x, "curve points must have increasing x");
        out.push_back({x, y});
    }
    return out;
}

py::object brightness_contrast(const py::object& image, long long brightness, long long contrast,
                               const std::string& order, bool inplace) {
    require(within(double(brightness), -255, 255) && within(double(contrast), -255, 255),
            "brightness and contrast must lie in -255..255");
    return change_photo(image, order, inplace, [&](unsigned char* p, int w, int h) {
        Light(p, w, h, long(brightness), long(contrast));
    });
}

py::object saturate(const py::object& image, long long amount, const std::string& mode,
                    const std::string& order, bool inplace) {
    const int kind = saturation_mode(mode);
    require(within(double(amount), -255, 255), "amount must lie in -255..255");
    return change_photo(image, order, inplace, [&](unsigned char* p, int w, int h) {
        if (kind == 0)
            Saturateconst(p, w, h, long(amount));
        else
            Saturateconst(p, w, h, long(amount), kind);
    });
}

py::object gamma(const py::object& image, float red, std::optional<float> green,
                 std::optional<float> blue, const std::string& order, bool inplace) {
    const float g = green.value_or(red), b = blue.value_or(red);
    for (const float value : {red, g, b})
        require(std::isfinite(value) && value > 0.0f, "gamma must be a number above 0");
    return change_photo(image, order, inplace,
                        [&](unsigned char* p, int w, int h) { GammaRGB(p, w, h, red, g, b); });
}

py::object gaussian_blur(const py::object& image, double radius, std::optional<double> radius_y,
                         const std::string& order, bool inplace) {
    const double vertical = radius_y.value_or(radius);
    require(within(radius, 0, 255) && within(vertical, 0, 255), "blur radii must lie in 0..255");
    return change_photo(image, order, inplace, [&](unsigned char* p, int w, int h) {
        GaussianBlurFilterUtil::GetInst()->CreateBlurEffect(p, w, h, 4, radius, vertical);
    });
}

py::object unsharp(const py::object& image, int radius, float amount, const std::string& order,
                   bool inplace) {
    require(radius >= 1 && radius <= 50, "radius must lie in 1..50");
    require(within(amount, 0, 100), "amount must lie in 0..100");
    return change_photo(image, order, inplace, [&](unsigned char* p, int w, int h) {
        StyleSharp(p, w, h, radius, amount);
    });
}

py::object auto_levels(const py::object& image, const std::string& order, bool inplace) {
    return change_photo(image, order, inplace,
                        [](unsigned char* p, int w, int h) { AutoColorLevel(p, w, h, true); });
}

py::object color_balance(const py::object& image, int cyan_red, int magenta_green, int yellow_blue,
                         const std::string& region, bool preserve_luminosity,
                         const std::string& order, bool inplace) {
    const _TONE_REGION tones = tone_region(region);
    for (const int shift : {cyan_red, magenta_green, yellow_blue})
        require(within(shift, -100, 100), "colour balance shifts must lie in -100..100");
    return change_photo(image, order, inplace, [&](unsigned char* p, int w, int h) {
        CColorBalance(preserve_luminosity, tones, cyan_red, magenta_green, yellow_blue, p, h, w);
    });
}

py::object curve(const py::object& image, const std::vector<std::pair<int, int>>& points,
                 const std::string& channel, const std::string& order, bool inplace) {
    std::vector<_POINT> knots = curve_points(points);
    const Channel slot = curve_channel(channel);
    return change_photo(image, order, inplace, [&](unsigned char* p, int w, int h) {
        SFCurve tone_curve;
        tone_curve.GetCurveByPoints(knots.data(), int(knots.size()), slot);
        tone_curve.ApplyCurve(slot, p, w, h);
    });
}

py::object blend(const std::string& mode, const py::object& image, const py::object& layer,
                 double opacity, const std::string& order, bool inplace) {
    const BlendMode& blend_mode = resolve_blend_mode(mode);
    require(within(opacity, 0, 1), "opacity must lie in 0..1");
    Photo photo(image, parse_order(order), inplace);
    BgraImage top = bgra_of_size(layer, parse_order(order), "layer", photo.width(), photo.height());
    without_gil([&] {
        unsigned char* base = photo.pixels();
        for (std::size_t i = 0; i < top.pixels.size(); i += 4)
            blend_mode.apply(base + i, top.data() + i, opacity);
    });
    return photo.result();
}

py::list blend_mode_list() {
    py::list modes;
    for (const BlendMode* mode : qtzq_app::all_blend_modes())
        modes.append(py::cast(mode, py::return_value_policy::reference));
    return modes;
}

}  // namespace

void bind_primitives(py::module_& module) {
    py::class_<BlendMode>(module, "BlendMode", "A blend mode blend() takes (see blend_modes()).")
        .def_property_readonly(
            "name", [](const BlendMode& m) { return m.name; }, "The short name, e.g. 'screen'.")
        .def_property_readonly(
            "function", [](const BlendMode& m) { return m.function; },
            "The library's single-pixel function, e.g. 'ScreenEx'.")
        .def_property_readonly(
            "description", [](const BlendMode& m) { return m.description; }, "What it does.")
        .def_readonly("uses_opacity", &BlendMode::uses_opacity,
                      "False when the mode ignores the opacity.")
        .def("__repr__",
             [](const BlendMode& m) { return std::string("<BlendMode ") + m.name + ">"; });

    module.def("brightness_contrast", &brightness_contrast,
               "Brightness and contrast through one tone table (the library's Light):\n"
               "level i becomes brightness + 128 + (i - 128) * (contrast + 100) / 100,\n"
               "rounded and clamped; both in -255..255. 0, 0 changes nothing; contrast -100\n"
               "flattens the image.",
               py::arg("image"), py::arg("brightness") = 0, py::arg("contrast") = 0, py::kw_only(),
               py::arg("order") = "bgra", py::arg("inplace") = false);
    module.def("saturate", &saturate,
               "Changes the saturation by amount (-255..255). mode 'hsl' adds amount to the\n"
               "byte HSL saturation; 'yuv' scales the chroma by (amount + 100) / 100 (-100\n"
               "leaves grey); 'matrix' mixes with the luma (-100 gives grey, positive\n"
               "amounts act three times as strongly).",
               py::arg("image"), py::arg("amount"), py::arg("mode") = "hsl", py::kw_only(),
               py::arg("order") = "bgra", py::arg("inplace") = false);
    module.def("gamma", &gamma,
               "Per-channel gamma, about 255 * (v / 255) ** (1 / gamma), truncated. One value\n"
               "for all three channels, or red, green and blue. 1 changes (almost) nothing;\n"
               "every gamma must be above 0.",
               py::arg("image"), py::arg("red"), py::arg("green") = py::none(),
               py::arg("blue") = py::none(), py::kw_only(), py::arg("order") = "bgra",
               py::arg("inplace") = false);
    module.def("gaussian_blur", &gaussian_blur,
               "Recursive Gaussian blur with a pixel radius (sigma = (radius + 1.3) / 3.329),\n"
               "rows then columns; radius_y defaults to radius, 0 leaves that direction\n"
               "alone. Uses the library's process-wide blur instance, which is safe to call\n"
               "from several threads at once.",
               py::arg("image"), py::arg("radius"), py::arg("radius_y") = py::none(), py::kw_only(),
               py::arg("order") = "bgra", py::arg("inplace") = false);
    module.def("unsharp", &unsharp,
               "Unsharp masking: v + amount * (v - blurred v), clamped, with the library's\n"
               "quantised blur kernel of radius 1..50. Sets every alpha to 255, as the\n"
               "library's sharpening does.",
               py::arg("image"), py::arg("radius") = 3, py::arg("amount") = 0.5f, py::kw_only(),
               py::arg("order") = "bgra", py::arg("inplace") = false);
    module.def("auto_levels", &auto_levels,
               "Automatic levels: stretches each colour channel so that its darkest and\n"
               "brightest 0.6 % land on 0 and 255. Alpha is kept.",
               py::arg("image"), py::kw_only(), py::arg("order") = "bgra",
               py::arg("inplace") = false);
    module.def("color_balance", &color_balance,
               "Shifts the colours of one tonal region ('shadows', 'midtones',\n"
               "'highlights') along cyan-red, magenta-green and yellow-blue (-100..100,\n"
               "positive towards red, green, blue); with preserve_luminosity each pixel keeps\n"
               "its lightness.",
               py::arg("image"), py::arg("cyan_red") = 0, py::arg("magenta_green") = 0,
               py::arg("yellow_blue") = 0, py::arg("region") = "midtones",
               py::arg("preserve_luminosity") = true, py::kw_only(), py::arg("order") = "bgra",
               py::arg("inplace") = false);
    module.def("curve", &curve,
               "Maps the image through the Bezier tone curve that passes through points,\n"
               "(input, output) pairs in 0..255 with increasing input. channel is 'rgb' (all\n"
               "three alike), 'red', 'green' or 'blue'. Two points give a straight line.",
               py::arg("image"), py::arg("points"), py::arg("channel") = "rgb", py::kw_only(),
               py::arg("order") = "bgra", py::arg("inplace") = false);
    module.def("blend", &blend,
               "Blends layer (same size and order as image) into image, pixel by pixel, with\n"
               "a blend mode of blend_modes() at opacity 0..1. Alpha of the image is kept.",
               py::arg("mode"), py::arg("image"), py::arg("layer"), py::arg("opacity") = 1.0,
               py::kw_only(), py::arg("order") = "bgra", py::arg("inplace") = false);
    module.def("blend_modes", &blend_mode_list, "Every blend mode blend() takes.");
}

}  // namespace qtzq_py
