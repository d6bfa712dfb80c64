#include "sweep/Run.h"
#include "core/Lists.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <optional>
#include <set>
#include <stdexcept>
#include <utility>

#include "core/RegistrySettings.h"
#include "core/ResultCodes.h"
#include "core/Text.h"
#include "core/Transcript.h"
#include "editor/LoadRecord.h"
#include "faults/Faults.h"
#include "scripting/SessionFiles.h"
#include "store/Store.h"

namespace wb {
namespace {

namespace fs = std::filesystem;

/// With dates and attributes, which the vault's local copies live by.
void copyTree(const fs::path& from, const fs::path& to) {
  fs::create_directories(to);
  for (const auto& entry : fs::directory_iterator(from)) {
    const fs::path target = to / entry.path().filename();
    if (entry.is_directory()) {
      copyTree(entry.path(), target);
    } else if (!CopyFileW(entry.path().c_str(), target.c_str(), FALSE)) {
      throw std::runtime_error("can't be copied: " + toUtf8(entry.path().wstring()));
    }
  }
}

/// What the script reports when a fault keeps a box from coming, causes one that nobody expected,
/// or makes a step impossible: the host and the module have done nothing wrong.
bool isScriptProblem(const Event& event) {
  static constexpr Event::Cause causes[] = {Event::noAnswer,       Event::unusedAnswer,
                                            Event::noInput,        Event::noSelection,
                                            Event::impossibleStep, Event::failedStep};
  return contains(causes, event.cause);
}

/// What may fail by an exception when the host calls it: the commands and the edit guard.
bool isCommand(std::wstring_view called) {
  return called.rfind(L"Tessaro_", 0) == 0 || called == L"documentLockModeChanged" ||
         called == L"beginSave";
}

bool isLackOfMemory(HRESULT code) {
  return code == E_OUTOFMEMORY || code == HRESULT_FROM_WIN32(ERROR_NOT_ENOUGH_MEMORY);
}

/// Whether the exception of a failed call may leave what the host called. Elsewhere the module has
/// to catch it.
bool mayEscape(const Event& event, const SweptFault& fault) {
  struct Rule {
    std::vector<std::wstring_view> called;
    std::vector<std::wstring_view> failing;
    bool onDisk = false;
  };
  static const Rule rules[] = {
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
  return std::any_of(std::begin(rules), std::end(rules), [&](const Rule& rule) {
    return contains(rule.called, called) &&
           (fault.onDisk ? rule.onDisk : contains(rule.failing, fault.call.operation));
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
    const bool allowed = escaped && fault && mayEscape(event, *fault);
    if (allowed) verdict.escaped = true;
    if (event.kind == Event::leak ||
        (event.kind == Event::error && !(fault && isScriptProblem(event))) ||
        (escaped && !allowed)) {
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
        fs::path(event.subject).filename() == L"Plan.dxf") {
      names.clear();
    }
  }
  return names;
}

/// Checks that the process still works: another drawing is checked out and in, and the sheet opens
/// with all its xrefs.
/// @param reload the module is loaded once more: its start may have failed for lack of memory
void checkFurtherWork(const Snapshot& snapshot, Session& session, bool reload, Verdict& verdict) {
  session.run(
      "@client present\n@vault offline off Plant\n@reg set EditWarning 0\n"
      "@reg set Autolock 0\n");
  if (reload) session.unload();
  if (!GetModuleHandleW(L"TessaroAcad.arx")) session.load();
  const std::wstring notes = snapshot.options().workFolder + L"\\Plant\\Notes.dxf";
  const StoredFile* file = store().find(notes);
  const size_t before = file ? file->versions.size() : 0;
  const bool done = session.run(
      "@open %WORK%\\Plant\\Notes.dxf\n@answer yes\nTessaro_lock\n@edit\n"
      "@answer yes\n@answer ok\nTessaro_unlock\n");
  file = store().find(notes);
  verdict.require(done && file && !file->holder && file->versions.size() == before + 1,
                  L"another drawing can't be checked out and in");
  verdict.require(session.run(sheetOpensWhole), L"the sheet doesn't open whole");
}

/// The host's operations whose failure itself leaves an xref unloaded.
bool unloads(const SweptCall& call) {
  return call.operation == L"host.acedXrefReload" || call.operation == L"host.acedXrefUnload" ||
         call.operation == L"host.acedGetCurDwgXrefGraph";
}

bool mayLeaveUnloaded(const Scenario& scenario, const SweptFault* fault) {
  const auto& calls = scenario.leavesUnloaded;
  if (contains(calls, byItself)) return true;
  // Where a failure in the midst of it leaves an xref unloaded, so does a lack of memory.
  if (fault && fault->call.ofModule()) return !calls.empty();
  return fault &&
         (fault->onDisk || unloads(fault->call) || contains(calls, toUtf8(fault->call.operation)));
}

}  // namespace

// A box that reports the fault doesn't end the script.
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
  const std::pair<const char*, std::vector<const char*>> targets[] = {
      {"sheet", {sheet}}, {"xrefs", {std::begin(xrefsOfSheet), std::end(xrefsOfSheet)}}};
  std::vector<SweptFault> all;
  for (const auto& [name, files] : targets) {
    for (const char* what : {" held", " away"}) {
      std::string lines = answerAll;
      for (const char* file : files) {
        lines += std::string("@disturb ") + file + what + " at " + toUtf8(call.operation) +
                 " after " + std::to_string(call.after) + "\n";
      }
      all.push_back({call, name + std::string(what), lines, static_cast<unsigned>(files.size())});
    }
  }
  return all;
}

Snapshot::Snapshot(const fs::path& folder, const fs::path& drawings, const char* setUp)
    : work(folder / L"work"), kept(folder / L"kept"), drawings(drawings) {
  prepareWorkFolder(folder, false);
  SessionOptions first = options();
  first.keep = false;
  Session session(first);
  if (!session.run(setUp)) throw std::runtime_error(toUtf8(session.text()));
  check.check(true, {});
  session.end();
  copyTree(work, kept);
}

SessionOptions Snapshot::options() const {
  SessionOptions options = optionsOfBuild(work, drawings);
  options.keep = true;
  return options;
}

void Snapshot::restore() const {
  deleteTree(work);
  copyTree(kept, work);
  resetSettings();
  clearLoadRecord();
}

Verdict runScenario(const Snapshot& snapshot, const Scenario& scenario, const SweptFault* fault) {
  Verdict verdict;
  snapshot.restore();
  VaultCheck vault = snapshot.vaultCheck();
  const auto checkVault = [&](const std::optional<std::wstring>& savedFile) {
    try {
      vault.check(true, {true, savedFile});
    } catch (const std::exception& failure) {
      verdict.problems.push_back(fromUtf8(failure.what()));
    }
  };
  Session session(snapshot.options());
  verdict.require(session.run(scenario.setUp), L"the set-up fails");
  checkVault(L"");
  recordOperations();
  const bool done = session.run((fault ? fault->lines : "") + scenario.action);
  const size_t missed = clearFaults();
  verdict.faultOccurred = missed < (fault ? std::max(fault->onDisk, 1u) : 0);
  // How much memory the module asks for depends on more than the script, if on little.
  verdict.require(!fault || fault->onDisk || fault->call.ofModule() || verdict.faultOccurred,
                  L"the call that was to fail didn't come");
  verdict.calls = numbered(recordOperations());
  verdict.require(fault || done, L"the script fails without a fault");
  judgeEvents(0, fault, verdict);
  if (!mayLeaveUnloaded(scenario, fault)) {
    for (const std::wstring& name : leftUnloaded()) {
      verdict.problems.push_back(L"the xref stays unloaded: " + name);
    }
  }
  checkVault(scenario.savesChanges ? L"Plan.dxf" : L"");
  const size_t judged = session.transcript().size();
  const bool loads = scenario.action.rfind("@load", 0) == 0;
  checkFurtherWork(snapshot, session, loads && fault && fault->call.ofModule(), verdict);
  session.end();
  judgeEvents(judged, nullptr, verdict);
  verdict.transcript = session.transcript();
  try {
    store().open(snapshot.store());
    checkVault(std::nullopt);
    store().close();
  } catch (const StoreError& error) {
    verdict.problems.push_back(L"the store doesn't open: " + fromUtf8(error.what()));
  }
  return verdict;
}

std::string scriptOf(const Scenario& scenario, const SweptFault& fault) {
  return std::string(vaultSetUp) + scenario.setUp + fault.lines + scenario.action;
}

}  // namespace wb
