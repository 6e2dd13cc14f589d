// Damaged documents, packages and result tables: refused naming what and
// where with the caller's document untouched, or accepted for a stated reason.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <unistd.h>
#include <vector>
#include <zip.h>

#include "QVI/str/Convert.h"
#include "V7Doc/document/QVDocument.h"
#include "V7Doc/files/DocumentFile.h"
#include "V7Doc/results/ResultTableReader.h"

namespace v7::files {
namespace {
namespace fs = std::filesystem;

fs::path DataDir() {
  const char* d = std::getenv("QVV7_TEST_DATA");
  return fs::path(d ? d : "tests/data") / "malformed";
}

std::string Slurp(const fs::path& p) {
  std::ifstream in(p, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// One case: `refused` with a message holding `part`, or accepted, in which
// case `part` (when not empty) is found in the first warning.
struct Case {
  const char* file;
  bool refused;
  const char* part;
  const char* why = "";  // for an accepted case: why accepting it loses nothing
  const wchar_t* name = nullptr;  // for an accepted document: the first analysis's name
};

void Check(const Case& c, const fs::path& path) {
  SCOPED_TRACE(c.file);
  QVDocument doc;
  doc.DataInit();
  ANALYSIS kept;
  kept.DataInit(AnalysisKind::Hydro);
  kept.name = L"kept";
  doc.Analyses().Add(kept);
  PackageEntries results{{L"keep", "me"}};
  LoadReport report;
  const gtl::status s = LoadDocument(path.wstring(), doc, &results, &report);
  if (c.refused) {
    ASSERT_TRUE(s.failed()) << "accepted";
    EXPECT_NE(s.message_utf8().find(c.part), std::string::npos) << s.message_utf8();
    EXPECT_NE(s.message_utf8().find(path.filename().string()), std::string::npos) << s.message_utf8();
    ASSERT_EQ(doc.Analyses().Size(), 1u);
    EXPECT_EQ(doc.Analyses().At(1).name, L"kept");
    EXPECT_EQ(results.size(), 1u);
    return;
  }
  ASSERT_TRUE(s.succeeded()) << s.message_utf8() << " (accepted because " << c.why << ")";
  if (c.name) {
    EXPECT_EQ(doc.Analyses().At(1).name, c.name);
  }
  if (*c.part) {
    ASSERT_FALSE(report.warnings.empty()) << c.why;
    EXPECT_NE(report.warnings[0].message_utf8().find(c.part), std::string::npos)
        << report.warnings[0].message_utf8();
  }
  // What was accepted saves and loads back as it was read: unknown
  // enumeration names included, through a package.
  const std::wstring again = str::to_wstring(::testing::TempDir() + "malformed_resaved.qvz");
  ASSERT_TRUE(SaveDocument(doc, again).succeeded());
  QVDocument back;
  ASSERT_TRUE(LoadDocument(again, back).succeeded());
  std::string read, reloaded;
  ASSERT_TRUE(DocumentToXml(doc, read).succeeded());
  ASSERT_TRUE(DocumentToXml(back, reloaded).succeeded());
  EXPECT_EQ(reloaded, read);
}

TEST(MalformedInput, Documents) {
  const Case cases[] = {
      {"00_valid.xml", false, "", "the reference all other cases are made from"},
      // Truncations: the parser names the line.
      {"trunc_in_tag.xml", true, "line"},
      {"trunc_in_text.xml", true, "line"},
      {"trunc_after_start_tag.xml", true, "line"},
      {"trunc_in_attribute.xml", true, "line"},
      {"trunc_in_end_tag.xml", true, "line"},
      {"trunc_declaration_only.xml", true, "No document element"},
      {"empty.xml", true, "No document element"},
      // Wrong types: the value, its path and its line.
      {"type_id_text.xml", true, "Invalid ID \"two\" in Analyses, line 13"},
      {"type_id_negative.xml", true, "Invalid ID \"-2\" in Analyses"},
      {"type_int_text.xml", true, "\"thirty\" at Analyses[1].NumSlices, line 8"},
      {"type_int_fraction.xml", true, "\"30.5\" at Analyses[1].NumSlices"},
      {"type_int_overflow.xml", true, "\"99999999999\" at Analyses[1].NumSlices"},
      {"type_bool_yes.xml", true, "\"yes\" at Analyses[1].AllowPassiveMode, line 10"},
      {"type_double_comma.xml", true, "\"10,5\" at GeometryItems.Points[2].X, line 27"},
      {"type_double_hex.xml", true, "\"0x1p3\" at GeometryItems.Points[2].X"},
      {"type_record_as_text.xml", false, "", "text beside the records of a table holds nothing to keep"},
      // NaN in a member with bounds, and a number beyond the doubles (the other
      // non-finite spellings, bytes that are not UTF-8, content outside the
      // root and IDs beyond the slot budget are inline texts below).
      {"nan_bounded.xml", true, "\"NaN\" at Analyses[1].OptimizationTolerance, line 9"},
      {"overflow_double.xml", true, "\"1e999\" at GeometryItems.Points[2].X"},
      // Nesting: unknown elements are skipped whole, however deep.
      {"deep_unknown.xml", false, "Unknown element \"Deep\" at Analyses, line 3",
       "an unknown element is skipped with its content, and said so"},
      {"deep_known_too_deep.xml", false, "Unknown element \"x\" at Analyses[1].Name",
       "elements inside a text are skipped and said so; the text is the element's own", L""},
      // Entities: nothing is expanded that the document does not hold.
      {"entity_undefined.xml", false, "", "an undeclared entity is kept as the text it is", L"Slope &nosuch; end"},
      {"entity_billion_laughs.xml", false, "", "declared entities are never expanded", L"&l9;"},
      {"entity_external.xml", false, "", "no external entity is ever fetched", L"&ext;"},
      {"entity_char_ref_nul.xml", true, "line 6 stands for NUL"},
      {"entity_char_ref_huge.xml", true, "Analyses[1].Name, line 6, is not valid UTF-8"},
      {"entity_predefined.xml", false, "", "the five predefined entities and character references are text", L"<&>\"'\u00e9\U0001D11E"},
      // Identifiers.
      {"dup_analysis_id.xml", true, "Duplicate ID 1 in Analyses, line 12"},
      {"dup_point_id.xml", true, "Duplicate ID 1 in GeometryItems.Points"},
      {"dup_member.xml", false, "", "a repeated member is read in order, the last one wins, as a later edit would", L"Slope"},
      {"id_zero.xml", true, "Invalid ID \"0\" in Analyses"},
      {"id_missing.xml", false, "has no ID; it is given ID 2", "the record is kept in the next free slot"},
      // Names.
      {"wrong_root.xml", true, "\"QVDoc\" where \"QVDocument\""},
      {"wrong_element.xml", false, "Unknown element \"NumSlice\" at Analyses[1], line 8",
       "an unknown member is skipped and said so"},
      {"wrong_enum_name.xml", true, "Analyses[1], line 4, would read as deleted because \"STABLE\" at Analyses[1].Kind",
       "an analysis whose kind is unknown would vanish on save: refused"},
      {"wrong_enum_method.xml", false, "\"QuasiStatic\" is no value of AnlsMethod at Analyses[1].Method, line 8",
       "the method reads as undefined, is said so, and is written back as read"},
      {"wrong_collection_tag.xml", false, "Unknown element \"Analysys\" at Analyses, line 4",
       "an element of another name is skipped and said so"},
      {"wrong_case_enum.xml", false, "", "enumeration names match without regard to case, after an exact match"},
      {"no_version.xml", false, "", "a document without a version is read as the current format"},
      // Encodings.
      {"utf8_in_element_name.xml", false, "Unknown element", "an element of no known name is skipped and said so"},
      {"utf16_bom.xml", true, "line"},
      {"nul_byte_in_text.xml", true, "line"},
  };
  std::size_t files = 0;
  for (const auto& c : cases) {
    Check(c, DataDir() / "xml" / c.file);
    ++files;
  }
  EXPECT_EQ(static_cast<std::size_t>(std::distance(fs::directory_iterator(DataDir() / "xml"), {})), files);
}

// Hostile texts given inline: refused with the message part named, the
// document untouched; or (part nullptr) read. Numbers that are not finite
// in every spelling, whatever stands outside the root, bytes that are not
// UTF-8, and IDs so far beyond the rows that the table would allocate a
// slot for every number below them (allowed: as many empty slots as the
// table has records, or 1024).
TEST(MalformedInput, InlineTexts) {
  const auto point = [](const std::string& x) {
    return "<QVDocument><GeometryItems><Points><Point><ID>1</ID>\n<X>" + x +
           "</X></Point></Points></GeometryItems></QVDocument>";
  };
  const auto name = [](const std::string& text) {
    return "<QVDocument><Analyses><Analysis><ID>1</ID><Kind>HYDRO</Kind>\n<Name>" + text +
           "</Name></Analysis></Analyses></QVDocument>";
  };
  const auto rows = [](std::size_t n, std::uint64_t last_id) {
    std::string xml = "<QVDocument><Analyses>";
    for (std::size_t i = 1; i <= n; ++i)
      xml += "<Analysis><ID>" + std::to_string(i) + "</ID><Kind>HYDRO</Kind></Analysis>";
    return xml + "\n<Analysis><ID>" + std::to_string(last_id) +
           "</ID><Kind>HYDRO</Kind></Analysis></Analyses></QVDocument>";
  };
  const auto huge = [](std::uint64_t id) {
    return "ID " + std::to_string(id) + " in Analyses, line 2, is beyond";
  };
  const std::string times =
      "<QVDocument><Contour><ResultGraphs><ResultGraph><ID>1</ID>\n<ElapsedTimes><Time>1</Time>"
      "<Time>-nan</Time></ElapsedTimes></ResultGraph></ResultGraphs></Contour></QVDocument>";
  const struct {
    std::string xml;
    std::optional<std::string> part;  // refused with this; nullopt: read
  } cases[] = {
      {point("NaN"), "\"NaN\" at GeometryItems.Points[1].X, line 2, is not a finite number"},
      {point("nan"), "\"nan\" at GeometryItems.Points[1].X"},
      {point("inf"), "\"inf\" at"},
      {point("INF"), "\"INF\" at"},
      {point("-Infinity"), "\"-Infinity\" at"},
      {point(" -nan "), "is not a finite number"},
      {times, "at Contour.ResultGraphs[1].ElapsedTimes[1], line 2, is not a finite number"},
      {"<QVDocument/>\n<QVDocument/>", "line 2: element <QVDocument>"},
      {"<QVDocument/>\n\n<Other><x/></Other>", "line 3: element <Other>"},
      {"<QVDocument/>trailing", "text \"trailing\""},
      {"<QVDocument/>&amp;", "text \"&\""},
      {"junk<QVDocument/>", "text \"junk\""},
      {"<QVDocument/><![CDATA[x]]>", "text \"x\""},
      {"<?xml version=\"1.0\"?>\n<QVDocument/>\n<!-- a comment -->\n  \n", std::nullopt},
      {"\n  <QVDocument/>  \n<?pi after?>", std::nullopt},
      {name("ab\xff"), "Analyses[1].Name, line 2, is not valid UTF-8 (byte 3)"},
      {name("\xc0\xaf"), "(byte 1)"},  // an overlong "/"
      {name("x\xed\xa0\x80"), "(byte 2)"},  // a surrogate
      {name("\xf4\x90\x80\x80"), "(byte 1)"},  // above U+10FFFF
      {name("\xe2\x82"), "(byte 1)"},
      {name("\x80"), "(byte 1)"},
      {name("\xe2\x82\xac \xf0\x9d\x84\x9e \xc3\xa9"), std::nullopt},  // euro, G clef, e acute
      {rows(0, 1024), std::nullopt},
      {rows(0, 1025), std::nullopt},  // one record: 1 + max(1, 1024)
      {rows(0, 1026), huge(1026)},
      {rows(3000, 6001), std::nullopt},
      {rows(3000, 6002), std::nullopt},
      {rows(3000, 6003), huge(6003)},
      {rows(16000, 1024000), huge(1024000)},
      {rows(0, 65536), huge(65536)},
      {rows(0, 4294967295u), huge(4294967295u)},
      // A function table's text must build its function (a material's text
      // that does not is kept, with a warning).
      {"<QVDocument><Functions><Material><Hydraulic><KFns><KFn><ID>1</ID>\n<Fn>NoSuchKind(</Fn>"
       "</KFn></KFns></Hydraulic></Material></Functions></QVDocument>",
       "at Functions.Material.Hydraulic.KFns[1].Fn, line 2"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.xml.substr(0, 160));
    QVDocument doc;
    doc.DataInit();
    ANALYSIS kept;
    kept.name = L"kept";
    doc.Analyses().Add(kept);
    const gtl::status s = DocumentFromXml(c.xml, doc, L"mem");
    if (!c.part) {
      ASSERT_TRUE(s.succeeded()) << s.message_utf8();
      if (const auto at = c.xml.find("<Name>"); at != std::string::npos) {  // read as it stands
        EXPECT_EQ(str::to_utf8(doc.Analyses().At(1).name),
                  c.xml.substr(at + 6, c.xml.find("</Name>") - at - 6));
      }
      continue;
    }
    ASSERT_TRUE(s.failed());
    EXPECT_NE(s.message_utf8().find(*c.part), std::string::npos) << s.message_utf8();
    ASSERT_EQ(doc.Analyses().Size(), 1u);
    EXPECT_EQ(doc.Analyses().At(1).name, L"kept");
  }
}

TEST(MalformedInput, ResultTables) {
  const struct {
    const char* file;
    bool refused;
    const char* part;
    std::size_t rows = 0;  // accepted: the rows read
  } cases[] = {
      {"valid.csv", false, "", 2},
      {"missing_column.csv", true, "Y"},
      {"unknown_quantities_only.csv", true, "X"},
      {"short_row.csv", true, "row 3"},
      {"not_a_number.csv", true, "row 2"},
      {"nan_cell.csv", true, "row 2"},
      {"inf_cell.csv", true, "row 2"},
      {"overflow_cell.csv", true, "row 2"},
      {"unclosed_quote.csv", true, "row 2"},
      {"duplicate_column.csv", true, "X"},
      {"empty.csv", true, "no header row"},
      {"header_only.csv", false, "", 0},            // a table with no rows yet
      {"truncated_mid_row.csv", false, "", 2},      // the empty cell is the no-value marker
      {"quoted_decimal_comma.csv", true, "row 2"},
      {"bom_crlf_blank_rows.csv", false, "", 2},    // the mark, "\r\n" and blank rows are skipped
      {"garbage_in_unread_column.csv", false, "", 1},  // a column nobody reads is not read
      {"nul_in_cell.csv", true, "row 2"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.file);
    const std::string text = Slurp(DataDir() / "csv" / c.file);
    result::ResultTable table;
    const gtl::status s =
        result::ReadResultTable(text, str::to_wstring(c.file), {DataParamType::X, DataParamType::Y}, table);
    if (c.refused) {
      ASSERT_TRUE(s.failed()) << "accepted";
      EXPECT_NE(s.message_utf8().find(c.file), std::string::npos) << s.message_utf8();
      EXPECT_NE(s.message_utf8().find(c.part), std::string::npos) << s.message_utf8();
      continue;
    }
    ASSERT_TRUE(s.succeeded()) << s.message_utf8();
    EXPECT_EQ(table.Rows(), c.rows);
  }
  EXPECT_EQ(static_cast<std::size_t>(std::distance(fs::directory_iterator(DataDir() / "csv"), {})),
            std::size(cases));
}

TEST(MalformedInput, Packages) {
  const fs::path dir = fs::temp_directory_path() / ("qvv7_malformed_" + std::to_string(::getpid()));
  fs::create_directories(dir);
  const std::string doc = Slurp(DataDir() / "xml" / "00_valid.xml");
  ASSERT_FALSE(doc.empty());
  struct Entry {
    std::string name;
    std::string bytes;
    zip_int32_t method = ZIP_CM_DEFLATE;
  };
  auto zip = [&](const char* file, const std::vector<Entry>& entries) {
    const fs::path p = dir / file;
    int err = 0;
    zip_t* z = zip_open(p.c_str(), ZIP_CREATE | ZIP_TRUNCATE, &err);
    EXPECT_NE(z, nullptr);
    for (const auto& e : entries) {
      const zip_int64_t i = zip_file_add(z, e.name.c_str(), zip_source_buffer(z, e.bytes.data(), e.bytes.size(), 0), 0);
      EXPECT_GE(i, 0) << e.name;
      zip_set_file_compression(z, static_cast<zip_uint64_t>(i), e.method, 0);
    }
    EXPECT_EQ(zip_close(z), 0);
    return p;
  };
  const std::string zeros(64u << 20, '\0');
  std::vector<std::pair<Case, fs::path>> cases = {
      {{"escaping.qvz", true, "\"../evil.csv\" is not a path inside"},
       zip("escaping.qvz", {{"Document.xml", doc}, {"../evil.csv", "x"}})},
      {{"escaping_deep.qvz", true, "\"001/../../evil.csv\""},
       zip("escaping_deep.qvz", {{"Document.xml", doc}, {"001/../../evil.csv", "x"}})},
      {{"absolute.qvz", true, "\"/etc/evil\""}, zip("absolute.qvz", {{"Document.xml", doc}, {"/etc/evil", "x"}})},
      {{"drive.qvz", true, "\"C:/evil\""}, zip("drive.qvz", {{"Document.xml", doc}, {"C:/evil", "x"}})},
      {{"backslash.qvz", true, "is not a path inside"},
       zip("backslash.qvz", {{"Document.xml", doc}, {"..\\evil", "x"}})},
      {{"bomb.qvz", true, "a ratio no project file has"},
       zip("bomb.qvz", {{"Document.xml", doc}, {"001/node.csv", zeros}})},
      {{"missing_document.qvz", true, "holds no document entry \"Document.xml\""},
       zip("missing_document.qvz", {{"001/node.csv", "X,Y\n0,0\n"}})},
      {{"bad_document.qvz", true, "(Document.xml): Cannot read the XML"},
       zip("bad_document.qvz", {{"Document.xml", doc.substr(0, 100)}})},
      {{"document_in_folder.qvz", true, "holds no document entry"},
       zip("document_in_folder.qvz", {{"sub/Document.xml", doc}})},
      {{"store.qvz", false, "", "stored entries are read as they are"},
       zip("store.qvz", {{"Document.xml", doc, ZIP_CM_STORE}, {"001/node.csv", "X,Y\n0,0\n", ZIP_CM_STORE}})},
  };
  if (zip_compression_method_supported(ZIP_CM_BZIP2, 1))
    cases.push_back({{"bzip2.qvz", true, "compressed with bzip2"},
                     zip("bzip2.qvz", {{"Document.xml", doc}, {"001/node.csv", zeros.substr(0, 1 << 20), ZIP_CM_BZIP2}})});
  const std::string good = Slurp(dir / "store.qvz");
  // A damaged result entry: listing and a load without results never
  // decompress it; a load with results is refused naming it.
  const std::string marker(4096, 'Q');
  std::string damaged = Slurp(zip("damaged_result.qvz", {{"Document.xml", doc}, {"001/node.csv", marker, ZIP_CM_STORE}}));
  damaged[damaged.find(marker) + 10] = 'R';
  std::ofstream(dir / "damaged_result.qvz", std::ios::binary | std::ios::trunc) << damaged;
  cases.push_back({{"damaged_result.qvz", true, "001/node.csv"}, dir / "damaged_result.qvz"});
  std::vector<std::wstring> names;
  ASSERT_TRUE(ListPackageEntries((dir / "damaged_result.qvz").wstring(), names).succeeded());
  EXPECT_EQ(names, std::vector<std::wstring>{L"001/node.csv"});
  QVDocument without_results;
  ASSERT_TRUE(LoadDocument((dir / "damaged_result.qvz").wstring(), without_results).succeeded());
  std::ofstream(dir / "not_zip.qvz", std::ios::binary) << doc;
  std::ofstream(dir / "truncated.qvz", std::ios::binary) << good.substr(0, good.size() / 2);
  cases.push_back({{"not_zip.qvz", true, "Cannot open the package"}, dir / "not_zip.qvz"});
  cases.push_back({{"truncated.qvz", true, "Cannot open the package"}, dir / "truncated.qvz"});
  cases.push_back({{"missing.qvz", true, "Cannot open the package"}, dir / "missing.qvz"});
  for (const auto& [c, path] : cases) Check(c, path);
  fs::remove_all(dir);
}

}  // namespace
}  // namespace v7::files
