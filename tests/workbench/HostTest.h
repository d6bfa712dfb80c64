#pragma once

#include <windows.h>

#include <acedads.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <string>
#include <vector>

#include "core/Program.h"
#include "core/SessionState.h"
#include "core/Text.h"
#include "core/Transcript.h"
#include "dialogs/Answers.h"
#include "editor/Host.h"
#include "editor/LoadRecord.h"

namespace fs = std::filesystem;

/// A started host, an empty folder for drawings, and the test application beside the program.
class HostTest : public testing::Test {
 protected:
  HostTest() {
    fs::remove_all(folder);
    fs::create_directories(folder);
    wb::Answers::instance().start(false);
    wb::clearLoadRecord();
    host.start();
  }
  ~HostTest() override {
    host.stop();
    wb::Answers::instance().stop();
    std::error_code ignored;
    fs::remove_all(folder, ignored);
  }

  std::wstring drawing(const wchar_t* name) {
    const fs::path path = folder / name;
    std::ofstream(path, std::ios::binary) << "0\nSECTION\n2\nENTITIES\n0\nENDSEC\n0\nEOF\n";
    return path.wstring();
  }
  void load() { ASSERT_TRUE(host.loadModule(module)) << text(); }
  void run(std::wstring_view line) {
    host.type(line);
    host.runUntilIdle();
  }
  bool said(std::wstring_view what) const { return position(what, 0) != npos; }
  // The lines come in this order, others in between.
  testing::AssertionResult inOrder(std::initializer_list<const wchar_t*> lines) const {
    size_t from = 0;
    for (const wchar_t* line : lines) {
      const size_t at = position(line, from);
      if (at == npos) {
        return testing::AssertionFailure() << "not in its place: " << wb::toUtf8(line) << "\n"
                                           << text();
      }
      from = at + 1;
    }
    return testing::AssertionSuccess();
  }
  std::string text() const {
    std::string all;
    for (const auto& line : wb::Transcript::instance().lines()) all += wb::toUtf8(line) + "\n";
    return all;
  }
  void forget() { wb::Transcript::instance().clear(); }

  wb::SessionState state;
  wb::Host& host = wb::Host::instance();
  fs::path folder = fs::temp_directory_path() / L"host_tests";
  std::wstring module = (wb::programFolder() / L"testmodule.arx").wstring();

 private:
  static constexpr size_t npos = static_cast<size_t>(-1);
  static size_t position(std::wstring_view what, size_t from) {
    const auto& lines = wb::Transcript::instance().lines();
    for (size_t i = from; i < lines.size(); ++i) {
      if (lines[i].find(what) != std::wstring::npos) return i;
    }
    return npos;
  }
};
