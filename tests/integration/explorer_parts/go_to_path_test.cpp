#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <string>

#include "src/explorer/explorer_state.h"
#include "src/explorer/explorer_window.h"
#include "src/explorer/navigation.h"
#include "src/host/vc64_tx.h"

namespace file_explorer {
namespace {

class AbsolutePathTest : public testing::Test {
 protected:
  void TearDown() override { Tx_Set_Environment("TS_WORKING_DIR", nullptr); }

  static std::string Absolute(const std::string& path) {
    std::array<char, kTxPathSize> text = {};
    std::strcpy(text.data(), path.c_str());
    EXPECT_TRUE(MakeAbsolutePath(text.data(), text.size()));
    return text.data();
  }
};

TEST_F(AbsolutePathTest, RelativePathsCountFromTheWorkingDirectory) {
  Tx_Set_Environment("TS_WORKING_DIR", "d:\\work");
  EXPECT_EQ(Absolute("textures"), "d:\\work\\textures");
}

TEST_F(AbsolutePathTest, WithoutAWorkingDirectoryTheyCountFromDriveC) {
  EXPECT_EQ(Absolute("textures"), "c:\\textures");
}

TEST_F(AbsolutePathTest, SharesAndDrivesAreUsedAsTheyStand) {
  Tx_Set_Environment("TS_WORKING_DIR", "d:\\work");
  for (const char* const path : {"\\\\server\\share\\textures", "\\textures", "/textures", "e:\\textures", "e:"}) {
    EXPECT_EQ(Absolute(path), path);
  }
}

TEST_F(AbsolutePathTest, APathThatDoesNotFitStaysAsItIs) {
  Tx_Set_Environment("TS_WORKING_DIR", "d:\\work");
  std::array<char, 12> small = {};
  std::strcpy(small.data(), "textures");
  EXPECT_FALSE(MakeAbsolutePath(small.data(), small.size()));
  EXPECT_STREQ(small.data(), "textures");
}

TEST_F(AbsolutePathTest, GoingToAPathWithoutAnExplorerDoesNothing) {
  ExplorerState state;
  GoToPath(state, "textures");
  GoToPath(state, nullptr);
  GoToPath(state, std::string(5000, 'a').c_str());
}

}  // namespace
}  // namespace file_explorer
