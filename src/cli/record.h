// Results as named values, and the two forms in which they are printed. Both are the same in every locale.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>

namespace halden {

enum class Format { text, json };

// An object whose members are texts and numbers, in the order in which they are printed.
using Record = nlohmann::ordered_json;

// Text: one "name=value" a line. JSON: one object on one line. Both end with a line end. What is not UTF-8
// in a text is replaced.
std::string formatted(const Record& record, Format format);

}  // namespace halden
