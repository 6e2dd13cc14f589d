#pragma once
// The check a loaded document gets: every declared reference must name a
// live record of its collection.
#include <vector>

#include "QVI/gtl/status.h"

namespace v7 {
class QVDocument;

namespace files {

// One warning per reference that names no record, giving its path, the
// number and the collection; the references are left as they are, so that
// saving writes them back as read.
std::vector<gtl::status> CheckReferences(QVDocument& doc);

}  // namespace files
}  // namespace v7
