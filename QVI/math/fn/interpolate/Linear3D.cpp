#include "QVI/math/fn/interpolate/Linear3D.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <deque>
#include <string>

extern "C" {
#include <libqhull_r/qhull_ra.h>
}

#include "QVI/math/fn/interpolate/ScatteredPoints.h"
#include "QVI/qvi/Markers.h"

namespace math::fn::interpolate {
namespace {
constexpr unsigned kMsgTooFew = 33571;
constexpr unsigned kMsgCollinear = 33572;
constexpr unsigned kMsgQhull = 33573;

// A query on an edge or a corner gives weights that are zero up to rounding;
// this much below zero still counts as inside.
constexpr double kInsideTolerance = 1e-12;

// Qhull writes its diagnostics to a stream: an anonymous temporary file whose
// first lines become the text of the status.
class QhullErrorFile {
 public:
  QhullErrorFile() : file_(std::tmpfile()) {
#ifdef _WIN32
    if (!file_) file_ = std::fopen("NUL", "w+");
#else
    if (!file_) file_ = std::fopen("/dev/null", "w+");
#endif
  }
  ~QhullErrorFile() {
    if (file_) std::fclose(file_);
  }
  QhullErrorFile(const QhullErrorFile&) = delete;
  QhullErrorFile& operator=(const QhullErrorFile&) = delete;
  FILE* get() const { return file_; }
  std::string Text() const {
    std::string text;
    if (!file_) return text;
    std::fflush(file_);
    std::rewind(file_);
    char buf[256];
    while (text.size() < 400 && std::fgets(buf, sizeof buf, file_)) text += buf;
    while (!text.empty() && (text.back() == '\n' || text.back() == ' ')) text.pop_back();
    for (char& c : text)
      if (c == '\n') c = ' ';
    return text;
  }

