#include "workbench/app/documents/path_form.h"

#include <gtest/gtest.h>

namespace workbench {
namespace {

TEST(ExtendedPath, LeavesPlainPathsAlone) {
  for (const wchar_t* path :
       {L"", L"c:", L"c:\\", L"c:\\a\\b.txt", L"c:/a/b", L"\\\\server\\share\\a", L"a.", L"nul",
        L"\\\\?\\c:\\a.", L"\\\\.\\pipe\\x.", L"c:\\console\\com\\auxiliary.txt", L"c:\\com10"}) {
    EXPECT_EQ(ExtendedPath(path), path);
  }
}

TEST(ExtendedPath, KeepsNamesThatThePlainFormWouldChange) {
  EXPECT_EQ(ExtendedPath(L"c:\\a\\name."), L"\\\\?\\c:\\a\\name.");
  EXPECT_EQ(ExtendedPath(L"c:\\blank \\x"), L"\\\\?\\c:\\blank \\x");
  EXPECT_EQ(ExtendedPath(L"c:/a/aux.txt"), L"\\\\?\\c:\\a\\aux.txt");
  EXPECT_EQ(ExtendedPath(L"c:\\Com1"), L"\\\\?\\c:\\Com1");
  EXPECT_EQ(ExtendedPath(L"\\\\server\\share\\nul"), L"\\\\?\\UNC\\server\\share\\nul");
}

TEST(ExtendedPath, ExtendsLongPaths) {
  const std::wstring name(300, L'x');
  EXPECT_EQ(ExtendedPath(L"c:\\" + name), L"\\\\?\\c:\\" + name);
  EXPECT_EQ(ExtendedPath(L"\\\\server\\share\\" + name), L"\\\\?\\UNC\\server\\share\\" + name);
  EXPECT_EQ(ExtendedPath(L"c:\\\\" + name), L"\\\\?\\c:\\" + name);
  EXPECT_EQ(ExtendedPath(name), name);
}

TEST(ExtendedPath, LeavesRelativePartsToThePlainForm) {
  EXPECT_EQ(ExtendedPath(L"c:\\a.\\..\\b"), L"c:\\a.\\..\\b");
  EXPECT_EQ(ExtendedPath(L"c:\\.\\b."), L"c:\\.\\b.");
}

}  // namespace
}  // namespace workbench
