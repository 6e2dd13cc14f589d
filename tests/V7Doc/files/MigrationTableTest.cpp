#include <gtest/gtest.h>

#include <string>

#include "V7Doc/files/Migration.h"
#include "V7Doc/files/MigrationTable.h"

namespace v7::files {
namespace {

// A replacement that lies under a dropped key is never reached (its whole
// subtree is dropped first), so only the others must land in the schema.
bool UnderDroppedKey(const std::wstring& path) {
  for (const auto& e : migration::Entries())
    if (e.Dropped() && (path == e.key || path.starts_with(e.key + L".") || path.starts_with(e.key + L"[")))
      return true;
  return false;
}

TEST(MigrationTable, EveryReplacementLandsInTodaysSchema) {
  std::size_t checked = 0;
  for (const auto& e : migration::Entries()) {
    if (e.Dropped() || UnderDroppedKey(e.replacement)) continue;
    const SchemaResolution r = ResolveInSchema(e.replacement);
    const SchemaResolution expected = e.IsPrefix() ? SchemaResolution::Prefix
                                      : r == SchemaResolution::Enumerator ? SchemaResolution::Enumerator
                                                                          : SchemaResolution::Member;
    EXPECT_EQ(r, expected) << "\"" << std::string(e.key.begin(), e.key.end()) << "\" -> \""
                           << std::string(e.replacement.begin(), e.replacement.end()) << "\"";
    ++checked;
  }
  // Every entry but the dropped ones and the one description under a dropped
  // collection.
  EXPECT_EQ(checked, 181u);
}

}  // namespace
}  // namespace v7::files
