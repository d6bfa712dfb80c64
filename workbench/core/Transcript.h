#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace wb {

/// Something that happened. The transcript shows it as the line "kind: text"; who judges a run
/// looks at kind, cause and subject, so that another wording changes no verdict.
struct Event {
  enum Kind {
    attempt,  ///< shown as "try"
    box,
    client,
    command,
    dialog,
    doc,
    error,
    file,
    leak,
    menu,
    prompt,
    reg,
    send,
    window,
    xref
  };
  enum Cause {
    other,              ///< nothing that is judged
    noAnswer,           ///< a box or a dialog got no answer, or one that it can't take
    unusedAnswer,       ///< an answer that nothing asked for
    noInput,            ///< a command waits for input, and the script has none
    noSelection,        ///< what was to be picked isn't there
    impossibleStep,     ///< a line of the script can't be done as things stand
    failedStep,         ///< the line of the script in which an error was reported
    uncaught,           ///< an exception left `subject`, a command or an event
    xrefLoaded,         ///< `subject` is its name
    xrefUnloaded,       ///< `subject` is its name
    documentDestroyed,  ///< `subject` is its file or its title
    documentSaved,      ///< `subject` is its file
  };

  Kind kind;
  Cause cause = other;
  std::wstring subject;
  std::wstring text;
  long code = 0;  ///< the HRESULT of an uncaught COM error, else 0
};

/// Reports an event to the current session's transcript: its line is kept in the transcript and
/// echoed if asked for. Line ends in it are written as \n and \r.
void report(Event event);
/// Reports one that nobody judges.
void report(Event::Kind kind, std::wstring text);

/// Notes for a test what isn't worth a line, such as an argument that changes nothing here. Of no
/// effect unless the transcript keeps details.
void recordDetail(std::wstring_view kind, std::wstring_view detail);

/// Text in double quotes on one line: \n \r \t \e \" stand for what they name.
std::wstring quoted(std::wstring_view text);

/// What happened in a run, one line an event, in the order in which it happened.
class Transcript {
 public:
  /// A line or a note.
  struct Detail {
    std::wstring line;
    int apartments;  ///< how many levels of COM the module had open then
  };

  /// The current session's.
  /// @throws std::logic_error outside a session
  static Transcript& instance();

  const std::vector<std::wstring>& lines() const { return lines_; }
  /// The events behind the lines, in the same order.
  const std::vector<Event>& events() const { return events_; }
  const std::vector<Detail>& details() const { return details_; }
  /// How many `error` and `leak` lines were reported.
  size_t problems() const { return problems_; }

  /// Whether one of the events from number `first` on is as the function says.
  bool anySince(size_t first, const std::function<bool(const Event&)>& is) const;

  /// Forgets the lines, the mark and the aliases.
  void clear();

  /// Whether each line is also printed to stdout, as UTF-8, as it is reported.
  void echo(bool on) { isEchoed = on; }

  /// How many of the lines from number `first` on hold `text`.
  int count(std::wstring_view text, size_t first = 0) const;

  /// From here on holdsSinceMark looks.
  void mark() { marked = lines_.size(); }
  /// Whether a line reported since the mark holds `text`.
  bool holdsSinceMark(std::wstring_view text) const;

  /// From here on `folder` is written as `name` wherever it stands in a line, in any case and with
  /// slashes of either kind; of several the longest counts.
  void alias(std::wstring folder, std::wstring name);

  /// From here to clear() the notes are kept among the lines.
  void keepDetails(std::function<int()> counter) { apartments = std::move(counter); }

 private:
  friend void report(Event event);
  friend void recordDetail(std::wstring_view kind, std::wstring_view detail);
  std::wstring lineOf(std::wstring_view kind, std::wstring_view detail) const;

  std::vector<std::wstring> lines_;
  std::vector<Event> events_;
  std::vector<Detail> details_;
  std::vector<std::pair<std::wstring, std::wstring>> aliases;  ///< folders in capitals, and names
  std::function<int()> apartments;                             ///< empty unless details are kept
  size_t marked = 0;
  size_t problems_ = 0;
  bool isEchoed = false;
};

}  // namespace wb
