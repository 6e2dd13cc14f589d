#include "V7Doc/document/KeptTexts.h"

#include <algorithm>

namespace v7 {

void KeptTexts::OnIDUpdate(GID container, const std::vector<GID>& renumber) {
  for (KeptText& k : entries_)
    if (k.container == container && k.container != 0)
      k.record = k.record < renumber.size() ? renumber[k.record] : 0;
  std::erase_if(entries_, [&](const KeptText& k) { return k.container == container && k.record == 0; });
}

void KeptTexts::OnDelete(GID container, const std::vector<GID>& ids) {
  std::erase_if(entries_, [&](const KeptText& k) {
    return k.container == container && k.container != 0 && std::binary_search(ids.begin(), ids.end(), k.record);
  });
}

}  // namespace v7
