#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace wb {

class Document;

/// The functions that applications offer to LISP; each belongs to one document.
class LispFunctions {
 public:
  /// For the application and the document of the message that is being sent; false outside one.
  bool define(const std::wstring& name, int code);
  bool setFunction(int (*function)(void), int code);

  /// Runs "(NAME)", or NAME if "C:NAME" is defined. False if it is neither.
  bool runTyped(const std::wstring& token, Document* document);

  void drop(const Document* document);
  /// Takes away what an application defined, whose code is about to go.
  void dropOf(HMODULE module);

 private:
  struct Function {
    Document* document;
    HMODULE module;
    std::wstring name;
    int code;
    int (*call)(void);
  };
  std::vector<Function> functions;
};

}  // namespace wb
