#pragma once

#include <windows.h>

#include <deque>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "core/Accounts.h"
#include "notserved/Classes.h"

namespace wb {

class Document;

/// The text that waits to be read at the command line, in order. Applications' text and what
/// the user types are in the same queue; each piece belongs to a document, or to
/// whichever is active.
class InputQueue {
 public:
  enum class Origin { Typed, Sent };
  using Number = unsigned long long;

  /// `activate`: the piece activates its document when it is next; without it, it waits
  /// until the document is active.
  void add(Document* document, std::wstring_view text, bool activate, Origin origin);
  /// Puts text before all other input of the document.
  void addFirst(Document* document, std::wstring_view text);

  /// The document of the first piece that can run while `active` is on top and that isn't newer
  /// than `last`; `active` for a piece of no document. Nothing if there is no such piece.
  std::optional<Document*> next(Document* active, Number last) const;
  Number lastNumber() const { return counter; }

  /// Reads a command's name: blanks and line ends before it don't count. Nothing if there is none
  /// or the user cancels.
  std::optional<std::wstring> readCommand(const Document* document);
  bool hasAnswer(const Document* document) { return firstFor(document) != pieces.end(); }
  /// Reads one answer to a prompt, which must be there; a blank or line end alone is an empty one.
  /// Nothing if the user cancels.
  std::optional<std::wstring> readAnswer(const Document* document);

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

struct Command {
  std::wstring group, global, local;
  int flags = 0;
  std::function<void()> work;
  const void* address = nullptr;  ///< the application's function, null for the editor's own
  Ticket ticket = 0;

  bool runsInApplicationContext() const { return (flags & ACRX_CMD_SESSION) != 0; }
};

/// The commands by name. A name, global or local, can be used once.
class CommandStack : public NotServedAcEdCommandStack {
 public:
  Acad::ErrorStatus addCommand(const ACHAR* cmdGroupName, const ACHAR* cmdGlobalName,
                               const ACHAR* cmdLocalName, Adesk::Int32 commandFlags,
                               AcRxFunctionPtr functionAddr, AcEdUIContext* uiContext, int fcode,
                               HINSTANCE hResourceHandle, AcEdCommand** cmdPtrRet) override;
  Acad::ErrorStatus removeGroup(const ACHAR* groupName) override;

  Acad::ErrorStatus add(Command command);
  /// Adds the editor's own commands: CLOSE, NEW, OPEN, QSAVE, QUIT, SAVEAS.
  void addBuiltIn();
  /// Finds by what was typed: "_NAME" is the global name, "NAME" the local one. Null if unknown.
  const Command* find(std::wstring_view typed) const;
  const std::vector<Command>& all() const { return commands; }
  /// Forgets what an application left behind, before its code is unloaded.
  void forgetModule(HMODULE module);

 private:
  std::vector<Command> commands;
};

/// Reads the input queue and runs commands, each in its own context: a session command in the
/// application's, any other in its document's and under a write lock.
class CommandRunner {
 public:
  /// Runs the input that is queued by now, and what is deferred behind it.
  void runQueued();
  /// Runs the next piece of input that can run, not newer than `last`. False if there was none.
  bool runNext(InputQueue::Number last);
  static bool hasRunnable();

  /// Runs a command inside another one of the document, with its answers. False if the command
  /// isn't known or can't run in a document's context.
  bool runInside(Document* document, const std::wstring& name,
                 const std::vector<std::wstring>& answers);
  /// Runs work of the editor as a document's command.
  void run(const Command& command, Document* document);
  bool commandRuns() const { return depth > 0; }

  /// Writes on the command line, on the transcript as `prompt`.
  static void print(std::wstring_view text);
  /// One answer for the command that runs now, nothing if the user cancels; asks the host's
  /// needInput when none is queued.
  static std::optional<std::wstring> requestInput();

  /// Reports, once, what was acquired since `since` and isn't released.
  /// @param keptAsWell also what may outlive a command
  void reportLeaks(Ticket since, bool keptAsWell);

 private:
  void runTyped(const std::wstring& token, Document* document);
  static void runInDocument(const Command& command, Document* document);

  int depth = 0;
  std::set<Ticket> reported;
};

}  // namespace wb
