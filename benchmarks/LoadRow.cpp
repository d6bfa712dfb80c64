// Loading and unloading the module.

#include <stdexcept>

#include "editor/Host.h"
#include "Measure.h"
#include "Rows.h"

namespace bench {

void moduleLoad(Workshop& workshop) {
  workshop.session.unload();
  const auto loadAndUnload = [](const wchar_t* name) {
    const std::wstring file = (Workshop::binFolder() / name).wstring();
    return spent([&] {
             wb::Host& host = wb::Host::instance();
             if (!host.loadModule(file) || !host.unloadModule(file)) {
               throw std::runtime_error("a module can't be loaded or unloaded");
             }
           })
        .all;
  };
  Row row("Loading and unloading the module / an empty one", "us");
  for (int round = 0; round < 9; ++round) {
    const double module = loadAndUnload(L"TessaroAcad.arx");
    row.add(module, loadAndUnload(L"emptymodule.arx"));
  }
  print(row);
  workshop.run("@load\n");
}

}  // namespace bench
