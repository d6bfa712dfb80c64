#include "client/BatchText.h"

#include <cwctype>

#include "client/Results.h"

namespace wb {
namespace {

/// One statement, taken apart from the left.
class Statement {
 public:
  Statement(std::wstring_view text, size_t number) : rest(text), number(number) {
    expect(L"Exec ");
    procedure = rest.substr(0, rest.find(L' '));
    rest.remove_prefix(procedure.size());
  }

  bool calls(std::wstring_view name) const { return procedure == name; }

  /// What is between single quotes, the doubled ones inside made single.
  std::wstring text() {
    expect(L"'");
    std::wstring result;
    for (;;) {
      const size_t quote = rest.find(L'\'');
      if (quote == std::wstring_view::npos) fail(L"a text isn't closed");
      result += rest.substr(0, quote);
      rest.remove_prefix(quote + 1);
      if (rest.empty() || rest.front() != L'\'') return result;
      result += L'\'';
      rest.remove_prefix(1);
    }
  }

  /// A signed decimal number of 32 bits.
  long integer() {
    const std::wstring digits(rest);
    wchar_t* end = nullptr;
    const long long value = std::wcstoll(digits.c_str(), &end, 10);
    const auto length = static_cast<size_t>(end - digits.c_str());
    const bool starts = !digits.empty() && (digits[0] == L'-' || std::iswdigit(digits[0]));
    if (!starts || length == 0 || value != static_cast<long>(value)) fail(L"no 32-bit number");
    rest.remove_prefix(length);
    return static_cast<long>(value);
  }

  void expect(std::wstring_view text) {
    if (rest.substr(0, text.size()) != text) fail(L"expected [" + std::wstring(text) + L"]");
    rest.remove_prefix(text.size());
  }

  void end() const {
    if (!rest.empty()) fail(L"more than its arguments");
  }

  [[noreturn]] void fail(const std::wstring& reason) const {
    throw ClientFailure(E_QVT_INVALID_QUERY,
                        L"Statement " + std::to_wstring(number) + L": " + reason + L".");
  }

 private:
  std::wstring_view rest;
  std::wstring_view procedure;
  size_t number;
};

std::vector<Statement> split(std::wstring_view text) {
  std::vector<Statement> statements;
  for (;;) {
    const size_t end = text.find(L'\n');
    statements.emplace_back(text.substr(0, end), statements.size() + 1);
    if (end == std::wstring_view::npos) return statements;
    text.remove_prefix(end + 1);
  }
}

bool isViewId(std::wstring_view text) {
  constexpr std::wstring_view form = L"00000000-0000-0000-0000-000000000000";
  if (text.size() != form.size()) return false;
  for (size_t i = 0; i < form.size(); ++i) {
    const bool upperHex =
        (text[i] >= L'0' && text[i] <= L'9') || (text[i] >= L'A' && text[i] <= L'F');
    if (form[i] == L'-' ? text[i] != L'-' : !upperHex) return false;
  }
  return true;
}

ModifiedDateQuestion::File fileOf(Statement& statement) {
  ModifiedDateQuestion::File file;
  statement.expect(L" ");
  file.name = statement.text();
  statement.expect(L", ");
  file.folder = statement.text();
  statement.end();
  const bool between =
      !file.folder.empty() && file.folder.front() == L'\\' && file.folder.back() == L'\\';
  if (!between) statement.fail(L"the folder isn't between backslashes");
  if (file.name.empty()) statement.fail(L"no file name");
  return file;
}

void readQuestion(Statement& statement, ModifiedDateQuestion& question) {
  statement.expect(L" ");
  question.viewId = statement.text();
  if (!isViewId(question.viewId)) statement.fail(L"the view's id has another form");
  statement.expect(L", ");
  question.rootFolderId = statement.integer();
  statement.end();
}

void expectCall(const Statement& statement, std::wstring_view procedure) {
  if (!statement.calls(procedure)) statement.fail(L"expected a call of " + std::wstring(procedure));
}

}  // namespace

ModifiedDateQuestion parseModifiedDateBatch(std::wstring_view text) {
  std::vector<Statement> statements = split(text);
  constexpr size_t fixedStatements = 3;
  if (statements.size() < fixedStatements) {
    statements.back().fail(L"the batch ends before its temporary table is dropped");
  }
  ModifiedDateQuestion question;
  const size_t ask = statements.size() - 2;
  expectCall(statements[0], L"Doc_Init_GMDM_Temp");
  statements[0].end();
  for (size_t i = 1; i < ask; ++i) {
    expectCall(statements[i], L"Doc_Pop_GMDM_Temp");
    question.files.push_back(fileOf(statements[i]));
  }
  expectCall(statements[ask], L"Doc_GetModifiedDateMultiple");
  readQuestion(statements[ask], question);
  expectCall(statements.back(), L"Doc_Cleanup_GMDM_Temp");
  statements.back().end();
  return question;
}

}  // namespace wb
