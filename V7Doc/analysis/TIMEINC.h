#pragma once
// One time step of an analysis.
#include <cstdint>

namespace v7 {

struct TIMEINC {
  double fIncSize = 0;    // the step's increment of time
  double fElapsed = 0;    // elapsed time at the end of the step
  std::int32_t nSave = 0;  // save marker: non-zero when the step's results are saved

  friend bool operator==(const TIMEINC&, const TIMEINC&) = default;
};

}  // namespace v7
