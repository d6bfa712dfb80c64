// The data card of a file, and what is told of one.

#include "core/Transcript.h"
#include "store/Store.h"

namespace wb {

namespace {

CardVariable& variableOf(StoredFile& file, const std::wstring& name) {
  for (CardVariable& variable : file.card) {
    if (sameName(variable.name, name)) return variable;
  }
  file.card.push_back({name, {}, {}});
  return file.card.back();
}

std::wstring versionLine(const StoredVersion& version) {
  return L"version " + std::to_wstring(version.number) + L" by " + version.user +
         (version.comment.empty() ? L"" : L": " + version.comment);
}

std::wstring holderLine(const StoredFile& file) {
  if (!file.holder) return L"not checked out";
  const bool here = sameName(file.holder->computer, Store::thisComputer());
  return L"checked out by " + file.holder->user + L" in " + file.holder->folder +
         (here ? L"" : L" on " + file.holder->computer);
}

void describeCard(const CardVariable& variable, std::vector<std::wstring>& lines) {
  for (const auto& [configuration, value] : variable.values) {
    lines.push_back(
        L"card " + variable.name + L" in " + wb::quoted(configuration) + L" = " +
        (value.type == L"text" ? wb::quoted(value.text) : value.type + L" " + value.text));
  }
  for (const CardMapping& mapping : variable.mappings) {
    lines.push_back(L"card " + variable.name + L" goes to " + mapping.block + L"." + mapping.tag);
  }
}

}  // namespace

void Store::setCardValue(const std::wstring& path, const std::wstring& variable,
                         const std::wstring& configuration, const CardValue& value) {
  change(path, [&](StoredFile& file) { variableOf(file, variable).values[configuration] = value; });
}

void Store::addMapping(const std::wstring& path, const std::wstring& variable,
                       const CardMapping& to) {
  change(path, [&](StoredFile& file) { variableOf(file, variable).mappings.push_back(to); });
}

std::vector<std::wstring> Store::describe(const std::wstring& path) const {
  const StoredFile* file = find(path);
  if (!file) return {path + L" isn't in the vault"};
  std::vector<std::wstring> lines;
  for (const StoredVersion& version : file->versions) lines.push_back(versionLine(version));
  lines.push_back(holderLine(*file));
  for (const auto& [key, id] : vaultOf(path)->folderIds) {
    const std::wstring folder = key.substr(key.find(L'|') + 1);
    const long local = localVersion(*file, id);
    if (local != 0) lines.push_back(L"local version " + std::to_wstring(local) + L" in " + folder);
  }
  lines.push_back(L"state " + file->state);
  if (file->exempt) lines.push_back(L"exempt from the date comparison");
  if (file->denied) lines.push_back(L"denied");
  for (const CardVariable& variable : file->card) describeCard(variable, lines);
  return lines;
}

}  // namespace wb
