#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <zip.h>

#include "OC/package/AtomicFile.h"
#include "OC/package/Package.h"
#include "QVI/str/Convert.h"

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
  const std::string xml = "<TestDoc Version=\"7.1\">\n  <Title>\u00e9</Title>\n</TestDoc>\n";
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
  EXPECT_EQ(back, xml);
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
  EXPECT_TRUE(oc::package::TemporariesBeside(path).empty());
  // A folder that does not exist: nothing is created, the error names the file.
  EXPECT_TRUE(p.Save(TempPath("no/such/dir/x.qvz")).failed());
  EXPECT_TRUE(p.Save(path).succeeded());
  Package q;
  std::string doc;
  ASSERT_TRUE(q.Open(path).succeeded());
  ASSERT_TRUE(q.Read(L"Document.xml", doc).succeeded());
  EXPECT_EQ(doc, "<new/>");
}

// Writes a zip of `entries` with libzip, each but the document compressed
// with `method`.
void WriteZip(const std::wstring& path, const std::vector<std::pair<std::string, std::string>>& entries,
              zip_int32_t method) {
  std::remove(str::to_utf8(path).c_str());
  int err = 0;
  zip_t* z = zip_open(str::to_utf8(path).c_str(), ZIP_CREATE | ZIP_TRUNCATE, &err);
  ASSERT_TRUE(z);
  for (const auto& [name, bytes] : entries) {
    const zip_int64_t i = zip_file_add(z, name.c_str(), zip_source_buffer(z, bytes.data(), bytes.size(), 0), 0);
    ASSERT_GE(i, 0);
    if (name != "Document.xml") {
      ASSERT_EQ(zip_set_file_compression(z, static_cast<zip_uint64_t>(i), method, 0), 0);
    }
  }
  ASSERT_EQ(zip_close(z), 0);
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

unsigned Mode(const std::wstring& path) {
  struct stat st;
  return ::stat(str::to_utf8(path).c_str(), &st) == 0 ? st.st_mode & 07777 : 0;
}

// A package is refused for what its directory declares (method, sizes,
// ratio) before anything is decompressed.
TEST(Package, RefusedFromTheDirectoryBeforeDecompressing) {
  const std::string zeros(8u << 20, '\0');  // deflates about 1000 to 1
  std::string numbers;
  for (int i = 0; numbers.size() < (2u << 20); ++i) numbers += std::to_string(i * 7919 % 100003) + ",0.25\n";
  struct Case {
    const char* what;
    std::string bytes;
    zip_int32_t method;
    unsigned expected;  // 0: read
  };
  std::vector<Case> cases = {
      {"bomb: zeros, deflated", zeros, ZIP_CM_DEFLATE, 31061},
      {"a table of numbers, deflated", numbers, ZIP_CM_DEFLATE, 0},
      {"small and highly compressed: harmless", std::string(100000, 'a'), ZIP_CM_DEFLATE, 0},
      {"stored", numbers, ZIP_CM_STORE, 0},
  };
  if (zip_compression_method_supported(ZIP_CM_BZIP2, 1))
    cases.push_back({"bzip2", "x,y\n1,2\n", ZIP_CM_BZIP2, 31060});
  if (zip_compression_method_supported(ZIP_CM_XZ, 1))
    cases.push_back({"xz", "x,y\n1,2\n", ZIP_CM_XZ, 31060});
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    const std::wstring path = TempPath("oc_methods.qvz");
    WriteZip(path, {{"Document.xml", "<d/>"}, {"001/node.csv", c.bytes}}, c.method);
    Package p;
    const gtl::status s = p.Open(path);
    EXPECT_EQ(s.id(), c.expected) << s.message_utf8();
    if (c.expected) {
      EXPECT_NE(s.message().find(L"001/node.csv"), std::wstring::npos) << s.message_utf8();
      continue;
    }
    std::string back;
    ASSERT_TRUE(p.Read(L"001/node.csv", back).succeeded());
    EXPECT_EQ(back, c.bytes);
  }
}

// Open reads the directory only: an entry whose data is damaged opens and
// lists, and only a Read of that entry fails.
TEST(Package, EntriesAreDecompressedOnlyWhenRead) {
  const std::wstring path = TempPath("oc_lazy.qvz");
  const std::string marker(4096, 'Q');
  WriteZip(path, {{"Document.xml", "<d/>"}, {"001/node.csv", marker}}, ZIP_CM_STORE);
  std::string file = Bytes(path);
  const auto at = file.find(marker);
  ASSERT_NE(at, std::string::npos);
  file[at + 100] = 'R';  // the checksum no longer matches
  { std::ofstream(str::to_utf8(path), std::ios::binary | std::ios::trunc) << file; }
  Package p;
  ASSERT_TRUE(p.Open(path).succeeded());
  EXPECT_EQ(p.List().size(), 2u);
  std::string doc, table;
  EXPECT_TRUE(p.Read(L"Document.xml", doc).succeeded());
  EXPECT_EQ(doc, "<d/>");
  EXPECT_EQ(p.Read(L"001/node.csv", table).id(), 31025u);
  // Saving copies the damaged entry's bytes through a Read, so the save
  // fails and the file stays.
  EXPECT_TRUE(p.Save(path).failed());
  EXPECT_EQ(Bytes(path), file);
}

