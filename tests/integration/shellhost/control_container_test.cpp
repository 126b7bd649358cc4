#include "src/shellhost/control_container.h"

#include <gtest/gtest.h>

#include "tests/integration/shellhost/hosting_fixture.h"
#include "tests/support/message_box_recorder.h"

namespace file_explorer {
namespace {

class HostedControl : public HostingTest {};

TEST_F(HostedControl, IsASiteWithTheControlInIt) {
  ScriptedClass control(kTestClass, {});
  const ComPtr<IUnknown> site =
      CreateHostedControl("Test Control", "test.ocx", kTestClassText, ListWith(L"A", 1));
  ASSERT_TRUE(site);
  CControlSite* const itself = ControlSiteOf(site.Get());
  ASSERT_TRUE(itself);
  EXPECT_TRUE(itself->HasControl());
  EXPECT_EQ(itself->ParentWindow(), nullptr);
  EXPECT_STREQ(itself->CodeBase(), "");
  EXPECT_TRUE(IsEqualCLSID(itself->ClassId(), kTestClass));
  EXPECT_EQ(QueryFor<IUnknown>(itself->ControlUnknown()).Get(),
            QueryFor<IUnknown>(static_cast<IOleObject*>(control.control)).Get());
  site.Get()->AddRef();
  EXPECT_EQ(site.Get()->Release(), 1u) << "the caller's is the only reference";
}

TEST_F(HostedControl, ThatCannotBeMadeIsReportedByNameFileAndClass) {
  test_support::MessageBoxRecorder recorder;
  const ComPtr<IUnknown> site =
      CreateHostedControl("Shell FileView Control", "ssware_shellfileview64.ocx",
                          "{0a7a7240-d038-4b9f-b3b1-7feffe5f9ed7}", ListWith(L"A", 1));
  EXPECT_FALSE(site);
  ASSERT_EQ(recorder.boxes().size(), 1u);
  const auto& box = recorder.boxes()[0];
  EXPECT_EQ(box.caption, "ActiveX Error");
  EXPECT_EQ(
      box.text,
      "Could not create the Shell FileView Control control (filename = 'ssware_shellfileview64.ocx', ClassID "
      "= "
      "'{0A7A7240-D038-4B9F-B3B1-7FEFFE5F9ED7}'). Check that it has been installed on your computer and that "
      "this page correctly references it.");
  EXPECT_EQ(box.icon, static_cast<UINT>(MB_ICONEXCLAMATION));
  EXPECT_EQ(box.buttons, std::vector<int>{IDOK});
  EXPECT_EQ(box.owner, nullptr);
}

TEST_F(HostedControl, WhoseClassRefusesIsReportedToo) {
  test_support::MessageBoxRecorder recorder;
  ControlScript script;
  script.faults["CreateInstance"] = Fault::kFails;
  ScriptedClass control(kTestClass, script);
  EXPECT_FALSE(CreateHostedControl("Test Control", "test.ocx", kTestClassText, {}));
  ASSERT_EQ(recorder.boxes().size(), 1u);
  EXPECT_NE(recorder.boxes()[0].text.find("Could not create the Test Control control (filename = 'test.ocx'"),
            std::string::npos);
}

TEST_F(HostedControl, WithANonsenseClassIsReportedWithTheEmptyClass) {
  test_support::MessageBoxRecorder recorder;
  for (const char* text : {"no class id", ""}) {
    EXPECT_FALSE(CreateHostedControl("Test Control", "test.ocx", text, {}));
  }
  ASSERT_EQ(recorder.boxes().size(), 2u);
  EXPECT_NE(recorder.boxes()[0].text.find("{00000000-0000-0000-0000-000000000000}"), std::string::npos);
}

TEST_F(HostedControl, ComesAndGoesTwoHundredTimesWithoutTrace) {
  ScriptedClass control(kTestClass, {});
  const int windows = ThreadWindows();
  for (int i = 0; i < 200; ++i) {
    const ComPtr<IUnknown> site =
        CreateHostedControl("Test Control", "test.ocx", kTestClassText, ListWith(L"A", i));
    CControlSite* const itself = ControlSiteOf(site.Get());
    ASSERT_EQ(AttachOrResize(itself, parent_.get(), kTestRect), S_OK);
    ASSERT_EQ(AttachOrResize(itself, parent_.get(), {0, 0, i, i}), S_OK);
    itself->Detach();
  }
  EXPECT_EQ(control.created, 200);
  EXPECT_EQ(ThreadWindows(), windows);
  EXPECT_EQ(control.alive, 0);
  EXPECT_EQ(GetWindow(parent_.get(), GW_CHILD), nullptr);
}

}  // namespace
}  // namespace file_explorer