 private:
  FILE* file_;
};
}  // namespace

void Linear3D::Clear() {
  vertices_.clear();
  triangles_.clear();
  gridStart_.clear();
  gnx_ = gny_ = 0;
}

gtl::status Linear3D::SetPoints(const std::vector<Point3D>& points) {
  Clear();
  if (gtl::status s = MergeCoincidentPoints(points, vertices_); s.failed()) return s;
  if (vertices_.size() < 3) {
    const std::size_t n = vertices_.size();
    vertices_.clear();
    return gtl::status::error(kMsgTooFew, 3, n);
  }
  if (AllCollinear(vertices_)) {
    const std::size_t n = vertices_.size();
    vertices_.clear();
    return gtl::status::error(kMsgCollinear, n);
  }
  if (gtl::status s = Triangulate(); s.failed()) {
    Clear();
    return s;
  }
  BuildNeighbours();
  BuildStartGrid();
  return {};
}

gtl::status Linear3D::Triangulate() {
  // Centred and scaled to about unit size: Qhull's tolerances are relative to
  // the coordinates' magnitude, and survey coordinates sit far from zero.
  const Extent box = ExtentOf(vertices_);
  const double cx = 0.5 * (box.xmin + box.xmax), cy = 0.5 * (box.ymin + box.ymax);
  const double scale = std::max(box.Width(), box.Height());
  std::vector<coordT> coords(2 * vertices_.size());
  for (std::size_t i = 0; i < vertices_.size(); ++i) {
    coords[2 * i] = (vertices_[i].x - cx) / scale;
    coords[2 * i + 1] = (vertices_[i].y - cy) / scale;
  }

  QhullErrorFile err;
  qhT qhStorage;
  qhT* qh = &qhStorage;
  qh_zero(qh, err.get());
  // d: Delaunay; Qt: triangulated output; Qbb: scale the lifted coordinate;
  // Qc: keep coplanar points with a facet; Qz: a point at infinity, which
  // steadies cocircular input such as grids.
  char command[] = "qhull d Qt Qbb Qc Qz Q12";
  // qh_new_qhull sets its own setjmp: every Qhull error returns here as a
  // non-zero code rather than leaving the process.
  const int code = qh_new_qhull(qh, 2, static_cast<int>(vertices_.size()), coords.data(), False,
                                command, nullptr, err.get());
  gtl::status result;
  if (code != 0) {
    result = gtl::status::error(kMsgQhull, vertices_.size(), code, err.Text());
  } else {
    facetT* facet;
    vertexT* vertex;
    vertexT** vertexp;
    FORALLfacets {
      if (facet->upperdelaunay || !facet->simplicial) continue;
      Tri t{};
      int k = 0;
      bool valid = true;
      FOREACHvertex_(facet->vertices) {
        const int id = qh_pointid(qh, vertex->point);
        if (k >= 3 || id < 0 || id >= static_cast<int>(vertices_.size())) {
          valid = false;
          break;
        }
        t.v[k++] = id;
      }
      if (!valid || k != 3) continue;
      triangles_.push_back(t);
    }
  }
  qh_freeqhull(qh, !qh_ALL);
  int curlong = 0, totlong = 0;
  qh_memfreeshort(qh, &curlong, &totlong);
  if (result.failed()) return result;
  if (triangles_.empty()) return gtl::status::error(kMsgCollinear, vertices_.size());

  for (Tri& t : triangles_) {
    const Point3D* p[3] = {&vertices_[t.v[0]], &vertices_[t.v[1]], &vertices_[t.v[2]]};
    double ax = p[1]->x - p[0]->x, ay = p[1]->y - p[0]->y;
    double bx = p[2]->x - p[0]->x, by = p[2]->y - p[0]->y;
    double det = ax * by - ay * bx;
    if (det < 0) {  // counter-clockwise corners
      std::swap(t.v[1], t.v[2]);
      std::swap(ax, bx), std::swap(ay, by);
      det = -det;
    }
    const double size2 = std::max({ax * ax + ay * ay, bx * bx + by * by, 1e-300});
    t.degenerate = !(det > 1e-13 * size2);
    t.ox = p[0]->x, t.oy = p[0]->y;
    if (!t.degenerate) {
      t.inv[0] = by / det, t.inv[1] = -bx / det;
      t.inv[2] = -ay / det, t.inv[3] = ax / det;
    }
  }
  return {};
}

void Linear3D::BuildNeighbours() {
  // Each interior edge is shared by two triangles: sort the edges by their
  // corner pair and pair up equal neighbours.
  struct Edge {
    std::int32_t a, b, tri, side;
  };
  std::vector<Edge> edges;
  edges.reserve(3 * triangles_.size());
  for (std::size_t t = 0; t < triangles_.size(); ++t) {
    Tri& tr = triangles_[t];
    for (int i = 0; i < 3; ++i) {
      tr.nb[i] = -1;
      const std::int32_t a = tr.v[(i + 1) % 3], b = tr.v[(i + 2) % 3];
      edges.push_back({std::min(a, b), std::max(a, b), static_cast<std::int32_t>(t), i});
    }
  }
  std::sort(edges.begin(), edges.end(),
            [](const Edge& l, const Edge& r) { return l.a < r.a || (l.a == r.a && l.b < r.b); });
  for (std::size_t i = 0; i + 1 < edges.size(); ++i) {
    const Edge& e = edges[i];
    const Edge& f = edges[i + 1];
    if (e.a == f.a && e.b == f.b) {
      triangles_[e.tri].nb[e.side] = f.tri;
      triangles_[f.tri].nb[f.side] = e.tri;
      ++i;
    }
  }
}

void Linear3D::BuildStartGrid() {
  const Extent box = ExtentOf(vertices_);
  // About one triangle per cell, cells as square as the extent allows: the
  // walk from a cell's triangle then takes one or two steps.
  const double w = std::max(box.Width(), 1e-300), h = std::max(box.Height(), 1e-300);
  const double cells = std::max(1.0, static_cast<double>(triangles_.size()));
  const double side = std::sqrt(w * h / cells);
  gnx_ = static_cast<std::int32_t>(std::clamp(std::ceil(w / side), 1.0, 4096.0));
  gny_ = static_cast<std::int32_t>(std::clamp(std::ceil(h / side), 1.0, 4096.0));
  gx0_ = box.xmin, gy0_ = box.ymin, gdx_ = w / gnx_, gdy_ = h / gny_;
  gridStart_.assign(static_cast<std::size_t>(gnx_) * gny_, -1);
  std::deque<std::int32_t> frontier;
  for (std::size_t t = 0; t < triangles_.size(); ++t) {
    const Tri& tr = triangles_[t];
    if (tr.degenerate) continue;
    const double x = (vertices_[tr.v[0]].x + vertices_[tr.v[1]].x + vertices_[tr.v[2]].x) / 3;
    const double y = (vertices_[tr.v[0]].y + vertices_[tr.v[1]].y + vertices_[tr.v[2]].y) / 3;
    const auto i = std::clamp(static_cast<std::int32_t>((x - gx0_) / gdx_), 0, gnx_ - 1);
    const auto j = std::clamp(static_cast<std::int32_t>((y - gy0_) / gdy_), 0, gny_ - 1);
    std::int32_t& cell = gridStart_[static_cast<std::size_t>(j) * gnx_ + i];
    if (cell < 0) frontier.push_back(j * gnx_ + i);
    cell = static_cast<std::int32_t>(t);
  }
  // Empty cells take the triangle of the nearest filled cell (breadth first).
  while (!frontier.empty()) {
    const std::int32_t c = frontier.front();
    frontier.pop_front();
    const std::int32_t i = c % gnx_, j = c / gnx_;
    const std::int32_t next[4][2] = {{i - 1, j}, {i + 1, j}, {i, j - 1}, {i, j + 1}};
    for (const auto& n : next) {
      if (n[0] < 0 || n[0] >= gnx_ || n[1] < 0 || n[1] >= gny_) continue;
      std::int32_t& cell = gridStart_[static_cast<std::size_t>(n[1]) * gnx_ + n[0]];
      if (cell < 0) {
        cell = gridStart_[c];
        frontier.push_back(n[1] * gnx_ + n[0]);
      }
    }
  }
}

void Linear3D::Weights(const Tri& t, double x, double y, double w[3]) const {
  const double dx = x - t.ox, dy = y - t.oy;
  w[1] = t.inv[0] * dx + t.inv[1] * dy;
  w[2] = t.inv[2] * dx + t.inv[3] * dy;
  w[0] = 1.0 - w[1] - w[2];
}

std::int32_t Linear3D::StartTriangle(double x, double y) const {
  const double fi = std::clamp((x - gx0_) / gdx_, 0.0, static_cast<double>(gnx_ - 1));
  const double fj = std::clamp((y - gy0_) / gdy_, 0.0, static_cast<double>(gny_ - 1));
  return gridStart_[static_cast<std::size_t>(fj) * gnx_ + static_cast<std::size_t>(fi)];
}

Linear3D::Location Linear3D::Scan(double x, double y) const {
  Location best;
  double bestMin = -kInsideTolerance;
  for (std::size_t t = 0; t < triangles_.size(); ++t) {
    if (triangles_[t].degenerate) continue;
    double w[3];
    Weights(triangles_[t], x, y, w);
    const double m = std::min({w[0], w[1], w[2]});
    if (m >= bestMin) {
      bestMin = m;
      best.triangle = static_cast<std::int32_t>(t);
      std::copy(w, w + 3, best.weight);
      if (m >= 0) break;
    }
  }
  return best;
}

Linear3D::Location Linear3D::Locate(double x, double y) const {
  if (triangles_.empty() || gridStart_.empty() || !std::isfinite(x) || !std::isfinite(y)) return {};
  std::int32_t t = StartTriangle(x, y);
  // A walk in a Delaunay triangulation always ends; the bound only guards
  // against a triangulation that Qhull had to repair.
  const std::size_t maxSteps = triangles_.size() + 16;
  for (std::size_t step = 0; t >= 0 && step < maxSteps; ++step) {
    const Tri& tr = triangles_[t];
    if (tr.degenerate) break;
    Location loc;
    Weights(tr, x, y, loc.weight);
    int side = 0;
    for (int i = 1; i < 3; ++i)
      if (loc.weight[i] < loc.weight[side]) side = i;
    if (loc.weight[side] >= -kInsideTolerance) {
      loc.triangle = t;
      return loc;
    }
    // Beyond a hull edge: the hull is convex, so the query is outside it.
    if (tr.nb[side] < 0) return {};
    t = tr.nb[side];
  }
  return Scan(x, y);
}

double Linear3D::operator()(double x, double y) const {
  const Location loc = Locate(x, y);
  if (loc.triangle < 0) return qvi::kNoValue;
  const Tri& t = triangles_[loc.triangle];
  return loc.weight[0] * vertices_[t.v[0]].z + loc.weight[1] * vertices_[t.v[1]].z +
         loc.weight[2] * vertices_[t.v[2]].z;
}

}  // namespace math::fn::interpolate
