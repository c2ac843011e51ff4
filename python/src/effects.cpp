// The effect catalogue through the library's facade: apply by id or name,
// the catalogue entries, and the generated default materials and tables.

#include "qtzq_app/blend_tables.h"
#include "qtzq_app/catalogue.h"
#include "qtzq_app/colour_lut.h"
#include "qtzq_app/effect_inputs.h"
#include "qtzq_app/effect_runner.h"
#include "qtzq_app/strength.h"

#include "arrays.h"
#include "bindings.h"

namespace qtzq_py {
namespace {

using qtzq_app::EffectInfo;

const char* const kApplyDoc = R"(Applies a catalogue effect to an image and returns the result.

effect is an id (1020) or a name: the preset ("StyleFilm"), the preset
without "Style" ("film") or the look ("old photo"); case, spaces, dashes and
underscores do not matter. materials are the effect's material images, of
the image's size and in the same order; slots not given get the generated
defaults that default_materials() returns. tables is a blend table set
(bytes-like, at least 196618 bytes) for the effects that take one; None
gives the generated default. The image's alpha is kept. strength (0..100)
mixes the original back in: each colour channel becomes
(original * (100 - strength) + result * strength + 50) // 100, alpha is the
result's.

Effects marked serialised in the catalogue (clock-seeded noise, shared blur
state) run one at a time in the process; the clock-seeded ones (1021,
1039) reseed the process-wide rand() from the current second, so their
grain changes from second to second.)";

const EffectInfo& resolve_effect(const py::object& effect) {
    const bool is_id = PyIndex_Check(effect.ptr()) && !py::isinstance<py::bool_>(effect);
    if (!is_id && !py::isinstance<py::str>(effect))
        throw py::type_error("effect must be an id (int) or a name (str), not " +
                             type_name(effect));
    const EffectInfo* found = nullptr;
    if (is_id) {
        const auto id = py::reinterpret_steal<py::int_>(PyNumber_Index(effect.ptr()));
        if (!id) throw py::error_already_set();
        for (const auto& entry : qtzq_app::catalogue())
            if (py::int_(entry.id).equal(id)) found = &entry;
    } else {
        found = qtzq_app::find_effect(effect.cast<std::string>());
    }
    if (!found)
        throw py::value_error("unknown effect " + std::string(py::repr(effect)) +
                              " (qtzqeffect.catalogue() lists them)");
    return *found;
}

std::string effect_title(const EffectInfo& info) {
    return std::to_string(info.id) + " " + info.preset;
}

// The materials the caller gave, checked and converted; the slots after
// them get generated defaults later (see add_default_materials).
std::vector<BgraImage> given_materials(const EffectInfo& info, const py::args& given, Order order,
                                       int width, int height) {
    const int slots = qtzq_app::material_count(info.overload);
    if (int(given.size()) > slots)
        throw py::value_error(
            effect_title(info) + " takes " +
            (slots == 0 ? "no materials" : "at most " + std::to_string(slots) + " material(s)") +
            ", " + std::to_string(given.size()) + " given");
    std::vector<BgraImage> materials;
    for (std::size_t slot = 0; slot < given.size(); ++slot) {
        const std::string what = "material " + std::to_string(slot + 1);
        materials.push_back(bgra_of_size(given[slot], order, what.c_str(), width, height));
    }
    return materials;
}

void add_default_materials(const EffectInfo& info, std::vector<BgraImage>& materials, int width,
                           int height) {
    for (int slot = int(materials.size()); slot < qtzq_app::material_count(info.overload); ++slot)
        materials.push_back(qtzq_app::default_material(info, slot, width, height));
}

std::vector<unsigned char> tables_for(const EffectInfo& info, const py::object& tables) {
    const bool takes_tables = qtzq_app::needs_tables(info.overload);
    if (tables.is_none())
        return takes_tables ? qtzq_app::default_table_set(info) : std::vector<unsigned char>{};
    if (!takes_tables) throw py::value_error(effect_title(info) + " takes no blend table set");
    std::vector<unsigned char> bytes = bytes_of(tables, "tables");
    if (bytes.size() < qtzq_app::kTableSetSize)
        throw py::value_error("tables hold " + std::to_string(bytes.size()) +
                              " bytes; a blend table set has " +
                              std::to_string(qtzq_app::kTableSetSize));
    return bytes;
}

py::object apply(const py::object& effect, const py::object& image, const py::args& materials,
                 const py::object& tables, const std::string& order, bool inplace, int strength) {
    const EffectInfo& info = resolve_effect(effect);
    if (strength < 0 || strength > 100) throw py::value_error("strength must lie in 0..100");
    const Order layout = parse_order(order);
    Photo photo(image, layout, inplace);
    std::vector<BgraImage> inputs =
        given_materials(info, materials, layout, photo.width(), photo.height());
    std::vector<unsigned char> table_set = tables_for(info, tables);
    without_gil([&] {
        add_default_materials(info, inputs, photo.width(), photo.height());
        const std::size_t count = std::size_t(photo.width()) * photo.height();
        const std::vector<unsigned char> original =
            strength < 100 ? std::vector<unsigned char>(photo.pixels(), photo.pixels() + count * 4)
                           : std::vector<unsigned char>();
        qtzq_app::run_effect(info, photo.pixels(), photo.width(), photo.height(), inputs,
                             table_set.empty() ? nullptr : table_set.data());
        if (strength < 100) qtzq_app::mix_strength(original.data(), photo.pixels(), count, strength);
    });
    return photo.result();
}

py::list catalogue_list() {
    py::list entries;
    for (const auto& entry : qtzq_app::catalogue())
        entries.append(py::cast(&entry, py::return_value_policy::reference));
    return entries;
}

py::list default_materials(const py::object& effect, int width, int height,
                           const std::string& order) {
    const EffectInfo& info = resolve_effect(effect);
    const Order layout = parse_order(order);
    check_size(width, height, "the material size");
    std::vector<BgraImage> generated;
    without_gil([&] { add_default_materials(info, generated, width, height); });
    py::list materials;
    for (const BgraImage& material : generated)
        materials.append(array_from_bgra(material.pixels.data(), width, height, layout));
    return materials;
}

py::object default_tables(const py::object& effect) {
    const EffectInfo& info = resolve_effect(effect);
    if (!qtzq_app::needs_tables(info.overload)) return py::none();
    const std::vector<unsigned char> set = qtzq_app::default_table_set(info);
    return py::bytes(reinterpret_cast<const char*>(set.data()), set.size());
}

// The look's table as float32 (size, size, size, 3) indexed [red, green,
// blue], holding red, green and blue in 0..1.
py::array lut(const py::object& effect, int size) {
    const EffectInfo& info = resolve_effect(effect);
    const std::string refusal = qtzq_app::lut_refusal(info);
    if (!refusal.empty()) throw py::value_error("no lookup table: " + refusal);
    if (size < qtzq_app::kCubeSizeMin || size > qtzq_app::kCubeSizeMax)
        throw py::value_error("size must lie in 2..256");
    auto* table = new std::vector<float>(without_gil([&] {
        return qtzq_app::cube_table(qtzq_app::hald_clut(info, qtzq_app::kHaldLevelMax), size);
    }));
    py::capsule owner(table, [](void* p) { delete static_cast<std::vector<float>*>(p); });
    const py::ssize_t s = size, f = sizeof(float);
    return py::array_t<float>({s, s, s, py::ssize_t(3)}, {3 * f, 3 * f * s, 3 * f * s * s, f},
                              table->data(), owner);
}

void bind_effect_class(py::module_& module) {
    py::class_<EffectInfo>(module, "Effect", "One entry of the effect catalogue (see catalogue()).")
        .def_readonly("id", &EffectInfo::id, "The effect id, e.g. 1020.")
        .def_property_readonly(
            "name", [](const EffectInfo& e) { return e.preset; },
            "The library's preset function, e.g. 'StyleFilm'.")
        .def_property_readonly(
            "look", [](const EffectInfo& e) { return e.look; },
            "A short English name, e.g. 'film'.")
        .def_property_readonly(
            "overload", [](const EffectInfo& e) { return qtzq_app::overload_text(e.overload); },
            "What the effect takes: 'image', '1 material', '2 materials', '3 materials' or\n"
            "'2 materials + tables'.")
        .def_property_readonly(
            "signature",
            [](const EffectInfo& e) { return qtzq_app::overload_signature(e.overload); },
            "The C++ Qtzqeffect::effect overload that reaches it.")
        .def_property_readonly(
            "materials",
            [](const EffectInfo& e) {
                py::list needs;
                for (const auto& need : e.materials)
                    needs.append(
                        py::make_tuple(need.use, std::string(need.fallback.kind) + " on " +
                                                     qtzq_app::base_name(need.fallback.base)));
                return needs;
            },
            "One (use, generated default) pair per material slot, e.g.\n"
            "('screened over the photo', 'stars on black').")
        .def_property_readonly(
            "needs_tables", [](const EffectInfo& e) { return qtzq_app::needs_tables(e.overload); },
            "True when the effect takes a blend table set.")
        .def_property_readonly(
            "table_modes",
            [](const EffectInfo& e) {
                return std::vector<std::string>(e.table_modes.begin(), e.table_modes.end());
            },
            "The blend modes of the default table set's three maps ([] for other effects).")
        .def_readonly("serialised", &EffectInfo::serialised,
                      "True when the effect touches process-wide library state (it reseeds\n"
                      "rand() from the clock, or may use the shared blur): such effects run\n"
                      "one at a time.")
        .def_property_readonly(
            "colour_map",
            [](const EffectInfo& e) { return e.mapping == qtzq_app::Mapping::ColourMap; },
            "True when each pixel's result depends on its colour alone, so that lut()\n"
            "holds the whole look.")
        .def("__repr__", [](const EffectInfo& e) {
            return "<Effect " + effect_title(e) + " '" + e.look +
                   "': " + qtzq_app::overload_text(e.overload) + ">";
        });
}

}  // namespace

