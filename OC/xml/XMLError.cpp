#include "OC/xml/XMLError.h"

#include <algorithm>

namespace oc::xml::impl {

void XMLError::ReportError(const gtl::status& s) {
  if (s.succeeded()) return;
  if (s.failed()) ++report_.errors;
  if (report_.messages.size() < kMaxMessages) report_.messages.push_back(s);
}

std::size_t XMLError::Line(std::ptrdiff_t offset) {
  if (offset < 0 || source_.empty() || static_cast<std::size_t>(offset) > source_.size()) return 0;
  if (line_starts_.empty()) {
    // Built once, so that many errors cost one pass over the text.
    line_starts_.push_back(0);
    for (std::size_t i = 0; i < source_.size(); ++i)
      if (source_[i] == '\n') line_starts_.push_back(i + 1);
  }
  const auto it = std::upper_bound(line_starts_.begin(), line_starts_.end(),
                                   static_cast<std::size_t>(offset));
  return static_cast<std::size_t>(it - line_starts_.begin());
}

}  // namespace oc::xml::impl
