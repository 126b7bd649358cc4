// The services object itself: its shape, the call log, failures on demand, argument checks of the small
// interfaces.
#include <cstring>

#include "src/host/plugin_protocol.h"
#include "tests/integration/workbench/workbench_fixture.h"

namespace workbench {
namespace {

namespace op = host::op;

class HostServicesTest : public WorkbenchTest {
 protected:
  HostServicesTest() { Start(); }
};

TEST_F(HostServicesTest, EveryOperationOfTheContractIsThere) {
  for (const auto& [interfaceNumber, position] :
       {std::pair{0, 0}, {0, 3},   {1, 0},   {1, 1},  {1, 16}, {3, 0},   {3, 14}, {3, 16}, {3, 21}, {3, 22},
        {3, 23},         {3, 31},  {3, 39},  {3, 40}, {3, 42}, {9, 10},  {9, 11}, {9, 12}, {9, 13}, {12, 10},
        {12, 13},        {12, 14}, {12, 15}, {13, 1}, {13, 2}, {13, 10}, {22, 1}, {22, 4}}) {
    EXPECT_NE(services()->interfaces[interfaceNumber].operations[position], nullptr)
        << interfaceNumber << "/" << position;
  }
}

TEST_F(HostServicesTest, ApplicationFacts) {
  EXPECT_EQ(host::Call<op::GetMainWindow>(services()), host().window());
  EXPECT_EQ(host::Call<op::GetProfileFileName>(services()), folder_.narrow() + "\\workbench.ini");
  std::int16_t major = 0, minor = 0, release = -1;
  std::int64_t fourth = -1;
  host::Call<op::GetHostVersion>(services(), &major, &minor, &release, &fourth);
  EXPECT_EQ(major, 4);
  EXPECT_EQ(minor, 2);
  EXPECT_EQ(release, 0);
  EXPECT_EQ(fourth, 0);
  std::int16_t* none = nullptr;
  host::Call<op::GetHostVersion>(services(), none, none, none, static_cast<std::int64_t*>(nullptr));
  EXPECT_EQ(host::Call<op::GetHostFlags>(services()) & host::kHostFlagNoExplorer, 0u);
}

TEST_F(HostServicesTest, FactsCanBeChanged) {
  host().facts().flags = host::kHostFlagNoExplorer;
  host().facts().release = 5;
  host().facts().minorVersion = 1;
  host().SetProfilePath("C:\\elsewhere.ini");
  EXPECT_EQ(host::Call<op::GetHostFlags>(services()), host::kHostFlagNoExplorer);
  std::int16_t major = 0, minor = 0, release = 0;
  std::int64_t fourth = 0;
  host::Call<op::GetHostVersion>(services(), &major, &minor, &release, &fourth);
  EXPECT_EQ(minor, 1);
  EXPECT_EQ(release, 5);
  EXPECT_STREQ(host::Call<op::GetProfileFileName>(services()), "C:\\elsewhere.ini");
}

TEST_F(HostServicesTest, CallsAreRecordedWithTheirArguments) {
  host().services().ClearCalls();
  host::Call<op::ShowUtilityPanel>(services(), host::kPanelGuid);
  host::Call<op::GetHostFlags>(services());
  ASSERT_EQ(host().services().calls().size(), 2u);
  EXPECT_EQ(host().services().calls()[0].operation, "ShowUtilityPanel");
  EXPECT_EQ(host().services().calls()[0].arguments, "\"" + std::string(host::kPanelGuid) + "\"");
  EXPECT_EQ(host().services().calls()[1].operation, "GetHostFlags");
  EXPECT_EQ(host().services().calls()[1].result, "32");
  EXPECT_EQ(host().services().CountCalls("ShowUtilityPanel"), 1);
  const auto window = NewWindow();
  Dock(*window, 5, 3);
  EXPECT_EQ(host().services().LastArguments("CreateDockedWindow"),
            "\"" + std::string(kTestGuid) +
                "\", set, \"Test window\", \"Test window\", 5, 3, 0, no bitmap, 0, 0, 0, 0, set");
}

TEST_F(HostServicesTest, WithoutRecordingNothingIsKept) {
  host().services().SetRecording(false);
  host().services().ClearCalls();
  host::Call<op::GetHostFlags>(services());
  EXPECT_TRUE(host().services().calls().empty());
}

TEST_F(HostServicesTest, OneOperationCanBeMadeToFailWhileTheRestIsReal) {
  const auto window = NewWindow();
  host().services().Override<op::CreateDockedWindow>([](auto...) { return 0; });
  EXPECT_EQ(Dock(*window, 5, 3), 0);
  EXPECT_EQ(host().services().CountCalls("CreateDockedWindow"), 1);
  EXPECT_EQ(host::Call<op::GetMainWindow>(services()), host().window());
  host().services().ClearOverride<op::CreateDockedWindow>();
  EXPECT_NE(Dock(*window, 5, 3), 0);
  host().services().Override<op::CreateUtilityPanel>([](auto...) -> HWND { return nullptr; });
  EXPECT_EQ((host::Call<op::CreateUtilityPanel>(services(), "", "{x}", "", "", static_cast<HBITMAP>(nullptr),
                                                std::intptr_t{0}, COLORREF{0}, std::intptr_t{0},
                                                std::intptr_t{0}, std::intptr_t{0}, std::intptr_t{0})),
            nullptr);
  EXPECT_EQ(host().panel().pageCount(), 0);
}

TEST_F(HostServicesTest, AFailureInsideAnOperationDoesNotReachThePlugIn) {
  host().services().Override<op::GetHostFlags>([]() -> std::uint32_t { throw std::bad_alloc(); });
  EXPECT_EQ(host::Call<op::GetHostFlags>(services()), 0u);
}

TEST_F(HostServicesTest, AnOperationCanBeTakenAway) {
  host().services().Remove<op::GetProfileFileName>();
  EXPECT_EQ(services()->interfaces[0].operations[op::GetProfileFileName::kPosition], nullptr);
  EXPECT_EQ(host::Call<op::GetProfileFileName>(services()), nullptr);
}

TEST_F(HostServicesTest, WildcardsAnswerWithAReason) {
  char reason[host::kMatchReasonSize] = "untouched";
  EXPECT_NE(host::Call<op::ValidateMatchPattern>(services(), "*.obj", reason), 0);
  EXPECT_EQ(host::Call<op::ValidateMatchPattern>(services(), "[a", reason), 0);
  EXPECT_GT(std::strlen(reason), 3u);
  EXPECT_EQ(host::Call<op::ValidateMatchPattern>(services(), "[a", static_cast<char*>(nullptr)), 0);
  EXPECT_EQ(host::Call<op::ValidateMatchPattern>(services(), static_cast<const char*>(nullptr), reason), 0);
  EXPECT_NE(host::Call<op::MatchPattern>(services(), "*.OBJ", "cube.obj", host::kMatchIgnoreCase), 0);
  EXPECT_EQ(host::Call<op::MatchPattern>(services(), "*.OBJ", "cube.obj", 0), 0);
  EXPECT_EQ(host::Call<op::MatchPattern>(services(), "*", static_cast<const char*>(nullptr), 1), 0);
}

TEST_F(HostServicesTest, DialogsByUnknownKeywordAreNotShown) {
  const char* const nothing = nullptr;
  EXPECT_EQ(host::Call<op::ShowHostDialog>(services(), "NoSuchDialog", host().window(), nothing,
                                           std::intptr_t{0}, std::intptr_t{0}, std::intptr_t{0}),
            0);
  EXPECT_EQ(host::Call<op::ShowHostDialog>(services(), nothing, host().window(), nothing, std::intptr_t{0},
                                           std::intptr_t{0}, std::intptr_t{0}),
            0);
}

TEST_F(HostServicesTest, ColourServicesIgnoreMissingArguments) {
  float red = 0.5f;
  EXPECT_EQ(host::Call<op::PickColor>(services(), host().window(), "Colour", &red,
                                      static_cast<float*>(nullptr), &red),
            0);
  host::Call<op::RepaintColorButton>(services(), static_cast<HWND>(nullptr), 1, 0.0f, 0.0f, 0.0f);
  host::Call<op::DrawColorButton>(services(), static_cast<const DRAWITEMSTRUCT*>(nullptr), 0.0f, 0.0f, 0.0f);
  EXPECT_FLOAT_EQ(red, 0.5f);
}

TEST_F(HostServicesTest, CallsToOtherPlugInsReachTheRegisteredOnesOnly) {
  const char* const keywords[] = {"showfileselectionpanel", nullptr};
  void* values[] = {nullptr, nullptr};
  EXPECT_EQ(host::Call<op::CallPlugin>(services(), host::kFileSelectionPluginGuid, keywords, values), 0);
  EXPECT_EQ(host().main().message(), L"The file selection panel is not installed");
  EXPECT_EQ(host::Call<op::CallPlugin>(services(), "{x}", keywords, values), 0);
  EXPECT_EQ(host().main().message(), L"The plug-in {x} is not installed");
  std::string heard;
  host().RegisterPlugin("{x}", [&](const char* const* words, void**) { heard = words[0]; });
  EXPECT_NE(host::Call<op::CallPlugin>(services(), "{x}", keywords, values), 0);
  EXPECT_EQ(heard, "showfileselectionpanel");
  EXPECT_EQ(host::Call<op::CallPlugin>(services(), "{x}", static_cast<const char* const*>(nullptr), values),
            0);
  EXPECT_EQ(host::Call<op::CallPlugin>(services(), static_cast<const char*>(nullptr), keywords, values), 0);
}

TEST_F(HostServicesTest, GivingBackARegistrationAndTheRedrawBracketDoNoHarm) {
  host::Call<op::CloseRegistration>(services(), static_cast<void*>(nullptr));
  host::Call<op::ReleaseRegistration>(services(), static_cast<void*>(nullptr));
  host::Call<op::RedrawBracket>(services());
  EXPECT_EQ(host().services().CountCalls("RedrawBracket"), 1);
}

}  // namespace
}  // namespace workbench
