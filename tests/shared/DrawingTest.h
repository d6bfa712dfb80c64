#pragma once

#include <windows.h>

#include <dbapserv.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "core/SessionState.h"
#include "core/Text.h"
#include "core/Transcript.h"
#include "database/Drawing.h"
#include "gate/HostError.h"
#include "shared/Support.h"

inline std::vector<fs::path> sampleDrawings() {
  std::vector<fs::path> found;
  for (const wchar_t* folder : {L"workbench/drawings", L"tests/drawings"}) {
    for (const auto& entry : fs::recursive_directory_iterator(projectFolder() / folder)) {
      if (entry.path().extension() == L".dxf") found.push_back(entry.path());
    }
  }
  return found;
}

/// Why the host can't do it; empty if it can.
template <class Work>
std::wstring refusal(const Work& work) {
  try {
    work();
    return {};
  } catch (const wb::HostError& error) {
    return error.reason;
  }
}

/// An empty folder for drawings; afterwards everything that was handed out has to be back.
class DrawingTest : public testing::Test {
 protected:
  ~DrawingTest() override {
    use(nullptr);
    for (const wb::Outstanding& one : wb::outstanding(firstTicket)) {
      ADD_FAILURE() << wb::toUtf8(one.kind + L" " + one.label) << " wasn't given back";
    }
  }

  std::unique_ptr<wb::Drawing> open(const fs::path& path) {
    auto drawing = wb::Drawing::load(path);
    use(drawing->database());
    return drawing;
  }
  std::unique_ptr<wb::Drawing> openText(const std::string& bytes) {
    write(folder / L"text.dxf", bytes);
    return open(folder / L"text.dxf");
  }
  static void use(AcDbDatabase* database) {
    acdbHostApplicationServices()->setWorkingDatabase(database);
  }
  bool told(std::wstring_view what) const { return state.transcript.count(what) > 0; }

  const fs::path folder = emptyTestFolder(L"drawing");
  wb::SessionState state;
  wb::Ticket firstTicket = wb::nextTicket();
};
