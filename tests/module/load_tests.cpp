#include <filesystem>

#include "core/Accounts.h"
#include "editor/Host.h"
#include "shared/ModuleSession.h"

namespace {

constexpr int redraw = 4;
constexpr int session = 0x200000;

struct Expected {
  const wchar_t* name;
  int flags;
};

const Expected commands[] = {
    {L"Tessaro_install", 0},          {L"Tessaro_uninstall", 0},
    {L"Tessaro_update", 0},           {L"Tessaro_updatecurrent", 0},
    {L"Tessaro_lockxref", redraw},    {L"Tessaro_unlockxref", redraw},
    {L"Tessaro_lock", session},       {L"Tessaro_locksilent", session},
    {L"Tessaro_unlock", redraw},      {L"Tessaro_getxrefversion", redraw},
    {L"Tessaro_getxrefver2", redraw}, {L"Tessaro_editxref", redraw},
    {L"Tessaro_getlatestxrefs", 0},   {L"Tessaro_settings", 0},
    {L"Tessaro_properties", redraw},  {L"Tessaro_telllockedelsewhere", session},
    {L"Tessaro_asklock", session},
};

class Load : public ModuleSession {
 protected:
  static const wb::Command* command(const std::wstring& typed) {
    return wb::Host::instance().commands().find(typed);
  }
  static void expectAllCommands(const std::wstring& group) {
    for (const Expected& expected : commands) {
      const wb::Command* found = command(expected.name);
      ASSERT_TRUE(found) << expected.name;
      EXPECT_EQ(command(L"_" + std::wstring(expected.name)), found);
      EXPECT_EQ(found->flags, expected.flags) << expected.name;
      EXPECT_EQ(found->group, group);
    }
  }
  /// What the application has entered with the host, in the order in which it did.
  std::vector<std::wstring> registrations() const {
    std::vector<std::wstring> found;
    for (const wb::Outstanding& one : wb::outstanding(before)) {
      for (const wchar_t* kind :
           {L"command", L"context menu", L"reactor", L"select-file callback"}) {
        if (one.kind == kind) found.push_back(one.kind + L" " + one.label);
      }
    }
    return found;
  }

  const wb::Ticket before = wb::nextTicket();
};

TEST_F(Load, EntersEverythingInItsOrderAndTakesAllOfItBack) {
  step("@load\n@window\n");
  expectAllCommands(L"Tessaro_TessaroAcad");
  std::vector<std::wstring> expected;
  for (const Expected& one : commands) expected.push_back(std::wstring(L"command ") + one.name);
  expected.insert(expected.end(),
                  {L"context menu AcDbBlockReference", L"reactor AcEditorReactor",
                   L"reactor AcApDocManagerReactor", L"select-file callback Tessaro"});
  EXPECT_EQ(registrations(), expected);
  expectOrder({L"VaultTextService.open(product=\"Halvern Vault Manager\", section=\"TessaroAcad\")",
               L"CoCreateInstance.Main() -> S_OK", L"window: \"Tessaro Status\""});
  EXPECT_EQ(count(L"box: "), 0) << recent();

  run("@unload\n");
  EXPECT_EQ(wb::outstanding(before).size(), 0u);
  for (const Expected& one : commands) EXPECT_FALSE(command(one.name));
  EXPECT_FALSE(session.run("@window\n")) << "the status window is gone";

  // Once more in the same process, as a user does after an update of the file.
  step("@load\n@open %WORK%\\View\\Plan.dxf\n@answer yes\nTessaro_lock\n");
  expectAllCommands(L"Tessaro_TessaroAcad");
  EXPECT_TRUE(stored().holder) << recent();
  run("@unload\n");
  // A drawing's life goes on without the application.
  step("@close\nTessaro_lock\n");
  EXPECT_EQ(count(L"client: "), 0) << recent();
}

TEST_F(Load, TakesItselfBackFromTheCommandsToTheVaultClient) {
  run("@load\n@open %WORK%\\View\\Plan.dxf\n");
  step("@unload\n");
  expectDetails({L"back: command Tessaro_install", L"back: command Tessaro_asklock",
                 L"back: select-file callback Tessaro", L"back: context menu AcDbBlockReference",
                 L"back: reactor AcEditorReactor", L"back: reactor AcApDocManagerReactor",
                 L"back: menu", L"WndPosX", L"back: window Tessaro Status",
                 L"back: com TextService", L"back: com VaultClient"});
}

TEST_F(Load, WithADrawingOpenServesItFromItsNextActivationOn) {
  run("@open %WORK%\\View\\Plan.dxf\n@open %WORK%\\small.dxf\n@load\n");
  step("@activate %WORK%\\View\\Plan.dxf\n@answer yes\nTessaro_lock\n");
  expectOrder({L"doc: activated <work>\\View\\Plan.dxf", L"VaultFile.latestVersion()",
               L"VaultFile.checkOut("});
  run("@unload\n");
}

TEST_F(Load, ARefusedCommandIsToldAndTheOthersAreThere) {
  run("@reserve Tessaro_install\n@reserve TESSARO_LOCK\n");
  step("@answer ok\n@answer ok\n@load\n");
  EXPECT_EQ(count(informationBox(L"Error adding command\\nAcad::ErrorStatus = 22.\"")), 2)
      << recent();
  for (const Expected& one : commands) {
    const wb::Command* found = command(one.name);
    ASSERT_TRUE(found);
    const bool refused =
        one.name == std::wstring(L"Tessaro_install") || one.name == std::wstring(L"Tessaro_lock");
    EXPECT_EQ(found->group == L"Tessaro_TessaroAcad", !refused) << one.name;
  }
  run("@unload\n");
  EXPECT_TRUE(command(L"Tessaro_lock")) << "the other application keeps its own";
  EXPECT_FALSE(command(L"Tessaro_asklock"));
}

TEST_F(Load, TheFilesNameMakesTheGroupAndNothingElse) {
  for (const auto& [file, group] : {std::pair(L"Drawing Vault.arx", L"Tessaro_Drawing Vault"),
                                    std::pair(L"Vault.2007.arx", L"Tessaro_Vault.2007")}) {
    std::filesystem::copy_file(options().module, workFolder() / file);
    const std::string path = "\"%WORK%\\" + std::filesystem::path(file).string() + "\"\n";
    run("@load " + path);
    expectAllCommands(group);
    run("@unload " + path);
    EXPECT_FALSE(command(L"Tessaro_lock"));
  }
}

TEST_F(Load, WithoutTheClientSaysNothingAndWorksOnceItIsThere) {
  run("@client missing\n");
  step("@load\n");
  EXPECT_EQ(count(L"box: "), 0) << recent();
  expectAllCommands(L"Tessaro_TessaroAcad");

  run("@client present\n@open %WORK%\\View\\Plan.dxf\n@answer yes\nTessaro_lock\n");
  EXPECT_TRUE(stored().holder);
  run("@unload\n");
}

}  // namespace
