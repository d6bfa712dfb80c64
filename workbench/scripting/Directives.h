#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace wb {

struct SessionOptions;
class ClientLibrary;

/// What a directive needs of the session it runs in.
struct ScriptContext {
  const SessionOptions& options;
  ClientLibrary& client;
  std::vector<std::wstring> vaults;  ///< names of those made by the session's scripts
};

/// A line of a script that can't be carried out. The text is shown with the line's number.
struct ScriptError : std::exception {
  explicit ScriptError(std::wstring why) : why(std::move(why)) {}
  const char* what() const noexcept override { return "a line of the script failed"; }
  std::wstring why;
};

/// A line that can't be carried out as things stand: a window isn't there, a drawing isn't open.
struct ImpossibleStep : ScriptError {
  using ScriptError::ScriptError;
};

/// What stands behind a directive's name: words parted by blanks, where "..." holds a word with
/// blanks together. %WORK% and %DRAWINGS% are filled in after that, so they may hold blanks.
class Arguments {
 public:
  /// `usage` is what an error shows: the directive as it should be written.
  Arguments(std::wstring text, std::wstring usage, const SessionOptions& options);

  /// The next word. Raises ScriptError if there is none.
  std::wstring word();
  /// The next word as a whole number, raising ScriptError if it isn't one.
  int number();
  /// Takes the next word if it is `keyword`, in any case.
  bool take(std::wstring_view keyword);
  /// Everything that is left, up to the first of the keywords standing as a word of its own. The
  /// quotes around a single word fall away; blanks inside stay. Raises ScriptError if it is empty.
  std::wstring textUntil(const std::vector<std::wstring_view>& keywords = {});
  /// Everything that is left as it stands, quotes and folder names and all, without the blanks
  /// around it. Raises ScriptError if it is empty.
  std::wstring restOfLine();
  /// "on" or "off".
  bool onOff();
  bool atEnd() const { return next == words.size(); }
  /// Raises ScriptError if something is left.
  void end() const;
  /// Raises ScriptError with `why` and the usage.
  [[noreturn]] void fail(const std::wstring& why) const;

 private:
  struct Word {
    size_t begin, end;  ///< in `line`, quotes included
    std::wstring text;
    bool quoteOpen;
  };

  const std::wstring& textOf(const Word& word) const;

  std::wstring line;
  std::wstring usage;
  const SessionOptions& options;
  std::vector<Word> words;
  size_t next = 0;
};

/// A directive: how it is written, what it does, and whether it may come while a command waits for
/// input.
struct Directive {
  const wchar_t* name;
  const wchar_t* usage;
  void (*run)(ScriptContext&, Arguments&);
  bool whileWaiting;
};

/// All directives; adding one is adding a line to the table of its file.
const std::vector<Directive>& directives();

std::vector<Directive> documentDirectives();  ///< directives/Documents.cpp
std::vector<Directive> answerDirectives();    ///< directives/Answers.cpp
std::vector<Directive> clientDirectives();    ///< directives/Client.cpp: @client, @fail, @reg
std::vector<Directive> vaultDirectives();     ///< directives/Vault.cpp
std::vector<Directive> checkDirectives();    ///< directives/Checks.cpp: @mark, @expect, @shot, @say
std::vector<Directive> windowDirectives();   ///< directives/Window.cpp: the status window
std::vector<Directive> drawingDirectives();  ///< directives/Drawing.cpp: @layout, @attr
/// directives/Selection.cpp: what is picked, and the right-click menu
std::vector<Directive> selectionDirectives();

/// %WORK% and %DRAWINGS% filled in. Raises ScriptError for one that the session hasn't got.
std::wstring expandFolders(std::wstring text, const SessionOptions& options);

/// A file named as Windows does or, under Wine, as the machine does ("/home/..."), as a complete
/// Windows path. Raises ScriptError if it can't be one.
std::wstring windowsPath(const std::wstring& file);

}  // namespace wb
