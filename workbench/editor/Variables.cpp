#include <acedads.h>
#include <acutmem.h>
#include <adscodes.h>

#include <string>

#include "core/Names.h"
#include "database/Drawing.h"
#include "editor/DocumentManager.h"
#include "editor/Host.h"

namespace {

using Reader = bool (*)(const wb::Document&, resbuf&);

bool number(resbuf& result, int value) {
  result.restype = RTSHORT;
  result.resval.rint = static_cast<short>(value);
  return true;
}

bool text(resbuf& result, const std::wstring& value) {
  result.restype = RTSTR;
  return acutNewString(value.c_str(), result.resval.rstring) == Acad::eOk;
}

std::wstring folderOf(const wb::Document& document) {
  return document.path().substr(0, document.path().rfind(L'\\') + 1);
}

std::wstring nameOf(const wb::Document& document) {
  const std::wstring title = document.title();
  return title.substr(title.rfind(L'\\') + 1);
}

struct Variable {
  const wchar_t* name;
  Reader read;
};

const Variable variables[] = {
    {L"DBMOD",
     [](const wb::Document& d, resbuf& result) { return number(result, d.drawing()->dbmod()); }},
    {L"DWGNAME", [](const wb::Document& d, resbuf& result) { return text(result, nameOf(d)); }},
    {L"DWGPREFIX", [](const wb::Document& d, resbuf& result) { return text(result, folderOf(d)); }},
    {L"DWGTITLED", [](const wb::Document& d,
                      resbuf& result) { return number(result, d.path().empty() ? 0 : 1); }},
    {L"WRITESTAT",
     [](const wb::Document& d, resbuf& result) { return number(result, d.readOnly() ? 0 : 1); }},
};

}  // namespace

extern "C" int acedGetVar(const ACHAR* name, resbuf* result) {
  if (!name || !result) return RTERROR;
  const auto* document =
      static_cast<const wb::Document*>(wb::Host::instance().documents().curDocument());
  if (!document) return RTERROR;
  for (const Variable& variable : variables) {
    if (wb::sameName(variable.name, name)) {
      return variable.read(*document, *result) ? RTNORM : RTERROR;
    }
  }
  return RTERROR;
}
