#pragma once
// The persistence declarations of the materials subsystem's records. The
// tables take these collection paths under the document root:
//   "hMatlMem"           Materials[Material]               MATL
//   "boundaryConditions" BCs[BC]                           BC
//   "climateData"        ClimateDataSets[ClimateDataSet]   CLIMATE_INFO
//   "hThermoMem"         ThermoSyphons[ThermoSyphon]       THERMOSYPHON_INFO
//   "hPipeSurfMem"       ConvectiveSurfaces[ConvectiveSurface]  PIPESURF_INFO
//   "anlsAssocs"         Contexts[Context]                 Associations
#include "OC/Schema.h"
#include "V7Doc/core/ContainerIDs.h"
#include "V7Doc/document/Associations.h"
#include "V7Doc/materials/BC.h"
#include "V7Doc/materials/Climate.h"
#include "V7Doc/materials/MATL.h"
#include "V7Doc/materials/ThermalSurfaces.h"

namespace oc {
template <> const RecordType& TypeOf<v7::ExternalMatlModel>();
template <> const RecordType& TypeOf<v7::HYDRAULIC_PROPERTIES>();
template <> const RecordType& TypeOf<v7::AIR_PROPERTIES>();
template <> const RecordType& TypeOf<v7::THERMAL_PROPERTIES>();
template <> const RecordType& TypeOf<v7::CONTAM_PROPERTIES>();
template <> const RecordType& TypeOf<v7::GAS_PROPERTIES>();
template <> const RecordType& TypeOf<v7::STRESS_PROPERTIES>();
template <> const RecordType& TypeOf<v7::MATL>();
template <> const RecordType& TypeOf<v7::BC>();
template <> const RecordType& TypeOf<v7::CLIMATEENTRY>();
template <> const RecordType& TypeOf<v7::CLIMATEMODIFIERS>();
template <> const RecordType& TypeOf<v7::CLIMATE_INFO>();
template <> const RecordType& TypeOf<v7::THERMOSYPHON_INFO>();
template <> const RecordType& TypeOf<v7::PIPESURF_INFO>();
template <> const RecordType& TypeOf<v7::RegionUsesMaterial>();
template <> const RecordType& TypeOf<v7::GeometryUsesBC>();
template <> const RecordType& TypeOf<v7::Associations>();
}  // namespace oc
