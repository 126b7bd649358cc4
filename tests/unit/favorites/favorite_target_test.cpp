#include "src/favorites/favorite_target.h"

#include <gtest/gtest.h>

namespace file_explorer {
namespace {

TEST(FavoriteTarget, WhatTheHostLoadsIsAFile) {
  EXPECT_EQ(TargetByName("\\\\server\\share\\a.obj", true), FavoriteTarget::kFile);
}

TEST(FavoriteTarget, ANameWithoutAnExtensionIsAFolder) {
  EXPECT_EQ(TargetByName("\\\\server\\share\\models", false), FavoriteTarget::kFolder);
  EXPECT_EQ(TargetByName("\\\\server\\share.old\\models", false), FavoriteTarget::kFolder);
  EXPECT_EQ(TargetByName("\\\\server\\share\\v1.2\\", false), FavoriteTarget::kFolder);
  EXPECT_EQ(TargetByName("\\\\server\\share/v1.2/", false), FavoriteTarget::kFolder);
}

TEST(FavoriteTarget, AnyOtherMayBeEither) {
  EXPECT_EQ(TargetByName("\\\\server\\share\\v1.2", false), FavoriteTarget::kUnknown);
  EXPECT_EQ(TargetByName("\\\\server\\share\\a.unknown", false), FavoriteTarget::kUnknown);
}

}  // namespace
}  // namespace file_explorer
