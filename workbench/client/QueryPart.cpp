#include "client/BatchText.h"
#include "client/Bstr.h"
#include "client/ClientCall.h"
#include "client/MainObject.h"
#include "client/RowList.h"
#include "client/StoreDate.h"
#include "core/Text.h"

namespace wb {
namespace {

/// A view is known by its id, and a question that names none is about the whole vault.
bool asksAbout(const ModifiedDateQuestion& question, const StoredVault& vault) {
  const bool anyView = question.viewId.find_first_not_of(L"0-") == std::wstring::npos;
  const bool thisView = sameName(L"{" + question.viewId + L"}", vault.viewId);
  return (anyView || thisView) && question.rootFolderId == StoredVault::rootFolderId;
}

std::vector<ModifiedDateRow> answer(const ModifiedDateQuestion& question,
                                    const StoredVault& vault) {
  std::vector<ModifiedDateRow> rows;
  if (!asksAbout(question, vault)) return rows;
  for (const auto& asked : question.files) {
    const auto found = vault.files.find(asked.folder + asked.name);
    if (found == vault.files.end() || found->second.denied) continue;
    const StoredFile& file = found->second;
    const std::wstring folder = file.path.substr(0, file.path.size() - file.name().size());
    rows.push_back({file.name(), folder, utcDate(file.latest().date), file.exempt});
  }
  return rows;
}

}  // namespace

STDMETHODIMP QueryPart::execute(BSTR statements, IUnknown** result) {
  return ClientCall(L"VaultQuery.execute").with(L"statements", statements).out(result).runVoid([&] {
    const StoredVault& vault = session->vault();
    const ModifiedDateQuestion question = parseModifiedDateBatch(textOf(statements));
    // One empty set each for the table, for every file put into it and for its removal.
    auto sets = std::make_shared<ResultSets>(question.files.size() + 1);
    sets->push_back(answer(question, vault));
    sets->emplace_back();
    using SharedSets = std::shared_ptr<const ResultSets>;
    *result = make<RowListObject, VaultRowList>(L"VaultRowList", SharedSets(sets)).release();
  });
}

}  // namespace wb
