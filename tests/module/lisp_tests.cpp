// The frame's LISP functions, with an application that offers some.

#include <rxdict.h>
#include <rxobject.h>

#include "shared/ModuleSession.h"

namespace {

class Lisp : public ModuleSession {
 protected:
  Lisp() { load(); }
  /// One of the functions that the application brings is a duplicate.
  void load() { run("@answer ok\n@load " + module + "\n"); }
  void unload() { run("@unload " + module + "\n"); }

  const std::string module = (binFolder() / L"lispmodule.arx").string();
};

TEST_F(Lisp, FunctionsReachEachDrawing) {
  EXPECT_EQ(count(informationBox(L"Duplicate function \\\"DISTANCE\\\".\"")), 1) << recent();
  for (int drawing = 0; drawing < 2; ++drawing) {
    step("@new\n(distance)\nBrand_measure\nbrand_MESSEN\nBrand_area\n");
    expectOrder(
        {L"loadDwg", L"distance called", L"measure called", L"measure called", L"distance called"});
    EXPECT_EQ(count(L"box: "), 0) << recent();
  }
  mark();
  unload();
  run("(distance)\nBrand_measure\n");
  EXPECT_EQ(count(L"called"), 0) << recent();
}

TEST_F(Lisp, TheServiceIsEnteredForAsLongAsTheApplicationIsLoaded) {
  const auto* services = static_cast<AcRxDictionary*>(acrxSysRegistry()->at(L"ServiceDictionary"));
  EXPECT_TRUE(services->at(L"Measuring"));
  unload();
  EXPECT_FALSE(services->at(L"Measuring"));
  load();
  EXPECT_TRUE(services->at(L"Measuring"));
}

TEST_F(Lisp, TheFirstRefusalEndsTheDefinitions) {
  const struct {
    const char* command;
    const wchar_t* box;
  } cases[] = {
      {"Brand_nameless", L"text=\"Error defining function \\\"\\\".\""},
      {"Brand_empty", L"text=\"Error registering function \\\"empty\\\" (index=4)\""},
  };
  for (const auto& each : cases) {
    run("@new\n" + std::string(each.command) + "\n");
    step("@answer ok\n@new\n(distance)\nBrand_area\n(behind)\n");
    expectOrder({each.box, L"loadDwg", L"distance called", L"distance called"});
    EXPECT_EQ(count(L"behind called"), 0) << recent();
    EXPECT_EQ(count(L"box: "), 1) << recent();
    unload();
    load();
  }
}

}  // namespace
