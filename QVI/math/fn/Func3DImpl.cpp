#include "QVI/math/fn/Func3DImpl.h"

#include "QVI/qvi/Markers.h"

namespace math::fn {

template <class Alg>
gtl::status Func3DImplAlg<Alg>::SetPoints(const std::vector<Point3D>& points) {
  lastError_ = alg_.SetPoints(points);
  return lastError_;
}

template <class Alg>
double Func3DImplAlg<Alg>::Calculate(double x, double y) const {
  return alg_(x, y);
}

template class Func3DImplAlg<interpolate::KrigSurface>;
template class Func3DImplAlg<interpolate::Linear3D>;

double Func3DMissing::Calculate(double, double) const { return qvi::kNoValue; }

}  // namespace math::fn
