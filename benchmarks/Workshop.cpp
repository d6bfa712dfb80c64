#include "Workshop.h"

#include <algorithm>
#include <fstream>
#include <stdexcept>

#include "core/Accounts.h"
#include "core/Program.h"
#include "core/Text.h"
#include "core/Transcript.h"
#include "editor/CommandStack.h"
#include "editor/Document.h"
#include "editor/DocumentManager.h"
#include "editor/Editor.h"
#include "editor/Host.h"
#include "ModuleMemory.h"
#include "store/Store.h"

namespace bench {

namespace {

wb::SessionOptions options() {
  wb::SessionOptions options;
  options.accountForMemory = false;
  options.module = (Workshop::binFolder() / L"TessaroAcad.arx").wstring();
  options.client = (Workshop::binFolder() / L"TessaroClient.dll").wstring();
  options.workFolder = Workshop::view().parent_path().wstring();
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

Workshop::Workshop() : session(options()) {
  run("@vault create Works %WORK%\\View\n@reg set EditWarning 1\n");
  wb::Host::instance().onModuleMapped = watchMemoryOf;
  run("@load\n");
}

void Workshop::run(const std::string& script) {
  if (!session.run(script)) throw std::runtime_error(wb::toUtf8(session.text()));
}

std::filesystem::path Workshop::binFolder() { return wb::programFolder(); }

std::filesystem::path Workshop::view() {
  // Asked for once: the C++ library looks at the disk for it, which is no part of what is measured.
  static const std::filesystem::path folder =
      std::filesystem::temp_directory_path() / L"workbench-bench" / L"View";
  return folder;
}

std::filesystem::path Workshop::xref(int number) {
  return view() / L"Xrefs" / (xrefName(number) + L".dxf");
}

void Workshop::provideXrefs(int count) {
  const std::filesystem::path empty = view().parent_path() / L"empty.dxf";
  writeEmptyDrawing(empty);
  wb::store().together([&] {
    for (; provided < count; ++provided) {
      wb::store().add(xref(provided).wstring(), empty, L"engineer", L"");
    }
  });
}

void Workshop::openSheet(int count) {
  provideXrefs(count);
  const std::string name = "Sheet" + std::to_string(count) + ".dxf";
  const std::filesystem::path sheet = view() / name;
  if (!std::filesystem::exists(sheet)) {
    const std::filesystem::path source = view().parent_path() / name;
    writeSheet(source, count);
    run("@vault add %WORK%\\View\\" + name + " from %WORK%\\" + name + "\n");
  }
  run("@open %WORK%\\View\\" + name + "\n");
  forget();
}

void Workshop::closeAll() {
  while (wb::Host::instance().close()) {
  }
  forget();
}

void Workshop::click(int control) {
  const HWND window = FindWindowW(nullptr, L"Tessaro Status");
  if (!window) throw std::runtime_error("there is no status window");
  SendMessageW(window, WM_COMMAND, MAKEWPARAM(control, BN_CLICKED), 0);
}

void Workshop::command(const wchar_t* name) {
  const wb::Command* found = wb::Host::instance().commands().find(name);
  if (!found) throw std::runtime_error("no such command: " + wb::toUtf8(name));
  found->work();
}

void Workshop::saved(const std::wstring& path) {
  wb::Host& host = wb::Host::instance();
  host.editor().saveComplete(host.documents().active()->databaseOf(), path.c_str());
}

size_t Workshop::clientCalls() {
  const auto& events = wb::Transcript::instance().events();
  const auto begin = events.begin() + static_cast<std::ptrdiff_t>(told);
  // The client's texts are no matter of the vault.
  const auto calls = std::count_if(begin, events.end(), [](const wb::Event& event) {
    return event.kind == wb::Event::client && event.subject.rfind(L"VaultTextService", 0) != 0;
  });
  told = events.size();
  return static_cast<size_t>(calls);
}

void Workshop::forget() {
  wb::Transcript::instance().clear();
  told = 0;
}

}  // namespace bench
