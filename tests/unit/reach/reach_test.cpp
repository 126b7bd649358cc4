#include "base/reach/reach.h"

#include <gtest/gtest.h>

namespace base {
namespace {

TEST(Reach, APathOnADriveHasItsLetter) {
  EXPECT_EQ(DriveLetterOf(L"C:\\a\\b"), L'C');
  EXPECT_EQ(DriveLetterOf(L"z:/a"), L'Z');
  EXPECT_EQ(DriveLetterOf(L"d:"), L'D');
  EXPECT_EQ(DriveLetterOf(L"\\\\?\\e:\\long"), L'E');
}

TEST(Reach, OtherPathsHaveNone) {
  for (const wchar_t* path :
       {L"", L"a", L"a.obj", L"\\a", L"\\\\server\\share", L"\\\\?\\UNC\\server\\share", L"\\\\.\\C:",
        L"::{20D04FE0-3AEA-1069-A2D8-08002B30309D}", L"1:\\a", L"\u00c4:\\a"}) {
    EXPECT_EQ(DriveLetterOf(path), L'\0') << path;
  }
}

TEST(Reach, OtherMachinesAndDevicesAreBeyondTheDrives) {
  for (const wchar_t* path : {L"\\\\server\\share\\a", L"//server/share", L"\\/server\\share",
                              L"\\\\?\\UNC\\server\\share", L"\\\\.\\pipe\\a", L"\\\\"}) {
    EXPECT_TRUE(IsBeyondTheDrives(path)) << path;
  }
  for (const wchar_t* path : {L"", L"\\", L"C:\\a", L"\\\\?\\C:\\a", L"\\a\\b", L"name", L"::{20D04FE0}"}) {
    EXPECT_FALSE(IsBeyondTheDrives(path)) << path;
  }
}

TEST(Reach, DrivesThatHaveToBeReachedOrLoadedMayHang) {
  EXPECT_TRUE(DriveMayHang(DriveKind::kRemote, L'N'));
  EXPECT_TRUE(DriveMayHang(DriveKind::kOptical, L'D'));
  EXPECT_TRUE(DriveMayHang(DriveKind::kRemovable, L'A')) << "a floppy disk";
  EXPECT_FALSE(DriveMayHang(DriveKind::kRemovable, L'E')) << "a stick";
  EXPECT_FALSE(DriveMayHang(DriveKind::kFixed, L'C'));
  EXPECT_FALSE(DriveMayHang(DriveKind::kNone, L'Q')) << "there is nothing to wait for";
}

}  // namespace
}  // namespace base
