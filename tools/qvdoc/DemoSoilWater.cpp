// Demo step of the soil-water functions: a closed-form water-content curve,
// an estimate from grain size, the conductivity derived from the curve by
// both methods, and a parameter given as a trial container with a
// distribution.
#include <cstdio>
#include <iostream>

#include "QVI/str/Convert.h"
#include "V7Doc/functions/FnEstHydK.h"
#include "V7Doc/functions/FnEstVolWC.h"
#include "V7Doc/functions/FnMultiTrial.h"
#include "V7Doc/functions/Func2D.h"
#include "tools/qvdoc/Commands.h"

namespace qvdoc {
namespace {

// Builds `text` and brings it up to date; prints the reason on failure.
bool Build(const wchar_t* text, v7::IFn& fn) {
  gtl::status s = v7::FnCreate(text, fn);
  if (s.succeeded()) s = fn.Unshared()->UpdateCalculatedValues();
  if (!s.succeeded()) std::cerr << "qvdoc demo: " << str::to_utf8(text) << ": " << s.message_utf8() << "\n";
  return s.succeeded();
}

bool ShowSoilWater(DemoContext& c) {
  auto& doc = *c.document;
  v7::Func2DTable& wcList = *doc.FunctionList(14);
  v7::Func2DTable& kList = *doc.FunctionList(11);

  // A silt by Fredlund and Xing, stored as a water-content function.
  v7::IFn silt;
  if (!Build(L"Fredlund_Xing(A=60,N=1.8,M=0.9,SatWC=0.42)", silt)) return false;
  wcList.Add(v7::Func2D(L"Silt (Fredlund-Xing)", L"", silt));
  const unsigned siltNum = static_cast<unsigned>(wcList.Size());

  // A sand estimated from its grain size: the estimator's points become a
  // drawn curve, and the estimator is kept beside it for re-estimation.
  v7::IFn sandEst;
  if (!Build(L"FnEstVolWC(VolWCEstMethod=GrainSize,SatWC=0.38,D10=0.12,D60=0.4,Min=0.1,Max=1000,NumPoints=25)",
             sandEst))
    return false;
  v7::IFn spline;
  if (!Build(L"VolWCSpline(Tension=50)", spline)) return false;
  v7::Func2D sand(L"Sand (grain size)", L"", spline);
  sand.SetEstFn(sandEst);
  sand.Points() = dynamic_cast<const v7::IFnDataPoints&>(*sandEst).DataPoints();
  wcList.Add(std::move(sand));

  // Conductivity of the silt by both methods.
  const std::wstring num = str::to_wstring(siltNum);
  v7::IFn kVG, kFX;
  if (!Build((L"FnEstHydK(VolWCFnNum=" + num + L",HydKSat=1e-6,ResWC=0.02)").c_str(), kVG)) return false;
  if (!Build((L"FnEstHydK(VolWCFnNum=" + num + L",HydKSat=1e-6,HydKEstMethod=FredlundXing)").c_str(), kFX))
    return false;
  kList.Add(v7::Func2D(L"Silt K (van Genuchten)", L"", kVG));
  kList.Add(v7::Func2D(L"Silt K (Fredlund-Xing-Huang)", L"", kFX));
  doc.ContainerManager().NotifyAllUpdateCalculatedValues();

  const auto& fit = dynamic_cast<const v7::FnEstHydK&>(*kVG).Fit();
  char line[160];
  c.out << "Soil-water functions: water content " << siltNum << " and the conductivity derived from it.\n";
  c.out << "  " << str::to_utf8(silt.as_wstring()) << "\n";
  std::snprintf(line, sizeof line,
                "  van Genuchten fit: halfway suction %.2f kPa, slope %.3f per cycle, m %.3f, n %.3f\n", fit.hp,
                fit.Sp, fit.m, fit.n);
  c.out << line;
  c.out << "   suction kPa  silt WC   sand WC   K vG m/s    K FXH m/s\n";
  const v7::Func2D& sandFn = wcList.At(static_cast<v7::GID>(wcList.Size()));
  for (double s : {0.1, 1.0, 10.0, 100.0, 1000.0}) {
    std::snprintf(line, sizeof line, "  %10g   %.4f    %.4f    %.3e   %.3e\n", s, silt(-s), sandFn(-s), kVG(-s),
                  kFX(-s));
    c.out << line;
  }

  // A friction angle for a probabilistic analysis: single 32, range 32 +- 5 x 1,
  // normal with SD 2 truncated to 28..36.
  v7::IFn phi;
  if (!Build(L"Trials(Single.Value=32,Range.Mean=32,Range.Delta=1,Probabilistic.Type=Normal,"
             L"Probabilistic.Mean=32,Probabilistic.SD=2,Probabilistic.Min=28,Probabilistic.Max=36)",
             phi))
    return false;
  const auto& trials = dynamic_cast<const v7::FnMultiTrial&>(*phi);
  std::snprintf(line, sizeof line,
                "  friction angle trials: single %g, range %g..%g, normal truncated: p=0.1 -> %.2f, "
                "median %.2f, mean %.2f\n",
                phi(0.0), trials.fnRange().Min(), trials.fnRange().Max(), trials.fnProb()(0.1),
                trials.fnProb().Median(), trials.fnProb().Mean());
  c.out << line;
  return true;
}

const DemoStepRegistrar step(350, "Soil-water functions", &ShowSoilWater);

}  // namespace
}  // namespace qvdoc
