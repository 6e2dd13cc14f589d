#pragma once
// The document library's side of the add-in bridge: opening an add-in by
// its stored name, scanning it, and one loaded instance of one of its types
// with methods bound by name. Used by the external function kind and by
// external material models.
//
// Every step tests the bridge entry it needs first, so a missing bridge, or a
// bridge without that entry, gives a status and never a call through null.
#include <initializer_list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "Common/ExternalObject.h"
#include "QVI/gtl/status.h"

namespace v7::external {

// A setting of an add-in type.
struct AddInField {
  std::wstring name;
  std::wstring defaultValue;
  std::wstring description;
};

// One type that an add-in offers.
struct AddInType {
  std::wstring name;
  std::wstring description;
  std::vector<std::wstring> methods;
  std::vector<AddInField> fields;

  bool Offers(const std::wstring& method) const;
};

// Field settings as (name, value) pairs, in order.
using FieldValues = std::vector<std::pair<std::wstring, std::wstring>>;

// Opens the add-in stored as `name` (found through the add-in manager) and
// tests that it is an add-in this program can use.
gtl::status OpenAssembly(const ExternalObject& bridge, const std::wstring& name, QviAssembly*& out);

// Every type of the add-in `name`.
gtl::status ScanAssembly(const std::wstring& name, std::vector<AddInType>& types);

// One instance of an add-in type; released (its "Dispose") on destruction.
class AddInInstance {
 public:
  AddInInstance() = default;
  AddInInstance(const AddInInstance&) = delete;
  AddInInstance& operator=(const AddInInstance&) = delete;
  ~AddInInstance();

  // Opens `assembly`, makes an instance of `type` and binds its disposal.
  gtl::status Load(const std::wstring& assembly, const std::wstring& type);
  // Hands the fields to the instance and runs its initialisation call.
  gtl::status Initialize(const FieldValues& fields);
  // Binds `method` with `signature`. A method the type lacks gives an error
  // status and leaves `out` empty.
  gtl::status Bind(const char* method, int signature, QviDelegate& out) const;
  // One method to bind when the type offers it.
  struct OptionalMethod {
    const char* name;
    int signature;
    QviDelegate* out;
  };
  // Binds each method of `methods` that the type offers; the first failure
  // (a method offered with another signature) is returned.
  gtl::status BindOffered(std::initializer_list<OptionalMethod> methods) const;
  // The type as scanned.
  const AddInType& Type() const { return type_; }
  bool IsLoaded() const { return object_ != nullptr; }
  // The bridge the instance was made by.
  const ExternalObject& Bridge() const { return bridge_; }

 private:
  gtl::status BridgeError(int code, const char* err) const;

  ExternalObject bridge_;
  std::wstring assembly_;
  AddInType type_;
  QviObject* object_ = nullptr;
  QviDelegate dispose_{};
};

// The status for a failing bridge call: names the add-in and the reason.
gtl::status AddInError(const std::wstring& assembly, const char* reason);

}  // namespace v7::external
