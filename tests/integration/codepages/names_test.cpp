// Loading, history and favourites take the very file that was chosen, or refuse it by name.
#include <fstream>

#include "src/shellhost/refused_path.h"
#include "tests/integration/codepages/names_fixture.h"

namespace code_page_test {
namespace {

using testing::UnorderedElementsAreArray;

class LoadedNamesTest : public NamesTest {
 protected:
  size_t Documents() { return fixture_.workbench().documents().documents().size(); }
  std::wstring LastDocument() {
    const auto& documents = fixture_.workbench().documents().documents();
    return documents.at(documents.size() - 1).path;
  }
  std::vector<std::wstring> HistoryFile() {
    const std::string file = fixture_.UserDirectory() + "\\history.dat";
    std::vector<std::wstring> names;
    const int count = static_cast<int>(GetPrivateProfileIntA("HistoryList", "NumEntries", 0, file.c_str()));
    for (int i = 0; i < count; ++i) {
      std::array<char, 2048> path = {};
      GetPrivateProfileStringA("HistoryList", ("f" + std::to_string(i)).c_str(), "", path.data(), path.size(),
                               file.c_str());
      names.push_back(FileBehind(path.data()));
    }
    return names;
  }
  // The files behind the references of favorites.dat.
  std::vector<std::wstring> FavoritesFile() {
    std::ifstream file(fixture_.UserDirectory() + "\\favorites.dat", std::ios::binary);
    std::vector<std::wstring> names;
    for (std::string line; std::getline(file, line);) {
      while (!line.empty() && (line.back() == '\r' || line.back() == '\n')) line.pop_back();
      const size_t drive = line.find(":\\");
      if (line.starts_with("n") && drive != std::string::npos)
        names.push_back(FileBehind(line.substr(drive - 1)));
    }
    return names;
  }
};

TEST_F(LoadedNamesTest, ADoubleClickLoadsTheVeryFileAndTheHistoryKeepsIt) {
  Begin();
  for (const std::wstring& name : kNames) {
    const size_t before = Documents();
    DoubleClickRow(name);
    ASSERT_TRUE(WaitUntil([&] { return Documents() > before; })) << base::DisplayNarrow(name);
    EXPECT_TRUE(base::IsSameObject(LastDocument(), fixture_.directory().Join(L"files\\" + name)))
        << base::DisplayNarrow(LastDocument());
  }
  EXPECT_TRUE(fixture_.boxes().boxes().empty());
  fixture_.Close();
  EXPECT_THAT(HistoryFile(), UnorderedElementsAreArray(kNames));
}

TEST_F(LoadedNamesTest, TheHistoryComesBackAndLoadsTheVeryFile) {
  Begin();
  for (const std::wstring& name : kNames) {
    const auto path = base::NarrowPath(fixture_.directory().Join(L"files\\" + name));
    ASSERT_TRUE(path) << base::DisplayNarrow(name);
    std::string text = *path;
    EXPECT_EQ(fixture_.SayWithHost({{"addpathtohistorylist", text.data()}}), 0U);
  }
  fixture_.Close();
  fixture_.Start();
  ASSERT_TRUE(fixture_.LoadExplorer());
  ASSERT_EQ(fixture_.SayWithHost({{"showhistorypanel", nullptr}}), 0U);
  const HWND history = fixture_.PanelChild(32000);
  ASSERT_EQ(SendMessageW(history, LB_GETCOUNT, 0, 0), static_cast<LRESULT>(kNames.size()));
  std::vector<std::wstring> opened;
  for (size_t i = 0; i < kNames.size(); ++i) {
    // The one at the end moves to the top each time.
    SendMessageW(history, LB_SETCURSEL, kNames.size() - 1, 0);
    const size_t before = Documents();
    SendMessageW(GetParent(history), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(history), LBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(history));
    ASSERT_TRUE(WaitUntil([&] { return Documents() > before; }));
    for (const std::wstring& name : kNames) {
      if (base::IsSameObject(LastDocument(), fixture_.directory().Join(L"files\\" + name)))
        opened.push_back(name);
    }
  }
  EXPECT_THAT(opened, UnorderedElementsAreArray(kNames));
}

TEST_F(LoadedNamesTest, FavouritesTakeTheVeryFile) {
  Begin();
  driver_.PressInDialogs(IDOK);
  for (const std::wstring& name : kNames) {
    SelectRows({name});
    const size_t before = driver_.dialogs().size();
    ChooseFor(name, "Add to Halvo Favorites List...");
    ASSERT_TRUE(WaitUntil([&] { return driver_.dialogs().size() > before; })) << base::DisplayNarrow(name);
    test_support::PumpMessages();
  }
  EXPECT_TRUE(fixture_.boxes().boxes().empty());
  fixture_.Close();
  EXPECT_THAT(FavoritesFile(), UnorderedElementsAreArray(kNames));
}

// A folder that is bent would be another one, too.
TEST_F(LoadedNamesTest, TheStartFolderIsTheVeryFolder) {
  fixture_.directory().AddFile(L"files\\plane\\wrong.obj");
  fixture_.directory().AddFile(L"files\\pl\u0101ne\\right.obj");
  Start(2);
  DoubleClickRow(L"pl\u0101ne");
  ASSERT_TRUE(fixture_.WaitForFile("right.obj"));
  fixture_.Close();
  fixture_.options().folder.clear();
  fixture_.Start();
  ASSERT_TRUE(fixture_.LoadExplorer());
  ASSERT_EQ(fixture_.SayWithHost({{"showfolderviewpanel", nullptr}}), 0U);
  EXPECT_TRUE(fixture_.WaitForFile("right.obj"));
}

TEST_F(LoadedNamesTest, AUserDirectoryOfAnyNameKeepsHistoryAndFavourites) {
  const std::wstring place = fixture_.directory().AddFolder(L"us\u0113r \u0414\u0418\u0420");
  SetEnvironmentVariableW(L"HALVO_APPLICATION_DIRECTORY", place.c_str());
  Begin();
  DoubleClickRow(kNames[1]);
  ASSERT_TRUE(WaitUntil([&] { return Documents() == 1; }));
  fixture_.Close();
  EXPECT_NE(GetFileAttributesW((place + L"\\history.dat").c_str()), INVALID_FILE_ATTRIBUTES);
  EXPECT_NE(GetFileAttributesW((place + L"\\favorites.dat").c_str()), INVALID_FILE_ATTRIBUTES);
  EXPECT_EQ(GetFileAttributesA((fixture_.UserDirectory() + "\\history.dat").c_str()),
            INVALID_FILE_ATTRIBUTES);
}

// Half a surrogate pair, which no code page has and for which no file system has a short name.
TEST_F(LoadedNamesTest, WhatCantBeExpressedIsRefusedByName) {
  test_support::MessageBoxRecorder& boxes = fixture_.boxes();
  const std::wstring path =
      std::wstring(L"c:\\no such\\pl\u0101n ") + static_cast<wchar_t>(0xD83D) + L"\u202E.obj";
  EXPECT_EQ(base::NarrowPath(path), std::nullopt);
  file_explorer::RefusePath(nullptr, path);
  ASSERT_EQ(boxes.boxes().size(), 1U);
  EXPECT_EQ(boxes.boxes()[0].caption, "Error");
  EXPECT_THAT(boxes.boxes()[0].buttons, testing::ElementsAre(IDOK));
  EXPECT_TRUE(boxes.boxes()[0].wideText.starts_with(L"'c:\\no such\\pl\u0101n \uFFFD\uFFFD.obj' cannot be named in the code page"))
      << boxes.boxes()[0].text;
}

}  // namespace
}  // namespace code_page_test
