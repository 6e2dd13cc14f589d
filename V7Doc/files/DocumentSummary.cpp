#include "V7Doc/files/DocumentSummary.h"

#include "OC/IOC.h"
#include "OC/Schema.h"
#include "V7Doc/document/QVDocument.h"
#include "V7Doc/files/DocumentSchema.h"

namespace v7::files {
namespace {
std::vector<CollectionSummary> Walk(const QVDocument& doc, const QVDocument* other) {
  std::vector<CollectionSummary> out;
  const oc::RecordType& type = oc::TypeOf<QVDocument>();
  const oc::IOC root(DocumentStore(const_cast<QVDocument&>(doc)));
  for (const auto& m : type.Members()) {
    if (m->type != oc::ValueType::Table && m->type != oc::ValueType::Array) continue;
    CollectionSummary s{m->name, m->persist.tag, root.GetSubOC(m->name).Length(), true};
    if (other) {
      void* a = m->access->Field(const_cast<QVDocument*>(&doc));
      void* b = m->access->Field(const_cast<QVDocument*>(other));
      s.same = m->type == oc::ValueType::Table ? m->table->Equal(a, b) : m->seq->Equal(a, b);
    }
    out.push_back(std::move(s));
  }
  return out;
}
}  // namespace

std::vector<CollectionSummary> SummarizeCollections(const QVDocument& doc) { return Walk(doc, nullptr); }

std::vector<CollectionSummary> CompareCollections(const QVDocument& doc, const QVDocument& other) {
  return Walk(doc, &other);
}

}  // namespace v7::files
