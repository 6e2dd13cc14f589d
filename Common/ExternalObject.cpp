#include "Common/ExternalObject.h"

#include <array>
#include <cstring>
#include <optional>
#include <string_view>

#include "QVI/qvi/App.h"
#include "QVI/str/Convert.h"
#include "QVI/sys/DynamicLibrary.h"

namespace v7 {
namespace {

constexpr unsigned kMsgMissingEntry = 38002;

std::optional<ExternalObject>& Current() {
  static std::optional<ExternalObject> table;
  return table;
}

// The storage of the twelve entries in table order. An entry is filled by
// copying the address that the loader gives, as dlsym and GetProcAddress
// themselves assume that code and data addresses share one representation.
template <class Table>
std::array<const void*, 12> Slots(Table& t) {
#define V7_BRIDGE_SLOT(name) &t.name,
  return {V7_BRIDGE_ENTRIES(V7_BRIDGE_SLOT)};
#undef V7_BRIDGE_SLOT
}
static_assert(sizeof(void*) == sizeof(CreateAssembly_Fn) && sizeof(void*) == sizeof(PerformBlockingGC_Fn));

}  // namespace

#define V7_BRIDGE_NAME(name) #name,
const char* const ExternalObject::kEntryNames[12] = {V7_BRIDGE_ENTRIES(V7_BRIDGE_NAME)};
#undef V7_BRIDGE_NAME

ExternalObject ExternalObject::Resolve(void* library) {
  ExternalObject t;
  if (!library) return t;
  const auto slots = Slots(t);
  for (std::size_t i = 0; i < slots.size(); ++i) {
    void* address = sys::dl::Symbol(library, kEntryNames[i]);
    std::memcpy(const_cast<void*>(slots[i]), &address, sizeof address);
  }
  return t;
}

ExternalObject ExternalObject::Load(const std::wstring& fileName) {
  gtl::status s;
  void* library = qvi::app::App::Instance().LoadSuiteLibrary(fileName, s);
  ExternalObject t = Resolve(library);
  t.loadStatus = s;
  return t;
}

const ExternalObject& ExternalObject::Instance() {
  auto& t = Current();
  if (!t) t = Load(qvi::app::LibraryName(kBridgeBaseName));
  return *t;
}

ExternalObject ExternalObject::Install(const ExternalObject& table) {
  auto& t = Current();
  ExternalObject old = t ? *t : Load(qvi::app::LibraryName(kBridgeBaseName));
  t = table;
  return old;
}

const void* ExternalObject::Entry(int index) const {
  if (index < 0 || index >= 12) return nullptr;
  const void* address = nullptr;
  std::memcpy(&address, Slots(*this)[static_cast<std::size_t>(index)], sizeof address);
  return address;
}

int ExternalObject::NumResolved() const {
  int n = 0;
  for (int i = 0; i < 12; ++i) n += Entry(i) != nullptr;
  return n;
}

gtl::status ExternalObject::Missing(const char* name) const {
  for (int i = 0; i < 12; ++i)
    if (std::string_view(kEntryNames[i]) == name) {
      if (Entry(i)) return {};
      if (!loadStatus.succeeded()) return loadStatus;
      return gtl::status::error(kMsgMissingEntry, str::to_wstring(name));
    }
  return gtl::status::error(kMsgMissingEntry, str::to_wstring(name));
}

}  // namespace v7
