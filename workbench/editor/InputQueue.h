#pragma once

#include <deque>
#include <string>
#include <string_view>

namespace wb {

class Document;

/// The text that waits to be read at the command line, in the order it came. Applications' text
/// and what the user types stand in the same line; each piece belongs to a document, or to
/// whichever is active.
class InputQueue {
 public:
  enum class Origin { Typed, Sent };
  enum class Read { Token, Cancel, Nothing };
  using Number = unsigned long long;

  /// `activate`: the piece brings its document to the top when its turn comes; without it, it
  /// waits until the document is there.
  void add(Document* document, std::wstring_view text, bool activate, Origin origin);
  /// Puts text before all other input of the document.
  void addFirst(Document* document, std::wstring_view text);

  /// The first piece that can run while `active` is on top, and that isn't newer than `last`.
  /// False if there is none. `target` gets its document, `active` for a piece of no document.
  bool next(Document* active, Number last, Document*& target) const;
  Number lastNumber() const { return counter; }

  /// Reads a command's name: blanks and line ends before it don't count.
  Read readCommand(const Document* document, std::wstring& token);
  /// Reads one answer to a prompt; a blank or line end alone is an empty answer.
  Read readAnswer(const Document* document, std::wstring& token);

  void dropTyped(const Document* document);
  void dropAll(const Document* document);
  /// Drops the answers that a command left unread; see addFirst.
  void dropFirst(const Document* document);
  void clear() { pieces.clear(); }

 private:
  struct Piece {
    Document* document;
    std::wstring text;
    bool activate;
    Origin origin;
    Number number;
  };
  std::deque<Piece>::iterator firstFor(const Document* document);

  std::deque<Piece> pieces;
  Number counter = 0;
};

}  // namespace wb
