// Making, attaching, moving and detaching a control: which calls it gets, in which order, and what failures
// do.
#include <comcat.h>
#include <gmock/gmock.h>

#include <stdexcept>

#include "src/framework/com/com_text.h"
#include "src/shellhost/control_container.h"
#include "src/shellhost/property_bag.h"
#include "tests/integration/shellhost/hosting_fixture.h"

namespace file_explorer {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using Lines = std::vector<std::string>;

constexpr char kActivate[] = "DoVerb(-5 in 10,20,110,70)";

ControlScript SiteLate() {
  ControlScript script;
  script.miscStatus = 0;
  return script;
}

class SiteAttach : public HostingTest {};

TEST_F(SiteAttach, AControlThatWantsItsSiteFirstGetsItBeforeItsState) {
  ScriptedClass control(kTestClass, {});
  auto site = CreatedSite();
  EXPECT_EQ(site->Attach(parent_.get(), kTestRect, nullptr), S_OK);
  EXPECT_THAT(control.log, ElementsAre("CreateInstance", "GetMiscStatus(1)", "SetClientSite(site)", "InitNew",
                                       kActivate, "SetAdvise(1,0)"));
  EXPECT_TRUE(site->flags() & kSiteClientSiteFirst);
  site->Detach();
}

TEST_F(SiteAttach, AnyOtherControlGetsItsSiteAtTheEnd) {
  ScriptedClass control(kTestClass, SiteLate());
  auto site = CreatedSite();
  EXPECT_EQ(site->Attach(parent_.get(), kTestRect, nullptr), S_OK);
  EXPECT_THAT(control.log, ElementsAre("CreateInstance", "GetMiscStatus(1)", "InitNew", kActivate,
                                       "SetAdvise(1,0)", "SetClientSite(site)"));
  EXPECT_FALSE(site->flags() & kSiteClientSiteFirst);
  site->Detach();
}

TEST_F(SiteAttach, PropertiesComeInABagInsteadOfInitNew) {
  ControlScript script;
  script.bagReads = {L"ITEMS", L"text", L"Unknown"};
  ScriptedClass control(kTestClass, script);
  PropertyList properties = ListWith(L"Items", 42);
  const UniqueBstr text = MakeBstr("hello");
  VARIANT value;
  VariantInit(&value);
  value.vt = VT_BSTR;
  value.bstrVal = text.get();
  properties.Append(L"Text", value);
  auto site = CreatedSite(properties);
  EXPECT_EQ(site->Attach(parent_.get(), kTestRect, nullptr), S_OK);
  EXPECT_THAT(control.log, ElementsAre("CreateInstance", "GetMiscStatus(1)", "SetClientSite(site)",
                                       "Load(bag, error log)", kActivate, "SetAdvise(1,0)"));
  EXPECT_EQ(control.bagValues[L"ITEMS"], std::make_pair(S_OK, std::wstring(L"42")));
  EXPECT_EQ(control.bagValues[L"text"], std::make_pair(S_OK, std::wstring(L"hello")));
  EXPECT_EQ(control.bagValues[L"Unknown"].first, E_INVALIDARG);
  site->Detach();
}

TEST_F(SiteAttach, AnObjectPropertyReadsAsEmptyInTheBag) {
  ControlScript script;
  script.bagReads = {L"Object"};
  ScriptedClass control(kTestClass, script);
  auto item = CComObject<ScriptedItem>::New();
  VARIANT value;
  VariantInit(&value);
  value.vt = VT_UNKNOWN;
  value.punkVal = item.Get();
  PropertyList properties;
  properties.Append(L"Object", value);
  auto site = CreatedSite(properties);
  EXPECT_EQ(site->Attach(parent_.get(), kTestRect, nullptr), S_OK);
  EXPECT_EQ(control.bagValues[L"Object"], std::make_pair(S_OK, std::wstring()));
  site->Detach();
}

TEST_F(SiteAttach, ABagThatIsGivenReplacesTheProperties) {
  ControlScript script;
  script.bagReads = {L"Given", L"Own"};
  ScriptedClass control(kTestClass, script);
  auto bag = CComObject<CPropertyBag>::New();
  VARIANT value = NumberVariant(8);
  bag->Write(L"Given", &value);
  auto site = CreatedSite(ListWith(L"Own", 1));
  EXPECT_EQ(site->Attach(parent_.get(), kTestRect, static_cast<IPropertyBag*>(bag.Get())), S_OK);
  EXPECT_EQ(control.bagValues[L"Given"].second, L"8");
  EXPECT_EQ(control.bagValues[L"Own"].first, E_INVALIDARG);
  site->Detach();
}

TEST_F(SiteAttach, AStreamIsLoadedThroughIPersistStream) {
  ScriptedClass control(kTestClass, {});
  ComPtr<IStream> stream;
  ASSERT_EQ(CreateStreamOnHGlobal(nullptr, TRUE, stream.ReleaseAndGetAddressOf()), S_OK);
  auto site = CreatedSite(ListWith(L"Own", 1));
  EXPECT_EQ(site->Attach(parent_.get(), kTestRect, stream.Get()), S_OK);
  EXPECT_THAT(control.LogOf({"Load", "InitNew"}), ElementsAre("Load(stream)"));
  site->Detach();
}

TEST_F(SiteAttach, AnInitObjectThatIsNeitherIsNotLoaded) {
  ScriptedClass control(kTestClass, {});
  auto item = CComObject<ScriptedItem>::New();
  auto site = CreatedSite();
  EXPECT_EQ(site->Attach(parent_.get(), kTestRect, item.Get()), S_OK);
  EXPECT_THAT(control.LogOf({"Load", "InitNew"}), ElementsAre());
  site->Detach();
}

TEST_F(SiteAttach, AControlThatIsInvisibleAtRunTimeIsNeverActivated) {
  ControlScript script;
  script.miscStatus = OLEMISC_INVISIBLEATRUNTIME | OLEMISC_SETCLIENTSITEFIRST;
  ScriptedClass control(kTestClass, script);
  auto site = CreatedSite();
  EXPECT_EQ(site->Attach(parent_.get(), kTestRect, nullptr), S_OK);
  EXPECT_THAT(control.log, ElementsAre("CreateInstance", "GetMiscStatus(1)", "SetClientSite(site)", "InitNew",
                                       "SetAdvise(1,0)"));
  EXPECT_FALSE(site->flags() & kSiteVisible);
  EXPECT_EQ(site->IsInPlaceActive(), 0);
  site->Detach();
}

TEST_F(SiteAttach, OptionalInterfacesThatAreMissingAreSkipped) {
  struct {
    std::vector<IID> missing;
    bool properties;
    bool stream;
    Lines expected;
  } const cases[] = {
      {{IID_IViewObject}, false, false, {"GetMiscStatus(1)", "SetClientSite(site)", "InitNew", kActivate}},
      {{IID_IPersistStreamInit},
       false,
       false,
       {"GetMiscStatus(1)", "SetClientSite(site)", kActivate, "SetAdvise(1,0)"}},
      {{IID_IPersistPropertyBag},
       true,
       false,
       {"GetMiscStatus(1)", "SetClientSite(site)", kActivate, "SetAdvise(1,0)"}},
      {{IID_IPersistStream},
       false,
       true,
       {"GetMiscStatus(1)", "SetClientSite(site)", kActivate, "SetAdvise(1,0)"}},
      {{IID_IOleInPlaceObject, IID_IOleInPlaceObjectWindowless},
       false,
       false,
       {"GetMiscStatus(1)", "SetClientSite(site)", "InitNew", kActivate, "SetAdvise(1,0)"}},
  };
  for (const auto& c : cases) {
    ControlScript script;
    script.missing = c.missing;
    ScriptedClass control(kTestClass, script);
    auto site = CreatedSite(c.properties ? ListWith(L"Name", 1) : PropertyList());
    control.log.clear();
    ComPtr<IStream> stream;
    if (c.stream) CreateStreamOnHGlobal(nullptr, TRUE, stream.ReleaseAndGetAddressOf());
    EXPECT_EQ(site->Attach(parent_.get(), kTestRect, stream.Get()), S_OK);
    EXPECT_THAT(control.log, ElementsAreArray(c.expected));
    // Without an in-place object there is nothing to move.
    site->SetPosition({0, 0, 5, 5});
    const bool movable =
        std::find(c.missing.begin(), c.missing.end(), IID_IOleInPlaceObject) == c.missing.end();
    EXPECT_EQ(control.LogOf({"SetObjectRects"}).size(), movable ? 1u : 0u);
    site->Detach();
    site.Reset();
    EXPECT_EQ(control.alive, 0);
  }
}

TEST_F(SiteAttach, AControlThatIsNoOleObjectFails) {
  ControlScript script;
  script.missing = {IID_IOleObject};
  ScriptedClass control(kTestClass, script);
  auto site = CreatedSite();
  EXPECT_EQ(site->Attach(parent_.get(), kTestRect, nullptr), E_FAIL);
  EXPECT_THAT(control.log, ElementsAre("CreateInstance"));
  EXPECT_EQ(site->DoVerb(OLEIVERB_SHOW), E_FAIL);
  site->Detach();
  site.Reset();
  EXPECT_EQ(control.alive, 0);
}

TEST_F(SiteAttach, WithoutAWindowTheArgumentIsInvalid) {
  ScriptedClass control(kTestClass, {});
  auto site = CreatedSite();
  EXPECT_EQ(site->Attach(nullptr, kTestRect, nullptr), E_INVALIDARG);
  EXPECT_EQ(site->ParentWindow(), nullptr);
  EXPECT_THAT(control.log, ElementsAre("CreateInstance"));
}

TEST_F(SiteAttach, WithoutAControlItIsUnexpected) {
  auto site = NewSite();
  EXPECT_EQ(site->Attach(parent_.get(), kTestRect, nullptr), E_UNEXPECTED);
  EXPECT_EQ(site->ParentWindow(), parent_.get());
  EXPECT_EQ(site->Position().right, kTestRect.right);
}

struct FaultCase {
  const char* call;
  bool siteFirst;
  Lines calls;  // what the control got, the failing call last
};

std::vector<FaultCase> FaultCases() {
  const Lines first = {"GetMiscStatus(1)", "SetClientSite(site)", "InitNew", kActivate, "SetAdvise(1,0)"};
  const Lines late = {"GetMiscStatus(1)", "InitNew", kActivate, "SetAdvise(1,0)", "SetClientSite(site)"};
  const char* firstNames[] = {"GetMiscStatus", "SetClientSite", "InitNew", "DoVerb", "SetAdvise"};
  const char* lateNames[] = {"GetMiscStatus", "InitNew", "DoVerb", "SetAdvise", "SetClientSite"};
  std::vector<FaultCase> cases;
  for (int i = 0; i < 5; ++i) {
    cases.push_back({firstNames[i], true, Lines(first.begin(), first.begin() + i + 1)});
    cases.push_back({lateNames[i], false, Lines(late.begin(), late.begin() + i + 1)});
  }
  return cases;
}

TEST_F(SiteAttach, AnExceptionOfAnyKindInAnyCallEndsTheOperation) {
  for (const Fault fault : {Fault::kThrows, Fault::kRaises}) {
    for (const FaultCase& c : FaultCases()) {
      SCOPED_TRACE(std::string(c.call) + (c.siteFirst ? ", site first" : ", site late"));
      ControlScript script;
      script.miscStatus = c.siteFirst ? OLEMISC_SETCLIENTSITEFIRST : 0;
      script.faults[c.call] = fault;
      ScriptedClass control(kTestClass, script);
      auto site = CreatedSite();
      control.log.clear();
      EXPECT_EQ(site->Attach(parent_.get(), kTestRect, nullptr), E_FAIL);
      EXPECT_THAT(control.log, ElementsAreArray(c.calls));
      control.script.faults.clear();
      EXPECT_EQ(site->Detach(), S_OK);
      EXPECT_FALSE(site->HasControl());
      site.Reset();
      EXPECT_EQ(control.alive, 0);
    }
  }
}

TEST_F(SiteAttach, AnExceptionWhileThePropertiesLoadEndsTheOperation) {
  for (const Fault fault : {Fault::kThrows, Fault::kRaises}) {
    ControlScript script;
    script.faults["Load"] = fault;
    ScriptedClass control(kTestClass, script);
    const LONG before = LiveComObjects();
    auto site = CreatedSite(ListWith(L"Name", 1));
    EXPECT_EQ(site->Attach(parent_.get(), kTestRect, nullptr), E_FAIL);
    EXPECT_TRUE(control.LogOf({"DoVerb"}).empty());
    site->Detach();
    site.Reset();
    EXPECT_EQ(control.alive, 0);
    EXPECT_EQ(LiveComObjects(), before) << "the bag or the error log stayed";
  }
}

TEST_F(SiteAttach, ACallThatMerelyFailsDoesNotEndTheSequence) {
  const Lines all = {"GetMiscStatus(1)", "SetClientSite(site)", "InitNew", kActivate, "SetAdvise(1,0)"};
  for (const char* call : {"SetClientSite", "InitNew", "DoVerb", "SetAdvise"}) {
    ControlScript script;
    script.faults[call] = Fault::kFails;
    ScriptedClass control(kTestClass, script);
    auto site = CreatedSite();
    control.log.clear();
    EXPECT_EQ(site->Attach(parent_.get(), kTestRect, nullptr), S_OK) << call;
    EXPECT_THAT(control.log, ElementsAreArray(all)) << call;
    site->Detach();
  }
}

TEST_F(SiteAttach, WithoutAMiscStatusTheSiteComesLastAndTheControlIsVisible) {
  ControlScript script;
  script.miscStatus = OLEMISC_SETCLIENTSITEFIRST | OLEMISC_INVISIBLEATRUNTIME;
  script.faults["GetMiscStatus"] = Fault::kFails;
  ScriptedClass control(kTestClass, script);
  auto site = CreatedSite();
  control.log.clear();
  EXPECT_EQ(site->Attach(parent_.get(), kTestRect, nullptr), S_OK);
  EXPECT_THAT(control.log,
              ElementsAre("GetMiscStatus(1)", "InitNew", kActivate, "SetAdvise(1,0)", "SetClientSite(site)"));
  site->Detach();
}

TEST_F(SiteAttach, DetachDeactivatesClosesAndReleasesInThisOrder) {
  ScriptedClass control(kTestClass, {});
  auto site = CreatedSite();
  site->Attach(parent_.get(), kTestRect, nullptr);
  EXPECT_EQ(site->IsInPlaceActive(), 1);
  EXPECT_TRUE(IsWindow(control.control->window()));
  control.log.clear();
  EXPECT_EQ(site->Detach(), S_OK);
  EXPECT_THAT(control.log, ElementsAre("InPlaceDeactivate", "Close(1)", "SetClientSite(null)", "destroyed"));
  EXPECT_EQ(control.alive, 0);
  EXPECT_EQ(site->IsInPlaceActive(), 0);
  EXPECT_EQ(site->ParentWindow(), nullptr);
  EXPECT_FALSE(site->HasControl());
  EXPECT_EQ(GetWindow(parent_.get(), GW_CHILD), nullptr);
  EXPECT_EQ(site->Detach(), S_OK);
}

TEST_F(SiteAttach, DetachGoesThroughWhateverACallDoes) {
  for (const Fault fault : {Fault::kFails, Fault::kThrows, Fault::kRaises}) {
    for (const char* call : {"InPlaceDeactivate", "Close", "SetClientSite"}) {
      ScriptedClass control(kTestClass, {});
      auto site = CreatedSite();
      site->Attach(parent_.get(), kTestRect, nullptr);
      control.log.clear();
      control.script.faults[call] = fault;
      EXPECT_EQ(site->Detach(), S_OK);
      EXPECT_THAT(control.LogOf({"InPlaceDeactivate", "Close", "SetClientSite"}),
                  ElementsAre("InPlaceDeactivate", "Close(1)", "SetClientSite(null)"));
      EXPECT_FALSE(site->HasControl());
      site.Reset();
      EXPECT_EQ(control.alive, 0) << call;
    }
  }
}

TEST_F(SiteAttach, ASiteThatIsReleasedWithoutDetachTakesItsControlDown) {
  ScriptedClass control(kTestClass, SiteLate());
  {
    auto site = CreatedSite();
    EXPECT_EQ(control.alive, 1);
  }
  EXPECT_EQ(control.alive, 0);
}

TEST_F(SiteAttach, MovingSetsPositionAndClipAlike) {
  ScriptedClass control(kTestClass, {});
  auto site = CreatedSite();
  EXPECT_EQ(site->SetPosition({1, 2, 3, 4}), S_OK);
  EXPECT_TRUE(control.LogOf({"SetObjectRects"}).empty());
  site->Attach(parent_.get(), kTestRect, nullptr);
  EXPECT_EQ(site->SetPosition({5, 6, 70, 80}), S_OK);
  EXPECT_THAT(control.LogOf({"SetObjectRects"}), ElementsAre("SetObjectRects(5,6,70,80 clip 5,6,70,80)"));
  EXPECT_EQ(site->Position().left, 5);
  control.script.faults["SetObjectRects"] = Fault::kRaises;
  EXPECT_EQ(site->SetPosition({5, 6, 71, 81}), S_OK);
  site->Detach();
}

TEST_F(SiteAttach, ResizingBeforeAttachingAttaches) {
  ScriptedClass control(kTestClass, {});
  auto site = CreatedSite();
  control.log.clear();
  EXPECT_EQ(AttachOrResize(site.Get(), parent_.get(), kTestRect), S_OK);
  EXPECT_EQ(control.LogOf({"DoVerb"}).size(), 1u);
  EXPECT_TRUE(control.LogOf({"SetObjectRects"}).empty());
  EXPECT_EQ(AttachOrResize(site.Get(), parent_.get(), {0, 0, 50, 60}), S_OK);
  EXPECT_EQ(control.LogOf({"DoVerb"}).size(), 1u);
  EXPECT_THAT(control.LogOf({"SetObjectRects"}), ElementsAre("SetObjectRects(0,0,50,60 clip 0,0,50,60)"));
  RECT window = {};
  GetWindowRect(control.control->window(), &window);
  EXPECT_EQ(window.right - window.left, 50);
  EXPECT_EQ(window.bottom - window.top, 60);
  site->Detach();
  EXPECT_EQ(AttachOrResize(nullptr, parent_.get(), kTestRect), E_POINTER);
}

TEST_F(SiteAttach, VerbsGoToTheControlWithTheSiteAndItsPlace) {
  ScriptedClass control(kTestClass, {});
  auto site = CreatedSite();
  EXPECT_EQ(site->DoVerb(OLEIVERB_SHOW), E_FAIL);
  site->Attach(parent_.get(), kTestRect, nullptr);
  EXPECT_EQ(site->DoVerb(OLEIVERB_SHOW), S_OK);
  EXPECT_EQ(control.log.back(), "DoVerb(-1 in 10,20,110,70)");
  control.script.faults["DoVerb"] = Fault::kThrows;
  EXPECT_EQ(site->DoVerb(OLEIVERB_SHOW), E_FAIL);
  site->Detach();
}

TEST_F(SiteAttach, CreateGivesSuccessOrFailureAndNothingElse) {
  auto site = NewSite();
  const CLSID unknown = {0xDEAD0001, 0, 0, {0, 0, 0, 0, 0, 0, 0, 1}};
  EXPECT_EQ(site->Create(unknown, {}, "code base"), E_FAIL);
  EXPECT_FALSE(site->HasControl());
  EXPECT_EQ(site->ControlUnknown(), nullptr);
  EXPECT_TRUE(IsEqualCLSID(site->ClassId(), unknown));
  EXPECT_STREQ(site->CodeBase(), "code base");
  ControlScript script;
  script.faults["CreateInstance"] = Fault::kFails;
  ScriptedClass control(kTestClass, script);
  EXPECT_EQ(site->Create(kTestClass, {}, ""), E_FAIL);
  EXPECT_FALSE(site->HasControl());
}

TEST_F(SiteAttach, ACheckedSiteMakesOnlyControlsThatAreSafeForScripting) {
  ScriptedClass control(kTestClass, {});
  auto site = NewSite();
  EXPECT_FALSE(site->flags() & kSiteCheckSafeForScripting);
  site->SetFlag(kSiteCheckSafeForScripting, true);
  EXPECT_EQ(site->Create(kTestClass, {}, ""), E_FAIL);
  EXPECT_EQ(control.created, 0);
  ComPtr<ICatRegister> categories;
  ASSERT_EQ(CoCreateInstance(CLSID_StdComponentCategoriesMgr, nullptr, CLSCTX_INPROC_SERVER, IID_ICatRegister,
                             reinterpret_cast<void**>(categories.ReleaseAndGetAddressOf())),
            S_OK);
  CATID safe = {0x7DD95801, 0x9882, 0x11CF, {0x9F, 0xA9, 0x00, 0xAA, 0x00, 0x6C, 0x42, 0xC4}};
  ASSERT_EQ(categories->RegisterClassImplCategories(kTestClass, 1, &safe), S_OK);
  EXPECT_EQ(site->Create(kTestClass, {}, ""), S_OK);
  EXPECT_EQ(control.created, 1);
  EXPECT_EQ(categories->UnRegisterClassImplCategories(kTestClass, 1, &safe), S_OK);
  const std::string key = std::string("CLSID\\") + kTestClassText;
  RegDeleteKeyA(HKEY_CLASSES_ROOT, (key + "\\Implemented Categories").c_str());
  RegDeleteKeyA(HKEY_CLASSES_ROOT, key.c_str());
}

TEST_F(SiteAttach, ANewSiteHasItsInitialState) {
  auto site = NewSite();
  EXPECT_EQ(site->flags(), static_cast<std::uint32_t>(kSiteVisible | kSiteWindowlessAllowed));
  EXPECT_EQ(site->ParentWindow(), nullptr);
  EXPECT_FALSE(site->HasControl());
  EXPECT_EQ(site->IsInPlaceActive(), 0);
  EXPECT_STREQ(site->CodeBase(), "");
}

TEST_F(SiteAttach, SitesAreListedInOrderOfConstructionWhileTheyLive) {
  const auto& sites = ModuleSites().sites();
  const std::size_t before = sites.size();
  auto first = NewSite();
  auto second = NewSite();
  ASSERT_EQ(sites.size(), before + 2);
  EXPECT_EQ(sites.back(), second.Get());
  EXPECT_EQ(*std::prev(sites.end(), 2), first.Get());
  first.Reset();
  ASSERT_EQ(sites.size(), before + 1);
  EXPECT_EQ(sites.back(), second.Get());
}

TEST(SiteLists, GrowingPastTheMaximumIsALengthError) {
  SiteList list(2);
  list.Add(nullptr);
  list.Add(nullptr);
  try {
    list.Add(nullptr);
    FAIL() << "nothing was thrown";
  } catch (const std::length_error& error) {
    EXPECT_STREQ(error.what(), "list<T> too long");
  }
  EXPECT_EQ(list.sites().size(), 2u);
}

}  // namespace
}  // namespace file_explorer
