#pragma once

#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <vector>

#include "core/Text.h"

namespace wb {

struct SessionOptions;

/// What a directive needs of the session it runs in.
struct ScriptContext {
  const SessionOptions& options;
  std::vector<std::wstring> vaults;  ///< names of those made by the session's scripts
};

/// A line of a script that can't be carried out. The text is shown with the line's number.
struct ScriptError : std::runtime_error {
  explicit ScriptError(const std::wstring& why) : std::runtime_error(toUtf8(why)) {}
};

/// A line that can't be carried out as things stand: a window isn't there, a drawing isn't open.
struct ImpossibleStep : ScriptError {
  using ScriptError::ScriptError;
};

/// What stands behind a directive's name: words parted by blanks, where "..." holds a word with
/// blanks together. %WORK% and %DRAWINGS% are filled in after that, so they may hold blanks. What
/// can't be read raises ScriptError.
class Arguments {
 public:
  /// @param usage what an error shows: the directive as it should be written
  Arguments(std::wstring text, std::wstring usage, const SessionOptions& options);

  /// The next word.
  std::wstring word();
  std::vector<std::wstring> words();
  /// The next word as a whole number.
  int number();
  /// A number that isn't below `least`.
  /// @param why what an error says of a smaller one
  unsigned number(int least, const wchar_t* why);
  /// "on" or "off".
  bool onOff();
  /// Takes the next word if it is `keyword`, in any case.
  bool take(std::wstring_view keyword);
  /// Everything that is left, up to the first of the keywords standing as a word of its own. The
  /// quotes around a single word fall away; blanks inside stay.
  std::wstring textUntil(const std::vector<std::wstring_view>& keywords = {});
  /// The same as the path of a file.
  std::wstring pathUntil(const std::vector<std::wstring_view>& keywords = {});
  /// Everything that is left as it stands, quotes and folder names and all, without the blanks
  /// around it.
  std::wstring restOfLine();
  bool atEnd() const { return next == all.size(); }
  /// Fails if something is left.
  void end() const;
  /// Raises ScriptError with `why` and the usage.
  [[noreturn]] void fail(const std::wstring& why) const;

 private:
  struct Word {
    size_t begin, end;  ///< in `line`, quotes included
    std::wstring text;
    bool quoteOpen;
  };

  void requireMore() const;
  std::wstring expanded(const Word& word) const;

  std::wstring line;
  std::wstring usage;
  const SessionOptions& options;
  std::vector<Word> all;
  size_t next = 0;
};

/// Everything that is left, as a parameter of a directive.
struct RestText : std::wstring {
  explicit RestText(Arguments& arguments) : std::wstring(arguments.textUntil()) {}
};

/// The same as a path.
struct RestPath : std::wstring {
  explicit RestPath(Arguments& arguments) : std::wstring(arguments.pathUntil()) {}
};

/// The rest of the line as it stands.
struct RestOfLine : std::wstring {
  explicit RestOfLine(Arguments& arguments) : std::wstring(arguments.restOfLine()) {}
};

/// The number of a control, or the name that the module's resource.h has for it.
struct ControlId {
  explicit ControlId(Arguments& arguments);
  int number = 0;
};

template <class Type>
constexpr bool isOptional = false;
template <class Value>
constexpr bool isOptional<std::optional<Value>> = true;

/// Reads a parameter of a directive by its type: what can be made of Arguments makes itself.
template <class Parameter>
Parameter readParameter(ScriptContext& context, Arguments& arguments) {
  if constexpr (std::is_same_v<Parameter, ScriptContext&>) {
    return context;
  } else if constexpr (std::is_same_v<Parameter, Arguments&>) {
    return arguments;
  } else if constexpr (std::is_same_v<Parameter, int>) {
    return arguments.number();
  } else if constexpr (std::is_same_v<Parameter, bool>) {
    return arguments.onOff();
  } else if constexpr (std::is_same_v<Parameter, std::wstring>) {
    return arguments.word();
  } else if constexpr (std::is_same_v<Parameter, std::vector<std::wstring>>) {
    return arguments.words();
  } else if constexpr (isOptional<Parameter>) {
    if (arguments.atEnd()) return std::nullopt;
    return readParameter<typename Parameter::value_type>(context, arguments);
  } else {
    return Parameter(arguments);
  }
}

/// What holds a parameter while the body runs.
template <class Parameter>
using ParameterValue = std::conditional_t<std::is_same_v<Parameter, ScriptContext&> ||
                                              std::is_same_v<Parameter, Arguments&>,
                                          Parameter, std::decay_t<Parameter>>;

using DirectiveBody = std::function<void(ScriptContext&, Arguments&)>;

template <class... Parameters>
DirectiveBody withParameters(std::function<void(Parameters...)> body) {
  return [body = std::move(body)](ScriptContext& context, Arguments& arguments) {
    // In braces they are read from the left to the right.
    const std::tuple<ParameterValue<Parameters>...> parameters{
        readParameter<ParameterValue<Parameters>>(context, arguments)...};
    if constexpr (!(std::is_same_v<Parameters, Arguments&> || ...)) arguments.end();
    std::apply(body, parameters);
  };
}

/// A directive, or the subcommand of one: how it is written, and what it does.
struct Directive {
  /// @param usage begins with "@" and the name; of a subcommand the name
  /// @param body a lambda; its parameters are read from the line, and nothing may be left of it.
  /// With a parameter Arguments& it reads the line itself.
  template <class Body>
  Directive(const wchar_t* usage, Body body, bool whileWaiting = false)
      : usage(usage),
        run(withParameters(std::function(std::move(body)))),
        whileWaiting(whileWaiting) {}

  std::wstring usage;
  DirectiveBody run;
  bool whileWaiting;  ///< whether it is possible while a command waits for input
};

/// A directive that is possible while a command waits for input.
template <class Body>
Directive atAnyTime(const wchar_t* usage, Body body) {
  return Directive(usage, std::move(body), true);
}

/// The body of a directive that has subcommands.
/// @param unknown what an error says of another word
DirectiveBody oneOf(std::vector<Directive> subcommands, std::wstring unknown);

/// Runs a line that begins with "@".
/// @param commandWaits whether a command waits for input
void runDirective(ScriptContext& context, const std::wstring& line, bool commandWaits);

// Adding a directive is adding a row to the table of its file in `directives`.
std::vector<Directive> documentDirectives();
std::vector<Directive> userDirectives();
std::vector<Directive> vaultDirectives();

/// %WORK% and %DRAWINGS% filled in. Raises ScriptError for one that the session hasn't got.
std::wstring expandFolders(std::wstring text, const SessionOptions& options);
std::wstring expandFolders(std::wstring text, const std::wstring& work,
                           const std::wstring& drawings);

/// A file named as Windows does or, under Wine, as the machine does ("/home/..."), as a complete
/// Windows path. Raises ScriptError if it can't be one.
std::wstring windowsPath(const std::wstring& file);

}  // namespace wb
