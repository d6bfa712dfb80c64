// The scripts that the documentation shows run as they stand there.

#include <fstream>

#include "core/Text.h"
#include "shared/ModuleSession.h"

namespace {

struct SessionFolder : ModuleSession {
  using ModuleSession::options;
  using ModuleSession::workbenchFile;
};

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

/// Pictures are written to the current folder.
class CurrentFolder {
 public:
  explicit CurrentFolder(const std::filesystem::path& folder)
      : before(std::filesystem::current_path()) {
    std::filesystem::current_path(folder);
  }
  CurrentFolder(const CurrentFolder&) = delete;
  CurrentFolder& operator=(const CurrentFolder&) = delete;
  ~CurrentFolder() { std::filesystem::current_path(before); }

 private:
  const std::filesystem::path before;
};

TEST(Docs, TheScriptsThatTheyShowRun) {
  size_t run = 0;
  const std::filesystem::path docs = SessionFolder::workbenchFile(L"../docs");
  for (const auto& entry : std::filesystem::directory_iterator(docs)) {
    if (entry.path().extension() != L".md") continue;
    for (const std::string& script : scriptsOf(entry.path())) {
      wb::Session session(SessionFolder::options());
      const CurrentFolder current(SessionFolder::options().workFolder);
      EXPECT_TRUE(session.run(script)) << entry.path().filename().string() << "\n"
                                       << script << wb::toUtf8(session.text());
      session.end();
      EXPECT_EQ(session.count(L"leak: "), 0) << script;
      ++run;
    }
  }
  EXPECT_GT(run, 0u) << "no script found in " << docs.string();
}

}  // namespace
