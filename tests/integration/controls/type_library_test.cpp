// The embedded type libraries say what the dispatch tables answer.
#include <windows.h>

#include <ole2.h>

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "tests/integration/controls/control_container.h"

namespace controls_test {
namespace {

class TypeLibrary : public testing::TestWithParam<const ControlKind*> {
 protected:
  void SetUp() override {
    OleInitialize(nullptr);
    wchar_t path[MAX_PATH];
    GetModuleFileNameW(ModuleOf(*GetParam()), path, MAX_PATH);
    ASSERT_EQ(LoadTypeLibEx(path, REGKIND_NONE, library_.put()), S_OK);
  }
  void TearDown() override {
    library_.reset();
    OleUninitialize();
  }
  ComRef<ITypeInfo> Info(const GUID& id) {
    ComRef<ITypeInfo> info;
    library_->GetTypeInfoOfGuid(id, info.put());
    return info;
  }
  // The members with their ids; get and put of one property count once.
  std::set<DISPID> Members(ITypeInfo* info) {
    std::set<DISPID> ids;
    TYPEATTR* attributes = nullptr;
    info->GetTypeAttr(&attributes);
    for (UINT i = 0; i < attributes->cFuncs; ++i) {
      FUNCDESC* function = nullptr;
      info->GetFuncDesc(i, &function);
      ids.insert(function->memid);
      info->ReleaseFuncDesc(function);
    }
    for (UINT i = 0; i < attributes->cVars; ++i) {
      VARDESC* variable = nullptr;
      info->GetVarDesc(i, &variable);
      ids.insert(variable->memid);
      info->ReleaseVarDesc(variable);
    }
    info->ReleaseTypeAttr(attributes);
    return ids;
  }

  ComRef<ITypeLib> library_;
};

TEST_P(TypeLibrary, DispatchInterfacesRestOnTheSevenMembersOfIDispatch) {
  for (const IID& id : {GetParam()->dispatchId, GetParam()->eventsId}) {
    const ComRef<ITypeInfo> info = Info(id);
    ASSERT_TRUE(info);
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
    EXPECT_EQ(attributes->typekind, TKIND_DISPATCH);
    EXPECT_EQ(attributes->cbSizeVft, 7 * sizeof(void*));
    info->ReleaseTypeAttr(attributes);
  }
}

TEST_P(TypeLibrary, TheClassNamesItsInterfaces) {
  const ComRef<ITypeInfo> info = Info(GetParam()->classId);
  ASSERT_TRUE(info);
  TYPEATTR* attributes = nullptr;
  ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
  EXPECT_EQ(attributes->typekind, TKIND_COCLASS);
  EXPECT_EQ(attributes->cImplTypes, 2);
  info->ReleaseTypeAttr(attributes);
  int flags = 0;
  ASSERT_EQ(info->GetImplTypeFlags(1, &flags), S_OK);
  EXPECT_EQ(flags, IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE);
}

// Every member of the library is known to the object under its name and id, so the table and the library
// agree.
TEST_P(TypeLibrary, EveryMemberIsAnsweredByTheObject) {
  ComRef<IUnknown> unknown;
  ASSERT_EQ(CreateFromModule(*GetParam(), unknown.put()), S_OK);
  const ComRef<IDispatch> object = unknown.As<IDispatch>(GetParam()->dispatchId);
  const ComRef<ITypeInfo> info = Info(GetParam()->dispatchId);
  const std::set<DISPID> ids = Members(info.get());
  EXPECT_FALSE(ids.empty());
  for (const DISPID id : ids) {
    BSTR name = nullptr;
    ASSERT_EQ(info->GetDocumentation(id, &name, nullptr, nullptr, nullptr), S_OK) << id;
    LPOLESTR asked = name;
    DISPID answered = DISPID_UNKNOWN;
    EXPECT_EQ(object->GetIDsOfNames(IID_NULL, &asked, 1, LOCALE_USER_DEFAULT, &answered), S_OK) << id;
    EXPECT_EQ(answered, id);
    SysFreeString(name);
  }
  ComRef<ITypeInfo> own;
  EXPECT_EQ(object->GetTypeInfo(0, LOCALE_USER_DEFAULT, own.put()), S_OK);
}

TEST_P(TypeLibrary, AnUnknownMemberIsRefused) {
  ComRef<IUnknown> unknown;
  ASSERT_EQ(CreateFromModule(*GetParam(), unknown.put()), S_OK);
  const ComRef<IDispatch> object = unknown.As<IDispatch>(GetParam()->dispatchId);
  Variant result;
  EXPECT_EQ(Get(object.get(), 4711, &result), DISP_E_MEMBERNOTFOUND);
  EXPECT_EQ(object->Invoke(4, IID_NULL, 0, DISPATCH_PROPERTYGET, nullptr, nullptr, nullptr, nullptr),
            DISP_E_PARAMNOTFOUND);
}

INSTANTIATE_TEST_SUITE_P(AllControls, TypeLibrary, testing::Values(&kFileView, &kFolderView, &kComboView),
                         [](const auto& info) {
                           return info.param == &kFileView     ? "FileView"
                                  : info.param == &kFolderView ? "FolderView"
                                                               : "ComboView";
                         });

TEST(EventIds, AreDeclaredAsTheContainersSinksExpectThem) {
  OleInitialize(nullptr);
  wchar_t path[MAX_PATH];
  GetModuleFileNameW(ModuleOf(kFileView), path, MAX_PATH);
  ComRef<ITypeLib> library;
  ASSERT_EQ(LoadTypeLibEx(path, REGKIND_NONE, library.put()), S_OK);
  ComRef<ITypeInfo> info;
  ASSERT_EQ(library->GetTypeInfoOfGuid(kFileView.eventsId, info.put()), S_OK);
  const std::pair<DISPID, int> expected[] = {{1, 3},  {2, 4},  {3, 1},  {10, 2}, {12, 1}, {14, 2},
                                             {15, 1}, {17, 0}, {18, 0}, {19, 3}, {20, 3}};
  for (const auto& [id, arguments] : expected) {
    TYPEATTR* attributes = nullptr;
    info->GetTypeAttr(&attributes);
    int found = -1;
    for (UINT i = 0; i < attributes->cFuncs; ++i) {
      FUNCDESC* function = nullptr;
      info->GetFuncDesc(i, &function);
      if (function->memid == id) found = function->cParams;
      info->ReleaseFuncDesc(function);
    }
    info->ReleaseTypeAttr(attributes);
    EXPECT_EQ(found, arguments) << "event " << id;
  }
  info.reset();
  library.reset();
  OleUninitialize();
}

}  // namespace
}  // namespace controls_test
