#include "sessions/Generator.h"

#include <random>

namespace sessions {
namespace {

using Texts = std::vector<std::string>;

const Texts vaultFiles = {R"(Site\Plan.dxf)",          R"(Site\Notes.dxf)",
                          R"(Xrefs\Grid.dxf)",         R"(Xrefs\Building.dxf)",
                          R"(Xrefs\O'Neil drain.dxf)", R"(Xrefs\Detail\Furniture.dxf)",
                          R"(Standards\North.dxf)"};
const Texts xrefs = {"Grid", "Building", "North", "NorthDetail", "Outside", "Nobody"};
const Texts commands = {"lock",       "locksilent", "unlock",        "getlatestxrefs",
                        "properties", "update",     "updatecurrent", "settings",
                        "install",    "uninstall",  "asklock",       "telllockedelsewhere"};
const Texts xrefCommands = {"lockxref",      "unlockxref", "getxrefversion",
                            "getxrefver2 1", "editxref",   "properties"};
const Texts menuItems = {"Check out this Xref", "Check in this Xref", "Edit this Xref",
                         "Properties", "Get Version > 1. <Created>"};
const Texts operations = {"VaultClient.login",
                          "fileFromPath",
                          "vaultNameFromPath",
                          "checkOut",
                          "VaultFile.checkIn",
                          "VaultFile.isCheckedOut",
                          "VaultFile.latestVersion",
                          "VaultFile.localVersion",
                          "VaultFile.getLocalCopy",
                          "VaultFile.currentState",
                          "VaultFile.checkedOutBy",
                          "VaultFolderActions.getVersion",
                          "VaultFileLegacy.versionList",
                          "VaultFileLegacy.isCheckedOutHere",
                          "VaultVersionList.nextVersion",
                          "VaultQuery.execute",
                          "VaultRowList.fetchRow",
                          "VaultTextService.text",
                          "VaultCardData.cardVariables",
                          "VaultCardVariable.firstMapping",
                          "VaultClientLegacy.clientVersion",
                          "IContextMenu.InvokeCommand",
                          "IShellFolder.ParseDisplayName",
                          "AcDbText.setTextString",
                          "AcDbBlockTable.getAt"};
const Texts settings = {"Autolock 0",
                        "Autolock 1",
                        "EditWarning 0",
                        "EditWarning 1",
                        "StatusWnd 0",
                        "StatusWnd 1",
                        "XrefMonitoringInterval 0",
                        "XrefMonitoringInterval 5"};

class Generator {
 public:
  explicit Generator(unsigned seed) : stream(seed) {}

  std::string step() {
    std::string lines = "@answer-any " + std::to_string(below(1000000)) + "\n";
    const bool failing = below(12) == 0;
    if (failing)
      lines += "@fail " + any(operations) + " E_FAIL after " + std::to_string(below(4)) + "\n";
    lines += tried(action());
    if (failing) lines += "@fail clear\n";
    return lines;
  }

 private:
  unsigned below(size_t end) { return stream() % static_cast<unsigned>(end); }
  const std::string& any(const Texts& texts) { return texts[below(texts.size())]; }
  std::string file() { return R"(%WORK%\View\)" + any(vaultFiles); }
  std::string sheet() { return below(2) ? R"(%WORK%\View\Site\Plan.dxf)" : file(); }

  /// Directives are passed over where they aren't possible, so that the script goes on.
  static std::string tried(const std::string& lines) {
    std::string result;
    for (size_t at = 0; at < lines.size();) {
      const size_t end = lines.find('\n', at) + 1;
      if (lines[at] == '@') result += "@try ";
      result += lines.substr(at, end - at);
      at = end;
    }
    return result;
  }

  std::string action() {
    const unsigned kind = below(100);
    if (kind < 16) return open();
    if (kind < 21) return "@edit\n";
    if (kind < 25) return "@save\n";
    if (kind < 29) return "@close\n";
    if (kind < 33) return "@activate " + sheet() + "\n";
    if (kind < 48) return "Tessaro_" + any(commands) + "\n";
    if (kind < 63) return xrefStep();
    if (kind < 76) return windowStep();
    if (kind < 92) return vaultStep();
    if (kind < 95) return "@reg set " + any(settings) + "\n";
    if (kind < 96) return "@client missing\n";
    if (kind < 97) return "@client present\n";
    return "@unload\n@load\n";
  }

  std::string open() {
    switch (below(6)) {
      case 0:
        return "@new\n";
      case 1:
        return "@open %DRAWINGS%\\" + any(vaultFiles) + "\n";
      case 2:
        return "@open " + sheet() + " readonly\n";
      case 3:
        return "@opendialog " + sheet() + "\n";
      default:
        return "@open " + sheet() + "\n";
    }
  }

  std::string xrefStep() {
    const std::string pick = "@pick " + any(xrefs) + "\n";
    if (below(2)) return pick + "@menu\n@choose " + any(menuItems) + "\n";
    // A prompt that comes up all the same is cancelled.
    return pick + "@select none\nTessaro_" + any(xrefCommands) + "\n";
  }

  std::string windowStep() {
    switch (below(8)) {
      case 0:
        return "@click 1005\n";
      case 1:
        return "@click 1006\n";
      case 2:
        return below(3) ? "@window\n" : "@window close\n";
      case 3:
      case 4:
        return "@tick\n";
      default:
        return "@click 1021\n";
    }
  }

  std::string vaultStep() {
    switch (below(8)) {
      case 0:
        return "@vault checkout " + file() + " user mary computer DRAFTING2 folder D:\\Plant\n";
      case 1:
        return "@vault checkout " + file() + "\n";
      case 2:
        return "@vault undo " + file() + "\n";
      case 3:
        return "@vault deny " + file() + (below(3) ? " off\n" : " on\n");
      case 4:
        return "@vault state \"" + file() + "\"" +
               (below(2) ? " Released\n" : " Work in progress\n");
      case 5:
        return std::string("@vault offline ") + (below(3) ? "off\n" : "on\n");
      case 6:
        return R"(@vault card %WORK%\View\Site\Plan.dxf Title Layout1 Pump house )" +
               std::to_string(below(100)) + "\n";
      default:
        return "@vault newversion " + file() + " from %DRAWINGS%\\" + any(vaultFiles) +
               " user mary comment Widened\n";
    }
  }

  std::mt19937 stream;
};

}  // namespace

std::string preamble() {
  std::string lines = "@vault create Works %WORK%\\View\n";
  for (const std::string& file : vaultFiles) {
    lines += "@vault add %WORK%\\View\\" + file + " from %DRAWINGS%\\" + file + "\n";
  }
  return lines + "@vault map %WORK%\\View\\Site\\Plan.dxf Title A1_TITLE TITLE\n@load\n";
}

std::vector<std::string> steps(unsigned seed, unsigned count) {
  Generator generator(seed);
  std::vector<std::string> made;
  while (made.size() < count) made.push_back(generator.step());
  return made;
}

}  // namespace sessions
