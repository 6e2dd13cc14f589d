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

// The walk finds what the table knows of a pattern one step at a time; it
// must agree with the look-up of the whole text at every step of every key.
TEST(MigrationTable, PatternsFoundStepByStepAgreeWithTheirText) {
  using namespace migration;
  for (const auto& e : Entries()) {
    const std::wstring& k = e.key;
    const PatternInfo* at = RootInfo();
    std::size_t from = 0;
    while (from < k.size()) {
      std::size_t end = k.find_first_of(L".[", from + 1);
      if (end == std::wstring::npos) end = k.size();
      if (k[from] == L'[') {
        at = InfoAtIndex(at, static_cast<std::size_t>(k[from + 2] - L'0'));
      } else {
        const std::size_t name = k[from] == L'.' ? from + 1 : from;
        at = InfoBelow(at, std::string(k.begin() + name, k.begin() + end));
      }
      const std::wstring text = k.substr(0, end);
      ASSERT_EQ(at, Info(text)) << std::string(text.begin(), text.end());
      from = end;
    }
    EXPECT_EQ(at->entry, &e);
    if (e.IsPrefix()) {
      const std::wstring stem = k.substr(0, k.size() - 1);
      EXPECT_EQ(Info(stem.substr(0, stem.size() - 1))->stem, &e);
      EXPECT_EQ(LookupPrefix(stem + L"Anything"), &e);
    }
  }
  EXPECT_EQ(InfoBelow(RootInfo(), "NoSuchMember"), nullptr);
  EXPECT_EQ(InfoBelow(nullptr, "Analyses"), nullptr);
  EXPECT_EQ(InfoAtIndex(InfoBelow(RootInfo(), "Analyses"), 10), nullptr);
}

}  // namespace
}  // namespace v7::files
