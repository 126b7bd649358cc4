#include "src/plugin/host_version.h"

#include <gtest/gtest.h>

namespace file_explorer {
namespace {

struct VersionCase {
  HostVersion version;
  bool accepted;
};

class HostVersionTest : public testing::TestWithParam<VersionCase> {};

TEST_P(HostVersionTest, IsAcceptedFromFourOneSixOn) {
  EXPECT_EQ(IsAcceptedHostVersion(GetParam().version), GetParam().accepted);
}

INSTANTIATE_TEST_SUITE_P(Versions, HostVersionTest,
                         testing::Values(VersionCase{{4, 1, 5}, false}, VersionCase{{4, 1, 6}, true},
                                         VersionCase{{4, 1, 7}, true}, VersionCase{{4, 2, 0}, true},
                                         VersionCase{{5, 0, 0}, true}, VersionCase{{3, 9, 9}, false},
                                         VersionCase{{4, 0, 9}, false}, VersionCase{{0, 0, 0}, false},
                                         VersionCase{{-4, 9, 9}, false}, VersionCase{{4, -1, 9}, false},
                                         VersionCase{{4, 1, -6}, false}),
                         [](const auto& info) { return "Case" + std::to_string(info.index); });

}  // namespace
}  // namespace file_explorer
