#include "Common/ExternalObject.h"

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

template <class F>
void Bind(void* library, const char* name, F& entry) {
  entry = reinterpret_cast<F>(sys::dl::Symbol(library, name));
}

}  // namespace

const char* const ExternalObject::kEntryNames[12] = {
    "TestAddInCompatibilityImpl_", "ScanTypeImpl_",           "LoadTypeImpl_",
    "CreateMethodArgumentsImpl_",  "CreateCalculateMatrixImpl_", "CreateUpdateStressesImpl_",
    "CreateDelegateFunctorImpl_",  "CreateCalculateForceImpl_",  "CreateCalculateShearForceImpl_",
    "CreateInitializeImpl_",       "PerformBlockingGC_",         "CreateAssembly_"};

ExternalObject ExternalObject::Resolve(void* library) {
  ExternalObject t;
  if (!library) return t;
  Bind(library, kEntryNames[0], t.TestAddInCompatibilityImpl_);
  Bind(library, kEntryNames[1], t.ScanTypeImpl_);
  Bind(library, kEntryNames[2], t.LoadTypeImpl_);
  Bind(library, kEntryNames[3], t.CreateMethodArgumentsImpl_);
  Bind(library, kEntryNames[4], t.CreateCalculateMatrixImpl_);
  Bind(library, kEntryNames[5], t.CreateUpdateStressesImpl_);
  Bind(library, kEntryNames[6], t.CreateDelegateFunctorImpl_);
  Bind(library, kEntryNames[7], t.CreateCalculateForceImpl_);
  Bind(library, kEntryNames[8], t.CreateCalculateShearForceImpl_);
  Bind(library, kEntryNames[9], t.CreateInitializeImpl_);
  Bind(library, kEntryNames[10], t.PerformBlockingGC_);
  Bind(library, kEntryNames[11], t.CreateAssembly_);
  return t;
}

ExternalObject ExternalObject::Load(const std::wstring& fileName) {
  gtl::status s;
  void* library = qvi::app::App::Instance().LoadLibrary(fileName, s);
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
  switch (index) {
    case 0: return reinterpret_cast<const void*>(TestAddInCompatibilityImpl_);
    case 1: return reinterpret_cast<const void*>(ScanTypeImpl_);
    case 2: return reinterpret_cast<const void*>(LoadTypeImpl_);
    case 3: return reinterpret_cast<const void*>(CreateMethodArgumentsImpl_);
    case 4: return reinterpret_cast<const void*>(CreateCalculateMatrixImpl_);
    case 5: return reinterpret_cast<const void*>(CreateUpdateStressesImpl_);
    case 6: return reinterpret_cast<const void*>(CreateDelegateFunctorImpl_);
    case 7: return reinterpret_cast<const void*>(CreateCalculateForceImpl_);
    case 8: return reinterpret_cast<const void*>(CreateCalculateShearForceImpl_);
    case 9: return reinterpret_cast<const void*>(CreateInitializeImpl_);
    case 10: return reinterpret_cast<const void*>(PerformBlockingGC_);
    case 11: return reinterpret_cast<const void*>(CreateAssembly_);
    default: return nullptr;
  }
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
