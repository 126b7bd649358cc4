// What each method of the site and of its frame answers.
#include <gtest/gtest.h>

#include "src/shellhost/control_container.h"
#include "src/shellhost/control_site_frame.h"
#include "tests/integration/shellhost/hosting_fixture.h"

namespace file_explorer {
namespace {

struct Answer {
  const char* method;
  HRESULT actual;
  HRESULT expected;
};

void Check(std::initializer_list<Answer> answers) {
  for (const Answer& answer : answers) EXPECT_EQ(answer.actual, answer.expected) << answer.method;
}

class SiteMethods : public HostingTest {
 protected:
  void SetUp() override {
    HostingTest::SetUp();
    site_ = NewSite();
    site_->Attach(parent_.get(), kTestRect, nullptr);  // no control: the window and the place are kept
  }
  void TearDown() override {
    site_.Reset();
    HostingTest::TearDown();
  }
  Site site_;
};

TEST_F(SiteMethods, GivesEachOfItsInterfacesWithOneIdentity) {
  const auto identity = QueryFor<IUnknown>(static_cast<IDispatch*>(site_.Get()));
  for (const IID& iid : {IID_IOleClientSite, IID_IOleWindow, IID_IOleInPlaceSite, IID_IOleInPlaceSiteEx,
                         IID_IOleInPlaceSiteWindowless, IID_IOleControlSite, IID_IAdviseSink,
                         IID_IAdviseSinkEx, IID_IDispatch, IID_IOleCommandTarget}) {
    const auto part = QueryFor<IUnknown>(identity.Get(), iid);
    ASSERT_TRUE(part);
    EXPECT_EQ(QueryFor<IUnknown>(part.Get()).Get(), identity.Get());
  }
  EXPECT_FALSE(QueryFor<IOleContainer>(identity.Get()));
  EXPECT_EQ(ControlSiteOf(identity.Get()), site_.Get());
  EXPECT_EQ(ControlSiteOf(nullptr), nullptr);
  auto item = CComObject<ScriptedItem>::New();
  EXPECT_EQ(ControlSiteOf(item.Get()), nullptr);
}

TEST_F(SiteMethods, TheClientSiteIsThePrimaryBaseAndTheOthersFollowInOrder) {
  CControlSite* const site = site_.Get();
  const auto at = [](void* part) { return reinterpret_cast<std::uintptr_t>(part); };
  EXPECT_EQ(at(static_cast<IOleClientSite*>(site)), at(site));
  EXPECT_LT(at(static_cast<IOleClientSite*>(site)), at(static_cast<IOleInPlaceSiteWindowless*>(site)));
  EXPECT_LT(at(static_cast<IOleInPlaceSiteWindowless*>(site)), at(static_cast<IOleControlSite*>(site)));
  EXPECT_LT(at(static_cast<IOleControlSite*>(site)), at(static_cast<IAdviseSinkEx*>(site)));
  EXPECT_LT(at(static_cast<IAdviseSinkEx*>(site)), at(static_cast<IDispatch*>(site)));
  EXPECT_LT(at(static_cast<IDispatch*>(site)), at(static_cast<IOleCommandTarget*>(site)));
}

TEST_F(SiteMethods, OfTheClientSite) {
  IMoniker* moniker = nullptr;
  IOleContainer* container = reinterpret_cast<IOleContainer*>(1);
  Check({{"SaveObject", site_->SaveObject(), S_OK},
         {"ShowObject", site_->ShowObject(), S_OK},
         {"OnShowWindow", site_->OnShowWindow(TRUE), S_OK},
         {"GetMoniker", site_->GetMoniker(0, 0, &moniker), E_NOTIMPL},
         {"RequestNewObjectLayout", site_->RequestNewObjectLayout(), E_NOTIMPL},
         {"GetContainer", site_->GetContainer(&container), E_NOINTERFACE},
         {"GetContainer, null", site_->GetContainer(nullptr), E_NOINTERFACE}});
  EXPECT_EQ(container, nullptr);
}

TEST_F(SiteMethods, OfTheControlSite) {
  IDispatch* extended = nullptr;
  MSG message = {};
  Check({{"OnControlInfoChanged", site_->OnControlInfoChanged(), S_OK},
         {"OnFocus", site_->OnFocus(TRUE), S_OK},
         {"GetExtendedControl", site_->GetExtendedControl(&extended), E_NOTIMPL},
         {"TranslateAccelerator", site_->TranslateAccelerator(&message, 0), E_NOTIMPL},
         {"ShowPropertyFrame", site_->ShowPropertyFrame(), E_NOTIMPL}});
}

TEST_F(SiteMethods, TheInPlaceLockIsBitZeroOfTheArgument) {
  EXPECT_EQ(site_->LockInPlaceActive(TRUE), S_OK);
  EXPECT_TRUE(site_->flags() & kSiteInPlaceLocked);
  EXPECT_EQ(site_->LockInPlaceActive(2), S_OK);
  EXPECT_FALSE(site_->flags() & kSiteInPlaceLocked);
  EXPECT_EQ(site_->LockInPlaceActive(3), S_OK);
  EXPECT_TRUE(site_->flags() & kSiteInPlaceLocked);
  EXPECT_EQ(site_->LockInPlaceActive(FALSE), S_OK);
  EXPECT_FALSE(site_->flags() & kSiteInPlaceLocked);
}

TEST_F(SiteMethods, TransformsBetweenPixelsAndHimetric) {
  const HDC screen = GetDC(nullptr);
  const int resolution = GetDeviceCaps(screen, LOGPIXELSX);
  ReleaseDC(nullptr, screen);
  POINTL himetric = {0, 0};
  POINTF pixels = {static_cast<float>(resolution), static_cast<float>(2 * resolution)};
  EXPECT_EQ(site_->TransformCoords(&himetric, &pixels, XFORMCOORDS_CONTAINERTOHIMETRIC | XFORMCOORDS_SIZE),
            S_OK);
  EXPECT_EQ(himetric.x, 2540);
  EXPECT_EQ(himetric.y, 5080);
  pixels = {0, 0};
  EXPECT_EQ(
      site_->TransformCoords(&himetric, &pixels, XFORMCOORDS_HIMETRICTOCONTAINER | XFORMCOORDS_POSITION),
      S_OK);
  EXPECT_FLOAT_EQ(pixels.x, static_cast<float>(resolution));
  EXPECT_FLOAT_EQ(pixels.y, static_cast<float>(2 * resolution));
  EXPECT_EQ(site_->TransformCoords(nullptr, &pixels, XFORMCOORDS_HIMETRICTOCONTAINER), E_INVALIDARG);
  EXPECT_EQ(site_->TransformCoords(&himetric, nullptr, XFORMCOORDS_HIMETRICTOCONTAINER), E_INVALIDARG);
  EXPECT_EQ(site_->TransformCoords(&himetric, &pixels, XFORMCOORDS_SIZE), E_INVALIDARG);
}

TEST_F(SiteMethods, OfTheInPlaceSite) {
  HWND window = nullptr;
  Check({{"GetWindow", site_->GetWindow(&window), S_OK},
         {"GetWindow, null", site_->GetWindow(nullptr), E_INVALIDARG},
         {"ContextSensitiveHelp", site_->ContextSensitiveHelp(TRUE), S_OK},
         {"CanInPlaceActivate", site_->CanInPlaceActivate(), S_OK},
         {"Scroll", site_->Scroll({1, 1}), S_OK},
         {"DiscardUndoState", site_->DiscardUndoState(), S_OK},
         {"DeactivateAndUndo", site_->DeactivateAndUndo(), S_OK},
         {"OnPosRectChange", site_->OnPosRectChange(&kTestRect), S_OK},
         {"RequestUIActivate", site_->RequestUIActivate(), S_FALSE},
         {"GetCapture", site_->GetCapture(), S_FALSE},
         {"SetCapture", site_->SetCapture(TRUE), S_FALSE},
         {"GetFocus", site_->GetFocus(), S_OK},
         {"SetFocus", site_->SetFocus(TRUE), S_OK},
         {"ScrollRect", site_->ScrollRect(1, 1, nullptr, nullptr), S_OK}});
  EXPECT_EQ(window, parent_.get());
}

TEST_F(SiteMethods, ActivationIsKeptInTheFlags) {
  EXPECT_EQ(site_->OnInPlaceActivate(), S_OK);
  EXPECT_EQ(site_->IsInPlaceActive(), 1);
  EXPECT_EQ(site_->OnUIActivate(), S_OK);
  EXPECT_TRUE(site_->flags() & kSiteUiActive);
  EXPECT_EQ(site_->OnUIDeactivate(FALSE), S_OK);
  EXPECT_FALSE(site_->flags() & kSiteUiActive);
  EXPECT_EQ(site_->OnInPlaceDeactivate(), S_OK);
  EXPECT_EQ(site_->IsInPlaceActive(), 0);
  BOOL noRedraw = TRUE;
  EXPECT_EQ(site_->OnInPlaceActivateEx(&noRedraw, 0), S_OK);
  EXPECT_EQ(noRedraw, FALSE);
  EXPECT_EQ(site_->IsInPlaceActive(), 1);
  EXPECT_EQ(site_->OnInPlaceDeactivateEx(TRUE), S_OK);
  EXPECT_EQ(site_->IsInPlaceActive(), 0);
  EXPECT_EQ(site_->OnInPlaceActivateEx(nullptr, 0), S_OK);
  EXPECT_EQ(site_->IsInPlaceActive(), 1);
}

TEST_F(SiteMethods, WindowlessActivationIsAllowedWhileItsFlagIsSet) {
  EXPECT_EQ(site_->CanWindowlessActivate(), S_OK);
  site_->SetFlag(kSiteWindowlessAllowed, false);
  EXPECT_EQ(site_->CanWindowlessActivate(), S_FALSE);
}

TEST_F(SiteMethods, TheWindowContextIsTheParentWindowAndTheSitesPlace) {
  ComPtr<IOleInPlaceFrame> frame;
  ComPtr<IOleInPlaceUIWindow> document;
  RECT position = {};
  RECT clip = {};
  OLEINPLACEFRAMEINFO info = {};
  info.cb = sizeof info;
  info.cAccelEntries = 5;
  ASSERT_EQ(site_->GetWindowContext(frame.ReleaseAndGetAddressOf(), document.ReleaseAndGetAddressOf(),
                                    &position, &clip, &info),
            S_OK);
  HWND window = nullptr;
  EXPECT_EQ(frame->GetWindow(&window), S_OK);
  EXPECT_EQ(window, parent_.get());
  EXPECT_EQ(document->GetWindow(&window), S_OK);
  EXPECT_EQ(window, parent_.get());
  EXPECT_TRUE(EqualRect(&position, &kTestRect));
  EXPECT_TRUE(EqualRect(&clip, &kTestRect));
  EXPECT_EQ(info.hwndFrame, parent_.get());
  EXPECT_EQ(info.fMDIApp, FALSE);
  EXPECT_EQ(info.haccel, nullptr);
  EXPECT_EQ(info.cAccelEntries, 0u);

  ComPtr<IOleInPlaceFrame> again;
  site_->GetWindowContext(again.ReleaseAndGetAddressOf(), document.ReleaseAndGetAddressOf(), &position, &clip,
                          &info);
  EXPECT_EQ(again.Get(), frame.Get()) << "the frame is made once";
}

TEST_F(SiteMethods, AFrameThatOutlivesItsSiteHasNoWindow) {
  ComPtr<IOleInPlaceFrame> frame;
  ComPtr<IOleInPlaceUIWindow> document;
  RECT rect = {};
  OLEINPLACEFRAMEINFO info = {};
  site_->GetWindowContext(frame.ReleaseAndGetAddressOf(), document.ReleaseAndGetAddressOf(), &rect, &rect,
                          &info);
  site_.Reset();
  HWND window = parent_.get();
  EXPECT_EQ(frame->GetWindow(&window), S_OK);
  EXPECT_EQ(window, nullptr);
}

TEST_F(SiteMethods, AWindowContextWithoutAPlaceToPutItIsInvalid) {
  ComPtr<IOleInPlaceFrame> frame;
  ComPtr<IOleInPlaceUIWindow> document;
  RECT rect = {};
  OLEINPLACEFRAMEINFO info = {};
  EXPECT_EQ(site_->GetWindowContext(nullptr, document.ReleaseAndGetAddressOf(), &rect, &rect, &info),
            E_INVALIDARG);
  EXPECT_EQ(site_->GetWindowContext(frame.ReleaseAndGetAddressOf(), nullptr, &rect, &rect, &info),
            E_INVALIDARG);
  EXPECT_EQ(frame.Get(), nullptr);
  EXPECT_EQ(site_->GetWindowContext(frame.ReleaseAndGetAddressOf(), document.ReleaseAndGetAddressOf(),
                                    nullptr, &rect, &info),
            E_INVALIDARG);
}

TEST(SiteFrame, AnswersEveryMethod) {
  auto frame = CComObject<CControlSiteIPFrame>::New();
  frame->SetParentWindow(GetDesktopWindow());
  HWND window = nullptr;
  RECT border = {1, 2, 3, 4};
  MSG message = {};
  Check({{"GetWindow", frame->GetWindow(&window), S_OK},
         {"GetWindow, null", frame->GetWindow(nullptr), E_INVALIDARG},
         {"ContextSensitiveHelp", frame->ContextSensitiveHelp(TRUE), S_OK},
         {"GetBorder", frame->GetBorder(&border), INPLACE_E_NOTOOLSPACE},
         {"RequestBorderSpace", frame->RequestBorderSpace(&border), INPLACE_E_NOTOOLSPACE},
         {"SetBorderSpace", frame->SetBorderSpace(&border), S_OK},
         {"SetActiveObject", frame->SetActiveObject(nullptr, nullptr), S_OK},
         {"InsertMenus", frame->InsertMenus(nullptr, nullptr), S_OK},
         {"SetMenu", frame->SetMenu(nullptr, nullptr, nullptr), S_OK},
         {"RemoveMenus", frame->RemoveMenus(nullptr), S_OK},
         {"SetStatusText", frame->SetStatusText(L"text"), S_OK},
         {"EnableModeless", frame->EnableModeless(FALSE), S_OK},
         {"TranslateAccelerator", frame->TranslateAccelerator(&message, 1), E_NOTIMPL}});
  EXPECT_EQ(window, GetDesktopWindow());
  EXPECT_TRUE(QueryFor<IOleInPlaceUIWindow>(frame.Get()));
  EXPECT_TRUE(QueryFor<IOleWindow>(frame.Get()));
  EXPECT_FALSE(QueryFor<IOleInPlaceSite>(frame.Get()));
}

}  // namespace
}  // namespace file_explorer
