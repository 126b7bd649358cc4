// Options that are offered to the controls by name: to those that know them, and to those that don't.
#include "src/shellhost/offered_options.h"

#include <windows.h>

#include <gmock/gmock.h>
#include <olectl.h>

#include "src/shellhost/control_contract.h"
#include "src/shellhost/shell_controls.h"
#include "tests/integration/shellhost/hosting_fixture.h"
#include "tests/support/message_box_recorder.h"

namespace file_explorer {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class OfferedOptionsTest : public HostingTest {
 protected:
  void SetUp() override {
    HostingTest::SetUp();
    fileClass_ = std::make_unique<ScriptedClass>(CLSID_FileViewControl, ScriptOf(kFileViewClass));
    treeClass_ = std::make_unique<ScriptedClass>(CLSID_FolderViewControl, ScriptOf(kFolderViewClass));
    comboClass_ = std::make_unique<ScriptedClass>(CLSID_ComboViewControl, ScriptOf(kComboViewClass));
    file_ = CreateFileViewHost(parent_.get(), {}, nullptr, nullptr);
    tree_ = CreateFolderViewHost(parent_.get());
    combo_ = CreateComboViewHost(parent_.get());
    ASSERT_TRUE(file_ && tree_ && combo_);
    for (ScriptedClass* const made : {fileClass_.get(), treeClass_.get(), comboClass_.get()})
      made->log.clear();
  }
  void TearDown() override {
    file_.reset();
    tree_.reset();
    combo_.reset();
    ReleaseShellControlState();
    EXPECT_THAT(boxes_.boxes(), IsEmpty());
    fileClass_.reset();
    treeClass_.reset();
    comboClass_.reset();
    HostingTest::TearDown();
  }
  void LetThemKnowTheNames() {
    fileClass_->script.names = {{L"ShowHiddenItems", 801}};
    treeClass_->script.names = {{L"ShowHiddenItems", 802}};
    comboClass_->script.names = {{L"FullPath", 803}, {L"ShowVirtualFolders", 804}, {L"Completion", 805}};
  }

  test_support::MessageBoxRecorder boxes_;
  std::unique_ptr<ScriptedClass> fileClass_, treeClass_, comboClass_;
  ShellControlPtr file_, tree_, combo_;
};

TEST_F(OfferedOptionsTest, AreLostOnControlsThatKnowNoNames) {
  OfferControlOptions(tree_.get(), file_.get(), combo_.get(), {1, 1, 1, 1, 1});
  EXPECT_THAT(fileClass_->log, IsEmpty());
  EXPECT_THAT(treeClass_->log, IsEmpty());
  EXPECT_THAT(comboClass_->log, IsEmpty());
}

TEST_F(OfferedOptionsTest, AreLostOnControlsThatKnowOtherNamesOnly) {
  fileClass_->script.names = {{L"ShowHidden", 801}, {L"ShowVirtualFolders", 15}};
  EXPECT_FALSE(OfferControlOption(file_.get(), L"ShowHiddenItems", true));
  EXPECT_THAT(fileClass_->log, IsEmpty());
}

TEST_F(OfferedOptionsTest, AreEachPutOnceToControlsThatKnowThem) {
  LetThemKnowTheNames();
  OfferedOptions options;
  options.fileViewShowHiddenItems = 1;
  options.comboViewShowVirtualFolders = -7;
  OfferControlOptions(tree_.get(), file_.get(), combo_.get(), options);
  EXPECT_THAT(fileClass_->log, ElementsAre("put 801 bool -1"));
  EXPECT_THAT(treeClass_->log, ElementsAre("put 802 bool 0"));
  EXPECT_THAT(comboClass_->log, ElementsAre("put 803 bool 0", "put 804 bool -1", "put 805 bool 0"));
}

TEST_F(OfferedOptionsTest, EachGoesToItsOwnControl) {
  LetThemKnowTheNames();
  OfferedOptions options;
  options.treeShowHiddenItems = 2;
  options.comboViewShowFullPath = 1;
  options.comboViewCompletion = 1;
  OfferControlOptions(tree_.get(), file_.get(), combo_.get(), options);
  EXPECT_THAT(fileClass_->log, ElementsAre("put 801 bool 0"));
  EXPECT_THAT(treeClass_->log, ElementsAre("put 802 bool -1"));
  EXPECT_THAT(comboClass_->log, ElementsAre("put 803 bool -1", "put 804 bool 0", "put 805 bool -1"));
}

TEST_F(OfferedOptionsTest, AControlThatRefusesTheValueKeepsTheOthersFromNothing) {
  LetThemKnowTheNames();
  treeClass_->script.members[802] = [](WORD, DISPPARAMS*, VARIANT*) { return E_ACCESSDENIED; };
  comboClass_->script.members[803] = [](WORD, DISPPARAMS*, VARIANT*) { return DISP_E_TYPEMISMATCH; };
  EXPECT_FALSE(OfferControlOption(tree_.get(), L"ShowHiddenItems", true));
  EXPECT_TRUE(OfferControlOption(file_.get(), L"ShowHiddenItems", true));
  fileClass_->log.clear();
  OfferControlOptions(tree_.get(), file_.get(), combo_.get(), {});
  EXPECT_THAT(fileClass_->log, ElementsAre("put 801 bool 0"));
  EXPECT_THAT(comboClass_->log, ElementsAre("put 803 bool 0", "put 804 bool 0", "put 805 bool 0"));
}

TEST_F(OfferedOptionsTest, AControlThatCrashesOverANameIsLeftAlone) {
  LetThemKnowTheNames();
  for (const Fault fault : {Fault::kFails, Fault::kThrows, Fault::kRaises}) {
    fileClass_->script.faults["GetIDsOfNames"] = fault;
    EXPECT_FALSE(OfferControlOption(file_.get(), L"ShowHiddenItems", true));
  }
  EXPECT_THAT(fileClass_->LogOf({"put"}), IsEmpty());
}

TEST_F(OfferedOptionsTest, WithoutAControlNothingHappens) {
  OfferControlOptions(nullptr, nullptr, nullptr, {1, 1, 1, 1, 1});
  const ShellControlHost empty;
  EXPECT_FALSE(OfferControlOption(&empty, L"ShowHiddenItems", true));
}

}  // namespace
}  // namespace file_explorer
