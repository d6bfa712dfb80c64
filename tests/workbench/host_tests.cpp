// The stand-in host by itself: a small application (tests/testmodule) writes on the command line
// what happens to it, in between the host's own lines of the transcript.

#include <fstream>
#include <string>

#include "workbench/HostTest.h"

namespace {

TEST_F(HostTest, LoadingTellsTheModuleOfOpenDocumentsAndUnloadingTakesItAway) {
  host.open(drawing(L"a.dxf"));
  load();
  EXPECT_TRUE(inOrder({L"opened", L"message 1\"", L"message 3\""}));
  run(L"T_STAY");
  EXPECT_FALSE(host.unloadModule(module));
  run(L"T_GO");
  EXPECT_TRUE(host.unloadModule(L"TESTMODULE.ARX"));
  EXPECT_TRUE(inOrder({L"refused: unloading", L"message 4\"", L"message 2\"", L"unloaded"}));
  EXPECT_FALSE(said(L"leak:")) << text();
  EXPECT_EQ(GetModuleHandleW(L"testmodule.arx"), nullptr);
  run(L"T_DOCUMENT");
  EXPECT_TRUE(said(L"Unknown command \\\"T_DOCUMENT\\\""));
}

TEST_F(HostTest, ModulesThatArentOnesAreRefusedWithTheReason) {
  EXPECT_FALSE(host.loadModule((folder / L"none.arx").wstring()));
  EXPECT_TRUE(said(L"doesn't exist"));
  EXPECT_FALSE(host.loadModule(drawing(L"text.arx")));
  EXPECT_TRUE(said(L"damaged or no 64-bit library"));
  wchar_t system[MAX_PATH];
  GetSystemDirectoryW(system, MAX_PATH);
  EXPECT_FALSE(host.loadModule((fs::path(system) / L"version.dll").wstring()));
  EXPECT_TRUE(said(L"doesn't export acrxEntryPoint"));
}

TEST_F(HostTest, DocumentEventsComeInTheHostsOrder) {
  const std::wstring first = loadAndOpen();
  host.open(drawing(L"b.dxf"));
  EXPECT_TRUE(
      inOrder({L"documentCreateStarted", L"documentCreated b", L"ToBeDeactivated a",
               L"ToBeActivated b", L"BecameCurrent b", L"message 3\"", L"documentActivated b"}));
  forget();
  EXPECT_TRUE(host.close());
  EXPECT_TRUE(inOrder({L"documentToBeDestroyed b", L"message 4\"", L"documentDestroyed b",
                       L"documentActivated a"}));
  forget();
  EXPECT_TRUE(host.save(first));
  EXPECT_TRUE(
      inOrder({L"LockModeWillChange QSAVE", L"LockModeChanged QSAVE 4", L"message 9\"", L"saved",
               L"a.dxf a.dxf", L"LockModeWillChange #QSAVE", L"LockModeChanged #QSAVE 2"}));
  EXPECT_FALSE(host.open((folder / L"missing.dxf").wstring()));
  EXPECT_TRUE(inOrder({L"documentCreateCanceled", L"refused: opening"}));
}

TEST_F(HostTest, CommandsRunInTheirContexts) {
  load();
  run(L"T_DOCUMENT");
  EXPECT_TRUE(said(L"T_DOCUMENT refused: no drawing is open"));
  run(L"T_SESSION");
  EXPECT_TRUE(said(L"in the application's context"));
  host.open(drawing(L"a.dxf"));
  forget();
  run(L"t_document");
  EXPECT_TRUE(inOrder({L"command: T_DOCUMENT", L"LockModeChanged T_DOCUMENT 4",
                       L"in a document's context", L"LockModeChanged #T_DOCUMENT 2"}));
  forget();
  run(L"_T_SESSION");
  EXPECT_TRUE(said(L"in the application's context"));
  EXPECT_FALSE(said(L"LockMode"));
  run(L"T_OPENHERE");
  EXPECT_TRUE(said(L"invalid context"));
  forget();
  run(L"T_LATER");
  EXPECT_TRUE(inOrder({L"command over", L"LockModeChanged #T_LATER", L"the application's"}));
}

TEST_F(HostTest, UnsavedChangesAreAskedForAndTheClosingCanBeRefused) {
  const std::wstring path = loadAndOpen();
  host.edit();
  wb::Answers::instance().queue(L"cancel");
  run(L"T_CLOSEOWN");
  EXPECT_TRUE(inOrder({L"Save changes to", L"refused: closing"}));
  EXPECT_FALSE(said(L"documentToBeDestroyed"));
  wb::Answers::instance().queue(L"no");
  forget();
  run(L"T_CLOSEOWN");
  EXPECT_TRUE(inOrder({L"documentDestroyed a", L"after closeDocument: 0",
                       L"error: AcApDocument::fileName of the destroyed document"}));
  host.open(path);
  host.edit();
  wb::Answers::instance().queue(L"yes");
  forget();
  EXPECT_TRUE(host.close());
  EXPECT_TRUE(inOrder({L"Save changes to", L"saved", L"documentDestroyed a"}));
}

TEST_F(HostTest, WhateverLeavesACommandIsToldAndTheHostGoesOn) {
  loadAndOpen();
  run(L"T_COMERROR");
  EXPECT_TRUE(inOrder(
      {L"T_COMERROR ended by an uncaught error 0x80070005", L"LockModeChanged #T_COMERROR 2"}));
  run(L"T_VALUE");
  EXPECT_TRUE(said(L"T_VALUE ended by an uncaught error of the value 7"));
  run(L"T_LOSE");
  EXPECT_TRUE(said(L"leak: buffer 10 bytes"));
  EXPECT_FALSE(said(L"error:")) << text();
}

TEST_F(HostTest, PromptsReadTheQueueAndEscapeCancels) {
  loadAndOpen();
  run(L"T_NUMBER x 99999 12");
  EXPECT_TRUE(inOrder({L"Requires an integer", L"Requires an integer", L"acedGetInt 5100 12"}));
  host.type(L"T_NUMBER");
  host.type(L"");
  host.runUntilIdle();
  EXPECT_TRUE(said(L"acedGetInt 5000 0"));
  host.type(L"T_NUMBER \x1B_T_SESSION");
  host.type(L"T_NUMBER 3");
  host.runUntilIdle();
  EXPECT_TRUE(said(L"acedGetInt -5002 0"));
  EXPECT_FALSE(said(L"5100 3")) << "typed ahead, so escape drops it";
  int fed = 0;
  host.needInput = [&] {
    host.type(L"8");
    return ++fed == 1;
  };
  run(L"T_NUMBER");
  EXPECT_TRUE(said(L"acedGetInt 5100 8"));
  host.needInput = nullptr;
  run(L"T_NUMBER");
  EXPECT_TRUE(said(L"error: a prompt waits for input"));
}

TEST_F(HostTest, DrawingsAreHeldOnlyWhileTheyAreOpenForWriting) {
  const std::wstring path = loadAndOpen();
  const auto canWrite = [&] { return std::ofstream(fs::path(path), std::ios::app).good(); };
  EXPECT_FALSE(canWrite());
  host.open(path);
  EXPECT_TRUE(said(L"a.dxf read-only"));
  host.close();
  host.edit();
  run(L"T_SAVE");
  EXPECT_TRUE(inOrder({L"command: T_SAVE", L"command: QSAVE", L"saved", L"DBMOD 1, acedCommand"}));
  EXPECT_FALSE(canWrite());
  host.close();
  EXPECT_TRUE(canWrite());
  forget();
  host.open(path, true);
  EXPECT_TRUE(canWrite());
  host.edit();
  EXPECT_FALSE(host.save());
  EXPECT_TRUE(said(L"the drawing is read-only"));
  wb::Answers::instance().queue(L"no");
  host.close();
}

TEST_F(HostTest, ADrawingWithoutANameGetsOneWhenItIsSaved) {
  const std::wstring path = (folder / L"new.dxf").wstring();
  host.newDrawing();
  host.edit();
  wb::Host::queuePick(std::nullopt);
  wb::Answers::instance().queue(L"yes");
  EXPECT_FALSE(host.close());
  wb::Host::queuePick(path);
  run(L"_QSAVE");
  EXPECT_TRUE(inOrder({L"created Drawing1", L"Save changes to Drawing1?", L"refused: closing",
                       L"flags=0x40001", L"saved"}));
  EXPECT_TRUE(fs::exists(path));
  EXPECT_TRUE(host.close(path)) << "nothing is unsaved any more\n" << text();
}

}  // namespace
