#include "vault/ResultCodes.h"

#include <comdef.h>

#include <cstdint>
#include <memory>

#include "foundation/FormatText.h"
#include "foundation/Lst.h"
#include "vault/MessageStrings.h"
#include "vault/ResultCodeTable.h"
#include "vault/ResultTexts.h"

namespace tessaro {

namespace {

// Unsigned, like the tables and the ranges.
constexpr std::uint32_t databaseAccess = 0x80040207;
constexpr std::uint32_t serverNotFound = 0x80040220;
constexpr std::uint32_t dataSourceNotFound = 0x80040222;
constexpr std::uint32_t getFormatRouter = 0x8004027D;
constexpr std::uint32_t unsupportedSystem = 0x800402D3;
constexpr std::uint32_t cantOpenDatabase[] = {0x80040206, 0x80040221};

/// The codes of the archive server's revision control: the first one plus its error number.
constexpr std::uint32_t revisionControlFirst = 0x80040432;
constexpr std::uint32_t revisionControlLast = 0x800404C4;

/// WinINet's errors from 12000 on, as HRESULT_FROM_WIN32 makes them.
constexpr std::uint32_t internetFirst = 0x80072EE0;
constexpr std::uint32_t internetEnd = 0x80072F90;

bool isRevisionControl(std::uint32_t code) {
  return code >= revisionControlFirst && code <= revisionControlLast;
}

_bstr_t bstrOf(const CString& text) { return text.c_str(); }

const ResultText* findText(std::uint32_t code) {
  for (const ResultTexts* table : {&vaultTexts, &archiveTexts}) {
    for (const ResultText& row : *table) {
      if (row.code == code) return &row;
    }
  }
  return nullptr;
}

_bstr_t databaseText(long number, const wchar_t* defaultText) {
  return lookupSectionText(number, defaultText, L"Database", L"Error Messages");
}

void supportedSystemNames(Lst<_bstr_t>& names) {
  names.pushBack(L"Windows XP Service Pack 2");
  names.pushBack(L"Windows Server 2003 Service Pack 1");
}

_bstr_t unsupportedSystemText(const _bstr_t& firstLine) {
  _bstr_t text = firstLine;
  Lst<_bstr_t> names;
  supportedSystemNames(names);
  while (!names.isEmpty()) text += L"\n" + names.popFront();
  return text;
}

_bstr_t revisionControlText(std::uint32_t code) {
  return bstrOf(
      formatText(L"Archive server revision control error %d (0x0%X)",
                 {static_cast<long>(code - revisionControlFirst), static_cast<long>(code)}));
}

_bstr_t textOfRow(const ResultText& row) {
  const _bstr_t text =
      lookupSectionText(row.number, row.defaultText, L"QvtInterface", L"ErrorCodes");
  return row.code == unsupportedSystem ? unsupportedSystemText(text) : text;
}

}  // namespace

_bstr_t resultCodeText(HRESULT result) {
  const auto code = static_cast<std::uint32_t>(result);
  if (code == serverNotFound || code == dataSourceNotFound) return databaseErrorText(result);
  if (code == getFormatRouter) return resultCodeName(result);
  if (const ResultText* row = findText(code)) return textOfRow(*row);
  if (code >= internetFirst && code < internetEnd) return internetErrorText(result);
  if (isRevisionControl(code)) return revisionControlText(code);
  return systemMessage(result);
}

_bstr_t resultCodeName(HRESULT result) {
  const auto code = static_cast<std::uint32_t>(result);
  for (const ResultCodeRow& row : resultCodeTable) {
    if (row.code == code) return row.name;
  }
  if (isRevisionControl(code)) {
    return bstrOf(
        formatText(L"E_FVC_RCE_ERR_%d", {static_cast<long>(code - revisionControlFirst)}));
  }
  return bstrOf(formatText(L"0x%X", {static_cast<long>(result)}));
}

void describeResultCode(HRESULT code, _bstr_t* text, _bstr_t* name) {
  if (text != nullptr) *text = resultCodeText(code);
  if (name != nullptr) *name = resultCodeName(code);
}

_bstr_t databaseErrorText(HRESULT result) {
  switch (static_cast<std::uint32_t>(result)) {
    case cantOpenDatabase[0]:
    case cantOpenDatabase[1]:
      return databaseText(208, L"The database could not be opened.");
    case serverNotFound:
      return databaseText(207, L"The server was not found.");
    case dataSourceNotFound:
      return databaseText(209, L"The ODBC data source was not found.");
    default:
      return resultCodeText(static_cast<HRESULT>(databaseAccess));
  }
}

_bstr_t internetErrorText(HRESULT result) {
  const long number = static_cast<long>(result) & 0xFFFF;
  switch (number) {
    case 12007:
      return L"The server name could not be resolved.";
    case 12029:
      return L"The attempt to connect to the server failed.";
    case 12030:
      return L"The connection with the server has been terminated.";
    case 12031:
      return L"The connection with the server has been reset.";
    case 12163:
      return L"The Internet connection has been lost";
    default:
      return bstrOf(formatText(L"A WinINet error occured (code=%d).", {number}));
  }
}

_bstr_t systemMessage(HRESULT code) {
  struct LocalMemory {
    void operator()(wchar_t* memory) const { LocalFree(memory); }
  };
  wchar_t* buffer = nullptr;
  // The same call as in Microsoft's _com_error::ErrorMessage. The one in MinGW's header doesn't
  // ignore inserts and fails for every message that has one.
  constexpr DWORD language = MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT);
  size_t length = FormatMessageW(
      FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
      nullptr, static_cast<DWORD>(code), language, reinterpret_cast<wchar_t*>(&buffer), 0, nullptr);
  const std::unique_ptr<wchar_t, LocalMemory> message(buffer);
  if (length == 0) {
    const _com_error error(code);
    return error.ErrorMessage();
  }
  for (const wchar_t last : {L'\n', L'\r'}) {
    if (length > 0 && buffer[length - 1] == last) buffer[--length] = 0;
  }
  return buffer;
}

}  // namespace tessaro
