#include "src/framework/com/com_dispatch.h"

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <string>

#include "src/framework/com/com_error_text.h"
#include "src/framework/com/com_object.h"
#include "src/framework/com/com_text.h"
#include "tests/integration/shellhost/hosting_fixture.h"
#include "tests/support/message_box_recorder.h"
#include "tests/support/scripted_control.h"

namespace file_explorer {
namespace {

using Answer = std::function<HRESULT(WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*)>;

// An object that answers calls by a function and can say that it describes its errors.
class Responder : public IDispatch, public ISupportErrorInfo, public CComObjectRootEx<CComSingleThreadModel> {
 public:
  static std::span<const InterfaceEntry> Interfaces() {
    static constexpr std::array kEntries = {Exposes<Responder, IUnknown, IDispatch>(IID_IUnknown),
                                            Exposes<Responder, IDispatch>(IID_IDispatch),
                                            Exposes<Responder, ISupportErrorInfo>(IID_ISupportErrorInfo)};
    return kEntries;
  }
  Answer answer;
  HRESULT describesErrors = S_FALSE;
  std::string call;
  bool hadResult = false;
  UINT namedArguments = 0;

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID) override { return describesErrors; }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters,
                                   VARIANT* result, EXCEPINFO* exception, UINT*) override {
    call = test_support::DescribeCall(id, flags, parameters);
    hadResult = result != nullptr;
    namedArguments = parameters->cNamedArgs;
    return answer ? answer(flags, parameters, result, exception) : S_OK;
  }

 protected:
  virtual ~Responder() = default;
};

class ComDispatch : public testing::Test {
 protected:
  IDispatch* object() { return responder_.Get(); }
  void AnswerWith(VARIANT value) {
    responder_->answer = [value](WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*) {
      return result ? VariantCopy(result, const_cast<VARIANT*>(&value)) : S_OK;
    };
  }

  Apartment apartment_;
  ComPtr<CComObject<Responder>> responder_ = CComObject<Responder>::New();
};

TEST_F(ComDispatch, PutsAValueOfTheGivenType) {
  _com_dispatch_propput(object(), 9, VT_I4, 4);
  EXPECT_EQ(responder_->call, "put 9 int 4");
  EXPECT_EQ(responder_->namedArguments, 1u);
  EXPECT_FALSE(responder_->hadResult);
  _com_dispatch_propput(object(), 1, VT_I2, 20);
  EXPECT_EQ(responder_->call, "put 1 short 20");
  _com_dispatch_propput(object(), 4, VT_BOOL, VARIANT_TRUE);
  EXPECT_EQ(responder_->call, "put 4 bool -1");
  const UniqueBstr text = MakeBstr("abc");
  _com_dispatch_propput(object(), 3, VT_BSTR, text.get());
  EXPECT_EQ(responder_->call, "put 3 text abc");
  _com_dispatch_propput(object(), 24, VT_DISPATCH, object());
  EXPECT_EQ(responder_->call, "put 24 object");
  VARIANT number = NumberVariant(7);
  _com_dispatch_propput(object(), 9, VT_VARIANT, &number);
  EXPECT_EQ(responder_->call, "put 9 int 7");
}

TEST_F(ComDispatch, ADoubleKeepsEveryBit) {
  std::uint64_t received = 0;
  responder_->answer = [&](WORD, DISPPARAMS* parameters, VARIANT*, EXCEPINFO*) {
    received = static_cast<std::uint64_t>(parameters->rgvarg[0].llVal);
    return S_OK;
  };
  for (const std::uint64_t bits : {0x0000000000000001ull, 0x00007FFE12345678ull, 0x7FF0000000000001ull}) {
    _com_dispatch_propput(object(), 21, VT_R8, std::bit_cast<double>(bits));
    EXPECT_EQ(received, bits);
  }
}

