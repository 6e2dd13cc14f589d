#include "V7Doc/external/AddInInstance.h"

#include <algorithm>

#include "QVI/qvi/addins/AddInsManager.h"
#include "QVI/str/Convert.h"

namespace v7::external {
namespace {

constexpr unsigned kMsgAddIn = 38005;
constexpr unsigned kMsgNoMethod = 38007;
constexpr std::size_t kErrSize = 1024;

std::wstring Text(const char* s) { return s ? str::to_wstring(s) : std::wstring(); }

struct ScanContext {
  std::vector<AddInType>* types;
};

void Collect(void* context, const char* type, const char* description, const char* const* methods,
             int methodCount, const QviAddInField* fields, int fieldCount) {
  AddInType t;
  t.name = Text(type);
  t.description = Text(description);
  for (int i = 0; i < methodCount; ++i) t.methods.push_back(Text(methods[i]));
  for (int i = 0; i < fieldCount; ++i)
    t.fields.push_back({Text(fields[i].name), Text(fields[i].default_value), Text(fields[i].description)});
  static_cast<ScanContext*>(context)->types->push_back(std::move(t));
}

gtl::status Need(const ExternalObject& bridge, const void* entry, const char* name) {
  return entry ? gtl::status() : bridge.Missing(name);
}

}  // namespace

bool AddInType::Offers(const std::wstring& method) const {
  return std::find(methods.begin(), methods.end(), method) != methods.end();
}

gtl::status AddInError(const std::wstring& assembly, const char* reason) {
  return gtl::status::error(kMsgAddIn, assembly, Text(reason));
}

gtl::status OpenAssembly(const ExternalObject& bridge, const std::wstring& name, QviAssembly*& out) {
  out = nullptr;
  if (auto s = Need(bridge, reinterpret_cast<const void*>(bridge.CreateAssembly_), "CreateAssembly_"); !s.succeeded())
    return s;
  if (auto s = Need(bridge, reinterpret_cast<const void*>(bridge.TestAddInCompatibilityImpl_),
                    "TestAddInCompatibilityImpl_");
      !s.succeeded())
    return s;
  std::wstring path;
  if (auto s = qvi::addins::AddInsManager::Instance().GetAddInPath(name, path); !s.succeeded()) return s;
  char err[kErrSize] = {};
  QviAssembly* a = nullptr;
  if (bridge.CreateAssembly_(str::to_utf8(path).c_str(), &a, err, sizeof err) != QVI_BRIDGE_OK || !a)
    return AddInError(name, err);
  if (bridge.TestAddInCompatibilityImpl_(a, err, sizeof err) != QVI_BRIDGE_OK) return AddInError(name, err);
  out = a;
  return {};
}

gtl::status ScanAssembly(const std::wstring& name, std::vector<AddInType>& types) {
  types.clear();
  const ExternalObject& bridge = ExternalObject::Instance();
  if (auto s = Need(bridge, reinterpret_cast<const void*>(bridge.ScanTypeImpl_), "ScanTypeImpl_"); !s.succeeded())
    return s;
  QviAssembly* a = nullptr;
  if (auto s = OpenAssembly(bridge, name, a); !s.succeeded()) return s;
  ScanContext context{&types};
  char err[kErrSize] = {};
  if (bridge.ScanTypeImpl_(a, &Collect, &context, err, sizeof err) != QVI_BRIDGE_OK) {
    types.clear();
    return AddInError(name, err);
  }
  return {};
}

AddInInstance::~AddInInstance() {
  if (dispose_.fn) reinterpret_cast<void (*)(void*)>(dispose_.fn)(dispose_.self);
}

gtl::status AddInInstance::BridgeError(int, const char* err) const { return AddInError(assembly_, err); }

gtl::status AddInInstance::Load(const std::wstring& assembly, const std::wstring& type) {
  bridge_ = ExternalObject::Instance();
  assembly_ = assembly;
  const ExternalObject& b = bridge_;
  for (auto [entry, name] : {std::pair{reinterpret_cast<const void*>(b.ScanTypeImpl_), "ScanTypeImpl_"},
                             {reinterpret_cast<const void*>(b.LoadTypeImpl_), "LoadTypeImpl_"},
                             {reinterpret_cast<const void*>(b.CreateDelegateFunctorImpl_), "CreateDelegateFunctorImpl_"}})
    if (auto s = Need(b, entry, name); !s.succeeded()) return s;
  QviAssembly* a = nullptr;
  if (auto s = OpenAssembly(b, assembly, a); !s.succeeded()) return s;

  std::vector<AddInType> types;
  ScanContext context{&types};
  char err[kErrSize] = {};
  if (b.ScanTypeImpl_(a, &Collect, &context, err, sizeof err) != QVI_BRIDGE_OK) return BridgeError(0, err);
  auto it = std::find_if(types.begin(), types.end(), [&](const AddInType& t) { return t.name == type; });
  if (it == types.end()) {
    const std::string reason = "it has no type \"" + str::to_utf8(type) + "\"";
    return AddInError(assembly, reason.c_str());
  }
  type_ = *it;

  QviObject* o = nullptr;
  if (b.LoadTypeImpl_(a, str::to_utf8(type).c_str(), &o, err, sizeof err) != QVI_BRIDGE_OK || !o)
    return BridgeError(0, err);
  object_ = o;
  if (b.CreateDelegateFunctorImpl_(o, "Dispose", QVI_SIG_DISPOSE, &dispose_, err, sizeof err) != QVI_BRIDGE_OK)
    return BridgeError(0, err);
  return {};
}

gtl::status AddInInstance::Initialize(const FieldValues& fields) {
  if (!object_) return AddInError(assembly_, "no instance is loaded");
  const ExternalObject& b = bridge_;
  for (auto [entry, name] :
       {std::pair{reinterpret_cast<const void*>(b.CreateMethodArgumentsImpl_), "CreateMethodArgumentsImpl_"},
        {reinterpret_cast<const void*>(b.CreateInitializeImpl_), "CreateInitializeImpl_"}})
    if (auto s = Need(b, entry, name); !s.succeeded()) return s;
  std::vector<std::string> texts;
  texts.reserve(fields.size() * 2);
  for (const auto& [name, value] : fields) {
    texts.push_back(str::to_utf8(name));
    texts.push_back(str::to_utf8(value));
  }
  std::vector<QviValue> values;
  for (std::size_t i = 0; i < fields.size(); ++i) values.push_back({texts[2 * i].c_str(), texts[2 * i + 1].c_str()});
  char err[kErrSize] = {};
  if (b.CreateMethodArgumentsImpl_(object_, values.data(), static_cast<int>(values.size()), err, sizeof err) !=
      QVI_BRIDGE_OK)
    return BridgeError(0, err);
  if (b.CreateInitializeImpl_(object_, err, sizeof err) != QVI_BRIDGE_OK) return BridgeError(0, err);
  return {};
}

gtl::status AddInInstance::Bind(const char* method, int signature, QviDelegate& out) const {
  out = QviDelegate{};
  if (!object_) return AddInError(assembly_, "no instance is loaded");
  if (!type_.Offers(str::to_wstring(method)))
    return gtl::status::error(kMsgNoMethod, type_.name, assembly_, str::to_wstring(method));
  char err[kErrSize] = {};
  const ExternalObject& b = bridge_;
  int rc = QVI_BRIDGE_OK;
  // The material-model calls have entries of their own.
  if (signature == QVI_SIG_CALCULATE_MATRIX) {
    if (auto s = Need(b, reinterpret_cast<const void*>(b.CreateCalculateMatrixImpl_), "CreateCalculateMatrixImpl_");
        !s.succeeded())
      return s;
    rc = b.CreateCalculateMatrixImpl_(object_, &out, err, sizeof err);
  } else if (signature == QVI_SIG_UPDATE_STRESSES) {
    if (auto s = Need(b, reinterpret_cast<const void*>(b.CreateUpdateStressesImpl_), "CreateUpdateStressesImpl_");
        !s.succeeded())
      return s;
    rc = b.CreateUpdateStressesImpl_(object_, &out, err, sizeof err);
  } else if (signature == QVI_SIG_CALCULATE_FORCE && std::string_view(method) == "CalculateForce") {
    if (auto s = Need(b, reinterpret_cast<const void*>(b.CreateCalculateForceImpl_), "CreateCalculateForceImpl_");
        !s.succeeded())
      return s;
    rc = b.CreateCalculateForceImpl_(object_, &out, err, sizeof err);
  } else if (signature == QVI_SIG_CALCULATE_FORCE && std::string_view(method) == "CalculateShearForce") {
    if (auto s = Need(b, reinterpret_cast<const void*>(b.CreateCalculateShearForceImpl_),
                      "CreateCalculateShearForceImpl_");
        !s.succeeded())
      return s;
    rc = b.CreateCalculateShearForceImpl_(object_, &out, err, sizeof err);
  } else {
    rc = b.CreateDelegateFunctorImpl_(object_, method, signature, &out, err, sizeof err);
  }
  if (rc != QVI_BRIDGE_OK || !out.fn) {
    out = QviDelegate{};
    return BridgeError(rc, err);
  }
  return {};
}

gtl::status AddInInstance::BindOffered(std::initializer_list<OptionalMethod> methods) const {
  for (const OptionalMethod& m : methods)
    if (type_.Offers(str::to_wstring(m.name)))
      if (auto s = Bind(m.name, m.signature, *m.out); !s.succeeded()) return s;
  return {};
}

}  // namespace v7::external
