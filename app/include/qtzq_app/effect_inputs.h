// Everything an effect needs besides the photo: its material images and
// its blend table set, from the user's files or generated. Materials that
// do not match a photo's size are scaled to it (bilinear), unless the user
// asked for exact sizes.
#ifndef QTZQ_APP_EFFECT_INPUTS_H
#define QTZQ_APP_EFFECT_INPUTS_H

#include <string>
#include <vector>

#include "qtzq_app/catalogue.h"
#include "qtzq_app/effect_defaults.h"
#include "qtzq_app/png_io.h"

namespace qtzq_app {

struct GivenMaterial {
    std::string path;
    BgraImage image;
};

class EffectInputs {
public:
    // Loads the given material files and table set (paths may be empty
    // lists / strings) and builds the default table set when the effect
    // needs one and none is given. Throws RequestError for too many
    // materials or inputs the effect does not take, InputError for files that
    // cannot be read.
    EffectInputs(const EffectInfo& info, const std::vector<std::string>& material_paths,
                 const std::string& tables_path, bool exact_size);

    const EffectInfo& info() const { return info_; }

    // One material per slot for a photo of this size: the given ones (scaled
    // when needed) and generated defaults for the rest. `notes` receives a
    // line for every scaled material. Throws InputError when a material's
    // size differs and exact sizes were asked for.
    std::vector<BgraImage> materials_for(int width, int height, const std::string& photo_name,
                                         std::vector<std::string>& notes) const;

    // The table set, or null when the effect takes none.
    unsigned char* tables() { return tables_.empty() ? nullptr : tables_.data(); }

    // Lines describing the generated defaults in use (for a note on stderr).
    std::vector<std::string> default_descriptions() const;

private:
    const EffectInfo& info_;
    std::vector<GivenMaterial> given_;
    std::vector<unsigned char> tables_;
    bool default_tables_ = false;
    bool exact_size_;
};

}  // namespace qtzq_app

#endif  // QTZQ_APP_EFFECT_INPUTS_H
