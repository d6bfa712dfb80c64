#include <random>
#include <sstream>

#include "sessions/RandomSession.h"

namespace wb {
namespace {

using Texts = std::vector<std::string>;

/// The texts between the commas of one.
Texts listed(const std::string& text) {
  Texts texts;
  std::istringstream stream(text);
  for (std::string one; std::getline(stream >> std::ws, one, ',');) texts.push_back(one);
  return texts;
}

const Texts vaultFiles =
    listed(R"(Site\Plan.dxf, Site\Notes.dxf, Xrefs\Grid.dxf, Xrefs\Building.dxf,)"
           R"(Xrefs\O'Neil drain.dxf, Xrefs\Detail\Furniture.dxf, Standards\North.dxf)");
const std::string firstSheet = R"(Site\Plan.dxf)";
const std::string secondSheet = R"(Site\Section.dxf)";  // refers to what the first one does
const Texts xrefs =
    listed("Grid, Building, O'Neil drain, North, NorthDetail, Outside, Furniture, Nobody");
const Texts commands = listed(
    "lock, locksilent, unlock, getlatestxrefs, properties, update, updatecurrent, settings,"
    "install, uninstall, asklock, telllockedelsewhere");
const Texts xrefCommands =
    listed("lockxref, unlockxref, getxrefversion, getxrefver2 1, editxref, properties");
const Texts operations = listed(
    "VaultClient.login, fileFromPath, vaultNameFromPath, checkOut, VaultFile.checkIn,"
    "VaultFile.isCheckedOut, VaultFile.latestVersion, VaultFile.localVersion,"
    "VaultFile.getLocalCopy, VaultFile.currentState, VaultFile.checkedOutBy,"
    "VaultFolderActions.getVersion, VaultFileLegacy.versionList,"
    "VaultFileLegacy.isCheckedOutHere, VaultVersionList.nextVersion, VaultQuery.execute,"
    "VaultRowList.fetchRow, VaultTextService.text, VaultCardData.cardVariables,"
    "VaultCardVariable.firstMapping, VaultClientLegacy.clientVersion,"
    "IContextMenu.InvokeCommand, IShellFolder.ParseDisplayName, AcDbText.setTextString,"
    "AcDbBlockTable.getAt, host.AcAxDocLock, host.acdbOpenAcDbObject, host.acedEntSel,"
    "host.acedGetCurDwgXrefGraph, host.acedGetInt, host.acedSSGet, host.acedSSLength,"
    "host.acedSSName, host.acedXrefReload, host.acedXrefUnload, host.appContextOpenDocument");
const Texts codes = listed(
    "E_FAIL, E_QVT_PERMISSION_DENIED, E_QVT_FILE_SHARE_ERROR, E_OUTOFMEMORY,"
    "0x80010108");  // RPC_E_DISCONNECTED
const Texts clientVersions = listed("5 3, 5 3, 5 3, 5 2, 4 9, 6 0");
const Texts settings = listed(
    "Autolock 0, Autolock 1, EditWarning 0, EditWarning 1, StatusWnd 0, StatusWnd 1,"
    "XrefMonitoringInterval 0, XrefMonitoringInterval 5");

class Generator {
 public:
  explicit Generator(unsigned seed) : stream(seed) {}

  Step step() {
    made = {};
    std::string lines = "@answer-any " + std::to_string(below(1000000)) + "\n";
    if (below(12) == 0) {
      made.failing = true;
      lines += "@fail " + any(operations) + ' ' + any(codes) + " after " +
               std::to_string(below(4)) + (below(3) ? "\n" : " always\n");
    }
    if (below(20) == 0) {
      made.failing = true;
      lines +=
          "@disturb " + file() + (below(2) ? " held" : " away") + " at " + any(operations) + "\n";
    }
    made.lines = lines + tried(action());
    if (made.failing) made.lines += "@fail clear\n";
    return std::move(made);
  }

 private:
  unsigned below(size_t end) { return stream() % static_cast<unsigned>(end); }
  const std::string& any(const Texts& texts) { return texts[below(texts.size())]; }
  std::string file() { return R"(%WORK%\View\)" + (below(8) ? any(vaultFiles) : secondSheet); }
  std::string sheet() {
    if (below(2)) return file();
    return R"(%WORK%\View\)" + (below(3) ? firstSheet : secondSheet);
  }

  /// With @try, so that a directive that isn't possible doesn't end the script.
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
    const unsigned kind = below(6);
    if (kind == 0) return "@new\n";
    if (kind == 3) return "@opendialog " + sheet() + "\n";
    made.refreshes = true;
    if (kind == 1) return "@open %DRAWINGS%\\" + any(vaultFiles) + "\n";
    return "@open " + sheet() + (kind == 2 ? " readonly\n" : "\n");
  }

  std::string clientStep() {
    const unsigned kind = below(4);
    if (kind == 1) return "@client version " + any(clientVersions) + "\n";
    made.clientPresent = kind != 0;
    return kind == 0 ? "@client missing\n" : "@client present\n";
  }

  std::string xrefStep() {
    if (below(5) == 0) return "@select " + any(xrefs) + "\n" + xrefCommand();
    const std::string pick = "@pick " + any(xrefs) + "\n";
    if (below(2)) return pick + "@menu\n@choose-any " + std::to_string(below(1000)) + "\n";
    // A prompt that is shown all the same is cancelled.
    return pick + xrefCommand();
  }

  std::string xrefCommand() { return "@select none\nTessaro_" + any(xrefCommands) + "\n"; }

  std::string windowStep() {
    const unsigned kind = below(8);
    if (kind < 2) return kind == 0 ? "@click IDC_XREFS_LATEST\n" : "@click IDC_CHECKED_OUT_HERE\n";
    if (kind == 2) return below(3) ? "@window\n" : "@window close\n";
    if (kind > 4) return refresh();
    made.refreshes = true;
    return "@tick\n";
  }

  std::string refresh() {
    made.refreshes = true;
    return "@click IDC_REFRESH\n";
  }

  std::string vaultStep() {
    const std::string byAnother = " user mary computer DRAFTING2 folder D:\\Plant\n";
    switch (below(9)) {
      case 0:
        return "@vault checkout " + file() + byAnother;
      case 1:
        return "@vault checkout " + file() + "\n";
      case 2:
        return undo(file());
      case 3:
        return "@vault deny " + file() + (below(3) ? " off\n" : " on\n");
      case 4:
        return "@vault state \"" + file() + "\"" +
               (below(2) ? " Released\n" : " Work in progress\n");
      case 5:
        made.offline = below(3) == 0;
        return *made.offline ? "@vault offline on\n" : "@vault offline off\n";
      case 6:
        return R"(@vault card %WORK%\View\Site\Plan.dxf Title Layout1 Pump house )" +
               std::to_string(below(100)) + "\n";
      case 7: {
        // Somebody else takes the drawing and returns it while the user works with it.
        const std::string drawing = sheet();
        return "@vault checkout " + drawing + byAnother + "Tessaro_" + any(commands) + "\n" +
               undo(drawing) + refresh();
      }
      default:
        return "@vault newversion " + file() + " from %DRAWINGS%\\" + any(vaultFiles) +
               " user mary comment Widened\n";
    }
  }

  std::string undo(const std::string& drawing) {
    made.undoesCheckOut = true;
    return "@vault undo " + drawing + "\n";
  }

  Step made;
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

std::vector<Step> makeSteps(unsigned seed, unsigned count) {
  Generator generator(seed);
  std::vector<Step> made;
  while (made.size() < count) made.push_back(generator.step());
  return made;
}

}  // namespace wb
