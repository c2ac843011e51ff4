#include "qtzq_app/effect_inputs.h"

#include "qtzq_app/blend_tables.h"
#include "qtzq_app/errors.h"
#include "qtzq_app/file_bytes.h"
#include "qtzq_app/image_file.h"
#include "qtzq_app/image_limits.h"
#include "qtzq_app/resample.h"

namespace qtzq_app {
namespace {

std::string size_of(const BgraImage& image) {
    return size_text(std::uint64_t(image.width), std::uint64_t(image.height));
}

std::vector<unsigned char> load_tables(const std::string& path) {
    std::vector<unsigned char> bytes;
    std::string error;
    if (!read_file_bytes(path, bytes, error)) throw InputError(error);
    if (bytes.size() < kTableSetSize)
        throw InputError(path + ": " + std::to_string(bytes.size()) +
                         " bytes; a blend table set has " + std::to_string(kTableSetSize));
    return bytes;
}

}  // namespace

EffectInputs::EffectInputs(const EffectInfo& info, const std::vector<std::string>& material_paths,
                           const std::string& tables_path, bool exact_size)
    : info_(info), exact_size_(exact_size) {
    const int slots = material_count(info.overload);
    if (int(material_paths.size()) > slots)
        throw RequestError(std::to_string(info.id) + " " + info.preset + " takes " +
                           (slots == 0 ? "no materials"
                                     : "at most " + std::to_string(slots) + " material(s)") +
                           ", " + std::to_string(material_paths.size()) + " given");
    if (!tables_path.empty() && !needs_tables(info.overload))
        throw RequestError(std::to_string(info.id) + " " + info.preset +
                           " takes no blend table set");
    for (const auto& path : material_paths) {
        GivenMaterial material{path, {}};
        std::string error;
        if (!read_image(path, material.image, error)) throw InputError(error);
        given_.push_back(std::move(material));
    }
    if (needs_tables(info.overload)) {
        default_tables_ = tables_path.empty();
        tables_ = default_tables_ ? default_table_set(info) : load_tables(tables_path);
    }
}

std::vector<BgraImage> EffectInputs::materials_for(int width, int height,
                                                   const std::string& photo_name,
                                                   std::vector<std::string>& notes) const {
    std::vector<BgraImage> materials;
    const int slots = material_count(info_.overload);
    for (int slot = 0; slot < slots; ++slot) {
        if (std::size_t(slot) >= given_.size()) {
            materials.push_back(default_material(info_, slot, width, height));
            continue;
        }
        const GivenMaterial& material = given_[std::size_t(slot)];
        if (material.image.width == width && material.image.height == height) {
            materials.push_back(material.image);  // a copy: presets get their own buffer
            continue;
        }
        const std::string photo_size =
            size_text(std::uint64_t(width), std::uint64_t(height));
        if (exact_size_)
            throw InputError(material.path + ": material is " + size_of(material.image) +
                             " but " + photo_name + " is " + photo_size +
                             " (leave out --exact-size to scale it)");
        notes.push_back("scaled material " + material.path + " from " + size_of(material.image) +
                        " to " + photo_size + " for " + photo_name);
        materials.push_back(scale_bilinear(material.image, width, height));
    }
    return materials;
}

std::vector<std::string> EffectInputs::default_descriptions() const {
    std::vector<std::string> lines;
    const int slots = material_count(info_.overload);
    for (int slot = int(given_.size()); slot < slots; ++slot) {
        const MaterialNeed& need = info_.materials[std::size_t(slot)];
        lines.push_back("material " + std::to_string(slot + 1) + ": generated " +
                        need.fallback.kind + " on " + base_name(need.fallback.base) + " (" +
                        need.use + ")");
    }
    if (default_tables_)
        lines.push_back("blend tables: generated from " + table_modes_text(info_, ", "));
    return lines;
}

}  // namespace qtzq_app
