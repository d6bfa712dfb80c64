#include <windows.h>

#include <filesystem>

#include "core/Text.h"
#include "shared/ModuleSession.h"
#include "store/Store.h"

namespace {

const std::string open = "@open %WORK%\\View\\Site\\Main.dxf\n";
const std::string update = "Tessaro_getlatestxrefs\n";
const std::wstring errorBox =
    informationBox(L"Error reading xref information from database.\\nCause:");

/// Main.dxf refers to A, which N is nested in, to B under two spellings, to files with quotes and
/// blanks, one in the view's root, one that is gone and one outside the view, which P is nested in.
class XrefCheck : public ModuleSession {
 protected:
  XrefCheck() {
    run("@reg set EditWarning 0\n");
    add("Xrefs\\N.dxf");
    add("Xrefs\\P.dxf");
    add("Xrefs\\A.dxf", {{L"N", L"..\\Xrefs\\N.dxf"}});
    add("Xrefs\\B.dxf");
    add("Xrefs\\Gone.dxf");
    add("O'Brien\\O'Neil part.dxf");
    add("Root file.dxf");
    const std::wstring elsewhere =
        writeDrawing(L"Else\\Out.dxf", {{L"P", view(L"Xrefs\\P.dxf")}}).wstring();
    add("Site\\Main.dxf", {{L"A", L"..\\Xrefs\\A.dxf"},
                           {L"B", L"..\\Xrefs\\B.dxf"},
                           {L"LoudB", L"..\\XREFS\\B.DXF"},
                           {L"Quote", L"..\\O'Brien\\O'Neil part.dxf"},
                           {L"Root", L"..\\Root file.dxf"},
                           {L"Gone", L"..\\Xrefs\\Gone.dxf"},
                           {L"Out", elsewhere}});
    add("Site\\Alone.dxf");
    add("Site\\Outward.dxf", {{L"Out", elsewhere}});
    remove(L"Xrefs\\Gone.dxf");
  }
  static std::wstring view(const std::wstring& file) {
    return (workFolder() / L"View" / file).wstring();
  }
  static void remove(const std::wstring& file) {
    SetFileAttributesW(view(file).c_str(), FILE_ATTRIBUTE_NORMAL);
    EXPECT_TRUE(DeleteFileW(view(file).c_str()));
  }
  void add(const std::string& file, const std::vector<Xref>& xrefs = {}) {
    writeDrawing(L"source.dxf", xrefs);
    run("@vault add %WORK%\\View\\" + file + " from %WORK%\\source.dxf\n");
  }
  void makeStale(const std::string& file, const std::vector<Xref>& xrefs = {}) {
    writeDrawing(L"source.dxf", xrefs);
    const std::string path = "%WORK%\\View\\" + file;
    run("@vault newversion " + path + " from %WORK%\\source.dxf\n@vault date \"" + path +
        "\" 2030-01-01 10:00:00\n");
  }
  /// Opens Main.dxf with the status window off, so that only the command under test asks.
  void openQuietly(const std::string& drawing = "Main") {
    run("@reg set StatusWnd 0\n@load\n@open %WORK%\\View\\Site\\" + drawing + ".dxf\n");
    mark();
  }
  std::wstring xrefBox() {
    run("@window\n");
    const std::wstring& line = session.transcript().back();
    const size_t at = line.find(L"1005=") + 5;
    return line.substr(at, line.find(L',', at) - at);
  }
  static std::wstring statement(const std::wstring& file, const std::wstring& folder) {
    return L"Exec Doc_Pop_GMDM_Temp '" + file + L"', '" + folder + L"'\\n";
  }
  static std::wstring batchBegin(const std::wstring& files) {
    return L"VaultQuery.execute(statements=\"Exec Doc_Init_GMDM_Temp\\n" + files +
           L"Exec Doc_GetModifiedDateMultiple '";
  }
  static std::wstring batch(const std::wstring& files, const std::wstring& viewId) {
    return batchBegin(files) + viewId + L"', 1\\nExec Doc_Cleanup_GMDM_Temp\"";
  }
};

TEST_F(XrefCheck, AsksOnceForAllFilesInTheOrderOfTheirPaths) {
  openQuietly();
  run(update);
  const std::wstring files =
      statement(L"O''Neil part.dxf", L"\\O''Brien\\") + statement(L"Root file.dxf", L"\\") +
      statement(L"B.DXF", L"\\XREFS\\") + statement(L"A.dxf", L"\\Xrefs\\") +
      statement(L"B.dxf", L"\\Xrefs\\") + statement(L"Gone.dxf", L"\\Xrefs\\") +
      statement(L"N.dxf", L"\\Xrefs\\") + statement(L"P.dxf", L"\\Xrefs\\");
  const std::wstring id = wb::store().vaultNamed(L"Works")->viewId;
  expectOrder({L"CoCreateInstance.Main", L"vaultNameFromPath(path=\"<work>\\View\\Site\\\")",
               L"login(", L"presentCode(code=3176520)", L"presentCode(code=19980117)",
               L"presentCode(code=5201874)", batch(files, id.substr(1, id.size() - 2))});
  for (const wchar_t* once : {L"CoCreateInstance.Main", L"login(", L"VaultQuery.execute"}) {
    EXPECT_EQ(count(once), 1) << recent();
  }
  EXPECT_EQ(count(L"xref: ") + count(L"progress") + count(L"box: "), 0) << recent();

  remove(L"desktop.ini");
  step(update);
  expectOrder({batch(files, L"00000000-0000-0000-0000-000000000000")});
}

TEST_F(XrefCheck, AsksNothingWithoutXrefsInTheView) {
  openQuietly("Alone");
  run(update);
  EXPECT_EQ(count(L"client: "), 0) << recent();
  writeDrawing(L"Else\\Out.dxf");
  run("@reg set StatusWnd 1\n@unload\n@load\n@open %WORK%\\View\\Site\\Outward.dxf\n");
  step(update);
  EXPECT_EQ(count(L"rootFolderPath"), 1) << recent();
  EXPECT_EQ(count(L"VaultQuery."), 0) << recent();
  EXPECT_EQ(xrefBox(), L"checked enabled");
}

struct StaleCase {
  const char* file;
  const char* further;
  const wchar_t* box;
};

TEST_F(XrefCheck, FirstStaleFileSettlesACheckThatChangesNothing) {
  const StaleCase cases[] = {
      {"Xrefs\\P.dxf", "", L"checked enabled"},  // below a file outside the view
      {"Xrefs\\Gone.dxf", "", L"checked enabled"},
      {"Root file.dxf", "@vault exempt \"%WORK%\\View\\Root file.dxf\" on\n", L"checked enabled"},
      {"Root file.dxf", "@vault exempt \"%WORK%\\View\\Root file.dxf\" off\n",
       L"unchecked enabled"},
      {"Root file.dxf", "@vault fetch \"%WORK%\\View\\Root file.dxf\"\n", L"checked enabled"},
      {"Xrefs\\N.dxf", "", L"unchecked enabled"},
  };
  run("@load\n" + open + "@close\n");
  for (const StaleCase& each : cases) {
    makeStale(each.file);
    run(each.further);
    step(open);
    EXPECT_EQ(xrefBox(), each.box) << each.file << each.further;
    EXPECT_EQ(count(L"xref: unloaded") + count(L"getLocalCopy") + count(L"progress"), 0);
    run("@close\n");
  }
  run("@vault fetch %WORK%\\View\\Xrefs\\N.dxf\n" + open);
  EXPECT_EQ(xrefBox(), L"checked enabled");
}

TEST_F(XrefCheck, PassesOverAFileThatIsLockedAndWhatIsNestedInIt) {
  makeStale("Xrefs\\N.dxf");
  const HeldOpen locked(view(L"Xrefs\\A.dxf"), GENERIC_READ, 0);
  run("@load\n" + open);
  EXPECT_EQ(xrefBox(), L"checked enabled");
}

TEST_F(XrefCheck, BringsUpToDateLevelByLevel) {
  add("Xrefs\\New.dxf");
  makeStale("Xrefs\\A.dxf", {{L"New", L"..\\Xrefs\\New.dxf"}});
  const std::string newA = bytesOf(workFolder() / L"source.dxf");
  makeStale("Xrefs\\New.dxf", {{L"Deep", L"..\\Xrefs\\P.dxf"}});
  run("@load\n" + open);
  step("@click IDC_XREFS_LATEST\n");
  const std::wstring xrefs = L"<work>\\View\\Xrefs\\";
  expectOrder({L"VaultQuery.execute", L"progress \"" + xrefs + L"A.dxf\" 0..1", L"xref: unloaded A",
               L"VaultClient.fileFromPath(path=\"" + xrefs + L"A.dxf\")",
               L"getLocalCopy(parent=main, reserved=0, path=\"" + xrefs + L"A.dxf\", flag=1)",
               L"xref: loaded A from", L"progress ends",
               // What was looked at in the first pass isn't asked for again.
               batchBegin(statement(L"Gone.dxf", L"\\Xrefs\\") +
                          statement(L"New.dxf", L"\\Xrefs\\") + statement(L"P.dxf", L"\\Xrefs\\")),
               L"xref: unloaded New", L"getLocalCopy(", L"xref: loaded New", L"progress ends"});
  EXPECT_EQ(count(L"getLocalCopy"), 2) << recent();
  EXPECT_EQ(count(L"VaultQuery.execute"), 3) << recent();
  EXPECT_EQ(bytesOf(view(L"Xrefs\\A.dxf")), newA);
  EXPECT_EQ(xrefBox(), L"checked enabled");
  run("@tick\n");
  EXPECT_EQ(xrefBox(), L"checked enabled");
}

TEST_F(XrefCheck, WhatIsNestedInAStaleFileIsComparedAfterItsRefresh) {
  makeStale("Xrefs\\N.dxf");
  makeStale("Xrefs\\A.dxf", {{L"N", L"..\\Xrefs\\N.dxf"}});
  openQuietly();
  run(update);
  expectOrder({L"A.dxf\" 0..1", L"xref: loaded A", L"N.dxf\" 0..1", L"getLocalCopy("});
}

TEST_F(XrefCheck, FetchesAFileUnderTwoSpellingsOnce) {
  makeStale("Xrefs\\B.dxf");
  openQuietly();
  run(update);
  EXPECT_EQ(count(L"getLocalCopy"), 1) << recent();
  expectOrder({L"xref: unloaded LoudB", L"getLocalCopy", L"xref: loaded LoudB"});
  EXPECT_EQ(count(L"xref: unloaded"), 1) << recent();
}

TEST_F(XrefCheck, FileThatTheVaultDoesntGiveStaysUnloadedAndTheRestGoesOn) {
  makeStale("O'Brien\\O'Neil part.dxf");
  makeStale("Root file.dxf");
  run("@load\n" + open + "@reg set EditWarning 0\n");
  step("@fail VaultClient.fileFromPath E_QVT_FILE_NOT_FOUND\n@click IDC_XREFS_LATEST\n");
  expectOrder({L"O'Neil part.dxf\" 0..2", L"progress at 0", L"xref: unloaded Quote",
               L"Root file.dxf\" 0..2", L"progress at 1", L"xref: unloaded Root", L"getLocalCopy(",
               L"xref: loaded Root", L"progress ends"});
  EXPECT_EQ(count(L"xref: loaded Quote") + count(L"box: "), 0) << recent();
  EXPECT_EQ(count(L"getLocalCopy"), 1) << recent();
  EXPECT_EQ(count(L"VaultQuery.execute"), 2) << recent();
  EXPECT_EQ(xrefBox(), L"checked enabled");
  step("@fail VaultClient.fileFromPath E_QVT_FILE_NOT_FOUND\n" + update);
  EXPECT_EQ(count(L"VaultQuery.execute"), 1) << "nothing new came, so nothing is looked at again";
}

struct FailingStep {
  const char* operation;
  bool unloads;
};

TEST_F(XrefCheck, ErrorOfTheVaultEndsTheRunAndIsTold) {
  makeStale("Root file.dxf");
  openQuietly();
  const FailingStep steps[] = {
      {"VaultClient.vaultNameFromPath", false},
      {"VaultClient.login", false},
      {"VaultGate.presentCode", false},
      {"VaultRootFolderAccess.rootFolder", false},
      {"VaultObject.id", false},
      {"VaultClient.rootFolderPath", false},
      {"VaultQuery.execute", false},
      {"VaultRowList.fetchRow", false},
      {"VaultRowList.nextResult", false},
      {"VaultRowList.textAt", false},
      {"VaultRowList.dateAt", false},
      {"VaultRowList.flagAt", false},
      {"VaultFile.getLocalCopy", true},
  };
  for (const FailingStep& failing : steps) {
    step("@fail " + std::string(failing.operation) + " E_QVT_PERMISSION_DENIED\n@answer ok\n" +
         update);
    EXPECT_EQ(count(errorBox + L"You don't have permission to perform this action."), 1)
        << failing.operation << recent();
    EXPECT_EQ(count(L"xref: unloaded Root"), failing.unloads ? 1 : 0)
        << failing.operation << recent();
    EXPECT_EQ(count(L"progress ends"), failing.unloads ? 1 : 0) << failing.operation << recent();
    EXPECT_EQ(count(L"xref: loaded"), 0) << failing.operation << recent();
  }
  expectOrder({L"getLocalCopy", L"progress ends", errorBox});
  for (const char* quiet : {"VaultClient.vaultNameFromPath E_QVT_KEY_NOT_FOUND",
                            "QueryInterface.VaultRootFolderAccess E_NOINTERFACE"}) {
    step("@fail " + std::string(quiet) + "\n" + update);
    EXPECT_EQ(count(L"box: ") + count(L"xref: ") + count(L"VaultQuery."), 0) << quiet << recent();
  }
  write(workFolder() / L"numbered.txt", "QvtInterface;ErrorCodes;12=number 12\n");
  step(
      "@client language %WORK%\\numbered.txt\n@fail VaultQuery.execute E_QVT_LOCKED\n@answer ok\n" +
      update);
  EXPECT_EQ(count(errorBox + L"number 12\""), 1) << recent();
  run("@client language default\n" + update);
  EXPECT_EQ(count(L"xref: loaded Root"), 1) << recent();
}

}  // namespace
