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
  file_explorer::PatternList patterns;
  for (const std::string& name : names) {
    patterns.Assign(list.c_str());  // as the filter does: the masks may have changed
    count += patterns.Matches(name.c_str(), matcher);
  }
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

// One pattern, called for every name as the host is, against fnmatch in a locale of UTF-8 (which sees the
// same characters).
void MeasureOne(const char* what, const std::string& pattern, const std::vector<std::string>& names) {
  const auto count = static_cast<double>(names.size());
  int own = 0;
  const double ours = bench::BestSeconds(15, [&] {
    own = 0;
    for (const std::string& name : names) own += workbench::MatchPattern(pattern.c_str(), name.c_str(), true);
  });
  std::setlocale(LC_CTYPE, "C.UTF-8");
  int reference = 0;
  const double theirs = bench::BestSeconds(3, [&] { reference = CountByFnmatch(names, {pattern}); });
  std::setlocale(LC_CTYPE, "C");
  bench::PrintRatio("matcher, " + std::string(what) + ", a name (" + std::to_string(own) + " of " +
                        std::to_string(names.size()) + " match, " + std::to_string(reference) +
                        " by fnmatch)",
                    ours / count, "fnmatch in locale C.UTF-8", theirs / count);
}

std::vector<std::string> Repeated(const std::string& name) {
  return std::vector<std::string>(2000, name);
}

std::string OneStarOverLetters(std::size_t letters) {
  std::string pattern("*");
  pattern.append(letters, 'a');
  pattern.push_back('?');
  return pattern;
}

}  // namespace

int main() {
  const std::vector<std::string> names = MakeNames();
  Measure(names, {"*.obj"});
  Measure(names, {"*.obj", "*.3ds", "test*"});
  Measure(names, {"*.obj", "*.3ds", "test*", "*wall*", "IMG_????.jpg", "*[0-4].png", "[a-f]*.txt",
                  "*copy*.w?v", "*.zip", "*_lod[0-9]*"});
  MeasureOne("*[0-4].png", "*[0-4].png", Repeated("Kitchen_Wall_diffuse_final_copy_0017.png"));
  MeasureOne("*\u0441\u0442\u0430\u043d*", "*\u0441\u0442\u0430\u043d*",
             Repeated("\u0421\u0442\u0435\u043d\u0430 \u0434\u043e\u043c\u0430 "
                      "\u0441\u0442\u0430\u0440\u0430\u044f \u043a\u043e\u043f\u0438\u044f 0017.png"));
  for (const std::size_t length : {60, 240, 960}) {
    MeasureOne(
        ("*a...a? of " + std::to_string(length / 2) + " letters against " + std::to_string(length)).c_str(),
        OneStarOverLetters(length / 2), Repeated(std::string(length, 'a') + "bb"));
  }
}
