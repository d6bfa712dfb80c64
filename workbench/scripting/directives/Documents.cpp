// Documents, what stands in them, modules, and checks of the transcript.

#include <cstdio>

#include "core/Text.h"
#include "core/Transcript.h"
#include "database/Drawing.h"
#include "dialogs/Reader.h"
#include "dialogs/Screenshot.h"
#include "editor/DocumentManager.h"
#include "editor/Host.h"
#include "scripting/Directives.h"
#include "scripting/Session.h"

namespace wb {
namespace {

const Document& activeDocument() {
  const Document* document = Host::instance().documents().active();
  if (!document) throw ImpossibleStep(L"no drawing is open");
  return *document;
}

/// An open document's path.
struct OpenPath : RestPath {
  explicit OpenPath(Arguments& arguments) : RestPath(arguments) {
    if (Host::instance().documents().find(*this)) return;
    throw ImpossibleStep(wb::quoted(*this) + L" isn't open");
  }
};

/// The path of an open document or, if none is named, of the active one, which may be empty.
struct OpenPathOrActive {
  explicit OpenPathOrActive(Arguments& arguments) {
    if (arguments.atEnd()) {
      activeDocument();
    } else {
      path = OpenPath(arguments);
    }
  }
  std::wstring path;
};

void activate(const OpenPath& path) {
  const DocumentManager& documents = Host::instance().documents();
  if (documents.find(path) == documents.active()) {
    throw ScriptError(wb::quoted(path) + L" is on top already");
  }
  Host::instance().activate(path);
}

/// The file that is named, or the session's own module.
std::wstring moduleFile(const ScriptContext& context, Arguments& arguments) {
  if (!arguments.atEnd()) return arguments.pathUntil();
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

void makeLayoutCurrent(const RestText& name) {
  Drawing& drawing = *activeDocument().drawing();
  if (!drawing.setCurrentLayout(name)) {
    std::wstring names;
    for (const std::wstring& one : drawing.layouts()) {
      names += (names.empty() ? L"" : L", ") + wb::quoted(one);
    }
    throw ScriptError(L"the drawing has no layout " + wb::quoted(name) + L", only " + names);
  }
  report(Event::doc, L"layout " + wb::quoted(drawing.currentLayout()) + L" is current");
}

void showAttributes(const std::wstring& block, const std::wstring& tag) {
  const auto attributes = activeDocument().drawing()->attributes(block, tag);
  const std::wstring name = block + L"." + tag;
  if (attributes.empty()) throw ScriptError(L"nothing in the drawing bears " + name);
  for (const Drawing::AttributeText& one : attributes) {
    report(Event::doc,
           name + (one.layout.empty() ? L" inside a block" : L" on " + wb::quoted(one.layout)) +
               L" = " + wb::quoted(one.value) + (one.aligned ? L"" : L", not aligned"));
  }
}

/// What a line since the mark has to hold; the transcript has names for the session's folders.
struct Expected {
  explicit Expected(Arguments& arguments)
      : text(expandFolders(arguments.restOfLine(), L"<work>", L"<drawings>")),
        isThere(Transcript::instance().holdsSinceMark(text)) {}
  std::wstring text;
  bool isThere;
};

void expect(const Expected& line) {
  if (!line.isThere) throw ScriptError(L"expected since the mark: " + line.text);
}

void expectNot(const Expected& line) {
  if (line.isThere) throw ScriptError(L"not expected since the mark: " + line.text);
}

void shot(const RestPath& file) {
  // What waits to be drawn or raised is drawn first.
  Host::instance().pumpMessages();
  try {
    savePicture(file);
  } catch (const DialogError& error) {
    throw ScriptError(error.reason);
  }
}

/// For a person who reads along; it isn't an event, so the transcript doesn't keep it.
void say(ScriptContext& context, const RestOfLine& text) {
  if (!context.options.echo) return;
  std::printf("\n== %s\n", toUtf8(text).c_str());
}

}  // namespace

// A document reports itself why an operation failed, and the script continues: it may be about that
// failure.
std::vector<Directive> documentDirectives() {
  return {{L"@open PATH [readonly]",
           [](Arguments& arguments) {
             const std::wstring path = arguments.pathUntil({L"readonly"});
             const bool readOnly = arguments.take(L"readonly");
             arguments.end();
             Host::instance().open(path, readOnly);
           }},
          {L"@opendialog PATH, or @opendialog cancel",
           [](const RestText& pick) {
             Host::instance().openDialog(pick == L"cancel" ? std::nullopt
                                                           : std::optional(windowsPath(pick)));
           }},
          {L"@new", [] { Host::instance().newDrawing(); }},
          {L"@activate PATH", activate},
          {L"@close [PATH]",
           [](const OpenPathOrActive& document) { Host::instance().close(document.path); }},
          {L"@save [PATH]",
           [](const OpenPathOrActive& document) { Host::instance().save(document.path); }},
          {L"@edit",
           [] {
             if (!Host::instance().edit()) throw ImpossibleStep(L"there is no drawing to edit");
           }},
          {L"@load [FILE]", load},
          {L"@unload [FILE]", unload},
          {L"@reserve COMMAND",
           [](const std::wstring& name) {
             if (Host::instance().reserveCommand(name)) return;
             throw ScriptError(L"the command name is taken already: " + name);
           }},
          atAnyTime(L"@refuse-locks COUNT",
                    [](Arguments& arguments) {
                      const unsigned count = arguments.number(1, L"at least 1");
                      arguments.end();
                      Host::instance().documents().refuseLocks(count);
                    }),
          {L"@layout NAME", makeLayoutCurrent},
          atAnyTime(L"@attr BLOCK TAG", showAttributes),
          atAnyTime(L"@mark", [] { Transcript::instance().mark(); }),
          atAnyTime(L"@expect TEXT", expect),
          atAnyTime(L"@expect-no TEXT", expectNot),
          atAnyTime(L"@shot FILE", shot),
          atAnyTime(L"@say TEXT", say)};
}

}  // namespace wb
