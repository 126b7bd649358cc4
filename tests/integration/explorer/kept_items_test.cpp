// History and favourites in the running explorer: what they open, and what the user's files hold afterwards.
#include <gmock/gmock.h>
#include <windows.h>

#include <commctrl.h>

#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>

#include "tests/integration/explorer/running_explorer.h"
#include "tests/support/wait_until.h"

namespace {

using namespace explorer_tests;
using test_support::PumpMessages;
using testing::HasSubstr;

constexpr int kHistoryList = 32000;
constexpr int kFavoritesTree = 104;

class KeptItemsTest : public RunningExplorer {
 protected:
  void SetUp() override {
    fixture_.directory().AddFile(L"files\\below\\inner.txt");
    fixture_.directory().AddFile(L"files\\a.txt", "some text");
    fixture_.directory().AddFile(L"files\\b.txt", "more text");
    const std::string history = "[HistoryList]\r\nNumEntries=2\r\nd0=b.txt\r\nm0=" + TimeOf(2026) +
                                "\r\nf0=" + FilePath("b.txt") + "\r\nd1=a.txt\r\nm1=" + TimeOf(2025) +
                                "\r\nf1=" + FilePath("a.txt") + "\r\n";
    const std::string favorites =
        "K={0}\r\ns=49\r\nd=Favorites\r\nE\r\nK={1}\r\ns=4\r\ni=1\r\nd=a file\r\nn=" + FilePath("a.txt") +
        "\r\np={0}\r\nK={2}\r\ns=4\r\ni=1\r\nd=a folder\r\nn=" + FilePath("below") + "\r\np={0}\r\n";
    fixture_.directory().AddFile(L"user\\history.dat", history);
    fixture_.directory().AddFile(L"user\\favorites.dat", favorites);
    Begin(3);
  }

  // 1 January of the year, in the profile file's form: eight words, low byte first, and the sum of the bytes.
  static std::string TimeOf(unsigned year) {
    const unsigned low = year & 0xFF;
    const unsigned high = year >> 8;
    char text[40];
    std::snprintf(text, sizeof text, "%02X%02X010000000100%s%02X", low, high, "0000000000000000",
                  (low + high + 2) & 0xFF);
    return text;
  }
  std::string UserFile(const char* name) const {
    std::ifstream file(fixture_.UserDirectory() + "\\" + name, std::ios::binary);
    std::stringstream text;
    text << file.rdbuf();
    return text.str();
  }
  std::string HistoryRow(int row) const {
    char text[MAX_PATH] = "";
    SendMessageA(fixture_.PanelChild(kHistoryList), LB_GETTEXT, static_cast<WPARAM>(row),
                 reinterpret_cast<LPARAM>(text));
    return text;
  }
  // Enter on the item that stands `down` rows below the root.
  void OpenFavorite(int down) {
    const HWND tree = fixture_.PanelChild(kFavoritesTree);
    LRESULT item = SendMessageA(tree, TVM_GETNEXTITEM, TVGN_ROOT, 0);
    for (; down > 0; --down) item = SendMessageA(tree, TVM_GETNEXTITEM, TVGN_NEXTVISIBLE, item);
    SendMessageA(tree, TVM_SELECTITEM, TVGN_CARET, item);
    SendMessageA(tree, WM_KEYDOWN, VK_RETURN, 1);
  }
  size_t Documents() { return fixture_.workbench().documents().documents().size(); }
};

TEST_F(KeptItemsTest, AClickOnAHistoryRowLoadsTheFileAndPutsItOnTop) {
  Press(kFoldersToolbar, 107);
  const HWND list = fixture_.PanelChild(kHistoryList);
  ASSERT_EQ(HistoryRow(1), "a.txt");
  RECT row = {};
  SendMessageA(list, LB_GETITEMRECT, 1, reinterpret_cast<LPARAM>(&row));
  const LPARAM point = MAKELPARAM(row.left + 30, row.top + 5);
  SendMessageA(list, WM_LBUTTONDOWN, MK_LBUTTON, point);
  SendMessageA(list, WM_LBUTTONUP, 0, point);
  PumpMessages();
  EXPECT_EQ(HandOver(), FilePath("a.txt"));
  EXPECT_EQ(Documents(), 1U);
  EXPECT_EQ(HistoryRow(0), "a.txt");
  EXPECT_EQ(SendMessageA(list, LB_GETCURSEL, 0, 0), 0);
  fixture_.Close();
  EXPECT_THAT(UserFile("history.dat"), HasSubstr("f0=" + FilePath("a.txt") + "\r\n"));
}

TEST_F(KeptItemsTest, AFavoriteFileIsLoaded) {
  Press(kFoldersToolbar, 108);
  OpenFavorite(1);
  PumpMessages();
  EXPECT_EQ(HandOver(), FilePath("a.txt"));
  EXPECT_EQ(Documents(), 1U);
}

TEST_F(KeptItemsTest, AFavoriteFolderIsShownInTheFileView) {
  Press(kFoldersToolbar, 108);
  OpenFavorite(2);
  EXPECT_TRUE(fixture_.WaitForFile("inner.txt"));
  EXPECT_EQ(Documents(), 0U);
}

TEST_F(KeptItemsTest, BoxesOfTheFavoritesBelongToTheMainWindow) {
  Press(kFoldersToolbar, 108);
  const HWND tree = fixture_.PanelChild(kFavoritesTree);
  SendMessageA(tree, TVM_SELECTITEM, TVGN_CARET, SendMessageA(tree, TVM_GETNEXTITEM, TVGN_ROOT, 0));
  Press(kFavoritesToolbar, 130);
  Select({"a.txt"});
  Press(kFavoritesToolbar, 132);  // is listed
  ASSERT_EQ(fixture_.boxes().boxes().size(), 2U);
  EXPECT_EQ(fixture_.boxes().boxes()[0].text, "This item cannot be renamed");
  EXPECT_EQ(fixture_.boxes().boxes()[1].text,
            "The directory path is already contained within the Favorites list.");
  for (const auto& box : fixture_.boxes().boxes()) {
    EXPECT_EQ(box.owner, fixture_.workbench().window());
    EXPECT_EQ(box.caption, "Error");
    EXPECT_EQ(box.icon, 0U);
  }
}

}  // namespace
