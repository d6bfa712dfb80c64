#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <vector>

#include "core/Text.h"
#include "scripting/SessionFiles.h"

namespace fs = std::filesystem;
using wb::bytesOf;

inline void write(const fs::path& path, const std::string& bytes) {
  fs::create_directories(path.parent_path());
  std::ofstream file(path, std::ios::binary);
  EXPECT_TRUE(file << bytes) << path.string();
}

/// A file kept open as another program would.
class HeldOpen {
 public:
  HeldOpen(const fs::path& file, DWORD access, DWORD share)
      : handle(CreateFileW(file.c_str(), access, share, nullptr, OPEN_EXISTING, 0, nullptr)) {
    EXPECT_NE(INVALID_HANDLE_VALUE, handle) << file.string();
  }
  HeldOpen(const HeldOpen&) = delete;
  HeldOpen& operator=(const HeldOpen&) = delete;
  ~HeldOpen() { CloseHandle(handle); }

 private:
  const HANDLE handle;
};

/// An empty folder for a test's files.
inline fs::path emptyTestFolder(const wchar_t* name) {
  fs::path folder = fs::temp_directory_path() / L"workbench-tests" / name;
  wb::deleteTree(folder);
  fs::create_directories(folder);
  return folder;
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

/// The project's own folder; a path of the build machine lies on Wine's drive Z.
inline fs::path projectFolder() {
  const std::wstring folder = wb::fromUtf8(PROJECT_FOLDER);
  return folder[0] == L'/' ? L"Z:" + folder : folder;
}

/// The numbered texts of a section in a language file of the client.
inline std::map<int, std::wstring> clientTexts(const fs::path& file, const std::string& section) {
  std::map<int, std::wstring> texts;
  std::ifstream stream(file, std::ios::binary);
  for (std::string line; std::getline(stream, line);) {
    if (line.rfind(section, 0) != 0) continue;
    const size_t equals = line.find('=');
    texts[std::stoi(line.substr(section.size()))] = wb::fromUtf8(line.substr(equals + 1));
  }
  return texts;
}

/// Lines as one text, in UTF-8.
inline std::string joined(const std::vector<std::wstring>& lines) {
  std::string text;
  for (const std::wstring& line : lines) text += wb::toUtf8(line) + "\n";
  return text;
}

/// Whether lines that hold these texts stand in this order, others in between.
inline testing::AssertionResult inOrder(const std::vector<std::wstring>& lines,
                                        const std::vector<std::wstring>& texts) {
  auto line = lines.begin();
  for (const std::wstring& text : texts) {
    line = std::find_if(line, lines.end(), [&](const std::wstring& one) {
      return one.find(text) != std::wstring::npos;
    });
    if (line == lines.end()) {
      return testing::AssertionFailure() << "not in its place: " << wb::toUtf8(text) << "\n----\n"
                                         << joined(lines);
    }
    ++line;
  }
  return testing::AssertionSuccess();
}