TEST_F(ComDispatch, AnObjectPropertyThatIsPutByReferenceOnlyIsPutThatWay) {
  responder_->answer = [](WORD flags, DISPPARAMS*, VARIANT*, EXCEPINFO*) {
    return (flags & DISPATCH_PROPERTYPUTREF) ? S_OK : DISP_E_MEMBERNOTFOUND;
  };
  _com_dispatch_propput(object(), 37, VT_DISPATCH, object());
  EXPECT_EQ(responder_->call, "putref 37 object");
  EXPECT_THROW(_com_dispatch_propput(object(), 4, VT_BOOL, VARIANT_TRUE), _com_error);
}

TEST_F(ComDispatch, GetsAValueInTheWantedType) {
  AnswerWith(NumberVariant(66));
  LONG number = 0;
  _com_dispatch_propget(object(), 52, VT_I4, &number);
  EXPECT_EQ(responder_->call, "get 52");
  EXPECT_EQ(number, 66);
  double real = 0;
  _com_dispatch_propget(object(), 52, VT_R8, &real);
  EXPECT_EQ(real, 66.0);
  UniqueBstr text;
  _com_dispatch_propget(object(), 52, VT_BSTR, text.put());
  EXPECT_STREQ(text.get(), L"66");
  OwnedVariant any;
  _com_dispatch_propget(object(), 52, VT_VARIANT, any.put());
  EXPECT_EQ(any->vt, VT_I4);
  struct {
    VARIANT_BOOL value = 0;
    SHORT behind = 0x1234;
  } flag;
  _com_dispatch_propget(object(), 52, VT_BOOL, &flag.value);
  EXPECT_EQ(flag.value, VARIANT_TRUE);
  EXPECT_EQ(flag.behind, 0x1234);
}

TEST_F(ComDispatch, AnEmptyAnswerWhereAnObjectIsAskedForIsNoObject) {
  VARIANT nothing;
  VariantInit(&nothing);
  AnswerWith(nothing);
  IDispatch* result = object();
  _com_dispatch_propget(object(), 7, VT_DISPATCH, &result);
  EXPECT_EQ(result, nullptr);
}

TEST_F(ComDispatch, AnObjectThatIsGivenIsTheCallers) {
  VARIANT value;
  VariantInit(&value);
  value.vt = VT_DISPATCH;
  value.pdispVal = object();
  AnswerWith(value);
  ComPtr<IDispatch> result;
  _com_dispatch_propget(object(), 7, VT_DISPATCH, result.ReleaseAndGetAddressOf());
  EXPECT_EQ(result.Get(), object());
  object()->AddRef();
  EXPECT_EQ(object()->Release(), 2u);
}

TEST_F(ComDispatch, PassesArgumentsInTheOrderOfTheCall) {
  const UniqueBstr first = MakeBstr("Move Files To...");
  const UniqueBstr second = MakeBstr("Default");
  AnswerWith(NumberVariant(31));
  LONG command = 0;
  _com_dispatch_method(object(), 70, DISPATCH_METHOD, VT_I4, &command, L"\x0008\x0008", first.get(),
                       second.get());
  EXPECT_EQ(responder_->call, "method 70(text Move Files To..., text Default)");
  EXPECT_EQ(command, 31);
  _com_dispatch_method(object(), 47, DISPATCH_PROPERTYGET, VT_EMPTY, nullptr, L"\x0003", 12);
  EXPECT_EQ(responder_->call, "get 47(int 12)");
  EXPECT_FALSE(responder_->hadResult);
}

HRESULT CodeOf(const std::function<void()>& call) {
  try {
    call();
  } catch (const _com_error& error) {
    return error.Error();
  }
  return S_OK;
}

TEST_F(ComDispatch, AFailingCallRaisesItsCode) {
  responder_->answer = [](WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*) { return DISP_E_BADINDEX; };
  LONG number = 0;
  EXPECT_EQ(CodeOf([&] { _com_dispatch_propget(object(), 1, VT_I4, &number); }), DISP_E_BADINDEX);
  EXPECT_EQ(CodeOf([&] { _com_dispatch_propput(object(), 1, VT_I4, 1); }), DISP_E_BADINDEX);
  EXPECT_EQ(CodeOf([&] { _com_dispatch_method(object(), 1, DISPATCH_METHOD, VT_EMPTY, nullptr, nullptr); }),
            DISP_E_BADINDEX);
  EXPECT_EQ(CodeOf([&] { _com_dispatch_propget(nullptr, 1, VT_I4, &number); }), E_POINTER);
}

