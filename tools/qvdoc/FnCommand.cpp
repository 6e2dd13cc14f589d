// `qvdoc fn "TEXT" --from A --to B`: evaluates a function given as text and
// prints a two-column table; with --svg it also draws the curve.
//
// For water-content functions, whose input is the pore-water pressure,
// --suction takes the inputs as suctions (evaluating at minus the input), and
// --conductivity KSAT adds the hydraulic conductivity estimated from the
// function (FnEstHydK) as a third column, drawn on a logarithmic right axis.
//
// Estimators (FnEst...) are updated before evaluation and their axes are
// labelled with the quantities they estimate; those that read a
// water-content function by number ("VolWCFnNum=1") find the one given with
// --wc as function 1 of a scratch document.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include "QVI/qvi/addins/AddInsManager.h"
#include "QVI/str/Convert.h"
#include "V7Doc/document/QVDocument.h"
#include "V7Doc/functions/FnDataPoints.h"
#include "V7Doc/functions/FnEstBase.h"
#include "V7Doc/functions/FnDataText.h"
#include "V7Doc/functions/FnEstHydK.h"
#include "V7Doc/functions/FnImpl.h"
#include "tools/qvdoc/Commands.h"
#include "tools/qvdoc/Json.h"
#include "tools/qvdoc/Svg.h"

