#include <gtest/gtest.h>
#include <windows.h>

#include <string>

#include "src/host/vc64_imp.h"
#include "tests/support/temp_directory.h"

namespace {

std::string openedPage;
int openerResult = 1;

int RecordPage(const char* page) {
  openedPage = page;
  return openerResult;
}
int OtherOpener(const char*) {
  return 1;
}

class Help : public testing::Test {
 protected:
  Help() {
    openedPage.clear();
    openerResult = 1;
    directory.AddFile(L"ui_file_explorer\\main.html", "<p>help</p>");
    directory.AddFile(L"ui_file_explorer\\folder options.html", "<p>help</p>");
    directory.AddFile(L"outside.html", "<p>no topic</p>");
    Import_IO_SetHelpOpener(RecordPage);
  }
  ~Help() override { Import_IO_SetHelpOpener(nullptr); }

  int Show(const char* file, const char* topic) {
    return Import_IO_DisplayHelpTopic(directory.narrow().c_str(), file, topic);
  }
  test_support::TempDirectory directory;
};

TEST_F(Help, OpensThePageOfTheTopic) {
  EXPECT_TRUE(Show("ui_file_explorer.hlp", "main"));
  EXPECT_EQ(openedPage, directory.Join("ui_file_explorer\\main.html"));
  EXPECT_TRUE(Show("ui_file_explorer.hlp", "folder options"));
  EXPECT_EQ(openedPage, directory.Join("ui_file_explorer\\folder options.html"));
}

TEST_F(Help, OpensNothingForATopicWithoutAPage) {
  EXPECT_FALSE(Show("ui_file_explorer.hlp", "missing"));
  EXPECT_FALSE(Show("missing.hlp", "main"));
  EXPECT_FALSE(Show("ui_file_explorer.hlp", "..\\outside")) << "not outside the help file's folder";
  EXPECT_EQ(openedPage, "");
}

TEST_F(Help, OpensNothingForNullOrEmptyArguments) {
  EXPECT_FALSE(Import_IO_DisplayHelpTopic(nullptr, "ui_file_explorer.hlp", "main"));
  EXPECT_FALSE(Import_IO_DisplayHelpTopic("", "ui_file_explorer.hlp", "main"));
  EXPECT_FALSE(Show(nullptr, "main"));
  EXPECT_FALSE(Show("", "main"));
  EXPECT_FALSE(Show("ui_file_explorer.hlp", nullptr));
  EXPECT_FALSE(Show("ui_file_explorer.hlp", ""));
  EXPECT_EQ(openedPage, "");
}

TEST_F(Help, SaysWhatTheOpenerSays) {
  openerResult = 0;
  EXPECT_FALSE(Show("ui_file_explorer.hlp", "main"));
}

TEST_F(Help, SettingAnOpenerGivesThePreviousOne) {
  EXPECT_EQ(Import_IO_SetHelpOpener(OtherOpener), &RecordPage);
  EXPECT_EQ(Import_IO_SetHelpOpener(nullptr), &OtherOpener);
  EXPECT_EQ(Import_IO_SetHelpOpener(nullptr), nullptr);
}

}  // namespace
