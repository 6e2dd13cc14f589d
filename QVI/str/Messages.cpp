#include "QVI/str/Messages.h"

#include <algorithm>
#include <utility>

namespace str {
namespace {

struct Message {
  unsigned id;
  const wchar_t* text;
};

constexpr Message kMessages[] = {
#define QVI_MESSAGE(id, text) {id, text},
#include "QVI/str/messages/core.def"
#include "QVI/str/messages/analysis.def"
#include "QVI/str/messages/functions.def"
#include "QVI/str/messages/surfaces.def"
#include "QVI/str/messages/materials.def"
#include "QVI/str/messages/geometry.def"
#include "QVI/str/messages/persistence.def"
#include "QVI/str/messages/migration.def"
#include "QVI/str/messages/results.def"
#include "QVI/str/messages/tools.def"
#include "QVI/str/messages/addins.def"
#undef QVI_MESSAGE
    {0, L""},  // keeps the array non-empty whatever the .def files hold
};

const std::vector<Message>& sorted_table() {
  static const std::vector<Message> table = [] {
    std::vector<Message> t(std::begin(kMessages), std::end(kMessages));
    std::stable_sort(t.begin(), t.end(),
                     [](const Message& a, const Message& b) { return a.id < b.id; });
    return t;
  }();
  return table;
}

}  // namespace

std::wstring load_wstring(unsigned id) {
  const auto& t = sorted_table();
  auto it = std::lower_bound(t.begin(), t.end(), id,
                             [](const Message& m, unsigned v) { return m.id < v; });
  if (it == t.end() || it->id != id || id == 0) return {};
  return it->text;
}

std::vector<unsigned> message_ids() {
  std::vector<unsigned> ids;
  for (const auto& m : sorted_table())
    if (m.id != 0) ids.push_back(m.id);
  return ids;
}

}  // namespace str
