#pragma once
// The in-memory project: every record table of the document, registered with
// its container manager under a fixed GID and collection name.
#include <array>
#include <memory>
#include <map>
#include <string>
#include <vector>

#include "QVI/gtl/handle.h"
#include "V7Doc/analysis/ANALYSISTable.h"
#include "V7Doc/analysis/AnalysisKindData.h"
#include "V7Doc/analysis/CurrentAnalysis.h"
#include "V7Doc/document/Associations.h"
#include "V7Doc/document/FileInfo.h"
#include "V7Doc/document/KeptTexts.h"
#include "V7Doc/core/ContainerIDs.h"
#include "V7Doc/core/QVContainerAssoc.h"
#include "V7Doc/core/QVContainerManager.h"
#include "V7Doc/functions/Func2D.h"
#include "V7Doc/functions/Func3D.h"
#include "V7Doc/geometry/Geometry.h"
#include "V7Doc/geometry/GeometrySettings.h"
#include "V7Doc/geometry/MeshConstraint.h"
#include "V7Doc/materials/BC.h"
#include "V7Doc/materials/Climate.h"
#include "V7Doc/materials/MATLTable.h"
#include "V7Doc/materials/StructuralAttributes.h"
#include "V7Doc/materials/ThermalSurfaces.h"
#include "V7Doc/view/EngSettings.h"
#include "V7Doc/files/UpgradeList.h"
#include "V7Doc/results/CurrentSlipSurface.h"
#include "V7Doc/results/ResultTables.h"
#include "V7Doc/view/Sketch.h"
#include "V7Doc/view/UserOptions.h"
#include "V7Doc/view/ViewPreferences.h"
#include "V7Doc/view/ViewState.h"

namespace v7 {
class QVDocument;
}
namespace oc {
class RecordType;
template <class T>
const RecordType& TypeOf();
}  // namespace oc

namespace v7 {

// The collection name of each function list (11 to 51); empty for 21.
const wchar_t* FunctionListName(GID list);

// The data holder: the container manager and every collection.
class QVDocData : public gtl::handle_ref_counter {
 public:
  QVDocData() = default;
  QVDocData(const QVDocData&) = delete;
  QVDocData& operator=(const QVDocData&) = delete;
  ~QVDocData() override = default;

  // Resets to an empty initialised project.
  virtual bool DataInit() = 0;
  // Empties every collection; the document is then not initialised.
  virtual bool DataFree() = 0;
  virtual bool IsInitialized() const { return bInitialized_; }
  virtual void OnDataChanged() {}
  virtual void OnIDUpdate(GID container, const std::vector<GID>& renumber) = 0;
  virtual void OnDelete(GID container, const std::vector<GID>& ids) = 0;
  virtual void OnAdd(GID container, const std::vector<GID>& ids) = 0;

  QVContainerManager& ContainerManager() { return containerManager_; }
  const QVContainerManager& ContainerManager() const { return containerManager_; }

  Geom::Geometry& Geometry() { return geometry_; }
  const Geom::Geometry& Geometry() const { return geometry_; }
  ANALYSISTable& Analyses() { return analyses_; }
  const ANALYSISTable& Analyses() const { return analyses_; }
  AssociationsTable& Contexts() { return contexts_; }
  // The function list with container GID `list` (11..51, not 21); null else.
  Func2DTable* FunctionList(GID list);
  const Func2DTable* FunctionList(GID list) const;

  const AssociationsTable& Contexts() const { return contexts_; }
  MATLTable& Materials() { return materials_; }
  const MATLTable& Materials() const { return materials_; }
  BCTable& BCs() { return bcs_; }
  const BCTable& BCs() const { return bcs_; }
  ClimateDataTable& ClimateData() { return climateData_; }
  const ClimateDataTable& ClimateData() const { return climateData_; }
  ThermosyphonTable& Thermosyphons() { return thermosyphons_; }
  const ThermosyphonTable& Thermosyphons() const { return thermosyphons_; }
  ConvectiveSurfaceTable& ConvectiveSurfaces() { return convectiveSurfaces_; }
  const ConvectiveSurfaceTable& ConvectiveSurfaces() const { return convectiveSurfaces_; }
  CutLineTable& CutLines() { return cutLines_; }
  ResultGraphTable& ResultGraphs() { return resultGraphs_; }
  ResultContourTable& ResultContours() { return resultContours_; }
  ResultSetTable& ResultSets() { return resultSets_; }
  Func3DTable& Func3Ds() { return func3Ds_; }
  const Func3DTable& Func3Ds() const { return func3Ds_; }

