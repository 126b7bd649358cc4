// The masks over 100,000 file names: 1, 3 and 10 patterns through the list walk and the matcher, against the
// C library's fnmatch with the same patterns, prepared beforehand, in the same run. fnmatch takes bytes for
// characters unless the locale says otherwise; beside that it is measured in a locale of UTF-8, where it
// tells characters apart as the matcher does.
#include <fnmatch.h>

#include <clocale>
#include <cstdio>
#include <random>
#include <string>
#include <vector>

#include "bench/measure.h"
#include "src/filter/pattern_list.h"
#include "workbench/app/text/wildcard.h"

namespace {

constexpr int kNames = 100000;

std::vector<std::string> MakeNames() {
  const char* const words[] = {"brick", "Wall",   "oak",     "chair", "House",   "terrain", "final", "copy",
                               "LOD",   "normal", "diffuse", "Scene", "kitchen", "lamp",    "test",  "IMG"};
  const char* const joints[] = {"_", "-", " ", ""};
  const char* const ends[] = {".obj", ".3ds", ".png", ".jpg", ".txt", ".fbx", ".PNG", ".wav", ".zip", ""};
  std::mt19937 random(7);
  std::vector<std::string> names;
  for (int i = 0; i < kNames; ++i) {
    std::string name;
    for (unsigned count = 1 + random() % 3; count > 0; --count) {
      name += words[random() % std::size(words)];
      name += joints[random() % std::size(joints)];
    }
    char number[16];
    std::snprintf(number, sizeof(number), "%04u", static_cast<unsigned>(random() % 10000));
    names.push_back(name + number + ends[random() % std::size(ends)]);
  }
  return names;
}

int CountByFnmatch(const std::vector<std::string>& names, const std::vector<std::string>& patterns) {
  int count = 0;
  for (const std::string& name : names) {
    for (const std::string& pattern : patterns) {
      if (fnmatch(pattern.c_str(), name.c_str(), FNM_CASEFOLD) != 0) continue;
      ++count;
      break;
    }
  }
  return count;
}

int CountByList(const std::vector<std::string>& names, const std::string& list) {
  const auto matcher = [](const char* pattern, const char* name) {
    return workbench::MatchPattern(pattern, name, true);
  };
  int count = 0;
  for (const std::string& name : names)
    count += file_explorer::MatchesPatternList(list.c_str(), name.c_str(), matcher);
  return count;
}

void Measure(const std::vector<std::string>& names, const std::vector<std::string>& patterns) {
  std::string list;
  for (const std::string& pattern : patterns) list += (list.empty() ? "" : ",") + pattern;
  int own = 0;
  const double ours = bench::BestSeconds(15, [&] { own = CountByList(names, list); });
  const std::string what = "matcher, " + std::to_string(patterns.size()) + " masks, a name (" +
                           std::to_string(own) + " of " + std::to_string(kNames) + " match)";
  for (const char* const locale : {"C", "C.UTF-8"}) {
    if (std::setlocale(LC_CTYPE, locale) == nullptr) continue;
    int reference = 0;
    const double theirs = bench::BestSeconds(15, [&] { reference = CountByFnmatch(names, patterns); });
    if (own != reference) std::printf("matcher: %d names against %d of fnmatch\n", own, reference);
    bench::PrintRatio(what, ours / kNames, std::string("fnmatch in locale ") + locale, theirs / kNames);
  }
  std::setlocale(LC_CTYPE, "C");
}

}  // namespace

int main() {
  const std::vector<std::string> names = MakeNames();
  Measure(names, {"*.obj"});
  Measure(names, {"*.obj", "*.3ds", "test*"});
  Measure(names, {"*.obj", "*.3ds", "test*", "*wall*", "IMG_????.jpg", "*[0-4].png", "[a-f]*.txt",
                  "*copy*.w?v", "*.zip", "*_lod[0-9]*"});
}
