#include "BenchSession.h"

#include <algorithm>
#include <fstream>
#include <stdexcept>

#include "core/Program.h"
#include "core/Text.h"
#include "core/Transcript.h"
#include "editor/Host.h"
#include "ModuleMemory.h"
#include "store/Store.h"

namespace bench {

namespace {

/// The operations for which a client has to ask its server: login, look-up, query, fetch. The
/// others read what came with one of these.
constexpr const wchar_t* serverOperations[] = {L"login",    L"fileFromPath", L"rootFolder",
                                               L"execute",  L"getLocalCopy", L"getVersion",
                                               L"checkOut", L"cardData"};

wb::SessionOptions options() {
  wb::SessionOptions options;
  options.accountForMemory = false;
  options.client = (BenchSession::binFolder() / L"TessaroClient.dll").wstring();
  options.workFolder = BenchSession::view().parent_path().wstring();
  options.timeoutSeconds = 0;
  return options;
}

std::wstring xrefName(int number) {
  wchar_t name[8];
  swprintf_s(name, std::size(name), L"X%05d", number);
  return name;
}

void writeEmptyDrawing(const std::filesystem::path& file) {
  std::ofstream(file, std::ios::binary) << "0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC1009\n0\n"
                                           "ENDSEC\n0\nSECTION\n2\nENTITIES\n0\nENDSEC\n0\nEOF\n";
}

void writeSheet(const std::filesystem::path& file, int count) {
  std::ofstream sheet(file, std::ios::binary);
  sheet << "0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC1009\n0\nENDSEC\n0\nSECTION\n2\nBLOCKS\n";
  for (int number = 0; number < count; ++number) {
    const std::string name = wb::toUtf8(xrefName(number));
    sheet << "0\nBLOCK\n8\n0\n2\n"
          << name << "\n70\n4\n10\n0.0\n20\n0.0\n3\n"
          << name << "\n1\nXrefs\\" << name << ".dxf\n0\nENDBLK\n8\n0\n";
  }
  sheet << "0\nENDSEC\n0\nSECTION\n2\nENTITIES\n";
  for (int number = 0; number < count; ++number) {
    sheet << "0\nINSERT\n8\n0\n2\n" << wb::toUtf8(xrefName(number)) << "\n10\n0.0\n20\n0.0\n";
  }
  sheet << "0\nENDSEC\n0\nEOF\n";
}

}  // namespace

BenchSession::BenchSession() : session(options()) {
  run("@vault create Works %WORK%\\View\n@vault offline off\n@reg set EditWarning 1\n");
  wb::Host::instance().onModuleMapped = nullptr;
  load(Application::module);
}

void BenchSession::load(Application application) {
  loadFile(application == Application::module ? L"TessaroAcad.arx" : L"baremodule.arx");
}

void BenchSession::loadWatched() {
  wb::Host& host = wb::Host::instance();
  host.onModuleMapped = watchMemoryOf;
  loadFile(L"TessaroAcad.arx");
  host.onModuleMapped = nullptr;
}

void BenchSession::loadFile(const wchar_t* name) {
  unload();
  const std::wstring file = (binFolder() / name).wstring();
  if (!wb::Host::instance().loadModule(file)) {
    throw std::runtime_error(wb::toUtf8(session.text()));
  }
  loaded = file;
}

void BenchSession::unload() {
  if (loaded.empty()) return;
  if (!wb::Host::instance().unloadModule(loaded)) {
    throw std::runtime_error(wb::toUtf8(session.text()));
  }
  loaded.clear();
}

void BenchSession::run(const std::string& script) {
  if (!session.run(script)) throw std::runtime_error(wb::toUtf8(session.text()));
}

std::filesystem::path BenchSession::binFolder() { return wb::programFolder(); }

std::filesystem::path BenchSession::view() {
  // Asked for once: the C++ library looks at the disk for it, which is no part of what is measured.
  static const std::filesystem::path folder =
      std::filesystem::temp_directory_path() / L"workbench-bench" / L"View";
  return folder;
}

std::filesystem::path BenchSession::xref(int number) {
  return view() / L"Xrefs" / (xrefName(number) + L".dxf");
}

void BenchSession::provideXrefs(int count) {
  const std::filesystem::path empty = view().parent_path() / L"empty.dxf";
  writeEmptyDrawing(empty);
  wb::store().inOneWrite([&] {
    for (; provided < count; ++provided) {
      wb::store().add(xref(provided).wstring(), empty, L"engineer", L"");
    }
  });
}

void BenchSession::openSheet(int count) {
  provideXrefs(count);
  const std::string name = "Sheet" + std::to_string(count) + ".dxf";
  const std::filesystem::path sheet = view() / name;
  if (!std::filesystem::exists(sheet)) {
    const std::filesystem::path source = view().parent_path() / name;
    writeSheet(source, count);
    run("@vault add %WORK%\\View\\" + name + " from %WORK%\\" + name + "\n");
  }
  run("@open %WORK%\\View\\" + name + "\n");
  clearTranscript();
}

void BenchSession::closeAll() {
  while (wb::Host::instance().close()) {
  }
  clearTranscript();
}

void BenchSession::settle() { wb::Host::instance().runUntilIdle(); }

void BenchSession::click(int control) {
  const HWND window = FindWindowW(nullptr, L"Tessaro Status");
  if (!window) throw std::runtime_error("there is no status window");
  SendMessageW(window, WM_COMMAND, MAKEWPARAM(control, BN_CLICKED), 0);
}

void BenchSession::command(const wchar_t* name) {
  const wb::Command* found = wb::Host::instance().commands().find(name);
  if (!found) throw std::runtime_error("no such command: " + wb::toUtf8(name));
  found->work();
}

void BenchSession::saved(const std::wstring& path) {
  wb::Host& host = wb::Host::instance();
  host.editor().saveComplete(host.documents().active()->databaseOf(), path.c_str());
}

ClientCalls BenchSession::clientCalls() const {
  ClientCalls calls;
  for (const wb::Event& event : wb::Transcript::instance().events()) {
    if (event.kind != wb::Event::client) continue;
    calls.lines.push_back(event.text);
    if (event.subject.rfind(L"VaultTextService", 0) == 0) continue;
    ++calls.ofVault;
    const std::wstring operation = event.subject.substr(event.subject.find(L'.') + 1);
    const auto found =
        std::find(std::begin(serverOperations), std::end(serverOperations), operation);
    if (found != std::end(serverOperations)) ++calls.exchanges;
  }
  return calls;
}

void BenchSession::clearTranscript() { wb::Transcript::instance().clear(); }

}  // namespace bench
