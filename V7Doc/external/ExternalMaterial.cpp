#include "V7Doc/external/ExternalMaterial.h"

#include <algorithm>
#include <cmath>

#include "QVI/str/Convert.h"

namespace v7::external {
namespace {

constexpr unsigned kMsgNoMethod = 38007;
constexpr unsigned kMsgCallFailed = 38008;
constexpr unsigned kMsgNotFinite = 38017;
constexpr unsigned kMsgIncomplete = 38016;
constexpr unsigned kMsgNotLoaded = 38010;

using MatrixFn = int (*)(void*, const QviMatlPoint*, double*);
using StressFn = int (*)(void*, const QviMatlPoint*, const double*, double*);
using ForceFn = int (*)(void*, const double*, int, double*);

template <class It>
bool AllFinite(It first, It last) {
  return std::all_of(first, last, [](double v) { return std::isfinite(v); });
}

}  // namespace

ExternalMaterial::ExternalMaterial() = default;
ExternalMaterial::~ExternalMaterial() = default;

gtl::status ExternalMaterial::Fail(gtl::status s) {
  lastError_ = s;
  return s;
}

gtl::status ExternalMaterial::Load(const ExternalMatlModel& model) {
  instance_.reset();
  matrix_ = stresses_ = force_ = shearForce_ = QviDelegate{};
  name_ = model.Name();
  if (model.Name().empty() || model.Assembly().empty()) return Fail(gtl::status::error(kMsgIncomplete));
  ExternalMatlModel::FieldList fields;
  if (auto s = model.ParseFields(fields); !s.succeeded()) return Fail(s);
  auto inst = std::make_unique<AddInInstance>();
  if (auto s = inst->Load(model.Assembly(), model.Name()); !s.succeeded()) return Fail(s);
  if (auto s = inst->Initialize(fields); !s.succeeded()) return Fail(s);
  const AddInType& t = inst->Type();
  if (!t.Offers(L"CalculateMatrix") && !t.Offers(L"UpdateStresses"))
    return Fail(gtl::status::error(kMsgNoMethod, t.name, model.Assembly(), L"CalculateMatrix"));
  if (auto s = inst->BindOffered({{"CalculateMatrix", QVI_SIG_CALCULATE_MATRIX, &matrix_},
                                   {"UpdateStresses", QVI_SIG_UPDATE_STRESSES, &stresses_},
                                   {"CalculateForce", QVI_SIG_CALCULATE_FORCE, &force_},
                                   {"CalculateShearForce", QVI_SIG_CALCULATE_FORCE, &shearForce_}});
      !s.succeeded()) {
    matrix_ = stresses_ = force_ = shearForce_ = QviDelegate{};
    return Fail(s);
  }
  instance_ = std::move(inst);
  return Fail({});
}

gtl::status ExternalMaterial::CalculateMatrix(const QviMatlPoint& at, std::array<double, 36>& d) {
  if (!instance_) return Fail(gtl::status::error(kMsgNotLoaded, name_));
  if (!matrix_.fn) return Fail(gtl::status::error(kMsgNoMethod, name_, L"", L"CalculateMatrix"));
  std::array<double, 36> out{};
  if (int rc = reinterpret_cast<MatrixFn>(matrix_.fn)(matrix_.self, &at, out.data()))
    return Fail(gtl::status::error(kMsgCallFailed, name_, L"CalculateMatrix", rc));
  if (!AllFinite(out.begin(), out.end())) return Fail(gtl::status::error(kMsgNotFinite, name_, L"CalculateMatrix"));
  d = out;
  return Fail({});
}

gtl::status ExternalMaterial::UpdateStresses(const QviMatlPoint& at, const std::array<double, 6>& dstrain,
                                             std::array<double, 6>& stress) {
  if (!instance_) return Fail(gtl::status::error(kMsgNotLoaded, name_));
  if (!stresses_.fn) return Fail(gtl::status::error(kMsgNoMethod, name_, L"", L"UpdateStresses"));
  std::array<double, 6> out{};
  if (int rc = reinterpret_cast<StressFn>(stresses_.fn)(stresses_.self, &at, dstrain.data(), out.data()))
    return Fail(gtl::status::error(kMsgCallFailed, name_, L"UpdateStresses", rc));
  if (!AllFinite(out.begin(), out.end())) return Fail(gtl::status::error(kMsgNotFinite, name_, L"UpdateStresses"));
  stress = out;
  return Fail({});
}

gtl::status ExternalMaterial::Force(const QviDelegate& call, const char* name, const std::vector<double>& in,
                                    std::vector<double>& out) {
  if (!instance_) return Fail(gtl::status::error(kMsgNotLoaded, name_));
  if (!call.fn) return Fail(gtl::status::error(kMsgNoMethod, name_, L"", str::to_wstring(name)));
  std::vector<double> result(in.size(), 0.0);
  if (int rc = reinterpret_cast<ForceFn>(call.fn)(call.self, in.data(), static_cast<int>(in.size()), result.data()))
    return Fail(gtl::status::error(kMsgCallFailed, name_, str::to_wstring(name), rc));
  if (!AllFinite(result.begin(), result.end()))
    return Fail(gtl::status::error(kMsgNotFinite, name_, str::to_wstring(name)));
  out = std::move(result);
  return Fail({});
}

gtl::status ExternalMaterial::CalculateForce(const std::vector<double>& in, std::vector<double>& out) {
  return Force(force_, "CalculateForce", in, out);
}
gtl::status ExternalMaterial::CalculateShearForce(const std::vector<double>& in, std::vector<double>& out) {
  return Force(shearForce_, "CalculateShearForce", in, out);
}

}  // namespace v7::external
