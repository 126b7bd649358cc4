#include "workbench/app/main/command_line.h"

#include <gtest/gtest.h>

namespace workbench {
namespace {

std::optional<CommandLine> Parse(const std::vector<std::wstring>& arguments) {
  std::wstring error;
  const auto result = ParseCommandLine(arguments, &error);
  EXPECT_EQ(result.has_value(), error.empty());
  return result;
}

TEST(CommandLine, NothingGivenLeavesEverythingOpen) {
  const auto line = Parse({});
  ASSERT_TRUE(line.has_value());
  EXPECT_TRUE(line->plugin.empty());
  EXPECT_TRUE(line->profile.empty());
  EXPECT_TRUE(line->folder.empty());
  EXPECT_EQ(line->size, std::nullopt);
}

TEST(CommandLine, OptionsAndFolderInAnyOrder) {
  const auto line =
      Parse({L"--size", L"1280x800", L"C:\\models", L"--plugin", L"x.dll", L"--profile", L"p.ini"});
  ASSERT_TRUE(line.has_value());
  EXPECT_EQ(line->size, (Size{1280, 800}));
  EXPECT_EQ(line->folder, L"C:\\models");
  EXPECT_EQ(line->plugin, L"x.dll");
  EXPECT_EQ(line->profile, L"p.ini");
}

TEST(CommandLine, NonsenseIsRefusedWithASentence) {
  const std::vector<std::wstring> lines[] = {
      {L"--unknown", L"1"},       {L"--plugin"},         {L"--plugin", L""},
      {L"--size", L"abc"},        {L"--size", L"10x10"}, {L"--size", L"800"},
      {L"--size", L"x600"},       {L"--size", L"800x"},  {L"--size", L"-5x600"},
      {L"--size", L"999999x600"}, {L"a", L"b"},
  };
  for (const auto& line : lines) EXPECT_EQ(Parse(line).has_value(), false);
}

}  // namespace
}  // namespace workbench
