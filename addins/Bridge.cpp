// The add-in bridge: the twelve entries of QviBridge.h over native add-ins
// described by QviAddIn.h.
//
// The bridge trusts nothing an add-in library hands it until the library
// has passed the compatibility test: the description's interface version,
// then every pointer and count of it. What it cannot check is the behaviour
// of the add-in's code once called (see the contract in QviAddIn.h).
#include <cstring>
#include <map>
#include <memory>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include "QVI/sys/DynamicLibrary.h"
#include "addins/QviBridge.h"

#if defined(_WIN32)
#define QVI_BRIDGE_EXPORT extern "C" __declspec(dllexport)
#else
#define QVI_BRIDGE_EXPORT extern "C" __attribute__((visibility("default")))
#endif

struct QviAssembly {
  std::string path;
  sys::dl::Handle library = nullptr;
  // Filled by the first compatibility test; null until it passes.
  const QviAddInModule* module = nullptr;
  bool tested = false;
  int testCode = QVI_BRIDGE_OK;
  std::string testReason;
};

struct QviObject {
  const QviAssembly* assembly = nullptr;
  const QviAddInType* type = nullptr;
  void* self = nullptr;
  std::vector<std::pair<std::string, std::string>> arguments;
};

namespace {

// Limits on a description, so that a garbage count cannot make the bridge
// walk far into memory.
constexpr int kMaxTypes = 4096;
constexpr int kMaxMembers = 4096;

int Fail(char* err, std::size_t size, int code, const std::string& reason) {
  if (err && size > 0) {
    const std::size_t n = reason.size() < size - 1 ? reason.size() : size - 1;
    std::memcpy(err, reason.data(), n);
    err[n] = '\0';
  }
  return code;
}

int Ok(char* err, std::size_t size) {
  if (err && size > 0) err[0] = '\0';
  return QVI_BRIDGE_OK;
}

// Assemblies by path, for the life of the process (libraries are never
// closed, see DynamicLibrary.h).
std::map<std::string, std::unique_ptr<QviAssembly>>& Assemblies() {
  static auto* a = new std::map<std::string, std::unique_ptr<QviAssembly>>();
  return *a;
}

std::string TypeNameOf(const QviAddInType& t) { return t.name ? t.name : "(unnamed)"; }

// Checks the description field by field; the reason names the first fault.
bool CheckModule(const QviAddInModule* m, std::string& reason) {
  if (!m) {
    reason = "the add-in gave no description";
    return false;
  }
  if (m->abi_version != QVI_ADDIN_ABI_VERSION) {
    reason = "it was built for add-in interface version " + std::to_string(m->abi_version) +
             ", this program uses version " + std::to_string(QVI_ADDIN_ABI_VERSION);
    return false;
  }
  if (m->type_count < 0 || m->type_count > kMaxTypes || (m->type_count > 0 && !m->types)) {
    reason = "its list of types is malformed";
    return false;
  }
  for (int i = 0; i < m->type_count; ++i) {
    const QviAddInType& t = m->types[i];
    if (!t.name || !*t.name) {
      reason = "type " + std::to_string(i + 1) + " has no name";
      return false;
    }
    if (!t.create) {
      reason = "type \"" + TypeNameOf(t) + "\" has no create function";
      return false;
    }
    if (t.field_count < 0 || t.field_count > kMaxMembers || (t.field_count > 0 && !t.fields) ||
        t.method_count < 0 || t.method_count > kMaxMembers || (t.method_count > 0 && !t.methods)) {
      reason = "type \"" + TypeNameOf(t) + "\" has a malformed list of fields or methods";
      return false;
    }
    for (int f = 0; f < t.field_count; ++f)
      if (!t.fields[f].name || !*t.fields[f].name) {
        reason = "type \"" + TypeNameOf(t) + "\" has a field without a name";
        return false;
      }
    if (t.field_count > 0 && !t.set_field) {
      reason = "type \"" + TypeNameOf(t) + "\" has fields but no set_field function";
      return false;
    }
    for (int k = 0; k < t.method_count; ++k)
      if (!t.methods[k].name || !t.methods[k].fn) {
        reason = "type \"" + TypeNameOf(t) + "\" has a method without a name or code";
        return false;
      }
  }
  return true;
}

int Test(const QviAssembly* a, char* err, std::size_t size) {
  if (!a) return Fail(err, size, QVI_BRIDGE_BAD_ARGUMENT, "no assembly");
  auto* m = const_cast<QviAssembly*>(a);
  if (!m->tested) {
    m->tested = true;
    auto entry = reinterpret_cast<QviAddInModuleFn>(sys::dl::Symbol(m->library, QVI_ADDIN_ENTRY));
    if (!entry) {
      m->testCode = QVI_BRIDGE_NOT_ADDIN;
      m->testReason = "the library is not an add-in (it has no " QVI_ADDIN_ENTRY " export)";
    } else {
      const QviAddInModule* module = entry();
      if (CheckModule(module, m->testReason))
        m->module = module;
      else
        m->testCode = QVI_BRIDGE_INCOMPATIBLE;
    }
  }
  return m->module ? Ok(err, size) : Fail(err, size, m->testCode, m->testReason);
}

[[maybe_unused]] const QviAddInType* FindType(const QviAddInModule& m, const char* name) {
  for (int i = 0; i < m.type_count; ++i)
    if (std::strcmp(m.types[i].name, name) == 0) return &m.types[i];
  return nullptr;
}

const QviAddInMethod* FindMethod(const QviAddInType& t, const char* name) {
  for (int i = 0; i < t.method_count; ++i)
    if (std::strcmp(t.methods[i].name, name) == 0) return &t.methods[i];
  return nullptr;
}

// Releases an instance: the type's "Dispose" when offered, then the
// bridge's wrapper. Bound as the "Dispose" delegate, with the wrapper as self.
void DisposeObject(void* wrapper) {
  auto* o = static_cast<QviObject*>(wrapper);
  if (!o) return;
  if (const QviAddInMethod* d = FindMethod(*o->type, "Dispose"); d && d->signature == QVI_SIG_DISPOSE)
    reinterpret_cast<void (*)(void*)>(d->fn)(o->self);
  delete o;
}

int Bind(QviObject* o, const char* method, int signature, QviDelegate* out, char* err, std::size_t size) {
  if (!o || !method || !out) return Fail(err, size, QVI_BRIDGE_BAD_ARGUMENT, "a null argument");
  *out = QviDelegate{nullptr, nullptr, 0};
  if (std::strcmp(method, "Dispose") == 0) {
    if (signature != QVI_SIG_DISPOSE)
      return Fail(err, size, QVI_BRIDGE_NO_METHOD, "\"Dispose\" is bound with its own signature");
    *out = QviDelegate{o, reinterpret_cast<QviMethodFn>(&DisposeObject), QVI_SIG_DISPOSE};
    return Ok(err, size);
  }
  const QviAddInMethod* m = FindMethod(*o->type, method);
  if (!m)
    return Fail(err, size, QVI_BRIDGE_NO_METHOD,
                "type \"" + TypeNameOf(*o->type) + "\" has no method \"" + method + "\"");
  if (m->signature != signature)
    return Fail(err, size, QVI_BRIDGE_NO_METHOD,
                "method \"" + std::string(method) + "\" of type \"" + TypeNameOf(*o->type) +
                    "\" has signature " + std::to_string(m->signature) + ", expected " +
                    std::to_string(signature));
  *out = QviDelegate{o->self, m->fn, signature};
  return Ok(err, size);
}

}  // namespace

