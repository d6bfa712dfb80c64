#include "sweep/Run.h"

#include <algorithm>
#include <map>
#include <set>

#include "core/ResultNames.h"
#include "core/Text.h"
#include "faults/Faults.h"
#include "store/Store.h"

namespace wb {
namespace {

bool holds(const std::wstring& line, std::wstring_view text) {
  return line.find(text) != std::wstring::npos;
}

/// What the script says when a fault keeps a box from coming, brings one that nobody expected, or
/// takes a step's ground away: the host and the module have done nothing wrong.
bool isOfTheScript(const std::wstring& line) {
  constexpr std::wstring_view harmless[] = {
      L"without an answer",            // a box or dialog tells the fault
      L"can't be answered",            // it has other buttons than the one expected
      L"nothing asked for",            // it doesn't come
      L"a prompt waits for input",     // the number behind a command that has ended
      L"the selection can't be made",  // the xref isn't loaded
      L": failed: ",                   // the line in which one of these was told
      L": the menu has no item",       // the fault took the entries away
      L": no menu is open",
      L": nothing more of that name",
      L" is disabled",   // a control of the status window
      L"\" isn't open",  // the drawing that was to be opened or edited
      L": no drawing is open",
      L": there is no drawing to edit",
      L": the status window's timer isn't running",
      L": there is no status window",
  };
  return std::any_of(std::begin(harmless), std::end(harmless),
                     [&](std::wstring_view text) { return holds(line, text); });
}

bool isOneOf(const std::vector<std::wstring_view>& all, std::wstring_view one) {
  return std::find(all.begin(), all.end(), one) != all.end();
}

/// What the host calls in the module and lets fail: the commands, and the guard's looks.
bool isCommand(std::wstring_view called) {
  return called.rfind(L"Tessaro_", 0) == 0 || called == L"documentLockModeChanged" ||
         called == L"beginSave";
}

/// Only a _com_error is told by its code.
bool tellsLackOfMemory(const std::wstring& line) {
  return holds(line, L" error 0x8007000E") || holds(line, L" error 0x80070008");
}

/// Where a failure of the client is meant to leave what the host called, and the host meets it.
/// Elsewhere it has to be caught.
bool mayEscape(const std::wstring& line, const SweptFault& fault) {
  struct Way {
    std::vector<std::wstring_view> called;
    std::vector<std::wstring_view> failing;
    bool onDisk = false;
  };
  static const Way ways[] = {
      // The drawing is still what it was when these ask the vault about it.
      {{L"Tessaro_lock", L"Tessaro_locksilent", L"Tessaro_unlock"},
       {L"VaultFile.isCheckedOut", L"QueryInterface.VaultObject", L"VaultObject.name"}},
      // The rest is reported.
      {{L"Tessaro_lockxref", L"Tessaro_unlockxref", L"Tessaro_editxref"},
       {L"VaultClientLegacy.login"}},
      // The version can't be had; the tree stays unloaded for all to see.
      {{L"Tessaro_getxrefversion", L"Tessaro_getxrefver2"},
       {L"VaultClientLegacy.login", L"VaultFolderLegacy.id", L"VaultFileLegacy.isCheckedOutHere",
        L"IShellFolder.ParseDisplayName", L"QueryInterface.VaultFolderActions",
        L"VaultFolderActions.getVersion", L"host.acedXrefUnload"},
       true},
      // The guard has no box of its own for it.
      {{L"documentLockModeChanged"},
       {L"VaultFile.isCheckedOut", L"VaultFile.checkedOutOnComputer",
        L"VaultFile.checkedOutInFolderId", L"QueryInterface.VaultObject", L"VaultObject.id",
        L"VaultObject.name"}}};
  constexpr std::wstring_view prefix = L"command: ";
  if (line.rfind(prefix, 0) != 0) return false;
  const std::wstring called =
      line.substr(prefix.size(), line.find(L' ', prefix.size()) - prefix.size());
  if (fault.call.ofModule()) return isCommand(called) && tellsLackOfMemory(line);
  return std::any_of(std::begin(ways), std::end(ways), [&](const Way& way) {
    return isOneOf(way.called, called) &&
           (fault.onDisk ? way.onDisk : isOneOf(way.failing, fault.call.operation));
  });
}

std::vector<SweptCall> numbered(const std::vector<std::wstring>& operations) {
  std::vector<SweptCall> calls;
  std::map<std::wstring, unsigned> seen;
  for (const std::wstring& operation : operations) {
    const unsigned after = seen[operation]++;
    // What the vault does for its own dialog is no call of the module's.
    if (operation != L"VaultFile.checkIn") calls.push_back({operation, after});
  }
  return calls;
}

void judgeLines(const std::vector<std::wstring>& lines, const SweptFault* fault, Verdict& verdict) {
  for (const std::wstring& line : lines) {
    const bool leak = line.rfind(L"leak: ", 0) == 0;
    const bool error = line.rfind(L"error: ", 0) == 0;
    const bool escaped = holds(line, L" ended by an uncaught error ");
    const bool asMeant = escaped && fault && mayEscape(line, *fault);
    if (asMeant) verdict.escaped = true;
    if (leak || (error && !(fault && isOfTheScript(line))) || (escaped && !asMeant)) {
      verdict.problems.push_back(line);
    }
  }
}

/// The xrefs that the lines tell of as unloaded and not loaded again since.
std::set<std::wstring> leftUnloaded(const std::vector<std::wstring>& lines) {
  const std::wstring unloaded = L"xref: unloaded ", loaded = L"xref: loaded ";
  std::set<std::wstring> names;
  for (const std::wstring& line : lines) {
    if (line.rfind(unloaded, 0) == 0) names.insert(line.substr(unloaded.size()));
    if (line.rfind(loaded, 0) == 0) {
      names.erase(line.substr(loaded.size(), line.find(L" from ") - loaded.size()));
    }
    if (line.rfind(L"doc: destroyed", 0) == 0 && holds(line, L"Plan.dxf")) names.clear();
  }
  return names;
}

/// The process goes on: another drawing is checked out and in as if nothing had been, and the sheet
/// opens with all that belongs to it.
/// @param anew the module is loaded once more: it may lack what it couldn't be given at its start
void workOn(const Yard& yard, Session& session, bool anew, Verdict& verdict) {
  session.run(
      "@client present\n@vault offline off Plant\n@reg set EditWarning 0\n"
      "@reg set Autolock 0\n");
  if (anew) session.unload();
  if (!GetModuleHandleW(L"TessaroAcad.arx")) session.load();
  const std::wstring notes = yard.options().workFolder + L"\\Plant\\Notes.dxf";
  const size_t before = yard.versions()[notes];
  const bool done = session.run(
      "@open %WORK%\\Plant\\Notes.dxf\n@answer yes\nTessaro_lock\n@edit\n"
      "@answer yes\n@answer ok\nTessaro_unlock\n");
  const StoredFile* file = store().find(notes);
  if (!done || !file || file->holder || file->versions.size() != before + 1) {
    verdict.problems.push_back(L"another drawing can't be checked out and in");
  }
  if (!session.run(sheetOpensWhole)) verdict.problems.push_back(L"the sheet doesn't open whole");
}

/// The host's operations whose failure itself leaves an xref unloaded.
bool unloads(const SweptCall& call) {
  return call.operation == L"host.acedXrefReload" || call.operation == L"host.acedXrefUnload" ||
         call.operation == L"host.acedGetCurDwgXrefGraph";
}

bool mayLeaveUnloaded(const Scenario& scenario, const SweptFault* fault) {
  const auto named = [&](std::string_view operation) {
    const auto& calls = scenario.leavesUnloaded;
    return std::find(calls.begin(), calls.end(), operation) != calls.end();
  };
  if (named(byItself)) return true;
  // Where a failure in the midst of it leaves an xref unloaded, so does a lack of memory.
  if (fault && fault->call.ofModule()) return !scenario.leavesUnloaded.empty();
  return fault && (fault->onDisk || unloads(fault->call) || named(toUtf8(fault->call.operation)));
}

}  // namespace

// A box that tells the fault doesn't end the script.
const std::string answerAll = "@answer-any 1\n";

bool SweptCall::ofHost() const {
  return operation.rfind(L"host.", 0) == 0 || operation.rfind(L"AcDb", 0) == 0;
}

bool SweptCall::ofModule() const { return operation.rfind(L"module.", 0) == 0; }

SweptFault failing(const SweptCall& call, HRESULT code) {
  const std::string name = toUtf8(resultName(code));
  return {call, name,
          answerAll + "@fail " + toUtf8(call.operation) + " " + name + " after " +
              std::to_string(call.after) + "\n"};
}

std::vector<SweptFault> disturbing(const SweptCall& call) {
  std::vector<SweptFault> all;
  const auto disturb = [&](const char* name, const char* way,
                           const std::vector<const char*>& files) {
    std::string lines = answerAll;
    for (const char* file : files) {
      lines.append("@disturb ").append(file).append(" ").append(way);
      lines.append(" at ").append(toUtf8(call.operation));
      lines.append(" after ").append(std::to_string(call.after)).append("\n");
    }
    all.push_back({call, name, lines, static_cast<unsigned>(files.size())});
  };
  disturb("sheet held", "held", {sheet});
  disturb("sheet away", "away", {sheet});
  disturb("xrefs held", "held", {std::begin(xrefsOfSheet), std::end(xrefsOfSheet)});
  disturb("xrefs away", "away", {std::begin(xrefsOfSheet), std::end(xrefsOfSheet)});
  return all;
}

Verdict runScenario(const Yard& yard, const Scenario& scenario, const SweptFault* fault) {
  Verdict verdict;
  yard.restore();
  Session session(yard.options());
  if (!session.run(scenario.setUp)) verdict.problems.push_back(L"the set-up fails");
  const std::map<std::wstring, size_t> before = yard.versions();
  recordOperations();
  const bool done = session.run((fault ? fault->lines : "") + scenario.action);
  const size_t missed = clearFaults();
  verdict.faultCame = missed < (fault ? std::max(fault->onDisk, 1u) : 0);
  // How much memory the module asks for depends on more than the script, if on little.
  if (fault && !fault->onDisk && !fault->call.ofModule() && !verdict.faultCame) {
    verdict.problems.push_back(L"the call that was to fail didn't come");
  }
  verdict.calls = numbered(recordOperations());
  if (!fault && !done) verdict.problems.push_back(L"the script fails without a fault");
  judgeLines(session.transcript(), fault, verdict);
  if (!mayLeaveUnloaded(scenario, fault)) {
    for (const std::wstring& name : leftUnloaded(session.transcript())) {
      verdict.problems.push_back(L"the xref stays unloaded: " + name);
    }
  }
  for (const std::wstring& loss : yard.losses(scenario.savesChanges)) {
    verdict.problems.push_back(loss);
  }
  const size_t judged = session.transcript().size();
  const bool loads = scenario.action.rfind("@load", 0) == 0;
  workOn(yard, session, loads && fault && fault->call.ofModule(), verdict);
  session.end();
  const auto& all = session.transcript();
  judgeLines({all.begin() + static_cast<std::ptrdiff_t>(judged), all.end()}, nullptr, verdict);
  verdict.transcript = all;
  for (const std::wstring& loss : yard.lossesInStore(before)) verdict.problems.push_back(loss);
  return verdict;
}

std::string scriptOf(const Scenario& scenario, const SweptFault& fault) {
  return std::string(yardSetUp) + scenario.setUp + fault.lines + scenario.action;
}

}  // namespace wb
