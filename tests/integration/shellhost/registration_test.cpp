// Registering the controls through their own files.
#include <gmock/gmock.h>
#include <objbase.h>

#include <stdexcept>
#include <thread>

#include "src/shellhost/shell_controls.h"
#include "tests/integration/shellhost/hosting_fixture.h"

namespace file_explorer {
namespace {

ShellControlClass ClassInFile(const char* fileName) {
  ShellControlClass controlClass = kFileViewClass;
  controlClass.fileName = fileName;
  return controlClass;
}

int RegistrationsOf(const char* fileName) {
  const HMODULE library = GetModuleHandleA(fileName);
  if (!library) return -1;
  const auto count =
      reinterpret_cast<int (*)()>(reinterpret_cast<void (*)()>(GetProcAddress(library, "RegistrationCount")));
  return count();
}

class Registration : public testing::Test {
 protected:
  void TearDown() override {
    SetEnvironmentVariableA("REGISTRATION_PROBE", nullptr);
    ReleaseShellControlState();
  }
  Apartment apartment_;
};

TEST_F(Registration, LoadsTheFileAndLetsItRegisterItself) {
  const ShellControlClass controlClass = ClassInFile("registration_probe.dll");
  EXPECT_EQ(RegisterShellControl(controlClass), 1);
  const int first = RegistrationsOf("registration_probe.dll");
  EXPECT_GE(first, 1) << "the file stays loaded";
  EXPECT_EQ(RegisterShellControl(controlClass), 1);
  EXPECT_EQ(RegistrationsOf("registration_probe.dll"), first + 1);
}

TEST_F(Registration, IgnoresWhatTheFileSays) {
  const ShellControlClass controlClass = ClassInFile("registration_probe.dll");
  RegisterShellControl(controlClass);
  const int before = RegistrationsOf("registration_probe.dll");
  for (const char* mode : {"fail", "raise"}) {
    SetEnvironmentVariableA("REGISTRATION_PROBE", mode);
    EXPECT_EQ(RegisterShellControl(controlClass), 1) << mode;
  }
  EXPECT_EQ(RegistrationsOf("registration_probe.dll"), before + 2);
}

TEST_F(Registration, SucceedsWithoutARegistrationFunction) {
  EXPECT_EQ(RegisterShellControl(ClassInFile("registration_probe_without.dll")), 1);
  EXPECT_EQ(RegistrationsOf("registration_probe_without.dll"), 0);
}

TEST_F(Registration, FailsForAFileThatCannotBeLoaded) {
  EXPECT_EQ(RegisterShellControl(ClassInFile("no_such_control64.ocx")), 0);
  EXPECT_EQ(GetModuleHandleA("no_such_control64.ocx"), nullptr);
}

TEST_F(Registration, TheFilesHaveTheirNames) {
  EXPECT_STREQ(kFileViewClass.fileName, "ssware_shellfileview64.ocx");
  EXPECT_STREQ(kFolderViewClass.fileName, "ssware_shellfolderview64.ocx");
  EXPECT_STREQ(kComboViewClass.fileName, "ssware_shellcombo64.ocx");
}

HRESULT MultithreadedEntry() {
  const HRESULT result = CoInitializeEx(nullptr, COINIT_MULTITHREADED);
  if (SUCCEEDED(result)) CoUninitialize();
  return result;
}

TEST_F(Registration, InitialisesComOnTheThreadUntilTheStateIsReleased) {
  HRESULT before = E_FAIL;
  HRESULT during = E_FAIL;
  HRESULT after = E_FAIL;
  std::thread([&] {
    before = MultithreadedEntry();
    RegisterShellControl(ClassInFile("no_such_control64.ocx"));
    RegisterShellControl(ClassInFile("no_such_control64.ocx"));
    during = MultithreadedEntry();
    ReleaseShellControlState();
    after = MultithreadedEntry();
  }).join();
  EXPECT_EQ(before, S_OK);
  EXPECT_EQ(during, RPC_E_CHANGED_MODE);
  EXPECT_EQ(after, S_OK);
}

std::vector<std::string> registered;
int RegisterFile() {
  registered.push_back("file view");
  return 0;
}
int RegisterCombo() {
  registered.push_back("combo view");
  return 0;
}
int Throw() {
  throw std::runtime_error("registration");
}

TEST_F(Registration, TheFilePanesControlsAreRegisteredOnceInTheModulesLife) {
  EXPECT_THROW(RegisterFilePaneControls(RegisterFile, Throw), std::runtime_error);
  EXPECT_THAT(registered, testing::ElementsAre("file view"));
  registered.clear();
  RegisterFilePaneControls(RegisterFile, RegisterCombo);
  EXPECT_THAT(registered, testing::ElementsAre("file view", "combo view"));
  RegisterFilePaneControls(RegisterFile, RegisterCombo);
  RegisterFilePaneControls();
  EXPECT_THAT(registered, testing::ElementsAre("file view", "combo view"));
}

}  // namespace
}  // namespace file_explorer
