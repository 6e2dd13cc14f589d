// Demo step of the geometry: the drawing of a small slope (points, lines, two
// regions), its precision, the usage of its items, and a finite-element mesh
// over it with its Gauss points.
#include <cstdio>
#include <iostream>
#include <string>

#include "QVI/str/Convert.h"
#include "V7Doc/geometry/GaussPoint.h"
#include "V7Doc/geometry/GroundSurface.h"
#include "V7Doc/geometry/ShapeFunctions.h"
#include "tools/qvdoc/Commands.h"

namespace qvdoc {
namespace {

using v7::GID;
using namespace v7::Geom;

std::string Fixed(double v, int places) {
  char buf[64];
  std::snprintf(buf, sizeof buf, "%.*f", places < 0 ? 0 : places, v);
  return buf;
}

// The foundation (material 2) under an embankment (material 1) whose face
// runs from the toe (25, 10) to the crest (15, 20).
bool AddSlope(Geometry& g) {
  const Point2D pts[] = {{0, 0}, {40, 0}, {40, 10}, {25, 10}, {15, 20}, {0, 20}, {0, 10}};
  for (const Point2D& p : pts) g.Points().AddNew(p);
  const std::vector<GID> foundation{1, 2, 3, 4, 7}, embankment{7, 4, 5, 6};
  for (const auto* poly : {&foundation, &embankment})
    for (std::size_t i = 0; i < poly->size(); ++i)
      g.Lines().AddNew((*poly)[i], (*poly)[(i + 1) % poly->size()]);
  Region r;
  r.pointIDs_ = embankment;
  r.cornerPointIDs_ = embankment;
  r.nMaterialID_ = 1;
  g.Regions().Add(r);
  r.pointIDs_ = foundation;
  r.cornerPointIDs_ = {1, 2, 3, 7};
  r.nMaterialID_ = 2;
  g.Regions().Add(r);
  g.Surfaces().Add(Surface{L"Topsoil", {6, 5, 4, 3}, 0.5, false});
  return g.Lines().Size() == 8;
}

// Quadrilaterals with four Gauss points each; corner 1 top right, then
// counter-clockwise, as the shape functions number them.
void AddMesh(Mesh2D& m) {
  const double xy[][2] = {{0, 0},   {10, 0},  {25, 0},  {40, 0},  {0, 10}, {10, 10},
                          {25, 10}, {40, 10}, {0, 20},  {10, 20}, {15, 20}};
  for (const auto& p : xy) m.AddNode(p[0], p[1]);
  m.AddElement({{6, 5, 1, 2, 0, 0, 0, 0}, 2, 4});
  m.AddElement({{7, 6, 2, 3, 0, 0, 0, 0}, 2, 4});
  m.AddElement({{8, 7, 3, 4, 0, 0, 0, 0}, 2, 4});
  m.AddElement({{10, 9, 5, 6, 0, 0, 0, 0}, 1, 4});
  m.AddElement({{11, 10, 6, 7, 0, 0, 0, 0}, 1, 9});  // the slope face: a trapezoid
}

bool ShowGeometry(DemoContext& c) {
  auto& doc = *c.document;
  auto& out = c.out;
  Geometry& g = doc.Geometry();
  if (!AddSlope(g)) {
    std::cerr << "demo: the slope's lines were not all added\n";
    return false;
  }
  const Precision3D& p = g.UpdatePrecision();
  out << "Slope drawing: " << g.Points().Size() << " points, " << g.Lines().Size() << " lines, "
      << g.Regions().Size() << " regions (materials 1 and 2), " << g.Surfaces().Size()
      << " surface layer.\n";
  out << "  precision from the extents: " << p.Digits(0) << " places in x, " << p.Digits(1)
      << " in y (tolerance " << p.Tolerance(0) << ")\n";
  const GID again = g.Points().AddNew({25 + 0.4 * p.Epsilon(0), 10});
  out << "  adding (25 + 0.4 eps, 10) finds point " << again << ": equal under the precision\n";

  v7::UsageList usage;
  doc.ContainerManager().GetUsageOf(ids::Points, usage);
  out << "  the toe, point 4, is used by:";
  for (const auto& u : usage[4])
    out << " " << str::to_utf8(doc.ContainerManager().GetContainer(u.container)->Name()) << "["
        << u.record << "]";
  out << "\n  region 1's edges are lines";
  for (GID l : g.Regions().RegionLineIDs(1)) out << " " << l;
  out << "\n";
  const surface::IsGroundSurfaceRegion ground(doc, v7::AnalysisKind::Hydro);
  out << "  ground-surface regions for a seepage analysis:";
  for (GID r = 1; r <= g.Regions().Size(); ++r)
    if (ground(r)) out << " " << r;
  out << "\n";

  Mesh2D& mesh = g.Mesh();
  AddMesh(mesh);
  std::vector<gtl::status> problems;
  mesh.Validate(problems);
  for (const auto& s : problems) std::cerr << "demo: " << s.message_utf8() << "\n";
  GaussPoint2D gauss;
  const gtl::status numbered = gauss.Init(mesh.Nodes(), mesh.Elements());
  if (!problems.empty() || !numbered.succeeded()) return false;
  out << "Mesh: " << mesh.Nodes().size() << " nodes, " << mesh.Elements().size()
      << " quadrilaterals, " << gauss.Size() << " Gauss points.\n";
  for (auto [e, k] : {std::pair<std::uint32_t, std::uint32_t>{1, 1}, {5, 9}}) {
    const GID id = gauss.GetGaussPointID(e, k);
    const Point3D at = gauss.GetCoord(id);
    double xy[4][2], r = 0, s = 0;
    const int corners = mesh.ElemCorners(static_cast<std::int32_t>(e), xy);
    const int found = iGlobal_To_Local_Coords(r, s, at.x, at.y, xy, corners);
    out << "  Gauss point " << id << " (element " << e << ", point " << k << ") at ("
        << Fixed(at.x, 4) << ", " << Fixed(at.y, 4) << "); inverted to r = " << Fixed(r, 6)
        << ", s = " << Fixed(s, 6) << (found ? "" : " (failed)") << "\n";
    if (!found) return false;
  }
  return true;
}

const DemoStepRegistrar geometry(400, "Geometry: a slope, its precision and its mesh", &ShowGeometry);

}  // namespace
}  // namespace qvdoc
