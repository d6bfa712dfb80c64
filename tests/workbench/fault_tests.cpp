#include <map>

#include "ModuleSession.h"
#include "core/Faults.h"

namespace {

/// One call of the client in the course of a command: the operation's `after`-th repetition.
struct Call {
  std::wstring operation;
  unsigned after;
};

class Fault : public ModuleSession {
 protected:
  void SetUp() override {
    run("@vault add %WORK%\\View\\Other.dxf from %WORK%\\small.dxf\n@load\n"
        "@reg set EditWarning 0\n");
  }
  /// The client's calls since the mark.
  std::vector<Call> calls() const {
    std::vector<Call> made;
    std::map<std::wstring, unsigned> seen;
    for (const std::wstring& line : lines()) {
      if (line.rfind(L"client: ", 0) != 0) continue;
      const std::wstring operation = line.substr(8, line.find(L'(') - 8);
      // What the vault does for its own dialog is no call of the module's.
      if (operation == L"VaultFile.checkIn") continue;
      made.push_back({operation, seen[operation]++});
    }
    return made;
  }
  /// Nothing ended badly: the only complaints are those of the script about the boxes that a fault
  /// brings up or keeps from coming.
  void expectNoHarm(const Call& call) const {
    for (const std::wstring& line : lines()) {
      const bool problem =
          line.rfind(L"leak: ", 0) == 0 || (line.rfind(L"error: ", 0) == 0 &&
                                            line.find(L"without an answer") == std::wstring::npos &&
                                            line.find(L"can't be answered") == std::wstring::npos &&
                                            line.find(L"nothing asked for") == std::wstring::npos &&
                                            line.find(L"failed: Tessaro_") == std::wstring::npos);
      if (problem)
        ADD_FAILURE() << std::string(call.operation.begin(), call.operation.end()) << " "
                      << call.after << "\n----\n"
                      << recent();
    }
  }
  /// Another drawing goes out and in as if nothing had been.
  void otherDrawingWorks() {
    const size_t versions = stored(L"Other.dxf").versions.size();
    run("@open %WORK%\\View\\Other.dxf\n@answer yes\nTessaro_lock\n");
    EXPECT_TRUE(stored(L"Other.dxf").holder) << recent();
    run("@edit\n@answer yes\n@answer ok\nTessaro_unlock\n");
    EXPECT_FALSE(stored(L"Other.dxf").holder) << recent();
    EXPECT_EQ(stored(L"Other.dxf").versions.size(), versions + 1);
  }
  void closePlan() {
    if (session.run("@activate %WORK%\\View\\Plan.dxf\n")) run("@close\n");
  }
  /// Fails each client call of the command in turn, for each of two reasons.
  void failEachCall(const std::string& setup, const std::string& command, bool heldBefore) {
    run(setup + "@open %WORK%\\View\\Plan.dxf\n");
    mark();
    run(command);
    const std::vector<Call> good = calls();
    ASSERT_GT(good.size(), 10u);
    closePlan();
    size_t round = 0;
    for (const HRESULT code : {E_FAIL, E_OUTOFMEMORY}) {
      for (const Call& call : good) {
        if (stored().holder.has_value() != heldBefore) {
          run(heldBefore ? "@vault checkout %WORK%\\View\\Plan.dxf\n"
                         : "@vault undo %WORK%\\View\\Plan.dxf\n");
        }
        run("@open %WORK%\\View\\Plan.dxf\n");
        const size_t versions = stored().versions.size();
        mark();
        wb::failOperation(call.operation, code, call.after);
        session.run(command);
        wb::clearFaults();
        expectNoHarm(call);
        // What was given up for a check-out is back, whatever came of that.
        EXPECT_EQ(count(L"send: \"_CLOSE \""), count(L"doc: opened")) << recent();
        EXPECT_LE(stored().versions.size(), versions + 1);
        EXPECT_TRUE(std::filesystem::exists(viewFolder() / L"Plan.dxf"));
        closePlan();
        if (round++ % 5 == 0) otherDrawingWorks();
        if (HasFailure()) return;
      }
    }
    otherDrawingWorks();
  }
};

/// What happens between the command's steps to the drawing itself.
TEST_F(Fault, ADrawingThatVanishesInBetweenIsToldAndLosesNothing) {
  run("@open %WORK%\\View\\Plan.dxf\n");
  const auto plan = viewFolder() / L"Plan.dxf";
  std::filesystem::permissions(plan, std::filesystem::perms::all);
  std::filesystem::remove(plan);
  mark();
  // The check-out fetches the file anew, so that it is there again when the drawing is opened.
  run("@answer yes\nTessaro_lock\n");
  expectOrder({L"VaultFile.checkOut(", L"doc: opened <work>\\View\\Plan.dxf"});
  EXPECT_TRUE(std::filesystem::exists(plan));
  run("@close\n@vault undo %WORK%\\View\\Plan.dxf\n@open %WORK%\\View\\Plan.dxf\n");

  std::filesystem::permissions(plan, std::filesystem::perms::all);
  std::filesystem::remove(plan);
  mark();
  run("@fail checkOut E_FAIL\n@answer yes\n@answer ok\nTessaro_lock\n");
  expectOrder({L"text=\"Error checking out file.", L"doc: destroyed",
               L"doc: refused: opening <work>\\View\\Plan.dxf: the file doesn't exist"});
  EXPECT_EQ(stored().versions.size(), 1u);
  otherDrawingWorks();
}

TEST_F(Fault, APathBeyondWhatWindowsTakesIsRefusedInPlainWords) {
  const std::string folder(120, 'f');
  const std::string path = "%WORK%\\View\\" + folder + "\\" + folder + "\\Plan.dxf";
  mark();
  EXPECT_FALSE(session.run("@vault add " + path + " from %WORK%\\small.dxf\n"));
  EXPECT_EQ(count(L"error: line 1: "), 1) << recent();
  mark();
  session.run("@open " + path + "\n");
  EXPECT_EQ(count(L"doc: refused: opening ") + count(L"error: "), 1) << recent();
  otherDrawingWorks();
}

TEST_F(Fault, EachCallOfACheckOut) { failEachCall("", "@answer yes\nTessaro_lock\n", false); }

TEST_F(Fault, EachCallOfACheckIn) {
  failEachCall("@vault checkout %WORK%\\View\\Plan.dxf\n",
               "@answer yes\n@answer ok\nTessaro_unlock\n", true);
}

}  // namespace
