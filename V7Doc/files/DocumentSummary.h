#pragma once
// A look at a document through its declarations: the collections it holds,
// how many records each has, and which of them differ from another
// document's.
#include <cstddef>
#include <string>
#include <vector>

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

}  // namespace files
}  // namespace v7
