#include <algorithm>
#include <filesystem>
#include <fstream>
#include <regex>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

// Folders are layers. A static library links whatever it is given, so an include
// that points up would go unnoticed; this holds each one against the table.

namespace vorlane {
namespace {

struct Layer {
  std::string_view folder;  ///< with the folders inside that have no row of their own
  std::vector<std::string_view> mayInclude;  ///< rows above, besides itself
  std::vector<std::string_view> libraries;   ///< headers in angle brackets, by their beginning
};

// Each row may name rows above it alone.
const std::vector<Layer>& Layers() {
  // clang-format off
  static const std::vector<Layer> layers{
      {"platform/runtime",  {}, {"glib.h"}},
      {"platform/system",   {"platform/runtime"}, {}},
      {"platform/settings", {"platform/runtime", "platform/system"}, {}},
      {"platform/script",   {"platform/runtime", "platform/system"}, {}},
      {"platform/xml",      {"platform/runtime"}, {"libxml/"}},
      {"platform/http",     {"platform/runtime", "platform/system"}, {"curl/"}},
      {"platform/data",     {"platform/runtime", "platform/system", "platform/xml"},
                            {"glib.h", "gsf/", "zip.h", "mdbtools.h", "sql.h", "sqlext.h"}},
      {"errors",            {"platform/runtime", "platform/system"}, {}},
      {"gateway",           {"platform/runtime", "platform/settings", "platform/xml",
                             "platform/http", "errors"}, {}},
      {"staging",           {"platform/runtime", "errors"}, {"sqlite3.h"}},
      {"form",              {"platform/runtime", "platform/system", "platform/settings",
                             "platform/data", "errors", "gateway", "staging"}, {}},
      {"vouchers",          {"platform/runtime", "platform/xml", "errors", "gateway", "staging"}, {}},
      {"masters",           {"platform/runtime", "platform/xml", "errors", "gateway", "form"}, {}},
      // The list builders and the loaders ask for the custom formats, so these stand below.
      {"formats",           {"platform/runtime", "platform/system", "platform/script", "platform/xml", "errors",
                             "gateway", "staging", "form", "masters"}, {}},
      {"sources",           {"platform/runtime", "platform/data", "errors", "staging", "form",
                             "formats"}, {}},
      {"posting",           {"platform/runtime", "errors", "gateway", "staging", "form", "vouchers",
                             "masters"}, {}},
      {"shell",             {"platform/runtime", "platform/system", "platform/settings", "errors",
                             "gateway", "staging", "form", "masters", "formats", "sources",
                             "posting"}, {}},
      {"shell/console",     {"platform/runtime", "form", "sources", "shell"}, {}},
      {"shell/format_tool", {"platform/runtime", "platform/xml", "gateway", "staging", "form",
                             "formats", "sources", "shell", "shell/console"}, {}},
      {"shell/ui",          {"platform/runtime", "platform/settings", "form", "sources", "shell"},
                            {"Q"}},
      // A program of its own: it plays Tally and shares no code with what it tests but XML.
      {"practice",          {"platform/runtime", "platform/xml"}, {"sqlite3.h"}},
  };
  // clang-format on
  return layers;
}

// Headers of libraries, each of which one or two folders hide from the others.
constexpr std::string_view kLibraryHeaders[] = {
    "glib", "libxml/", "curl/", "gsf/", "zip.h", "sqlite3.h", "mdb", "sql.h", "sqlext.h", "Q"};

bool StandsIn(std::string_view path, std::string_view folder) {
  return path.starts_with(folder) && (path.size() == folder.size() || path[folder.size()] == '/');
}

/// The row of a path below the include root, the longest that fits; null for none.
const Layer* LayerOf(std::string_view path) {
  const Layer* best = nullptr;
  for (const Layer& layer : Layers()) {
    if (!StandsIn(path, layer.folder)) continue;
    if (!best || layer.folder.size() > best->folder.size()) best = &layer;
  }
  return best;
}

bool IsAllowed(const Layer& from, const Layer& to) {
  return &from == &to || std::find(from.mayInclude.begin(), from.mayInclude.end(), to.folder) !=
                             from.mayInclude.end();
}

/// What is wrong with one include of `path`; empty when nothing is.
std::string Complaint(const std::string& path, const std::string& target, bool isAngled) {
  const Layer* from = LayerOf(path);
  if (!from) return path + " stands in a folder that has no row in the table of arrows.";
  if (isAngled && !LayerOf(target)) {
    const auto begins = [&](std::string_view start) { return target.starts_with(start); };
    if (std::none_of(std::begin(kLibraryHeaders), std::end(kLibraryHeaders), begins) ||
        std::any_of(from->libraries.begin(), from->libraries.end(), begins)) {
      return {};
    }
    return path + " includes <" + target + ">, a library that its folder may not see.";
  }
  const Layer* to = LayerOf(target);
  if (to && IsAllowed(*from, *to)) return {};
  return path + " includes \"" + target + "\", but " + std::string(from->folder) +
         " may not include " + (to ? std::string(to->folder) : "what is outside of src") + ".";
}

std::vector<std::string> ComplaintsAbout(const std::filesystem::path& file, const std::string& path,
                                         std::size_t& includes) {
  static const std::regex kInclude(R"re(^\s*#\s*include\s*([<"])([^>"]+)[>"].*)re");
  std::vector<std::string> complaints;
  std::ifstream input(file);
  std::smatch match;
  for (std::string line; std::getline(input, line);) {
    if (!std::regex_match(line, match, kInclude)) continue;
    ++includes;
    std::string complaint = Complaint(path, match[2], match[1] == "<");
    if (!complaint.empty()) complaints.push_back(std::move(complaint));
  }
  return complaints;
}

TEST(Arrows, EveryIncludePointsDown) {
  const std::filesystem::path source(VORLANE_SOURCE);
  std::size_t includes = 0;
  for (const auto& [folder, root] :
       {std::pair{source / "src", source / "src"}, std::pair{source / "practice", source}}) {
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
      const std::string extension = entry.path().extension();
      if (extension != ".h" && extension != ".cpp") continue;
      const std::string path = entry.path().lexically_relative(root);
      for (const auto& complaint : ComplaintsAbout(entry.path(), path, includes)) {
        ADD_FAILURE() << complaint;
      }
    }
  }
  EXPECT_GT(includes, 500u) << "the sources were not found at " << source;
}

