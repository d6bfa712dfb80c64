// The LISP half of ArxMfcApp.
#include <memory>

#include <acedads.h>
#include <adscodes.h>

#include "foundation/AppMessageBox.h"
#include "foundation/FormatText.h"
#include "frame/ArxMfcApp.h"

namespace tessaro {

int ArxMfcApp::addLispFunction(const CString& name, int (*function)()) {
  nameCommandGroup();
  constexpr size_t markerLength = 2;
  const bool isCommand = _wcsnicmp(name.c_str(), L"C:", markerLength) == 0;
  const CString marker = isCommand ? name.substr(0, markerLength) : CString();
  const CString rest = name.substr(marker.size());
  const bool withPrefix = (isCommand ? prefixCommands : prefixFunctions) != 0;
  const CString finalName = withPrefix ? marker + prefixed(rest) : rest;

  const int index = static_cast<int>(functions.size());
  for (int other = 0; other < index; ++other) {
    if (equalIgnoringCase(functions.lookup(other)->value->name, finalName)) {
      appMessageBox(formatText(L"Duplicate function \"%s\".", {finalName}).c_str(),
                    MB_ICONINFORMATION);
      return 0;
    }
  }
  auto holder = std::make_unique<AdsFunctionHolder>(AdsFunctionHolder{finalName, function});
  functions.setAt(index, holder.get());
  static_cast<void>(holder.release());
  return 1;
}

int ArxMfcApp::addCommandFunction(const CString& globalName, const CString& localName,
                                  int (*function)()) {
  if (addLispFunction(L"C:" + globalName, function) == 0) return 0;
  if (localName.empty() || equalIgnoringCase(localName, globalName)) return 1;
  return addLispFunction(L"C:" + localName, function);
}

int ArxMfcApp::defineLispFunctions() {
  for (int index = 0; const auto* element = functions.lookup(index); ++index) {
    const AdsFunctionHolder& holder = *element->value;
    if (acedDefun(holder.name.c_str(), static_cast<short>(index)) != RTNORM) {
      appMessageBox(formatText(L"Error defining function \"%s\".", {holder.name}).c_str(),
                    MB_ICONINFORMATION);
      return 0;
    }
    if (acedRegFunc(holder.function, index) != RTNORM) {
      appMessageBox(
          formatText(L"Error registering function \"%s\" (index=%d)", {holder.name, index}).c_str(),
          MB_ICONINFORMATION);
      return 0;
    }
  }
  return 1;
}

void ArxMfcApp::deleteFunctions() {
  for (int index = 0; const auto* element = functions.lookup(index); ++index) delete element->value;
  functions.clear();
}

}  // namespace tessaro
