#pragma once
// Helpers shared by the subcommands that draw SVG files.
#include <string>

namespace qvdoc {

// `text` with the characters that XML reserves written as entities, for use
// in element text and attribute values.
std::string SvgEscape(const std::string& text);

}  // namespace qvdoc
