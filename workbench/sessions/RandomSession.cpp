#include "sessions/RandomSession.h"

#include <windows.h>

#include <acdocman.h>

#include <algorithm>
#include <vector>

#include "core/Text.h"
#include "core/Transcript.h"
#include "dialogs/Reader.h"
#include "editor/DocumentManager.h"
#include "editor/Host.h"
#include "faults/Faults.h"
#include "scripting/Session.h"
#include "store/Store.h"
#include "trials/VaultCheck.h"
#include "ui/resource.h"

namespace wb {
namespace {

/// Under Wine a heap that another thread uses meanwhile can look damaged, such as the one in which
/// the last script's watchdog ends. A damaged one stays so.
bool isSound(HANDLE heap) {
  for (int look = 0; look < 5; ++look) {
    if (HeapValidate(heap, 0, nullptr)) return true;
    Sleep(20);
  }
  return false;
}

void checkHeaps() {
  std::vector<HANDLE> heaps(64);
  heaps.resize(std::min<size_t>(GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data()),
                                heaps.size()));
  if (heaps.empty() || !std::all_of(heaps.begin(), heaps.end(), isSound)) {
    throw CheckFailure("a heap is damaged");
  }
}

/// A check-out, a refresh or a version that was asked for brings the vault's content to the disk; a
/// saving writes the user's next content.
bool replacesLocalFiles(const Event& event) {
  if (event.cause == Event::documentSaved) return true;
  if (event.kind != Event::client) return false;
  const std::wstring operation = event.subject.substr(event.subject.find(L'.') + 1);
  return operation == L"checkOut" || operation == L"getLocalCopy" || operation == L"getVersion";
}

std::wstring versionName(long version) {
  return version < 1 ? std::wstring(L"-") : std::to_wstring(version);
}

/// The status window's texts on the current document against the store, after it was refreshed.
void checkStatusWindow() {
  const HWND window = findStatusWindow();
  const AcApDocument* document = acDocManagerPtr()->mdiActiveDocument();
  if (!window || !document) return;
  const std::wstring path = document->fileName();
  const StoredFile* file = store().find(path);
  if (file && file->denied) return;
  std::wstring versions = L"-/-";
  UINT lock = BST_UNCHECKED;
  if (file) {
    const long here = store().folderIdOf(path);
    file = store().find(path);  // the store assigns ids at the first question
    versions =
        versionName(store().localVersion(*file, here)) + L"/" + versionName(file->latest().number);
    if (file->holder) {
      const bool mine = Store::isHeldByUsHere(*file) && file->holder->folderId == here;
      lock = mine ? BST_CHECKED : BST_INDETERMINATE;
    }
  }
  const std::wstring shown = windowTitle(GetDlgItem(window, IDC_VERSION));
  // The words in front are the client's.
  if (shown.substr(shown.rfind(L' ') + 1) != versions) {
    throw CheckFailure("the status window shows " + toUtf8(shown) + " for " + toUtf8(versions));
  }
  if (IsDlgButtonChecked(window, IDC_CHECKED_OUT_HERE) != lock) {
    throw CheckFailure("the status window's lock box is wrong");
  }
}

class RandomSession {
 public:
  explicit RandomSession(const SessionOptions& options)
      : session(options), vault(L"Works", options.workFolder + L"\\store") {}

  void run(const std::vector<Step>& steps) {
    Host::instance().documents().reuseAddresses();
    if (!session.run(preamble())) {
      throw CheckFailure("the preparation failed\n" + reportedSince(0));
    }
    for (size_t at = 0; at < steps.size(); ++at) {
      run(steps[at], at % 16 == 15 || at + 1 == steps.size());
    }
    const size_t start = session.transcript().size();
    session.end();
    checkEventsSince(start);
  }

 private:
  void run(const Step& step, bool thorough) {
    const size_t start = session.transcript().size();
    const bool done = session.run(step.lines);
    clearFaults();
    try {
      checkEventsSince(start);
      checkHeaps();
      const bool replaced =
          step.undoesCheckOut || Transcript::instance().anySince(start, replacesLocalFiles);
      vault.check(thorough, {replaced, std::nullopt});
      if (Transcript::instance().anySince(
              start, [](const Event& event) { return event.kind == Event::attempt; })) {
        return;
      }
      // With the client gone or a vault offline nobody can say what the window should show until
      // they are back and it was refreshed.
      clientPresent = step.clientPresent.value_or(clientPresent);
      offline = step.offline.value_or(offline);
      if (done && step.refreshes && clientPresent && !offline && !step.failing) {
        checkStatusWindow();
      }
    } catch (const std::exception& failure) {
      throw CheckFailure(std::string(failure.what()) + "\n" + step.lines + "----\n" +
                         reportedSince(start));
    }
  }

  void checkEventsSince(size_t start) const {
    const auto& events = Transcript::instance().events();
    for (size_t at = start; at < events.size(); ++at) {
      const Event::Kind kind = events[at].kind;
      if (kind == Event::leak || kind == Event::error) {
        throw CheckFailure(toUtf8(session.transcript()[at]));
      }
    }
  }

  std::string reportedSince(size_t start) const {
    std::string text;
    const auto& lines = session.transcript();
    for (size_t at = start; at < lines.size(); ++at) text += toUtf8(lines[at]) + "\n";
    return text;
  }

  Session session;
  VaultCheck vault;
  bool clientPresent = true;
  bool offline = false;
};

}  // namespace

void runSession(const std::vector<Step>& steps, unsigned patience) {
  SessionOptions options =
      optionsOfBuild(sessionsFolder() / L"work", sessionsFolder() / L"drawings");
  options.timeoutSeconds = patience;
  RandomSession(options).run(steps);
}

}  // namespace wb
