#include <gtest/gtest.h>
#include <windows.h>

#include <string>

#include "src/host/vc64_tx.h"
#include "tests/support/temp_directory.h"

namespace {

std::string Joined(const char* folder, const char* name) {
  char result[kTxPathSize] = "unchanged";
  EXPECT_TRUE(Tx_ConcatenatePathAndFilename(folder, name, result, sizeof(result)));
  return result;
}

TEST(Concatenate, JoinsWithOneSeparator) {
  EXPECT_EQ(Joined("c:", "textures"), "c:\\textures");
  EXPECT_EQ(Joined("d:\\work\\", "textures"), "d:\\work\\textures");
  EXPECT_EQ(Joined("c:\\a", ""), "c:\\a\\");
  EXPECT_EQ(Joined("", "a"), "a");
}

TEST(Concatenate, NullCountsAsEmpty) {
  EXPECT_EQ(Joined(nullptr, "a"), "a");
  EXPECT_EQ(Joined("c:\\a", nullptr), "c:\\a\\");
  EXPECT_EQ(Joined(nullptr, nullptr), "");
}

TEST(Concatenate, WhatDoesNotFitIsRefusedWithAnEmptyResult) {
  char result[8] = "xxxxxxx";
  EXPECT_FALSE(Tx_ConcatenatePathAndFilename("c:\\a", "bcd", result, sizeof(result)));
  EXPECT_STREQ(result, "");
  EXPECT_TRUE(Tx_ConcatenatePathAndFilename("c:\\a", "bc", result, sizeof(result)));
  EXPECT_STREQ(result, "c:\\a\\bc");
  EXPECT_FALSE(Tx_ConcatenatePathAndFilename("c:\\a", "b", nullptr, 100));
  EXPECT_FALSE(Tx_ConcatenatePathAndFilename("c:\\a", "b", result, 0));
}

TEST(Concatenate, NoPathIsLongerThanItsLimitWhateverTheBuffer) {
  std::string result(10000, 'x');
  const std::string name(kTxPathSize, 'n');
  EXPECT_FALSE(Tx_ConcatenatePathAndFilename("c:", name.c_str(), result.data(), result.size()));
  EXPECT_EQ(result[0], '\0');
  EXPECT_TRUE(Tx_ConcatenatePathAndFilename("", name.substr(1).c_str(), result.data(), result.size()));
}

TEST(Concatenate, TheResultMayTakeThePlaceOfTheFolder) {
  char path[64] = "c:\\a";
  EXPECT_TRUE(Tx_ConcatenatePathAndFilename(path, "b", path, sizeof(path)));
  EXPECT_STREQ(path, "c:\\a\\b");
  EXPECT_TRUE(Tx_ConcatenatePathAndFilename("d:", path + 3, path, sizeof(path)));
  EXPECT_STREQ(path, "d:\\a\\b");
}

TEST(CheckFileExtension, ReplacesInPlace) {
  char path[32] = "c:\\a.b\\favorites.dat";
  EXPECT_TRUE(Tx_Check_File_Extension(path, sizeof(path), ".bak"));
  EXPECT_STREQ(path, "c:\\a.b\\favorites.bak");
  EXPECT_TRUE(Tx_Check_File_Extension(path, sizeof(path), "b"));
  EXPECT_STREQ(path, "c:\\a.b\\favorites.b");
}

TEST(CheckFileExtension, LeavesThePathWhenTheResultDoesNotFit) {
  char path[8] = "abc.d";
  EXPECT_FALSE(Tx_Check_File_Extension(path, sizeof(path), ".long"));
  EXPECT_STREQ(path, "abc.d");
  EXPECT_FALSE(Tx_Check_File_Extension(nullptr, 8, ".bak"));
  EXPECT_FALSE(Tx_Check_File_Extension(path, sizeof(path), nullptr));
  EXPECT_FALSE(Tx_Check_File_Extension(path, 0, ".b"));
  EXPECT_FALSE(Tx_Check_File_Extension(path, 5, ".b")) << "the path does not end in the buffer";
  EXPECT_STREQ(path, "abc.d");
}

TEST(CheckForFileExtension, IgnoresTheCaseOfLetters) {
  EXPECT_TRUE(Tx_Check_For_File_Extension("c:\\a\\Models.ZIP", ".zip"));
  EXPECT_FALSE(Tx_Check_For_File_Extension("c:\\a.zip\\models", ".zip"));
  EXPECT_FALSE(Tx_Check_For_File_Extension("models.7zip", ".zip"));
  EXPECT_FALSE(Tx_Check_For_File_Extension(nullptr, ".zip"));
  EXPECT_FALSE(Tx_Check_For_File_Extension("models.zip", nullptr));
  EXPECT_FALSE(Tx_Check_For_File_Extension("models.zip", ""));
}

TEST(CompareMultipleFileExtensions, KnowsEveryWayOfWriting) {
  for (const char* list : {".3ds;.obj", "3ds,obj", "*.3ds *.obj", " .obj ; "}) {
    EXPECT_TRUE(Tx_Compare_Multiple_File_Extensions("Model.Obj", list)) << list;
    EXPECT_FALSE(Tx_Compare_Multiple_File_Extensions("model.stl", list)) << list;
  }
  EXPECT_FALSE(Tx_Compare_Multiple_File_Extensions(nullptr, ".obj"));
  EXPECT_FALSE(Tx_Compare_Multiple_File_Extensions("model.obj", nullptr));
  EXPECT_FALSE(Tx_Compare_Multiple_File_Extensions("", ""));
}

TEST(ExtractBaseFile, SplitsAPath) {
  char part[16];
  EXPECT_TRUE(Tx_ExtractBaseFileName("c:\\a\\b.txt", part, sizeof(part)));
  EXPECT_STREQ(part, "b.txt");
  EXPECT_TRUE(Tx_ExtractBaseFilePath("c:\\a\\b.txt", part, sizeof(part)));
  EXPECT_STREQ(part, "c:\\a\\");
  EXPECT_TRUE(Tx_ExtractBaseFilePath("b.txt", part, sizeof(part)));
  EXPECT_STREQ(part, "");
  EXPECT_TRUE(Tx_ExtractBaseFileName("c:b.txt", part, sizeof(part)));
  EXPECT_STREQ(part, "b.txt");
}

TEST(ExtractBaseFile, RefusesWhatDoesNotFitAndNull) {
  char part[5] = "xxxx";
  EXPECT_FALSE(Tx_ExtractBaseFileName("c:\\a\\b.txt", part, sizeof(part)));
  EXPECT_STREQ(part, "");
  strcpy(part, "xxxx");
  EXPECT_FALSE(Tx_ExtractBaseFilePath("c:\\a\\b.txt", part, sizeof(part)));
  EXPECT_STREQ(part, "");
  strcpy(part, "xxxx");
  EXPECT_FALSE(Tx_ExtractBaseFileName(nullptr, part, sizeof(part)));
  EXPECT_STREQ(part, "");
  EXPECT_FALSE(Tx_ExtractBaseFilePath(nullptr, part, sizeof(part)));
  EXPECT_FALSE(Tx_ExtractBaseFileName("a", nullptr, 5));
  EXPECT_FALSE(Tx_ExtractBaseFilePath("a", part, 0));
}

TEST(FileExists, KnowsFilesAndFolders) {
  const test_support::TempDirectory directory;
  directory.AddFile(L"a.txt");
  EXPECT_TRUE(Tx_File_Exists(directory.Join("a.txt").c_str()));
  EXPECT_TRUE(Tx_File_Exists(directory.narrow().c_str()));
  EXPECT_FALSE(Tx_File_Exists(directory.Join("b.txt").c_str()));
  EXPECT_FALSE(Tx_File_Exists(""));
  EXPECT_FALSE(Tx_File_Exists(nullptr));
}

TEST(FileExists, KnowsPathsLongerThanTheOldLimit) {
  const test_support::TempDirectory directory;
  const std::wstring folder(120, L'f');
  directory.AddFile(folder + L"\\" + folder + L"\\a.txt");
  const std::string narrowFolder(120, 'f');
  EXPECT_TRUE(Tx_File_Exists(directory.Join(narrowFolder + "\\" + narrowFolder + "\\a.txt").c_str()));
  EXPECT_FALSE(Tx_File_Exists(directory.Join(narrowFolder + "\\" + narrowFolder + "\\b.txt").c_str()));
}

TEST(FileExists, LeavesTheErrorModeAsItWas) {
  const DWORD before = GetThreadErrorMode();
  Tx_File_Exists("q:\\nothing");
  EXPECT_EQ(GetThreadErrorMode(), before);
}

TEST(AppendPathSeparator, AddsOneWhereItIsMissing) {
  char path[8] = "c:\\a";
  EXPECT_TRUE(Tx_AppendPathSeparator(path, sizeof(path)));
  EXPECT_STREQ(path, "c:\\a\\");
  EXPECT_TRUE(Tx_AppendPathSeparator(path, sizeof(path)));
  EXPECT_STREQ(path, "c:\\a\\");
  char slash[8] = "a/";
  EXPECT_TRUE(Tx_AppendPathSeparator(slash, sizeof(slash)));
  EXPECT_STREQ(slash, "a/");
  char empty[8] = "";
  EXPECT_TRUE(Tx_AppendPathSeparator(empty, sizeof(empty)));
  EXPECT_STREQ(empty, "");
}

TEST(AppendPathSeparator, RefusesWhatDoesNotFit) {
  char path[5] = "c:\\a";
  EXPECT_FALSE(Tx_AppendPathSeparator(path, sizeof(path)));
  EXPECT_STREQ(path, "c:\\a");
  EXPECT_FALSE(Tx_AppendPathSeparator(nullptr, 5));
  EXPECT_FALSE(Tx_AppendPathSeparator(path, 0));
}

}  // namespace
