// The favourites file on the real file system.
#include "src/favorites/favorites_platform.h"

#include <gtest/gtest.h>

#include "tests/integration/favorites/favorites_fixture.h"

namespace file_explorer {
namespace {

class FavoritesPlatformTest : public FavoritesFixture {};

TEST_F(FavoritesPlatformTest, TheFileIsInTheUsersDirectoryOfTheHost) {
  EXPECT_EQ(FavoritesFilePath(nullptr), file());
}

TEST_F(FavoritesPlatformTest, WithoutADirectoryThereIsNoFile) {
  PutFavorites("a file where a folder should be");
  SetEnvironmentVariableA("HALVO_APPLICATION_DIRECTORY", (file() + "\\below").c_str());
  EXPECT_EQ(FavoritesFilePath(nullptr), "");
}

TEST_F(FavoritesPlatformTest, LinesAreWrittenWithThePlatformsEnds) {
  Create();
  pane->Save();
  const std::string text = TextOfFile(file());
  EXPECT_NE(text.find("\r\ns=49\r\ni=0\r\nd=Favorites\r\nE\r\n"), std::string::npos) << text;
}

TEST_F(FavoritesPlatformTest, AGoldenFileComesBackByteForByte) {
  const std::string golden = TextOfFile(TEST_DATA_DIR "/favorites/favorites.dat");
  ASSERT_FALSE(golden.empty());
  for (const char* name : {"favorites.dat", "favorites_lf.dat"}) {
    PutFavorites(TextOfFile(std::string(TEST_DATA_DIR "/favorites/") + name));
    Create();
    EXPECT_EQ(Shown(),
              "Favorites(Models(Scenes(city.3ds) cube = checked.obj) ) a folder at the top(textures)");
    pane->Save();
    EXPECT_EQ(TextOfFile(file()), golden) << name;
    pane.reset();
  }
}

// Saved through the tree and loaded again, whatever the file was.
TEST_F(FavoritesPlatformTest, AFileMadeByHandIsTheSameAfterItsFirstSave) {
  PutFavorites(TextOfFile(TEST_DATA_DIR "/favorites/odd.dat"));
  Create();
  EXPECT_EQ(Shown(), "Favorites(below the first) same key unknown parent");
  pane->Save();
  const std::string saved = TextOfFile(file());
  pane.reset();
  Create();
  pane->Save();
  EXPECT_EQ(TextOfFile(file()), saved);
}

TEST_F(FavoritesPlatformTest, Deliberate_TheOpenFileIsNotRenamedAndNoBackupIsMade) {
  CreateWithSample();
  const std::string backup = folder.Join(std::string_view("favorites.bak"));
  std::ofstream(backup) << "older";
  pane->Save();
  EXPECT_EQ(GetFileAttributesA(backup.c_str()), INVALID_FILE_ATTRIBUTES);
  EXPECT_NE(TextOfFile(file()).find("d=cube.obj\r\n"), std::string::npos);
}

TEST_F(FavoritesPlatformTest, ABackupsNameIsTheLowerCasePathWithItsExtension) {
  EXPECT_EQ(SystemFileCalls().backupName("C:\\User Data\\Favorites.DAT"), "c:\\user data\\favorites.bak");
}

TEST_F(FavoritesPlatformTest, AFileThatIsHeldByAnotherProgramStaysAsItIs) {
  CreateWithSample();
  const std::string before = TextOfFile(file());
  tree().AddFavorite(std::make_unique<FavoriteRecord>(), nullptr);
  const HANDLE held =
      CreateFileA(file().c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
  ASSERT_NE(held, INVALID_HANDLE_VALUE);
  pane->Save();
  CloseHandle(held);
  EXPECT_EQ(TextOfFile(file()), before);
}

TEST_F(FavoritesPlatformTest, KeysAreUnique) {
  EXPECT_NE(NewFavoriteKey(), NewFavoriteKey());
  EXPECT_EQ(NewFavoriteKey().size(), 38u);
}

}  // namespace
}  // namespace file_explorer
