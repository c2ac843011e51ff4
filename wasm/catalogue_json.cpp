#include "catalogue_json.h"

using namespace qtzq_app;

namespace {

std::string quoted(const std::string& text) {
    std::string out = "\"";
    for (char c : text) {
        if (c == '"' || c == '\\') out += '\\';
        out += c;
    }
    return out + '"';
}

std::string material_json(const MaterialNeed& need) {
    return "{\"use\":" + quoted(need.use) + ",\"kind\":" + quoted(need.fallback.kind) +
           ",\"base\":" + quoted(base_name(need.fallback.base)) + "}";
}

std::string effect_json(const EffectInfo& info) {
    std::string materials, tables;
    for (const auto& need : info.materials)
        materials += (materials.empty() ? "" : ",") + material_json(need);
    for (const char* mode : info.table_modes) tables += (tables.empty() ? "" : ",") + quoted(mode);
    return "{\"id\":" + std::to_string(info.id) + ",\"preset\":" + quoted(info.preset) +
           ",\"look\":" + quoted(info.look) + ",\"overload\":" +
           quoted(overload_text(info.overload)) + ",\"materials\":[" + materials +
           "],\"tables\":[" + tables + "],\"serialised\":" + (info.serialised ? "true" : "false") +
           "}";
}

}  // namespace

std::string catalogue_json(const std::vector<EffectInfo>& effects) {
    std::string json;
    for (const auto& info : effects) json += (json.empty() ? "" : ",") + effect_json(info);
    return "[" + json + "]";
}
