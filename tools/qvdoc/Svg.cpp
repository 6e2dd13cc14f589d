#include "tools/qvdoc/Svg.h"

namespace qvdoc {

std::string SvgEscape(const std::string& text) {
  std::string out;
  for (char c : text) {
    if (c == '<') out += "&lt;";
    else if (c == '>') out += "&gt;";
    else if (c == '&') out += "&amp;";
    else if (c == '"') out += "&quot;";
    else out += c;
  }
  return out;
}

}  // namespace qvdoc
