#include "V7Doc/materials/BoundaryFns.h"

#include <cmath>

#include "QVI/qvi/Markers.h"
#include "QVI/str/Convert.h"
#include "V7Doc/document/QVDocument.h"
#include "V7Doc/functions/FnRegistry.h"
#include "V7Doc/materials/ThermalSurfaces.h"

namespace v7 {
namespace {

// An XY-type to boundary-type pair of a function kind.
struct XYToType {
  std::int32_t xy, type;
};

// What differs between the fields: the field, the attribute naming the
// function number and the list it numbers into, the type of a climate
// condition and the XY-type table.
template <class B>
struct FieldTraits;

#define QV_FIELD(B, F, FnList, FnNumAttr, ClimateType, ...)              \
  template <>                                                            \
  struct FieldTraits<B> {                                                \
    [[maybe_unused]] static constexpr GID kFnList = container::FnList;   \
    /* Not every field reads every trait (clang warns of those unread). */ \
    [[maybe_unused]] static constexpr DOFType kField = DOFType::F;       \
    [[maybe_unused]] static constexpr const wchar_t* kFnNumAttr = FnNumAttr; \
    [[maybe_unused]] static constexpr std::int32_t kClimateType = ClimateType; \
    [[maybe_unused]] static constexpr XYToType kXY[] = {__VA_ARGS__};    \
  };
QV_FIELD(HydBType, Hydraulic, HydBFns, L"HydBoundFnNum", 9, {8, 4}, {9, 7}, {10, 2}, {11, 3})
QV_FIELD(AirBType, Air, AirBFns, L"AirBoundFnNum", 0, {0, 0})
QV_FIELD(ThermBType, Thermal, ThermBFns, L"ThermBoundFnNum", 4, {23, 1}, {24, 2}, {25, 3})
QV_FIELD(ContamBType, Contaminant, ConcBFns, L"ContamBoundFnNum", 0, {13, 1}, {14, 6}, {15, 2}, {16, 3},
         {17, 4})
QV_FIELD(GasBType, Gas, GasBFns, L"GasBoundFnNum", 4, {27, 1}, {28, 2}, {29, 3})
QV_FIELD(XDispBType, XDisp, StressBFns, L"StressBoundFnNum", 0, {31, 1}, {33, 2}, {35, 3}, {37, 8}, {39, 7},
         {41, 9})
QV_FIELD(YDispBType, YDisp, StressBFns, L"StressBoundFnNum", 0, {32, 1}, {34, 2}, {36, 3}, {38, 8}, {40, 7},
         {41, 9})
QV_FIELD(RotBType, Rotation, StressBFns, L"StressBoundFnNum", 0, {0, 0})
#undef QV_FIELD

template <class B>
std::int32_t MapXY(std::int32_t xy) {
  for (const XYToType& e : FieldTraits<B>::kXY)
    if (e.xy == xy && e.xy != 0) return e.type;
  return 0;
}

// An empty number ("Value=") is a value not given: the member keeps what it
// holds, as when the attribute is absent. The text written for a boundary
// leaves unset numbers out, so storing the no-value marker here would read
// back as the kind's default (0) instead.
template <class V>
gtl::status Read(const FnAttr& a, const wchar_t* kind, V& into) {
  V v{};
  if (!ReadAttr(a.Value, v)) return InvalidAttributeValue(kind, a);
  if constexpr (std::is_same_v<V, double>) {
    if (std::isinf(v)) return InvalidAttributeValue(kind, a);
    if (qvi::IsNoValue(v)) return {};
  }
  into = v;
  return {};
}

gtl::status ReadNumber(const FnAttr& a, const wchar_t* kind, GID& into) {
  std::uint32_t v = 0;
  if (!ReadAttr(a.Value, v)) return InvalidAttributeValue(kind, a);
  into = v;
  return {};
}

}  // namespace

gtl::status BFnImpl::ReadStoredType(const FnAttr& a, const wchar_t* kind) {
  if (a.Name != L"BType") return {};
  std::int32_t v = 0;
  if (!ReadAttr(a.Value, v)) return InvalidAttributeValue(kind, a);
  nStoredType_ = v;
  return {};
}

// ---- BFnConst
template <class B>
gtl::status BFnConst<B>::SetAttributes(const std::vector<FnAttr>& attrs) {
  gtl::status s = FnImpl::SetAttributes(attrs);
  for (const FnAttr& a : attrs) {
    gtl::keep_first_failure(s, ReadStoredType(a, L"Constant"));
    if (a.Name == L"Value") gtl::keep_first_failure(s, Read(a, L"Constant", value_));
  }
  return s;
}
template <class B>
void BFnConst<B>::GetDataAttributes(std::vector<FnAttr>& attrs) const {
  attrs.push_back(FnAttrBType(str::to_wstring(nStoredType_)));
  attrs.push_back(FnAttrValue(value_));
}
template <class B>
DOFType BFnConst<B>::Field() const {
  return FieldTraits<B>::kField;
}

BFnImpl* BFnImpl::Renamed(GID id) const {
  auto* copy = static_cast<BFnImpl*>(Clone());
  copy->Rename(id);
  return copy;
}

// ---- BFnFunction
template <class B>
GGID BFnFunction<B>::Reference() const {
  return GGID(FieldTraits<B>::kFnList, fnNum_);
}
template <class B>
void BFnFunction<B>::Rename(GID id) {
  fnNum_ = id;
  if (id == 0) fn_ = IFn();  // no longer resolves to the function it named
}
template <class B>
gtl::status BFnFunction<B>::SetAttributes(const std::vector<FnAttr>& attrs) {
  gtl::status s = FnImpl::SetAttributes(attrs);
  for (const FnAttr& a : attrs) {
    gtl::keep_first_failure(s, ReadStoredType(a, L"Function"));
    if (a.Name == FieldTraits<B>::kFnNumAttr) gtl::keep_first_failure(s, ReadNumber(a, L"Function", fnNum_));
    if (a.Name == L"NumPoints") gtl::keep_first_failure(s, Read(a, L"Function", nCount_));
  }
  return s;
}
template <class B>
void BFnFunction<B>::GetDataAttributes(std::vector<FnAttr>& attrs) const {
  attrs.push_back(FnAttrBType(str::to_wstring(nStoredType_)));
  attrs.push_back(FnAttr(FieldTraits<B>::kFnNumAttr, str::to_wstring(static_cast<long long>(fnNum_))));
  if (nCount_ != 0) attrs.push_back(FnAttrNumPoints(nCount_));
}
template <class B>
double BFnFunction<B>::Calculate(const double* x, const double* y) const {
  return fn_->Calculate(x, y);
}
template <class B>
void BFnFunction<B>::GetFnReferences(std::vector<FnReference>& refs) const {
  refs.push_back({FieldTraits<B>::kFnList, fnNum_});
}
template <class B>
DOFType BFnFunction<B>::Field() const {
  return FieldTraits<B>::kField;
}
template <class B>
std::int32_t BFnFunction<B>::Type() const {
  constexpr DOFType f = FieldTraits<B>::kField;
  if constexpr (f == DOFType::Air) {
    return nStoredType_ != 0 ? 1 : 0;
  } else if constexpr (f == DOFType::XDisp || f == DOFType::YDisp) {
    if (fnNum_ == 0) return nCount_ > 0 ? 8 : 0;
    return MapXY<B>(nStoredType_);
  } else {
    return MapXY<B>(nStoredType_);
  }
}

// ---- BFnClimate
template <class B>
GGID BFnClimate<B>::Reference() const {
  return GGID(container::ClimateData, set_);
}
template <class B>
gtl::status BFnClimate<B>::SetAttributes(const std::vector<FnAttr>& attrs) {
  gtl::status s = FnImpl::SetAttributes(attrs);
  for (const FnAttr& a : attrs) {
    gtl::keep_first_failure(s, ReadStoredType(a, L"Climate"));
    if (a.Name == L"ClimateDataSet") gtl::keep_first_failure(s, ReadNumber(a, L"Climate", set_));
  }
  return s;
}
template <class B>
void BFnClimate<B>::GetDataAttributes(std::vector<FnAttr>& attrs) const {
  attrs.push_back(FnAttrBType(str::to_wstring(nStoredType_)));
  attrs.push_back(FnAttrClimateDataSet(set_));
}
template <class B>
DOFType BFnClimate<B>::Field() const {
  return FieldTraits<B>::kField;
}
template <class B>
std::int32_t BFnClimate<B>::Type() const {
  return nStoredType_ >= 1 ? FieldTraits<B>::kClimateType : 0;
}

// ---- BFnNormTanStress, BFnFluidPressure
template <class B>
gtl::status BFnNormTanStress<B>::SetAttributes(const std::vector<FnAttr>& attrs) {
  gtl::status s = FnImpl::SetAttributes(attrs);
  for (const FnAttr& a : attrs) {
    if (a.Name == L"Norm") gtl::keep_first_failure(s, Read(a, L"NormTanStress", norm_));
    if (a.Name == L"Tan") gtl::keep_first_failure(s, Read(a, L"NormTanStress", tan_));
  }
  return s;
}
template <class B>
void BFnNormTanStress<B>::GetDataAttributes(std::vector<FnAttr>& attrs) const {
  attrs.push_back(FnAttrNorm(norm_));
  attrs.push_back(FnAttrTan(tan_));
}
template <class B>
DOFType BFnNormTanStress<B>::Field() const {
  return FieldTraits<B>::kField;
}
template <class B>
gtl::status BFnFluidPressure<B>::SetAttributes(const std::vector<FnAttr>& attrs) {
  gtl::status s = FnImpl::SetAttributes(attrs);
  for (const FnAttr& a : attrs)
    if (a.Name == L"Value") gtl::keep_first_failure(s, Read(a, L"FluidPressure", value_));
  return s;
}
template <class B>
void BFnFluidPressure<B>::GetDataAttributes(std::vector<FnAttr>& attrs) const {
  attrs.push_back(FnAttrValue(value_));
}
template <class B>
DOFType BFnFluidPressure<B>::Field() const {
  return FieldTraits<B>::kField;
}

template class BFnConst<HydBType>;
template class BFnConst<AirBType>;
template class BFnConst<ThermBType>;
template class BFnConst<ContamBType>;
template class BFnConst<GasBType>;
template class BFnConst<XDispBType>;
template class BFnConst<YDispBType>;
template class BFnConst<RotBType>;
template class BFnFunction<HydBType>;
template class BFnFunction<AirBType>;
template class BFnFunction<ThermBType>;
template class BFnFunction<ContamBType>;
template class BFnFunction<GasBType>;
template class BFnFunction<XDispBType>;
template class BFnFunction<YDispBType>;
template class BFnClimate<HydBType>;
template class BFnClimate<ThermBType>;
template class BFnClimate<GasBType>;
template class BFnNormTanStress<XDispBType>;
template class BFnNormTanStress<YDispBType>;
template class BFnFluidPressure<XDispBType>;
template class BFnFluidPressure<YDispBType>;

// ---- thermosyphons and pipe surfaces
GGID BFnThermoSyphon::Reference() const { return GGID(container::Thermosyphons, set_); }
GGID BFnPipeSurface::Reference() const { return GGID(container::ConvectiveSurfaces, set_); }

gtl::status BFnThermoSyphon::SetAttributes(const std::vector<FnAttr>& attrs) {
  gtl::status s = FnImpl::SetAttributes(attrs);
  for (const FnAttr& a : attrs)
    if (a.Name == L"ThermoDataSet") gtl::keep_first_failure(s, ReadNumber(a, L"ThermoSyphon", set_));
  return s;
}
void BFnThermoSyphon::GetDataAttributes(std::vector<FnAttr>& attrs) const {
  attrs.push_back(FnAttrThermoDataSet(set_));
}
std::int32_t BFnThermoSyphon::Type(const ThermosyphonTable* table) const {
  if (set_ < 1) return 0;
  if (!table || set_ > table->Size()) return 5;
  return table->At(set_).nConvective > 0 ? 6 : 5;
}
std::int32_t BFnThermoSyphon::Type() const {
  const QVDocumentHandle& doc = QVDocumentGetCurrentHandle();
  return Type(doc ? &doc->Thermosyphons() : nullptr);
}

gtl::status BFnPipeSurface::SetAttributes(const std::vector<FnAttr>& attrs) {
  gtl::status s = FnImpl::SetAttributes(attrs);
  for (const FnAttr& a : attrs)
    if (a.Name == L"ConvSurfDataSet") gtl::keep_first_failure(s, ReadNumber(a, L"PipeSurface", set_));
  return s;
}
void BFnPipeSurface::GetDataAttributes(std::vector<FnAttr>& attrs) const {
  attrs.push_back(FnAttrConvSurfDataSet(set_));
}
std::int32_t BFnPipeSurface::Type(const ConvectiveSurfaceTable* table) const {
  if (set_ < 1) return 0;
  if (!table || set_ > table->Size()) return 8;
  return table->At(set_).bSmallq ? 8 : 7;
}
std::int32_t BFnPipeSurface::Type() const {
  const QVDocumentHandle& doc = QVDocumentGetCurrentHandle();
  return Type(doc ? &doc->ConvectiveSurfaces() : nullptr);
}

std::int32_t BoundaryTypeOf(const IFn& fn) {
  const auto* b = dynamic_cast<const BFnImpl*>(fn.get());
  return b ? b->Type() : 0;
}

namespace {

template <class B>
FnImpl* MakeForField(const std::wstring& name) {
  if (name == L"Constant") return new BFnConst<B>();
  if constexpr (!std::is_same_v<B, RotBType>)
    if (name == L"Function") return new BFnFunction<B>();
  if constexpr (std::is_same_v<B, HydBType> || std::is_same_v<B, ThermBType> ||
                std::is_same_v<B, GasBType>)
    if (name == L"Climate") return new BFnClimate<B>();
  if constexpr (std::is_same_v<B, XDispBType> || std::is_same_v<B, YDispBType>) {
    if (name == L"NormTanStress") return new BFnNormTanStress<B>();
    if (name == L"FluidPressure") return new BFnFluidPressure<B>();
  }
  if constexpr (std::is_same_v<B, ThermBType>) {
    if (name == L"ThermoSyphon") return new BFnThermoSyphon();
    if (name == L"PipeSurface") return new BFnPipeSurface();
  }
  return nullptr;
}

FnImpl* MakeBoundaryFn(DOFType field, const std::wstring& name) {
  switch (field) {
    case DOFType::Hydraulic: return MakeForField<HydBType>(name);
    case DOFType::Air: return MakeForField<AirBType>(name);
    case DOFType::Thermal: return MakeForField<ThermBType>(name);
    case DOFType::Contaminant: return MakeForField<ContamBType>(name);
    case DOFType::Gas: return MakeForField<GasBType>(name);
    case DOFType::XDisp: return MakeForField<XDispBType>(name);
    case DOFType::YDisp: return MakeForField<YDispBType>(name);
    case DOFType::Rotation: return MakeForField<RotBType>(name);
  }
  return nullptr;
}

// The registry knows the boundary kinds by name alone; without a slot to
// say the field, a kind is built for the field that most often carries it.
const FnKindRegistrar kConstant(L"Constant", &CreateFn<HydBFnConst>);
const FnKindRegistrar kFunction(L"Function", &CreateFn<HydBFnFunction>);
const FnKindRegistrar kClimate(L"Climate", &CreateFn<ThermBFnClimate>);
const FnKindRegistrar kThermoSyphon(L"ThermoSyphon", &CreateFn<BFnThermoSyphon>);
const FnKindRegistrar kPipeSurface(L"PipeSurface", &CreateFn<BFnPipeSurface>);
const FnKindRegistrar kNormTanStress(L"NormTanStress", &CreateFn<XDispBFnNormTanStress>);
const FnKindRegistrar kFluidPressure(L"FluidPressure", &CreateFn<XDispBFnFluidPressure>);

}  // namespace

gtl::status CreateBoundaryFn(DOFType field, const std::wstring& text, IFn& fn) {
  std::wstring name;
  std::vector<FnAttr> attrs;
  if (FnParse(text, name, attrs).succeeded()) {
    if (FnImpl* made = MakeBoundaryFn(field, name)) {
      fn = IFn(made);
      gtl::status s = fn.SetAttributes(attrs);
      return s;
    }
  }
  return FnCreate(text, fn);
}

}  // namespace v7
