// The module as a file: what it exports and imports.
#include <gmock/gmock.h>
#include <windows.h>

#include <objbase.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "tests/support/explorer/explorer_fixture.h"

namespace {

using testing::ElementsAre;

class ModuleFileTest : public testing::Test {
 protected:
  void SetUp() override {
    fixture_.EntryPoint();
    base_ = reinterpret_cast<const char*>(GetModuleHandleA("ui_file_explorer.dll"));
    ASSERT_NE(base_, nullptr);
  }

  const IMAGE_DATA_DIRECTORY& Directory(int index) const {
    const auto* const dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base_);
    const auto* const headers = reinterpret_cast<const IMAGE_NT_HEADERS64*>(base_ + dos->e_lfanew);
    return headers->OptionalHeader.DataDirectory[index];
  }

  test_support::ExplorerFixture fixture_;
  const char* base_ = nullptr;
};

TEST_F(ModuleFileTest, ExportsTheEntryPointAndNothingElse) {
  const auto* const exports =
      reinterpret_cast<const IMAGE_EXPORT_DIRECTORY*>(base_ + Directory(IMAGE_DIRECTORY_ENTRY_EXPORT).VirtualAddress);
  const auto* const names = reinterpret_cast<const DWORD*>(base_ + exports->AddressOfNames);
  std::vector<std::string> exported;
  for (DWORD i = 0; i < exports->NumberOfNames; ++i) exported.emplace_back(base_ + names[i]);
  EXPECT_THAT(exported, ElementsAre("Teskar_Plugin_EntryPoint"));
  EXPECT_EQ(exports->NumberOfFunctions, 1U);
}

TEST_F(ModuleFileTest, ImportsWindowsAndTheTwoHostLibrariesAlone) {
  const std::set<std::string> windows = {"advapi32.dll", "comctl32.dll", "comdlg32.dll", "gdi32.dll",   "kernel32.dll",
                                         "msvcrt.dll",   "ole32.dll",    "oleaut32.dll", "shell32.dll", "shlwapi.dll",
                                         "user32.dll",   "uuid.dll",     "version.dll"};
  std::set<std::string> others;
  const auto* import =
      reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base_ + Directory(IMAGE_DIRECTORY_ENTRY_IMPORT).VirtualAddress);
  for (; import->Name != 0; ++import) {
    std::string name = base_ + import->Name;
    std::transform(name.begin(), name.end(), name.begin(), [](char c) { return static_cast<char>(tolower(c)); });
    if (!windows.contains(name)) others.insert(name);
  }
  EXPECT_THAT(others, ElementsAre("vc64_imp.dll", "vc64_tx.dll"));
}

TEST_F(ModuleFileTest, CarriesItsResources) {
  const HMODULE module = GetModuleHandleA("ui_file_explorer.dll");
  for (const char* const name : {"ToolbarBitmaps1", "ToolbarFavs", "FolderBitmap", "PanelBitmap"}) {
    const HBITMAP bitmap = LoadBitmapA(module, name);
    EXPECT_NE(bitmap, nullptr) << name;
    DeleteObject(bitmap);
  }
  EXPECT_NE(FindResourceA(module, "AboutBox", RT_DIALOG), nullptr);
  EXPECT_NE(FindResourceA(module, "AddNewFavouritesDialog", RT_DIALOG), nullptr);
  EXPECT_NE(FindResourceA(module, "history_sorting_popup_menu", RT_MENU), nullptr);
  EXPECT_NE(FindResourceA(module, MAKEINTRESOURCEA(2), RT_MANIFEST), nullptr);
}

TEST_F(ModuleFileTest, TheToolbarStripHoldsThirtyEightPictures) {
  const HBITMAP bitmap = LoadBitmapA(GetModuleHandleA("ui_file_explorer.dll"), "ToolbarBitmaps1");
  BITMAP info = {};
  GetObjectA(bitmap, sizeof(info), &info);
  DeleteObject(bitmap);
  EXPECT_GE(info.bmWidth, 38 * 16);
  EXPECT_EQ(info.bmHeight, 15);
}

TEST(ModuleLoadTest, IsRefusedOnAThreadOfTheOtherApartmentModel) {
  HMODULE loaded = reinterpret_cast<HMODULE>(1);
  const auto load = [](void* result) -> DWORD {
    CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    *static_cast<HMODULE*>(result) = LoadLibraryA("ui_file_explorer.dll");
    CoUninitialize();
    return 0;
  };
  const HANDLE thread = CreateThread(nullptr, 0, load, &loaded, 0, nullptr);
  WaitForSingleObject(thread, INFINITE);
  CloseHandle(thread);
  EXPECT_EQ(loaded, nullptr);
}

struct Tooltip {
  int id;
  const char* text;
};

TEST_F(ModuleFileTest, TooltipsStandUnderTheirCommands) {
  const HMODULE module = GetModuleHandleA("ui_file_explorer.dll");
  for (const Tooltip& tooltip :
       {Tooltip{99, "Window Docking Options"}, Tooltip{107, "Show History View in the 'Selector Window'"},
        Tooltip{117, "Thumb Nail Mode"}, Tooltip{128, ""}, Tooltip{135, "Show or hide history list icons"},
        Tooltip{924, "Show Go-To Directory List"}, Tooltip{112, "Start Slide Show"}}) {
    char text[1024] = "";
    LoadStringA(module, static_cast<UINT>(tooltip.id), text, sizeof(text));
    EXPECT_STREQ(text, tooltip.text) << tooltip.id;
  }
}

}  // namespace
