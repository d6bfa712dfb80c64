#include "scripting/Script.h"

#include <acedads.h>
#include <adscodes.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

#include "core/Accounts.h"
#include "core/RegistrySettings.h"
#include "core/Transcript.h"
#include "dialogs/Answers.h"
#include "editor/Host.h"
#include "workbench/BareSession.h"

namespace {

/// A command of the test's own, as a loaded application would add it.
void addCommand(const std::wstring& name, std::function<void()> work) {
  wb::Command command;
  command.group = L"TEST";
  command.global = command.local = name;
  command.flags = ACRX_CMD_SESSION;
  command.work = std::move(work);
  wb::Host::instance().commands().add(std::move(command));
}

int ask() { return wb::watchedMessageBox(nullptr, L"Go on?", L"Tessaro", MB_YESNO); }

TEST(ScriptLines, CommentsBlankLinesAndLineEndsFallAwayAndNumbersStay) {
  const auto lines = wb::scriptLines("\xEF\xBB\xBF; about\r\n\r\n  @mark\r\ntyped text \n;x\nlast");
  ASSERT_EQ(3u, lines.size());
  EXPECT_EQ(3u, lines[0].number);
  EXPECT_EQ(L"@mark", lines[0].text);
  EXPECT_EQ(L"typed text ", lines[1].text);
  EXPECT_EQ(6u, lines[2].number);
  EXPECT_EQ(L"last", lines[2].text);
}

struct WrongLine {
  const char* line;
  const wchar_t* told;
};

TEST(Script, WrongDirectivesEndTheScriptWithTheirLine) {
  const WrongLine wrong[] = {
      {"@opne x", L"there is no directive @opne"},
      {"@answer maybe", L"\"maybe\" is no button; usage: @answer"},
      {"@answer", L"something is missing; usage: @answer"},
      {"@fill comment text", L"\"comment\" isn't a number"},
      {"@check 12 maybe", L"neither on nor off"},
      {"@row 0", L"rows are counted from 1"},
      {"@mark now", L"\"now\" is one word too many"},
      {"@open \"C:\\Plan.dxf", L"a quote isn't closed"},
      {"@open %DRAWINGS%\\Plan.dxf", L"%DRAWINGS% isn't set"},
      {"@client asleep", L"isn't a condition of the client"},
      {"@client language C:\\none.txt", L"there is no language file"},
      {"@fail VaultFile.checkOut NO_SUCH_CODE", L"\"NO_SUCH_CODE\" is no result code"},
      {"@fail VaultFile.checkOut E_FAIL soon", L"\"soon\" is one word too many"},
      {"@reg set Autolock many", L"\"many\" is no number"},
      {"@close", L"no drawing is open"},
      {"@activate C:\\none.dxf", L"isn't open"},
      {"@edit", L"there is no drawing to edit"},
      {"@load C:\\none.arx", L"not loaded"},
      {"@window", L"there is no status window"},
      {"@vault paint x", L"@vault"},
  };
  BareSession session;
  for (const WrongLine& one : wrong) {
    EXPECT_FALSE(session.run(std::string("; first\n") + one.line + "\n@answer never\n"))
        << one.line;
    const std::wstring& last = session.transcript().back();
    EXPECT_EQ(0u, last.rfind(L"error: line 2: ", 0)) << one.line;
    EXPECT_NE(std::wstring::npos, last.find(one.told)) << one.line;
  }
}

TEST(Script, ExpectationsLookAtTheLinesSinceTheMark) {
  BareSession session;
  wb::report(wb::Event::doc, L"before \"the\" mark");
  EXPECT_TRUE(session.run("@expect before \"the\" mark\n@mark\n@expect-no before\n"));
  EXPECT_FALSE(session.run("@mark\n@expect before\n@nonsense\n"));
  EXPECT_EQ(L"error: line 2: expected since the mark: before", session.transcript().back());
  wb::report(wb::Event::doc, BareSession::options().workFolder + L"\\a.dxf");
  EXPECT_TRUE(session.run("@expect %WORK%\\a.dxf\n"));
  EXPECT_FALSE(session.run("@expect-no doc: <work>\\a.dxf\n"));
}

TEST(Script, UnansweredBoxEndsTheScriptAndLeftOverAnswersFailIt) {
  BareSession session;
  int runs = 0;
  addCommand(L"ASK", [&] {
    ask();
    ++runs;
  });
  EXPECT_FALSE(session.run("ASK\nASK\n"));
  EXPECT_EQ(1, runs);
  EXPECT_TRUE(session.reported(L"error: box without an answer: "));
  EXPECT_TRUE(session.reported(L"error: line 1: failed: ASK"));
  EXPECT_TRUE(session.run("@answer yes\nASK\n@expect answer=yes\n"));
  EXPECT_FALSE(session.run("@answer yes\n"));
  EXPECT_TRUE(session.reported(L"error: nothing asked for the answer: yes"));
  EXPECT_FALSE(session.run("ASK\n")) << "the answer left over doesn't reach the next run";
}

TEST(Script, PromptReadsTheNextPlainLineAndDirectivesBeforeIt) {
  BareSession session;
  int number = 0;
  int result = 0;
  addCommand(L"PICKNUMBER", [&] { result = acedGetInt(L"\nNumber: ", &number); });
  EXPECT_TRUE(session.run("PICKNUMBER\n@mark\n42\n@expect-no nothing\n")) << "line by line";
  EXPECT_EQ(RTNORM, result);
  EXPECT_EQ(42, number);
  EXPECT_FALSE(session.run("PICKNUMBER\n@open C:\\a.dxf\n42\n"));
  EXPECT_TRUE(session.reported(L"line 2: @open can't come while a command waits for input"));
  EXPECT_FALSE(session.run("PICKNUMBER\n")) << "no input is left";
}

TEST(Script, SettingsAreSetShownAndGoneInTheNextSession) {
  {
    BareSession session;
    EXPECT_TRUE(
        session.run("@reg set StatusWnd 0\n@reg set Autolock 0x10\n@mark\n@reg show\n"
                    "@expect reg: Autolock=16\n@expect reg: StatusWnd=0\n"
                    "@reg delete Autolock\n@mark\n@reg show\n@expect-no Autolock\n"));
  }
  BareSession next;
  EXPECT_TRUE(next.transcript().empty());
  EXPECT_TRUE(wb::addinSettings().empty());
}

TEST(Session, WorkFolderOfAnotherIsNeverEmptied) {
  const std::filesystem::path folder = BareSession::workFolder() + L"-foreign";
  std::filesystem::create_directories(folder);
  std::ofstream(folder / L"drawing.dxf") << "0\nEOF\n";
  wb::SessionOptions options;
  options.workFolder = folder;
  EXPECT_THROW(wb::Session{options}, std::runtime_error);
  EXPECT_TRUE(std::filesystem::exists(folder / L"drawing.dxf"));
  std::filesystem::remove_all(folder);
}

TEST(Session, WorkFolderIsEmptiedOfWriteProtectedFilesUnlessKept) {
  const std::filesystem::path file = std::filesystem::path(BareSession::workFolder()) / L"v" / L"a";
  {
    BareSession session;
    std::filesystem::create_directories(file.parent_path());
    std::ofstream{file} << "x";
    SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_READONLY);
  }
  {
    wb::SessionOptions options = BareSession::options();
    options.keep = true;
    const wb::Session kept(options);
    EXPECT_TRUE(std::filesystem::exists(file));
  }
  const BareSession fresh;
  EXPECT_FALSE(std::filesystem::exists(file));
}

TEST(Session, WhatIsNotGivenBackIsALeakOfThatSessionAlone) {
  {
    BareSession session;
    wb::trackResource(L"thing", L"lost");
    session.end();
    EXPECT_TRUE(session.reported(L"leak: thing lost"));
  }
  BareSession next;
  next.end();
  EXPECT_FALSE(next.reported(L"leak"));
}

TEST(Script, PicturesAreTakenOfTheDesktopAlsoUnderABox) {
  BareSession session;
  addCommand(L"ASK", [] { ask(); });
  EXPECT_TRUE(session.run("@shot %WORK%\\idle.png\n@answer yes shot %WORK%\\box.png\nASK\n"))
      << "needs the system's picture encoder";
  for (const wchar_t* name : {L"idle.png", L"box.png"}) {
    std::ifstream picture(std::filesystem::path(BareSession::workFolder()) / name,
                          std::ios::binary);
    char signature[4] = {};
    picture.read(signature, sizeof(signature));
    EXPECT_EQ(std::string("\x89PNG", 4), std::string(signature, 4));
  }
  EXPECT_FALSE(session.run("@shot %WORK%\\none\\idle.png\n"));
}

}  // namespace
