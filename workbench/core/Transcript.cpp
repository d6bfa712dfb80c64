#include "core/Transcript.h"

#include <windows.h>

#include <algorithm>
#include <cstdio>

#include "core/SessionState.h"
#include "core/Text.h"

namespace wb {

namespace {

struct Alias {
  std::wstring folder;
  std::wstring name;
};

wchar_t folded(wchar_t character) {
  if (character == L'/') return L'\\';
  const auto upper = CharUpperW(reinterpret_cast<LPWSTR>(static_cast<ULONG_PTR>(character)));
  return static_cast<wchar_t>(reinterpret_cast<ULONG_PTR>(upper));
}

std::wstring foldedText(std::wstring_view text) {
  std::wstring result(text);
  std::transform(result.begin(), result.end(), result.begin(), folded);
  return result;
}

/// Whether a folder's name goes on at `at`, so that what stands before it is another folder.
bool nameGoesOn(std::wstring_view text, size_t at) {
  return at < text.size() &&
         (IsCharAlphaNumericW(text[at]) || text[at] == L'_' || text[at] == L'-');
}

void replaceFolder(std::wstring& text, const Alias& alias) {
  std::wstring search = foldedText(text);
  for (size_t at = 0; (at = search.find(alias.folder, at)) != std::wstring::npos;) {
    if (nameGoesOn(search, at + alias.folder.size())) {
      at += alias.folder.size();
      continue;
    }
    text.replace(at, alias.folder.size(), alias.name);
    search.replace(at, alias.folder.size(), alias.name);
    at += alias.name.size();
  }
}

void escapeLineEnds(std::wstring& text) {
  for (size_t at = 0; (at = text.find_first_of(L"\r\n", at)) != std::wstring::npos; at += 2) {
    text.replace(at, 1, text[at] == L'\n' ? L"\\n" : L"\\r");
  }
}

const wchar_t* nameOf(Event::Kind kind) {
  switch (kind) {
    case Event::attempt:
      return L"try";
    case Event::box:
      return L"box";
    case Event::client:
      return L"client";
    case Event::command:
      return L"command";
    case Event::dialog:
      return L"dialog";
    case Event::doc:
      return L"doc";
    case Event::error:
      return L"error";
    case Event::file:
      return L"file";
    case Event::leak:
      return L"leak";
    case Event::menu:
      return L"menu";
    case Event::prompt:
      return L"prompt";
    case Event::reg:
      return L"reg";
    case Event::send:
      return L"send";
    case Event::window:
      return L"window";
    case Event::xref:
      return L"xref";
  }
  return L"";
}

}  // namespace

struct Transcript::State {
  std::vector<std::wstring> lines;
  std::vector<Event> events;
  std::vector<Alias> aliases;
  size_t mark = 0;
  bool echo = false;
  size_t problems = 0;
  std::function<int()> apartments;  ///< empty unless details are kept
  std::vector<Detail> details;

  std::wstring lineOf(std::wstring_view kind, std::wstring_view detail) const {
    std::wstring line = std::wstring(kind) + L": " + std::wstring(detail);
    escapeLineEnds(line);
    for (const Alias& alias : aliases) replaceFolder(line, alias);
    return line;
  }
};

Transcript::Transcript() : state(std::make_unique<State>()) {}
Transcript::~Transcript() = default;

Transcript& Transcript::instance() { return SessionState::get().transcript; }

const std::vector<std::wstring>& Transcript::lines() const { return state->lines; }

const std::vector<Event>& Transcript::events() const { return state->events; }

bool Transcript::anySince(size_t first, const std::function<bool(const Event&)>& is) const {
  const auto& events = state->events;
  const auto begin = events.begin() + static_cast<std::ptrdiff_t>(std::min(first, events.size()));
  return std::any_of(begin, events.end(), is);
}

void Transcript::clear() {
  const bool echo = state->echo;
  *state = State();
  state->echo = echo;
}

void Transcript::echo(bool on) { state->echo = on; }

void Transcript::mark() { state->mark = state->lines.size(); }

bool Transcript::holdsSinceMark(std::wstring_view text) const {
  return std::any_of(
      state->lines.begin() + static_cast<std::ptrdiff_t>(state->mark), state->lines.end(),
      [&](const std::wstring& line) { return line.find(text) != std::wstring::npos; });
}

void Transcript::alias(std::wstring folder, std::wstring name) {
  while (!folder.empty() && (folder.back() == L'\\' || folder.back() == L'/')) folder.pop_back();
  if (folder.empty()) return;
  state->aliases.push_back({foldedText(folder), std::move(name)});
  std::stable_sort(state->aliases.begin(), state->aliases.end(),
                   [](const Alias& left, const Alias& right) {
                     return left.folder.size() > right.folder.size();
                   });
}

void Transcript::keepDetails(std::function<int()> apartments) {
  state->apartments = std::move(apartments);
}

const std::vector<Transcript::Detail>& Transcript::details() const { return state->details; }

size_t Transcript::problems() const { return state->problems; }

void tell(Event event) {
  if (!SessionState::current()) {
    std::fprintf(stderr, "outside a session: %s\n", toUtf8(event.text).c_str());
    return;
  }
  Transcript::State& state = *Transcript::instance().state;
  std::wstring line = state.lineOf(nameOf(event.kind), event.text);
  if (event.kind == Event::error || event.kind == Event::leak) ++state.problems;
  if (state.echo) {
    std::fputs((toUtf8(line) + "\n").c_str(), stdout);
    std::fflush(stdout);
  }
  if (state.apartments) state.details.push_back({line, state.apartments()});
  state.lines.push_back(std::move(line));
  state.events.push_back(std::move(event));
}

void tell(Event::Kind kind, std::wstring text) { tell({kind, Event::other, {}, std::move(text)}); }

void note(std::wstring_view kind, std::wstring_view detail) {
  if (!SessionState::current()) return;
  Transcript::State& state = *Transcript::instance().state;
  if (state.apartments) state.details.push_back({state.lineOf(kind, detail), state.apartments()});
}

std::wstring quoted(std::wstring_view text) {
  std::wstring result = L"\"";
  for (const wchar_t character : text) {
    switch (character) {
      case L'\n':
        result += L"\\n";
        break;
      case L'\r':
        result += L"\\r";
        break;
      case L'\t':
        result += L"\\t";
        break;
      case L'\x1B':
        result += L"\\e";
        break;
      case L'"':
        result += L"\\\"";
        break;
      default:
        result += character;
    }
  }
  return result + L"\"";
}

}  // namespace wb
