// The favourites file as a whole: what is written, and what becomes of the file when something fails.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "tests/unit/favorites/sample_favorites.h"

namespace file_explorer {
namespace {

namespace fs = std::filesystem;

class FavoritesWriterTest : public testing::Test {
 protected:
  FavoritesWriterTest() {
    static int counter = 0;
    folder = fs::temp_directory_path() /
             ("favorites_test_" + std::to_string(std::rand()) + std::to_string(++counter));
    fs::create_directories(folder);
    path = (folder / "favorites.dat").string();
    backup = (folder / "favorites.bak").string();
    calls.open = [](const char* name, const char* mode) { return std::fopen(name, mode); };
    calls.exists = [](const char* name) { return fs::exists(name); };
    calls.remove = [this](const char* name) {
      log += "remove " + fs::path(name).filename().string() + "; ";
      std::error_code error;
      if (isRemovable) fs::remove(name, error);
    };
    // The platform refuses to rename a file that is open.
    calls.rename = [this](const char* from, const char* to) {
      log += "rename " + fs::path(from).filename().string() + " " + fs::path(to).filename().string() + "; ";
    };
    calls.backupName = [this](const std::string&) { return backup; };
  }
  ~FavoritesWriterTest() override { fs::remove_all(folder); }

  void Put(const std::string& name, const std::string& text) const { std::ofstream(name) << text; }
  std::string Get(const std::string& name) const {
    std::ifstream file(name);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
  }
  void Write(FavoriteRecord* first) { WriteFavoritesText(path, calls, FavoritesText(list, first)); }
  void Write() {
    Write(list.topLevel().empty() ? nullptr : list.topLevel().front());
  }
  bool Read(FavoriteList& into) const { return ReadFavoritesFile(path, calls, into, PlaceIn(into)); }

