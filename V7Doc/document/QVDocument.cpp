#include "V7Doc/document/QVDocument.h"

#include <algorithm>

#include "OC/Registry.h"

namespace v7 {
namespace {

constexpr const wchar_t* kFunctionListNames[] = {
    L"HydKFns",      L"TempKTempFns", L"DiffFns",       L"VolWCFns",     L"UnfWCFns",
    L"AdsorpFns",    L"StrengthFns",  L"HydBFns",       L"HydModFns",    L"ConcBFns",
    L"",             L"ThermKFns",    L"VSpecHeatFns",  L"LeafAIFns",    L"PlantMLFns",
    L"RootDepthFns", L"ThermBFns",    L"ThermModFns",   L"GasBFns",      L"GasModFns",
    L"StressBFns",   L"CyclicFns",    L"DynPWPFns",     L"GRedFns",      L"DampRatioFns",
    L"KaCorrFns",    L"KsCorrFns",    L"MFSPWPFns",     L"AnisoStrFns",  L"ProbFns",
    L"WeightFns",    L"CohesionFns",  L"PhiFns",        L"EModFns",      L"GmaxFns",
    L"KRedFns",      L"TotalEModFns", L"TotalCFns",     L"RecModulusFns", L"AirKFns",
    L"AirBFns"};
static_assert(std::size(kFunctionListNames) ==
              container::LastFunctionList - container::FirstFunctionList + 1);

QVDocumentHandle& CurrentHandle() {
  static QVDocumentHandle current;
  return current;
}

}  // namespace

const wchar_t* FunctionListName(GID list) {
  if (list < container::FirstFunctionList || list > container::LastFunctionList) return L"";
  return kFunctionListNames[list - container::FirstFunctionList];
}

Func2DTable* QVDocData::FunctionList(GID list) {
  if (list < container::FirstFunctionList || list > container::LastFunctionList ||
      list == container::UnusedFunctionList)
    return nullptr;
  return &functionLists_[list - container::FirstFunctionList];
}

const Func2DTable* QVDocData::FunctionList(GID list) const {
  return const_cast<QVDocData*>(this)->FunctionList(list);
}

QVDocument::QVDocument() {
  auto& m = containerManager_;
  m.AddObserver(&keptTexts_);
  keptTexts_.SetHistory(&m.History());
  geometry_.Init(m);
  geometry_.RegisterRegions(m);
  m.Register(&materials_, L"Materials", container::Materials);
  m.Register(&bcs_, L"BCs", container::BCs);
  m.Register(&structuralBarAttributes_, L"StructuralBarAttributes", container::StructuralBarAttributes);
  m.Register(&structuralBeamAttributes_, L"StructuralBeamAttributes", container::StructuralBeamAttributes);
  m.Register(&analyses_, L"Analyses", container::Analyses);
  m.Register(&contexts_, L"Contexts", container::Contexts);
  for (GID list = container::FirstFunctionList; list <= container::LastFunctionList; ++list)
    if (Func2DTable* t = FunctionList(list)) {
      *t = Func2DTable(Func2DListTypeOf(list));  // each list knows its family
      m.Register(t, FunctionListName(list), list);
    }
  m.Register(&cutLines_, L"CutLines", container::CutLines);
  m.Register(&resultGraphs_, L"ResultGraphs", container::ResultGraphs);
  m.Register(&resultContours_, L"ResultContours", container::ResultContours);
  m.Register(&meshConstraints_, L"MeshConstraints", container::MeshConstraints);
  geometry_.RegisterSurface(m);
  m.Register(&climateData_, L"ClimateData", container::ClimateData);
  m.Register(&thermosyphons_, L"Thermosyphons", container::Thermosyphons);
  m.Register(&convectiveSurfaces_, L"ConvectiveSurfaces", container::ConvectiveSurfaces);
  m.Register(&transientLinks_, L"", container::Unnamed);
  m.Register(&soluteItems_, L"SoluteItems", container::SoluteItems);
  m.Register(&shakeItems_, L"ShakeItems", container::ShakeItems);
  m.Register(&hydroItems_, L"HydroItems", container::HydroItems);
  m.Register(&deformItems_, L"DeformItems", container::DeformItems);
  m.Register(&stabItems_, L"StabItems", container::StabItems);
  m.Register(&thermoItems_, L"ThermoItems", container::ThermoItems);
  m.Register(&evapoItems_, L"EvapoItems", container::EvapoItems);
  m.Register(&func3Ds_, L"3DFns", container::Func3Ds);
  m.Register(&resultSets_, L"ResultSets", container::ResultSets);
  m.Register(&anlsIDBySkTextID_, L"AnlsIDBySkTextID", container::AnlsIDBySkTextID);
  m.Register(static_cast<IQVContainer*>(this), L"Document", container::Document);
  BindDeclaredReferences();
}

// Every collection the document's declaration names by its container GID
// answers for the references its records declare. The declaration is
// looked up rather than built: building it makes a document (its default
// values), which must not in turn ask for the declaration; such a
// document, and one made before the library has declared its schema, is
// left unbound.
void QVDocument::BindDeclaredReferences() {
  const oc::Template* declared = oc::GetTemplate(L"QVDocument");
  if (!declared || !declared->type) return;
  for (const auto& m : declared->type->Members())
    if (m->traits.collection != 0)
      containerManager_.DeclareRecords(m->traits.collection, *m, m->access->Field(this));
  // The document's own settings (the view, the sketch, point labels, ...).
  containerManager_.DeclareRecords(container::Document, *declared->type, this);
}

QVDocument::~QVDocument() { containerManager_.RemoveObserver(&keptTexts_); }

bool QVDocument::DataInit() {
  if (bInitialized_) containerManager_.Clear();
  keptTexts_.Clear();
  view_ = {};
  eng_ = {};
  display_ = {};
  ResetSettings();
  meshConstraints_.Clear();
  geometry_.Reset();
  bInitialized_ = true;
  return true;
}

// The document's own settings and sketch back to those of a new project.
void QVDocument::ResetSettings() {
  lastViewed_ = {};
  viewFont_ = {};
  window_ = {};
  customColors_.clear();
  fileInfo_ = {};
  userOptions_ = {};
  sketch_ = {};
  geometryCommon_ = {};
  plane_ = {};
  infElemDef_ = {};
  pointLabels_.clear();
  meshGlobalEdgeLength_ = qvi::kNoValue;
  meshVersion_ = 0;
  currentAnalysis_ = {};
  currentSlipSurface_ = {};
  upgradeList_.Clear();
}

bool QVDocument::DataFree() {
  strings_.clear();
  ResetSettings();
  containerManager_.Clear();
  keptTexts_.Clear();
  bInitialized_ = false;
  currentResultContour_ = 0;
  return true;
}

// Clearing the document's own part: the session table starts over (a cleared
// document is a new project), and the selections return to none.
void QVDocument::Clear() {
  sessions_.assign(1, 0);
  currentResultContour_ = 0;
  nSelection_ = qvi::kNone;
  validAnalyses_.clear();
}

void QVDocument::OnRegistration() {
  containerManager_.Subscribe(this, container::Analyses);
  containerManager_.Subscribe(this, container::ResultContours);
}

void QVDocument::OnCollectionsReplaced() {
  // The history holds edits of the collections that were replaced.
  containerManager_.UndoFreeMemory();
  // Session IDs of the old collections mean nothing for the new ones.
  sessions_.assign(1, 0);
  for (auto it = analyses_.begin(); it != analyses_.end(); ++it) sessions_.push_back(it.ID());
  if (currentResultContour_ != 0 && (currentResultContour_ > resultContours_.Size() ||
                                     resultContours_.IsMissingSlot(currentResultContour_)))
    currentResultContour_ = 0;
  bInitialized_ = true;
  containerManager_.NotifyAllUpdateCalculatedValues();
}

void QVDocument::OnUpdateCalculatedValues() {
  validAnalyses_.assign(analyses_.Size() + 1, 0);
  for (auto it = analyses_.begin(); it != analyses_.end(); ++it) validAnalyses_[it.ID()] = it.ID();
}

void QVDocument::OnAdd(GID c, const std::vector<GID>& ids) {
  if (c != container::Analyses) return;
  sessions_.insert(sessions_.end(), ids.begin(), ids.end());
}

void QVDocument::OnDelete(GID c, const std::vector<GID>& ids) {
  if (c == container::Analyses) {
    for (GID& a : sessions_)
      if (a != 0 && std::binary_search(ids.begin(), ids.end(), a)) a = 0;
  } else if (c == container::ResultContours) {
    if (std::binary_search(ids.begin(), ids.end(), currentResultContour_)) currentResultContour_ = 0;
  }
}

void QVDocument::OnIDUpdate(GID c, const std::vector<GID>& renumber) {
  auto map = [&renumber](GID id) { return id < renumber.size() ? renumber[id] : GID{0}; };
  if (c == container::Analyses) {
    for (GID& a : sessions_) a = map(a);
  } else if (c == container::ResultContours) {
    if (currentResultContour_ != 0) currentResultContour_ = map(currentResultContour_);
  }
}

GID QVDocument::AnalysisIDBySessionID(const GID& session) const {
  return session < sessions_.size() ? sessions_[session] : 0;
}

GID QVDocument::SessionIDByAnalysisID(const GID& analysis) const {
  auto it = std::find(sessions_.begin(), sessions_.end(), analysis);
  return it == sessions_.end() ? 0 : static_cast<GID>(it - sessions_.begin());
}

bool QVDocumentResults::DataInit() {
  QVDocument::DataInit();
  view_ = v7qvi::DefaultResultViewPreferences();
  nCurrentResultSet_ = qvi::kNone;
  nCurrentResultTime_ = qvi::kNone;
  return true;
}

const QVDocumentHandle& QVDocumentGetCurrentHandle() { return CurrentHandle(); }

void QVDocumentSetCurrentHandle(const QVDocumentHandle& document) { CurrentHandle() = document; }

}  // namespace v7
