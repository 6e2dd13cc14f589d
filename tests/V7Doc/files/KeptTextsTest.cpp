// Unknown enumeration names ride with their records: through deletion of
// others, compaction and the deletion of their own record, a save writes
// each text in the record it was read in, as it was read (blanks and
// escapes included), and in no other; a member given a known value since
// is written as that value.
#include <gtest/gtest.h>

#include <regex>
#include <string>

#include "V7Doc/document/QVDocument.h"
#include "V7Doc/files/DocumentFile.h"

namespace v7::files {
namespace {

std::string Analysis(int id, const char* name, const char* method) {
  std::string s = "<Analysis><ID>" + std::to_string(id) + "</ID><Name>" + name + "</Name><Kind>STAB</Kind>";
  if (method) s += std::string("<Method>") + method + "</Method>";
  return s + "</Analysis>";
}

// "name=method;" for each analysis of the saved document, in order.
std::string NamesAndMethods(const std::string& xml) {
  static const std::regex one(R"(<Name>([^<]*)</Name>(?:[\s\S](?!</Analysis>))*?<Method>([^<]*)</Method>)");
  std::string out;
  for (std::sregex_iterator it(xml.begin(), xml.end(), one), end; it != end; ++it)
    out += (*it)[1].str() + "=" + (*it)[2].str() + ";";
  return out;
}

TEST(KeptTexts, FollowTheirRecords) {
  const std::string xml = "<QVDocument Version=\"1.0\"><Analyses>" + Analysis(1, "A", "Spencer") +
                          Analysis(2, "B", "QuasiStatic") + Analysis(3, "C", " Bogus &amp; co ") +
                          "</Analyses></QVDocument>";
  struct Case {
    const char* what;
    void (*edit)(QVDocument&);
    const char* saved;
  } cases[] = {
      {"as read", [](QVDocument&) {}, "A=Spencer;B=QuasiStatic;C= Bogus &amp; co ;"},
      {"compaction moves both down",
       [](QVDocument& d) {
         d.Analyses().Delete({1});
         d.ContainerManager().FullCompact();
       },
       "B=QuasiStatic;C= Bogus &amp; co ;"},
      {"a deleted record takes its text along",
       [](QVDocument& d) {
         d.Analyses().Delete({2});
         d.ContainerManager().FullCompact();
       },
       "A=Spencer;C= Bogus &amp; co ;"},
      {"a cleared document keeps none", [](QVDocument& d) { d.DataInit(); }, ""},
      {"a member given a known value since is written as that value",
       [](QVDocument& d) { d.Analyses().At(2).method = AnlsMethod::Spencer; },
       "A=Spencer;B=Spencer;C= Bogus &amp; co ;"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    QVDocument doc;
    ASSERT_TRUE(DocumentFromXml(xml, doc, L"kept.xml").succeeded());
    c.edit(doc);
    std::string saved;
    ASSERT_TRUE(DocumentToXml(doc, saved).succeeded());
    EXPECT_EQ(NamesAndMethods(saved), c.saved) << saved;
    // Read again: the same names, the same bytes.
    QVDocument again;
    std::string twice;
    ASSERT_TRUE(DocumentFromXml(saved, again, L"saved.xml").succeeded());
    ASSERT_TRUE(DocumentToXml(again, twice).succeeded());
    EXPECT_EQ(twice, saved);
  }
}

// Undo of an edit brings back the texts it took along or renumbered, and
// redo takes them again: after each, the text is in the material it was in.
TEST(KeptTexts, FollowUndoAndRedo) {
  const std::string xml =
      "<QVDocument Version=\"1.0\"><Materials><Material><ID>1</ID><Name>M1</Name></Material>"
      "<Material><ID>2</ID><Name>M2</Name><StabModel>Bogus</StabModel></Material></Materials></QVDocument>";
  static const std::regex stab(R"(<Name>([^<]*)</Name>(?:[\s\S](?!</Material>))*?<StabModel>Bogus</StabModel>)");
  auto holder = [](const QVDocument& d) {
    std::string saved;
    EXPECT_TRUE(DocumentToXml(d, saved).succeeded());
    std::smatch m;
    return std::regex_search(saved, m, stab) ? m[1].str() : std::string("none");
  };
  struct Case {
    const char* what;
    void (*edit)(QVDocument&);
    const char* after;
  } cases[] = {
      {"its record deleted", [](QVDocument& d) { d.Materials().Delete({2}); }, "none"},
      {"another deleted and the table compacted",
       [](QVDocument& d) {
         d.BeginTransaction();
         d.Materials().Delete({1});
         d.ContainerManager().FullCompact();
         d.CommitTransaction(L"compact");
       },
       "M2"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    QVDocument doc;
    ASSERT_TRUE(DocumentFromXml(xml, doc, L"kept.xml").succeeded());
    c.edit(doc);
    EXPECT_EQ(holder(doc), c.after);
    ASSERT_TRUE(doc.Undo());
    EXPECT_EQ(holder(doc), "M2");
    ASSERT_TRUE(doc.Redo());
    EXPECT_EQ(holder(doc), c.after);
  }
}

}  // namespace
}  // namespace v7::files
