#pragma once
// The table of paths that documents of the earlier generation used for
// items that have since moved, been renamed or been given up.
//
// One ordered map from an old path pattern to a replacement, built once at
// library load and never changed. A key is a tag path
// ("Analyses[$1].NumCritialSlipSurfaces", spelt as the old files spell it)
// in which "[$1]" and "[$2]" match any index of that collection (outermost
// first), whose last step may be an enumerator text instead of a member
// ("CurrentAnalysis.PWPInitialOption.Initial PWP from Result": that value of
// that member), or which ends in ".*" (everything below the prefix). A
// replacement is a path pattern (bound indices are put in place of "$1" and
// "$2"; a fixed index such as "UpgradeList[2]" names that one element), a
// prefix ending in a dot for ".*" keys, or kIgnoreData.
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace v7::files::migration {

// The replacement of an entry whose values are read and thrown away.
inline constexpr std::wstring_view kIgnoreData = L"***IGNORE DATA***";

struct Entry {
  std::wstring key;          // old path pattern
  std::wstring replacement;  // new path pattern, prefix, or kIgnoreData
  bool Dropped() const { return replacement == kIgnoreData; }
  bool IsPrefix() const { return key.size() >= 2 && key.ends_with(L".*"); }
};

// The entries in the order they were entered, one per key (a key entered
// twice keeps its first place).
const std::vector<Entry>& Entries();

// The entry for `key` as written in the table (an exact path, a pattern
// with "$1"/"$2", or an enumerator key), or nullptr.
const Entry* Lookup(std::wstring_view key);

// The ".*" entries whose prefix (the key without its "*") begins `pattern`,
// longest prefix first; nullptr when none does.
const Entry* LookupPrefix(std::wstring_view pattern);

// True when some key begins with `pattern` followed by "." or "[" (so that
// an element at `pattern` may hold items with entries of their own). Lets a
// migration move whole subtrees in one step.
bool MayMatchBelow(std::wstring_view pattern);

// True when the table names `pattern` as a collection: some key has an
// index right after it ("GeometryItems.Edges" in "GeometryItems.Edges[$1]").
bool IsCollection(std::wstring_view pattern);

// What the table knows of one path pattern, found with one look-up.
struct PatternInfo {
  const Entry* entry = nullptr;  // the entry keyed by the pattern itself
  bool inner = false;            // MayMatchBelow
  bool collection = false;       // IsCollection
  const Entry* stem = nullptr;   // the ".*" entry whose key is the pattern followed by ".*"
};
// The information on `pattern`, or nullptr when the table knows nothing of it.
const PatternInfo* Info(std::wstring_view pattern);

// The same, found one step at a time while a document is walked, so that no
// path text is built: the information on the empty pattern (the document
// root, known to no key), then on `from`'s pattern followed by member `name`
// (UTF-8, without "." or "["; no dot before the first member), or by the
// index "[$k]". nullptr when the table knows nothing of the longer pattern;
// `from` may be nullptr (nothing is known below an unknown pattern).
const PatternInfo* RootInfo();
const PatternInfo* InfoBelow(const PatternInfo* from, std::string_view name);
const PatternInfo* InfoAtIndex(const PatternInfo* from, std::size_t k);

// The number of the entry (its position in Entries()), for reports.
std::size_t IndexOf(const Entry& e);

}  // namespace v7::files::migration
