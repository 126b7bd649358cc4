#include <windows.h>

#include "src/host/vc64_imp.h"
#include "tests/integration/hostlibs/host_memory.h"

namespace {

using Text = HostMemoryTest;

TEST_F(Text, ACopyIsTheCallersOwn) {
  const unique_host_text copy(Import_IO_Copy_String("favourite"));
  ASSERT_NE(copy, nullptr);
  EXPECT_STREQ(copy.get(), "favourite");
  const unique_host_text empty(Import_IO_Copy_String(""));
  ASSERT_NE(empty, nullptr);
  EXPECT_STREQ(empty.get(), "");
  EXPECT_EQ(Import_IO_Copy_String(nullptr), nullptr);
}

TEST_F(Text, WhiteSpaceIsStrippedInPlaceAtBothEnds) {
  char text[] = " \t\r\n\v\f *.obj *.3ds \f\v\n\r\t ";
  EXPECT_EQ(Import_IO_Strip_Whitespace(text), text);
  EXPECT_STREQ(text, "*.obj *.3ds");
  char blank[] = " \t ";
  EXPECT_EQ(Import_IO_Strip_Whitespace(blank), blank);
  EXPECT_STREQ(blank, "");
  char empty[] = "";
  EXPECT_STREQ(Import_IO_Strip_Whitespace(empty), "");
  EXPECT_EQ(Import_IO_Strip_Whitespace(nullptr), nullptr);
}

}  // namespace
