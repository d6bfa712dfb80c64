#include "editor/Variables.h"

#include <acutmem.h>
#include <adscodes.h>

#include <string>

#include "core/Text.h"
#include "database/Drawing.h"
#include "editor/Document.h"

namespace wb {

namespace {

using Reader = bool (*)(const Document&, resbuf&);

bool number(resbuf& result, int value) {
  result.restype = RTSHORT;
  result.resval.rint = static_cast<short>(value);
  return true;
}

bool text(resbuf& result, const std::wstring& value) {
  result.restype = RTSTR;
  return acutNewString(value.c_str(), result.resval.rstring) == Acad::eOk;
}

std::wstring folderOf(const Document& document) {
  return document.path().substr(0, document.path().rfind(L'\\') + 1);
}

std::wstring nameOf(const Document& document) {
  const std::wstring title = document.title();
  return title.substr(title.rfind(L'\\') + 1);
}

struct Variable {
  const wchar_t* name;
  Reader read;
};

const Variable variables[] = {
    {L"DBMOD",
     [](const Document& d, resbuf& result) { return number(result, d.drawing()->dbmod()); }},
    {L"DWGNAME", [](const Document& d, resbuf& result) { return text(result, nameOf(d)); }},
    {L"DWGPREFIX", [](const Document& d, resbuf& result) { return text(result, folderOf(d)); }},
    {L"DWGTITLED",
     [](const Document& d, resbuf& result) { return number(result, d.path().empty() ? 0 : 1); }},
    {L"WRITESTAT",
     [](const Document& d, resbuf& result) { return number(result, d.readOnly() ? 0 : 1); }},
};

}  // namespace

bool readVariable(const Document& document, std::wstring_view name, resbuf& result) {
  for (const Variable& variable : variables) {
    if (sameName(variable.name, name)) return variable.read(document, result);
  }
  return false;
}

}  // namespace wb
