#include "V7Doc/functions/FnExternal.h"

#include <cmath>

#include "QVI/str/Convert.h"
#include "V7Doc/external/AddInInstance.h"
#include "V7Doc/functions/FnRegistry.h"

namespace v7 {
namespace {

const FnKindRegistrar kExternal(FnExternal::TypeName(), &CreateFn<FnExternal>);

constexpr unsigned kMsgMissingPart = 38006;
constexpr unsigned kMsgCallFailed = 38008;
constexpr unsigned kMsgNotFinite = 38009;
constexpr unsigned kMsgNotWritable = 38013;

constexpr const wchar_t* kFieldPrefix = L"Field.";

using CalculateFn = int (*)(void*, const double*, const double*, double*);
using SetIDFn = int (*)(void*, int);
using ReviewFn = int (*)(void*, char*, std::size_t);
using MaxPVFn = int (*)(void*, double*);

// True when `text` can stand in the function's text: the writer has no
// quoting, so the separators cannot appear in a value.
bool IsWritable(const std::wstring& text) { return text.find_first_of(L",()") == std::wstring::npos; }

}  // namespace

// The data of an external function and the add-in instance bound to it.
class FnExternalImpl : public IFnReview {
 public:
  FnExternalImpl() : loadError(gtl::status::error(kMsgMissingPart, L"Assembly")) {}
  // Copies the data only; the copy binds an instance of its own.
  FnExternalImpl(const FnExternalImpl& o)
      : IFnReview(), assembly(o.assembly), function(o.function), fields(o.fields), loadError(o.loadError) {}

  // (Re)loads the add-in from the data. With `adoptDeclared`, the fields
  // become the type's declared ones (values set so far kept).
  gtl::status Bind(bool adoptDeclared);
  std::wstring ReviewText() const override;

