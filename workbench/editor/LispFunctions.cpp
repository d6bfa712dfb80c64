#include "editor/LispFunctions.h"

#include <adscodes.h>

#include <algorithm>

#include "core/Names.h"
#include "core/StandInTime.h"
#include "editor/CommandLine.h"
#include "editor/CommandRunner.h"
#include "editor/CommandStack.h"
#include "editor/DocumentManager.h"
#include "editor/Host.h"
#include "editor/ModuleLoader.h"

namespace wb {

bool LispFunctions::define(const std::wstring& name, int code) {
  Host& host = Host::instance();
  const HMODULE module = host.modules().messaged();
  Document* document = host.modules().messagedDocument();
  if (!module || !document) return false;
  functions.erase(std::remove_if(functions.begin(), functions.end(),
                                 [&](const Function& one) {
                                   return one.document == document && sameName(one.name, name);
                                 }),
                  functions.end());
  functions.push_back({document, module, name, code, nullptr});
  return true;
}

bool LispFunctions::setFunction(int (*function)(void), int code) {
  Host& host = Host::instance();
  bool found = false;
  for (Function& one : functions) {
    if (one.document == host.modules().messagedDocument() && one.code == code &&
        one.module == host.modules().messaged()) {
      one.call = function;
      found = true;
    }
  }
  return found;
}

bool LispFunctions::runTyped(const std::wstring& token, Document* document) {
  std::wstring name = L"C:" + token;
  if (token.size() > 2 && token.front() == L'(' && token.back() == L')') {
    name = token.substr(1, token.size() - 2);
  }
  const auto found = std::find_if(functions.begin(), functions.end(), [&](const Function& one) {
    return one.document == document && sameName(one.name, name);
  });
  if (found == functions.end()) return false;
  const Function function = *found;
  Command command;
  command.global = L"(" + function.name + L")";
  command.work = [function] {
    // Without a function of its own the application gets a message.
    const InModule outside;
    const int result =
        function.call ? function.call() : Host::instance().modules().invoke(function.module);
    if (result != RTNORM && result != AcRx::kRetOK) commandLineSays(L"; error: ADS request error");
  };
  Host::instance().runner().run(command, document);
  return true;
}

void LispFunctions::drop(const Document* document) {
  functions.erase(std::remove_if(functions.begin(), functions.end(),
                                 [&](const Function& one) { return one.document == document; }),
                  functions.end());
}

void LispFunctions::dropOf(HMODULE module) {
  functions.erase(std::remove_if(functions.begin(), functions.end(),
                                 [&](const Function& one) { return one.module == module; }),
                  functions.end());
}

}  // namespace wb
