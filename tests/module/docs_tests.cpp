// The scripts that the documentation shows run as they stand there.

#include <fstream>

#include "core/Text.h"
#include "shared/ModuleSession.h"

namespace {

/// The blocks of a page that are marked as scripts of the tour.
std::vector<std::string> scriptsOf(const std::filesystem::path& page) {
  std::vector<std::string> scripts;
  std::ifstream file(page);
  bool inside = false;
  for (std::string line; std::getline(file, line);) {
    if (line.rfind("```", 0) == 0) {
      inside = line == "```tour";
      if (inside) scripts.emplace_back();
    } else if (inside) {
      scripts.back() += line + "\n";
    }
  }
  return scripts;
}

TEST(Docs, TheScriptsThatTheyShowRun) {
  size_t run = 0;
  const std::filesystem::path before = std::filesystem::current_path();
  const std::filesystem::path docs = ModuleSession::workbenchFile(L"../docs");
  for (const auto& entry : std::filesystem::directory_iterator(docs)) {
    if (entry.path().extension() != L".md") continue;
    for (const std::string& script : scriptsOf(entry.path())) {
      wb::Session session(ModuleSession::options());
      std::filesystem::current_path(ModuleSession::options().workFolder);  // for its pictures
      EXPECT_TRUE(session.run(script)) << entry.path().filename().string() << "\n"
                                       << script << wb::toUtf8(session.text());
      std::filesystem::current_path(before);
      session.end();
      EXPECT_EQ(session.count(L"leak: "), 0) << script;
      ++run;
    }
  }
  EXPECT_GT(run, 0u) << "no script found in " << docs.string();
}

}  // namespace
