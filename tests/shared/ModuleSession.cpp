#include "shared/ModuleSession.h"

#include <windows.h>

#include <stdexcept>

#include "core/Program.h"
#include "core/Text.h"
#include "ui/resource.h"
#include "watch/ImportWatch.h"

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
  return wb::optionsOfBuild(workFolder(), workbenchFile(L"drawings"));
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
  return (projectFolder() / L"workbench" / relative).wstring();
}

std::filesystem::path ModuleSession::writeDrawing(const std::wstring& file,
                                                  const std::vector<Xref>& xrefs) {
  std::string blocks;
  std::string inserts;
  for (const Xref& xref : xrefs) {
    const std::string name = wb::toUtf8(xref.name) + "\n";
    blocks.append("0 BLOCK\n8 0\n2 ").append(name).append(xref.path.empty() ? "70 0\n" : "70 4\n");
    blocks.append("10 0.0\n20 0.0\n3 ").append(name).append("1 ").append(wb::toUtf8(xref.path));
    blocks.append("\n0 ENDBLK\n8 0\n");
    inserts.append("0 INSERT\n8 0\n2 ").append(name).append("10 0.0\n20 0.0\n");
  }
  std::filesystem::path path = workFolder() / file;
  write(path, dxf("0 SECTION\n2 BLOCKS\n" + blocks +
                      "0 ENDSEC\n0 SECTION\n2 ENTITIES\n"
                      "0 LINE\n8 0\n10 0.0\n20 0.0\n11 0.0\n21 0.0\n" +
                      inserts + "0 ENDSEC\n",
                  "AC1021"));
  return path;
}

void ModuleSession::run(const std::string& script) {
  EXPECT_TRUE(session.run(script)) << script << "----\n" << recent();
}

void ModuleSession::makeWritable(const std::wstring& file) {
  EXPECT_TRUE(SetFileAttributesW((viewFolder() / file).c_str(), FILE_ATTRIBUTE_NORMAL));
}

HWND ModuleSession::statusWindow() {
  HWND found = nullptr;
  EnumThreadWindows(
      GetCurrentThreadId(),
      [](HWND window, LPARAM result) {
        if (GetDlgItem(window, IDC_XREFS_LATEST)) *reinterpret_cast<HWND*>(result) = window;
        return TRUE;
      },
      reinterpret_cast<LPARAM>(&found));
  return found;
}

void ModuleSession::addSite() {
  writeDrawing(L"part.dxf");
  writeDrawing(L"site.dxf", {{L"Part", L"Part.dxf"}});
  run("@vault add %WORK%\\View\\Part.dxf from %WORK%\\part.dxf\n"
      "@vault add %WORK%\\View\\Site.dxf from %WORK%\\site.dxf\n"
      "@vault add %WORK%\\View\\Other.dxf from %WORK%\\small.dxf\n");
}

void ModuleSession::openPlan() {
  run("@load\n@open %WORK%\\View\\Plan.dxf\n");
  mark();
}

void ModuleSession::mark() {
  start = session.transcript().size();
  detailStart = wb::Transcript::instance().details().size();
}

void ModuleSession::step(const std::string& script) {
  mark();
  run(script);
}

std::vector<std::wstring> ModuleSession::lines() const {
  const auto& all = session.transcript();
  return {all.begin() + static_cast<std::ptrdiff_t>(start), all.end()};
}

std::string ModuleSession::recent() const { return joined(lines()); }

int ModuleSession::count(std::wstring_view text) const {
  return wb::Transcript::instance().count(text, start);
}

void ModuleSession::expectOrder(const std::vector<std::wstring>& texts) const {
  EXPECT_TRUE(inOrder(lines(), texts));
}

void ModuleSession::expectDetails(const std::vector<std::wstring>& texts) const {
  std::vector<std::wstring> lines;
  for (wb::Transcript::Detail& detail : details()) lines.push_back(std::move(detail.line));
  EXPECT_TRUE(inOrder(lines, texts));
}

std::vector<wb::Transcript::Detail> ModuleSession::details() const {
  const auto& all = wb::Transcript::instance().details();
  return {all.begin() + static_cast<std::ptrdiff_t>(detailStart), all.end()};
}
