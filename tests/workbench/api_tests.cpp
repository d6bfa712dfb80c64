#include <windows.h>

#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

#include "core/SessionState.h"
#include "core/Text.h"
#include "editor/Commands.h"
#include "faults/Faults.h"
#include "shared/DrawingTest.h"

namespace {

/// The functions that applications import from the host's two files, by their decorated names.
std::vector<std::string> exportedFunctions() {
  std::vector<std::string> names;
  std::ifstream file(projectFolder() / L"hostapi" / L"interface.txt");
  bool inside = false;
  for (std::string line; std::getline(file, line);) {
    if (line.rfind("library ", 0) == 0) inside = line.find("static") == std::string::npos;
    const bool isFunction = line.rfind("  ", 0) == 0 && line.find(" DATA") == std::string::npos;
    if (inside && isFunction) names.push_back(line.substr(2));
  }
  return names;
}

/// The name by which the gate counts the function: "Class.method", "host.function", and
/// "host.Class" or "host.~Class" for a constructor or destructor.
std::wstring gateName(const std::string& decorated) {
  if (decorated[0] != '?') return L"host." + wb::fromUtf8(decorated);
  const bool special = decorated[1] == '?';
  const size_t begin = special ? 3 : 1;
  const size_t at = decorated.find('@', begin);
  const std::wstring name = wb::fromUtf8(decorated.substr(begin, at - begin));
  if (special) return (decorated[2] == '1' ? L"host.~" : L"host.") + name;
  const size_t end = decorated.find('@', at + 1);
  if (end == at + 1) return L"host." + name;
  return wb::fromUtf8(decorated.substr(at + 1, end - at - 1)) + L"." + name;
}

struct alignas(16) Scratch {
  char bytes[4096] = {};
};

// Each function is called with memory for its object and its arguments. It is to fail, so that it
// uses neither; what can't fail, such as a destructor, finds an empty object.
TEST(Api, EveryExportedFunctionGoesThroughTheGate) {
  const HMODULE host = GetModuleHandleW(L"wbhost.dll");
  const std::vector<std::string> functions = exportedFunctions();
  EXPECT_GT(functions.size(), 100u);
  for (const std::string& function : functions) {
    wb::SessionState session;
    const std::wstring name = gateName(function);
    wb::failOperation(name, E_FAIL);
    const auto address = reinterpret_cast<void*>(GetProcAddress(host, function.c_str()));
    ASSERT_TRUE(address) << function;
    using Any = void* (*)(void*, void*, void*, void*, void*, void*, void*, void*, void*, void*,
                          void*, void*);
    Scratch object;
    Scratch argument;
    void* const any = argument.bytes;
    session.standInTime.count(true);
    reinterpret_cast<Any>(address)(object.bytes, any, any, any, any, any, any, any, any, any, any,
                                   any);
    EXPECT_NE(0u, session.standInTime.entries()) << function << ": it isn't timed";
    EXPECT_EQ(1u, wb::callCount(name)) << function << ": it isn't counted";
    EXPECT_EQ(0u, wb::clearFaults()) << function << ": it doesn't fail on demand";
    EXPECT_TRUE(session.transcript.lines().empty()) << function;
  }
}

// Methods that aren't exported are gated one by one; these two are called for every command.
TEST(Api, CommandsAreAddedAndRemovedThroughTheGate) {
  const wb::SessionState session;
  wb::CommandStack commands;
  wb::failOperation(L"AcEdCommandStack.addCommand", E_FAIL);
  wb::failOperation(L"AcEdCommandStack.removeGroup", E_FAIL);
  const auto add = [&] {
    return commands.addCommand(L"GROUP", L"NAME", L"NAME", 0, [] {}, nullptr, 0, nullptr, nullptr);
  };
  EXPECT_NE(Acad::eOk, add());
  EXPECT_EQ(Acad::eOk, add());
  EXPECT_NE(Acad::eOk, commands.removeGroup(L"GROUP"));
  EXPECT_EQ(1u, commands.all().size());
  EXPECT_EQ(Acad::eOk, commands.removeGroup(L"GROUP"));
  EXPECT_EQ(Acad::eKeyNotFound, commands.removeGroup(L"GROUP"));
}

}  // namespace
