#pragma once

#include <windows.h>

#include <memory>
#include <string>
#include <variant>
#include <vector>

namespace wb {

struct FillControl {
  int id;
  std::wstring text;
};  ///< types a text into an edit field
struct CheckControl {
  int id;
  bool on;
};  ///< clicks a check box until it is so
struct SelectRow {
  int row;
  bool activate;
};  ///< 1-based; activate: double-click
struct ClickControl {
  int id;
};  ///< clicks a button that leaves it open
struct TakePicture {
  std::wstring file;
};  ///< Windows path
/// Tells the texts of its controls as a `dialog` line.
struct TellTexts {};
using AnswerStep =
    std::variant<FillControl, CheckControl, SelectRow, ClickControl, TakePicture, TellTexts>;

/// What the person at the screen does at one box or dialog: the steps in order, then the button.
struct Answer {
  std::vector<AnswerStep> steps;
  /// yes, no, ok, cancel, close (the caption's button), abort, retry, ignore, or a control's
  /// number; empty if the last step closes the dialog itself.
  std::wstring button;
};

/// Answers the boxes and the modal dialogs of this thread, in the order they come, by real clicks
/// from inside their own message loops. Modeless dialogs are left alone, and so are dialogs without
/// a button, an edit field or a list. What has no answer queued is told as an `error`, closed in
/// the way that changes least, and counted as unanswered.
class Answers {
 public:
  Answers();
  /// stop()
  ~Answers();

  /// The current session's.
  static Answers& instance();

  /// Installs the hook on the calling thread. With leaveToPerson, what has no answer stays open.
  void start(bool leaveToPerson);
  void stop();

  /// A step of the answer that the next queue() completes.
  void prepare(AnswerStep step);
  /// Queues an answer: the prepared steps, `steps`, then `button`.
  void queue(std::wstring button, std::vector<AnswerStep> steps = {});
  /// From here on, what has no answer queued gets one from a random stream: a button that it has
  /// and that can be pressed, before that perhaps a row of its list. Until clear().
  void answerAny(unsigned seed);
  bool answersAny() const;
  /// The answers and prepared steps that nothing asked for, in words; empty if there are none.
  std::vector<std::wstring> unused() const;
  /// Drops queued answers, prepared steps and the random stream.
  void clear();
  /// How many boxes and dialogs had no answer since start().
  unsigned unanswered() const;

  /// A dialog made by CreateDialog..., which must get no answer.
  void noteModeless(HWND dialog);

  /// Told by watchedMessageBox() around its call, so that an unanswered box can be described.
  void boxOpens(std::wstring description);
  void boxClosed();

 private:
  struct State;
  std::unique_ptr<State> state;
};

/// MessageBoxW with the same arguments and result, told as one `box` line after the answer. What
/// the import watch puts in place of the module's MessageBoxW, and what the host's own boxes call.
int watchedMessageBox(HWND owner, const wchar_t* text, const wchar_t* title, UINT flags);

}  // namespace wb
