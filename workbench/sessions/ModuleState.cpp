#include "sessions/ModuleState.h"

#include <windows.h>

#include <acdocman.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <set>
#include <stdexcept>

#include "frame/TessaroAcadApp.h"

namespace {

// An explicit instantiation may name members that are private.
template <class Tag, auto member>
struct Grant {
  friend auto reveal(Tag) { return member; }
};
struct HeadOfList {
  friend auto reveal(HeadOfList);
};
struct DocumentsOfWindow {
  friend auto reveal(DocumentsOfWindow);
};
template struct Grant<HeadOfList, &XrefList::head>;
template struct Grant<DocumentsOfWindow, &FloatWindow::documents>;

/// The address of the add-in's object below the module's base, out of the symbols that the linker
/// leaves in the file. A `.file` symbol precedes those of its source.
size_t findApplication(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  const std::string image(std::istreambuf_iterator<char>(stream), {});
  const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(image.data());
  const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS64*>(image.data() + dos->e_lfanew);
  const DWORD count = headers->FileHeader.NumberOfSymbols;
  const char* table = image.data() + headers->FileHeader.PointerToSymbolTable;
  const char* strings = table + size_t(count) * sizeof(IMAGE_SYMBOL);
  const IMAGE_SECTION_HEADER* sections = IMAGE_FIRST_SECTION(headers);
  bool inSource = false;
  for (DWORD at = 0; at < count; ++at) {
    IMAGE_SYMBOL symbol;
    std::memcpy(&symbol, table + size_t(at) * sizeof symbol, sizeof symbol);
    const char* auxiliary = table + size_t(at + 1) * sizeof symbol;
    at += symbol.NumberOfAuxSymbols;
    if (symbol.StorageClass == IMAGE_SYM_CLASS_FILE) {
      const std::string source(auxiliary, strnlen(auxiliary, sizeof symbol));
      inSource = source.find("EntryPoint") != std::string::npos;
      continue;
    }
    if (!inSource || symbol.N.Name.Short || symbol.SectionNumber <= 0) continue;
    if (std::strcmp(strings + symbol.N.Name.Long, "_ZN12_GLOBAL__N_111applicationE") == 0) {
      return sections[symbol.SectionNumber - 1].VirtualAddress + symbol.Value;
    }
  }
  throw std::runtime_error("the module's file has no symbol for the add-in's object");
}

std::set<const AcApDocument*> openDocuments() {
  std::set<const AcApDocument*> open;
  const std::unique_ptr<AcApDocumentIterator> at(acDocManagerPtr()->newAcApDocumentIterator());
  for (; !at->done(); at->step()) open.insert(at->document());
  return open;
}

}  // namespace

std::string sessions::staleDocuments() {
  const HMODULE module = GetModuleHandleW(L"TessaroAcad.arx");
  if (!module) return {};
  wchar_t file[MAX_PATH];
  GetModuleFileNameW(module, file, MAX_PATH);
  static const size_t offset = findApplication(file);
  const auto& app =
      *reinterpret_cast<const TessaroAcadApp*>(reinterpret_cast<const char*>(module) + offset);
  const std::set<const AcApDocument*> open = openDocuments();
  for (const auto& [document, due] : app.guardedDocuments) {
    if (!open.count(document)) return "the edit guard remembers a document that isn't open";
  }
  for (auto* row = app.pendingReloads.*reveal(HeadOfList()); row; row = row->next) {
    if (!open.count(row->document)) return "a reload is pending for a document that isn't open";
  }
  if (!app.statusWindow) return {};
  for (const auto& [document, state] : (*app.statusWindow).*reveal(DocumentsOfWindow())) {
    if (!open.count(document)) return "the status window remembers a document that isn't open";
  }
  return {};
}
