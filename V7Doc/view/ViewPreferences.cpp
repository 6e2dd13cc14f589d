#include "V7Doc/view/ViewPreferences.h"

namespace v7::v7qvi {

ViewPreferences& DefaultResultViewPreferences() {
  static ViewPreferences defaults;
  return defaults;
}

}  // namespace v7::v7qvi
