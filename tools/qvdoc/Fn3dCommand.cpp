// `qvdoc fn3d POINTS.csv --model linear|kriging`: fits a surface to scattered
// points (x, y, value rows) as a three-dimensional function of the document
// does, then prints its value at one place (--at X,Y) or draws it as a
// coloured map over a grid (--grid NX,NY --svg FILE). --min and --max bound
// the output as the user's bounds of the function do.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

#include "QVI/str/Convert.h"
#include "V7Doc/functions/Func3D.h"
#include "V7Doc/functions/Func3DPointsCsv.h"
#include "tools/qvdoc/Commands.h"
#include "tools/qvdoc/Svg.h"

namespace qvdoc {
namespace {

struct Fn3dOptions {
  std::string file;
  std::string model = "kriging";
  std::string at;
  std::string grid;
  std::string svg;
  double min = qvi::kNoValue;
  double max = qvi::kNoValue;
};

[[noreturn]] void Fail(const std::string& message) {
  std::cerr << "qvdoc fn3d: " << message << "\n";
  throw CLI::RuntimeError(kExitFailure);
}

std::string Exact(double v) { return str::to_utf8(str::to_wstring(v)); }

std::string Short(double v) {
  char buf[32];
  std::snprintf(buf, sizeof buf, "%.4g", v);
  return buf;
}

// "A,B" -> two numbers.
bool ParsePair(const std::string& text, double& a, double& b) {
  const auto comma = text.find(',');
  return comma != std::string::npos && str::parse(str::to_wstring(text.substr(0, comma)), a) &&
         str::parse(str::to_wstring(text.substr(comma + 1)), b) && std::isfinite(a) && std::isfinite(b);
}

// A perceptually ordered ramp from dark blue through green to yellow (the
// end colours of the common "viridis" scale, sampled at five stops).
std::string Colour(double t) {
  static const double stops[5][3] = {
      {68, 1, 84}, {59, 82, 139}, {33, 145, 140}, {94, 201, 98}, {253, 231, 37}};
  t = std::clamp(t, 0.0, 1.0) * 4.0;
  const int i = std::min(3, static_cast<int>(t));
  const double f = t - i;
  char buf[16];
  std::snprintf(buf, sizeof buf, "#%02x%02x%02x", static_cast<int>(stops[i][0] + f * (stops[i + 1][0] - stops[i][0])),
                static_cast<int>(stops[i][1] + f * (stops[i + 1][1] - stops[i][1])),
                static_cast<int>(stops[i][2] + f * (stops[i + 1][2] - stops[i][2])));
  return buf;
}

void WriteMap(const Fn3dOptions& o, const v7::Func3D& f, int nx, int ny) {
  std::vector<v7::FnPoint> pts;
  f.GetDefinedPts(pts);
  double x0 = pts[0].x, x1 = x0, y0 = pts[0].y, y1 = y0;
  for (const auto& p : pts) x0 = std::min(x0, p.x), x1 = std::max(x1, p.x), y0 = std::min(y0, p.y), y1 = std::max(y1, p.y);
  if (x1 == x0) x0 -= 0.5, x1 += 0.5;
  if (y1 == y0) y0 -= 0.5, y1 += 0.5;
  // Cell centres; the values give the colour scale.
  std::vector<double> v(static_cast<std::size_t>(nx) * ny);
  double lo = qvi::kNoValue, hi = -qvi::kNoValue;
  for (int j = 0; j < ny; ++j)
    for (int i = 0; i < nx; ++i) {
      const double x = x0 + (i + 0.5) * (x1 - x0) / nx, y = y0 + (j + 0.5) * (y1 - y0) / ny;
      const double z = f(x, y);
      v[static_cast<std::size_t>(j) * nx + i] = z;
      if (!qvi::IsNoValue(z)) lo = std::min(lo, z), hi = std::max(hi, z);
    }
  for (const auto& p : pts) lo = std::min(lo, p.z), hi = std::max(hi, p.z);
  if (!(hi > lo)) lo -= 0.5, hi += 0.5;

  const double plot = 520, L = 70, T = 50, B = 50, legendW = 110;
  const double scale = plot / std::max(x1 - x0, y1 - y0);
  const double W = (x1 - x0) * scale, H = (y1 - y0) * scale;
  auto px = [&](double x) { return L + (x - x0) * scale; };
  auto py = [&](double y) { return T + H - (y - y0) * scale; };
  std::ofstream out(o.svg);
  if (!out) Fail("cannot write \"" + o.svg + "\"");
  char buf[320];
  out << "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" << L + W + legendW << "\" height=\"" << T + H + B
      << "\" font-family=\"sans-serif\" font-size=\"12\">\n<rect width=\"100%\" height=\"100%\" fill=\"white\"/>\n"
      << "<text x=\"" << L + W / 2 << "\" y=\"28\" text-anchor=\"middle\" font-size=\"14\">"
      << SvgEscape(o.file + " (" + o.model + ")") << "</text>\n";
  const double cw = W / nx, ch = H / ny;
  for (int j = 0; j < ny; ++j)
    for (int i = 0; i < nx; ++i) {
      const double z = v[static_cast<std::size_t>(j) * nx + i];
      // Slightly oversized cells, so no hairline gaps show between them.
      std::snprintf(buf, sizeof buf, "<rect x=\"%.2f\" y=\"%.2f\" width=\"%.2f\" height=\"%.2f\" fill=\"%s\"/>\n",
                    L + i * cw, T + H - (j + 1) * ch, cw + 0.3, ch + 0.3,
                    qvi::IsNoValue(z) ? "#eeeeee" : Colour((z - lo) / (hi - lo)).c_str());
      out << buf;
    }
  std::snprintf(buf, sizeof buf, "<rect x=\"%g\" y=\"%g\" width=\"%g\" height=\"%g\" fill=\"none\" stroke=\"black\"/>\n", L, T, W, H);
  out << buf;
  for (int k = 0; k <= 4; ++k) {
    const double x = x0 + k * (x1 - x0) / 4, y = y0 + k * (y1 - y0) / 4;
    std::snprintf(buf, sizeof buf,
                  "<text x=\"%.2f\" y=\"%.2f\" text-anchor=\"middle\">%s</text>"
                  "<text x=\"%.2f\" y=\"%.2f\" text-anchor=\"end\">%s</text>\n",
                  px(x), T + H + 18, Short(x).c_str(), L - 6, py(y) + 4, Short(y).c_str());
    out << buf;
  }
  for (const auto& p : pts) {
    std::snprintf(buf, sizeof buf,
                  "<circle cx=\"%.2f\" cy=\"%.2f\" r=\"3\" fill=\"%s\" stroke=\"white\" stroke-width=\"1\"/>\n",
                  px(p.x), py(p.y), Colour((p.z - lo) / (hi - lo)).c_str());
    out << buf;
  }
  // Legend: the colour scale with its ends and middle.
  const double lx = L + W + 30, lw = 20;
  out << "<defs><linearGradient id=\"scale\" x1=\"0\" y1=\"1\" x2=\"0\" y2=\"0\">";
  for (int k = 0; k <= 4; ++k) out << "<stop offset=\"" << k / 4.0 << "\" stop-color=\"" << Colour(k / 4.0) << "\"/>";
  out << "</linearGradient></defs>\n";
  std::snprintf(buf, sizeof buf,
                "<rect x=\"%g\" y=\"%g\" width=\"%g\" height=\"%g\" fill=\"url(#scale)\" stroke=\"black\"/>\n", lx, T,
                lw, H);
  out << buf;
  for (int k = 0; k <= 2; ++k) {
    std::snprintf(buf, sizeof buf, "<text x=\"%g\" y=\"%.2f\">%s</text>\n", lx + lw + 5, T + H - k * H / 2 + 4,
                  Short(lo + k * (hi - lo) / 2).c_str());
    out << buf;
  }
  out << "<text x=\"" << lx << "\" y=\"" << T + H + 18 << "\">o data point</text>\n</svg>\n";
  if (!out) Fail("cannot write \"" + o.svg + "\"");
}

void Run(const Fn3dOptions& o) {
  std::ifstream in(o.file, std::ios::binary);
  if (!in) Fail("cannot open \"" + o.file + "\"");
  std::stringstream text;
  text << in.rdbuf();
  v7::Func3D f;
  if (const gtl::status s = v7::ReadFunc3DPointsCsv(text.str(), f.Points()); s.failed())
    Fail(o.file + ": " + s.message_utf8());
  if (o.model == "kriging") f.Model(v7::Func3DModel::Kriging);
  else if (o.model == "linear") f.Model(v7::Func3DModel::Linear);
  else Fail("--model must be linear or kriging, not \"" + o.model + "\"");
  if (!qvi::IsNoValue(o.min) || !qvi::IsNoValue(o.max)) {
    f.SetRangeConstraint(v7::ERangeConstraint::UserRange);
    f.SetUserMin(o.min);
    f.SetUserMax(o.max);
  }
  if (const gtl::status s = f.UpdatePressureHeadRange(); s.failed()) Fail(s.message_utf8());

  if (o.at.empty() && o.grid.empty()) Fail("give --at X,Y or --grid NX,NY --svg FILE");
  if (!o.at.empty()) {
    double x = 0, y = 0;
    if (!ParsePair(o.at, x, y)) Fail("--at must be two numbers X,Y, not \"" + o.at + "\"");
    const double z = f(x, y);
    if (qvi::IsNoValue(z)) Fail("the surface has no value at " + Exact(x) + "," + Exact(y));
    std::cout << Exact(z) << "\n";
  }
  if (!o.grid.empty()) {
    double gx = 0, gy = 0;
    if (!ParsePair(o.grid, gx, gy) || gx != std::floor(gx) || gy != std::floor(gy) || gx < 1 || gy < 1 ||
        gx > 2000 || gy > 2000)
      Fail("--grid must be two whole numbers NX,NY from 1 to 2000, not \"" + o.grid + "\"");
    if (o.svg.empty()) Fail("--grid needs --svg FILE");
    WriteMap(o, f, static_cast<int>(gx), static_cast<int>(gy));
    std::cout << "wrote " << o.svg << "\n";
  }
}

void AddFn3dCommand(CLI::App& app) {
  auto o = std::make_shared<Fn3dOptions>();
  auto* cmd = app.add_subcommand("fn3d", "Fit a surface to scattered x,y,value points and evaluate or map it");
  cmd->footer("Example:\n  qvdoc fn3d heads.csv --model kriging --at 12.5,3\n  qvdoc fn3d heads.csv --grid 40,30 --svg heads.svg");
  cmd->add_option("points", o->file, "CSV file of x,y,value rows (a header line allowed)")->required();
  cmd->add_option("--model", o->model, "Surface: kriging or linear")->capture_default_str();
  cmd->add_option("--at", o->at, "Print the value at X,Y (shortest exact form)");
  cmd->add_option("--grid", o->grid, "Evaluate on NX,NY cells over the points' extent (with --svg)");
  cmd->add_option("--svg", o->svg, "Draw the grid as a coloured map into this SVG file");
  cmd->add_option("--min", o->min, "Lower bound of the output");
  cmd->add_option("--max", o->max, "Upper bound of the output");
  cmd->callback([o] { Run(*o); });
}

const CommandRegistrar registrar(&AddFn3dCommand);

}  // namespace
}  // namespace qvdoc
