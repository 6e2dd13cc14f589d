#pragma once
// The surfaces a three-dimensional function of the document evaluates
// through: a kriging surface, a linear surface over a triangulation, and the
// stand-by surface used while none can be built.
#include <memory>
#include <vector>

#include "QVI/gtl/status.h"
#include "QVI/math/fn/I3D.h"
#include "QVI/math/fn/interpolate/KrigSurface.h"
#include "QVI/math/fn/interpolate/Linear3D.h"

namespace math::fn {

// Base of the surfaces: keeps the status of the last fit.
class Func3DImpl : public I3D {
 public:
  gtl::status LastError() const override { return lastError_; }

 protected:
  gtl::status lastError_;
};

// A surface computed by algorithm Alg (interpolate::KrigSurface or
// interpolate::Linear3D), which offers SetPoints and operator()(x, y).
template <class Alg>
class Func3DImplAlg final : public Func3DImpl {
 public:
  gtl::status SetPoints(const std::vector<Point3D>& points) override;
  double Calculate(double x, double y) const override;
  // The algorithm, for its own options and results (kriging variance,
  // triangles).
  Alg& Algorithm() { return alg_; }
  const Alg& Algorithm() const { return alg_; }

 private:
  Alg alg_;
};

extern template class Func3DImplAlg<interpolate::KrigSurface>;
extern template class Func3DImplAlg<interpolate::Linear3D>;

// No surface: no value anywhere. It carries the reason (`why`) that no surface
// could be built.
class Func3DMissing final : public Func3DImpl {
 public:
  explicit Func3DMissing(gtl::status why = {}) { lastError_ = std::move(why); }
  gtl::status SetPoints(const std::vector<Point3D>&) override { return lastError_; }
  double Calculate(double x, double y) const override;
};

}  // namespace math::fn
