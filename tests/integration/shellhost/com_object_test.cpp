#include "src/framework/com/com_object.h"

#include <gtest/gtest.h>

#include <array>
#include <stdexcept>

#include "src/framework/com/com_guard.h"
#include "src/framework/com/com_text.h"
#include "src/framework/com/dispatch_impl.h"

namespace file_explorer {
namespace {

// Counts its life, and takes references on itself while it dies, as an object does that is called back
// meanwhile.
class Counted : public IDropSource, public CComObjectRootEx<CComSingleThreadModel> {
 public:
  static std::span<const InterfaceEntry> Interfaces() {
    static constexpr std::array kEntries = {Exposes<Counted, IUnknown, IDropSource>(IID_IUnknown),
                                            Exposes<Counted, IDropSource>(IID_IDropSource)};
    return kEntries;
  }
  explicit Counted(int& destroyed) : destroyed_(destroyed) {}
  HRESULT STDMETHODCALLTYPE QueryContinueDrag(BOOL, DWORD) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE GiveFeedback(DWORD) override { return S_OK; }
  void FinalRelease() noexcept {
    AddRef();
    Release();
  }

 protected:
  virtual ~Counted() { ++destroyed_; }

 private:
  int& destroyed_;
};

TEST(ComObject, StartsWithOneReferenceAndDestroysItselfWithTheLast) {
  const LONG before = LiveComObjects();
  int destroyed = 0;
  auto object = CComObject<Counted>::New(destroyed);
  EXPECT_EQ(LiveComObjects(), before + 1);
  EXPECT_EQ(object->AddRef(), 2u);
  EXPECT_EQ(object->Release(), 1u);
  EXPECT_EQ(destroyed, 0);
  object.Reset();
  EXPECT_EQ(destroyed, 1);
  EXPECT_EQ(LiveComObjects(), before);
}

TEST(ComObject, AnswersTheInterfacesOfItsTableAndNoOthers) {
  int destroyed = 0;
  auto object = CComObject<Counted>::New(destroyed);
  const auto unknown = QueryFor<IUnknown>(object.Get());
  const auto source = QueryFor<IDropSource>(object.Get());
  ASSERT_TRUE(source);
  EXPECT_EQ(QueryFor<IUnknown>(source.Get()).Get(), unknown.Get());
  void* other = &destroyed;
  EXPECT_EQ(object->QueryInterface(IID_IDropTarget, &other), E_NOINTERFACE);
  EXPECT_EQ(other, nullptr);
  EXPECT_EQ(object->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
}

TEST(ComEdge, TurnsWhatIsThrownIntoACode) {
  EXPECT_EQ(ComEdge([] { return S_FALSE; }), S_FALSE);
  EXPECT_EQ(ComEdge([]() -> HRESULT { throw _com_error(DISP_E_TYPEMISMATCH); }), DISP_E_TYPEMISMATCH);
  EXPECT_EQ(ComEdge([]() -> HRESULT { throw _com_error(S_OK); }), E_FAIL);
  EXPECT_EQ(ComEdge([]() -> HRESULT { throw std::bad_alloc(); }), E_OUTOFMEMORY);
  EXPECT_EQ(ComEdge([]() -> HRESULT { throw std::length_error("long"); }), E_FAIL);
  EXPECT_EQ(ComEdge([]() -> HRESULT { throw 1; }), E_FAIL);
}

TEST(ForeignCode, ReportsAnyKindOfExceptionAndGoesOn) {
  EXPECT_TRUE(RunForeignCode([] {}));
  EXPECT_FALSE(RunForeignCode([] { throw std::runtime_error("ours"); }));
  EXPECT_FALSE(RunForeignCode([] { RaiseException(0xE06D7363, 0, 0, nullptr); }));
  EXPECT_FALSE(RunForeignCode([] {
    volatile int* nowhere = nullptr;
    *nowhere = 1;
  }));
  bool inner = true;
  EXPECT_TRUE(RunForeignCode([&] { inner = RunForeignCode([] { RaiseException(1, 0, 0, nullptr); }); }));
  EXPECT_FALSE(inner);
}

TEST(ComText, IsShownInTheCodePageAndNeverBent) {
  EXPECT_EQ(DisplayBstr(MakeBstr("c:\\textures\\wood.png").get()), "c:\\textures\\wood.png");
  EXPECT_EQ(DisplayBstr(MakeBstr("").get()), "");
  EXPECT_EQ(SysStringLen(MakeBstr(static_cast<const char*>(nullptr)).get()), 0u);
  const UniqueBstr bent = MakeBstr(std::wstring_view(L"pl\u0101n.obj"));
  EXPECT_EQ(DisplayBstr(bent.get()), GetACP() == CP_UTF8 ? "pl\xC4\x81n.obj" : "pl?n.obj");
  EXPECT_EQ(TextOfBstr(bent.get()), L"pl\u0101n.obj");
}

TEST(ComText, ALongTextSurvives) {
  const std::wstring text(100000, L'x');
  const UniqueBstr bstr = MakeBstr(std::wstring_view(text));
  EXPECT_EQ(DisplayBstr(bstr.get()), std::string(100000, 'x'));
}

TEST(ComText, ANullTextAndAnOverLongOneGiveNothing) {
  EXPECT_FALSE(DisplayBstr(nullptr));
  // A text that claims 0x3FFFFFFF units: the length stands in the four bytes before it.
  struct {
    DWORD padding;
    DWORD bytes;
    wchar_t text[4];
  } claimed = {0, 0x7FFFFFFE, L"abc"};
  EXPECT_EQ(SysStringLen(claimed.text), kLongestNarrowedText + 1);
  EXPECT_FALSE(DisplayBstr(claimed.text));
}

TEST(OwnedVariants, ReleaseWhatTheyHold) {
  int destroyed = 0;
  {
    OwnedVariant value;
    value->vt = VT_UNKNOWN;
    value->punkVal = CComObject<Counted>::New(destroyed).Detach();
    OwnedVariant copy;
    EXPECT_EQ(copy.CopyFrom(value.get()), S_OK);
    value.put();
    EXPECT_EQ(destroyed, 0);
  }
  EXPECT_EQ(destroyed, 1);
}

TEST(OwnedVariants, AFailedCopyLeavesTheOldValue) {
  OwnedVariant value;
  value->vt = VT_I4;
  value->lVal = 5;
  VARIANT bad;
  VariantInit(&bad);
  bad.vt = 0x0FFF;
  EXPECT_TRUE(FAILED(value.CopyFrom(bad)));
  EXPECT_EQ(value->vt, VT_I4);
  EXPECT_EQ(value->lVal, 5);
}

}  // namespace
}  // namespace file_explorer
