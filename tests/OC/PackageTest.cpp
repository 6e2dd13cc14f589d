#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <zip.h>

#include "OC/Schema.h"
#include "OC/package/AtomicFile.h"
#include "OC/package/Package.h"
#include "OC/xml/XML.h"
#include "QVI/str/Convert.h"
#include "tests/OC/TestRecords.h"

namespace octest {
namespace {

using oc::package::Package;

std::wstring TempPath(const char* name) { return str::to_wstring(::testing::TempDir() + name); }

std::string Bytes(const std::wstring& path) {
  std::ifstream in(str::to_utf8(path), std::ios::binary);
  return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

TEST(Package, EntryNamesMustStayInside) {
  const std::pair<const wchar_t*, bool> cases[] = {
      {L"Document.xml", true}, {L"Analysis1/Heads.csv", true}, {L"a/b/c.csv", true},
      {L"..", false},          {L"../x", false},               {L"a/../../x", false},
      {L"/etc/passwd", false}, {L"C:/x", false},               {L"a\\b", false},
      {L"a//b", false},        {L"./a", false},                {L"", false},
      {L"dir/", false},        {L"a\nb", false},
  };
  for (const auto& [name, ok] : cases)
    EXPECT_EQ(Package::CheckEntryName(name).succeeded(), ok) << name;
}

TEST(Package, SaveOpenListRead) {
  RegisterTestTypes();
  Doc d = SampleDoc();
  std::string xml;
  ASSERT_TRUE(oc::xml::StringWrite(oc::Store(d), xml).succeeded());
  Package p;
  ASSERT_TRUE(p.Write(Package::kDocumentEntry, xml).succeeded());
  ASSERT_TRUE(p.Write(Package::JoinEntry(L"Analysis1", L"Heads.csv"), "x,y\n1,2\n").succeeded());
  EXPECT_EQ(p.Write(L"../evil", "x").id(), 31021u);
  const std::wstring path = TempPath("oc_pkg.qvz");
  ASSERT_TRUE(p.Save(path).succeeded());

  Package q;
  ASSERT_TRUE(q.Open(path).succeeded());
  EXPECT_EQ(q.List(), (std::vector<std::wstring>{L"Analysis1/Heads.csv", L"Document.xml"}));
  std::string back;
  ASSERT_TRUE(q.Read(Package::kDocumentEntry, back).succeeded());
  Doc loaded;
  ASSERT_TRUE(oc::xml::StringRead(back, oc::Store(loaded)).succeeded());
  EXPECT_TRUE(loaded == d);
  EXPECT_EQ(q.Read(L"missing.csv", back).id(), 31022u);
}

TEST(Package, FailedSaveLeavesTheOldFile) {
  const std::wstring path = TempPath("oc_atomic.qvz");
  Package p;
  ASSERT_TRUE(p.Write(L"Document.xml", "<old/>").succeeded());
  ASSERT_TRUE(p.Save(path).succeeded());
  const std::string before = Bytes(path);

  ASSERT_TRUE(p.Write(L"Document.xml", "<new/>").succeeded());
  oc::package::SimulateFailureBeforeRename(true);
  const gtl::status s = p.Save(path);
  oc::package::SimulateFailureBeforeRename(false);
  EXPECT_EQ(s.id(), 31023u);
  EXPECT_EQ(Bytes(path), before);
  // No temporary is left behind.
  const std::string dir = ::testing::TempDir();
  for (const char* leftover : {"oc_atomic.qvz.tmp-"}) {
    std::FILE* ls = ::popen(("ls " + dir + " | grep -c " + leftover).c_str(), "r");
    char buf[16] = {};
    ASSERT_TRUE(std::fgets(buf, sizeof buf, ls));
    ::pclose(ls);
    EXPECT_EQ(std::string(buf), "0\n");
  }
  // A folder that does not exist: nothing is created, the error names the file.
  EXPECT_TRUE(p.Save(TempPath("no/such/dir/x.qvz")).failed());
  EXPECT_TRUE(p.Save(path).succeeded());
  Package q;
  std::string doc;
  ASSERT_TRUE(q.Open(path).succeeded());
  ASSERT_TRUE(q.Read(L"Document.xml", doc).succeeded());
  EXPECT_EQ(doc, "<new/>");
}

TEST(Package, HostileArchivesAreRefused) {
  // An archive made by another tool with an entry that escapes.
  const std::wstring path = TempPath("oc_evil.qvz");
  std::remove(str::to_utf8(path).c_str());
  int err = 0;
  zip_t* z = zip_open(str::to_utf8(path).c_str(), ZIP_CREATE | ZIP_TRUNCATE, &err);
  ASSERT_TRUE(z);
  static const char data[] = "x";
  zip_file_add(z, "../../escape.txt", zip_source_buffer(z, data, 1, 0), 0);
  ASSERT_EQ(zip_close(z), 0);
  Package p;
  EXPECT_EQ(p.Open(path).id(), 31021u);
  // Not a zip at all, and no file.
  const std::wstring junk = TempPath("oc_junk.qvz");
  ASSERT_TRUE(oc::package::WriteFileAtomic(junk, "not a zip").succeeded());
  EXPECT_EQ(p.Open(junk).id(), 31020u);
  EXPECT_EQ(p.Open(TempPath("oc_none.qvz")).id(), 31020u);
  EXPECT_TRUE(p.List().empty());
}

TEST(Package, ReadLimitsBoundEachEntryAndTheWhole) {
  // Three entries of 1000 bytes each: the limits are reached exactly, then
  // crossed by one byte, per entry and over the whole package.
  Package w;
  for (const wchar_t* name : {L"a.csv", L"b.csv", L"c.csv"})
    ASSERT_TRUE(w.Write(name, std::string(1000, 'x')).succeeded());
  const std::wstring path = TempPath("oc_limits.qvz");
  ASSERT_TRUE(w.Save(path).succeeded());
  const struct {
    std::size_t entry, total;
    unsigned expected;  // 0: read
  } cases[] = {
      {1000, 3000, 0}, {999, 3000, 31024}, {1000, 2999, 31046}, {1000, 1500, 31046},
  };
  for (const auto& c : cases) {
    Package p;
    ASSERT_TRUE(p.Write(L"kept.txt", "old").succeeded());
    const gtl::status s = p.Open(path, Package::Limits{c.entry, c.total});
    EXPECT_EQ(s.id(), c.expected) << c.entry << " " << c.total;
    // Open replaces the content: all three entries, or nothing when refused.
    EXPECT_FALSE(p.Contains(L"kept.txt"));
    EXPECT_EQ(p.List().size(), c.expected == 0 ? 3u : 0u) << c.entry << " " << c.total;
  }
}

}  // namespace
}  // namespace octest
