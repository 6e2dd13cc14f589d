#pragma once
// Column lists of result tables: which quantities a table holds, in order.
#include <string>
#include <vector>

#include "V7Doc/core/GID.h"
#include "V7Doc/results/DataParamType.h"

namespace v7::result {

namespace params {

// The columns of the slip-surface table ("slip_surface.csv"), one row per
// trial slip surface:
//   SlipNum, SlipCenterX, SlipCenterY, SlipRadius, SlipFOS, FOSByMoment,
//   FOSByForce, Lambda, ResistingMoment, ActivatingMoment, ResistingForce,
//   ActivatingForce, SlipVolume, SlipMass
// The centre and radius describe the circle of a grid-and-radius search
// (no value for a non-circular surface); FOSByMoment and FOSByForce are the
// two factors of a general limit-equilibrium solution at the table's Lambda
// (Fredlund and Krahn 1977), equal to SlipFOS where they agree. With
// `bProbabilistic` the statistics of a Monte Carlo analysis follow:
//   SlipFOSMean, SlipFOSMin, SlipFOSMax, SlipFOSStdDev,
//   SlipReliabilityIndex, SlipProbOfFailure
std::vector<DataParamType> Slip(bool bProbabilistic);

}  // namespace params

namespace particle {

// The data table of one tracked particle: its file and its columns.
struct DataTable {
  std::wstring name;                   // the table's name, "particle_<GID>"
  std::wstring file;                   // its file in the result folder, "particle_<GID>.csv"
  std::vector<DataParamType> columns;  // one row per saved time, in time order
};

// The history of particle `particleID` along its flow path: where it is
// (Time, X, Y), how fast it moves (XVelocity, YVelocity, XYVelocity), how far
// and how long it has travelled (FlowPathTravelDistance,
// FlowPathTravelTime) and the average speed so far (FlowPathAverageSpeed,
// distance over time).
DataTable Table(unsigned particleID);

}  // namespace particle

}  // namespace v7::result
