#pragma once
// Collecting the problems of one read.
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "OC/xml/XML.h"

namespace oc::xml::impl {

class XMLError {
 public:
  // At most this many messages are kept; later ones are counted only.
  static constexpr std::size_t kMaxMessages = 200;

  XMLError(ReadReport& report, std::string_view source) : report_(report), source_(source) {}

  // Records a problem. Errors make the read fail.
  void ReportError(const gtl::status& s);
  // The one-based line of byte `offset` of the source; 0 when unknown.
  std::size_t Line(std::ptrdiff_t offset);
  std::size_t Errors() const { return report_.errors; }

 private:
  ReadReport& report_;
  std::string_view source_;
  std::vector<std::size_t> line_starts_;  // built on the first question
};

}  // namespace oc::xml::impl
