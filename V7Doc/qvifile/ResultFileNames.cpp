#include "V7Doc/qvifile/ResultFileNames.h"

#include <cstdio>

#include "QVI/str/Convert.h"
#include "V7Doc/qvifile/V5Extensions.h"

namespace v7::qvifile::result {
namespace {

std::wstring Numbered(const wchar_t* stem, long long n) {
  return std::wstring(stem) + L"_" + str::to_wstring(n) + L".csv";
}

std::wstring Padded(long long n, int width) {
  wchar_t buf[32];
  std::swprintf(buf, std::size(buf), L"%0*lld", width, n);
  return buf;
}

std::wstring InStep(const ::doc::file::Name& name, int step, const std::wstring& leaf) {
  return name.Below(StepFolder(step) + L"/" + leaf);
}

std::wstring StabilityStem(const ::doc::file::Name& name, int step) {
  std::wstring s = name.FolderStem();
  if (step > 0) s += L"_" + str::to_wstring(step);
  return s;
}

// Surfaces 1 to 99 keep the two digits of the earlier generation. From 100
// on the number is joined with "-": written straight after the step it would
// run into it ("_2" + "101" is "_21" + "01"), and "-" appears in no other
// name, so every (step, surface) pair has a name of its own.
std::wstring Numbered02(const ::doc::file::Name& name, int surface, int step, const wchar_t* ext,
                        const wchar_t* optimisedExt) {
  if (surface <= 0) return StabilityStem(name, step) + optimisedExt;
  if (surface >= 100) return StabilityStem(name, step) + L"-" + str::to_wstring(surface) + ext;
  return StabilityStem(name, step) + Padded(surface, 2) + ext;
}

}  // namespace

std::wstring FNameExtBar() { return L"bar.csv"; }
std::wstring FNameExtFlux() { return L"flux.csv"; }
std::wstring FNameExtGauss1D() { return L"gauss_1d.csv"; }
std::wstring FNameExtGauss() { return L"gauss.csv"; }
std::wstring FNameExtNode() { return L"node.csv"; }
std::wstring FNameExtSlipSurface() { return L"slip_surface.csv"; }
std::wstring FNameExtSurfaceLayer() { return L"surface_layer.csv"; }
std::wstring FNameExtTime() { return L"time.csv"; }
std::wstring FNameExtTimeStep() { return L"time_step.csv"; }
std::wstring FNameExtHistoryParticle(GID particle) { return Numbered(L"particle", particle); }
std::wstring FNameExtHistoryPoint(GID point) { return Numbered(L"history", point); }
std::wstring FNameExtInterSlice(int surface) { return Numbered(L"interslice", surface); }
std::wstring FNameExtLambdaFOS(int surface) { return Numbered(L"lambdafos", surface); }
std::wstring FNameExtSlice(int surface) { return Numbered(L"slice", surface); }

std::wstring FName(GID analysis) { return Padded(analysis, 3); }
std::wstring StepFolder(int step) { return Padded(step, 3); }

std::wstring NameBar(const ::doc::file::Name& n, int step) { return InStep(n, step, FNameExtBar()); }
std::wstring NameFlux(const ::doc::file::Name& n, int step) { return InStep(n, step, FNameExtFlux()); }
std::wstring NameGauss(const ::doc::file::Name& n, int step) {
  return InStep(n, step, FNameExtGauss());
}
std::wstring NameGauss1D(const ::doc::file::Name& n, int step) {
  return InStep(n, step, FNameExtGauss1D());
}
std::wstring NameNode(const ::doc::file::Name& n, int step) { return InStep(n, step, FNameExtNode()); }
std::wstring NameSlipSurface(const ::doc::file::Name& n, int step) {
  return InStep(n, step, FNameExtSlipSurface());
}
std::wstring NameSurfaceLayer(const ::doc::file::Name& n, int step) {
  return InStep(n, step, FNameExtSurfaceLayer());
}
std::wstring NameInterSlice(const ::doc::file::Name& n, int surface, int step) {
  return InStep(n, step, FNameExtInterSlice(surface));
}
std::wstring NameLambdaFOS(const ::doc::file::Name& n, int surface, int step) {
  return InStep(n, step, FNameExtLambdaFOS(surface));
}
std::wstring NameSlice(const ::doc::file::Name& n, int surface, int step) {
  return InStep(n, step, FNameExtSlice(surface));
}

std::wstring NameTime(const ::doc::file::Name& n) { return n.Below(FNameExtTime()); }
std::wstring NameTimeStep(const ::doc::file::Name& n) { return n.Below(FNameExtTimeStep()); }
std::wstring NameHistoryParticle(const ::doc::file::Name& n, GID particle) {
  return n.Below(FNameExtHistoryParticle(particle));
}
std::wstring NameHistoryPoint(const ::doc::file::Name& n, GID point) {
  return n.Below(FNameExtHistoryPoint(point));
}

std::wstring NameData(const std::wstring& text) { return text + L".csv"; }
std::wstring NameData(const ::doc::file::Name& n, const std::wstring& text, double time) {
  return n.Below(text + L"_" + str::to_wstring(time) + L".csv");
}

std::wstring NameFofS(const ::doc::file::Name& n, int step) { return StabilityStem(n, step) + L".fac"; }
std::wstring NameForces(const ::doc::file::Name& n, int surface, int step) {
  return Numbered02(n, surface, step, L".frc", L".optfrc");
}
std::wstring NameProbability(const ::doc::file::Name& n, int surface, int step) {
  return Numbered02(n, surface, step, L".pro", L".optpro");
}
std::wstring NamePrimary(const ::doc::file::Name& n, AnalysisKind kind, AnlsMethod method,
                         int step) {
  std::wstring ext = ext::v5::PriResults(kind, method);
  if (ext.empty()) return {};
  if (ext.back() == L'*') ext = ext.substr(0, ext.size() - 1) + Padded(step < 0 ? 0 : step, 2);
  return n.FolderStem() + ext;
}

std::wstring NameMark(const ::doc::file::Name& n) { return n.FolderStem() + L".mrk"; }
std::wstring NameNewmark(const ::doc::file::Name& n) { return n.FolderStem() + L".new"; }

}  // namespace v7::qvifile::result
