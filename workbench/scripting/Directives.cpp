#include "scripting/Directives.h"

#include <windows.h>

#include <algorithm>
#include <cwchar>
#include <cwctype>
#include <iterator>

#include "core/Text.h"
#include "core/Transcript.h"
#include "scripting/Session.h"

namespace wb {
namespace {

void replaceAll(std::wstring& text, std::wstring_view name, const std::wstring& folder) {
  for (size_t at = text.find(name); at != std::wstring::npos;
       at = text.find(name, at + folder.size())) {
    if (folder.empty()) throw ScriptError(std::wstring(name) + L" isn't set in this session");
    text.replace(at, name.size(), folder);
  }
}

}  // namespace

std::wstring expandFolders(std::wstring text, const SessionOptions& options) {
  replaceAll(text, L"%WORK%", options.workFolder);
  replaceAll(text, L"%DRAWINGS%", options.drawings);
  return text;
}

std::wstring windowsPath(const std::wstring& file) {
  std::wstring path = file;
  if (!file.empty() && file[0] == L'/') {
    // Wine's kernel32 alone has this one; it gives null for a path that no drive leads to.
    using DosName = wchar_t*(CDECL*)(const char*);
    const HMODULE kernel = GetModuleHandleW(L"kernel32.dll");
    const auto dosName = reinterpret_cast<DosName>(
        reinterpret_cast<void*>(GetProcAddress(kernel, "wine_get_dos_file_name")));
    if (!dosName) throw ScriptError(L"no path of this system: " + wb::quoted(file));
    char narrow[MAX_PATH * 4];
    if (!WideCharToMultiByte(CP_UTF8, 0, file.c_str(), -1, narrow, sizeof(narrow), nullptr,
                             nullptr)) {
      throw ScriptError(L"too long a path: " + wb::quoted(file));
    }
    wchar_t* const found = dosName(narrow);
    if (!found) throw ScriptError(L"no drive leads to " + wb::quoted(file));
    path = found;
    HeapFree(GetProcessHeap(), 0, found);
  }
  wchar_t complete[32768];
  const DWORD length =
      GetFullPathNameW(path.c_str(), static_cast<DWORD>(std::size(complete)), complete, nullptr);
  if (length == 0 || length >= std::size(complete)) {
    throw ScriptError(L"not a path: " + wb::quoted(file));
  }
  return std::wstring(complete, length);
}

Arguments::Arguments(std::wstring text, std::wstring usage, const SessionOptions& options)
    : line(std::move(text)), usage(std::move(usage)), options(options) {
  for (size_t at = 0; at < line.size();) {
    if (std::iswspace(line[at])) {
      ++at;
      continue;
    }
    Word word{at, at, {}, false};
    for (; at < line.size() && (word.quoteOpen || !std::iswspace(line[at])); ++at) {
      if (line[at] == L'"') {
        word.quoteOpen = !word.quoteOpen;
      } else {
        word.text += line[at];
      }
    }
    word.end = at;
    words.push_back(std::move(word));
  }
}

const std::wstring& Arguments::textOf(const Word& word) const {
  if (word.quoteOpen) fail(L"a quote isn't closed");
  return word.text;
}

std::wstring Arguments::word() {
  if (atEnd()) fail(L"something is missing");
  return expandFolders(textOf(words[next++]), options);
}

int Arguments::number() {
  const std::wstring text = word();
  wchar_t* end = nullptr;
  const long value = std::wcstol(text.c_str(), &end, 10);
  if (text.empty() || *end) fail(wb::quoted(text) + L" isn't a number");
  return static_cast<int>(value);
}

bool Arguments::take(std::wstring_view keyword) {
  if (atEnd() || !sameName(words[next].text, keyword)) return false;
  ++next;
  return true;
}

std::wstring Arguments::textUntil(const std::vector<std::wstring_view>& keywords) {
  const size_t first = next;
  const auto isKeyword = [&](const Word& word) {
    return std::any_of(keywords.begin(), keywords.end(), [&](std::wstring_view keyword) {
      return sameName(line.substr(word.begin, word.end - word.begin), keyword);
    });
  };
  while (next < words.size() && !isKeyword(words[next])) ++next;
  if (next == first) fail(L"something is missing");
  if (next == first + 1) return expandFolders(textOf(words[first]), options);
  const size_t begin = words[first].begin;
  return expandFolders(line.substr(begin, words[next - 1].end - begin), options);
}

std::wstring Arguments::restOfLine() {
  if (atEnd()) fail(L"something is missing");
  const size_t begin = words[next].begin;
  next = words.size();
  return line.substr(begin, words.back().end - begin);
}

bool Arguments::onOff() {
  const std::wstring text = word();
  if (sameName(text, L"on")) return true;
  if (!sameName(text, L"off")) fail(wb::quoted(text) + L" is neither on nor off");
  return false;
}

void Arguments::end() const {
  if (!atEnd()) fail(wb::quoted(words[next].text) + L" is one word too many");
}

void Arguments::fail(const std::wstring& why) const {
  throw ScriptError(why + L"; usage: " + usage);
}

const std::vector<Directive>& directives() {
  static const std::vector<Directive> all = [] {
    std::vector<Directive> table;
    for (auto* part : {documentDirectives, answerDirectives, clientDirectives, vaultDirectives,
                       checkDirectives, windowDirectives, drawingDirectives, selectionDirectives}) {
      for (const Directive& directive : part()) table.push_back(directive);
    }
    return table;
  }();
  return all;
}

}  // namespace wb
