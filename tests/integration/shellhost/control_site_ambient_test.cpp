#include <gmock/gmock.h>
#include <olectl.h>

#include "tests/integration/shellhost/hosting_fixture.h"

namespace file_explorer {
namespace {

class SiteAmbient : public HostingTest {
 protected:
  HRESULT Ask(DISPID id, WORD flags, VARIANT* result) {
    DISPPARAMS none = {};
    return site_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &none, result, nullptr, nullptr);
  }

  Site site_;

  void SetUp() override {
    HostingTest::SetUp();
    site_ = NewSite();
  }
  void TearDown() override {
    site_.Reset();
    HostingTest::TearDown();
  }
};

TEST_F(SiteAmbient, EveryPropertyOfTheTableIsAnswered) {
  struct {
    DISPID id;
    VARTYPE type;
    LONG value;
  } const table[] = {
      {DISPID_AMBIENT_APPEARANCE, VT_BOOL, VARIANT_TRUE},
      {DISPID_AMBIENT_SHOWHATCHING, VT_BOOL, VARIANT_TRUE},
      {DISPID_AMBIENT_SHOWGRABHANDLES, VT_BOOL, VARIANT_TRUE},
      {DISPID_AMBIENT_USERMODE, VT_BOOL, VARIANT_TRUE},
      {DISPID_AMBIENT_LOCALEID, VT_I4, 0},
      {DISPID_AMBIENT_FORECOLOR, VT_I4, static_cast<LONG>(GetSysColor(COLOR_WINDOWTEXT))},
      {DISPID_AMBIENT_BACKCOLOR, VT_I4, static_cast<LONG>(GetSysColor(COLOR_WINDOW))},
  };
  for (const auto& row : table) {
    OwnedVariant value;
    EXPECT_EQ(Ask(row.id, DISPATCH_PROPERTYGET, value.put()), S_OK) << row.id;
    EXPECT_EQ(value->vt, row.type) << row.id;
    EXPECT_EQ(row.type == VT_BOOL ? value->boolVal : value->lVal, row.value) << row.id;
    EXPECT_EQ(Ask(row.id, DISPATCH_PROPERTYGET | DISPATCH_METHOD, value.put()), S_OK) << row.id;
  }
}

TEST_F(SiteAmbient, AnyOtherIdIsNotFoundFontAndDisplayNameDeliberatelySo) {
  for (const DISPID id :
       {DISPID_AMBIENT_FONT, DISPID_AMBIENT_DISPLAYNAME, DISPID_AMBIENT_SCALEUNITS, DISPID_AMBIENT_UIDEAD,
        DISPID_AMBIENT_RIGHTTOLEFT, DISPID_VALUE, 1, -1, -717, -700}) {
    VARIANT value = NumberVariant(5);
    EXPECT_EQ(Ask(id, DISPATCH_PROPERTYGET, &value), DISP_E_MEMBERNOTFOUND) << id;
    EXPECT_EQ(value.lVal, 5) << id;
  }
}

TEST_F(SiteAmbient, AnythingButAGetIsRefusedWithAFailure) {
  for (const WORD flags : {DISPATCH_METHOD, DISPATCH_PROPERTYPUT, DISPATCH_PROPERTYPUTREF, 0}) {
    VARIANT value = NumberVariant(5);
    EXPECT_EQ(Ask(DISPID_AMBIENT_USERMODE, flags, &value), E_FAIL);
    EXPECT_EQ(Ask(DISPID_AMBIENT_FONT, flags, &value), E_FAIL);
    EXPECT_EQ(value.lVal, 5);
  }
}

TEST_F(SiteAmbient, AResultThatCannotBeReplacedIsLeftAloneAndNothingIsThrown) {
  VARIANT bad;
  VariantInit(&bad);
  bad.vt = 0x0FFF;
  bad.lVal = 77;
  EXPECT_TRUE(FAILED(Ask(DISPID_AMBIENT_USERMODE, DISPATCH_PROPERTYGET, &bad)));
  EXPECT_EQ(bad.vt, 0x0FFF);
  EXPECT_EQ(bad.lVal, 77);
  EXPECT_EQ(Ask(DISPID_AMBIENT_USERMODE, DISPATCH_PROPERTYGET, nullptr), E_POINTER);
}

TEST_F(SiteAmbient, NamesAndTypesAreNotImplemented) {
  UINT count = 9;
  EXPECT_EQ(site_->GetTypeInfoCount(&count), E_NOTIMPL);
  ITypeInfo* information = nullptr;
  EXPECT_EQ(site_->GetTypeInfo(0, 0, &information), E_NOTIMPL);
  EXPECT_EQ(information, nullptr);
  wchar_t text[] = L"UserMode";
  wchar_t* name = text;
  DISPID id = 0;
  EXPECT_EQ(site_->GetIDsOfNames(IID_NULL, &name, 1, 0, &id), E_NOTIMPL);
}

TEST_F(SiteAmbient, AControlReadsThemWhileItIsActivated) {
  ControlScript script;
  script.ambientReads = {DISPID_AMBIENT_USERMODE, DISPID_AMBIENT_FONT};
  ScriptedClass control(kTestClass, script);
  auto site = CreatedSite();
  site->Attach(parent_.get(), kTestRect, nullptr);
  EXPECT_EQ(control.ambientResults[DISPID_AMBIENT_USERMODE], S_OK);
  EXPECT_EQ(control.ambientResults[DISPID_AMBIENT_FONT], DISP_E_MEMBERNOTFOUND);
  site->Detach();
}

TEST_F(SiteAmbient, AnOwnerMayChangeThemAndTheControlIsTold) {
  ScriptedClass control(kTestClass, {});
  auto site = CreatedSite();
  site->SetAmbientLocale(1033);
  EXPECT_TRUE(control.LogOf({"OnAmbientPropertyChange"}).empty());
  site->Attach(parent_.get(), kTestRect, nullptr);
  site->SetAmbientColors(0x112233, 0x445566);
  site->SetAmbientFlags(kAmbientUserMode);
  EXPECT_THAT(control.LogOf({"OnAmbientPropertyChange"}),
              testing::ElementsAre("OnAmbientPropertyChange(-704)", "OnAmbientPropertyChange(-701)",
                                   "OnAmbientPropertyChange(-1)"));
  const auto ask = [&](DISPID id) {
    OwnedVariant value;
    DISPPARAMS none = {};
    site->Invoke(id, IID_NULL, 0, DISPATCH_PROPERTYGET, &none, value.put(), nullptr, nullptr);
    return value->vt == VT_BOOL ? value->boolVal : value->lVal;
  };
  EXPECT_EQ(ask(DISPID_AMBIENT_LOCALEID), 1033);
  EXPECT_EQ(ask(DISPID_AMBIENT_FORECOLOR), 0x112233);
  EXPECT_EQ(ask(DISPID_AMBIENT_BACKCOLOR), 0x445566);
  EXPECT_EQ(ask(DISPID_AMBIENT_USERMODE), VARIANT_TRUE);
  EXPECT_EQ(ask(DISPID_AMBIENT_SHOWHATCHING), VARIANT_FALSE);
  site->Detach();
}

}  // namespace
}  // namespace file_explorer
