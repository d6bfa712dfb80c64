#include "sessions/Generator.h"

#include <random>

namespace sessions {
namespace {

using Texts = std::vector<std::string>;

const Texts vaultFiles = {R"(Site\Plan.dxf)",          R"(Site\Notes.dxf)",
                          R"(Xrefs\Grid.dxf)",         R"(Xrefs\Building.dxf)",
                          R"(Xrefs\O'Neil drain.dxf)", R"(Xrefs\Detail\Furniture.dxf)",
                          R"(Standards\North.dxf)"};
const std::string firstSheet = R"(Site\Plan.dxf)";
const std::string secondSheet = R"(Site\Section.dxf)";  // refers to what the first one does
const Texts xrefs = {"Grid",        "Building", "O'Neil drain", "North",
                     "NorthDetail", "Outside",  "Furniture",    "Nobody"};
const Texts commands = {"lock",       "locksilent", "unlock",        "getlatestxrefs",
                        "properties", "update",     "updatecurrent", "settings",
                        "install",    "uninstall",  "asklock",       "telllockedelsewhere"};
const Texts xrefCommands = {"lockxref",      "unlockxref", "getxrefversion",
                            "getxrefver2 1", "editxref",   "properties"};
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
                          "AcDbBlockTable.getAt",
                          "host.AcAxDocLock",
                          "host.acdbOpenAcDbObject",
                          "host.acedEntSel",
                          "host.acedGetCurDwgXrefGraph",
                          "host.acedGetInt",
                          "host.acedSSGet",
                          "host.acedSSLength",
                          "host.acedSSName",
                          "host.acedXrefReload",
                          "host.acedXrefUnload",
                          "host.appContextOpenDocument"};
const Texts codes = {"E_FAIL", "E_QVT_PERMISSION_DENIED", "E_QVT_FILE_SHARE_ERROR", "E_OUTOFMEMORY",
                     "0x80010108"};  // the last is RPC_E_DISCONNECTED
const Texts clientVersions = {"5 3", "5 3", "5 3", "5 2", "4 9", "6 0"};
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
    if (failing) {
      lines += "@fail " + any(operations) + ' ' + any(codes) + " after " +
               std::to_string(below(4)) + (below(3) ? "\n" : " always\n");
    }
    const bool disturbed = below(20) == 0;
    if (disturbed) {
      lines +=
          "@disturb " + file() + (below(2) ? " held" : " away") + " at " + any(operations) + "\n";
    }
    lines += tried(action());
    if (failing || disturbed) lines += "@fail clear\n";
    return lines;
  }

 private:
  unsigned below(size_t end) { return stream() % static_cast<unsigned>(end); }
  const std::string& any(const Texts& texts) { return texts[below(texts.size())]; }
  std::string file() { return R"(%WORK%\View\)" + (below(8) ? any(vaultFiles) : secondSheet); }
  std::string sheet() {
    if (below(2)) return file();
    return R"(%WORK%\View\)" + (below(3) ? firstSheet : secondSheet);
  }

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
    if (kind < 98) return clientStep();
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

  std::string clientStep() {
    switch (below(4)) {
      case 0:
        return "@client missing\n";
      case 1:
        return "@client version " + any(clientVersions) + "\n";
      default:
        return "@client present\n";
    }
  }

  std::string xrefStep() {
    if (below(5) == 0) return "@select " + any(xrefs) + "\n" + xrefCommand();
    const std::string pick = "@pick " + any(xrefs) + "\n";
    if (below(2)) return pick + "@menu\n@choose-any " + std::to_string(below(1000)) + "\n";
    // A prompt that comes up all the same is cancelled.
    return pick + xrefCommand();
  }

  std::string xrefCommand() { return "@select none\nTessaro_" + any(xrefCommands) + "\n"; }

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
    switch (below(9)) {
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
      case 7: {
        // Somebody else takes the drawing and gives it back while the user works with it.
        const std::string drawing = sheet();
        return "@vault checkout " + drawing + " user mary computer DRAFTING2 folder D:\\Plant\n" +
               "Tessaro_" + any(commands) + "\n@vault undo " + drawing + "\n@click 1021\n";
      }
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
    lines.append("@vault add %WORK%\\View\\").append(file);
    lines.append(" from %DRAWINGS%\\").append(file).append("\n");
  }
  lines += "@vault add %WORK%\\View\\" + secondSheet + " from %DRAWINGS%\\" + firstSheet + "\n";
  return lines + "@vault map %WORK%\\View\\Site\\Plan.dxf Title A1_TITLE TITLE\n@load\n";
}

std::vector<std::string> steps(unsigned seed, unsigned count) {
  Generator generator(seed);
  std::vector<std::string> made;
  while (made.size() < count) made.push_back(generator.step());
  return made;
}

}  // namespace sessions
