#pragma once

#include <memory>
#include <string>
#include <vector>

#include "client/ComObject.h"
#include "TessaroClient.h"

namespace wb {

/// One file of the answer to a modified-date question.
struct ModifiedDateRow {
  std::wstring name;
  std::wstring folder;
  DATE modified;
  bool exempt;
};

/// The result sets of a batch, one for each statement. Those of the statements that only do
/// something have no rows.
using ResultSets = std::vector<std::vector<ModifiedDateRow>>;

class RowListPart : public Plain<VaultRowList> {
 public:
  explicit RowListPart(std::shared_ptr<const ResultSets> sets) : sets(std::move(sets)) {}

  STDMETHODIMP fetchRow(VARIANT_BOOL* hasRow) override;
  STDMETHODIMP nextResult(VARIANT_BOOL* more) override;
  STDMETHODIMP textAt(LONG column, BSTR* result) override;
  STDMETHODIMP dateAt(LONG column, DATE* result) override;
  STDMETHODIMP flagAt(LONG column, VARIANT_BOOL* result) override;

 private:
  const ModifiedDateRow& currentRow() const;

  std::shared_ptr<const ResultSets> sets;
  size_t set = 0;
  size_t fetched = 0;  ///< rows fetched of this set; one more once it has come to its end
};

using RowListObject = ComObject<RowListPart>;

}  // namespace wb
