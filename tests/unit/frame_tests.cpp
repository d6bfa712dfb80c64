#include <gtest/gtest.h>

#include <map>
#include <new>
#include <string>
#include <vector>

#include <rxdefs.h>

#include "frame/CommandGuard.h"
#include "unit/BoxWatch.h"

extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode msg, void* pkt);

namespace tessaro {

namespace {

/// An application that writes down what it is asked, in place of the module's own for as long as it
/// lives.
class RecordingApp : public ArxMfcApp {
 public:
  RecordingApp(int prefixCommands, int prefixFunctions)
      : RecordingApp(currentApp(), prefixCommands, prefixFunctions) {}
  ~RecordingApp() override { setCurrentApp(before); }

  AcRx::AppRetCode unloadApp(void* pkt) override { return note("unloadApp", pkt); }
  AcRx::AppRetCode loadDwg(void* pkt) override { return note("loadDwg", pkt); }
  AcRx::AppRetCode unloadDwg(void* pkt) override { return note("unloadDwg", pkt); }
  AcRx::AppRetCode invokeSubr(void* pkt) override { return note("invokeSubr", pkt); }
  AcRx::AppRetCode configure(void* pkt) override { return note("configure", pkt); }
  AcRx::AppRetCode endDrawing(void* pkt) override { return note("endDrawing", pkt); }
  AcRx::AppRetCode quitDrawing(void* pkt) override { return note("quitDrawing", pkt); }
  AcRx::AppRetCode saveDrawing(void* pkt) override { return note("saveDrawing", pkt); }
  AcRx::AppRetCode nullMessage(void* pkt) override { return note("nullMessage", pkt); }
  int beginCommand() override {
    note("beginCommand", nullptr);
    return letThrough;
  }
  void endCommand() override { note("endCommand", nullptr); }

  std::vector<std::string> calls;
  void* packet = nullptr;
  int loadedAtCall = -1;
  int letThrough = 1;
  AcRx::AppRetCode result = AcRx::kRetError;
  bool fails = false;

 private:
  RecordingApp(AppContext* before, int prefixCommands, int prefixFunctions)
      : ArxMfcApp(L"Brand", prefixCommands, prefixFunctions, 1), before(before) {}

  AcRx::AppRetCode note(const char* call, void* pkt) {
    calls.push_back(call);
    packet = pkt;
    loadedAtCall = documentLoaded;
    if (fails) throw std::bad_alloc();
    return result;
  }

