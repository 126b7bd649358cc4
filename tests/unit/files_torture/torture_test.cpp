#include "tests/support/files/torture.h"

#include <gtest/gtest.h>

#include <cstdio>

#include "base/files/wine_file_system.h"

namespace {

// A longer run: TRANSFER_TORTURE_SEED and TRANSFER_TORTURE_OPERATIONS.
TEST(TransferTorture, WhateverHappensNothingIsLost) {
  test_support::TortureOptions options;
  options.seed = 20261122;
  options.operations = 2500;
  options.TakeFromEnvironment();
  base::wine::WineFileSystem files({[](const std::wstring&) { return std::string("/."); }, nullptr});
  const test_support::TortureResult result = RunTorture(options, files);
  std::printf("seed %llu: %s\n", static_cast<unsigned long long>(options.seed), result.Summary().c_str());
  for (const std::string& problem : result.problems) ADD_FAILURE() << problem;
  EXPECT_EQ(result.operations, options.operations);
  EXPECT_GT(result.kills, options.operations / 50);
  EXPECT_GT(result.wholeUndos, options.operations / 50);
}

}  // namespace