QVI_BRIDGE_EXPORT int TestAddInCompatibilityImpl_(const QviAssembly* assembly, char* err, size_t size) {
  try {
    return Test(assembly, err, size);
  } catch (...) {
    return Fail(err, size, QVI_BRIDGE_INCOMPATIBLE, "the compatibility test failed");
  }
}

QVI_BRIDGE_EXPORT int ScanTypeImpl_(const QviAssembly* assembly, QviScanSink sink, void* context, char* err,
                                    size_t size) {
  try {
    if (!sink) return Fail(err, size, QVI_BRIDGE_BAD_ARGUMENT, "no sink");
    if (int rc = Test(assembly, err, size)) return rc;
    const QviAddInModule& m = *assembly->module;
    for (int i = 0; i < m.type_count; ++i) {
      const QviAddInType& t = m.types[i];
      std::vector<const char*> methods;
      for (int k = 0; k < t.method_count; ++k) methods.push_back(t.methods[k].name);
      sink(context, t.name, t.description ? t.description : "", methods.data(), t.method_count, t.fields,
           t.field_count);
    }
    return Ok(err, size);
  } catch (...) {
    return Fail(err, size, QVI_BRIDGE_BAD_ARGUMENT, "the scan failed");
  }
}

#ifndef QVI_BRIDGE_PARTIAL
QVI_BRIDGE_EXPORT int LoadTypeImpl_(const QviAssembly* assembly, const char* type, QviObject** out, char* err,
                                    size_t size) {
  try {
    if (!type || !out) return Fail(err, size, QVI_BRIDGE_BAD_ARGUMENT, "a null argument");
    *out = nullptr;
    if (int rc = Test(assembly, err, size)) return rc;
    const QviAddInType* t = FindType(*assembly->module, type);
    if (!t) return Fail(err, size, QVI_BRIDGE_NO_TYPE, "it has no type \"" + std::string(type) + "\"");
    auto o = std::make_unique<QviObject>();
    o->assembly = assembly;
    o->type = t;
    o->self = t->create();
    if (!o->self)
      return Fail(err, size, QVI_BRIDGE_CREATE_FAILED, "type \"" + TypeNameOf(*t) + "\" made no instance");
    *out = o.release();
    return Ok(err, size);
  } catch (...) {
    return Fail(err, size, QVI_BRIDGE_CREATE_FAILED, "loading the type failed");
  }
}
#endif

