#pragma once
// The process-wide registry of function kinds: type name -> creator. Filled
// with this library's kinds before first use; other modules add theirs with
// FnKindRegistrar at load time. Cleared when the library unloads.
#include <functional>
#include <string>
#include <vector>

#include "QVI/gtl/status.h"

namespace v7 {

class FnImpl;
class IFn;

// Makes a new default object of one kind.
using FnCreator = FnImpl* (*)();
// Tries to build a function from a text of its own form before the generic
// Name(...) parser runs (FnCreate step 5, the multi-trial form). Returns
// true when it recognised and built the text.
using FnTextCreator = bool (*)(const std::wstring& text, IFn& fn, gtl::status& s);

// Adds or replaces a kind. Returns true when the name was new.
bool RegisterFnKind(const std::wstring& name, FnCreator creator);
// Adds a text creator, tried in registration order.
void RegisterFnTextCreator(FnTextCreator creator);

// The creator of a kind, null when unknown.
FnCreator FindFnKind(const std::wstring& name);
// Every registered type name, sorted.
std::vector<std::wstring> RegisteredFnKinds();
const std::vector<FnTextCreator>& RegisteredFnTextCreators();

// Registers a kind from a static object of its own source file.
struct FnKindRegistrar {
  FnKindRegistrar(const wchar_t* name, FnCreator creator) { RegisterFnKind(name, creator); }
};
template <class T>
FnImpl* CreateFn() {
  return new T();
}

}  // namespace v7