TEST_F(ComDispatch, AnAnswerThatCannotBeConvertedRaises) {
  const UniqueBstr text = MakeBstr("no number");
  VARIANT value;
  VariantInit(&value);
  value.vt = VT_BSTR;
  value.bstrVal = text.get();
  AnswerWith(value);
  LONG number = 0;
  EXPECT_EQ(CodeOf([&] { _com_dispatch_propget(object(), 1, VT_I4, &number); }), DISP_E_TYPEMISMATCH);
}

HRESULT RaiseDescribed(WORD, DISPPARAMS*, VARIANT*, EXCEPINFO* exception) {
  exception->scode = STG_E_ACCESSDENIED;
  exception->bstrDescription = MakeBstr("The folder is locked").release();
  exception->bstrSource = MakeBstr("control").release();
  return DISP_E_EXCEPTION;
}

TEST_F(ComDispatch, AnExceptionOfTheObjectCarriesItsDescription) {
  responder_->answer = RaiseDescribed;
  try {
    _com_dispatch_propput(object(), 21, VT_R8, 1.0);
    FAIL() << "nothing was raised";
  } catch (const _com_error& error) {
    EXPECT_EQ(error.Error(), STG_E_ACCESSDENIED);
    EXPECT_EQ(ComErrorText("Title.", error),
              std::string("Error: Title.. ") + error.ErrorMessage() + ". The folder is locked");
  }
}

TEST_F(ComDispatch, AnExceptionWithAnErrorNumberOnlyGetsACodeFromIt) {
  responder_->answer = [](WORD, DISPPARAMS*, VARIANT*, EXCEPINFO* exception) {
    exception->wCode = 5;
    return DISP_E_EXCEPTION;
  };
  EXPECT_EQ(CodeOf([&] { _com_dispatch_propput(object(), 1, VT_I4, 1); }), _com_error::WCodeToHRESULT(5));
}

TEST_F(ComDispatch, AFailureOfADescribingObjectTakesTheThreadsErrorDescription) {
  responder_->describesErrors = S_OK;
  responder_->answer = [](WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*) {
    ComPtr<ICreateErrorInfo> writer;
    CreateErrorInfo(writer.ReleaseAndGetAddressOf());
    wchar_t text[] = L"No such folder";
    writer->SetDescription(text);
    SetErrorInfo(0, QueryFor<IErrorInfo>(writer.Get()).Get());
    return E_INVALIDARG;
  };
  try {
    _com_dispatch_propput(object(), 21, VT_R8, 1.0);
    FAIL() << "nothing was raised";
  } catch (const _com_error& error) {
    EXPECT_EQ(error.Error(), E_INVALIDARG);
    EXPECT_NE(ComErrorText("T", error).find(". No such folder"), std::string::npos);
  }
}

TEST_F(ComDispatch, AnErrorWithoutDescriptionHasTitleAndMessageOnly) {
  const _com_error error(E_OUTOFMEMORY);
  EXPECT_EQ(ComErrorText("Error while copying a PIDL.", error),
            std::string("Error: Error while copying a PIDL.. ") + error.ErrorMessage() + ".");
}

TEST_F(ComDispatch, TheReportIsAModalBoxOfTheFocusedWindow) {
  ParentWindow parent;
  SetForegroundWindow(parent.get());
  SetFocus(parent.get());
  const HWND focus = GetFocus();
  test_support::MessageBoxRecorder recorder;
  ReportComError("Title", _com_error(E_ACCESSDENIED));
  ASSERT_EQ(recorder.boxes().size(), 1u);
  const auto& box = recorder.boxes()[0];
  EXPECT_EQ(box.caption, "Fatal COM Error");
  EXPECT_EQ(box.text, ComErrorText("Title", _com_error(E_ACCESSDENIED)));
  EXPECT_EQ(box.buttons, std::vector<int>{IDOK});
  EXPECT_EQ(box.icon, 0u);
  EXPECT_EQ(box.owner, focus);
}

}  // namespace
}  // namespace file_explorer
