// The JSON library, with members in the order in which they are written.
#pragma once

#include <nlohmann/json.hpp>

namespace vx::cli {

using Json = nlohmann::ordered_json;

}  // namespace vx::cli
