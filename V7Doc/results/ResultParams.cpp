#include "V7Doc/results/ResultParams.h"

#include "V7Doc/qvifile/ResultFileNames.h"

namespace v7::result {

std::vector<DataParamType> params::Slip(bool bProbabilistic) {
  using P = DataParamType;
  std::vector<P> cols = {P::SlipNum,         P::SlipCenterX,      P::SlipCenterY,
                         P::SlipRadius,      P::SlipFOS,          P::FOSByMoment,
                         P::FOSByForce,      P::Lambda,           P::ResistingMoment,
                         P::ActivatingMoment, P::ResistingForce,  P::ActivatingForce,
                         P::SlipVolume,      P::SlipMass};
  if (bProbabilistic)
    cols.insert(cols.end(), {P::SlipFOSMean, P::SlipFOSMin, P::SlipFOSMax, P::SlipFOSStdDev,
                             P::SlipReliabilityIndex, P::SlipProbOfFailure});
  return cols;
}

particle::DataTable particle::Table(unsigned particleID) {
  using P = DataParamType;
  DataTable t;
  t.file = qvifile::result::FNameExtHistoryParticle(particleID);
  t.name = t.file.substr(0, t.file.size() - 4);  // less ".csv"
  t.columns = {P::Time,       P::X,          P::Y,
               P::XVelocity,  P::YVelocity,  P::XYVelocity,
               P::FlowPathTravelDistance, P::FlowPathTravelTime, P::FlowPathAverageSpeed};
  return t;
}

}  // namespace v7::result
