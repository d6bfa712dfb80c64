#include "shared/ModuleSession.h"

#include <windows.h>

#include <fstream>
#include <iterator>
#include <stdexcept>

#include "core/Program.h"
#include "core/Text.h"
#include "watch/ImportWatch.h"

namespace {

/// A DXF file keeps a code and a value on a line each.
class DxfFile {
 public:
  explicit DxfFile(const std::filesystem::path& path) : file(path, std::ios::binary) {}
  void group(int code, const std::wstring& value) {
    file << code << "\r\n" << wb::toUtf8(value) << "\r\n";
  }
  void position(int code) {
    group(code, L"0.0");
    group(code + 10, L"0.0");
  }

 private:
  std::ofstream file;
};

void writeBlock(DxfFile& file, const std::wstring& name, const std::wstring& path) {
  const std::wstring flags = path.empty() ? L"0" : L"4";  // 4: an xref
  file.group(0, L"BLOCK");
  file.group(8, L"0");
  file.group(2, name);
  file.group(70, flags);
  file.position(10);
  file.group(3, name);
  file.group(1, path);
  file.group(0, L"ENDBLK");
  file.group(8, L"0");
}

void expectOrderIn(const std::vector<std::wstring>& told, const std::vector<std::wstring>& texts,
                   const std::string& recent) {
  size_t at = 0;
  for (const std::wstring& text : texts) {
    while (at < told.size() && told[at].find(text) == std::wstring::npos) ++at;
    if (at == told.size()) {
      ADD_FAILURE() << "not told in its place: " << wb::toUtf8(text) << "\n----\n" << recent;
      return;
    }
    ++at;
  }
}

}  // namespace

ModuleSession::ModuleSession() : session(options()) {
  wb::Transcript::instance().keepDetails(wb::apartmentBalance);
  writeDrawing(L"small.dxf");
  run("@vault create Works %WORK%\\View\n"
      "@vault add %WORK%\\View\\Plan.dxf from %WORK%\\small.dxf comment First issue\n");
}

void ModuleSession::TearDown() {
  mark();
  session.end();
  EXPECT_EQ(count(L"leak: "), 0) << recent();
  checkWhatHoldsEverywhere();
}

// All text goes to the host to be run in the drawing as if typed there. Boxes and dialogs belong to
// the editor; those of the client belong to the module's dialog about its verb.
void ModuleSession::checkWhatHoldsEverywhere() const {
  for (const wb::Transcript::Detail& detail : wb::Transcript::instance().details()) {
    if (detail.line.rfind(L"sent: ", 0) == 0) EXPECT_EQ(detail.line, L"sent: activate, echo");
    if (detail.line.rfind(L"owner: ", 0) != 0) continue;
    const bool ofClient = detail.line.rfind(L"owner: \"Check in ", 0) == 0;
    const std::wstring owner = ofClient ? L" of \"Dialog\"" : L" of the main window";
    EXPECT_NE(detail.line.find(owner), std::wstring::npos) << wb::toUtf8(detail.line);
  }
}

wb::SessionOptions ModuleSession::options() {
  wb::SessionOptions options;
  options.module = binFolder() / L"TessaroAcad.arx";
  options.client = binFolder() / L"TessaroClient.dll";
  options.workFolder = workFolder();
  options.drawings = workbenchFile(L"drawings");
  return options;
}

std::filesystem::path ModuleSession::workFolder() {
  return std::filesystem::temp_directory_path() / L"workbench-tests" / L"module";
}

std::filesystem::path ModuleSession::viewFolder() { return workFolder() / L"View"; }

const wb::StoredFile& ModuleSession::stored(const std::wstring& file) {
  const wb::StoredFile* found = wb::store().find((viewFolder() / file).wstring());
  if (!found) throw std::runtime_error("not in the vault: " + wb::toUtf8(file));
  return *found;
}

std::filesystem::path ModuleSession::binFolder() { return wb::programFolder(); }

std::wstring ModuleSession::workbenchFile(const std::wstring& relative) {
  return wb::fromUtf8(PROJECT_FOLDER) + L"/workbench/" + relative;
}

std::filesystem::path ModuleSession::writeDrawing(const std::wstring& file,
                                                  const std::vector<Xref>& xrefs) {
  std::filesystem::path path = workFolder() / file;
  std::filesystem::create_directories(path.parent_path());
  DxfFile drawing(path);
  drawing.group(0, L"SECTION");
  drawing.group(2, L"HEADER");
  drawing.group(9, L"$ACADVER");
  drawing.group(1, L"AC1021");
  drawing.group(0, L"ENDSEC");
  drawing.group(0, L"SECTION");
  drawing.group(2, L"BLOCKS");
  for (const Xref& xref : xrefs) writeBlock(drawing, xref.name, xref.path);
  drawing.group(0, L"ENDSEC");
  drawing.group(0, L"SECTION");
  drawing.group(2, L"ENTITIES");
  drawing.group(0, L"LINE");
  drawing.group(8, L"0");
  drawing.position(10);
  drawing.position(11);
  for (const Xref& xref : xrefs) {
    drawing.group(0, L"INSERT");
    drawing.group(8, L"0");
    drawing.group(2, xref.name);
    drawing.position(10);
  }
  drawing.group(0, L"ENDSEC");
  drawing.group(0, L"EOF");
  return path;
}

std::string ModuleSession::bytesOf(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

void ModuleSession::run(const std::string& script) {
  EXPECT_TRUE(session.run(script)) << script << "----\n" << recent();
}

void ModuleSession::openPlan() {
  run("@load\n@open %WORK%\\View\\Plan.dxf\n");
  mark();
}

void ModuleSession::mark() {
  start = session.transcript().size();
  detailStart = wb::Transcript::instance().details().size();
}

std::vector<std::wstring> ModuleSession::lines() const {
  const auto& all = session.transcript();
  return {all.begin() + static_cast<std::ptrdiff_t>(start), all.end()};
}

std::string ModuleSession::recent() const {
  std::string text;
  for (const std::wstring& line : lines()) text += wb::toUtf8(line) + "\n";
  return text;
}

int ModuleSession::count(std::wstring_view text) const {
  int found = 0;
  for (const std::wstring& line : lines()) found += line.find(text) != std::wstring::npos;
  return found;
}

void ModuleSession::expectOrder(const std::vector<std::wstring>& texts) const {
  expectOrderIn(lines(), texts, recent());
}

void ModuleSession::expectDetails(const std::vector<std::wstring>& texts) const {
  std::vector<std::wstring> told;
  std::string text;
  for (const wb::Transcript::Detail& detail : details()) {
    told.push_back(detail.line);
    text += wb::toUtf8(detail.line) + "\n";
  }
  expectOrderIn(told, texts, text);
}

std::vector<wb::Transcript::Detail> ModuleSession::details() const {
  const auto& all = wb::Transcript::instance().details();
  return {all.begin() + static_cast<std::ptrdiff_t>(detailStart), all.end()};
}
