// The effect catalogue as JSON text for the JavaScript side: one object per
// effect, {"id", "preset", "look", "overload", "materials": [{"use", "kind",
// "base"}], "tables": [blend modes], "serialised"}.
#ifndef QTZQ_WASM_CATALOGUE_JSON_H
#define QTZQ_WASM_CATALOGUE_JSON_H

#include <string>
#include <vector>

#include "qtzq_app/catalogue.h"

std::string catalogue_json(const std::vector<qtzq_app::EffectInfo>& effects);

#endif  // QTZQ_WASM_CATALOGUE_JSON_H
