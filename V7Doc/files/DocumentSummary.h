#pragma once
// A look at a document through its declarations: the collections it holds,
// how many records each has, and which of them differ from another
// document's.
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace oc {
class IOC;
}

namespace v7 {
class QVDocument;

namespace files {

struct CollectionSummary {
  std::wstring member;  // the root member ("analyses")
  std::wstring tag;     // its collection path ("Analyses")
  std::size_t count = 0;  // live records
  bool same = true;       // equal to the other document's (Compare only)
};

// Every collection of the document, in declaration order.
std::vector<CollectionSummary> SummarizeCollections(const QVDocument& doc);
// The same, each marked whether it equals the collection of `other`.
std::vector<CollectionSummary> CompareCollections(const QVDocument& doc, const QVDocument& other);

// The ID (table) or index (array) an element of a collection was reached
// by, as iterating the collection gives it.
std::uint64_t ElementIndex(const oc::IOC& element);
// The name a record is shown by: its first text member persisted as or
// named "Name", "Title" or "Description" (any case); empty when it has none.
std::wstring RecordLabel(const oc::IOC& record);

}  // namespace files
}  // namespace v7
