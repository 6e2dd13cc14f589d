// The document written directly as text has the bytes a pugixml DOM of the
// same declarations would have (tests/OC/ReferenceDomWriter.h), for the
// sample project and for materials in many states.
#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "OC/Schema.h"
#include "V7Doc/core/QVDocument.h"
#include "V7Doc/files/DocumentFile.h"
#include "V7Doc/files/DocumentSchema.h"
#include "V7Doc/functions/FnConst.h"
#include "V7Doc/materials/MATLTable.h"
#include "tests/OC/ReferenceDomWriter.h"
#include "tests/V7Doc/files/SampleDocument.h"

namespace v7::files {
namespace {

TEST(DocumentBytes, DirectTextMatchesTheDom) {
  const std::vector<std::pair<const char*, std::function<void(QVDocument&)>>> cases = {
      {"new document", [](QVDocument& d) { d.DataInit(); }},
      {"sample project", [](QVDocument& d) { testing::FillSampleDocument(d); }},
      {"materials in many states", [](QVDocument& d) {
         d.DataInit();
         for (int m = 0; m < 12; ++m) {
           MATL mat;
           if (m % 2) mat.sDescription() = L"Layer " + std::to_wstring(m) + L" <fill> & \"rock\"";
           if (m % 3 == 0) mat.StabModel() = StabMatlModel::UndrainedPhiZero;
           if (m % 4 == 1) mat.Hydraulic().dHKSat() = 1e-9 * m;
           if (m % 5 == 2) mat.Stress().fnCohesion() = IFn::Constant(m * 0.5);
           if (m == 7) mat.Stress().fnPhiPrime() = IFn(new FnUndefinedType(L"Broken(text"));
           if (m == 9) mat.Stress().fnWeight() = -0.0;
           d.Materials().Add(mat);
         }
         d.Materials().Delete({3, 4});
       }},
  };
  ASSERT_TRUE(RegisterDocumentSchema().succeeded());
  for (const auto& [name, fill] : cases) {
    QVDocument doc;
    fill(doc);
    std::string direct;
    ASSERT_TRUE(DocumentToXml(doc, direct).succeeded()) << name;
    EXPECT_EQ(direct, octest::ReferenceDomWriter::Write(DocumentStore(doc))) << name;
  }
}

}  // namespace
}  // namespace v7::files
