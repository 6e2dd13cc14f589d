#pragma once
// Checks of the materials and loads a stability analysis uses. They never
// fail: they adjust what they must and append statuses to the caller's list.
#include <vector>

#include "QVI/gtl/status.h"
#include "V7Doc/core/GID.h"

namespace v7 {

class MATLTable;
class ANALYSISTable;
class QVDocument;

// The materials (ascending GIDs) that analysis `analysis` uses, found through
// the usage query of the materials' container manager: a region's own
// material unless the analysis's context maps the region to another, the
// context's region materials, and the materials the analysis's own data
// names (water tables). Empty for an unregistered table.
std::vector<GID> MaterialsUsedByAnalysis(const MATLTable& materials, GID analysis);

// For each material the analysis uses: "NoStrength" becomes "None" (status
// 23075 with the material's and the analysis's names); then "MohrCoulomb" or
// "UndrainedPhiZero" whose unit weight or cohesion (or, for "MohrCoulomb"
// only, friction angle) is given as a function becomes "MohrCoulombSpatial"
// (status 23073 with the material's name). An unknown analysis is skipped.
void TestStabMaterialModels(MATLTable& materials, const ANALYSISTable& analyses, GID analysis,
                            std::vector<gtl::status>& statuses);

// For a stability analysis with surcharge loads and piezometric lines: a
// surcharge load whose outline dips below a piezometric line is weighed as a
// total weight with the water above it left out (warning 35000), and one
// lighter than water there would float (warning 35001). A surcharge point
// that does not exist is reported (35002). Other analyses are skipped.
void TestSurchargeLoadForWTWeight(const QVDocument& document, GID analysis,
                                  std::vector<gtl::status>& statuses);

}  // namespace v7