  std::wstring assembly;
  std::wstring function;
  external::FieldValues fields;
  std::unique_ptr<external::AddInInstance> instance;
  QviDelegate calc{}, setId{}, review{}, maxPV{};
  gtl::status loadError;
};

gtl::status FnExternalImpl::Bind(bool adoptDeclared) {
  instance.reset();  // releases the previous instance ("Dispose")
  calc = setId = review = maxPV = QviDelegate{};
  auto done = [this](gtl::status s) {
    if (!s.succeeded()) {
      instance.reset();
      calc = setId = review = maxPV = QviDelegate{};
    }
    loadError = s;
    return s;
  };
  if (assembly.empty()) return done(gtl::status::error(kMsgMissingPart, L"Assembly"));
  if (function.empty()) return done(gtl::status::error(kMsgMissingPart, L"Function"));
  auto inst = std::make_unique<external::AddInInstance>();
  if (auto s = inst->Load(assembly, function); !s.succeeded()) return done(s);
  if (adoptDeclared) {
    external::FieldValues merged;
    for (const external::AddInField& f : inst->Type().fields) {
      std::wstring value = f.defaultValue;
      for (const auto& [name, v] : fields)
        if (name == f.name) value = v;
      merged.emplace_back(f.name, IsWritable(value) ? value : std::wstring());
    }
    fields = std::move(merged);
  }
  // Empty values are not handed over: the add-in keeps its own default.
  external::FieldValues given;
  for (const auto& f : fields)
    if (!f.second.empty()) given.push_back(f);
  if (auto s = inst->Initialize(given); !s.succeeded()) return done(s);
  if (auto s = inst->Bind("Calculate", QVI_SIG_CALCULATE, calc); !s.succeeded()) return done(s);
  if (auto s = inst->BindOffered({{"SetID", QVI_SIG_SET_ID, &setId},
                                   {"Review", QVI_SIG_REVIEW, &review},
                                   {"MaxPV", QVI_SIG_MAX_PV, &maxPV}});
      !s.succeeded())
    return done(s);
  instance = std::move(inst);
  return done({});
}

std::wstring FnExternalImpl::ReviewText() const {
  if (!review.fn) return {};
  char text[4096] = {};
  if (reinterpret_cast<ReviewFn>(review.fn)(review.self, text, sizeof text) != 0) return {};
  text[sizeof text - 1] = '\0';
  return str::to_wstring(text);
}

FnAttr FnExternal::FnAttrField() { return FnAttr(L"Field"); }
FnAttr FnExternal::FnAttrField(const std::wstring& name, const std::wstring& value) {
  return FnAttr(kFieldPrefix + name, value);
}

FnExternal::FnExternal() : impl_(std::make_shared<FnExternalImpl>()) {}

void FnExternal::Refresh() {
  callFailed_ = false;
  calc_ = reinterpret_cast<CalculateFn>(impl_->calc.fn);
  self_ = impl_->calc.self;
}
FnExternal::~FnExternal() = default;

FnExternalImpl& FnExternal::Own() {
  if (impl_.use_count() > 1) impl_ = std::make_shared<FnExternalImpl>(*impl_);
  return *impl_;
}

const std::wstring& FnExternal::Assembly() const { return impl_->assembly; }
const std::wstring& FnExternal::Function() const { return impl_->function; }
std::size_t FnExternal::NumFields() const { return impl_->fields.size(); }
bool FnExternal::IsLoaded() const { return impl_->calc.fn != nullptr; }

bool FnExternal::FindField(const std::wstring& name, std::size_t& index) const {
  for (std::size_t i = 0; i < impl_->fields.size(); ++i)
    if (impl_->fields[i].first == name) {
      index = i;
      return true;
    }
  return false;
}

const std::wstring& FnExternal::FieldRef::Name() const { return owner_->impl_->fields.at(index_).first; }
const std::wstring& FnExternal::FieldRef::Value() const { return owner_->impl_->fields.at(index_).second; }
gtl::status FnExternal::FieldRef::SetValue(const std::wstring& value) { return owner_->SetFieldValue(index_, value); }

gtl::status FnExternal::SetFieldValue(std::size_t index, const std::wstring& value) {
  if (index >= impl_->fields.size()) return gtl::status::error(kMsgNotWritable, value, L"Field", impl_->function);
  if (!IsWritable(value))
    return gtl::status::error(kMsgNotWritable, value, impl_->fields[index].first, impl_->function);
  FnExternalImpl& d = Own();
  d.fields[index].second = value;
  const gtl::status s = d.Bind(false);
  Refresh();
  return s;
}

gtl::status FnExternal::SetAttributes(const std::vector<FnAttr>& attrs) {
  gtl::status s = FnImpl::SetAttributes(attrs);
  FnExternalImpl& d = Own();
  bool changed = false;
  for (const FnAttr& a : attrs) {
    if (a.Name == L"Assembly" || a.Name == L"Function" || a.Name.starts_with(kFieldPrefix)) {
      if (!IsWritable(a.Value)) {
        gtl::keep_first_failure(s, InvalidAttributeValue(Name(), a));
        continue;
      }
    }
    if (a.Name == L"Assembly") {
      d.assembly = a.Value;
      changed = true;
    } else if (a.Name == L"Function") {
      d.function = a.Value;
      changed = true;
    } else if (a.Name.starts_with(kFieldPrefix)) {
      const std::wstring name = a.Name.substr(std::wstring(kFieldPrefix).size());
      if (name.empty() || !IsWritable(name) || name.find(L'=') != std::wstring::npos) {
        gtl::keep_first_failure(s, InvalidAttributeValue(Name(), a));
        continue;
      }
      std::size_t i = 0;
      if (FindField(name, i))
        d.fields[i].second = a.Value;
      else
        d.fields.emplace_back(name, a.Value);
      changed = true;
    } else if (a.Name == L"Field") {
      gtl::keep_first_failure(s, InvalidAttributeValue(Name(), a));
    }
  }
  // The add-in's own failure stays in LastError (see the header).
  if (changed || !d.instance) d.Bind(false);
  Refresh();
  return s;
}

gtl::status FnExternal::SetExternalFunction(const std::wstring& assembly, const std::wstring& function) {
  for (const auto& [text, what] : {std::pair{&assembly, L"Assembly"}, {&function, L"Function"}})
    if (!IsWritable(*text)) return gtl::status::error(kMsgNotWritable, *text, what, TypeName());
  FnExternalImpl& d = Own();
  d.assembly = assembly;
  d.function = function;
  const gtl::status s = d.Bind(true);
  Refresh();
  return s;
}

double FnExternal::Calculate(const double* x, const double* y) const {
  if (!calc_) return qvi::kNoValue;  // LastError holds the load failure
  double out = qvi::kNoValue;
  const int rc = calc_(self_, x, y, &out);
  if (rc == 0 && std::isfinite(out)) [[likely]] {
    if (callFailed_) [[unlikely]]
      callFailed_ = false;
    return out;
  }
  callFailed_ = true;
  callError_ = rc != 0 ? gtl::status::error(kMsgCallFailed, impl_->function, L"Calculate", rc)
                       : gtl::status::error(kMsgNotFinite, impl_->function, x ? *x : qvi::kNoValue);
  return qvi::kNoValue;
}

gtl::status FnExternal::LastError() const { return callFailed_ ? callError_ : impl_->loadError; }

void FnExternal::GetDataAttributes(std::vector<FnAttr>& attrs) const {
  attrs.push_back(FnAttrAssembly(impl_->assembly));
  attrs.push_back(FnAttrFunction(impl_->function));
  for (const auto& [name, value] : impl_->fields) attrs.push_back(FnAttrField(name, value));
}

IFnReview* FnExternal::GetReview() const { return impl_->review.fn ? impl_.get() : nullptr; }

gtl::status FnExternal::InitializeInstance(GID fnNum, GID) {
  if (impl_.use_count() > 1) {
    Own().Bind(false);
    Refresh();
  }
  FnExternalImpl& d = *impl_;
  if (!d.setId.fn) return {};
  const int rc = reinterpret_cast<SetIDFn>(d.setId.fn)(d.setId.self, static_cast<int>(fnNum));
  return rc == 0 ? gtl::status() : gtl::status::error(kMsgCallFailed, d.function, L"SetID", rc);
}

double FnExternal::MaxPV() const {
  const FnExternalImpl& d = *impl_;
  if (!d.maxPV.fn) return qvi::kNoValue;
  double out = qvi::kNoValue;
  if (reinterpret_cast<MaxPVFn>(d.maxPV.fn)(d.maxPV.self, &out) != 0 || !std::isfinite(out)) return qvi::kNoValue;
  return out;
}

gtl::status FnExternal::Scan(const std::wstring& assembly, std::vector<LookupItem>& items) {
  items.clear();
  std::vector<external::AddInType> types;
  if (auto s = external::ScanAssembly(assembly, types); !s.succeeded()) return s;
  for (const auto& t : types) {
    if (!t.Offers(L"Calculate")) continue;
    LookupItem item{t.name, t.name, {}};
    for (const auto& f : t.fields) item.Fields.push_back(f.name);
    if (!item.Fields.empty()) {
      item.Label += L" (";
      for (std::size_t i = 0; i < item.Fields.size(); ++i) item.Label += (i ? L", " : L"") + item.Fields[i];
      item.Label += L")";
    }
    items.push_back(std::move(item));
  }
  return {};
}

}  // namespace v7