  fs::path folder;
  std::string path;
  std::string backup;
  std::string log;
  bool isRemovable = true;
  FavoritesFileCalls calls;
  FavoriteList list;
};

constexpr char kGolden[] =
    "K={A}\ns=49\ni=0\nd=Favorites\nE\n"
    "K={B}\ns=21\ni=0\nd=Models\np={A}\n"
    "K={C}\ns=4\ni=1\nd=cube.obj\nn=C:\\models\\cube.obj\np={B}\n"
    "K={D}\ns=4\ni=1\nn=C:\\unnamed\np={A}\n"
    "K={E}\ns=1029\ni=7\nd=second\nE\n";

TEST_F(FavoritesWriterTest, AGoldenFileComesBackByteForByte) {
  Put(path, kGolden);
  ASSERT_TRUE(Read(list));
  Write();
  EXPECT_EQ(Get(path), kGolden);
}

std::string GoldenFile(const char* name) {
  std::ifstream file(std::string(TEST_DATA_DIR "/favorites/") + name, std::ios::binary);
  EXPECT_TRUE(file) << name;
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

#ifndef _WIN32
TEST_F(FavoritesWriterTest, AFileOfEitherLineEndsComesBackWithThePlatformsOwn) {
  for (const char* name : {"favorites.dat", "favorites_lf.dat"}) {
    list.Clear();
    Put(path, GoldenFile(name));
    ASSERT_TRUE(Read(list));
    Write();
    EXPECT_EQ(Get(path), GoldenFile("favorites_lf.dat")) << name;
  }
}
#endif

TEST_F(FavoritesWriterTest, AFileMadeByHandGivesWhatCanBeRead) {
  Put(path, GoldenFile("odd.dat"));
  ASSERT_TRUE(Read(list));
  EXPECT_EQ(Outline(list.topLevel()), "Favorites(below the first) same key unknown parent");
  EXPECT_EQ(list.records().front()->flags, 49);
  EXPECT_EQ(list.records().front()->imageIndex, 0);
}

TEST_F(FavoritesWriterTest, LoadingTwiceGivesTheSameTree) {
  Put(path, kGolden);
  ASSERT_TRUE(Read(list));
  const std::string first = Outline(list.topLevel());
  list.Clear();
  ASSERT_TRUE(Read(list));
  EXPECT_EQ(Outline(list.topLevel()), first);
}

TEST_F(FavoritesWriterTest, ParentsStandBeforeTheirChildrenAndChildrenInTreeOrder) {
  FavoriteRecord* const root = list.Add(Folder("root"), nullptr);
  list.Add(Reference("z"), root);
  FavoriteRecord* const inner = list.Add(Folder("inner"), root);
  list.Add(Reference("deep"), inner);
  list.Add(Reference("a"), root);
  Write();
  FavoriteList back;
  ASSERT_TRUE(Read(back));
  EXPECT_EQ(Outline(back.topLevel()), "root(inner(deep) a z)");
  EXPECT_EQ(back.records()[1]->displayName, "inner");
}

TEST_F(FavoritesWriterTest, DeletedEntriesAreNotWritten) {
  FavoriteRecord* const root = list.Add(Folder("root"), nullptr);
  list.MarkDeleted(*list.Add(Reference("gone"), root));
  list.Add(Reference("kept"), root);
  Write();
  FavoriteList back;
  ASSERT_TRUE(Read(back));
  EXPECT_EQ(Outline(back.topLevel()), "root(kept)");
}

TEST_F(FavoritesWriterTest, Deliberate_ASaveThatStartsAtANestedEntryWritesThatLevelOnly) {
  FavoriteRecord* const root = list.Add(Folder("root"), nullptr);
  list.Add(Reference("a"), root);
  FavoriteRecord* const b = list.Add(Reference("b"), root);
  list.Add(Reference("c"), root);
  list.Add(Folder("other"), nullptr);
  Write(b);
  FavoriteList back;
  ASSERT_TRUE(Read(back));
  EXPECT_EQ(Outline(back.topLevel()), "b c");
}

TEST_F(FavoritesWriterTest, AnEmptyTreeMakesAnEmptyFile) {
  Write();
  EXPECT_TRUE(fs::exists(path));
  EXPECT_EQ(Get(path), "");
  EXPECT_FALSE(Read(list));
}

TEST_F(FavoritesWriterTest, AMissingFileLoadsNothing) {
  EXPECT_FALSE(Read(list));
}

TEST_F(FavoritesWriterTest, AFileThatCannotBeOpenedForWritingStaysAsItIs) {
  Put(path, kGolden);
  list.Add(Folder("root"), nullptr);
  calls.open = [](const char*, const char*) -> std::FILE* { return nullptr; };
  Write();
  EXPECT_EQ(Get(path), kGolden);
  EXPECT_EQ(log, "");
}

TEST_F(FavoritesWriterTest, Deliberate_TheBackupIsTriedOnTheOpenFileAndTheFileRewrittenInPlace) {
  Put(path, kGolden);
  Put(backup, "older");
  list.Add(Folder("root"), nullptr);
  Write();
  EXPECT_EQ(log, "remove favorites.bak; rename favorites.dat favorites.bak; ");
  EXPECT_EQ(Get(path), FavoriteLines(*list.topLevel().front(), nullptr));
  EXPECT_FALSE(fs::exists(backup));
}

#ifndef _WIN32
TEST_F(FavoritesWriterTest, AFailedWriteRemovesTheFileAndPutsTheBackupBack) {
  Put(path, kGolden);
  for (int i = 0; i < 10; ++i) list.Add(Folder("folder " + std::to_string(i)), nullptr);
  calls.open = [](const char*, const char*) { return std::fopen("/dev/full", "w"); };
  Write();
  EXPECT_EQ(log,
            "remove favorites.bak; rename favorites.dat favorites.bak; remove favorites.dat; "
            "rename favorites.bak favorites.dat; ");
}
#endif

TEST_F(FavoritesWriterTest, ALineThatIsTooLongIsReadInPieces) {
  Put(path, "K={1}\nd=" + std::string(kFavoriteLineSize - 3, 'x') + "E\n");
  ASSERT_TRUE(Read(list));
  EXPECT_EQ(list.records().front()->displayName.size(), static_cast<size_t>(kFavoriteLineSize - 3));
}

TEST_F(FavoritesWriterTest, DeepNestingIsReadAndWritten) {
  std::string text = "K=0\ns=1\nE\n";
  for (int i = 1; i < 50000; ++i) {
    text += "K=" + std::to_string(i) + "\ns=1\np=" + std::to_string(i - 1) + "\n";
  }
  Put(path, text);
  ASSERT_TRUE(Read(list));
  Write();
  FavoriteList back;
  ASSERT_TRUE(Read(back));
  EXPECT_EQ(back.records().size(), 50000u);
}

}  // namespace
}  // namespace file_explorer
