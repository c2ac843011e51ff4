#include "commands.h"

namespace qtzq_cli {

const std::vector<Command>& commands() {
    static const std::vector<Command> list = {
        {"list", "list [--tsv]", "the effect catalogue: ids, presets, overloads, needed inputs",
         run_list},
        {"apply", "apply EFFECT INPUT... (-o OUTPUT | --out-dir DIR) [options]",
         "applies one effect to photos", run_apply},
        {"gallery", "gallery [PHOTO] -o DIR",
         "every effect on one photo (or a built-in scene): images, contact sheet, index.html",
         run_gallery},
        {"material", "material KIND WIDTH HEIGHT -o FILE [--seed N] [--base B]",
         "draws a procedural material (vignette, light leak, grain, paper, stars, snow)",
         run_material},
        {"tables", "tables MODE0 MODE1 MODE2 -o FILE",
         "builds a blend table set from the library's blend modes", run_tables},
        {"frame", "frame FRAMEFILE PHOTO -o OUTPUT [--scale S]",
         "draws a frame file's pieces around a photo", run_frame},
        {"lut", "lut EFFECT -o FILE.cube|FILE.png [--size N | --level L]",
         "a colour look as a .cube 3D table or a Hald CLUT image, for other tools", run_lut},
        {"make-frame", "make-frame PIECE... --insets LIST -o FRAMEFILE",
         "packs eight PNG pieces and corner insets into a frame file", run_make_frame},
    };
    return list;
}

}  // namespace qtzq_cli
