#include "core/Transcript.h"
#include "editor/Host.h"
#include "scripting/Directives.h"
#include "scripting/Session.h"

namespace wb {
namespace {

/// Documents report themselves why something didn't come about, and a script goes on after it: a
/// refused closing may be what it is about.
void open(ScriptContext&, Arguments& arguments) {
  const std::wstring path = windowsPath(arguments.textUntil({L"readonly"}));
  const bool readOnly = arguments.take(L"readonly");
  arguments.end();
  Host::instance().open(path, readOnly);
}

void openDialog(ScriptContext&, Arguments& arguments) {
  const std::wstring pick = arguments.textUntil();
  Host::instance().openDialog(pick == L"cancel" ? std::nullopt : std::optional(windowsPath(pick)));
}

void newDrawing(ScriptContext&, Arguments& arguments) {
  arguments.end();
  Host::instance().newDrawing();
}

/// An open document's path; the active one's if none is named, which may be empty.
std::wstring documentOrActive(Arguments& arguments) {
  std::wstring path = arguments.atEnd() ? std::wstring() : windowsPath(arguments.textUntil());
  DocumentManager& documents = Host::instance().documents();
  if (path.empty() && !documents.active()) throw ImpossibleStep(L"no drawing is open");
  if (!path.empty() && !documents.find(path)) {
    throw ImpossibleStep(wb::quoted(path) + L" isn't open");
  }
  return path;
}

void activate(ScriptContext&, Arguments& arguments) {
  if (arguments.atEnd()) arguments.fail(L"something is missing");
  const std::wstring path = documentOrActive(arguments);
  const DocumentManager& documents = Host::instance().documents();
  if (documents.find(path) == documents.active()) {
    throw ScriptError(wb::quoted(path) + L" is on top already");
  }
  Host::instance().activate(path);
}

void close(ScriptContext&, Arguments& arguments) {
  Host::instance().close(documentOrActive(arguments));
}

void save(ScriptContext&, Arguments& arguments) {
  Host::instance().save(documentOrActive(arguments));
}

void edit(ScriptContext&, Arguments& arguments) {
  arguments.end();
  if (!Host::instance().edit()) throw ImpossibleStep(L"there is no drawing to edit");
}

std::wstring moduleFile(const ScriptContext& context, Arguments& arguments) {
  if (!arguments.atEnd()) return windowsPath(arguments.textUntil());
  if (context.options.module.empty()) arguments.fail(L"the session has no module of its own");
  return context.options.module;
}

void load(ScriptContext& context, Arguments& arguments) {
  const std::wstring file = moduleFile(context, arguments);
  if (!Host::instance().loadModule(file)) throw ScriptError(L"not loaded: " + wb::quoted(file));
}

void unload(ScriptContext& context, Arguments& arguments) {
  const std::wstring file = moduleFile(context, arguments);
  if (!Host::instance().unloadModule(file)) throw ScriptError(L"not unloaded: " + wb::quoted(file));
}

void reserve(ScriptContext&, Arguments& arguments) {
  const std::wstring name = arguments.word();
  arguments.end();
  if (!Host::instance().reserveCommand(name)) {
    throw ScriptError(L"the command name is taken already: " + name);
  }
}

void refuseLocks(ScriptContext&, Arguments& arguments) {
  const int count = arguments.number();
  arguments.end();
  if (count < 1) arguments.fail(L"at least 1");
  Host::instance().documents().refuseLocks(static_cast<unsigned>(count));
}

}  // namespace

std::vector<Directive> documentDirectives() {
  return {
      {L"open", L"@open PATH [readonly]", open, false},
      {L"opendialog", L"@opendialog PATH, or @opendialog cancel", openDialog, false},
      {L"new", L"@new", newDrawing, false},
      {L"activate", L"@activate PATH", activate, false},
      {L"close", L"@close [PATH]", close, false},
      {L"save", L"@save [PATH]", save, false},
      {L"edit", L"@edit", edit, false},
      {L"load", L"@load [FILE]", load, false},
      {L"unload", L"@unload [FILE]", unload, false},
      {L"reserve", L"@reserve COMMAND", reserve, false},
      {L"refuse-locks", L"@refuse-locks COUNT", refuseLocks, true},
  };
}

}  // namespace wb
