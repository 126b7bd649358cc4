#include <windows.h>

#include <commctrl.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/integration/controls/control_container.h"
#include "tests/support/temp_directory.h"
#include "tests/support/wait_until.h"

namespace controls_test {
namespace {

using test_support::PumpMessages;
using test_support::TempDirectory;
using test_support::WaitUntil;
using testing::ElementsAre;

class FileView : public testing::Test {
 protected:
  TempDirectory folder_;
  Hosted view_{kFileView};

  void Open() { ASSERT_TRUE(view_.GoAndWait(folder_.path())); }
};

TEST_F(FileView, ShowsFoldersFirstThenFilesInNaturalOrder) {
  folder_.AddFile(L"part10.obj");
  folder_.AddFile(L"part9.obj");
  folder_.AddFile(L"Alpha.txt");
  folder_.AddFolder(L"zebra");
  folder_.AddFolder(L"Beta");
  Open();
  EXPECT_THAT(view_.Names(), ElementsAre(L"Beta", L"zebra", L"Alpha.txt", L"part9.obj", L"part10.obj"));
  EXPECT_EQ(GetLong(view_.dispatch(), 52), 5);
}

TEST_F(FileView, ColumnsShowSizeTypeAndDate) {
  folder_.AddFile(L"model.obj", std::string(12 * 1024 - 10, 'x'));
  folder_.AddFolder(L"sub");
  Open();
  EXPECT_EQ(view_.CellText(0, 1), L"");
  EXPECT_EQ(view_.CellText(1, 1), L"12 KB");
  EXPECT_EQ(view_.CellText(1, 2), L"OBJ File");
  EXPECT_FALSE(view_.CellText(1, 3).empty());
}

}  // namespace
}  // namespace controls_test