QVI_BRIDGE_EXPORT int CreateMethodArgumentsImpl_(QviObject* object, const QviValue* values, int count, char* err,
                                                 size_t size) {
  try {
    if (!object || count < 0 || (count > 0 && !values))
      return Fail(err, size, QVI_BRIDGE_BAD_ARGUMENT, "a null argument");
    std::vector<std::pair<std::string, std::string>> block;
    for (int i = 0; i < count; ++i) {
      if (!values[i].name || !values[i].value) return Fail(err, size, QVI_BRIDGE_BAD_ARGUMENT, "a null value");
      bool known = false;
      for (int f = 0; f < object->type->field_count && !known; ++f)
        known = std::strcmp(object->type->fields[f].name, values[i].name) == 0;
      if (!known)
        return Fail(err, size, QVI_BRIDGE_BAD_FIELD,
                    "type \"" + TypeNameOf(*object->type) + "\" has no field \"" + values[i].name + "\"");
      block.emplace_back(values[i].name, values[i].value);
    }
    object->arguments = std::move(block);
    return Ok(err, size);
  } catch (...) {
    return Fail(err, size, QVI_BRIDGE_BAD_ARGUMENT, "the argument block could not be made");
  }
}

#ifndef QVI_BRIDGE_PARTIAL
QVI_BRIDGE_EXPORT int CreateCalculateMatrixImpl_(QviObject* object, QviDelegate* out, char* err, size_t size) {
  return Bind(object, "CalculateMatrix", QVI_SIG_CALCULATE_MATRIX, out, err, size);
}
#endif

QVI_BRIDGE_EXPORT int CreateUpdateStressesImpl_(QviObject* object, QviDelegate* out, char* err, size_t size) {
  return Bind(object, "UpdateStresses", QVI_SIG_UPDATE_STRESSES, out, err, size);
}

QVI_BRIDGE_EXPORT int CreateDelegateFunctorImpl_(QviObject* object, const char* method, int signature,
                                                 QviDelegate* out, char* err, size_t size) {
  return Bind(object, method, signature, out, err, size);
}

QVI_BRIDGE_EXPORT int CreateCalculateForceImpl_(QviObject* object, QviDelegate* out, char* err, size_t size) {
  return Bind(object, "CalculateForce", QVI_SIG_CALCULATE_FORCE, out, err, size);
}

QVI_BRIDGE_EXPORT int CreateCalculateShearForceImpl_(QviObject* object, QviDelegate* out, char* err,
                                                     size_t size) {
  return Bind(object, "CalculateShearForce", QVI_SIG_CALCULATE_FORCE, out, err, size);
}

QVI_BRIDGE_EXPORT int CreateInitializeImpl_(QviObject* object, char* err, size_t size) {
  if (!object) return Fail(err, size, QVI_BRIDGE_BAD_ARGUMENT, "a null argument");
  const QviAddInType& t = *object->type;
  for (const auto& [name, value] : object->arguments) {
    const int rc = t.set_field(object->self, name.c_str(), value.c_str());
    if (rc != 0)
      return Fail(err, size, QVI_BRIDGE_BAD_FIELD,
                  "type \"" + TypeNameOf(t) + "\" refused the value \"" + value + "\" of field \"" + name +
                      "\" (code " + std::to_string(rc) + ")");
  }
  if (const QviAddInMethod* m = FindMethod(t, "Initialize")) {
    if (m->signature != QVI_SIG_INITIALIZE)
      return Fail(err, size, QVI_BRIDGE_NO_METHOD, "method \"Initialize\" has another signature");
    const int rc = reinterpret_cast<int (*)(void*)>(m->fn)(object->self);
    if (rc != 0)
      return Fail(err, size, QVI_BRIDGE_CALL_FAILED,
                  "type \"" + TypeNameOf(t) + "\" failed in \"Initialize\" (code " + std::to_string(rc) + ")");
  }
  return Ok(err, size);
}

QVI_BRIDGE_EXPORT void PerformBlockingGC_(void) {}

QVI_BRIDGE_EXPORT int CreateAssembly_(const char* path, QviAssembly** out, char* err, size_t size) {
  try {
    if (!path || !out) return Fail(err, size, QVI_BRIDGE_BAD_ARGUMENT, "a null argument");
    *out = nullptr;
    auto& all = Assemblies();
    if (auto it = all.find(path); it != all.end()) {
      *out = it->second.get();
      return Ok(err, size);
    }
    std::string why;
    sys::dl::Handle h = sys::dl::Open(path, why);
    if (!h) return Fail(err, size, QVI_BRIDGE_NOT_LOADED, "it could not be opened: " + why);
    auto a = std::make_unique<QviAssembly>();
    a->path = path;
    a->library = h;
    *out = a.get();
    all.emplace(path, std::move(a));
    return Ok(err, size);
  } catch (...) {
    return Fail(err, size, QVI_BRIDGE_NOT_LOADED, "it could not be opened");
  }
}