  AnalysisDataByAnalysisID<SoluteData>& SoluteItems() { return soluteItems_; }
  AnalysisDataByAnalysisID<ShakeData>& ShakeItems() { return shakeItems_; }
  AnalysisDataByAnalysisID<HydroData>& HydroItems() { return hydroItems_; }
  AnalysisDataByAnalysisID<DeformData>& DeformItems() { return deformItems_; }
  AnalysisDataByAnalysisID<StabData>& StabItems() { return stabItems_; }
  const AnalysisDataByAnalysisID<StabData>& StabItems() const { return stabItems_; }
  AnalysisDataByAnalysisID<ThermoData>& ThermoItems() { return thermoItems_; }
  AnalysisDataByAnalysisID<EvapoData>& EvapoItems() { return evapoItems_; }

  v7qvi::ViewPreferences& ViewPreferences() { return view_; }
  v7qvi::DisplaySettings& DisplaySettings() { return display_; }
  // Sketch text ID -> the analysis that owns it exclusively.
  QVContainerAssoc<GID>& ExclusiveAnlsIDBySkTextID() { return anlsIDBySkTextID_; }
  const QVContainerAssoc<GID>& ExclusiveAnlsIDBySkTextID() const { return anlsIDBySkTextID_; }
  EngSettings& Eng() { return eng_; }
  const EngSettings& Eng() const { return eng_; }
  StructuralBarAttributeTable& StructuralBarAttributes() { return structuralBarAttributes_; }
  StructuralBeamAttributeTable& StructuralBeamAttributes() { return structuralBeamAttributes_; }
  MeshConstraintTable& MeshConstraints() { return meshConstraints_; }

  v7qvi::LastViewed& LastViewed() { return lastViewed_; }
  v7qvi::ViewFont& ViewFont() { return viewFont_; }
  v7qvi::WindowPlacement& Window() { return window_; }
  // The user's own colours, offered beside the standard ones.
  std::vector<std::uint32_t>& CustomColors() { return customColors_; }
  FileInfo& FileInformation() { return fileInfo_; }
  const FileInfo& FileInformation() const { return fileInfo_; }
  v7qvi::GlobalUserOptions& UserOptions() { return userOptions_; }
  v7qvi::Sketch& Sketch() { return sketch_; }
  const v7qvi::Sketch& Sketch() const { return sketch_; }
  Geom::GeometryCommon& GeometryCommon() { return geometryCommon_; }
  Geom::GeometryPlane& Plane() { return plane_; }
  Geom::InfElemDef& InfElemDef() { return infElemDef_; }
  std::vector<Geom::PointLabel>& PointLabels() { return pointLabels_; }
  // The mesher's element edge length where no constraint sets one; the
  // no-value marker lets the mesher choose from the model's extent.
  double& MeshGlobalEdgeLength() { return meshGlobalEdgeLength_; }
  // Counts the meshes made of this geometry: results computed on an older
  // mesh version no longer fit the mesh.
  std::int32_t& MeshVersion() { return meshVersion_; }

 protected:
  // The persistence declaration of the document reaches every collection.
  friend const oc::RecordType& oc::TypeOf<QVDocument>();

  QVContainerManager containerManager_;
  v7qvi::ViewPreferences view_;
  EngSettings eng_;  // the project's units ("eng")
  v7qvi::DisplaySettings display_;
  // Session ID -> analysis ID; entry 0 always present and 0.
  std::vector<GID> sessions_{0};
  GID currentResultContour_ = 0;
  bool bInitialized_ = false;
  std::int32_t nSelection_ = qvi::kNone;
  // Entry i is i when analysis i exists, else 0 (refreshed by
  // OnUpdateCalculatedValues).
  std::vector<GID> validAnalyses_;
  std::vector<std::wstring> strings_;
  v7qvi::LastViewed lastViewed_;
  v7qvi::ViewFont viewFont_;
  v7qvi::WindowPlacement window_;
  std::vector<std::uint32_t> customColors_;
  FileInfo fileInfo_;
  v7qvi::GlobalUserOptions userOptions_;
  v7qvi::Sketch sketch_;
  Geom::GeometryCommon geometryCommon_;
  Geom::GeometryPlane plane_;
  Geom::InfElemDef infElemDef_;
  std::vector<Geom::PointLabel> pointLabels_;
  double meshGlobalEdgeLength_ = qvi::kNoValue;
  std::int32_t meshVersion_ = 0;

