#pragma once
// The entry table of the add-in bridge library: twelve calls, resolved by
// their exact export names from the library whose file name
// qvi::app::LibraryName gives for "Qvi.MngSrv.Interop", loaded through the
// application object (qvi::app::App).
//
// A missing library leaves every entry null, a library without some export
// leaves that entry null; every caller tests its entry first (Missing gives
// the status to report). The call conventions are those of addins/QviBridge.h.
#include <string>

#include "QVI/gtl/status.h"
#include "addins/QviBridge.h"

// The twelve calls in table order: X(name) for each export name. The members
// below, their export names and their slots are all made from this one list.
#define V7_BRIDGE_ENTRIES(X)        \
  X(TestAddInCompatibilityImpl_)    \
  X(ScanTypeImpl_)                  \
  X(LoadTypeImpl_)                  \
  X(CreateMethodArgumentsImpl_)     \
  X(CreateCalculateMatrixImpl_)     \
  X(CreateUpdateStressesImpl_)      \
  X(CreateDelegateFunctorImpl_)     \
  X(CreateCalculateForceImpl_)      \
  X(CreateCalculateShearForceImpl_) \
  X(CreateInitializeImpl_)          \
  X(PerformBlockingGC_)             \
  X(CreateAssembly_)

namespace v7 {

struct ExternalObject {
  // The base name of the bridge library.
  static constexpr const wchar_t* kBridgeBaseName = L"Qvi.MngSrv.Interop";

  // One member a call, named as its export, of the type <name>Fn of
  // addins/QviBridge.h (TestAddInCompatibilityImpl_ is a
  // TestAddInCompatibilityImpl_Fn), in the order of the table.
#define V7_BRIDGE_MEMBER(name) name##Fn name = nullptr;
  V7_BRIDGE_ENTRIES(V7_BRIDGE_MEMBER)
#undef V7_BRIDGE_MEMBER

  // Why the library is absent (success when it was loaded).
  gtl::status loadStatus;

  // The twelve export names, in table order.
  static const char* const kEntryNames[12];

  // The process-wide table: on first use, loads the bridge through the
  // application object and resolves the twelve entries; kept for the life of
  // the process (or until Install replaces it).
  static const ExternalObject& Instance();
  // Resolves the twelve entries from an opened library (null: none).
  static ExternalObject Resolve(void* library);
  // Loads the library `fileName` through the application object and resolves
  // it; a library that cannot be loaded gives a table of nulls whose
  // loadStatus says why.
  static ExternalObject Load(const std::wstring& fileName);
  // Replaces the process-wide table and returns the one it had (for hosts
  // that ship their bridge elsewhere, and for tests of missing entries).
  // Objects bound earlier keep the calls they were bound with.
  static ExternalObject Install(const ExternalObject& table);

  // The entry at `index` in table order, as an untyped pointer.
  const void* Entry(int index) const;
  // Number of entries present (0 to 12).
  int NumResolved() const;
  // Success when the entry `name` is present; otherwise the error to report
  // (the library's load failure when it is missing altogether).
  gtl::status Missing(const char* name) const;
};

}  // namespace v7
