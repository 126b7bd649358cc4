#include "workbench/controls/model/drop_rules.h"

#include <gtest/gtest.h>

namespace controls {
namespace {

using Paths = std::vector<std::wstring>;

constexpr DropKeys kNoKeys = {};
constexpr DropKeys kControl = {true, false, false};
constexpr DropKeys kShift = {false, true, false};
constexpr DropOffer kAll = {};

TEST(DropRules, FilesMoveWithinADriveAndAreCopiedBetweenDrives) {
  EXPECT_EQ(ChooseDropAction(Paths{L"C:\\a\\x.txt"}, L"C:\\b", kNoKeys, kAll), DropAction::kMove);
  EXPECT_EQ(ChooseDropAction(Paths{L"C:\\a\\x.txt"}, L"D:\\b", kNoKeys, kAll), DropAction::kCopy);
  EXPECT_EQ(ChooseDropAction(Paths{L"\\\\server\\one\\x"}, L"\\\\server\\two\\b", kNoKeys, kAll),
            DropAction::kCopy);
  EXPECT_EQ(ChooseDropAction(Paths{L"C:\\a\\x", L"D:\\a\\y"}, L"C:\\b", kNoKeys, kAll), DropAction::kCopy)
      << "files of several drives are copied, all of them";
}

TEST(DropRules, KeysChoose) {
  EXPECT_EQ(ChooseDropAction(Paths{L"C:\\a\\x"}, L"C:\\b", kControl, kAll), DropAction::kCopy);
  EXPECT_EQ(ChooseDropAction(Paths{L"C:\\a\\x"}, L"D:\\b", kShift, kAll), DropAction::kMove);
  EXPECT_EQ(ChooseDropAction(Paths{L"C:\\a\\x"}, L"C:\\b", {true, true, false}, kAll), DropAction::kNone)
      << "a link";
  EXPECT_EQ(ChooseDropAction(Paths{L"C:\\a\\x"}, L"C:\\b", {false, false, true}, kAll), DropAction::kNone)
      << "a link";
}

TEST(DropRules, WhatTheSourceForbidsIsNotDone) {
  EXPECT_EQ(ChooseDropAction(Paths{L"C:\\a\\x"}, L"C:\\b", kNoKeys, {true, false}), DropAction::kCopy);
  EXPECT_EQ(ChooseDropAction(Paths{L"C:\\a\\x"}, L"D:\\b", kNoKeys, {false, true}), DropAction::kMove);
  EXPECT_EQ(ChooseDropAction(Paths{L"C:\\a\\x"}, L"C:\\b", kControl, {false, true}), DropAction::kNone);
  EXPECT_EQ(ChooseDropAction(Paths{L"C:\\a\\x"}, L"C:\\b", kShift, {true, false}), DropAction::kNone);
  EXPECT_EQ(ChooseDropAction(Paths{L"C:\\a\\x"}, L"C:\\b", kNoKeys, {false, false}), DropAction::kNone);
}

TEST(DropRules, AFolderGoesNeitherIntoItselfNorIntoItsOwnChild) {
  for (const DropKeys keys : {kNoKeys, kControl, kShift}) {
    EXPECT_EQ(ChooseDropAction(Paths{L"C:\\a"}, L"C:\\A", keys, kAll), DropAction::kNone);
    EXPECT_EQ(ChooseDropAction(Paths{L"C:\\a"}, L"C:\\a\\b\\c", keys, kAll), DropAction::kNone);
    EXPECT_EQ(ChooseDropAction(Paths{L"C:\\x", L"C:\\a"}, L"C:\\a\\b", keys, kAll), DropAction::kNone)
        << "one of several is enough";
  }
  EXPECT_EQ(ChooseDropAction(Paths{L"C:\\a"}, L"C:\\ab", kNoKeys, kAll), DropAction::kMove)
      << "another folder";
}

TEST(DropRules, WhatIsThereAlreadyStaysUnlessItIsCopied) {
  EXPECT_EQ(ChooseDropAction(Paths{L"C:\\a\\x", L"C:\\a\\y"}, L"C:\\a", kNoKeys, kAll), DropAction::kNone);
  EXPECT_EQ(ChooseDropAction(Paths{L"C:\\a\\x"}, L"C:\\a", kShift, kAll), DropAction::kNone);
  EXPECT_EQ(ChooseDropAction(Paths{L"C:\\a\\x"}, L"C:\\a", kControl, kAll), DropAction::kCopy)
      << "a second copy";
}

TEST(DropRules, NothingAndNowhereAreRefused) {
  EXPECT_EQ(ChooseDropAction(Paths{}, L"C:\\a", kNoKeys, kAll), DropAction::kNone);
  EXPECT_EQ(ChooseDropAction(Paths{L"C:\\a\\x"}, L"", kNoKeys, kAll), DropAction::kNone);
}

}  // namespace
}  // namespace controls
