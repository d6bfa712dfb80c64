// The commands `install` and `uninstall`, and the host's next start.

#include <memory>

#include "editor/LoadRecord.h"
#include "shared/ModuleSession.h"

namespace {

class LoadRecord : public ModuleSession {};

TEST_F(LoadRecord, InstallWritesTheRecordAndUninstallTakesItAway) {
  const std::wstring file = (binFolder() / L"TessaroAcad.arx").wstring();
  run("@load\n@new\n");
  for (int round = 0; round < 2; ++round) {
    step("Tessaro_uninstall\nTessaro_install\nTessaro_install\n");
    EXPECT_EQ(wb::filesToLoadAtStart(), std::vector<std::wstring>{file});
    expectOrder({round == 0
                     ? L"prompt: \"Failed acrxUnregisterApp. The add-in may not be installed.\""
                     : L"prompt: \"Tessaro AutoCAD add-in has been unregistered successfully.\"",
                 L"prompt: \"Tessaro AutoCAD add-in has been registered successfully.\"",
                 L"prompt: \"Tessaro AutoCAD add-in has been registered successfully.\""});
    EXPECT_EQ(count(L"box: "), 0) << recent();
    EXPECT_EQ(count(L"reg: load record TessaroACAD = <bin>\\TessaroAcad.arx, reason 2"), 2)
        << recent();
    // Only this user's record, of a module for the editor alone.
    for (const wb::Transcript::Detail& detail : details()) {
      if (detail.line.rfind(L"record: ", 0) != 0) continue;
      EXPECT_TRUE(detail.line == L"record: write" || detail.line == L"record: delete");
    }
  }
  run("Tessaro_uninstall\n");
  EXPECT_TRUE(wb::filesToLoadAtStart().empty());
  // The module stays: a command of it still runs.
  step("Tessaro_uninstall\n");
  EXPECT_EQ(count(L"prompt: \"Failed acrxUnregisterApp."), 1) << recent();
}

TEST_F(LoadRecord, NeedsNoClient) {
  // The status of the new drawing is asked for, shown or not.
  run("@reg set StatusWnd 0\n@client missing\n@load\n@answer ok\n@new\n");
  step("Tessaro_install\nTessaro_uninstall\n@client present\n");
  expectOrder({L"prompt: \"Tessaro AutoCAD add-in has been registered successfully.\"",
               L"prompt: \"Tessaro AutoCAD add-in has been unregistered successfully.\""});
  EXPECT_EQ(count(L"box: "), 0) << recent();
}

/// Two runs of the host, one after the other.
TEST(HostRestart, LoadsWhatWasInstalledUntilItIsUninstalled) {
  wb::SessionOptions options = ModuleSession::options();
  const auto start = [&](bool keep) {
    options.keep = keep;
    return std::make_unique<wb::Session>(options);
  };
  auto session = start(false);
  EXPECT_TRUE(session->run("@load\n@new\nTessaro_install\n"));
  session.reset();

  session = start(true);
  EXPECT_TRUE(session->reported(L"doc: application loaded TessaroAcad.arx"));
  EXPECT_TRUE(session->run("@new\nTessaro_uninstall\n"));
  EXPECT_TRUE(session->reported(L"has been unregistered successfully."));
  session.reset();

  session = start(true);
  EXPECT_FALSE(session->reported(L"application loaded"));
  session->end();
  EXPECT_EQ(session->count(L"leak: "), 0);
}

}  // namespace
