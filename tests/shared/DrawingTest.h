#pragma once

#include <windows.h>

#include <dbapserv.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "core/SessionState.h"
#include "core/Text.h"
#include "core/Transcript.h"
#include "database/Drawing.h"
#include "gate/HostError.h"

namespace fs = std::filesystem;

inline std::string bytesOf(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

inline void write(const fs::path& path, const std::string& bytes) {
  fs::create_directories(path.parent_path());
  std::ofstream(path, std::ios::binary) << bytes;
}

/// The project's own folder; a path of the build machine lies on Wine's drive Z.
inline fs::path projectFolder() {
  const std::wstring folder = wb::fromUtf8(PROJECT_FOLDER);
  return folder[0] == L'/' ? L"Z:" + folder : folder;
}

inline std::vector<fs::path> sampleDrawings() {
  std::vector<fs::path> found;
  for (const wchar_t* folder : {L"workbench/drawings", L"tests/drawings"}) {
    for (const auto& entry : fs::recursive_directory_iterator(projectFolder() / folder)) {
      if (entry.path().extension() == L".dxf") found.push_back(entry.path());
    }
  }
  return found;
}

/// A DXF file of some release from "code value" lines, one group a line.
inline std::string dxf(const std::string& groups, const char* release = "AC1009",
                       const char* codePage = "ANSI_1252") {
  std::string text = "0 SECTION\n2 HEADER\n9 $ACADVER\n1 " + std::string(release) +
                     "\n9 $DWGCODEPAGE\n3 " + codePage + "\n0 ENDSEC\n" + groups + "0 EOF\n";
  std::string result;
  for (size_t begin = 0; begin < text.size();) {
    const size_t blank = text.find(' ', begin);
    const size_t end = text.find('\n', begin);
    result += text.substr(begin, blank - begin) + "\r\n";
    result += text.substr(blank + 1, end - blank - 1) + "\r\n";
    begin = end + 1;
  }
  return result;
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
  DrawingTest() {
    fs::remove_all(folder);
    fs::create_directories(folder);
  }
  ~DrawingTest() override {
    use(nullptr);
    for (const wb::Outstanding& one : wb::outstanding(firstTicket)) {
      ADD_FAILURE() << wb::toUtf8(one.kind + L" " + one.label) << " wasn't given back";
    }
    std::error_code ignored;
    fs::remove_all(folder, ignored);
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
  static bool told(std::wstring_view what) {
    for (const std::wstring& line : wb::Transcript::instance().lines()) {
      if (line.find(what) != std::wstring::npos) return true;
    }
    return false;
  }

  fs::path folder = fs::temp_directory_path() / L"drawing_tests";
  wb::SessionState state;
  wb::Ticket firstTicket = wb::nextTicket();
};
