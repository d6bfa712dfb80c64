#include "workbench/StoreTest.h"

#include "core/ResultCodes.h"

namespace {

using namespace wb;

std::uint64_t writeTimeOf(const std::wstring& file) {
  WIN32_FILE_ATTRIBUTE_DATA data{};
  EXPECT_TRUE(GetFileAttributesExW(file.c_str(), GetFileExInfoStandard, &data));
  return (static_cast<std::uint64_t>(data.ftLastWriteTime.dwHighDateTime) << 32) |
         data.ftLastWriteTime.dwLowDateTime;
}

TEST_F(StoreTest, AVaultWithAnImpossibleNameOrAnothersViewIsRefused) {
  const std::wstring other = (folder / L"Other").wstring();
  EXPECT_EQ(E_QVT_NAME_ALREADY_EXISTS, refusal([&] { store.createVault(L"plant", other); }));
  EXPECT_EQ(E_QVT_NAME_ALREADY_EXISTS,
            refusal([&] { store.createVault(L"Other", view.wstring() + L"\\"); }));
  EXPECT_EQ(E_QVT_INVALID_VAULT_NAME, refusal([&] { store.createVault(L"a\\b", other); }));
  EXPECT_EQ(E_QVT_INVALID_VAULT_NAME, refusal([&] { store.createVault(L"", other); }));
  EXPECT_EQ(E_QVT_INVALID_NAME, refusal([&] { store.createVault(L"Other", L"Other"); }));
  EXPECT_FALSE(fs::exists(other));
}

TEST_F(StoreTest, PathsAreFoundInAnyCaseAndSpellingButOnlyInTheirOwnView) {
  const std::wstring root = view.wstring();
  EXPECT_EQ(&file(), store.find(root + L"\\SITE\\pLAN.DWG"));
  EXPECT_EQ(&file(), store.find(root + L"/site/../Site/.\\plan.dwg"));
  EXPECT_EQ(nullptr, store.find(root + L"\\Site"));
  EXPECT_EQ(L"Plant", store.vaultOf(root)->name);
  for (const std::wstring& outside :
       {root + L"2\\Site\\Plan.dwg", folder.wstring(), std::wstring(L"Plan.dwg"), std::wstring()}) {
    EXPECT_EQ(nullptr, store.vaultOf(outside)) << toUtf8(outside);
  }
  store.createVault(L"Inner", root + L"\\Inner");
  EXPECT_EQ(L"Inner", store.vaultOf(root + L"\\inner\\A.dwg")->name);
  EXPECT_EQ(E_QVT_PATH_TOO_LONG,
            refusal([&] { store.find(root + L"\\" + std::wstring(260, L'x')); }));
}

TEST_F(StoreTest, FolderIdsAreTheComputersOwnAndTheRootHasTheFirst) {
  const StoredVault& vault = *store.vaultNamed(L"Plant");
  const long site = store.folderIdOf(plan);
  EXPECT_EQ(1, store.folderIdOf((view / L"A.dwg").wstring()));
  EXPECT_EQ(1, store.folderId(vault, Store::thisComputer(), view.wstring() + L"\\"));
  EXPECT_NE(1, site);
  const long elsewhere =
      store.folderId(vault, L"ELSEWHERE", fs::path(plan).parent_path().wstring());
  EXPECT_NE(site, elsewhere);
  reopen();
  EXPECT_EQ(site, store.folderIdOf(plan));
  EXPECT_EQ(elsewhere, store.folderId(*store.vaultNamed(L"Plant"), L"elsewhere",
                                      fs::path(plan).parent_path().wstring()));
}

TEST_F(StoreTest, ACheckOutAndACheckInMoveOneDrawing) {
  EXPECT_EQ("one", bytesOf(plan));
  EXPECT_TRUE(isReadOnlyFile(plan));
  EXPECT_EQ(file().latest().date, writeTimeOf(plan));

  store.checkOut(plan);
  EXPECT_FALSE(isReadOnlyFile(plan));
  EXPECT_EQ(store.folderIdOf(plan), file().holder.value_or(Holder{}).folderId);
  EXPECT_EQ(E_QVT_FILE_IS_LOCKED, refusal([&] { store.checkOut(plan); }));

  write(plan, "two");
  store.checkIn(plan, L"Walls", true);
  EXPECT_TRUE(file().holder);
  EXPECT_FALSE(isReadOnlyFile(plan));

  write(plan, "three");
  store.checkIn(plan, L"Doors", false);
  EXPECT_FALSE(file().holder);
  EXPECT_TRUE(isReadOnlyFile(plan));
  EXPECT_EQ(3, file().latest().number);
  EXPECT_EQ(L"Doors", file().latest().comment);
  EXPECT_EQ(file().latest().date, writeTimeOf(plan));
  EXPECT_EQ(3, store.localVersion(file(), store.folderIdOf(plan)));
  EXPECT_EQ(E_QVT_FILE_NOT_LOCKED_BY_YOU, refusal([&] { store.checkIn(plan, L"", false); }));

  store.fetch(plan, 2);
  EXPECT_EQ("two", bytesOf(plan));
  EXPECT_TRUE(isReadOnlyFile(plan));
  EXPECT_EQ(E_QVT_INVALID_REVISION_NUMBER, refusal([&] { store.fetch(plan, 4); }));
}

TEST_F(StoreTest, ACheckOutBringsTheLatestAndAnUndoTakesTheChangesBack) {
  addVersion("two");
  EXPECT_EQ("one", bytesOf(plan));
  EXPECT_GE(file().versions[1].date, file().versions[0].date + 20000000);
  store.checkOut(plan);
  EXPECT_EQ("two", bytesOf(plan));
  write(plan, "spoilt");
  store.undoCheckOut(plan);
  EXPECT_EQ("two", bytesOf(plan));
  EXPECT_TRUE(isReadOnlyFile(plan));
  EXPECT_EQ(E_QVT_FILE_NOT_LOCKED_BY_YOU, refusal([&] { store.undoCheckOut(plan); }));
}

TEST_F(StoreTest, WhoHoldsADrawingElsewhereKeepsUsOut) {
  store.checkOutFor(plan, L"ben", L"HALL2", L"D:\\Views\\Plant");
  EXPECT_EQ(E_QVT_LOCKED_BY_ANOTHER_USER, refusal([&] { store.checkOut(plan); }));
  EXPECT_EQ(E_QVT_LOCKED_BY_ANOTHER_USER, refusal([&] { store.checkIn(plan, L"", false); }));
  store.setDate(plan, {0, 30000000});
  EXPECT_TRUE(isReadOnlyFile(plan));
  store.undoCheckOut(plan);

  store.checkOutFor(plan, Store::thisUser(), L"HALL2", L"D:\\Views\\Plant");
  EXPECT_EQ(E_QVT_LOCKED_ON_OTHER_COMPUTER, refusal([&] { store.checkOut(plan); }));
  EXPECT_EQ(E_QVT_LOCKED_ON_OTHER_COMPUTER, refusal([&] { store.checkIn(plan, L"", false); }));
  store.undoCheckOut(plan);

  store.checkOutFor(plan, Store::thisUser(), Store::thisComputer(), L"D:\\Views\\Plant");
  EXPECT_EQ(E_QVT_LOCKED_IN_OTHER_FOLDER, refusal([&] { store.checkIn(plan, L"", false); }));
  store.undoCheckOut(plan);

  store.setDenied(plan, true);
  EXPECT_EQ(E_QVT_PERMISSION_DENIED, refusal([&] { store.checkOut(plan); }));
  EXPECT_EQ(E_QVT_PERMISSION_DENIED, refusal([&] { store.fetch(plan, 1); }));
}

TEST_F(StoreTest, AFileThatSomebodyHasOpenIsNeitherReplacedNorTaken) {
  addVersion("two");
  {
    const HeldOpen viewer(plan, GENERIC_READ, FILE_SHARE_READ);
    EXPECT_EQ(E_QVT_FILE_SHARE_ERROR, refusal([&] { store.checkOut(plan); }));
    EXPECT_EQ(E_QVT_FILE_SHARE_ERROR, refusal([&] { store.fetch(plan, 0); }));
  }
  EXPECT_EQ("one", bytesOf(plan));
  EXPECT_TRUE(isReadOnlyFile(plan));
  EXPECT_FALSE(file().holder);
  EXPECT_EQ(1, store.localVersion(file(), store.folderIdOf(plan)));

  store.checkOut(plan);
  write(plan, "three");
  {
    const HeldOpen editor(plan, GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ);
    EXPECT_EQ(E_QVT_FILE_SHARE_ERROR, refusal([&] { store.checkIn(plan, L"", false); }));
    EXPECT_EQ(E_QVT_FILE_SHARE_ERROR, refusal([&] { store.undoCheckOut(plan); }));
  }
  EXPECT_EQ(2, file().latest().number);
  EXPECT_TRUE(file().holder);
  EXPECT_EQ("three", bytesOf(plan));

  const HeldOpen viewer(plan, GENERIC_READ, FILE_SHARE_READ);
  store.checkIn(plan, L"", false);
  EXPECT_EQ(file().latest().date, writeTimeOf(plan));
  EXPECT_EQ((std::set<std::wstring>{L"Site", L"desktop.ini"}), namesIn(view));
}

TEST_F(StoreTest, TakingAFileInNeverOverwritesAnother) {
  const std::wstring own = (view / L"Own.dwg").wstring();
  write(own, "the user's");
  EXPECT_EQ(E_QVT_NAME_ALREADY_EXISTS, refusal([&] { store.add(own, source, L"anna", L""); }));
  EXPECT_EQ("the user's", bytesOf(own));
  EXPECT_FALSE(isReadOnlyFile(own));
  store.add(own, {}, L"anna", L"");
  EXPECT_TRUE(isReadOnlyFile(own));

  const std::wstring missing = (view / L"Missing.dwg").wstring();
  EXPECT_EQ(E_QVT_NAME_ALREADY_EXISTS, refusal([&] { store.add(plan, source, L"anna", L""); }));
  EXPECT_EQ(E_QVT_LOCAL_FILE_NOT_FOUND, refusal([&] { store.add(missing, {}, L"anna", L""); }));
  EXPECT_EQ(E_QVT_KEY_NOT_FOUND,
            refusal([&] { store.add((folder / L"A.dwg").wstring(), source, L"", L""); }));
  EXPECT_EQ(E_QVT_FILE_NOT_FOUND, refusal([&] { store.checkOut(missing); }));
}

TEST_F(StoreTest, ManyChangesAreWrittenTogetherAsFarAsTheyCame) {
  const auto path = [&](int number) {
    return (view / (std::to_wstring(number) + L".dwg")).wstring();
  };
  EXPECT_EQ(E_QVT_NAME_ALREADY_EXISTS, refusal([&] {
              store.inOneWrite([&] {
                for (const int number : {1, 2, 1, 3}) store.add(path(number), source, L"anna", L"");
              });
            }));
  reopen();
  EXPECT_NE(nullptr, store.find(path(1)));
  EXPECT_NE(nullptr, store.find(path(2)));
  EXPECT_EQ(nullptr, store.find(path(3)));
}

TEST_F(StoreTest, EverythingIsThereAgainInTheNextRun) {
  const FILETIME date{0x80000000, 30000000};
  store.setState(plan, L"Freigegeben f\u00FCr \u5DE5\u5382");
  store.setExempt(plan, true);
  store.setCardValue(plan, L"Title", L"Model", {L"text", L"Halle \"2\"\n"});
  store.setCardValue(plan, L"TITLE", L"model", {L"date", L"2006-03-30"});
  store.setCardValue(plan, L"Title", L"", {L"null", L""});
  store.addMapping(plan, L"title", {L"FRAME", L"TITLE"});
  store.checkOutFor(plan, L"ben", L"HALL2", L"D:\\Plant\\");
  store.setDate(plan, date);
  store.setDenied(plan, true);
  const auto written = writeTimeOf(plan);
  reopen();
  EXPECT_EQ((std::vector<std::wstring>{
                L"version 1 by anna: First issue", L"checked out by ben in D:\\Plant on HALL2",
                L"local version 1 in " + view.wstring() + L"\\Site",
                L"state Freigegeben f\u00FCr \u5DE5\u5382", L"exempt from the date comparison",
                L"denied", L"card Title in \"\" = null ",
                L"card Title in \"Model\" = date 2006-03-30", L"card Title goes to FRAME.TITLE"}),
            store.describe(plan));
  EXPECT_EQ(written, file().latest().date);
  EXPECT_EQ((static_cast<std::uint64_t>(30000000) << 32) | 0x80000000, written);
}

TEST_F(StoreTest, AChangeThatCantBeWrittenHasntHappened) {
  const auto described = store.describe(plan);
  {
    const HeldOpen index(folder / L"store" / L"store.json", GENERIC_READ, 0);
    const HRESULT blocked = refusal([&] { store.setState(plan, L"Approved"); });
    EXPECT_TRUE(FAILED(blocked)) << toUtf8(resultName(blocked));
    EXPECT_TRUE(FAILED(refusal([&] { store.checkOut(plan); })));
    EXPECT_TRUE(FAILED(refusal([&] { addVersion("two"); })));
    EXPECT_TRUE(FAILED(refusal([&] { store.createVault(L"B", (folder / L"B").wstring()); })));
  }
  EXPECT_EQ(described, store.describe(plan));
  EXPECT_TRUE(isReadOnlyFile(plan));
  EXPECT_EQ(nullptr, store.vaultNamed(L"B"));
  reopen();
  EXPECT_EQ(described, store.describe(plan));
  EXPECT_EQ((std::set<std::wstring>{L"1-1.bin"}), namesIn(folder / L"store" / L"archive"));
}

TEST_F(StoreTest, TwoProgramsCantHaveTheSameStoreOpen) {
  Store second;
  EXPECT_EQ(E_QVT_FILE_SHARE_ERROR, refusal([&] { second.open(folder / L"store"); }));
  EXPECT_EQ(E_QVT_NOT_INITIALIZED,
            refusal([&] { second.createVault(L"B", (folder / L"B").wstring()); }));
  store.close();
  EXPECT_EQ(nullptr, store.find(plan));
  second.open(folder / L"store");
  EXPECT_NE(nullptr, second.find(plan));
}

TEST_F(StoreTest, ADamagedStoreIsRefusedAndLeftAsItIs) {
  addVersion("two");
  store.close();
  const fs::path index = folder / L"store" / L"store.json";
  const fs::path archive = folder / L"store" / L"archive";
  const std::string sound = bytesOf(index);
  const auto expectRefused = [&](const char* what) {
    const auto archived = namesIn(archive);
    EXPECT_EQ(E_QVT_NOT_INITIALIZED, refusal([&] { store.open(folder / L"store"); })) << what;
    EXPECT_EQ(archived, namesIn(archive)) << what;
  };
  auto other = sound;
  other.replace(other.find("\"format\": 1"), 11, "\"format\": 2");
  auto astray = sound;
  astray.replace(astray.find("1-2.bin"), 7, "..\\x.bi");
  for (const std::string& damaged :
       {sound.substr(0, sound.size() / 2), std::string(), std::string("{}"), other, astray}) {
    write(index, damaged);
    expectRefused(damaged.c_str());
    EXPECT_EQ(damaged, bytesOf(index));
  }
  fs::remove(index);
  expectRefused("without an index");
  EXPECT_FALSE(fs::exists(index));

  write(index, sound);
  fs::rename(archive / L"1-2.bin", folder / L"1-2.bin");
  expectRefused("without a content");
  fs::rename(folder / L"1-2.bin", archive / L"1-2.bin");
  store.open(folder / L"store");
  store.fetch(plan, 0);
  EXPECT_EQ("two", bytesOf(plan));
}

}  // namespace
