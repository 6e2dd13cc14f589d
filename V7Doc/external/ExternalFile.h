#pragma once
// An analysis's reference to an input file: the results of another analysis
// that it starts from (initial pore-water pressures, stresses, temperatures,
// ...). Each kind of file pairs an initial-condition option of the analysis
// with the result path in its input files; the pair is also given as path
// expressions of the object-container framework, which address the same two
// members of a live document ("doc::Analyses()[3].InitThermCondOption_").
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "V7Doc/analysis/ANALYSISTable.h"
#include "V7Doc/core/GID.h"
#include "V7Doc/files/DocumentPaths.h"

namespace v7 {

// The kinds of input file, one per initial-condition option that can name a
// file.
enum class ExternalFileType : std::int32_t {
  AirFlow = 0,            // initAirFlowCondOption_, pathAirFlow
  DynamicStress = 1,      // dynStressOption_, pathStress
  VolChangePWPStart = 2,  // initVolChangePWPCondOption_, pathPWP
  VolChangePWPFinal = 3,  // finalPWPCondOption_, pathPWPFinal
  PWPChange = 4,          // transPWPCondOption_, pathPWPChange
  Thermal = 5,            // InitThermCondOption_, pathThermo
  PWP = 6,                // InitPWPCondOption_ (GetStabPWPCondOption() of a stability analysis), pathPWP
  Concentration = 7,      // initConcentrationCondOption_, pathConc
  HydroResult = 8,        // hydroResultCondOption_, pathHydro
  Particle = 9,           // initParticleCondOption_, pathPart
  InitialStress = 10,     // initStressOption_, pathStress
};
inline constexpr int kNumExternalFileTypes = 11;

class ExternalFile {
 public:
  using ResultPath = v7qvi::analysis::ResultPath;
  // The placeholder of the analysis in the path expressions.
  static constexpr std::wstring_view kIndexPlaceholder = doc::kIndexPlaceholder;

  ExternalFile(ANALYSISTable& analyses, GID anlsId, ExternalFileType type)
      : analyses_(&analyses), anlsId_(anlsId), type_(type) {}

  GID AnlsId() const { return anlsId_; }
  ExternalFileType ExtType() const { return type_; }

  // The option and the result path as path expressions, the placeholder
  // replaced by the analysis's ID.
  std::pair<std::wstring, std::wstring> GetValues() const;
  // The same with the placeholder left in place.
  static std::pair<std::wstring, std::wstring> Patterns(ExternalFileType type, AnalysisKind kind);

  // True when the analysis exists and its option selects a file ("Other").
  bool InUse() const;
  // Whether the option may be "None". It may, except for the files that
  // complete another: the final and the changed pore-water pressures of a
  // volume-change analysis, which has no meaning without them, and the
  // seepage results that carry a transport analysis.
  bool IsNoneAllowed() const;
  // The option (InitialCondOption::Undefined when the analysis does not
  // exist), and its address (null then).
  InitialCondOption NormInitialCondOption() const;
  InitialCondOption* PtrInitialCondOption();
  // The result path (an empty one when the analysis does not exist), and its
  // address (null then).
  const ResultPath& NormResultPath() const;
  ResultPath* PtrResultPath();
  // True when the file is the parent analysis's first step rather than its
  // last: the starting pore-water pressures of a volume-change analysis
  // whose source is its parent, whose final pressures come from the
  // parent's last step.
  bool UseParentFirstStep() const;

 private:
  const ANALYSIS* Record() const;
  ANALYSIS* Record();

  ANALYSISTable* analyses_;
  GID anlsId_;
  ExternalFileType type_;
};

}  // namespace v7