void bind_effects(py::module_& module) {
    bind_effect_class(module);
    module.def("apply", &apply, kApplyDoc, py::arg("effect"), py::arg("image"),
               py::arg("tables") = py::none(), py::arg("order") = "bgra",
               py::arg("inplace") = false, py::arg("strength") = 100);
    module.def("lut", &lut,
               "The colour lookup table of a look that is a pure colour map (see\n"
               "Effect.colour_map), as qtzq lut writes it to a .cube file: float32 of\n"
               "shape (size, size, size, 3), indexed [red, green, blue] at the inputs\n"
               "i * 255 / (size - 1), holding red, green and blue in 0..1 (interpolated\n"
               "linearly between bytes; exact for size 256). ValueError for other looks.",
               py::arg("effect"), py::arg("size") = 33);
    module.def("catalogue", &catalogue_list, "Every effect of the catalogue, in id order.");
    module.def(
        "effect_info", [](const py::object& effect) { return &resolve_effect(effect); },
        py::return_value_policy::reference,
        "The catalogue entry of an effect id or name; ValueError when unknown.", py::arg("effect"));
    module.def("default_materials", &default_materials,
               "The generated material images apply() uses for an effect's slots, at a size:\n"
               "the same effect and size always give the same images. [] for effects\n"
               "without materials.",
               py::arg("effect"), py::arg("width"), py::arg("height"), py::kw_only(),
               py::arg("order") = "bgra");
    module.def("default_tables", &default_tables,
               "The generated blend table set apply() uses for an effect (196618 bytes),\n"
               "or None for effects without tables.",
               py::arg("effect"));
}

}  // namespace qtzq_py
