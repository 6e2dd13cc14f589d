#include "V7Doc/functions/FnRegistry.h"

#include <map>

namespace v7 {
namespace {

struct Registry {
  std::map<std::wstring, FnCreator> kinds;
  std::vector<FnTextCreator> textCreators;
};

// Made on first use (the first registrar or the first lookup), destroyed when
// the library unloads.
Registry& TheRegistry() {
  static Registry r;
  return r;
}

}  // namespace

bool RegisterFnKind(const std::wstring& name, FnCreator creator) {
  auto [it, added] = TheRegistry().kinds.insert_or_assign(name, creator);
  (void)it;
  return added;
}

void RegisterFnTextCreator(FnTextCreator creator) {
  TheRegistry().textCreators.push_back(creator);
}

FnCreator FindFnKind(const std::wstring& name) {
  const auto& k = TheRegistry().kinds;
  auto it = k.find(name);
  return it == k.end() ? nullptr : it->second;
}

std::vector<std::wstring> RegisteredFnKinds() {
  std::vector<std::wstring> names;
  for (const auto& [name, creator] : TheRegistry().kinds) names.push_back(name);
  return names;
}

const std::vector<FnTextCreator>& RegisteredFnTextCreators() { return TheRegistry().textCreators; }

}  // namespace v7
