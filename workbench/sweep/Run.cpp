#include "sweep/Run.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <set>

#include "core/ResultCodes.h"
#include "core/Text.h"
#include "core/Transcript.h"
#include "faults/Faults.h"
#include "store/Store.h"

namespace wb {
namespace {

/// What the script reports when a fault keeps a box from coming, brings one that nobody expected,
/// or takes a step's ground away: the host and the module have done nothing wrong.
bool isOfTheScript(const Event& event) {
  switch (event.cause) {
    case Event::noAnswer:
    case Event::unusedAnswer:
    case Event::noInput:
    case Event::noSelection:
    case Event::impossibleStep:
    case Event::failedStep:
      return true;
    default:
      return false;
  }
}

bool isOneOf(const std::vector<std::wstring_view>& all, std::wstring_view one) {
  return std::find(all.begin(), all.end(), one) != all.end();
}

/// What the host calls in the module and lets fail: the commands, and the guard's looks.
bool isCommand(std::wstring_view called) {
  return called.rfind(L"Tessaro_", 0) == 0 || called == L"documentLockModeChanged" ||
         called == L"beginSave";
}

bool isLackOfMemory(HRESULT code) {
  return code == E_OUTOFMEMORY || code == HRESULT_FROM_WIN32(ERROR_NOT_ENOUGH_MEMORY);
}

/// Where a failure of the client is meant to leave what the host called, and the host meets it.
/// Elsewhere it has to be caught.
bool mayEscape(const Event& event, const SweptFault& fault) {
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
  const std::wstring& called = event.subject;
  if (fault.call.ofModule()) return isCommand(called) && isLackOfMemory(event.code);
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

/// Judges the events from number `first` on.
void judgeEvents(size_t first, const SweptFault* fault, Verdict& verdict) {
  const Transcript& transcript = Transcript::instance();
  for (size_t at = first; at < transcript.events().size(); ++at) {
    const Event& event = transcript.events()[at];
    const bool escaped = event.cause == Event::uncaught;
    const bool asMeant = escaped && fault && mayEscape(event, *fault);
    if (asMeant) verdict.escaped = true;
    if (event.kind == Event::leak ||
        (event.kind == Event::error && !(fault && isOfTheScript(event))) || (escaped && !asMeant)) {
      verdict.problems.push_back(transcript.lines()[at]);
    }
  }
}

/// The xrefs that were unloaded and not loaded again since.
std::set<std::wstring> leftUnloaded() {
  std::set<std::wstring> names;
  for (const Event& event : Transcript::instance().events()) {
    if (event.cause == Event::xrefUnloaded) names.insert(event.subject);
    if (event.cause == Event::xrefLoaded) names.erase(event.subject);
    if (event.cause == Event::documentDestroyed &&
        std::filesystem::path(event.subject).filename() == L"Plan.dxf") {
      names.clear();
    }
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
  judgeEvents(0, fault, verdict);
  if (!mayLeaveUnloaded(scenario, fault)) {
    for (const std::wstring& name : leftUnloaded()) {
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
  judgeEvents(judged, nullptr, verdict);
  verdict.transcript = session.transcript();
  for (const std::wstring& loss : yard.lossesInStore(before)) verdict.problems.push_back(loss);
  return verdict;
}

std::string scriptOf(const Scenario& scenario, const SweptFault& fault) {
  return std::string(yardSetUp) + scenario.setUp + fault.lines + scenario.action;
}

}  // namespace wb
