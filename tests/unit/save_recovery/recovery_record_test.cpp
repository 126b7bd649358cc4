// The record beside a file that is being saved: whole or worthless, and what it says about the file.
#include "base/files/recovery_record.h"

#include <gtest/gtest.h>

namespace base {
namespace {

RecoveryRecord Sample() {
  RecoveryRecord record;
  record.text = "[List]\nCount=2\na=one\nb=two\n";
  record.previous = Fingerprint("old");
  return record;
}

TEST(RecoveryRecord, ComesBackAsItWasWritten) {
  for (const std::string& text : {std::string(), std::string("a\nb\r\n\0c", 7), std::string(100000, 'x')}) {
    for (const auto& previous : {std::optional<std::uint64_t>(), std::optional<std::uint64_t>(0),
                                 std::optional<std::uint64_t>(~std::uint64_t{0})}) {
      const auto read = ParseRecoveryRecord(FormatRecoveryRecord({text, previous}));
      ASSERT_TRUE(read);
      EXPECT_EQ(read->text, text);
      EXPECT_EQ(read->previous, previous);
    }
  }
}

TEST(RecoveryRecord, CutAnywhereItIsNone) {
  const std::string bytes = FormatRecoveryRecord(Sample());
  for (std::size_t length = 0; length < bytes.size(); ++length) {
    EXPECT_FALSE(ParseRecoveryRecord(bytes.substr(0, length))) << length;
  }
  EXPECT_FALSE(ParseRecoveryRecord(bytes + "x"));
}

TEST(RecoveryRecord, ChangedAnywhereItIsNone) {
  const std::string bytes = FormatRecoveryRecord(Sample());
  for (std::size_t at = 0; at < bytes.size(); ++at) {
    for (const char change : {1, 32}) {
      std::string changed = bytes;
      changed[at] = static_cast<char>(changed[at] ^ change);
      const auto read = ParseRecoveryRecord(changed);
      // The digits of the check sum may be of either case.
      const RecoveryRecord harmless = read.value_or(Sample());
      EXPECT_EQ(harmless.text, Sample().text) << at;
      EXPECT_EQ(harmless.previous, Sample().previous) << at;
    }
  }
}

TEST(RecoveryRecord, ALengthThatOverflowsIsNone) {
  EXPECT_FALSE(ParseRecoveryRecord("save-recovery-1 0000000000000000 99999999999999999999999 none\n"));
  EXPECT_FALSE(ParseRecoveryRecord("save-recovery-1 0000000000000000 -1 none\n"));
}

TEST(ProgressOfSave, TellsHowFarTheSaveHadCome) {
  const RecoveryRecord record = Sample();
  struct Row {
    const char* what;
    std::optional<std::string> current;
    SaveProgress progress;
  };
  const Row rows[] = {
      {"as before", "old", SaveProgress::kNotBegun},
      {"renamed away", std::nullopt, SaveProgress::kUnderWay},
      {"emptied", "", SaveProgress::kUnderWay},
      {"a beginning", "[List]\r\nCount=2\r\na=o", SaveProgress::kUnderWay},
      {"all but the last line end", "[List]\r\nCount=2\r\na=one\r\nb=two", SaveProgress::kUnderWay},
      {"all", "[List]\nCount=2\na=one\nb=two\n", SaveProgress::kDone},
      {"all, with other line ends and empty lines", "\r\n[List]\r\nCount=2\r\n\r\na=one\r\nb=two\r\n",
       SaveProgress::kDone},
      {"another text", "[List]\r\nCount=3\r\n", SaveProgress::kUnknown},
      {"zeros", std::string(20, '\0'), SaveProgress::kUnknown},
      {"longer than the text", "[List]\nCount=2\na=one\nb=two\nc=three\n", SaveProgress::kUnknown},
  };
  for (const Row& row : rows) EXPECT_EQ(ProgressOfSave(record, row.current), row.progress) << row.what;
}

TEST(ProgressOfSave, AFileThatWasNotThereBefore) {
  const RecoveryRecord record{"text\n", std::nullopt};
  EXPECT_EQ(ProgressOfSave(record, std::nullopt), SaveProgress::kNotBegun);
  EXPECT_EQ(ProgressOfSave(record, ""), SaveProgress::kUnderWay);
  EXPECT_EQ(ProgressOfSave(record, "text\r\n"), SaveProgress::kDone);
}

}  // namespace
}  // namespace base
