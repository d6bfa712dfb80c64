// What stands in the active drawing: its layouts and the attributes of its blocks.

#include "database/Drawing.h"
#include "core/Transcript.h"
#include "editor/Host.h"
#include "scripting/Directives.h"

namespace wb {
namespace {

Drawing& activeDrawing() {
  const Document* document = Host::instance().documents().active();
  if (!document) throw ImpossibleStep(L"no drawing is open");
  return *document->drawing();
}

std::wstring layoutNames(const Drawing& drawing) {
  std::wstring names;
  for (const std::wstring& name : drawing.layouts()) {
    names += (names.empty() ? L"" : L", ") + wb::quoted(name);
  }
  return names;
}

void layout(ScriptContext&, Arguments& arguments) {
  const std::wstring name = arguments.textUntil();
  Drawing& drawing = activeDrawing();
  if (!drawing.setCurrentLayout(name)) {
    throw ScriptError(L"the drawing has no layout " + wb::quoted(name) + L", only " +
                      layoutNames(drawing));
  }
  tell(Event::doc, L"layout " + wb::quoted(drawing.currentLayout()) + L" is current");
}

void attribute(ScriptContext&, Arguments& arguments) {
  const std::wstring block = arguments.word();
  const std::wstring tag = arguments.word();
  arguments.end();
  const auto attributes = activeDrawing().attributes(block, tag);
  const std::wstring name = block + L"." + tag;
  if (attributes.empty()) throw ScriptError(L"nothing in the drawing bears " + name);
  for (const Drawing::AttributeText& one : attributes) {
    tell(Event::doc,
         name + (one.layout.empty() ? L" inside a block" : L" on " + wb::quoted(one.layout)) +
             L" = " + wb::quoted(one.value) + (one.aligned ? L"" : L", not aligned"));
  }
}

}  // namespace

std::vector<Directive> drawingDirectives() {
  return {
      {L"layout", L"@layout NAME", layout, false},
      {L"attr", L"@attr BLOCK TAG", attribute, true},
  };
}

}  // namespace wb
