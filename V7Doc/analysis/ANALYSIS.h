#pragma once
// The analysis record: one analysis of the project, its kind, method and
// parent. Its GID in the "Analyses" table is the analysis ID.
#include <cstdint>
#include <string>

#include "QVI/qvi/Markers.h"
#include "V7Doc/core/GID.h"

namespace v7 {

// The solver family of an analysis. kNone marks a deleted record.
enum class AnalysisKind : std::int32_t {
  Solute = 0,
  Shake = 1,
  Hydro = 2,
  Deform = 3,
  Stab = 4,
  Thermo = 5,
  Evapo = 6,
  None = qvi::kNone,
};

struct ANALYSIS {
  std::wstring name;
  std::wstring description;
  AnalysisKind kind = AnalysisKind::Hydro;
  GID parent = 0;

  // Resets the record to the defaults of `kind`.
  void DataInit(AnalysisKind k) {
    *this = ANALYSIS{};
    kind = k;
  }

  friend bool operator==(const ANALYSIS&, const ANALYSIS&) = default;
};

inline bool IsMissing(const ANALYSIS& a) { return a.kind == AnalysisKind::None; }
inline void SetMissing(ANALYSIS& a) { a.DataInit(AnalysisKind::None); }

}  // namespace v7
