// Compiled pieces of the collection adapters declared in Schema.h.
#include "OC/Schema.h"

namespace oc::detail {
namespace {
constexpr unsigned kMsgDroppedKeys = 31041;
}  // namespace

gtl::status DroppedKeysWarning(std::size_t dropped) {
  if (dropped == 0) return {};
  return gtl::status::warning(kMsgDroppedKeys, static_cast<unsigned long long>(dropped));
}

}  // namespace oc::detail
