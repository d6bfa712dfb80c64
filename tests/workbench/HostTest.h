#pragma once

#include <windows.h>

#include <acedads.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "core/Program.h"
#include "core/SessionState.h"
#include "core/Transcript.h"
#include "dialogs/Answers.h"
#include "editor/Host.h"
#include "shared/Support.h"

/// A started host, an empty folder for drawings, and the test application beside the program.
class HostTest : public testing::Test {
 protected:
  HostTest() {
    wb::Answers::instance().start(false);
    host.start();
  }
  ~HostTest() override {
    host.stop();
    wb::Answers::instance().stop();
  }

  std::wstring drawing(const wchar_t* name) {
    const fs::path path = folder / name;
    write(path, "0\nSECTION\n2\nENTITIES\n0\nENDSEC\n0\nEOF\n");
    return path.wstring();
  }
  void load() { ASSERT_TRUE(host.loadModule(module)) << text(); }
  /// Loads the application and opens a drawing; the lines begin behind that.
  /// @return the drawing's path
  std::wstring loadAndOpen() {
    load();
    std::wstring path = drawing(L"a.dxf");
    host.open(path);
    forget();
    return path;
  }
  void run(std::wstring_view line) {
    host.type(line);
    host.runUntilIdle();
  }
  bool said(std::wstring_view what) const { return wb::Transcript::instance().count(what) > 0; }
  // The lines come in this order, others in between.
  static testing::AssertionResult inOrder(const std::vector<std::wstring>& texts) {
    return ::inOrder(wb::Transcript::instance().lines(), texts);
  }
  static std::string text() { return joined(wb::Transcript::instance().lines()); }
  void forget() { wb::Transcript::instance().clear(); }

  wb::SessionState state;
  wb::Host& host = wb::Host::instance();
  const fs::path folder = emptyTestFolder(L"host");
  std::wstring module = (wb::programFolder() / L"testmodule.arx").wstring();
};
