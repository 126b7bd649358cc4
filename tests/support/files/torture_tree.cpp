#include "tests/support/files/torture_tree.h"

namespace test_support {
namespace {

class Maker {
 public:
  Maker(const MachineFolder& folder, Chance& chance, bool links, bool oddNames)
      : folder_(folder), chance_(chance), links_(links), names_(kPlainNames) {
    if (oddNames) names_.insert(names_.end(), kOddNames.begin(), kOddNames.end());
  }

  void Make() {
    folder_.Write("keep/outside.txt", "outside, to be kept");
    folder_.Write("keep/sub/img1.png", "kept picture 1");
    folder_.Write("keep/sub/img2.png", "kept picture 2");
    Fill("c", 0);
    Fill("d", 1);
    if (chance_.Percent(10)) MakeDeep("c");
    folder_.Folder("c");
    folder_.Folder("d");
  }

 private:
  void Fill(const std::string& parent, int depth) {
    constexpr int kDeepest = 3;
    const size_t count = 1 + chance_.Below(6);
    for (size_t i = 0; i < count; ++i) {
      const std::string path = parent + "/" + chance_.Of(names_);
      if (folder_.Exists(path)) continue;
      if (depth < kDeepest && chance_.Percent(35)) {
        folder_.Folder(path);
        Fill(path, depth + 1);
      } else if (links_ && chance_.Percent(25)) {
        folder_.Link(path, chance_.Of(LinkTexts()));
      } else {
        folder_.Write(path, NewContents(), chance_.Percent(10));
      }
    }
  }

  std::vector<std::string> LinkTexts() const {
    return {folder_.path() + "/keep/sub",
            folder_.path() + "/keep/outside.txt",
            folder_.path() + "/c",
            folder_.path() + "/d",
            ".",
            "..",
            "nowhere",
            "a.txt",
            "folder"};
  }

  // Longer than 260 characters.
  void MakeDeep(std::string path) {
    for (int i = 0; i < 5; ++i) path += "/" + std::string(70, static_cast<char>('p' + i));
    folder_.Write(path + "/deep.txt", NewContents());
  }

  std::string NewContents() {
    std::string contents = "file " + std::to_string(++number_) + " ";
    // Now and then more than one portion of a copy.
    const size_t size = chance_.Percent(1) ? 1'200'000 : chance_.Below(300);
    contents.append(size, static_cast<char>('a' + number_ % 26));
    return contents;
  }

  inline static const std::vector<std::string> kPlainNames = {
      "a.txt",    "b.txt",    "c.obj",    "folder", "textures", "README", "new folder", "img1.png",
      "img2.png", "img3.png", "wood.png", "tex",    "plan",     "x",      "y",          "z"};
  inline static const std::vector<std::string> kOddNames = {
      "img?.png", "*",   "tex\\wood.png", "readme",      "A.TXT",    "dot.",         "trail ",    "nul",
      "con.txt",  "a:b", "\"quoted\"",    "pl\xC4\x81n", "byte\xFF", "\xEF\x81\x9C", "new\nline", "<>|"};

  const MachineFolder& folder_;
  Chance& chance_;
  bool links_;
  std::vector<std::string> names_;
  int number_ = 0;
};

}  // namespace

void MakeTortureTree(const MachineFolder& folder, Chance& chance, bool links, bool oddNames) {
  folder.Clear();
  Maker(folder, chance, links, oddNames).Make();
}

}  // namespace test_support
