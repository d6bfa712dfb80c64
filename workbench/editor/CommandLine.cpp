#include "editor/CommandLine.h"

#include "core/Transcript.h"
#include "editor/Host.h"
#include "editor/MainWindow.h"

namespace wb {

void commandLineSays(std::wstring_view text) {
  Host::instance().window().write(text);
  tell(Event::prompt, quoted(text));
}

}  // namespace wb
