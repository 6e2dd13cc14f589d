// The whole document: a document generated from the declarations (every
// member set away from its default, every collection holding records, a
// deleted row in every identified table) survives a save and a load record
// for record and byte for byte; and every persisted collection path, alias
// and path expression of the schema reaches what it names.
#include <gtest/gtest.h>

#include <cmath>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "OC/Path.h"
#include "OC/Registry.h"
#include "OC/Schema.h"
#include "QVI/meta/MetaEnumCommon.h"
#include "QVI/str/Convert.h"
#include "V7Doc/document/QVDocument.h"
#include "V7Doc/files/DocumentFile.h"
#include "V7Doc/files/DocumentPaths.h"
#include "V7Doc/files/DocumentSchema.h"
#include "tests/OC/ReferenceDomWriter.h"

namespace v7::files {
namespace {

// Sets every value below a node away from its default, guided only by the
// declarations; collections get two elements (tables: IDs 1 and 3, with 2
// left deleted). What could not be set is listed.
class Filler {
 public:
  std::vector<std::wstring> refused;  // members whose setter refused every value tried
  std::set<const oc::Member*> collections;  // collections that were given elements

  void Record(const oc::IOC& node, void* rec, int salt) {
    for (oc::IOC c = node.begin(); c.IsValid(); c = node.GetNextSubOC(c)) Child(c, rec, salt++);
  }

 private:
  void Child(oc::IOC c, void* rec, int salt) {
    if (c.kind() == oc::IOC::Kind::Group) return Record(c, rec, salt);
    const oc::Member* m = c.Template();
    if (m->traits.IsLegacy() || m->traits.IsReadOnly()) return;
    switch (m->type) {
      case oc::ValueType::Struct:
        return Record(c, m->access->Field(rec), salt);
      case oc::ValueType::Array:
        return Array(c, *m, m->access->Field(rec), salt);
      case oc::ValueType::Table:
        return Table(c, *m, m->access->Field(rec), salt);
      default:
        return Scalar(c, *m, salt);
    }
  }

  void Array(const oc::IOC& c, const oc::Member& m, void* coll, int salt) {
    // A map whose key is read-only by path is filled through its own API.
    if (m.record && HasReadOnly(m.record())) return;
    if (m.seq->Size(coll) == 0) m.seq->Resize(coll, std::min<std::size_t>(2, m.seq->MaxSize()));
    collections.insert(&m);
    // Elements take ascending numbers (1, 2, ...), so that lists kept in
    // key order are written in the order they were filled.
    const int base = salt - salt % 3;
    for (std::size_t i = 0; i < m.seq->Size(coll); ++i) {
      oc::IOC e = c.At(i);
      if (e.kind() == oc::IOC::Kind::Record) Record(e, e.Object(), base + static_cast<int>(i));
      else Scalar(e, m, base + static_cast<int>(i));
    }
  }

  void Table(const oc::IOC& c, const oc::Member& m, void* table, int salt) {
    collections.insert(&m);
    for (std::uint32_t id : {1u, 3u}) {
      if (m.table->IsLive(table, id)) {
        oc::IOC e = c.At(id);
        Record(e, e.Object(), salt + static_cast<int>(id));
        continue;
      }
      // Filled before it is placed: a default record may be its type's
      // tombstone.
      oc::OCObject rec(m.record());
      Record(oc::IOC::Record(m.record(), rec.get()), rec.get(), salt + static_cast<int>(id));
      m.table->Place(table, id, rec.get());
      if (!m.table->IsLive(table, id)) refused.push_back(m.name + L": the filled record is a tombstone");
    }
  }

  static bool HasReadOnly(const oc::RecordType& t) {
    for (const auto& m : t.Members())
      if (m->traits.IsReadOnly()) return true;
    return false;
  }

