#pragma once
// The one registry of declared record types, top-level objects, aliases and
// persistence orderings. Filled at library load (static initialisation and
// the first use of each TypeOf), closed by InitializationComplete.
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <deque>
#include <vector>

#include "OC/RecordType.h"

namespace oc {

// A registry entry: a declared member, or a record type.
struct Template {
  RegID id = 0;
  const Member* member = nullptr;    // a declared member, or
  const RecordType* type = nullptr;  // a record type
  // The record type below this node (the member's record, or the type).
  const RecordType* Record() const;
};

// A registered top-level object type: its element name and format version.
struct RootInfo {
  const RecordType* type = nullptr;
  RegID id = 0;
  std::wstring tag;      // the XML root element's name
  std::wstring version;  // written as the root's "Version" attribute
  meta::MetaDataTraits traits;
};

// A second, qualified name of a top-level member ("v7::doc::Analyses").
struct OCAlias {
  std::wstring name;      // the alias
  std::wstring redirect;  // the member it reaches ("analyses")
};

class OCRegistry {
 public:
  // The one registry.
  static OCRegistry& Instance();

  // Declares a top-level object type persisted as the root element
  // `persist.tag` with format `version`. Returns its registry id, or 0 (with
  // a declaration problem recorded) when the tag is taken by another type.
  RegID RegisterOC(const RecordType& type, const meta::MetaPersistTraits& persist,
                   const meta::MetaDataTraits& data = {}, std::wstring version = L"1");
  // Runs `hook` once, when registration closes.
  void OnPostRegistration(std::function<void()> hook);
  // Closes registration: runs the post-registration hooks, applies the
  // persistence orderings, and reports the first declaration problem (all of
  // them are in Problems()). May be called again after late declarations.
  gtl::status InitializationComplete();
  bool IsComplete() const { return complete_; }
  // Every declaration problem found so far.
  std::vector<gtl::status> Problems() const;

  // Takes ownership of a finished record type and numbers it and its members.
  const RecordType& Adopt(std::unique_ptr<RecordType> type);
  // Declares an alias of a top-level member of `root`.
  gtl::status RegisterAlias(const RecordType& root, const OCAlias& alias);
  // The member an alias of `root` reaches, or nullptr.
  const Member* ResolveAlias(const RecordType& root, std::wstring_view alias) const;
  // Records that the element at tag path `first` is written and read before
  // the one at `second` (both from a root, e.g. "GeometryItems.Points").
  void RegisterOrdering(std::wstring first, std::wstring second);

  const Template* Get(RegID id) const;
  const Template* Get(std::wstring_view name) const;
  const RootInfo* Root(const RecordType& type) const;
  const RootInfo* Root(std::wstring_view tag) const;

 private:
  OCRegistry() = default;
  gtl::status ApplyOrdering(const std::wstring& first, const std::wstring& second);

  struct Ordering {
    std::wstring first, second;
    bool applied = false;
  };
  std::vector<std::unique_ptr<RecordType>> types_;
  // index = RegID - 1. A deque: GetTemplate hands out pointers that must
  // stay valid while later registrations append.
  std::deque<Template> templates_;
  std::vector<RootInfo> roots_;
  std::map<const RecordType*, std::map<std::wstring, std::wstring, std::less<>>> aliases_;
  std::vector<Ordering> orderings_;
  std::vector<std::function<void()>> hooks_;
  std::vector<gtl::status> problems_;
  bool complete_ = false;
};

// Binds an alias at load: `static const OCAliasRegistrator r(TypeOf<Doc>(), {L"doc::BCs", L"boundaryConditions"});`
class OCAliasRegistrator {
 public:
  OCAliasRegistrator(const RecordType& root, const OCAlias& alias);
  const gtl::status& Status() const { return status_; }

 private:
  gtl::status status_;
};

// The declared node with registry id `id`, or nullptr.
const Template* GetTemplate(RegID id);
// The registered top-level object or record type named `name`, or nullptr.
const Template* GetTemplate(std::wstring_view name);
// The id of member `name` (C++ name, or alias below a top-level object)
// below the node `parent`; 0 when there is none.
RegID SubRegID(RegID parent, std::wstring_view name);
// The id of the member persisted as `tag` below the node `parent`; 0 when none.
RegID SubRegIDByTag(RegID parent, std::wstring_view tag);
// The data traits of the member `id`, or nullptr for a record type.
const meta::MetaDataTraits* DataTraits(RegID id);

}  // namespace oc