// A save keeps the permission bits of the file it replaces; a new file has
// 0666 less the umask, not the 0600 of a temporary.
TEST(Package, SavesKeepPermissions) {
  const std::wstring path = TempPath("oc_mode.qvz");
  std::remove(str::to_utf8(path).c_str());
  const mode_t mask = ::umask(022);
  Package p;
  ASSERT_TRUE(p.Write(L"Document.xml", "<d/>").succeeded());
  ASSERT_TRUE(p.Save(path).succeeded());
  EXPECT_EQ(Mode(path), 0644u);
  for (unsigned mode : {0640u, 0604u, 0600u, 0664u}) {
    ASSERT_EQ(::chmod(str::to_utf8(path).c_str(), mode), 0);
    ASSERT_TRUE(p.Save(path).succeeded());
    EXPECT_EQ(Mode(path), mode);
    ASSERT_TRUE(oc::package::WriteFileAtomic(path, "bytes").succeeded());
    EXPECT_EQ(Mode(path), mode);
  }
  std::remove(str::to_utf8(path).c_str());
  ::umask(027);
  ASSERT_TRUE(p.Save(path).succeeded());
  EXPECT_EQ(Mode(path), 0640u);
  ::umask(mask);
}

// A save through a symbolic link writes the file the link names and leaves
// the link a link: relative, absolute, chained and dangling links alike.
TEST(Package, SaveThroughLinkKeepsTheLink) {
  const std::string dir = ::testing::TempDir() + "oc_links/";
  std::system(("rm -rf " + dir + " && mkdir -p " + dir + "sub").c_str());
  struct Case {
    const char* link;
    std::string points_to;  // as written in the link
    const char* file;       // the file that must take the bytes
  } cases[] = {
      {"rel.qvz", "sub/a.qvz", "sub/a.qvz"},
      {"abs.qvz", dir + "sub/b.qvz", "sub/b.qvz"},
      {"chain.qvz", "rel.qvz", "sub/a.qvz"},
      {"dangling.qvz", "sub/new.qvz", "sub/new.qvz"},
  };
  std::ofstream(dir + "sub/a.qvz") << "old";
  std::ofstream(dir + "sub/b.qvz") << "old";
  for (const Case& c : cases) {
    SCOPED_TRACE(c.link);
    ASSERT_EQ(::symlink(c.points_to.c_str(), (dir + c.link).c_str()), 0);
    ASSERT_TRUE(oc::package::WriteFileAtomic(str::to_wstring(dir + c.link), c.link).succeeded());
    struct stat st;
    ASSERT_EQ(::lstat((dir + c.link).c_str(), &st), 0);
    EXPECT_TRUE(S_ISLNK(st.st_mode));
    std::ifstream in(dir + c.file);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(in), {}), c.link);
  }
}

// One temporary per save, named as ours; the next save removes the ones a
// killed save left (no process holds their lock) and nothing else.
TEST(Package, StaleTemporariesOfOursAreRemoved) {
  const std::string dir = ::testing::TempDir() + "oc_temps/";
  std::system(("rm -rf " + dir + " && mkdir -p " + dir).c_str());
  const std::wstring path = str::to_wstring(dir + "p.qvz");
  auto touch = [&](const std::string& name) { std::ofstream(dir + name) << "left over"; };
  touch("p.qvz.qvv7-save-abc123");   // stale: removed
  touch("p.qvz.qvv7-save-zz9zz9");   // stale: removed
  touch("p.qvz.qvv7-save-ABC123");   // not a name we make: kept
  touch("q.qvz.qvv7-save-abc123");   // another target's: kept
  touch("p.qvz.tmp-abc123");         // not ours: kept
  touch("p.qvz.qvv7-save-live01");   // a save still running holds its lock: kept
  const int live = ::open((dir + "p.qvz.qvv7-save-live01").c_str(), O_RDONLY);
  ASSERT_GE(live, 0);
  ASSERT_EQ(::flock(live, LOCK_EX), 0);
  EXPECT_EQ(oc::package::TemporariesBeside(path).size(), 3u);
  Package p;
  ASSERT_TRUE(p.Write(L"Document.xml", "<d/>").succeeded());
  ASSERT_TRUE(p.Save(path).succeeded());
  const auto left = oc::package::TemporariesBeside(path);
  ASSERT_EQ(left.size(), 1u);
  EXPECT_EQ(left[0], str::to_wstring(dir + "p.qvz.qvv7-save-live01"));
  ::close(live);
  // Nothing but the package and the files that are not ours: no second
  // temporary from the zip library either.
  std::FILE* ls = ::popen(("ls -A " + dir + " | sort | tr '\\n' ' '").c_str(), "r");
  char buf[512] = {};
  ASSERT_TRUE(std::fgets(buf, sizeof buf, ls));
  ::pclose(ls);
  EXPECT_EQ(std::string(buf),
            "p.qvz p.qvz.qvv7-save-ABC123 p.qvz.qvv7-save-live01 p.qvz.tmp-abc123 q.qvz.qvv7-save-abc123 ");
  ASSERT_TRUE(p.Save(path).succeeded());
  EXPECT_TRUE(oc::package::TemporariesBeside(path).empty());
}

}  // namespace
}  // namespace octest