  Geom::Geometry geometry_;
  MATLTable materials_;
  BCTable bcs_;
  StructuralBarAttributeTable structuralBarAttributes_;
  StructuralBeamAttributeTable structuralBeamAttributes_;
  ANALYSISTable analyses_;
  AssociationsTable contexts_;
  std::array<Func2DTable, container::LastFunctionList - container::FirstFunctionList + 1>
      functionLists_;
  CutLineTable cutLines_;
  ResultGraphTable resultGraphs_;
  ResultContourTable resultContours_;
  MeshConstraintTable meshConstraints_;
  ClimateDataTable climateData_;
  ThermosyphonTable thermosyphons_;
  ConvectiveSurfaceTable convectiveSurfaces_;
  // Container 60: registered without a name so that no path reaches it; it
  // holds the document's transient links (never persisted).
  QVContainerAssoc<int> transientLinks_;
  AnalysisDataByAnalysisID<SoluteData> soluteItems_;
  AnalysisDataByAnalysisID<ShakeData> shakeItems_;
  AnalysisDataByAnalysisID<HydroData> hydroItems_;
  AnalysisDataByAnalysisID<DeformData> deformItems_;
  AnalysisDataByAnalysisID<StabData> stabItems_;
  AnalysisDataByAnalysisID<ThermoData> thermoItems_;
  AnalysisDataByAnalysisID<EvapoData> evapoItems_;
  Func3DTable func3Ds_;
  ResultSetTable resultSets_;
  // Sketch text ID -> the analysis that owns it exclusively.
  QVContainerAssoc<GID> anlsIDBySkTextID_;
  // What a document of the earlier generation brings that has no other
  // place: its single analysis, its current slip surface's results, and the
  // values kept for a later conversion. A new project leaves them empty.
  CurrentAnalysis currentAnalysis_;
  result::CurrentSlipSurface currentSlipSurface_;
  files::UpgradeTable upgradeList_;
};

class QVDocument : public QVDocData, public IQVContainer, public IQVChangeListener {
 public:
  // Registers every collection, in GID order, and the document itself as 73.
  QVDocument();
  ~QVDocument() override;

  bool DataInit() override;
  bool DataFree() override;
  void OnIDUpdate(GID container, const std::vector<GID>& renumber) override;
  void OnDelete(GID container, const std::vector<GID>& ids) override;
  void OnAdd(GID container, const std::vector<GID>& ids) override;

  // IQVContainer: the document's own state (sessions, selections).
  void Clear() override;
  void OnRegistration() override;
  void OnUpdateCalculatedValues() override;

  // The analysis of a session, 0 when the session is unknown or its analysis
  // was deleted.
  GID AnalysisIDBySessionID(const GID& session) const;
  // The first session of `analysis`, 0 when none.
  GID SessionIDByAnalysisID(const GID& analysis) const;

  GID CurrentResultContour() const { return currentResultContour_; }
  void SetCurrentResultContour(GID id) { currentResultContour_ = id; }
  const std::vector<GID>& ValidAnalyses() const { return validAnalyses_; }
  // After the collections were replaced wholesale (a load): one session per
  // live analysis, the current result contour cleared if it is gone, and
  // every container's calculated values refreshed.
  void OnCollectionsReplaced();

  // Drops the undo history; returns how many cleanup actions were told.
  int UndoFreeMemory() { return containerManager_.UndoFreeMemory(); }

  // Undo and redo (V7Doc/core/UndoHistory.h says what is recorded; the
  // tables that take part are those with QVContainerOpUndoPolicy).
  // Edits between BeginTransaction and CommitTransaction(label) are one
  // step; transactions nest, the outermost label names the step. An edit
  // outside a transaction is a step of its own. AbortTransaction takes back
  // what the innermost open transaction recorded. Undo and Redo are refused
  // (false) while a transaction is open or when there is nothing to do.
  void BeginTransaction() { History().Begin(); }
  bool CommitTransaction(const std::wstring& label) { return History().Commit(label); }
  bool AbortTransaction() { return History().Abort(); }
  bool Undo() { return History().Undo(); }
  bool Redo() { return History().Redo(); }
  bool CanUndo() const { return History().CanUndo(); }
  bool CanRedo() const { return History().CanRedo(); }
  UndoHistory& History() { return containerManager_.History(); }
  const UndoHistory& History() const { return containerManager_.History(); }

  // Enumeration names this version does not know, as the last load read
  // them (their members read as undefined): a save writes each back where
  // its member is still undefined. They follow their records through
  // deletion and renumbering.
  v7::KeptTexts& KeptTexts() { return keptTexts_; }
  const v7::KeptTexts& KeptTexts() const { return keptTexts_; }

 private:
  void ResetSettings();
  void BindDeclaredReferences();
  v7::KeptTexts keptTexts_;
};

// The document variant used when results are loaded.
class QVDocumentResults : public QVDocument {
 public:
  bool DataInit() override;
  std::int32_t CurrentResultSet() const { return nCurrentResultSet_; }
  std::int32_t CurrentResultTime() const { return nCurrentResultTime_; }

 private:
  std::int32_t nCurrentResultSet_ = qvi::kNone;
  std::int32_t nCurrentResultTime_ = qvi::kNone;
};

using QVDocumentHandle = gtl::handle<QVDocument, gtl::handle_mgmt_refcounted>;

// The process-wide current document, read by path expressions.
const QVDocumentHandle& QVDocumentGetCurrentHandle();
void QVDocumentSetCurrentHandle(const QVDocumentHandle& document);

}  // namespace v7
