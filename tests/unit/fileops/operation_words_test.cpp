#include "src/fileops/operation_words.h"

#include <gtest/gtest.h>

namespace file_explorer {
namespace {

base::Conflict ConflictAt(const std::wstring& target, bool folders) {
  base::Conflict conflict;
  conflict.target = target;
  conflict.folders = folders;
  return conflict;
}

std::wstring System(base::SystemError error) {
  return L"System text " + std::to_wstring(error) + L".";
}

TEST(OperationWords, AskAboutOneFileOrSeveral) {
  EXPECT_EQ(
      ConflictQuestion(ConflictAt(L"C:\\to\\a.txt", false), {1, false}),
      L"The folder already contains a file named \"a.txt\".\n\nDo you want to replace it?\n\nWith No this "
      L"file is skipped; Cancel ends the whole operation.");
  EXPECT_EQ(ConflictQuestion(ConflictAt(L"C:\\to\\a.txt", false), {3, false}),
            L"The folder already contains 3 of these files, \"a.txt\" among them.\n\nDo you want to replace "
            L"them?\n\nWith No these files are skipped; Cancel ends the whole operation.");
}

// The answer goes for files that nobody has counted, too: the question must not speak of one.
TEST(OperationWords, AskAboutFilesInsideOfFolders) {
  for (const size_t count : {0u, 1u, 3u}) {
    EXPECT_EQ(ConflictQuestion(ConflictAt(L"C:\\to\\dir\\a.txt", false), {count, true}),
              L"The folder already contains files of the same names, \"a.txt\" among them.\n\nDo you want to "
              L"replace them?\n\nWith No these files are skipped; Cancel ends the whole operation.");
  }
}

TEST(OperationWords, AskAboutFolders) {
  EXPECT_EQ(ConflictQuestion(ConflictAt(L"C:\\to\\dir", true), {1, false}),
            L"The folder already contains a folder named \"dir\".\n\nDo you want to put the contents "
            L"together?\n\nWith No this folder is skipped; Cancel ends the whole operation.");
}

TEST(OperationWords, NothingIsSaidWhenEverythingWasDone) {
  EXPECT_EQ(ReportOfFailures({}, true, &System), L"");
}

TEST(OperationWords, FailuresAreNamedWithTheirReasonsAndTheCountOfWhatWasDone) {
  base::TransferReport report;
  report.done = 1;
  report.failures = {{L"C:\\a.txt", base::FailureReason::kSystem, base::kSharingViolation},
                     {L"C:\\tex\uF05Cwood", base::FailureReason::kSystem, 1921}};
  EXPECT_EQ(
      ReportOfFailures(report, false, &System),
      L"2 items could not be copied:\n\n\"a.txt\": It is in use by another program.\n\"tex\\wood\": System "
      L"text 1921.\n\n1 item copied.");
}

TEST(OperationWords, AtMostTenFailuresAreNamed) {
  base::TransferReport report;
  report.failures.assign(12, {L"C:\\x", base::FailureReason::kSystem, base::kAccessDenied});
  const std::wstring text = ReportOfFailures(report, true, &System);
  EXPECT_NE(text.find(L"12 items could not be moved:"), std::wstring::npos);
  EXPECT_NE(text.find(L"... and 2 more.\n\n0 items moved."), std::wstring::npos);
}

}  // namespace
}  // namespace file_explorer
