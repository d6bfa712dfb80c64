#pragma once

#include <windows.h>

#include <deque>
#include <functional>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "core/Transcript.h"

namespace wb {

/// One thing that the person at the screen does in an open dialog: done through its real controls,
/// with the notifications that typing and clicking cause.
/// @return what the transcript says of it, if anything
/// @throws DialogError if it can't be done
using AnswerStep = std::function<std::wstring(HWND dialog)>;

/// Types a text into an edit field, or picks it in a drop-down list.
AnswerStep fillControl(int id, std::wstring text);
/// Clicks a check box until it is on or off.
AnswerStep checkControl(int id, bool on);
/// Clicks a row of the dialog's list, counted from 1, or double-clicks it.
AnswerStep selectRow(int row, bool activate);
/// Clicks a button that leaves the dialog open.
AnswerStep clickControl(int id);
/// Saves a picture of the screen; `file` is a Windows path.
AnswerStep takePicture(std::wstring file);
/// Reports the texts of the controls as a `dialog` line.
AnswerStep reportTexts();

/// What the person at the screen does at one box or dialog: the steps in order, then the button.
struct Answer {
  std::vector<AnswerStep> steps;
  /// yes, no, ok, cancel, close (the caption's button), abort, retry, ignore, or a control's
  /// number; empty if the last step closes the dialog itself.
  std::wstring button;
};

/// Clicks the button that `name` means ("close" is the caption's).
/// @throws DialogError if there is none, or it is disabled
void pressButton(HWND dialog, const std::wstring& name);

/// Closes a dialog in the way that changes least.
void closeQuietly(HWND dialog);

/// An answer that the dialog can take: a button of its own, before that perhaps a row, texts in its
/// fields and ticks in its boxes.
/// @param stream where the choices are taken from
/// @param answeredBefore answers that this dialog got already; after a few it is closed
Answer randomAnswer(HWND dialog, std::mt19937& stream, unsigned answeredBefore);

/// Answers the boxes and the modal dialogs of this thread, in their order, by real clicks from
/// inside their own message loops. Modeless dialogs are left alone, and so are dialogs without a
/// button, an edit field or a list. What has no answer queued is reported as an `error`, closed in
/// the way that changes least, and counted as unanswered.
class Answers {
 public:
  Answers() = default;
  Answers(const Answers&) = delete;
  Answers& operator=(const Answers&) = delete;
  ~Answers() { stop(); }

  /// The current session's.
  static Answers& instance();

  /// Installs the hook on the calling thread. With leaveToPerson, what has no answer stays open.
  void start(bool leaveToPerson);
  void stop();

  /// A step of the answer that the next queue() completes.
  void prepare(AnswerStep step) { prepared.push_back(std::move(step)); }
  /// Queues an answer: the prepared steps, `steps`, then `button`.
  void queue(std::wstring button, std::vector<AnswerStep> steps = {});
  /// From here on, what has no answer queued gets one from a random stream: a button that it has
  /// and that can be pressed, before that perhaps a row of its list. Until clear().
  void answerAny(unsigned seed) { random.emplace(seed); }
  bool answersAny() const { return random.has_value(); }
  /// The answers and prepared steps that nothing asked for, in words; empty if there are none.
  std::vector<std::wstring> unused() const;
  /// Drops queued answers, prepared steps and the random stream.
  void clear();
  /// How many boxes and dialogs had no answer since start().
  unsigned unanswered() const { return unanswered_; }

  /// From here on a dialog gets no answer: it is modeless, or closed.
  void leaveAlone(HWND dialog);

 private:
  friend int watchedMessageBox(HWND owner, const wchar_t* text, const wchar_t* title, UINT flags);

  /// A dialog on the screen that may want an answer.
  struct OpenDialog {
    HWND window = nullptr;
    std::wstring box = {};  ///< what its box line says, if it came through watchedMessageBox()
    bool hasNoControls = false;
    bool busy = false;     ///< a step or a click in it hasn't returned yet
    bool covered = false;  ///< another one was open on top of it
    unsigned looks = 0;
    unsigned closings = 0;
    unsigned answered = 0;
  };

  static LRESULT CALLBACK hookProcedure(int code, WPARAM wParam, LPARAM lParam);
  static LRESULT CALLBACK listenerProcedure(HWND, UINT, WPARAM, LPARAM);
  static Event describe(const OpenDialog& dialog);
  OpenDialog* find(HWND window);
  void created(HWND window);
  void inspect(HWND window);
  void look();
  void answer(OpenDialog& dialog);
  void perform(HWND window, const Answer& answer);
  void refuse(HWND window, const std::wstring& why);

  HHOOK hook = nullptr;
  HWND listener = nullptr;
  bool leaveToPerson = false;
  unsigned unanswered_ = 0;
  std::vector<AnswerStep> prepared;
  std::deque<Answer> queued;
  std::optional<std::mt19937> random;
  std::vector<OpenDialog> dialogs;  ///< the topmost last
  std::wstring openingBox;          ///< description of a box whose window isn't made yet
};

/// MessageBoxW with the same arguments and result, reported as one `box` line after the answer. It
/// takes the place of the module's MessageBoxW, and shows the host's own boxes.
int watchedMessageBox(HWND owner, const wchar_t* text, const wchar_t* title, UINT flags);

}  // namespace wb
