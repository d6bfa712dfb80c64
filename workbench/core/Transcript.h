#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace wb {

/// Tells one event: the line "kind: detail", kept in the transcript and echoed if asked for. Line
/// ends in it are written as \n and \r.
void tell(std::wstring_view kind, std::wstring_view detail);

/// Notes for a test what isn't worth a line, such as an argument that changes nothing here. Of no
/// effect unless the transcript keeps details.
void note(std::wstring_view kind, std::wstring_view detail);

/// Text in double quotes on one line: \n \r \t \e \" stand for what they name.
std::wstring quoted(std::wstring_view text);

/// What happened in a run, one line an event, in the order in which it happened.
class Transcript {
 public:
  static Transcript& instance();

  const std::vector<std::wstring>& lines() const;

  /// Forgets the lines, the mark and the aliases.
  void clear();

  /// Whether each line also goes to stdout, as UTF-8, as it is told.
  void echo(bool on);

  /// From here on holdsSinceMark looks.
  void mark();
  /// Whether a line told since the mark holds `text`.
  bool holdsSinceMark(std::wstring_view text) const;

  /// From here on `folder` is written as `name` wherever it stands in a line, in any case and with
  /// slashes of either kind; of several the longest counts.
  void alias(std::wstring folder, std::wstring name);

  /// A line or a note.
  struct Detail {
    std::wstring line;
    int apartments;  ///< how many levels of COM the module had open then
  };
  /// From here to clear() the notes are kept among the lines.
  void keepDetails(std::function<int()> apartments);
  const std::vector<Detail>& details() const;

  /// How many `error` and `leak` lines were told.
  size_t problems() const;

 private:
  friend void tell(std::wstring_view kind, std::wstring_view detail);
  friend void note(std::wstring_view kind, std::wstring_view detail);
  Transcript();
  ~Transcript();
  struct State;
  std::unique_ptr<State> state;
};

}  // namespace wb
