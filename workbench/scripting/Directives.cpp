#include "scripting/Directives.h"

#include <windows.h>

#include <algorithm>
#include <cwchar>
#include <cwctype>
#include <iterator>

#include "core/Text.h"
#include "core/Transcript.h"
#include "scripting/Session.h"
#include "store/Store.h"
#include "ui/resource.h"

namespace wb {
namespace {

void replaceAll(std::wstring& text, std::wstring_view name, const std::wstring& folder) {
  for (size_t at = text.find(name); at != std::wstring::npos;
       at = text.find(name, at + folder.size())) {
    if (folder.empty()) throw ScriptError(std::wstring(name) + L" isn't set in this session");
    text.replace(at, name.size(), folder);
  }
}

/// A step that may not be possible just now, such as closing what isn't open.
void tryDirective(ScriptContext& context, const std::wstring& line, bool commandWaits) {
  if (line.empty() || line[0] != L'@') throw ScriptError(L"@try needs a directive");
  try {
    runDirective(context, line, commandWaits);
  } catch (const ScriptError& error) {
    report(Event::attempt, fromUtf8(error.what()));
  } catch (const StoreError& error) {
    report(Event::attempt, fromUtf8(error.what()));
  }
}

std::vector<Directive> allDirectives() {
  std::vector<Directive> all;
  for (auto* part : {documentDirectives, userDirectives, vaultDirectives}) {
    for (Directive& directive : part()) all.push_back(std::move(directive));
  }
  return all;
}

}  // namespace

std::wstring expandFolders(std::wstring text, const std::wstring& work,
                           const std::wstring& drawings) {
  replaceAll(text, L"%WORK%", work);
  replaceAll(text, L"%DRAWINGS%", drawings);
  return text;
}

std::wstring expandFolders(std::wstring text, const SessionOptions& options) {
  return expandFolders(std::move(text), options.workFolder, options.drawings);
}

std::wstring windowsPath(const std::wstring& file) {
  // Wine shows the machine's own files as the drive Z.
  const std::wstring path = file.rfind(L'/', 0) == 0 ? L"Z:" + file : file;
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
    all.push_back(std::move(word));
  }
}

std::wstring Arguments::expanded(const Word& word) const {
  if (word.quoteOpen) fail(L"a quote isn't closed");
  return expandFolders(word.text, options);
}

void Arguments::requireMore() const {
  if (atEnd()) fail(L"something is missing");
}

std::wstring Arguments::word() {
  requireMore();
  return expanded(all[next++]);
}

std::vector<std::wstring> Arguments::words() {
  std::vector<std::wstring> rest;
  while (!atEnd()) rest.push_back(word());
  return rest;
}

int Arguments::number() {
  const std::wstring text = word();
  wchar_t* end = nullptr;
  const long value = std::wcstol(text.c_str(), &end, 10);
  if (text.empty() || *end) fail(wb::quoted(text) + L" isn't a number");
  return static_cast<int>(value);
}

unsigned Arguments::number(int least, const wchar_t* why) {
  const int value = number();
  if (value < least) fail(why);
  return static_cast<unsigned>(value);
}

ControlId::ControlId(Arguments& arguments) {
  struct Control {
    const wchar_t* name;
    int id;
  };
#define CONTROL(name) {L"" #name, name}
  static constexpr Control controls[] = {CONTROL(IDC_XREFS_LATEST), CONTROL(IDC_CHECKED_OUT_HERE),
                                         CONTROL(IDC_REFRESH),      CONTROL(IDC_AUTOLOCK),
                                         CONTROL(IDC_SHOW_STATUS),  CONTROL(IDC_INTERVAL),
                                         CONTROL(IDC_EDIT_WARNING)};
#undef CONTROL
  for (const Control& control : controls) {
    number = control.id;
    if (arguments.take(control.name)) return;
  }
  number = arguments.number();
}

bool Arguments::onOff() {
  const std::wstring text = word();
  if (sameName(text, L"on")) return true;
  if (!sameName(text, L"off")) fail(wb::quoted(text) + L" is neither on nor off");
  return false;
}

bool Arguments::take(std::wstring_view keyword) {
  if (atEnd() || !sameName(all[next].text, keyword)) return false;
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
  while (next < all.size() && !isKeyword(all[next])) ++next;
  if (next == first) fail(L"something is missing");
  if (next == first + 1) return expanded(all[first]);
  const size_t begin = all[first].begin;
  return expandFolders(line.substr(begin, all[next - 1].end - begin), options);
}

std::wstring Arguments::pathUntil(const std::vector<std::wstring_view>& keywords) {
  return windowsPath(textUntil(keywords));
}

std::wstring Arguments::restOfLine() {
  requireMore();
  const size_t begin = all[next].begin;
  next = all.size();
  return line.substr(begin, all.back().end - begin);
}

void Arguments::end() const {
  if (!atEnd()) fail(wb::quoted(all[next].text) + L" is one word too many");
}

void Arguments::fail(const std::wstring& why) const {
  throw ScriptError(why + L"; usage: " + usage);
}

DirectiveBody oneOf(std::vector<Directive> subcommands, std::wstring unknown) {
  return [subcommands = std::move(subcommands), unknown = std::move(unknown)](
             ScriptContext& context, Arguments& arguments) {
    const std::wstring name = arguments.word();
    const auto found = std::find_if(subcommands.begin(), subcommands.end(),
                                    [&](const Directive& one) { return name == one.usage; });
    if (found == subcommands.end()) arguments.fail(wb::quoted(name) + unknown);
    found->run(context, arguments);
  };
}

void runDirective(ScriptContext& context, const std::wstring& line, bool commandWaits) {
  static const std::vector<Directive> directives = allDirectives();
  const std::wstring name = line.substr(0, line.find_first_of(L" \t"));
  if (name == L"@try" && name.size() < line.size()) {
    return tryDirective(context, line.substr(name.size() + 1), commandWaits);
  }
  const auto directive =
      std::find_if(directives.begin(), directives.end(), [&](const Directive& one) {
        return name == one.usage.substr(0, one.usage.find_first_of(L" ,"));
      });
  if (directive == directives.end()) throw ScriptError(L"there is no directive " + name);
  if (commandWaits && !directive->whileWaiting) {
    throw ScriptError(name + L" can't come while a command waits for input");
  }
  Arguments arguments(line.substr(name.size()), directive->usage, context.options);
  directive->run(context, arguments);
}

}  // namespace wb
