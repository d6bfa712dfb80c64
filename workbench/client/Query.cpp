// The query for the modified dates of files: its statements, and its result sets.

#include <regex>
#include <vector>

#include "client/ClientCall.h"
#include "client/Objects.h"
#include "core/Text.h"

namespace wb {
namespace {

/// The statements of a batch, which are taken one after the other.
class Batch {
 public:
  explicit Batch(const std::wstring& text) {
    for (size_t at = 0, end = 0; end != std::wstring::npos; at = end + 1) {
      end = text.find(L'\n', at);
      statements.push_back(text.substr(at, end - at));
    }
  }

  /// Takes the next statement if it has a form.
  bool take(const std::wregex& form) {
    if (taken == statements.size() || !std::regex_match(statements[taken], words, form)) {
      return false;
    }
    ++taken;
    return true;
  }

  /// The same for a statement that has to be there.
  void expect(const std::wregex& form) {
    if (!take(form)) fail();
  }

  void expectEnd() const {
    if (taken != statements.size()) fail();
  }

  /// A word of the statement that was taken last: the text between two brackets of its form, with
  /// the doubled quotes in it made single.
  std::wstring word(size_t number) const {
    static const std::wregex doubledQuote(L"''");
    return std::regex_replace(words[number].str(), doubledQuote, L"'");
  }

  [[noreturn]] void fail() const {
    throw ClientFailure(E_QVT_INVALID_QUERY,
                        L"Statement " + std::to_wstring(taken + 1) +
                            L" isn't one that a question for modified dates has there.");
  }

 private:
  std::vector<std::wstring> statements;
  size_t taken = 0;
  std::wsmatch words;
};

/// One file of the answer.
struct Row {
  std::wstring name;
  std::wstring folder;
  DATE modified;
  bool isExempt;
};

/// The result sets of a batch, one for each statement. Those of the statements that only do
/// something have no rows.
struct ResultSets {
  std::vector<Row> rows;
  size_t setWithRows = 0;  ///< the last but one
};

struct RowListPart : Plain<VaultRowList, ResultSets> {
  STDMETHODIMP fetchRow(VARIANT_BOOL* hasRow) override {
    return call().out(hasRow).run([&] {
      if (set > lastSet()) throw ClientFailure(E_QVT_END_OF_LIST);
      if (set != state.setWithRows || state.rows.empty()) return S_FALSE;
      if (fetched <= state.rows.size()) ++fetched;
      assign(hasRow, fetched <= state.rows.size());
      return S_OK;
    });
  }

  STDMETHODIMP nextResult(VARIANT_BOOL* more) override {
    return call().result(more, [&] {
      if (set <= lastSet()) ++set;
      fetched = 0;
      return set <= lastSet();
    });
  }

  STDMETHODIMP textAt(LONG column, BSTR* result) override {
    return call().with(L"column", column).result(result, [&] {
      const Row& row = rowFor(column == fileName || column == folderName);
      return column == fileName ? row.name : row.folder;
    });
  }

  STDMETHODIMP dateAt(LONG column, DATE* result) override {
    return call().with(L"column", column).result(result, [&] {
      return rowFor(column == modifiedDate).modified;
    });
  }

  STDMETHODIMP flagAt(LONG column, VARIANT_BOOL* result) override {
    return call().with(L"column", column).result(result, [&] {
      return rowFor(column == exemptFlag).isExempt;
    });
  }

 private:
  enum Column : long { fileName = 1, folderName = 2, modifiedDate = 3, exemptFlag = 4 };

  size_t lastSet() const { return state.setWithRows + 1; }

  /// The current row, of which a column of the right type is asked for.
  const Row& rowFor(bool hasColumn) const {
    const bool isOnRow = set == state.setWithRows && fetched > 0 && fetched <= state.rows.size();
    if (!isOnRow) throw ClientFailure(E_QVT_END_OF_LIST);
    if (!hasColumn) throw ClientFailure(E_INVALIDARG);
    return state.rows[fetched - 1];
  }

  size_t set = 0;
  size_t fetched = 0;  ///< rows fetched of this set; one more after the last
};

}  // namespace

Owned<IUnknown> runBatch(const std::wstring& statements, const StoredVault& vault) {
  static const std::wregex begin(L"Exec Doc_Init_GMDM_Temp");
  static const std::wregex addFile(
      LR"(Exec Doc_Pop_GMDM_Temp '((?:[^']|'')+)', '(\\(?:(?:[^']|'')*\\)?)')");
  static const std::wregex ask(
      L"Exec Doc_GetModifiedDateMultiple "
      L"'([0-9A-F]{8}-[0-9A-F]{4}-[0-9A-F]{4}-[0-9A-F]{4}-[0-9A-F]{12})', (-?[0-9]{1,9})");
  static const std::wregex end(L"Exec Doc_Cleanup_GMDM_Temp");

  Batch batch(statements);
  batch.expect(begin);
  // One empty set each for the table and for every file put into it.
  ResultSets sets{{}, 1};
  for (; batch.take(addFile); ++sets.setWithRows) {
    const auto found = vault.files.find(batch.word(2) + batch.word(1));
    if (found == vault.files.end() || found->second.denied) continue;
    const StoredFile& file = found->second;
    sets.rows.push_back({file.name(), file.path.substr(0, file.path.size() - file.name().size()),
                         utcDate(file.latest().date), file.exempt});
  }
  batch.expect(ask);
  // A view is known by its id, and a question that names none is about the whole vault.
  const std::wstring view = batch.word(1);
  const bool isOfVault = (view.find_first_not_of(L"0-") == std::wstring::npos ||
                          sameName(L"{" + view + L"}", vault.viewId)) &&
                         std::stol(batch.word(2)) == StoredVault::rootFolderId;
  if (!isOfVault) sets.rows.clear();
  batch.expect(end);
  batch.expectEnd();
  return make<VaultRowList, RowListPart>(L"VaultRowList", sets);
}

}  // namespace wb