TEST(Arrows, TableHasNoArrowUp) {
  for (auto row = Layers().begin(); row != Layers().end(); ++row) {
    for (const std::string_view lower : row->mayInclude) {
      EXPECT_TRUE(std::any_of(Layers().begin(), row,
                              [&](const Layer& layer) { return layer.folder == lower; }))
          << row->folder << " names " << lower << ", which is no row above it";
    }
  }
}

TEST(Arrows, TestTellsAForbiddenIncludeFromAnAllowedOne) {
  EXPECT_EQ(Complaint("form/x.cpp", "platform/data/text/text_file.h", false), "");
  EXPECT_EQ(Complaint("shell/console/x.cpp", "shell/post.h", false), "");
  EXPECT_EQ(Complaint("form/x.cpp", "vector", true), "");
  EXPECT_EQ(Complaint("form/x.cpp", "sources/import_types.h", false),
            "form/x.cpp includes \"sources/import_types.h\", but form may not include sources.");
  EXPECT_EQ(Complaint("form/x.cpp", "sources/import_types.h", true),
            "form/x.cpp includes \"sources/import_types.h\", but form may not include sources.");
  EXPECT_EQ(Complaint("shell/x.cpp", "shell/console/commands.h", false),
            "shell/x.cpp includes \"shell/console/commands.h\", but shell may not include "
            "shell/console.");
  EXPECT_EQ(Complaint("gateway/x.h", "../errors/trap.h", false),
            "gateway/x.h includes \"../errors/trap.h\", but gateway may not include what is "
            "outside of src.");
  EXPECT_EQ(Complaint("gateway/x.h", "libxml/tree.h", true),
            "gateway/x.h includes <libxml/tree.h>, a library that its folder may not see.");
  EXPECT_EQ(Complaint("extras/x.h", "vector", true),
            "extras/x.h stands in a folder that has no row in the table of arrows.");
}

}  // namespace
}  // namespace vorlane
