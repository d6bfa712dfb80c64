#include <vector>

#include "workbench/ClientTest.h"

namespace {

TEST_F(ClientTest, GateOpensForTheThreeCodesInOrderOnly) {
  const auto client = loggedIn();
  const VaultGatePtr gate = client;
  const auto queryIsGiven = [&] { return static_cast<bool>(VaultQueryPtr(client)); };
  EXPECT_FALSE(queryIsGiven());
  EXPECT_EQ(gate->presentCode(3176520), S_OK);
  EXPECT_EQ(gate->presentCode(5201874), wb::E_QVT_PERMISSION_DENIED);
  EXPECT_EQ(gate->presentCode(19980117), wb::E_QVT_PERMISSION_DENIED) << "the code starts again";
  for (const long code : {3176520, 19980117, 5201874}) EXPECT_EQ(gate->presentCode(code), S_OK);
  EXPECT_TRUE(queryIsGiven());
  EXPECT_EQ(gate->presentCode(3176520), wb::E_QVT_PERMISSION_DENIED);
  EXPECT_FALSE(queryIsGiven());
}

class QueryTest : public ClientTest {
 protected:
  VaultQueryPtr query() {
    const auto client = loggedIn();
    const VaultGatePtr gate = client;
    for (const long code : {3176520, 19980117, 5201874}) gate->presentCode(code);
    return client;
  }

  static std::wstring batch(const std::wstring& files, const std::wstring& view) {
    return L"Exec Doc_Init_GMDM_Temp\n" + files + L"Exec Doc_GetModifiedDateMultiple '" + view +
           L"', 1\nExec Doc_Cleanup_GMDM_Temp";
  }

  std::wstring viewId() const {
    const std::wstring id = wb::store().vaultNamed(L"Plant")->viewId;
    return id.substr(1, id.size() - 2);
  }

  static constexpr wchar_t files[] =
      L"Exec Doc_Pop_GMDM_Temp 'PLAN.dxf', '\\'\n"
      L"Exec Doc_Pop_GMDM_Temp 'Unknown.dxf', '\\'\n"
      L"Exec Doc_Pop_GMDM_Temp 'O''Neil.dxf', '\\Sub\\'\n";
};

TEST_F(QueryTest, BatchAnswersForTheFilesThatTheVaultHolds) {
  wb::store().setExempt(path(L"Sub\\O'Neil.dxf"), true);
  for (const std::wstring& id : {viewId(), std::wstring(L"00000000-0000-0000-0000-000000000000")}) {
    IUnknownPtr result;
    ASSERT_EQ(query()->execute(_bstr_t(batch(files, id).c_str()), &result), S_OK);
    const VaultRowListPtr rows = result;
    VARIANT_BOOL hasRow = VARIANT_TRUE, more = VARIANT_TRUE;
    int emptySets = 0;
    while (rows->fetchRow(&hasRow) == S_FALSE && rows->nextResult(&more) == S_OK && more) {
      ++emptySets;
    }
    EXPECT_EQ(emptySets, 4) << "the table and three files";
    std::vector<std::wstring> found;
    for (; hasRow; rows->fetchRow(&hasRow)) {
      VARIANT_BOOL exempt = VARIANT_FALSE;
      EXPECT_EQ(rows->flagAt(4, &exempt), S_OK);
      found.push_back(std::wstring(text([&](BSTR* out) { return rows->textAt(2, out); })) + L"|" +
                      std::wstring(text([&](BSTR* out) { return rows->textAt(1, out); })) +
                      (exempt ? L"|exempt" : L""));
      DATE date = 0;
      EXPECT_EQ(rows->dateAt(3, &date), S_OK);
      SYSTEMTIME parts;
      FILETIME time;
      VariantTimeToSystemTime(date, &parts);
      SystemTimeToFileTime(&parts, &time);
      const auto stored =
          wb::store().find(path(found.size() == 1 ? L"Plan.dxf" : L"Sub\\O'Neil.dxf"));
      EXPECT_EQ((static_cast<std::uint64_t>(time.dwHighDateTime) << 32) | time.dwLowDateTime,
                stored->latest().date);
      EXPECT_EQ(rows->flagAt(3, &exempt), E_INVALIDARG);
    }
    EXPECT_EQ(found, (std::vector<std::wstring>{L"\\|Plan.dxf", L"\\Sub\\|O'Neil.dxf|exempt"}));
    EXPECT_EQ(rows->nextResult(&more), S_OK);
    EXPECT_EQ(rows->fetchRow(&hasRow), S_FALSE);
    EXPECT_EQ(rows->nextResult(&more), S_OK);
    EXPECT_FALSE(more);
  }
}

TEST_F(QueryTest, MalformedBatchIsRefusedWithAReason) {
  const std::wstring id = viewId();
  const std::wstring good = batch(files, id);
  const std::wstring malformed[] = {L"",
                                    good + L"\n",
                                    good.substr(1),
                                    good.substr(0, good.rfind(L'\n')),
                                    batch(L"Exec Doc_Pop_GMDM_Temp 'O'Neil.dxf', '\\'\n", id),
                                    batch(L"Exec Doc_Pop_GMDM_Temp 'A.dxf', 'Sub\\'\n", id),
                                    batch(L"Exec Doc_Pop_GMDM_Temp 'A.dxf'\n", id),
                                    batch(L"Exec Doc_Drop_Everything\n", id),
                                    batch(files, L"{" + id + L"}")};
  const auto object = query();
  for (const std::wstring& statements : malformed) {
    IUnknownPtr result;
    EXPECT_EQ(object->execute(_bstr_t(statements.c_str()), &result), wb::E_QVT_INVALID_QUERY);
    EXPECT_FALSE(result);
    IErrorInfoPtr reason;
    ASSERT_EQ(GetErrorInfo(0, &reason), S_OK);
    BSTR description = nullptr;
    reason->GetDescription(&description);
    EXPECT_NE(_bstr_t(description, false).length(), 0u);
  }
}

}  // namespace
