#include <algorithm>

#include "core/Lists.h"
#include "editor/Commands.h"

namespace wb {
namespace {

constexpr wchar_t escape = 0x1B;

bool isEnd(wchar_t c) { return c == L' ' || c == L'\n' || c == L'\r' || c == L'\t'; }

// Where the token at the start of `text` ends. A LISP expression ends with its last bracket, since
// blanks belong to it.
size_t tokenLength(std::wstring_view text) {
  if (text.front() != L'(') {
    return static_cast<size_t>(
        std::find_if(text.begin(), text.end(), [](wchar_t c) { return isEnd(c) || c == escape; }) -
        text.begin());
  }
  int depth = 0;
  bool inString = false;
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] == L'"') inString = !inString;
    if (inString) continue;
    if (text[i] == L'(') ++depth;
    if (text[i] == L')' && --depth == 0) return i + 1;
  }
  return text.size();
}

}  // namespace

void InputQueue::add(Document* document, std::wstring_view text, bool activate, Origin origin) {
  if (!text.empty()) pieces.push_back({document, std::wstring(text), activate, origin, ++counter});
}

void InputQueue::addFirst(Document* document, std::wstring_view text) {
  if (!text.empty()) pieces.push_front({document, std::wstring(text), false, Origin::Sent, 0});
}

std::optional<Document*> InputQueue::next(Document* active, Number last) const {
  for (const Piece& piece : pieces) {
    if (piece.number > last) continue;
    if (!piece.document || piece.document == active) return active;
    if (piece.activate) return piece.document;
  }
  return std::nullopt;
}

std::deque<InputQueue::Piece>::iterator InputQueue::firstFor(const Document* document) {
  return std::find_if(pieces.begin(), pieces.end(), [&](const Piece& piece) {
    return !piece.document || piece.document == document;
  });
}

std::optional<std::wstring> InputQueue::readCommand(const Document* document) {
  for (auto piece = firstFor(document); piece != pieces.end(); piece = firstFor(document)) {
    auto start = std::find_if_not(piece->text.begin(), piece->text.end(), isEnd);
    piece->text.erase(piece->text.begin(), start);
    if (!piece->text.empty()) return readAnswer(document);
    pieces.erase(piece);
  }
  return std::nullopt;
}

std::optional<std::wstring> InputQueue::readAnswer(const Document* document) {
  const auto piece = firstFor(document);
  std::wstring& text = piece->text;
  const size_t length = tokenLength(text);
  std::wstring token = text.substr(0, length);
  const wchar_t behind = length < text.size() ? text[length] : L'\0';
  const bool cancelled = behind == escape;
  text.erase(0, length + (cancelled || isEnd(behind) ? 1 : 0));
  if (text.empty()) pieces.erase(piece);
  if (!cancelled) return token;
  // Escape takes back what was typed ahead.
  eraseIf(pieces, [&](const Piece& one) {
    return one.origin == Origin::Typed && (!one.document || one.document == document);
  });
  return std::nullopt;
}

void InputQueue::dropAll(const Document* document) {
  eraseIf(pieces, [&](const Piece& one) { return one.document == document; });
}

void InputQueue::dropFirst(const Document* document) {
  eraseIf(pieces, [&](const Piece& one) { return one.number == 0 && one.document == document; });
}

}  // namespace wb