  // A value other than the default, within the bounds; small integers so
  // that numbers of records name records that exist.
  void Scalar(oc::IOC c, const oc::Member& m, int salt) {
    const auto& tr = m.traits;
    const oc::ValueType t = c.Type();
    bool ok = false;
    if (t == oc::ValueType::Bool) {
      bool v = false;
      (void)c.Get(v);
      ok = c.Set(!v).succeeded();
    } else if (t == oc::ValueType::Enum) {
      std::wstring now;
      (void)c.Get(now);
      for (const auto& e : tr.enum_table->Entries())
        if (e.name != now && !e.name.empty() && c.Set(std::wstring_view(e.name)).succeeded() && !c.IsDefault()) {
          ok = true;
          break;
        }
    } else if (t == oc::ValueType::WString) {
      for (std::wstring v : {L"Text " + std::to_wstring(salt) + L" <&\"'> \u00e9\u4e2d",
                             std::wstring(L"Constant(Value=2.5)"), std::wstring(L"Linear")})
        if (c.Set(std::wstring_view(v)).succeeded()) {
          ok = true;
          break;
        }
    } else {
      const double lo = tr.min.value_or(0);
      const bool bounded = tr.max && *tr.max < 1e300;
      double v = bounded ? lo + (*tr.max - lo) * 0.375 : lo + 1 + (salt % 3);
      if (t != oc::ValueType::Double) v = std::floor(v) + (bounded && std::floor(v) == lo ? 1 : 0);
      else v += 0.1;  // a fraction that decimal text must carry exactly
      ok = c.Set(v).succeeded() && !c.IsDefault();
      if (!ok) ok = c.Set(v + 1).succeeded() && !c.IsDefault();
    }
    if (!ok) refused.push_back(c.Where() + L" " + m.name);
  }
};

// The sample: the generic fill, then what the fill leaves alone (maps keyed
// by record, read-only by path).
void Generate(QVDocument& doc, Filler& f) {
  doc.DataInit();
  const oc::IODS ds = DocumentStore(doc);
  f.Record(oc::IOC(ds), &doc, 1);
  doc.ExclusiveAnlsIDBySkTextID().Insert(1, 3);
  doc.ExclusiveAnlsIDBySkTextID().Insert(3, 1);
}

std::string Xml(const QVDocument& d) {
  std::string xml;
  EXPECT_TRUE(DocumentToXml(d, xml).succeeded());
  return xml;
}

bool Equal(const QVDocument& a, const QVDocument& b) {
  return oc::TypeOf<QVDocument>().Ops().equal(&a, &b);
}

// Every collection below the root, by walking the declarations.
void Collections(const oc::RecordType& t, std::set<const oc::Member*>& out, std::set<const oc::RecordType*>& seen) {
  if (!seen.insert(&t).second) return;
  for (const auto& m : t.Members()) {
    if (m->type == oc::ValueType::Array || m->type == oc::ValueType::Table) out.insert(m.get());
    if (m->record) Collections(m->record(), out, seen);
  }
}

TEST(WholeDocument, GeneratedDocumentRoundTripsRecordByRecordAndByteForByte) {
  ASSERT_TRUE(RegisterDocumentSchema().succeeded());
  QVDocument doc;
  Filler f;
  Generate(doc, f);
  for (const auto& r : f.refused) ADD_FAILURE() << "left at its default: " << str::to_utf8(r);

  // Every collection of the schema was given elements (maps keyed by record
  // through their own API).
  std::set<const oc::Member*> all;
  std::set<const oc::RecordType*> seen;
  Collections(oc::TypeOf<QVDocument>(), all, seen);
  for (const oc::Member* m : all)
    if (!f.collections.count(m) && !(m->record && m->record().Members().front()->traits.IsReadOnly()))
      ADD_FAILURE() << "never filled: " << str::to_utf8(m->owner->Name() + L"." + m->name);

  const std::string first = Xml(doc);
  // The direct writer's bytes are those of a DOM built for the same document.
  EXPECT_EQ(first, octest::ReferenceDomWriter::Write(DocumentStore(doc)));
  QVDocument loaded;
  LoadReport report;
  const auto s = DocumentFromXml(first, loaded, L"generated", &report);
  ASSERT_TRUE(s.succeeded()) << str::to_utf8(s.message());
  // The filler's numbers name records at random, some of them deleted: the
  // load reports those references to nothing (31090) and keeps them, which
  // the comparisons below check. Any other warning is a fault.
  for (const auto& w : report.warnings)
    if (w.id() != 31090) ADD_FAILURE() << str::to_utf8(w.message());
  EXPECT_TRUE(Equal(doc, loaded));
  EXPECT_EQ(first, Xml(loaded));
  // Spot checks that the comparison sees the new records at all.
  ASSERT_NE(loaded.StabItems().Find(1), nullptr);
  EXPECT_TRUE(loaded.StabItems().Find(1)->slipSurfaces_.IsValidID(3));
  EXPECT_FALSE(loaded.StabItems().Find(1)->slipSurfaces_.IsValidID(2));
  EXPECT_EQ(loaded.StabItems().Find(1)->slipSurfaces_.At(3).nID_, 3u) << "stored ID follows the slot";
  EXPECT_EQ(loaded.Sketch().texts_.Size(), 3u);
  EXPECT_EQ(loaded.StructuralBeamAttributes().At(3), doc.StructuralBeamAttributes().At(3));
  loaded.StructuralBeamAttributes().At(3).fMomentOfInertia_ *= 2;
  EXPECT_FALSE(Equal(doc, loaded));
}

// DataInit on a document in use gives a new project: every declared member
// back to what a new document holds.
TEST(WholeDocument, DataInitResetsEveryMember) {
  QVDocument doc, fresh;
  Filler f;
  Generate(doc, f);
  doc.DataInit();
  fresh.DataInit();
  EXPECT_TRUE(Equal(doc, fresh));
  EXPECT_EQ(Xml(doc), Xml(fresh));
  EXPECT_EQ(Xml(fresh), octest::ReferenceDomWriter::Write(DocumentStore(fresh)));
}

// Every collection path of the schema, from the root: the path resolves by
// persisted tags, is a collection, and names its elements as written. An
// element's tag is the path's last name without its plural "s", or is
// given after "=".
TEST(WholeDocument, EveryCollectionPathResolves) {
  QVDocument doc;
  Filler f;
  Generate(doc, f);
  const std::wstring contexts = L"Contexts[1].", stab = L"StabItems[0].Entry.",
                     hydro = L"HydroItems[0].Entry.", solute = L"SoluteItems[0].Entry.";
  const std::wstring cases[] = {
      L"Analyses=Analysis", L"Materials", L"BCs", L"ClimateDataSets", L"AnalysisUsesSketchTexts",
      L"Contexts", contexts + L"CCWLineSideUsesMaterials", contexts + L"CWLineSideUsesMaterials",
      contexts + L"GeometryUsesAirBCs", contexts + L"GeometryUsesContaminantBCs",
      contexts + L"GeometryUsesGasBCs", contexts + L"GeometryUsesHydraulicBCs",
      contexts + L"GeometryUsesRotBCs", contexts + L"GeometryUsesThermBCs",
      contexts + L"GeometryUsesXDispBCs", contexts + L"GeometryUsesYDispBCs",
      contexts + L"LineUsesBars", contexts + L"LineUsesBeams", contexts + L"MaterialUsesBBarParams",
      contexts + L"MaterialUsesPiezs", contexts + L"MaterialUsesRuParams",
      contexts + L"RegionUsesMaterials", L"GeometryItems.Points", L"GeometryItems.Lines=Lines",
      L"GeometryItems.Regions", L"GeometryItems.Mesh.Constraints=GGID", L"MeshItems.Elements=EL",
      L"MeshItems.Elements1D=EL1D", L"MeshItems.NodePairs", L"Items.Nodes=N",
      L"Functions.Material.Hydraulic.KFns[1].Points", hydro + L"FlowPaths[0].Points=Pt",
      L"Analyses[1].TimeIncrements.TimeSteps", L"Analyses[1].TimeIncrements.FixedTimes=TimeStep",
      L"Analyses[1].TimeIncrements.CustomSteps", L"Contour.ResultGraphs[1].ElapsedTimes=Time",
      L"ClimateDataSets[1].ClimateEntries=ClimateEntry", L"BarAttributes", L"BeamAttributes",
      stab + L"Reinforcements", L"ConvectiveSurfaces", L"ThermoSyphons", L"SketchItems.Images",
      L"SketchItems.Labels", stab + L"LineLoadPoints", hydro + L"InitialWaterTables",
      hydro + L"FlowPaths", hydro + L"FluxLabels", hydro + L"FluxSections",
      hydro + L"FluxSections[1].Sectons=Fluxsect", solute + L"Particles", solute + L"ParticlePairs",
      L"ShakeItems[0].Entry.EarthquakeRecords.Horizontal.Records", solute + L"Sources=ID",
      L"DeformItems[0].Entry.IgnoredItems=ID", L"ShakeItems[0].Entry.POGHPoints", L"StabItems",
      L"HydroItems", L"DeformItems", L"ShakeItems", L"ThermoItems", L"SoluteItems", L"EvapoItems",
      stab + L"DataPoints", stab + L"PiezometricLines", stab + L"PressureLines",
      stab + L"FullySpecifiedSlipSurfaces", stab + L"FullySpecFixedPoints=FixedPoint",
      L"SketchItems.SkArcs", L"SketchItems.SkCircles", L"SketchItems.SkLines",
      L"SketchItems.SkTexts", L"Contour.ResultSets", L"Contour.ResultContours",
      L"Contour.ResultGraphs", L"Contour.CutLines", L"View.Preferences.VectorDefs",
      L"View.CustomColors=Color", L"View.PointLabel=Point", L"Functions.Func3Ds=Fn3D"};
  for (const std::wstring& c : cases) {
    SCOPED_TRACE(str::to_utf8(c));
    const std::size_t eq = c.find(L'=');
    const std::wstring path = c.substr(0, eq);
    const std::wstring last = path.substr(path.rfind(L'.') + 1);
    const std::wstring element =
        eq == std::wstring::npos ? last.substr(0, last.size() - 1) : c.substr(eq + 1);
    oc::IOC node;
    const auto s = oc::FindTag(DocumentStore(doc), path, node);
    ASSERT_TRUE(s.succeeded()) << str::to_utf8(s.message());
    ASSERT_TRUE(oc::IsArray(node));
    EXPECT_EQ(node.Template()->persist.element_tag, element);
    EXPECT_GT(node.Length(), 0u);
  }
}

// Every alias reaches the member it names; the path expressions reach the
// same nodes as the plain paths. (The expressions of an analysis's input
// files, with their index placeholder, are resolved with those files.)
TEST(WholeDocument, AliasesAndPathExpressionsResolve) {
  QVDocumentHandle current(new QVDocument);
  Filler f;
  Generate(*current, f);
  QVDocumentSetCurrentHandle(current);
  struct Case {
    const wchar_t* expression;
    const wchar_t* path;
  };
  std::vector<Case> cases = {
      {L"v7::doc::View::AnalysisLastViewed", L"analysisLastViewed"},
      {L"v7::doc::View::ModeLastViewed", L"modeLastViewed"},
      {L"v7::doc::View::ResultTimeLastViewed", L"resultTimeLastViewed"},
      {L"v7::doc::View::BaseTimeLastViewed", L"baseTimeLastViewed"},
      {L"defdoc::View::TimeStepsForCurrentAnalysisOnly", L"bTimeStepsForCurrentAnalysisOnly"},
      {L"doc::FileInfo", L"fileInfo"}, {L"defdoc::FileInfo.Title", L"fileInfo.title_"},
      {L"doc::View::Font", L"viewFont"}, {L"doc::View::Window", L"wnd"},
      {L"v7::doc::Geometry::Manager", L"geometry"},
      {L"v7::doc::Geometry::PointAssocDisp[1]", L"pointAssocDisp[1]"},
      {L"v7::doc::Sketch.SkTexts[3]", L"sketchItems.texts_[3]"},
      {L"v7::doc::AssociationsTable", L"anlsAssocs"}, {L"doc::BCs", L"boundaryConditions"},
      {L"v7::result::CutLines", L"cutLines"}, {L"doc::Coordinates::Eng", L"eng"},
      {L"doc::Coordinates::Page", L"page"},
      {L"v7::doc::Geometry::MeshConstraintAssoc[3]", L"meshConstraintAssoc[3]"},
      {L"v7::doc::ConvectiveSurfaces", L"hPipeSurfMem"}, {L"doc::ThermoSyphons", L"hThermoMem"},
      {L"v7::result::ResultSets", L"resultSets"}, {L"v7::result::ResultGraphs", L"resultGraphs"},
      {L"v7::doc::ExclAnlsIDbySkTxt", L"exclusiveAnlsIDbySkTextID"},
      {L"doc::StructuralBarAttributes", L"structuralBarAttributes"},
      {L"doc::StructuralBeamAttributes", L"structuralBeamAttributes"},
      {L"v7::doc::Function::Func3Ds", L"func3Ds"},
      {L"v7::doc::Function::StressRecModulusFns", L"RecModulusFns"},
      {L"v7::doc::Climate()", L"climateData"}, {L"v7::doc::ThermoSyphons()", L"hThermoMem"},
      {L"v7::doc::ConvectiveSurfaces()", L"hPipeSurfMem"}, {L"v7::doc::FileInfo()", L"fileInfo"},
  };
  // "QVDocumentGetCurrent()." with a member's name reaches that member.
  const std::vector<std::wstring> members = {
      L"analyses", L"points", L"lines", L"regions", L"hMatlMem", L"structuralBarAttributes",
      L"structuralBeamAttributes", L"func3Ds", L"cutLines", L"resultGraphs", L"resultContours",
      L"exclusiveAnlsIDbySkTextID", L"meshConstraintAssoc", L"surface", L"HKFns", L"AirBFns"};
  std::vector<std::wstring> current_paths;
  current_paths.reserve(members.size());
  for (const auto& m : members) current_paths.push_back(L"QVDocumentGetCurrent()." + m);
  for (std::size_t i = 0; i < members.size(); ++i)
    cases.push_back({current_paths[i].c_str(), members[i].c_str()});
  for (const Case& c : cases) {
    SCOPED_TRACE(str::to_utf8(c.expression));
    oc::IOC a, m;
    auto s = doc::FindInCurrent(c.expression, a);
    ASSERT_TRUE(s.succeeded()) << str::to_utf8(s.message());
    ASSERT_TRUE(oc::Find(DocumentStore(*current), c.path, m).succeeded());
    if (a.kind() == oc::IOC::Kind::Member && m.kind() == oc::IOC::Kind::Member &&
        a.Template() != m.Template()) {
      // Two declarations of one field (an accessor's name beside the
      // member's): the same value.
      std::wstring x, y;
      ASSERT_TRUE(a.Get(x).succeeded());
      ASSERT_TRUE(m.Get(y).succeeded());
      EXPECT_EQ(x, y);
    } else {
      EXPECT_TRUE(a == m);
    }
  }
  // The function tables under their descriptive aliases; the persisted short
  // names are the members.
  const std::pair<const wchar_t*, const wchar_t*> functions[] = {
      {L"HydKFns", L"HKFns"}, {L"HydVolWCFns", L"SFns"}, {L"AirKFns", L"AirKFns"},
      {L"StressCyclicNumFns", L"DCFns"}, {L"StressSeedPWPFns", L"DPFns"},
      {L"StressGReductionFns", L"DGFns"}, {L"StressDampingRatioFns", L"DDFns"},
      {L"StressKAlphaCorrFns", L"DKaFns"}, {L"StressKSigmaCorrFns", L"DKsFns"},
      {L"StressMFSPWPFns", L"MFSPFns"}, {L"StressEModulusFns", L"EModFns"},
      {L"StressGmaxFns", L"GmaxFns"}, {L"StressKRedFns", L"KRedFns"},
      {L"StressTotalEModulusFns", L"TotalEModFns"}, {L"StressTotalCohesionFns", L"TotalCFns"},
      {L"StressRecModulusFns", L"RecModulusFns"}, {L"StressAnisoFns", L"AFns"},
      {L"StressStrengthFns", L"StrengthFns"}, {L"ProbFns", L"ProbFns"},
      {L"WeightFns", L"WeightFns"}, {L"CohesionFns", L"CohesionFns"}, {L"PhiFns", L"PhiFns"},
      {L"ThermKFns", L"TKFns"}, {L"ThermKTempFns", L"TKTempFns"},
      {L"ThermUnfrozenWCFns", L"UWCFns"}, {L"ThermVolSpecHeatFns", L"VSHFns"},
      {L"ContamAdsorpFns", L"AdsFns"}, {L"ContamDiffusionFns", L"DifFns"},
      {L"AirBoundFns", L"AirBFns"}, {L"HydBoundFns", L"HydBFns"}, {L"HydBoundModFns", L"HydMFns"},
      {L"ThermBoundFns", L"ThermBFns"}, {L"ThermBoundModFns", L"ThermMFns"},
      {L"GasBoundFns", L"GasBFns"}, {L"GasBoundModFns", L"GasMFns"},
      {L"StressBoundFns", L"StressBFns"}, {L"ContamBoundFns", L"ConcBFns"},
      {L"ClimateBoundLeafAreaIndexFns", L"LAIFns"}, {L"ClimateBoundPlantMoistLimitFns", L"PMLFns"},
      {L"ClimateBoundRootDepthFns", L"RDFns"}};
  for (auto [alias, member] : functions) {
    SCOPED_TRACE(str::to_utf8(alias));
    oc::IOC a, m, e;
    ASSERT_TRUE(doc::FindInCurrent(std::wstring(L"v7::doc::Function::") + alias, a).succeeded());
    ASSERT_TRUE(oc::Find(DocumentStore(*current), member, m).succeeded());
    EXPECT_TRUE(a == m);
    // "QVDocumentGetCurrent()." with the member reaches it too.
    ASSERT_TRUE(doc::FindInCurrent(std::wstring(L"QVDocumentGetCurrent().") + member, e).succeeded());
    EXPECT_TRUE(e == m);
  }

  // Failures name what is wrong.
  oc::IOC node;
  EXPECT_TRUE(doc::FindInCurrent(L"doc::Analyses()[OC_INDEX1].Name", node).failed()) << "no index given";
  EXPECT_TRUE(doc::FindInCurrent(L"v7::doc::NoSuchThing()", node).failed());
  EXPECT_TRUE(doc::FindInCurrent(L"QVDocumentGetCurrent()analyses", node).failed());
  QVDocumentSetCurrentHandle({});
  EXPECT_TRUE(doc::FindInCurrent(L"QVDocumentGetCurrent().analyses", node).failed());
}

// "StabPWPCondSource" reads into the analysis's pore-water pressure source
// and is written once, under that source's own name.
TEST(WholeDocument, StabPWPCondSourceIsReadIntoTheSourceAndWrittenOnce) {
  QVDocument doc;
  doc.DataInit();
  ANALYSIS a;
  a.DataInit(AnalysisKind::Stab);
  a.name = L"Slope";
  doc.Analyses().Add(a);
  std::string xml = Xml(doc);
  const std::string name = "<Name>Slope</Name>";
  ASSERT_NE(xml.find(name), std::string::npos);
  xml.insert(xml.find(name) + name.size(), "<StabPWPCondSource>PiezoLine</StabPWPCondSource>");
  QVDocument back;
  LoadReport report;
  ASSERT_TRUE(DocumentFromXml(xml, back, L"mem", &report).succeeded());
  EXPECT_TRUE(report.warnings.empty());
  EXPECT_EQ(back.Analyses().At(1).GetStabPWPCondOption(), InitialCondOption::PiezoLine);
  const std::string again = Xml(back);
  EXPECT_EQ(again.find("StabPWPCondSource"), std::string::npos);
  EXPECT_NE(again.find("<InitialCondSource>PiezoLine</InitialCondSource>"), std::string::npos);
}

// Verify reports a stored value outside its declared traits, naming where,
// and passes a document whose values were all set through the checks.
TEST(WholeDocument, VerifyFindsValuesOutsideTheirTraits) {
  QVDocument doc;
  Filler f;
  Generate(doc, f);
  const oc::IOC root(DocumentStore(doc));
  EXPECT_TRUE(root.Verify().succeeded()) << str::to_utf8(root.Verify().message());

  doc.StabItems().Get(1).reinforcements_.At(3).fSpacing_ = -2;  // below its bound
  auto s = root.Verify();
  ASSERT_TRUE(s.failed());
  EXPECT_NE(s.message().find(L"reinforcements_[3].fSpacing_"), std::wstring::npos) << str::to_utf8(s.message());
  doc.StabItems().Get(1).reinforcements_.At(3).fSpacing_ = 1;

  doc.LastViewed().mode_ = static_cast<v7qvi::ViewMode>(42);  // not an enumeration value
  s = root.Verify();
  ASSERT_TRUE(s.failed());
  EXPECT_NE(s.message().find(L"42"), std::wstring::npos) << str::to_utf8(s.message());
}

}  // namespace
}  // namespace v7::files