  AppContext* before;
};

using Calls = std::vector<std::string>;

void workRoutine(RecordingApp& app) { app.calls.push_back("routine"); }

void failingRoutine(RecordingApp&) { throw E_FAIL; }

int lispFunction() { return 0; }

std::vector<std::wstring> functionNames(const ArxMfcApp& app) {
  std::vector<std::wstring> names;
  for (int index = 0; const auto* element = app.functions.lookup(index); ++index) {
    names.push_back(element->value->name);
  }
  return names;
}

using Names = std::vector<std::wstring>;

}  // namespace

TEST(EntryPoint, HandsEachMessageToItsOperationWithPacketAndResult) {
  RecordingApp app(1, 1);
  int packet = 0;
  const std::map<AcRx::AppMsgCode, std::string> operations = {
      {AcRx::kNullMsg, "nullMessage"},    {AcRx::kUnloadAppMsg, "unloadApp"},
      {AcRx::kLoadDwgMsg, "loadDwg"},     {AcRx::kUnloadDwgMsg, "unloadDwg"},
      {AcRx::kInvkSubrMsg, "invokeSubr"}, {AcRx::kCfgMsg, "configure"},
      {AcRx::kEndMsg, "endDrawing"},      {AcRx::kQuitMsg, "quitDrawing"},
      {AcRx::kSaveMsg, "saveDrawing"}};
  for (const auto& [message, operation] : operations) {
    app.calls.clear();
    app.packet = nullptr;
    EXPECT_EQ(acrxEntryPoint(message, &packet), AcRx::kRetError) << operation;
    EXPECT_EQ(app.calls, Calls{operation});
    EXPECT_EQ(app.packet, &packet) << operation;
  }
}

TEST(EntryPoint, LeavesMessagesAboveNineAlone) {
  RecordingApp app(1, 1);
  for (int message = 10; message < 20; ++message) {
    EXPECT_EQ(acrxEntryPoint(static_cast<AcRx::AppMsgCode>(message), nullptr), AcRx::kRetOK);
  }
  EXPECT_TRUE(app.calls.empty());
  EXPECT_EQ(app.documentLoaded, 0);
}

TEST(EntryPoint, LetsNoFailureOutAndTellsIt) {
  RecordingApp app(1, 1);
  app.fails = true;
  BoxWatch boxes;
  EXPECT_EQ(acrxEntryPoint(AcRx::kSaveMsg, nullptr), AcRx::kRetOK);
  EXPECT_EQ(BoxWatch::texts.size(), 1u);
}

TEST(EntryPoint, DocumentCountsAsLoadedThroughoutItsOperations) {
  RecordingApp app(1, 1);
  acrxEntryPoint(AcRx::kLoadDwgMsg, nullptr);
  EXPECT_EQ(app.loadedAtCall, 1);
  EXPECT_EQ(app.documentLoaded, 1);
  app.loadedAtCall = -1;
  EXPECT_EQ(acrxEntryPoint(AcRx::kUnloadDwgMsg, nullptr), AcRx::kRetError);
  EXPECT_EQ(app.loadedAtCall, 1);
  EXPECT_EQ(app.documentLoaded, 0);
}

TEST(CommandGuard, RunsTheRoutineBetweenBeginAndEnd) {
  RecordingApp app(1, 1);
  guardedCommand<RecordingApp, workRoutine>();
  EXPECT_EQ(app.calls, (Calls{"beginCommand", "routine", "endCommand"}));

  app.calls.clear();
  EXPECT_THROW((guardedCommand<RecordingApp, failingRoutine>()), _com_error);
  EXPECT_EQ(app.calls, Calls{"beginCommand"});

  app.calls.clear();
  app.letThrough = 0;
  guardedCommand<RecordingApp, workRoutine>();
  EXPECT_EQ(app.calls, Calls{"beginCommand"});
}

TEST(LispFunctions, PrefixGoesBehindTheMarkerOfCommandFunctions) {
  RecordingApp app(1, 1);
  EXPECT_EQ(app.addLispFunction(L"area", lispFunction), 1);
  EXPECT_EQ(app.addLispFunction(L"C:draw", lispFunction), 1);
  EXPECT_EQ(app.addLispFunction(L"c:erase", lispFunction), 1);
  EXPECT_EQ(app.addLispFunction(L"c", lispFunction), 1);
  EXPECT_EQ(functionNames(app),
            (Names{L"Brand_area", L"C:Brand_draw", L"c:Brand_erase", L"Brand_c"}));
}

TEST(LispFunctions, NamesWithoutPrefixLoseTheirMarker) {
  RecordingApp functionsOnly(0, 1);
  functionsOnly.addLispFunction(L"C:draw", lispFunction);
  functionsOnly.addLispFunction(L"area", lispFunction);
  EXPECT_EQ(functionNames(functionsOnly), (Names{L"draw", L"Brand_area"}));
  RecordingApp commandsOnly(1, 0);
  commandsOnly.addLispFunction(L"C:draw", lispFunction);
  commandsOnly.addLispFunction(L"area", lispFunction);
  EXPECT_EQ(functionNames(commandsOnly), (Names{L"C:Brand_draw", L"area"}));
}

TEST(LispFunctions, RefusesDuplicatesIgnoringCase) {
  RecordingApp app(1, 1);
  BoxWatch boxes;
  ASSERT_EQ(app.addLispFunction(L"Area", lispFunction), 1);
  EXPECT_EQ(app.addLispFunction(L"AREA", lispFunction), 0);
  EXPECT_EQ(BoxWatch::texts, Names{L"Duplicate function \"Brand_AREA\"."});
  EXPECT_EQ(functionNames(app), Names{L"Brand_Area"});
  // The command of the same name is another function.
  EXPECT_EQ(app.addLispFunction(L"C:area", lispFunction), 1);
}

TEST(LispFunctions, CommandFunctionHasItsLocalNameOnlyIfItIsAnother) {
  RecordingApp app(1, 1);
  EXPECT_EQ(app.addCommandFunction(L"line", L"LINE", lispFunction), 1);
  EXPECT_EQ(app.addCommandFunction(L"arc", L"", lispFunction), 1);
  EXPECT_EQ(app.addCommandFunction(L"circle", L"kreis", lispFunction), 1);
  EXPECT_EQ(functionNames(app),
            (Names{L"C:Brand_line", L"C:Brand_arc", L"C:Brand_circle", L"C:Brand_kreis"}));
}

TEST(LispFunctions, UnloadEmptiesTheTable) {
  RecordingApp app(1, 1);
  app.addLispFunction(L"area", lispFunction);
  app.commandGroup.clear();
  acrxEntryPoint(AcRx::kUnloadAppMsg, nullptr);
  EXPECT_TRUE(functionNames(app).empty());
  EXPECT_EQ(app.addLispFunction(L"area", lispFunction), 1);
  EXPECT_EQ(functionNames(app), Names{L"Brand_area"});
}

}  // namespace tessaro
