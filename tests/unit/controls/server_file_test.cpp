#include "workbench/controls/model/server_file.h"

#include <gmock/gmock.h>

namespace controls {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(ServerFile, AQuotedTextIsOneFileWhateverFollows) {
  EXPECT_THAT(ServerFileCandidates(LR"("C:\a b\c.ocx")"), ElementsAre(LR"(C:\a b\c.ocx)"));
  EXPECT_THAT(ServerFileCandidates(LR"(  "C:\a b\c.ocx"  /Automation -x)"), ElementsAre(LR"(C:\a b\c.ocx)"));
}

TEST(ServerFile, AMissingClosingQuoteIsForgiven) {
  EXPECT_THAT(ServerFileCandidates(LR"("C:\a b\c.ocx)"), ElementsAre(LR"(C:\a b\c.ocx)"));
}

TEST(ServerFile, WithoutQuotesTheLongestNameComesFirst) {
  EXPECT_THAT(ServerFileCandidates(LR"(C:\a b\c.ocx /Automation)"),
              ElementsAre(LR"(C:\a b\c.ocx /Automation)", LR"(C:\a b\c.ocx)", LR"(C:\a)"));
  EXPECT_THAT(ServerFileCandidates(LR"(c.ocx)"), ElementsAre(LR"(c.ocx)"));
}

TEST(ServerFile, NothingNamesNoFile) {
  EXPECT_THAT(ServerFileCandidates(L""), IsEmpty());
  EXPECT_THAT(ServerFileCandidates(L" \t "), IsEmpty());
  EXPECT_THAT(ServerFileCandidates(L"\""), IsEmpty());
  EXPECT_THAT(ServerFileCandidates(LR"("  ")"), IsEmpty());
}

}  // namespace
}  // namespace controls