namespace qvdoc {
namespace {

struct FnOptions {
  std::string text;
  double from = std::nan(""), to = std::nan("");
  double at = std::nan("");  // a number: evaluate at this one input only
  bool json = false;
  int points = 21;
  bool logX = false;
  std::string svg;
  std::string data;
  bool suction = false;
  double kSat = 0;          // > 0: estimate the conductivity too
  std::string hydkMethod = "VanGenuchten";
  double resWC = 0;
  std::string wc;           // water-content function for estimators that name one
  std::string addins;       // a folder searched for add-ins ("External")
};

[[noreturn]] void Fail(const std::string& message) {
  std::cerr << "qvdoc fn: " << message << "\n";
  throw CLI::RuntimeError(kExitFailure);
}

// Input quoted in a message, its control characters escaped.
std::string Quoted(const std::string& input) {
  return "\"" + str::to_utf8(str::escape_controls(str::to_wstring(input))) + "\"";
}

// A tick label: ticks are rounded positions, and six digits keep one
// computed as 3 * 0.2 from reading 0.6000000000000001.
std::string TickLabel(double v) {
  char buf[32];
  std::snprintf(buf, sizeof buf, "%.6g", v);
  return buf;
}

// Tick positions: 1, 2 or 5 times a power of ten, about `want` of them.
// Ticks are computed by index from the first one, never by adding the step
// over and over: near 1e17 a step of 2 is below the spacing of doubles and
// an accumulating loop would never reach the end.
std::vector<double> NiceTicks(double lo, double hi, int want) {
  const double span = hi - lo;
  if (!(span > 0) || !std::isfinite(span)) return {lo};
  const double raw = span / want;
  const double mag = std::pow(10.0, std::floor(std::log10(raw)));
  const double step = raw / mag < 1.5 ? mag : raw / mag < 3.5 ? 2 * mag : raw / mag < 7.5 ? 5 * mag : 10 * mag;
  const double first = std::ceil(lo / step), last = std::floor(hi / step + 1e-9);
  const double count = last - first + 1;
  if (!(count >= 1) || count > 4.0 * want) return {lo, hi};
  std::vector<double> ticks;
  for (int k = 0; k < static_cast<int>(count); ++k) {
    const double t = (first + k) * step;
    ticks.push_back(std::abs(t) < step * 1e-9 ? 0.0 : t);
  }
  return ticks;
}

void WriteSvg(const FnOptions& o, const v7::IFn& fn, const std::vector<double>& xs,
              const std::vector<double>& ys, const std::vector<v7::FnPoint>& data,
              const std::vector<double>& ks) {
  const double W = 760, H = 480, L = 80, R = ks.empty() ? 30 : 80, T = 50, B = 60;
  auto fx = [&](double x) { return o.logX ? std::log10(x) : x; };
  double x0 = fx(xs.front()), x1 = fx(xs.back());
  double y0 = qvi::kNoValue, y1 = -qvi::kNoValue;
  for (double y : ys)
    if (!qvi::IsNoValue(y) && std::isfinite(y)) y0 = std::min(y0, y), y1 = std::max(y1, y);
  for (const auto& p : data)
    if (p.x >= std::min(o.from, o.to) && p.x <= std::max(o.from, o.to)) y0 = std::min(y0, p.y), y1 = std::max(y1, p.y);
  if (qvi::IsNoValue(y0)) y0 = 0, y1 = 1;
  if (y1 - y0 < 1e-12 * std::max(1.0, std::abs(y0))) y0 -= 0.5, y1 += 0.5;
  const double pad = 0.05 * (y1 - y0);
  y0 -= pad, y1 += pad;
  if (x1 < x0) std::swap(x0, x1);
  auto px = [&](double x) { return L + (fx(x) - x0) / (x1 - x0) * (W - L - R); };
  auto py = [&](double y) { return H - B - (y - y0) / (y1 - y0) * (H - T - B); };

  std::ofstream out(o.svg);
  if (!out) Fail("cannot write " + Quoted(o.svg));
  char buf[256];
  out << "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" << W << "\" height=\"" << H
      << "\" font-family=\"sans-serif\" font-size=\"12\">\n"
      << "<rect width=\"100%\" height=\"100%\" fill=\"white\"/>\n"
      << "<text x=\"" << W / 2 << "\" y=\"28\" text-anchor=\"middle\" font-size=\"14\">"
      << SvgEscape(o.text) << "</text>\n";
  // Frame, grid and ticks.
  std::snprintf(buf, sizeof buf,
                "<rect x=\"%g\" y=\"%g\" width=\"%g\" height=\"%g\" fill=\"none\" stroke=\"black\"/>\n", L,
                T, W - L - R, H - T - B);
  out << buf;
  std::vector<double> xt;
  if (o.logX) {
    // Whole decades, by index (x0 and x1 are log10 of finite numbers).
    const int d0 = static_cast<int>(std::floor(x0)), d1 = static_cast<int>(std::ceil(x1));
    for (int d = d0; d <= d1; ++d)
      if (d >= x0 - 1e-9 && d <= x1 + 1e-9) xt.push_back(std::pow(10.0, d));
    if (xt.size() < 2) xt = {xs.front(), xs.back()};
  } else {
    xt = NiceTicks(x0, x1, 8);
  }
  for (double t : xt) {
    const double X = px(t);
    std::snprintf(buf, sizeof buf,
                  "<line x1=\"%.2f\" y1=\"%g\" x2=\"%.2f\" y2=\"%g\" stroke=\"#ddd\"/>"
                  "<line x1=\"%.2f\" y1=\"%g\" x2=\"%.2f\" y2=\"%g\" stroke=\"black\"/>"
                  "<text x=\"%.2f\" y=\"%g\" text-anchor=\"middle\">%s</text>\n",
                  X, T, X, H - B, X, H - B, X, H - B + 6, X, H - B + 20, TickLabel(t).c_str());
    out << buf;
  }
  for (double t : NiceTicks(y0, y1, 6)) {
    const double Y = py(t);
    std::snprintf(buf, sizeof buf,
                  "<line x1=\"%g\" y1=\"%.2f\" x2=\"%g\" y2=\"%.2f\" stroke=\"#ddd\"/>"
                  "<line x1=\"%g\" y1=\"%.2f\" x2=\"%g\" y2=\"%.2f\" stroke=\"black\"/>"
                  "<text x=\"%g\" y=\"%.2f\" text-anchor=\"end\">%s</text>\n",
                  L, Y, W - R, Y, L - 6, Y, L, Y, L - 9, Y + 4, TickLabel(t).c_str());
    out << buf;
  }
  // Axis labels: the function's quantities when it names them.
  // Axis labels: the function's quantities when it names them, else what an
  // estimator says it estimates.
  const auto* est = dynamic_cast<const v7::FnEstBase*>(fn.get());
  const auto label = [](v7::DataParamType p, std::string fallback) {
    return p == v7::DataParamType::Undefined ? fallback : str::to_utf8(meta::ToName(p));
  };
  const std::string xName = o.suction ? std::string("Suction")
                            : est     ? str::to_utf8(est->InputQuantity())
                                      : std::string("x");
  const std::string yName = est && !est->OutputQuantity().empty() ? str::to_utf8(est->OutputQuantity())
                            : o.suction                             ? std::string("Volumetric water content")
                                                                    : std::string("y");
  out << "<text x=\"" << (L + W - R) / 2 << "\" y=\"" << H - 18 << "\" text-anchor=\"middle\">"
      << SvgEscape(label(fn->InputParam(), xName)) << (o.logX ? " (log scale)" : "") << "</text>\n";
  out << "<text transform=\"translate(20," << (T + H - B) / 2 << ") rotate(-90)\" text-anchor=\"middle\">"
      << SvgEscape(label(fn->OutputParam(), yName)) << "</text>\n";
  // The curve, broken where the function has no value.
  std::string path;
  bool pen = false;
  for (std::size_t i = 0; i < xs.size(); ++i) {
    if (qvi::IsNoValue(ys[i]) || !std::isfinite(ys[i])) {
      pen = false;
      continue;
    }
    std::snprintf(buf, sizeof buf, "%c%.2f,%.2f ", pen ? 'L' : 'M', px(xs[i]), py(ys[i]));
    path += buf;
    pen = true;
  }
  out << "<path d=\"" << path << "\" fill=\"none\" stroke=\"#1f5fbf\" stroke-width=\"2\"/>\n";
  if (!ks.empty()) {
    // The conductivity on a log10 right axis, whole decades as ticks.
    double k0 = qvi::kNoValue, k1 = 0;
    for (double k : ks)
      if (!qvi::IsNoValue(k) && k > 0) k0 = std::min(k0, k), k1 = std::max(k1, k);
    if (!qvi::IsNoValue(k0)) {
      const int d0 = static_cast<int>(std::floor(std::log10(k0)));
      const int d1 = std::max(d0 + 1, static_cast<int>(std::ceil(std::log10(k1))));
      auto pk = [&](double k) { return H - B - (std::log10(k) - d0) / (d1 - d0) * (H - T - B); };
      for (int d = d0; d <= d1; ++d) {
        std::snprintf(buf, sizeof buf,
                      "<line x1=\"%g\" y1=\"%.2f\" x2=\"%g\" y2=\"%.2f\" stroke=\"black\"/>"
                      "<text x=\"%g\" y=\"%.2f\" fill=\"#c0392b\">1e%g</text>\n",
                      W - R, pk(std::pow(10.0, d)), W - R + 6, pk(std::pow(10.0, d)), W - R + 9,
                      pk(std::pow(10.0, d)) + 4, static_cast<double>(d));
        out << buf;
      }
      std::string kpath;
      bool kpen = false;
      for (std::size_t i = 0; i < xs.size(); ++i) {
        if (qvi::IsNoValue(ks[i]) || !(ks[i] > 0)) {
          kpen = false;
          continue;
        }
        std::snprintf(buf, sizeof buf, "%c%.2f,%.2f ", kpen ? 'L' : 'M', px(xs[i]), pk(ks[i]));
        kpath += buf;
        kpen = true;
      }
      out << "<path d=\"" << kpath << "\" fill=\"none\" stroke=\"#c0392b\" stroke-width=\"2\" "
          << "stroke-dasharray=\"6,3\"/>\n"
          << "<text transform=\"translate(" << W - 12 << "," << (T + H - B) / 2
          << ") rotate(90)\" text-anchor=\"middle\" fill=\"#c0392b\">Hydraulic conductivity (log scale)</text>\n";
    }
  }
  for (const auto& p : data) {
    if (p.x < std::min(o.from, o.to) || p.x > std::max(o.from, o.to) || (o.logX && p.x <= 0)) continue;
    std::snprintf(buf, sizeof buf, "<circle cx=\"%.2f\" cy=\"%.2f\" r=\"3.5\" fill=\"#d04020\"/>\n",
                  px(p.x), py(p.y));
    out << buf;
  }
  out << "</svg>\n";
  if (!out) Fail("cannot write " + Quoted(o.svg));
}

// The conductivity estimated from the water-content function `wc` at each
// suction of `xs`: `wc` becomes function 1 of the water-content list of a
// scratch document, made current while the estimate is built.
std::vector<double> EstimateConductivity(const FnOptions& o, const v7::IFn& wc, const std::vector<double>& xs,
                                         std::string& estimator) {
  if (!o.suction) Fail("--conductivity needs --suction (the inputs are suctions)");
  const v7::QVDocumentHandle previous = v7::QVDocumentGetCurrentHandle();
  v7::QVDocumentHandle doc(new v7::QVDocument());
  doc->DataInit();
  v7::QVDocumentSetCurrentHandle(doc);
  doc->FunctionList(14)->Add(v7::Func2D(L"water content", L"", wc));
  const double lo = std::min(xs.front(), xs.back()), hi = std::max(xs.front(), xs.back());
  const std::wstring text = str::format(L"FnEstHydK(VolWCFnNum=1,HydKSat=%s,HydKEstMethod=%s,Min=%s,Max=%s,NumPoints=%s,ResWC=%s)",
                                        o.kSat, str::to_wstring(o.hydkMethod), lo, hi, std::min(o.points, 2000), o.resWC);
  v7::IFn k;
  gtl::status s = v7::FnCreate(text, k);
  if (s.succeeded()) s = k.Unshared()->UpdateCalculatedValues();
  v7::QVDocumentSetCurrentHandle(previous);
  if (!s.succeeded()) Fail("cannot estimate the conductivity: " + s.message_utf8());
  estimator = str::to_utf8(k.as_wstring());
  std::vector<double> ks;
  for (double x : xs) ks.push_back(k(-x));
  return ks;
}

// {"function", "input", "x", "y"} and, with a conductivity, "K" and its
// estimator's text; with --at, numbers instead of lists.
void PrintJson(const FnOptions& o, const std::string& function, const std::vector<double>& xs,
               const std::vector<double>& ys, const std::vector<double>& ks, const std::string& estimator) {
  const bool one = !std::isnan(o.at);
  const auto values = [one](const std::vector<double>& v) {
    if (one) return JsonNumber(v[0]);
    std::string out = "[";
    for (std::size_t i = 0; i < v.size(); ++i) out += (i ? ", " : "") + JsonNumber(v[i]);
    return out + "]";
  };
  std::cout << "{\"function\": " << JsonString(std::string_view(function)) << ", \"input\": \""
            << (o.suction ? "suction" : "x") << "\", \"x\": " << values(xs) << ", \"y\": " << values(ys);
  if (!ks.empty())
    std::cout << ", \"K\": " << values(ks) << ", \"conductivity_function\": " << JsonString(std::string_view(estimator));
  std::cout << "}\n";
}

void Run(const FnOptions& o) {
  const bool one = !std::isnan(o.at);
  if (one) {
    if (!std::isfinite(o.at)) Fail("--at must be a finite number");
    if (!o.svg.empty()) Fail("--svg draws a range of inputs: give --from and --to instead of --at");
  } else {
    if (std::isnan(o.from) || std::isnan(o.to)) Fail("give the inputs: --from A --to B, or --at X");
    if (o.points < 2 || o.points > 100000) Fail("--points must be between 2 and 100000");
    if (!std::isfinite(o.from) || !std::isfinite(o.to) || o.from == o.to)
      Fail("--from and --to must be two different finite numbers");
    if (o.logX && (o.from <= 0 || o.to <= 0)) Fail("--log-x needs --from and --to above zero");
  }

  // A scratch current document holding the --wc function as water-content
  // function 1, for the estimators that read one by number.
  const v7::QVDocumentHandle previous = v7::QVDocumentGetCurrentHandle();
  if (!o.wc.empty()) {
    v7::IFn wc;
    if (const gtl::status w = v7::FnCreate(str::to_wstring(o.wc), wc); !w.succeeded())
      Fail("cannot read the water-content function \"" + o.wc + "\": " + w.message_utf8());
    v7::QVDocumentHandle doc(new v7::QVDocument());
    doc->DataInit();
    doc->FunctionList(14)->Add(v7::Func2D(L"water content", L"", wc));
    v7::QVDocumentSetCurrentHandle(doc);
  }
  struct Restore {
    v7::QVDocumentHandle previous;
    ~Restore() { v7::QVDocumentSetCurrentHandle(previous); }
  } restore{previous};

  if (!o.addins.empty()) qvi::addins::AddInsManager::Instance().SetDocumentFolder(str::to_wstring(o.addins));
  v7::IFn fn;
  const gtl::status s = v7::FnCreate(str::to_wstring(o.text), fn);
  if (!s.succeeded()) Fail("cannot read the function " + Quoted(o.text) + ": " + s.message_utf8());
  std::vector<v7::FnPoint> data;
  if (!o.data.empty()) {
    if (auto p = v7::ParseFnDataPoints(str::to_wstring(o.data), data); p.failed())
      Fail("--data: " + p.message_utf8());
    auto* target = dynamic_cast<v7::IFnDataPoints*>(fn.Unshared());
    if (!target) Fail("the function " + Quoted(o.text) + " does not take data points (--data)");
    target->Assign(data.data(), data.data() + data.size());
  }
  if (const gtl::status u = fn.Unshared()->UpdateCalculatedValues(); u.failed())
    Fail("cannot update the function: " + u.message_utf8());

  const int n = one ? 1 : o.points;
  std::vector<double> xs(static_cast<std::size_t>(n)), ys(xs.size());
  for (int i = 0; i < n; ++i) {
    const double t = one ? 0 : static_cast<double>(i) / (n - 1);
    xs[i] = one    ? o.at
            : o.logX ? std::pow(10.0, std::log10(o.from) + t * (std::log10(o.to) - std::log10(o.from)))
                     : o.from + t * (o.to - o.from);
    ys[i] = fn(o.suction ? -xs[i] : xs[i]);
  }
  // A function without a single value says why, when it knows (an add-in
  // that could not be loaded).
  if (const gtl::status e = fn->LastError(); e.failed() && std::all_of(ys.begin(), ys.end(), qvi::IsNoValue))
    Fail("the function has no value at any input: " + e.message_utf8());
  std::vector<double> ks;
  std::string estimator;
  if (o.kSat > 0) ks = EstimateConductivity(o, fn, xs, estimator);
  if (o.json) return PrintJson(o, str::to_utf8(fn.as_wstring()), xs, ys, ks, estimator);
  if (one) {
    // One input: the value alone, for use in a shell's $(...).
    std::cout << Number(ys[0]);
    if (!ks.empty()) std::cout << " " << Number(ks[0]);
    std::cout << "\n";
    return;
  }
  if (!estimator.empty()) std::cout << "# " << estimator << "\n";
  std::cout << "# " << str::to_utf8(fn.as_wstring()) << "\n";
  // Columns wide enough for any double in its shortest exact form.
  char line[128];
  std::snprintf(line, sizeof line, "%24s  %24s%s\n", o.suction ? "suction" : "x", "y",
                ks.empty() ? "" : "                         K");
  std::cout << line;
  for (std::size_t i = 0; i < xs.size(); ++i) {
    std::snprintf(line, sizeof line, "%24s  %24s", Number(xs[i]).c_str(), Number(ys[i]).c_str());
    std::cout << line;
    if (!ks.empty()) std::cout << "  " << std::string(24 - std::min<std::size_t>(24, Number(ks[i]).size()), ' ') << Number(ks[i]);
    std::cout << "\n";
  }
  if (!o.svg.empty()) {
    WriteSvg(o, fn, xs, ys, data, ks);
    std::cout << "wrote " << o.svg << "\n";
  }
}

void AddFnCommand(CLI::App& app) {
  auto o = std::make_shared<FnOptions>();
  auto* cmd = app.add_subcommand("fn", "Evaluate a function given as text, and optionally plot it");
  cmd->add_option("text", o->text, "The function's text, e.g. \"Spline(Tension=10)\" or \"2.5\"")->required();
  auto* at = cmd->add_option("--at", o->at, "Evaluate at this one input only (prints the value alone)");
  cmd->add_option("--from", o->from, "First input")->excludes(at);
  cmd->add_option("--to", o->to, "Last input")->excludes(at);
  cmd->add_flag("--json", o->json, "Print JSON: {\"function\", \"input\", \"x\", \"y\"} (and \"K\")");
  cmd->footer(
      "Example:\n  qvdoc fn \"Spline(Tension=0)\" --data \"0,0;1,1;2,4;3,9\" --from 0 --to 3 --svg curve.svg\n"
      "  qvdoc fn \"Van_Genuchten(A=10,N=2,SatWC=0.4,ResWC=0.1)\" --suction --at 25");
  cmd->add_option("--points", o->points, "Number of inputs evaluated")->capture_default_str();
  cmd->add_flag("--log-x", o->logX, "Space the inputs evenly in log10 (and plot so)");
  cmd->add_option("--svg", o->svg, "Draw the curve into this SVG file");
  cmd->add_option("--data", o->data, "Points for point-table kinds: \"x,y;x,y;...\"");
  cmd->add_flag("--suction", o->suction,
                "The inputs are suctions: evaluate at the pore-water pressure -x (water-content functions)");
  cmd->add_option("--conductivity", o->kSat,
                  "Also estimate the hydraulic conductivity from this saturated value (with --suction)");
  cmd->add_option("--hydk-method", o->hydkMethod, "Conductivity method: VanGenuchten or FredlundXing")
      ->capture_default_str();
  cmd->add_option("--res-wc", o->resWC, "Residual water content for the VanGenuchten method")
      ->capture_default_str();
  cmd->add_option("--wc", o->wc,
                  "Water-content function (text) that estimators read as function number 1 (VolWCFnNum=1)");
  cmd->add_option("--addins", o->addins, "A folder searched for the add-ins of External functions");
  cmd->callback([o] { Run(*o); });
}

const CommandRegistrar registrar(&AddFnCommand);

}  // namespace
}  // namespace qvdoc
