#pragma once
// View and display settings stored with the document.
#include <string>
#include <vector>

#include "V7Doc/view/ViewState.h"

namespace v7::v7qvi {

// What the user last chose to show.
struct ViewPreferences {
  bool bShowPoints = true;
  bool bShowMesh = true;
  bool bShowAxes = true;
  double fFontSize = 8.0;  // points
  std::vector<VectorDef> vVectorDefs;  // "VectorDefs[VectorDef]"
  friend bool operator==(const ViewPreferences&, const ViewPreferences&) = default;
};

// Page and print layout. The defaults describe a landscape US-letter sheet
// (11 in x 8.5 in) less a quarter-inch border on every side, 10.5 in x 8.0 in,
// and a margin of 2.5 cm kept in inches: 2.5 / 2.54 = 1 / 1.016.
struct DisplaySettings {
  double fPageWidth = 10.5;               // in
  double fPageHeight = 8.0;               // in
  double fMargin = 0.984251968503937;     // in (2.5 cm)
  friend bool operator==(const DisplaySettings&, const DisplaySettings&) = default;
};

// The settings a results document starts from.
ViewPreferences& DefaultResultViewPreferences();

}  // namespace v7::v7qvi
