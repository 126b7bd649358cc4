// Sorting again and again by clicks on the Name header, in groups, with names beyond the code page, while
// files come and go and messages get their turn or don't. EXPLORER_SORT_ROUNDS in the environment sets the
// number of rounds.
#include <gmock/gmock.h>

#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <cstdlib>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "tests/support/explorer/explorer_fixture.h"
#include "tests/support/wait_until.h"

namespace {

using test_support::WaitUntil;

// Names that code page 1252 has, lacks, and would bend; folders; kinds with and without a handler.
constexpr const wchar_t* kFiles[] = {L"a.obj",
                                     L"A1.3ds",
                                     L"b.png",
                                     L"B.txt",
                                     L"caf\x00E9.png",
                                     L"Caf\x00C9 2.png",
                                     L"\x00DCnit.obj",
                                     L"\x00FCnit2.obj",
                                     L"pl\x0101n.obj",
                                     L"plan.obj",
                                     L"\xFF41.obj",
                                     L"\x0434\x043E\x043C.obj",
                                     L"\x0414\x041E.txt",
                                     L"\x6A21\x578B.3ds",
                                     L"\x20AC.png",
                                     L"x\xFF0Fy.png",
                                     L"z.wav",
                                     L"Z2.avi",
                                     L"archive.zip",
                                     L"no extension",
                                     L"hidden",
                                     L"k.xyz"};
constexpr const wchar_t* kFolders[] = {L"Inner", L"\x00C4pfel", L"\x0421\x0446\x0435\x043D\x0430", L"zz"};
constexpr size_t kItems = std::size(kFiles) + std::size(kFolders);
constexpr int kRounds = 30;

int Rounds() {
  char text[16] = "";
  GetEnvironmentVariableA("EXPLORER_SORT_ROUNDS", text, sizeof text);
  return std::max(std::atoi(text), kRounds);
}

class SortRounds : public testing::Test {
 protected:
  void SetUp() override {
    for (const wchar_t* const name : kFiles) fixture_.directory().AddFile(std::wstring(L"files\\") + name);
    for (const wchar_t* const name : kFolders)
      fixture_.directory().AddFolder(std::wstring(L"files\\") + name);
    fixture_.Start();
    ASSERT_TRUE(fixture_.LoadExplorer());
    ASSERT_EQ(fixture_.SayWithHost({{"showfolderviewpanel", nullptr}}), 0U);
    ASSERT_TRUE(fixture_.WaitForFiles(kItems));
  }

  void NotifyClick() {
    NMLISTVIEW click = {};
    click.hdr = {fixture_.FileList(), 1, static_cast<UINT>(LVN_COLUMNCLICK)};
    SendMessageA(GetParent(fixture_.FileList()), WM_NOTIFY, 1, reinterpret_cast<LPARAM>(&click));
  }
  // As a mouse does it.
  void MouseClick(bool posted) {
    const auto header = reinterpret_cast<HWND>(SendMessageA(fixture_.FileList(), LVM_GETHEADER, 0, 0));
    const LPARAM point = MAKELPARAM(30, 8);
    const auto give = posted ? [](HWND window, UINT message, WPARAM first,
                                  LPARAM second) { PostMessageA(window, message, first, second); }
                             : [](HWND window, UINT message, WPARAM first, LPARAM second) {
                                 SendMessageA(window, message, first, second);
                               };
    give(header, WM_MOUSEMOVE, 0, point);
    give(header, WM_LBUTTONDOWN, MK_LBUTTON, point);
    give(header, WM_LBUTTONUP, 0, point);
  }
  bool IsDescending() const {
    const auto header = reinterpret_cast<HWND>(SendMessageA(fixture_.FileList(), LVM_GETHEADER, 0, 0));
    HDITEMA item = {};
    item.mask = HDI_FORMAT;
    SendMessageA(header, HDM_GETITEMA, 0, reinterpret_cast<LPARAM>(&item));
    return (item.fmt & HDF_SORTDOWN) != 0;
  }

  test_support::ExplorerFixture fixture_;
};

TEST_F(SortRounds, EachClickTurnsTheOrder) {
  const std::vector<std::string> upwards = fixture_.FileNames();
  // Folders stay in front; both parts are turned.
  std::vector<std::string> downwards = upwards;
  const auto firstFile = downwards.begin() + static_cast<std::ptrdiff_t>(std::size(kFolders));
  std::reverse(downwards.begin(), firstFile);
  std::reverse(firstFile, downwards.end());
  for (int round = 0; round < Rounds(); ++round) {
    const bool before = IsDescending();
    round % 3 == 0 ? NotifyClick() : MouseClick(round % 3 == 1);
    ASSERT_TRUE(WaitUntil([&] { return IsDescending() != before; })) << "round " << round;
    const std::vector<std::string>& expected = before ? upwards : downwards;
    ASSERT_TRUE(WaitUntil([&] { return fixture_.FileNames() == expected; }))
        << "round " << round << ": " << testing::PrintToString(fixture_.FileNames());
  }
  EXPECT_TRUE(fixture_.boxes().boxes().empty());
}

TEST_F(SortRounds, FilesThatComeAndGoMeanwhileEndInTheirPlaces) {
  std::mt19937 random(20261121);
  std::multiset<std::string> names;
  for (const std::string& name : fixture_.FileNames()) names.insert(name);
  for (int round = 0; round < Rounds(); ++round) {
    const std::wstring extra =
        L"files\\extra " + std::to_wstring(round % 5) + (round % 2 ? L".obj" : L"\x0107.png");
    const std::wstring path = fixture_.directory().Join(extra);
    const unsigned choice = random();
    if (choice & 1) fixture_.directory().AddFile(extra);
    if (choice & 2) NotifyClick();
    if (choice & 4) test_support::PumpMessages();
    if (choice & 8) MouseClick(true);
    if (choice & 16) SendMessageA(fixture_.ExplorerWindow(), WM_COMMAND, 122, 0);
    DeleteFileW(path.c_str());
    if (choice & 32) NotifyClick();
    ASSERT_TRUE(WaitUntil([&] {
      const std::vector<std::string> shown = fixture_.FileNames();
      return std::multiset<std::string>(shown.begin(), shown.end()) == names;
    })) << "round "
        << round;
  }
  EXPECT_TRUE(fixture_.boxes().boxes().empty());
}

}  // namespace
