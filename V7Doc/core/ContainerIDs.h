#pragma once
// Fixed container GIDs of the document's collections. They live in the core
// because records of every subsystem name them: a member that holds the
// number of a record of another collection declares which one by its GID.
#include "V7Doc/core/GID.h"

namespace v7::container {
inline constexpr GID Points = 1, Lines = 2, Regions = 3, Materials = 4, BCs = 5,
                     StructuralBarAttributes = 6, StructuralBeamAttributes = 7, Analyses = 8,
                     Contexts = 10, FirstFunctionList = 11, LastFunctionList = 51, CutLines = 52,
                     ResultGraphs = 53, ResultContours = 54, MeshConstraints = 55, Surface = 56,
                     ClimateData = 57, Thermosyphons = 58, ConvectiveSurfaces = 59, Unnamed = 60,
                     SoluteItems = 61, ShakeItems = 62, HydroItems = 63, DeformItems = 64,
                     StabItems = 65, ThermoItems = 66, EvapoItems = 67, Func3Ds = 68,
                     ResultSets = 69, AnlsIDBySkTextID = 70, Document = 73;
// The one GID of the function-list band that holds no list.
inline constexpr GID UnusedFunctionList = 21;

// The function lists, by the kind of function they hold.
inline constexpr GID HydKFns = 11, TempKTempFns = 12, DiffFns = 13, VolWCFns = 14, UnfWCFns = 15,
                     AdsorpFns = 16, StrengthFns = 17, HydBFns = 18, HydModFns = 19, ConcBFns = 20,
                     ThermKFns = 22, VSpecHeatFns = 23, LeafAIFns = 24, PlantMLFns = 25,
                     RootDepthFns = 26, ThermBFns = 27, ThermModFns = 28, GasBFns = 29,
                     GasModFns = 30, StressBFns = 31, CyclicFns = 32, DynPWPFns = 33, GRedFns = 34,
                     DampRatioFns = 35, KaCorrFns = 36, KsCorrFns = 37, MFSPWPFns = 38,
                     AnisoStrFns = 39, ProbFns = 40, WeightFns = 41, CohesionFns = 42, PhiFns = 43,
                     EModFns = 44, GmaxFns = 45, KRedFns = 46, TotalEModFns = 47, TotalCFns = 48,
                     RecModulusFns = 49, AirKFns = 50, AirBFns = 51;
}  // namespace v7::container
