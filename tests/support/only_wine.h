// What a test may expect under Wine alone. The tests run on Windows, too; there such expectations are left out:
//
//   EXPLORER_ONLY_WINE("drive Z is the root of the machine below") { EXPECT_TRUE(Exists("Z:\\usr")); }
//
// grep -rn 'EXPLORER_ONLY_WINE("' tests lists all of them with their reasons.
#pragma once

#define EXPLORER_ONLY_WINE(reason) if (::test_support::HoldsUnderWine(reason))

namespace test_support {

bool RunsUnderWine();

// The same for the macro. Elsewhere the reason is printed, so that nobody takes the test for a complete one.
bool HoldsUnderWine(const char* reason);

}  // namespace test_support
