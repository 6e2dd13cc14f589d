#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "QVI/qvi/App.h"
#include "V7Doc/external/AddInInstance.h"
#include "tests/V7Doc/external/AddInTestSupport.h"

namespace v7 {
namespace {

namespace fs = std::filesystem;
using qvi::addins::AddInsManager;

TEST(ExternalObject, ResolvesTheTwelveEntriesOfTheBuiltBridgeInTableOrder) {
  const char* expected[] = {"TestAddInCompatibilityImpl_", "ScanTypeImpl_",
                            "LoadTypeImpl_",               "CreateMethodArgumentsImpl_",
                            "CreateCalculateMatrixImpl_",  "CreateUpdateStressesImpl_",
                            "CreateDelegateFunctorImpl_",  "CreateCalculateForceImpl_",
                            "CreateCalculateShearForceImpl_", "CreateInitializeImpl_",
                            "PerformBlockingGC_",          "CreateAssembly_"};
  for (int i = 0; i < 12; ++i) EXPECT_STREQ(ExternalObject::kEntryNames[i], expected[i]);
  EXPECT_EQ(qvi::app::LibraryName(L"Qvi.MngSrv.Interop"), L"libQvi.MngSrv.Interop.so");

  const ExternalObject& bridge = ExternalObject::Instance();
  ASSERT_TRUE(bridge.loadStatus.succeeded()) << bridge.loadStatus.message_utf8();
  EXPECT_EQ(bridge.NumResolved(), 12);
  // Loaded once: a second load by the same name gives the same library.
  gtl::status s;
  EXPECT_EQ(qvi::app::App::Instance().LoadSuiteLibrary(qvi::app::LibraryName(L"Qvi.MngSrv.Interop"), s),
            qvi::app::App::Instance().LoadSuiteLibrary(qvi::app::LibraryName(L"Qvi.MngSrv.Interop"), s));
}

TEST(ExternalObject, MissingLibraryOrEntriesLeaveNullsAndNameTheReason) {
  const ExternalObject none = ExternalObject::Load(L"libNoSuchBridge.so");
  EXPECT_EQ(none.NumResolved(), 0);
  EXPECT_EQ(none.loadStatus.id(), 38000u);
  EXPECT_NE(none.loadStatus.message().find(L"libNoSuchBridge.so"), std::wstring::npos);
  // Every caller's status is the load failure itself.
  EXPECT_EQ(none.Missing("LoadTypeImpl_"), none.loadStatus);

  const ExternalObject partial =
      ExternalObject::Load(testing::FixtureDir() + L"/libQvi.MngSrv.Interop.partial.so");
  ASSERT_TRUE(partial.loadStatus.succeeded()) << partial.loadStatus.message_utf8();
  EXPECT_EQ(partial.NumResolved(), 10);
  EXPECT_EQ(partial.LoadTypeImpl_, nullptr);
  EXPECT_EQ(partial.CreateCalculateMatrixImpl_, nullptr);
  EXPECT_NE(partial.ScanTypeImpl_, nullptr);
  EXPECT_EQ(partial.Missing("LoadTypeImpl_").id(), 38002u);
  EXPECT_TRUE(partial.Missing("ScanTypeImpl_").succeeded());

  // A library that is no bridge at all resolves nothing.
  const ExternalObject other = ExternalObject::Load(testing::FixtureDir() + L"/not_addin.so");
  EXPECT_TRUE(other.loadStatus.succeeded());
  EXPECT_EQ(other.NumResolved(), 0);
}

TEST(AddInsManager, RefusesNamesThatEscapeTheAddInFolders) {
  struct Case {
    const wchar_t* name;
    bool contained;
  } cases[] = {{L"gardner_conductivity.so", true},
               {L"sub/model.so", true},
               {L"sub\\model.so", true},
               {L"", false},
               {L"../model.so", false},
               {L"sub/../../model.so", false},
               {L"..\\model.so", false},
               {L"/usr/lib/model.so", false},
               {L"\\\\server\\share\\model.dll", false},
               {L"C:\\addins\\model.dll", false},
               {L"c:model.dll", false}};
  for (const Case& c : cases) EXPECT_EQ(AddInsManager::IsContainedName(c.name), c.contained) << str::to_utf8(c.name);

  // (An escaping or missing name bound by a function: the add-in function tests.)
  testing::AddInFolders folders;
  std::wstring path;
  EXPECT_TRUE(AddInsManager::Instance().GetAddInPath(L"faulty.so", path).succeeded());
  EXPECT_EQ(fs::path(path), fs::canonical(fs::path(testing::FixtureDir()) / "faulty.so"));
  EXPECT_NE(AddInsManager::Instance().GetAddInPath(L"absent.so", path).message().find(testing::FixtureDir()),
            std::wstring::npos);
}

TEST(AddInsManager, FollowsSearchOrderAndRefusesLinksOutOfItsFolder) {
  const fs::path root = fs::temp_directory_path() / ("qvv7_addins_" + std::to_string(::getpid()));
  fs::remove_all(root);
  fs::create_directories(root / "env");
  fs::create_directories(root / "user");
  fs::create_directories(root / "outside");
  std::ofstream(root / "env" / "a.so") << "env";
  std::ofstream(root / "user" / "a.so") << "user";
  std::ofstream(root / "outside" / "b.so") << "outside";
  fs::create_symlink(root / "outside" / "b.so", root / "user" / "b.so");

  ::setenv("QVV7_ADDIN_PATH", (root / "env").c_str(), 1);
  AddInsManager::Instance().SetUserFolder(str::to_wstring((root / "user").string()));
  std::wstring path;
  EXPECT_TRUE(AddInsManager::Instance().GetAddInPath(L"a.so", path).succeeded());
  EXPECT_EQ(fs::path(path), fs::canonical(root / "env" / "a.so"));  // the variable comes first
  EXPECT_EQ(AddInsManager::Instance().GetAddInPath(L"b.so", path).id(), 38003u);
  ::unsetenv("QVV7_ADDIN_PATH");
  AddInsManager::Instance().SetUserFolder({});
  fs::remove_all(root);
}

TEST(AddInScan, ListsTypesMethodsAndFieldsOrRefusesLibrariesItCannotUse) {
  testing::AddInFolders folders;
  std::vector<external::AddInType> types;
  ASSERT_TRUE(external::ScanAssembly(L"gardner_conductivity.so", types).succeeded());
  ASSERT_EQ(types.size(), 1u);
  EXPECT_EQ(types[0].name, L"GardnerK");
  EXPECT_EQ(types[0].methods,
            (std::vector<std::wstring>{L"Calculate", L"Initialize", L"SetID", L"Review", L"MaxPV", L"Dispose"}));
  ASSERT_EQ(types[0].fields.size(), 2u);
  EXPECT_EQ(types[0].fields[1].name, L"Alpha");
  EXPECT_EQ(types[0].fields[1].defaultValue, L"0.05");

  struct Case {
    const wchar_t* name;
    const wchar_t* reason;  // part of the message
  } refused[] = {{L"incompatible.so", L"interface version 99"},
                 {L"malformed.so", L"list of types is malformed"},
                 {L"not_addin.so", L"not an add-in"}};
  for (const Case& c : refused) {
    const gtl::status s = external::ScanAssembly(c.name, types);
    EXPECT_EQ(s.id(), 38005u) << str::to_utf8(c.name);
    EXPECT_NE(s.message().find(c.reason), std::wstring::npos) << s.message_utf8();
    EXPECT_TRUE(types.empty());
  }
}

}  // namespace
}  // namespace v7
