#include "src/shellhost/command_target.h"

#include <gtest/gtest.h>

#include <array>

#include "src/framework/com/com_object.h"
#include "tests/integration/shellhost/hosting_fixture.h"

namespace file_explorer {
namespace {

constexpr GUID kGroup = {0x1F0E33A1, 0x7B0D, 0x4D2F, {0x8C, 0x11, 0x70, 0x2A, 0x54, 0x0E, 0x99, 0x12}};
constexpr GUID kOtherGroup = {0x1F0E33A1, 0x7B0D, 0x4D2F, {0x8C, 0x11, 0x70, 0x2A, 0x54, 0x0E, 0x99, 0x13}};

class Target : public IOleCommandTargetImpl<Target>, public CComObjectRootEx<CComSingleThreadModel> {
 public:
  static std::span<const InterfaceEntry> Interfaces() {
    static constexpr std::array kEntries = {Exposes<Target, IUnknown, IOleCommandTarget>(IID_IUnknown),
                                            Exposes<Target, IOleCommandTarget>(IID_IOleCommandTarget)};
    return kEntries;
  }
  static std::span<const CommandEntry<Target>> Commands() {
    static constexpr std::array<CommandEntry<Target>, 2> kCommands = {
        CommandEntry<Target>{nullptr, OLECMDID_REFRESH, OLECMDF_ENABLED, &Target::Refresh},
        CommandEntry<Target>{&kGroup, 7, 0, &Target::Throw}};
    return kCommands;
  }
  HRESULT Refresh(DWORD option, VARIANT*, VARIANT*) {
    refreshed = option;
    return S_OK;
  }
  HRESULT Throw(DWORD, VARIANT*, VARIANT*) { throw _com_error(E_ACCESSDENIED); }

  DWORD refreshed = 0;

 protected:
  virtual ~Target() = default;
};

class CommandTarget : public testing::Test {
 protected:
  ComPtr<CComObject<Target>> target_ = CComObject<Target>::New();
};

TEST_F(CommandTarget, ANullArrayIsInvalidAndNoCommandsSucceed) {
  EXPECT_EQ(target_->QueryStatus(nullptr, 1, nullptr, nullptr), E_INVALIDARG);
  EXPECT_EQ(target_->QueryStatus(nullptr, 0, nullptr, nullptr), E_INVALIDARG);
  OLECMD command = {OLECMDID_REFRESH, 99};
  EXPECT_EQ(target_->QueryStatus(nullptr, 0, &command, nullptr), S_OK);
  EXPECT_EQ(command.cmdf, 99u);
}

TEST_F(CommandTarget, EachCommandIsLookedUpByGroupAndId) {
  OLECMD standard[] = {{OLECMDID_REFRESH, 0}, {OLECMDID_PRINT, 99}, {7, 99}};
  EXPECT_EQ(target_->QueryStatus(nullptr, 3, standard, nullptr), S_OK);
  EXPECT_EQ(standard[0].cmdf, static_cast<DWORD>(OLECMDF_SUPPORTED | OLECMDF_ENABLED));
  EXPECT_EQ(standard[1].cmdf, 0u);
  EXPECT_EQ(standard[2].cmdf, 0u);
  OLECMD grouped[] = {{7, 0}, {OLECMDID_REFRESH, 99}};
  EXPECT_EQ(target_->QueryStatus(&kGroup, 2, grouped, nullptr), S_OK);
  EXPECT_EQ(grouped[0].cmdf, static_cast<DWORD>(OLECMDF_SUPPORTED));
  EXPECT_EQ(grouped[1].cmdf, 0u);
  EXPECT_EQ(target_->QueryStatus(&kOtherGroup, 1, grouped, nullptr), S_OK);
  EXPECT_EQ(grouped[0].cmdf, 0u);
}

TEST_F(CommandTarget, ExecDispatchesThroughTheSameTable) {
  EXPECT_EQ(target_->Exec(nullptr, OLECMDID_REFRESH, 3, nullptr, nullptr), S_OK);
  EXPECT_EQ(target_->refreshed, 3u);
  EXPECT_EQ(target_->Exec(nullptr, OLECMDID_PRINT, 0, nullptr, nullptr), OLECMDERR_E_NOTSUPPORTED);
  EXPECT_EQ(target_->Exec(&kGroup, 8, 0, nullptr, nullptr), OLECMDERR_E_NOTSUPPORTED);
  EXPECT_EQ(target_->Exec(&kOtherGroup, 7, 0, nullptr, nullptr), OLECMDERR_E_UNKNOWNGROUP);
}

TEST_F(CommandTarget, NothingIsThrownToTheCaller) {
  EXPECT_EQ(target_->Exec(&kGroup, 7, 0, nullptr, nullptr), E_ACCESSDENIED);
}

class SiteCommands : public HostingTest {};

TEST_F(SiteCommands, ASiteSupportsNone) {
  auto site = NewSite();
  OLECMD commands[] = {{OLECMDID_REFRESH, 99}, {1, 99}};
  EXPECT_EQ(site->QueryStatus(nullptr, 1, nullptr, nullptr), E_INVALIDARG);
  EXPECT_EQ(site->QueryStatus(nullptr, 2, commands, nullptr), S_OK);
  EXPECT_EQ(commands[0].cmdf, 0u);
  EXPECT_EQ(commands[1].cmdf, 0u);
  EXPECT_EQ(site->Exec(nullptr, OLECMDID_REFRESH, 0, nullptr, nullptr), OLECMDERR_E_NOTSUPPORTED);
}

}  // namespace
}  // namespace file_explorer
