#pragma once
// View and display settings stored with the document.
#include <string>
#include <vector>

#include "QVI/qvi/Markers.h"
#include "V7Doc/view/ViewState.h"

namespace v7::v7qvi {

// What the user last chose to show.
struct ViewPreferences {
  bool bShowPoints = true;
  bool bShowMesh = true;
  bool bShowAxes = true;
  double fFontSize = 8.0;  // points
  bool bShowMeshLabels = false;          // "MeshLabels": node and element numbers
  bool bMaterialColor = true;            // "MaterialColor": regions filled in their material's colour
  bool bShowGrid = false;                // "ShowGrid"
  bool bSnapToGrid = false;              // "SnapToGrid"
  double fXGridSpacing = qvi::kNoValue;  // "XGridSpacing", engineering units; no value: chosen from the model's size
  double fYGridSpacing = qvi::kNoValue;  // "YGridSpacing"
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
