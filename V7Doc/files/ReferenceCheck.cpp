#include "V7Doc/files/ReferenceCheck.h"

#include "OC/References.h"
#include "OC/Schema.h"
#include "QVI/str/Convert.h"
#include "V7Doc/document/QVDocument.h"

namespace v7::files {
namespace {
constexpr unsigned kMsgDanglingReference = 31090;

class DanglingFinder final : public oc::RefVisitor {
 public:
  DanglingFinder(const QVContainerManager& m, std::vector<gtl::status>& out) : m_(m), out_(out) {
    TrackPath(true);
  }
  std::uint32_t Visit(const oc::RefSite& site, std::uint32_t value) override {
    const IQVContainer* c = m_.GetContainer(site.collection);
    if (!c || !c->HoldsRecord(value))
      out_.push_back(gtl::status::warning(
          kMsgDanglingReference, Path(), static_cast<unsigned long long>(value),
          c ? c->Name() : std::wstring(), static_cast<unsigned long long>(site.collection)));
    return value;
  }

 private:
  const QVContainerManager& m_;
  std::vector<gtl::status>& out_;
};

}  // namespace

std::vector<gtl::status> CheckReferences(QVDocument& doc) {
  std::vector<gtl::status> out;
  DanglingFinder find(doc.ContainerManager(), out);
  oc::ForEachRef(oc::RefPlanOf(oc::TypeOf<QVDocument>()), &doc, find);
  return out;
}

}  // namespace v7::files
