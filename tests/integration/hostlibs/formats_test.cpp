// The file of formats beside the library: missing, damaged, or another one.
#include <gtest/gtest.h>
#include <windows.h>

#include <string>

#include "src/host/vc64_tx.h"
#include "tests/support/temp_directory.h"

namespace {

// A copy of the library in a folder of its own, so that it finds the file that the test has put there.
class LibraryCopy {
 public:
  explicit LibraryCopy(const char* formats) {
    wchar_t source[MAX_PATH];
    GetModuleFileNameW(GetModuleHandleW(L"vc64_tx.dll"), source, MAX_PATH);
    const std::wstring copy = directory_.Join(std::wstring_view(L"vc64_tx_copy.dll"));
    CopyFileW(source, copy.c_str(), FALSE);
    if (formats) directory_.AddFile(L"vc64_file_formats.txt", formats);
    library_ = LoadLibraryW(copy.c_str());
  }
  ~LibraryCopy() {
    if (library_) FreeLibrary(library_);
  }

  uint32_t TypesOf(const char* name) const {
    const auto token = Function<decltype(&Tx_Inquire_Token)>("Tx_Inquire_Token");
    const auto types = Function<decltype(&Tx_FileFormatHandler_GetHandlerTypesFromFilenameExtension)>(
        "Tx_FileFormatHandler_GetHandlerTypesFromFilenameExtension");
    return types(token("import_and_viewer"), name, 0);
  }
  int Count() const {
    const auto token = Function<decltype(&Tx_Inquire_Token)>("Tx_Inquire_Token");
    const auto count = Function<decltype(&Tx_FileFormatHandler_DetermineNumberOfRegisteredFileFormats)>(
        "Tx_FileFormatHandler_DetermineNumberOfRegisteredFileFormats");
    return count(token("import_and_viewer"), 0xFFFFFFFF);
  }
  explicit operator bool() const { return library_ != nullptr; }

 private:
  template <typename F>
  F Function(const char* name) const {
    return reinterpret_cast<F>(reinterpret_cast<void*>(GetProcAddress(library_, name)));
  }

  test_support::TempDirectory directory_;  // removed after the library is unloaded
  HMODULE library_ = nullptr;
};

TEST(FormatsFile, WithoutOneTheRegistryIsEmpty) {
  const LibraryCopy library(nullptr);
  ASSERT_TRUE(library);
  EXPECT_EQ(library.Count(), 0);
  EXPECT_EQ(library.TypesOf("a.obj"), 0u);
}

TEST(FormatsFile, BadLinesAreSkipped) {
  const LibraryCopy library(
      "garbage\n\xFF\xFE\x01\n"
      "{47EAA099-2CB6-416D-86DC-283CF0480FF9} | importer | 3d | .mine | Mine\n"
      "{47EAA099-2CB6-416D-86DC-283CF0480FFA} | importer | 3d\n");
  ASSERT_TRUE(library);
  EXPECT_EQ(library.Count(), 1);
  EXPECT_EQ(library.TypesOf("a.mine"), kTxTypeObject3D + 0u);
}

TEST(FormatsFile, TheLibraryCanBeUnloadedAndLoadedAgain) {
  for (int i = 0; i < 3; ++i) {
    const LibraryCopy library("{47EAA099-2CB6-416D-86DC-283CF0480FF9} | viewer | text | .mine | Mine\n");
    ASSERT_TRUE(library);
    EXPECT_EQ(library.TypesOf("a.mine"), kTxTypeText + 0u);
  }
}

}  // namespace
