// Who may register a control class, and what is left when it is unregistered.
#include <windows.h>

#include <ole2.h>

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "tests/integration/controls/control_container.h"
#include "tests/support/temp_directory.h"
#include "workbench/controls/com/registration.h"

namespace controls_test {
namespace {

using controls::ControlRegistration;
using controls::GuidText;
using controls::RegistrationResult;
using test_support::TempDirectory;

constexpr wchar_t kRoot[] = L"Software\\ControlsRegistrationTest";

class Registration : public testing::Test {
 protected:
  void SetUp() override {
    RegDeleteTreeW(HKEY_CURRENT_USER, kRoot);
    user_ = Create(HKEY_CURRENT_USER, std::wstring(kRoot) + L"\\User");
    machine_ = Create(HKEY_CURRENT_USER, std::wstring(kRoot) + L"\\Machine");
  }
  void TearDown() override {
    RegCloseKey(user_);
    RegCloseKey(machine_);
    RegDeleteTreeW(HKEY_CURRENT_USER, kRoot);
  }

  static HKEY Create(HKEY parent, const std::wstring& path) {
    HKEY key = nullptr;
    RegCreateKeyExW(parent, path.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr);
    return key;
  }
  static void Write(HKEY root, const std::wstring& path, const std::wstring& text, DWORD type = REG_SZ) {
    const HKEY key = Create(root, path);
    RegSetValueExW(key, nullptr, 0, type, reinterpret_cast<const BYTE*>(text.c_str()),
                   static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
    RegCloseKey(key);
  }
  static std::wstring Read(HKEY root, const std::wstring& path) {
    wchar_t text[512] = L"";
    DWORD size = sizeof(text);
    return RegGetValueW(root, path.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, text, &size) == ERROR_SUCCESS
               ? text
               : L"<none>";
  }
  static DWORD Subkeys(HKEY root) {
    DWORD count = 0;
    RegQueryInfoKeyW(root, nullptr, nullptr, nullptr, &count, nullptr, nullptr, nullptr, nullptr, nullptr,
                     nullptr, nullptr);
    return count;
  }

  ControlRegistration Control(const std::wstring& file, ULONGLONG version = 0x0001000000000000) const {
    return {kFileView.classId,
            kFileView.dispatchId,
            kFileView.eventsId,
            kFileView.eventsId,
            L"Test Control",
            L"Test.Control",
            L"_DTest",
            L"_DTestEvents",
            0x20001,
            file,
            version};
  }
  std::wstring ServerKey() const { return L"CLSID\\" + GuidText(kFileView.classId) + L"\\InprocServer32"; }

  TempDirectory folder_;
  HKEY user_ = nullptr;
  HKEY machine_ = nullptr;
};

TEST_F(Registration, WritesClassInterfacesAndLibraryForTheUserOnly) {
  const std::wstring file = folder_.AddFile(L"ours.ocx");
  ASSERT_EQ(RegisterControl(Control(file), user_, machine_), RegistrationResult::kWritten);
  EXPECT_EQ(Read(user_, ServerKey()), file);
  EXPECT_EQ(Read(user_, L"Test.Control\\CLSID"), GuidText(kFileView.classId));
  EXPECT_EQ(Read(user_, L"TypeLib\\" + GuidText(kFileView.eventsId) + L"\\1.0\\0\\win64"), file);
  EXPECT_EQ(Read(user_, L"Interface\\" + GuidText(kFileView.dispatchId)), L"_DTest");
  EXPECT_EQ(Read(user_, L"CLSID\\" + GuidText(kFileView.classId) + L"\\MiscStatus\\1"), L"131073");
  EXPECT_EQ(Subkeys(machine_), 0u);
}

TEST_F(Registration, LeavesSomebodyElsesControlAlone) {
  const std::wstring theirs = folder_.AddFile(L"theirs.ocx");
  Write(user_, ServerKey(), theirs);
  EXPECT_EQ(RegisterControl(Control(folder_.AddFile(L"ours.ocx")), user_, machine_),
            RegistrationResult::kLeftAlone);
  EXPECT_EQ(Read(user_, ServerKey()), theirs);
  EXPECT_EQ(Read(user_, L"Test.Control"), L"<none>");
}

TEST_F(Registration, LeavesAControlOfTheWholeMachineAlone) {
  Write(machine_, ServerKey(), L"\"" + folder_.AddFile(L"theirs.ocx") + L"\"");
  EXPECT_EQ(RegisterControl(Control(folder_.AddFile(L"ours.ocx")), user_, machine_),
            RegistrationResult::kLeftAlone);
  EXPECT_EQ(Subkeys(user_), 0u);
}

// As an installer writes it for everybody who uses the machine.
TEST_F(Registration, LeavesAControlWhoseFileIsNamedThroughAVariableAlone) {
  SetEnvironmentVariableW(L"REGISTRATION_TEST_FOLDER", folder_.path().c_str());
  folder_.AddFile(L"their controls\\theirs.ocx");
  const std::wstring ours = folder_.AddFile(L"ours.ocx");
  for (const wchar_t* theirs :
       {L"%REGISTRATION_TEST_FOLDER%\\their controls\\theirs.ocx", L"\"%REGISTRATION_TEST_FOLDER%\\their controls\\theirs.ocx\"",
        L"\"%REGISTRATION_TEST_FOLDER%\\their controls\\theirs.ocx\" /Automation",
        L"%REGISTRATION_TEST_FOLDER%\\their controls\\theirs.ocx /Automation"}) {
    Write(machine_, ServerKey(), theirs, REG_EXPAND_SZ);
    EXPECT_EQ(RegisterControl(Control(ours), user_, machine_), RegistrationResult::kLeftAlone) << theirs;
    EXPECT_EQ(Subkeys(user_), 0u) << theirs;
  }
  Write(machine_, ServerKey(), L"%REGISTRATION_TEST_FOLDER%\\their controls\\missing.ocx", REG_EXPAND_SZ);
  EXPECT_EQ(RegisterControl(Control(ours), user_, machine_), RegistrationResult::kWritten);
  SetEnvironmentVariableW(L"REGISTRATION_TEST_FOLDER", nullptr);
}

TEST_F(Registration, AFolderIsNoControl) {
  Write(machine_, ServerKey(), folder_.path());
  EXPECT_EQ(RegisterControl(Control(folder_.AddFile(L"ours.ocx")), user_, machine_), RegistrationResult::kWritten);
}

TEST_F(Registration, ReplacesAControlWhoseFileIsMissing) {
  Write(user_, ServerKey(), folder_.Join(L"missing.ocx"));
  const std::wstring ours = folder_.AddFile(L"ours.ocx");
  EXPECT_EQ(RegisterControl(Control(ours), user_, machine_), RegistrationResult::kWritten);
  EXPECT_EQ(Read(user_, ServerKey()), ours);
}

TEST_F(Registration, ACopyOfOursReplacesAnotherOfTheSameOrAnOlderVersion) {
  // A file without a version resource counts as version 0.
  const std::wstring old = folder_.AddFile(L"old\\ours.ocx");
  const std::wstring fresh = folder_.AddFile(L"new\\ours.ocx");
  ASSERT_EQ(RegisterControl(Control(old, 0), user_, machine_), RegistrationResult::kWritten);
  EXPECT_EQ(RegisterControl(Control(fresh), user_, machine_), RegistrationResult::kWritten);
  EXPECT_EQ(Read(user_, ServerKey()), fresh);
}

TEST_F(Registration, AnOlderCopyOfOursDoesNotReplaceANewerOne) {
  wchar_t module[MAX_PATH];
  ASSERT_NE(GetModuleFileNameW(ModuleOf(kFileView), module, MAX_PATH), 0u);
  ASSERT_EQ(controls::FileVersionOf(module), 0x0001000000000000u) << "the control carries its version";
  ASSERT_EQ(RegisterControl(Control(module), user_, machine_), RegistrationResult::kWritten);
  EXPECT_EQ(RegisterControl(Control(folder_.AddFile(L"older.ocx"), 1), user_, machine_),
            RegistrationResult::kLeftAlone);
  EXPECT_EQ(Read(user_, ServerKey()), module);
}

TEST_F(Registration, UnregisteringRemovesEverythingThatWasWritten) {
  const std::wstring ours = folder_.AddFile(L"ours.ocx");
  ASSERT_EQ(RegisterControl(Control(ours), user_, machine_), RegistrationResult::kWritten);
  EXPECT_TRUE(UnregisterControl(Control(ours), user_));
  EXPECT_EQ(Read(user_, ServerKey()), L"<none>");
  EXPECT_EQ(Read(user_, L"Test.Control"), L"<none>");
  EXPECT_EQ(Read(user_, L"Test.Control.1"), L"<none>");
  EXPECT_EQ(Read(user_, L"Interface\\" + GuidText(kFileView.eventsId)), L"<none>");
  EXPECT_EQ(Read(user_, L"TypeLib\\" + GuidText(kFileView.eventsId) + L"\\1.0"), L"<none>");
}

TEST_F(Registration, UnregisteringLeavesWhatOthersWrote) {
  const std::wstring theirs = folder_.AddFile(L"theirs.ocx");
  Write(user_, ServerKey(), theirs);
  EXPECT_TRUE(UnregisterControl(Control(folder_.Join(L"ours.ocx")), user_));
  EXPECT_EQ(Read(user_, ServerKey()), theirs);
}

TEST_F(Registration, AnotherCopyOfOursDoesNotUnregisterThisOne) {
  const std::wstring ours = folder_.AddFile(L"ours.ocx");
  ASSERT_EQ(RegisterControl(Control(ours), user_, machine_), RegistrationResult::kWritten);
  EXPECT_TRUE(UnregisterControl(Control(folder_.Join(L"elsewhere.ocx")), user_));
  EXPECT_EQ(Read(user_, ServerKey()), ours);
}

class ModuleRegistration : public testing::TestWithParam<const ControlKind*> {
 protected:
  HRESULT Call(const char* name) {
    HRESULT(STDAPICALLTYPE * function)() = nullptr;
    const FARPROC address = GetProcAddress(ModuleOf(*GetParam()), name);
    std::memcpy(&function, &address, sizeof(function));
    return function ? function() : E_FAIL;
  }
};

TEST_P(ModuleRegistration, RegistersSoThatTheClassCanBeCreatedInThisProcess) {
  ASSERT_EQ(CoInitialize(nullptr), S_OK);
  ASSERT_EQ(Call("DllRegisterServer"), S_OK);
  const std::wstring path =
      L"Software\\Classes\\CLSID\\" + GuidText(GetParam()->classId) + L"\\InprocServer32";
  wchar_t file[MAX_PATH] = L"";
  DWORD size = sizeof(file);
  ASSERT_EQ(RegGetValueW(HKEY_CURRENT_USER, path.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, file, &size),
            ERROR_SUCCESS);
  EXPECT_NE(std::wstring(file).find(GetParam()->file), std::wstring::npos);
  {
    ComRef<IUnknown> object;
    EXPECT_EQ(
        CoCreateInstance(GetParam()->classId, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, object.put_void()),
        S_OK);
  }
  EXPECT_TRUE(CanUnload(*GetParam()));
  EXPECT_EQ(Call("DllUnregisterServer"), S_OK);
  size = sizeof(file);
  EXPECT_EQ(RegGetValueW(HKEY_CURRENT_USER, path.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, file, &size),
            ERROR_FILE_NOT_FOUND);
  CoUninitialize();
}

INSTANTIATE_TEST_SUITE_P(AllControls, ModuleRegistration,
                         testing::Values(&kFileView, &kFolderView, &kComboView), [](const auto& info) {
                           return info.param == &kFileView     ? "FileView"
                                  : info.param == &kFolderView ? "FolderView"
                                                               : "ComboView";
                         });

}  // namespace
}  // namespace controls_test
