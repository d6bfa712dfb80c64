#include "editor/InputQueue.h"

#include <algorithm>

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
    if (text[i] == L'(') {
      ++depth;
    }
    if (text[i] == L')' && --depth == 0) {
      return i + 1;
    }
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

bool InputQueue::next(Document* active, Number last, Document*& target) const {
  for (const Piece& piece : pieces) {
    if (piece.number > last) continue;
    if (piece.document && piece.document != active && !piece.activate) continue;
    target = piece.document ? piece.document : active;
    return true;
  }
  return false;
}

std::deque<InputQueue::Piece>::iterator InputQueue::firstFor(const Document* document) {
  return std::find_if(pieces.begin(), pieces.end(), [&](const Piece& piece) {
    return !piece.document || piece.document == document;
  });
}

InputQueue::Read InputQueue::readCommand(const Document* document, std::wstring& token) {
  for (auto piece = firstFor(document); piece != pieces.end(); piece = firstFor(document)) {
    auto start = std::find_if_not(piece->text.begin(), piece->text.end(), isEnd);
    piece->text.erase(piece->text.begin(), start);
    if (!piece->text.empty()) return readAnswer(document, token);
    pieces.erase(piece);
  }
  return Read::Nothing;
}

InputQueue::Read InputQueue::readAnswer(const Document* document, std::wstring& token) {
  auto piece = firstFor(document);
  if (piece == pieces.end()) return Read::Nothing;
  std::wstring& text = piece->text;
  const size_t length = tokenLength(text);
  const bool cancelled = length < text.size() && text[length] == escape;
  token = cancelled ? std::wstring() : text.substr(0, length);
  text.erase(0, length + (length < text.size() && (cancelled || isEnd(text[length])) ? 1 : 0));
  if (text.empty()) pieces.erase(piece);
  if (cancelled) dropTyped(document);
  return cancelled ? Read::Cancel : Read::Token;
}

void InputQueue::dropTyped(const Document* document) {
  pieces.erase(std::remove_if(pieces.begin(), pieces.end(),
                              [&](const Piece& piece) {
                                return piece.origin == Origin::Typed &&
                                       (!piece.document || piece.document == document);
                              }),
               pieces.end());
}

void InputQueue::dropAll(const Document* document) {
  pieces.erase(std::remove_if(pieces.begin(), pieces.end(),
                              [&](const Piece& piece) { return piece.document == document; }),
               pieces.end());
}

void InputQueue::dropFirst(const Document* document) {
  pieces.erase(std::remove_if(pieces.begin(), pieces.end(),
                              [&](const Piece& piece) {
                                return piece.number == 0 && piece.document == document;
                              }),
               pieces.end());
}

}  // namespace wb
