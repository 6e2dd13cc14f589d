#include "V7Doc/qvifile/V5Extensions.h"

#include <array>

namespace v7::qvifile::ext::v5 {
namespace {

// One row per content, one cell per kind in the order Solute, Shake, Hydro,
// Deform, Stab, Thermo, Evapo. The oddities are kept on purpose: the heat
// "head" is the temperature file ".t*", the stability primary result is the
// single file ".fac", stability has no convergence file, and the Evapo
// convergence extension has five letters.
using Row = std::array<const wchar_t*, 7>;

std::wstring Cell(const Row& row, AnalysisKind kind) {
  const auto k = static_cast<std::int32_t>(kind);
  if (k < 0 || k >= static_cast<std::int32_t>(row.size())) return {};
  return row[static_cast<std::size_t>(k)];
}

}  // namespace

#define QV_V5_ROW(Function, ...)                         \
  std::wstring Function(AnalysisKind kind) {             \
    static constexpr Row row{__VA_ARGS__};               \
    return Cell(row, kind);                              \
  }

QV_V5_ROW(Archive, L".suz", L".shz", L".hyz", L".dfz", L".stz", L".thz", L".evz")
QV_V5_ROW(Data, L".sur", L".she", L".hyp", L".dfg", L".stp", L".thm", L".evd")
QV_V5_ROW(Secondary, L".su2", L".sh2", L".hy2", L".df2", L".st2", L".th2", L".ev2")
QV_V5_ROW(ContourOptions, L".su3", L".sh3", L".hy3", L".df3", L".st3", L".th3", L".ev3")
QV_V5_ROW(Convergence, L".cnc", L".cnq", L".cnv", L".cns", L"", L".cnp", L".evcnv")
std::wstring PriResults(AnalysisKind kind, AnlsMethod method) {
  static constexpr Row row{L".c*", L".x*", L".h*", L".s*", L".fac", L".t*", L".vh*"};
  if (method != AnlsMethod::None && method != AnlsMethod::Undefined &&
      !IsMethodAllowed(kind, method))
    return {};
  return Cell(row, kind);
}

QV_V5_ROW(Concentration, L".c*", L"", L"", L"", L"", L"", L"")
QV_V5_ROW(Mass, L".b*", L"", L"", L"", L"", L"", L"")
QV_V5_ROW(Dispersion, L".k*", L"", L"", L"", L"", L"", L"")
QV_V5_ROW(Particle, L".p*", L"", L"", L"", L"", L"", L"")
QV_V5_ROW(ParticleVelocity, L".a*", L"", L"", L"", L"", L"", L"")
QV_V5_ROW(Displacement, L"", L".w*", L"", L".d*", L"", L"", L"")
QV_V5_ROW(Stress, L"", L".x*", L"", L".s*", L"", L"", L"")
QV_V5_ROW(Strain, L"", L".y*", L"", L".e*", L"", L"", L"")
QV_V5_ROW(PWP, L"", L".z*", L"", L".u*", L"", L"", L"")
QV_V5_ROW(PWPOrHead, L"", L".z*", L".h*", L".u*", L"", L"", L".vh*")
QV_V5_ROW(Head, L"", L"", L".h*", L"", L"", L".t*", L".vh*")
QV_V5_ROW(Flux, L".q*", L"", L".f*", L"", L"", L".j*", L".vf*")
QV_V5_ROW(Velocity, L"", L"", L".v*", L"", L"", L".g*", L".vv*")
QV_V5_ROW(MatlProp, L".n*", L".i*", L".m*", L".l*", L"", L".r*", L".vm*")

#undef QV_V5_ROW

}  // namespace v7::qvifile::ext::v5
