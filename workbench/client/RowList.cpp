#include "client/RowList.h"

#include "client/Bstr.h"
#include "client/ClientCall.h"
#include "client/Results.h"

namespace wb {
namespace {

enum Column : long { fileName = 1, folderName = 2, modifiedDate = 3, exemptFlag = 4 };

[[noreturn]] void refuseColumn() { throw ClientFailure(E_INVALIDARG); }

}  // namespace

STDMETHODIMP RowListPart::fetchRow(VARIANT_BOOL* hasRow) {
  return ClientCall(L"VaultRowList.fetchRow").out(hasRow).run([&] {
    if (set >= sets->size()) throw ClientFailure(E_QVT_END_OF_LIST);
    const auto& rows = (*sets)[set];
    if (rows.empty()) return S_FALSE;
    if (fetched <= rows.size()) ++fetched;
    *hasRow = fetched <= rows.size() ? VARIANT_TRUE : VARIANT_FALSE;
    return S_OK;
  });
}

STDMETHODIMP RowListPart::nextResult(VARIANT_BOOL* more) {
  return ClientCall(L"VaultRowList.nextResult").out(more).runVoid([&] {
    if (set < sets->size()) ++set;
    fetched = 0;
    *more = set < sets->size() ? VARIANT_TRUE : VARIANT_FALSE;
  });
}

STDMETHODIMP RowListPart::textAt(LONG column, BSTR* result) {
  return ClientCall(L"VaultRowList.textAt").with(L"column", column).out(result).runVoid([&] {
    const ModifiedDateRow& row = currentRow();
    if (column != fileName && column != folderName) refuseColumn();
    *result = newBstr(column == fileName ? row.name : row.folder);
  });
}

STDMETHODIMP RowListPart::dateAt(LONG column, DATE* result) {
  return ClientCall(L"VaultRowList.dateAt").with(L"column", column).out(result).runVoid([&] {
    const ModifiedDateRow& row = currentRow();
    if (column != modifiedDate) refuseColumn();
    *result = row.modified;
  });
}

STDMETHODIMP RowListPart::flagAt(LONG column, VARIANT_BOOL* result) {
  return ClientCall(L"VaultRowList.flagAt").with(L"column", column).out(result).runVoid([&] {
    const ModifiedDateRow& row = currentRow();
    if (column != exemptFlag) refuseColumn();
    *result = row.exempt ? VARIANT_TRUE : VARIANT_FALSE;
  });
}

const ModifiedDateRow& RowListPart::currentRow() const {
  const bool onRow = set < sets->size() && fetched > 0 && fetched <= (*sets)[set].size();
  if (!onRow) throw ClientFailure(E_QVT_END_OF_LIST);
  return (*sets)[set][fetched - 1];
}

}  // namespace wb
