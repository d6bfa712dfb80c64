#include "core/Transcript.h"

#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <iterator>

#include "core/SessionState.h"
#include "core/Text.h"

namespace wb {
namespace {

constexpr const wchar_t* kindNames[] = {L"try",    L"box",   L"client", L"command", L"dialog",
                                        L"doc",    L"error", L"file",   L"leak",    L"menu",
                                        L"prompt", L"reg",   L"send",   L"window",  L"xref"};
static_assert(std::size(kindNames) == Event::xref + 1);

/// In capitals, with backslashes.
std::wstring folded(std::wstring text) {
  std::replace(text.begin(), text.end(), L'/', L'\\');
  CharUpperBuffW(text.data(), static_cast<DWORD>(text.size()));
  return text;
}

/// Whether a folder's name goes on at `at`, so that what stands before it is another folder.
bool nameGoesOn(std::wstring_view text, size_t at) {
  return at < text.size() &&
         (IsCharAlphaNumericW(text[at]) || text[at] == L'_' || text[at] == L'-');
}

void replaceFolder(std::wstring& text, const std::wstring& folder, const std::wstring& name) {
  std::wstring search = folded(text);
  for (size_t at = 0; (at = search.find(folder, at)) != std::wstring::npos;) {
    const size_t end = at + folder.size();
    if (nameGoesOn(search, end)) {
      at = end;
      continue;
    }
    text.replace(at, folder.size(), name);
    search.replace(at, folder.size(), name);
    at += name.size();
  }
}

template <class List>
auto from(size_t first, const List& list) {
  return list.begin() + static_cast<std::ptrdiff_t>(std::min(first, list.size()));
}

void escapeLineEnds(std::wstring& text) {
  for (size_t at = 0; (at = text.find_first_of(L"\r\n", at)) != std::wstring::npos; at += 2) {
    text.replace(at, 1, text[at] == L'\n' ? L"\\n" : L"\\r");
  }
}

}  // namespace

std::wstring Transcript::lineOf(std::wstring_view kind, std::wstring_view detail) const {
  std::wstring line = std::wstring(kind) + L": " + std::wstring(detail);
  escapeLineEnds(line);
  for (const auto& [folder, name] : aliases) replaceFolder(line, folder, name);
  return line;
}

Transcript& Transcript::instance() { return SessionState::get().transcript; }

bool Transcript::anySince(size_t first, const std::function<bool(const Event&)>& is) const {
  return std::any_of(from(first, events_), events_.end(), is);
}

void Transcript::clear() {
  const bool wasEchoed = isEchoed;
  *this = Transcript();
  isEchoed = wasEchoed;
}

int Transcript::count(std::wstring_view text, size_t first) const {
  return static_cast<int>(std::count_if(
      from(first, lines_), lines_.end(),
      [&](const std::wstring& line) { return line.find(text) != std::wstring::npos; }));
}

bool Transcript::holdsSinceMark(std::wstring_view text) const { return count(text, marked) > 0; }

void Transcript::alias(std::wstring folder, std::wstring name) {
  folder = folded(std::move(folder));
  while (!folder.empty() && folder.back() == L'\\') folder.pop_back();
  if (folder.empty()) return;
  const auto shorter = std::find_if(aliases.begin(), aliases.end(), [&](const auto& other) {
    return other.first.size() < folder.size();
  });
  aliases.emplace(shorter, std::move(folder), std::move(name));
}

void report(Event event) {
  if (!SessionState::current()) {
    std::fprintf(stderr, "outside a session: %s\n", toUtf8(event.text).c_str());
    return;
  }
  Transcript& transcript = Transcript::instance();
  std::wstring line = transcript.lineOf(kindNames[event.kind], event.text);
  if (event.kind == Event::error || event.kind == Event::leak) ++transcript.problems_;
  if (transcript.isEchoed) {
    std::fputs((toUtf8(line) + "\n").c_str(), stdout);
    std::fflush(stdout);
  }
  if (transcript.apartments) transcript.details_.push_back({line, transcript.apartments()});
  transcript.lines_.push_back(std::move(line));
  transcript.events_.push_back(std::move(event));
}

void report(Event::Kind kind, std::wstring text) {
  report({kind, Event::other, {}, std::move(text)});
}

void recordDetail(std::wstring_view kind, std::wstring_view detail) {
  if (!SessionState::current()) return;
  Transcript& transcript = Transcript::instance();
  if (!transcript.apartments) return;
  transcript.details_.push_back({transcript.lineOf(kind, detail), transcript.apartments()});
}

std::wstring quoted(std::wstring_view text) {
  constexpr std::wstring_view special = L"\n\r\t\x1B\"";
  constexpr std::wstring_view names = L"nrte\"";
  std::wstring result = L"\"";
  for (const wchar_t character : text) {
    const size_t at = special.find(character);
    if (at != std::wstring_view::npos) result += L'\\';
    result += at != std::wstring_view::npos ? names[at] : character;
  }
  return result + L"\"";
}

}  // namespace wb
