#include <algorithm>
#include <cwctype>
#include <iterator>

#include "core/Transcript.h"
#include "dialogs/Answers.h"
#include "editor/Selection.h"
#include "scripting/Directives.h"

namespace wb {
namespace {

bool isButton(const std::wstring& name) {
  static constexpr const wchar_t* names[] = {L"yes",   L"no",    L"ok",    L"cancel",
                                             L"close", L"abort", L"retry", L"ignore"};
  const auto known = [&](const wchar_t* button) { return name == button; };
  return std::any_of(std::begin(names), std::end(names), known) ||
         (!name.empty() && std::all_of(name.begin(), name.end(), std::iswdigit));
}

void answer(ScriptContext&, Arguments& arguments) {
  const std::wstring button = arguments.word();
  if (!isButton(button)) arguments.fail(wb::quoted(button) + L" is no button");
  std::vector<AnswerStep> steps;
  if (arguments.take(L"shot")) steps.push_back(takePicture(windowsPath(arguments.textUntil())));
  arguments.end();
  Answers::instance().queue(button, std::move(steps));
}

void answerAny(ScriptContext&, Arguments& arguments) {
  const int seed = arguments.number();
  arguments.end();
  // What an earlier part of the script prepared for nothing is no answer in this one.
  Answers::instance().clear();
  Selection::instance().clear();
  Answers::instance().answerAny(static_cast<unsigned>(seed));
}

void fill(ScriptContext&, Arguments& arguments) {
  const int id = arguments.number();
  Answers::instance().prepare(
      fillControl(id, arguments.atEnd() ? std::wstring() : arguments.textUntil()));
}

void check(ScriptContext&, Arguments& arguments) {
  const int id = arguments.number();
  Answers::instance().prepare(checkControl(id, arguments.onOff()));
  arguments.end();
}

int rowNumber(Arguments& arguments) {
  const int row = arguments.number();
  arguments.end();
  if (row < 1) arguments.fail(L"rows are counted from 1");
  return row;
}

void row(ScriptContext&, Arguments& arguments) {
  Answers::instance().prepare(selectRow(rowNumber(arguments), false));
}

void activateRow(ScriptContext&, Arguments& arguments) {
  Answers::instance().queue({}, {selectRow(rowNumber(arguments), true)});
}

void press(ScriptContext&, Arguments& arguments) {
  Answers::instance().prepare(clickControl(arguments.number()));
  arguments.end();
}

void shotNext(ScriptContext&, Arguments& arguments) {
  Answers::instance().prepare(takePicture(windowsPath(arguments.textUntil())));
}

void textsNext(ScriptContext&, Arguments& arguments) {
  arguments.end();
  Answers::instance().prepare(reportTexts());
}

}  // namespace

std::vector<Directive> answerDirectives() {
  return {
      {L"answer", L"@answer yes|no|ok|cancel|close|abort|retry|ignore|ID [shot FILE]", answer,
       true},
      {L"answer-any", L"@answer-any SEED", answerAny, true},
      {L"fill", L"@fill ID TEXT", fill, true},
      {L"check", L"@check ID on|off", check, true},
      {L"row", L"@row N", row, true},
      {L"activate-row", L"@activate-row N", activateRow, true},
      {L"press", L"@press ID", press, true},
      {L"shot-next", L"@shot-next FILE", shotNext, true},
      {L"texts-next", L"@texts-next", textsNext, true},
  };
}

}  // namespace wb
