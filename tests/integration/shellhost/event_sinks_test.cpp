// The sinks of the controls' events: every dispatch id, with right and with malformed arguments.
#include "src/shellhost/event_sinks.h"

#include <gmock/gmock.h>
#include <shobjidl.h>

#include <functional>
#include <limits>

#include "base/text/code_page.h"
#include "src/framework/com/com_text.h"
#include "src/shellhost/file_view.h"
#include "tests/integration/shellhost/hosting_fixture.h"

namespace file_explorer {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Call {
  std::int16_t code;
  ShellControlHost* host;
  IDispatch* object;
  std::int64_t a, b, c, d;
  bool hasPath;
  std::string path;
  std::string extra;  // folder view commands: the text behind b
};

std::vector<Call> calls;
std::int64_t answer = 0;
std::function<void(const Call&)> reaction;

std::int64_t Record(std::int16_t code, ShellControlHost* host, IDispatch* object, std::int64_t a,
                    std::int64_t b, std::int64_t c, std::int64_t d, const char* path) {
  calls.push_back({code, host, object, a, b, c, d, path != nullptr, path ? path : "", ""});
  if (reaction) reaction(calls.back());
  return answer;
}

VARIANT Flag(VARIANT_BOOL value) {
  VARIANT variant;
  VariantInit(&variant);
  variant.vt = VT_BOOL;
  variant.boolVal = value;
  return variant;
}

VARIANT Reference(VARTYPE type, void* place) {
  VARIANT variant;
  VariantInit(&variant);
  variant.vt = static_cast<VARTYPE>(type | VT_BYREF);
  variant.byref = place;
  return variant;
}

VARIANT Object(IDispatch* object) {
  VARIANT variant;
  VariantInit(&variant);
  variant.vt = VT_DISPATCH;
  variant.pdispVal = object;
  return variant;
}

VARIANT Text(BSTR text) {
  VARIANT variant;
  VariantInit(&variant);
  variant.vt = VT_BSTR;
  variant.bstrVal = text;
  return variant;
}

using Arguments = std::vector<VARIANT>;

template <class Sink>
class SinkTest : public testing::Test {
 protected:
  void SetUp() override {
    calls.clear();
    answer = 0;
    reaction = nullptr;
    sink_ = CComObject<Sink>::New();
    host_.callback = Record;
    sink_->SetHost(&host_);
    item_ = CComObject<ScriptedItem>::New();
    item_->attributes = SFGAO_FILESYSTEM;
    item_->name = L"c:\\objects\\tree.obj";
    item_->fullPath = L"c:\\objects\\full tree.obj";
    item_->folderText = L"folder text";
  }
  void TearDown() override {
    // Nothing of the items may be kept.
    item_.Get()->AddRef();
    EXPECT_EQ(item_.Get()->Release(), 1u);
  }

  // Arguments in declaration order.
  HRESULT Fire(DISPID id, Arguments arguments) {
    std::reverse(arguments.begin(), arguments.end());
    DISPPARAMS parameters = {arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
    return sink_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr, nullptr,
                         nullptr);
  }
  VARIANT Item() { return Object(item_.Get()); }

  // The event, each time with one argument missing, added, of another type or null, is answered with success
  // and goes no further.
  void ExpectMalformedIsIgnored(DISPID id, const Arguments& good) {
    for (std::size_t i = 0; i < good.size(); ++i) {
      Arguments missing = good;
      missing.erase(missing.begin() + static_cast<std::ptrdiff_t>(i));
      EXPECT_EQ(Fire(id, missing), S_OK) << id;
      for (const int type :
           {int{VT_EMPTY}, int{VT_I2}, int{VT_R8}, int{VT_UNKNOWN}, VT_ARRAY | VT_I4, VT_ARRAY | VT_BSTR}) {
        Arguments wrong = good;
        wrong[i].vt = static_cast<VARTYPE>(type);
        EXPECT_EQ(Fire(id, wrong), S_OK) << id;
      }
      if (good[i].vt == VT_DISPATCH) {
        Arguments null = good;
        null[i].pdispVal = nullptr;
        EXPECT_EQ(Fire(id, null), S_OK) << id;
        IDispatch* object = item_.Get();
        null[i] = Reference(VT_DISPATCH, &object);
        EXPECT_EQ(Fire(id, null), S_OK) << id << ": an object must be exactly an object";
      }
      if (good[i].vt & VT_BYREF) {
        Arguments byValue = good;
        byValue[i].vt = static_cast<VARTYPE>(good[i].vt & ~VT_BYREF);
        EXPECT_EQ(Fire(id, byValue), S_OK) << id << ": no place for the answer";
        byValue[i] = Reference(static_cast<VARTYPE>(good[i].vt & ~VT_BYREF), nullptr);
        EXPECT_EQ(Fire(id, byValue), S_OK) << id;
      }
    }
    Arguments more = good;
    more.push_back(NumberVariant(1));
    EXPECT_EQ(Fire(id, more), S_OK) << id;
    if (!good.empty()) {
      DISPPARAMS none = {nullptr, nullptr, static_cast<UINT>(good.size()), 0};
      EXPECT_EQ(sink_->Invoke(id, IID_NULL, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr), S_OK);
    }
    EXPECT_THAT(calls, IsEmpty()) << id;
    calls.clear();
  }

  void ExpectTable(const std::vector<DISPID>& known) {
    for (DISPID id = -1000; id <= 1000; ++id) {
      const bool expected = std::find(known.begin(), known.end(), id) != known.end();
      EXPECT_EQ(Fire(id, {}), expected ? S_OK : DISP_E_MEMBERNOTFOUND) << id;
      EXPECT_EQ(sink_->Invoke(id, IID_NULL, 0, DISPATCH_METHOD, nullptr, nullptr, nullptr, nullptr),
                DISP_E_PARAMNOTFOUND);
    }
  }

  ComPtr<CComObject<Sink>> sink_;
  ComPtr<CComObject<ScriptedItem>> item_;
  ShellControlHost host_;
};

std::vector<DISPID> UpTo(DISPID last, std::vector<DISPID> ids) {
  for (DISPID id = 1; id <= last; ++id) ids.push_back(id);
  return ids;
}

const std::vector<DISPID> kStock = {-600, -601, -602, -604, -605, -606, -607};

using FileViewSink = SinkTest<CFileViewSinkEvents>;
using FolderViewSink = SinkTest<CFolderViewSinkEvents>;
using ComboViewSink = SinkTest<CComboViewSinkEvents>;

TEST_F(FileViewSink, KnowsItsTableAndNotTheKeypressEvent) {
  ExpectTable(UpTo(25, kStock));
  EXPECT_EQ(Fire(-603, {NumberVariant(1)}), DISP_E_MEMBERNOTFOUND);
}

TEST_F(FileViewSink, AClickOnAFileIsCodeZero) {
  EXPECT_EQ(Fire(1, {Item(), NumberVariant(3), NumberVariant(4)}), S_OK);
  ASSERT_EQ(calls.size(), 1u);
  const Call& call = calls[0];
  EXPECT_EQ(call.code, 0);
  EXPECT_EQ(call.host, &host_);
  EXPECT_EQ(call.object, item_.Get());
  EXPECT_EQ(call.a, 3);
  EXPECT_EQ(call.b, 4);
  EXPECT_EQ(call.c, 0);
  EXPECT_EQ(call.d, 0);
  EXPECT_EQ(call.path, "c:\\objects\\full tree.obj");
}

TEST_F(FileViewSink, NumbersAreTheirLow16BitsSignExtended) {
  Fire(1, {Item(), NumberVariant(0x12348001), NumberVariant(65535)});
  LONG number = 0x10002;
  Fire(1, {Item(), Reference(VT_I4, &number), NumberVariant(-5)});
  ASSERT_EQ(calls.size(), 2u);
  EXPECT_EQ(calls[0].a, -32767);
  EXPECT_EQ(calls[0].b, -1);
  EXPECT_EQ(calls[1].a, 2);
  EXPECT_EQ(calls[1].b, -5);
}

TEST_F(FileViewSink, FoldersShortcutsAndVirtualItemsRaiseNoClick) {
  VARIANT_BOOL cancel = 7;
  for (const ULONG attributes :
       {ULONG{SFGAO_FOLDER | SFGAO_FILESYSTEM}, ULONG{SFGAO_LINK | SFGAO_FILESYSTEM}, ULONG{SFGAO_FOLDER},
        ULONG{0}, ULONG{SFGAO_LINK}, ULONG{SFGAO_FOLDER | SFGAO_LINK | SFGAO_FILESYSTEM}}) {
    item_->attributes = attributes;
    EXPECT_EQ(Fire(1, {Item(), NumberVariant(1), NumberVariant(1)}), S_OK);
    EXPECT_EQ(Fire(2, {Item(), NumberVariant(1), NumberVariant(1), Reference(VT_BOOL, &cancel)}), S_OK);
  }
  EXPECT_THAT(calls, IsEmpty());
  EXPECT_EQ(cancel, 7);
  item_->attributes = SFGAO_FILESYSTEM | SFGAO_READONLY | SFGAO_HIDDEN | SFGAO_STREAM;
  Fire(1, {Item(), NumberVariant(1), NumberVariant(1)});
  EXPECT_EQ(calls.size(), 1u);
}

TEST_F(FileViewSink, ADoubleClickIsAnsweredByTheResult) {
  VARIANT_BOOL cancel = VARIANT_TRUE;
  EXPECT_EQ(Fire(2, {Item(), NumberVariant(1), NumberVariant(2), Reference(VT_BOOL, &cancel)}), S_OK);
  ASSERT_EQ(calls.size(), 1u);
  EXPECT_EQ(calls[0].code, 1);
  EXPECT_EQ(calls[0].object, item_.Get());
  EXPECT_EQ(calls[0].a, 1);
  EXPECT_EQ(calls[0].b, 2);
  EXPECT_EQ(calls[0].path, "c:\\objects\\full tree.obj");
  EXPECT_EQ(cancel, VARIANT_FALSE);
  for (const std::int64_t result : {std::int64_t{1}, std::int64_t{-1}, std::int64_t{1} << 40}) {
    answer = result;
    cancel = VARIANT_FALSE;
    Fire(2, {Item(), NumberVariant(1), NumberVariant(2), Reference(VT_BOOL, &cancel)});
    EXPECT_EQ(cancel, VARIANT_TRUE);
  }
}

TEST_F(FileViewSink, AFolderChangeCarriesTheFileViewsFolder) {
  const Apartment apartment;
  ScriptedClass control(kTestClass, {});
  ComPtr<IDispatch> dispatch;
  ASSERT_EQ(CoCreateInstance(kTestClass, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                             reinterpret_cast<void**>(dispatch.ReleaseAndGetAddressOf())),
            S_OK);
  control.script.members[21] = [](WORD, DISPPARAMS*, VARIANT* result) {
    result->vt = VT_R8;
    result->dblVal = 140737488355327.75;
    return S_OK;
  };
  host_.site = QueryFor<IUnknown>(dispatch.Get());
  host_.control = dispatch;
  const UniqueBstr text = MakeBstr("c:\\textures");
  EXPECT_EQ(Fire(3, {Text(text.get())}), S_OK);
  ASSERT_EQ(calls.size(), 1u);
  EXPECT_EQ(calls[0].code, 2);
  EXPECT_EQ(calls[0].object, nullptr);
  EXPECT_EQ(calls[0].a, 0x7FFFFFFFFFFF);
  EXPECT_EQ(calls[0].b, 0);
  EXPECT_EQ(calls[0].path, "c:\\textures");

  control.script.members[21] = [](WORD, DISPPARAMS*, VARIANT*) { return E_FAIL; };
  EXPECT_EQ(Fire(3, {Text(text.get())}), S_OK);
  ASSERT_EQ(calls.size(), 2u);
  EXPECT_EQ(calls[1].a, 0);

  EXPECT_EQ(Fire(3, {Text(nullptr)}), S_OK);
  EXPECT_EQ(calls.size(), 2u) << "a null text ends the event";
  host_.control.Reset();
  host_.site.Reset();
}

TEST_F(FileViewSink, ASelectionChangeCarriesItsFlagAsZeroOrMinusOne) {
  Fire(10, {Item(), Flag(VARIANT_TRUE)});
  Fire(10, {Item(), Flag(VARIANT_FALSE)});
  Fire(10, {Item(), Flag(1)});
  ASSERT_EQ(calls.size(), 3u);
  EXPECT_EQ(calls[0].code, 16);
  EXPECT_EQ(calls[0].object, item_.Get());
  EXPECT_EQ(calls[0].a, -1);
  EXPECT_EQ(calls[1].a, 0);
  EXPECT_EQ(calls[2].a, -1);
  EXPECT_FALSE(calls[0].hasPath);
}

TEST_F(FileViewSink, TheDefaultActionIsAskedForFilesAndArchives) {
  struct {
    ULONG attributes;
    const wchar_t* name;
    bool reaches;
  } const cases[] = {
      {SFGAO_FILESYSTEM, L"c:\\a.obj", true},
      {SFGAO_FILESYSTEM | SFGAO_LINK, L"c:\\a.lnk", true},
      {SFGAO_FILESYSTEM | SFGAO_FOLDER, L"c:\\a", false},
      {SFGAO_FILESYSTEM | SFGAO_FOLDER, L"c:\\a.zip", true},
      {SFGAO_FILESYSTEM | SFGAO_FOLDER, L"c:\\A.ZIP", true},
      {SFGAO_FILESYSTEM | SFGAO_FOLDER, L"c:\\azip", false},
      {SFGAO_FOLDER, L"c:\\a.zip", false},
      {0, L"c:\\a.obj", false},
  };
  for (const auto& c : cases) {
    calls.clear();
    item_->attributes = c.attributes;
    item_->name = c.name;
    EXPECT_EQ(Fire(12, {Item()}), S_OK);
    ASSERT_EQ(calls.size(), c.reaches ? 1u : 0u) << base::DisplayNarrow(c.name);
    if (!c.reaches) continue;
    EXPECT_EQ(calls[0].code, 18);
    EXPECT_EQ(calls[0].object, item_.Get());
    EXPECT_EQ(calls[0].path, base::DisplayNarrow(c.name));
  }
}

TEST_F(FileViewSink, AskingForTheDefaultActionCostsTwoCallsOfTheItem) {
  Fire(12, {Item()});
  EXPECT_EQ(item_->log.size(), 2u);
}

TEST_F(FileViewSink, AMenuCommandCarriesItsIdentifier) {
  Fire(14, {Item(), NumberVariant(31)});
  ASSERT_EQ(calls.size(), 1u);
  EXPECT_EQ(calls[0].code, 20);
  EXPECT_EQ(calls[0].object, item_.Get());
  EXPECT_EQ(calls[0].a, 31);
  EXPECT_EQ(calls[0].b, 0);
  EXPECT_EQ(calls[0].path, "c:\\objects\\tree.obj");
}

TEST_F(FileViewSink, AMenuThatOpensCarriesItsItemEvenAnEmptyOne) {
  Fire(15, {Item()});
  item_->name.clear();
  item_->attributes = 0;
  Fire(15, {Item()});
  ASSERT_EQ(calls.size(), 2u);
  EXPECT_EQ(calls[0].code, 21);
  EXPECT_EQ(calls[0].path, "c:\\objects\\tree.obj");
  EXPECT_EQ(calls[1].path, "");
}

TEST_F(FileViewSink, NoticesNeedNoArgumentsAndCheckNone) {
  Fire(17, {});
  Fire(18, {});
  Fire(17, {NumberVariant(1), Item()});
  Fire(18, {Text(nullptr)});
  ASSERT_EQ(calls.size(), 4u);
  EXPECT_EQ(calls[0].code, 23);
  EXPECT_EQ(calls[1].code, 24);
  EXPECT_EQ(calls[2].code, 23);
  EXPECT_EQ(calls[3].code, 24);
  for (const Call& call : calls) {
    EXPECT_EQ(call.host, &host_);
    EXPECT_EQ(call.object, nullptr);
    EXPECT_EQ(call.a | call.b | call.c | call.d, 0);
    EXPECT_FALSE(call.hasPath);
  }
}

TEST_F(FileViewSink, SortingIsAnsweredWithThreeOrZero) {
  const UniqueBstr text = MakeBstr("Name");
  LONG order = 99;
  EXPECT_EQ(Fire(19, {Text(text.get()), NumberVariant(2), Reference(VT_I4, &order)}), S_OK);
  ASSERT_EQ(calls.size(), 1u);
  EXPECT_EQ(calls[0].code, 25);
  EXPECT_EQ(calls[0].object, nullptr);
  EXPECT_EQ(calls[0].a, 2);
  EXPECT_EQ(calls[0].path, "Name");
  EXPECT_EQ(order, 0);
  answer = 1;
  Fire(19, {Text(text.get()), NumberVariant(0), Reference(VT_I4, &order)});
  EXPECT_EQ(order, 3);
  Fire(19, {Text(nullptr), NumberVariant(0), Reference(VT_I4, &order)});
  ASSERT_EQ(calls.size(), 3u);
  EXPECT_FALSE(calls[2].hasPath);
}

TEST_F(FileViewSink, ComparingHandsBothItemsAndThePlaceOfTheOrder) {
  auto second = CComObject<ScriptedItem>::New();
  LONG order = 0;
  reaction = [](const Call& call) { *reinterpret_cast<LONG*>(call.b) = -1; };
  EXPECT_EQ(Fire(20, {Item(), Object(second.Get()), Reference(VT_I4, &order)}), S_OK);
  ASSERT_EQ(calls.size(), 1u);
  EXPECT_EQ(calls[0].code, 26);
  EXPECT_EQ(calls[0].object, item_.Get());
  EXPECT_EQ(reinterpret_cast<IDispatch*>(calls[0].a), static_cast<IDispatch*>(second.Get()));
  EXPECT_EQ(order, -1);
}

TEST_F(FileViewSink, MalformedEventsAreIgnored) {
  VARIANT_BOOL cancel = 7;
  LONG order = 7;
  const UniqueBstr text = MakeBstr("text");
  const VARIANT number = NumberVariant(1);
  ExpectMalformedIsIgnored(1, {Item(), number, number});
  ExpectMalformedIsIgnored(2, {Item(), number, number, Reference(VT_BOOL, &cancel)});
  ExpectMalformedIsIgnored(3, {Text(text.get())});
  ExpectMalformedIsIgnored(10, {Item(), Flag(VARIANT_TRUE)});
  ExpectMalformedIsIgnored(12, {Item()});
  ExpectMalformedIsIgnored(14, {Item(), number});
  ExpectMalformedIsIgnored(15, {Item()});
  ExpectMalformedIsIgnored(19, {Text(text.get()), number, Reference(VT_I4, &order)});
  ExpectMalformedIsIgnored(20, {Item(), Item(), Reference(VT_I4, &order)});
  EXPECT_EQ(cancel, 7);
  EXPECT_EQ(order, 7);
}

TEST_F(FileViewSink, EventsThatTheExplorerDoesNotUseReachNobody) {
  for (const DISPID id :
       {4, 5, 6, 7, 8, 9, 11, 13, 16, 21, 22, 23, 24, 25, -600, -601, -602, -604, -605, -606, -607}) {
    EXPECT_EQ(Fire(id, {Item(), NumberVariant(1)}), S_OK) << id;
    EXPECT_EQ(Fire(id, {Item()}), S_OK) << id;
  }
  EXPECT_THAT(calls, IsEmpty());
}

TEST_F(FileViewSink, WithoutACallbackOrAHostEventsAreDropped) {
  VARIANT_BOOL cancel = 7;
  LONG order = 7;
  const UniqueBstr text = MakeBstr("text");
  const auto fireAll = [&] {
    EXPECT_EQ(Fire(1, {Item(), NumberVariant(1), NumberVariant(1)}), S_OK);
    EXPECT_EQ(Fire(2, {Item(), NumberVariant(1), NumberVariant(1), Reference(VT_BOOL, &cancel)}), S_OK);
    EXPECT_EQ(Fire(17, {}), S_OK);
    EXPECT_EQ(Fire(19, {Text(text.get()), NumberVariant(1), Reference(VT_I4, &order)}), S_OK);
    EXPECT_EQ(Fire(-603, {}), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(sink_->Invoke(1, IID_NULL, 0, 0, nullptr, nullptr, nullptr, nullptr), DISP_E_PARAMNOTFOUND);
  };
  host_.callback = nullptr;
  fireAll();
  sink_->SetHost(nullptr);
  fireAll();
  EXPECT_THAT(calls, IsEmpty());
  EXPECT_EQ(cancel, 7);
  EXPECT_EQ(order, 7);
}

TEST_F(FileViewSink, AnItemThatFailsItsAttributesIsNoFile) {
  item_->failures[18] = E_FAIL;
  EXPECT_EQ(Fire(1, {Item(), NumberVariant(1), NumberVariant(1)}), S_OK);
  EXPECT_EQ(Fire(12, {Item()}), S_OK);
  EXPECT_THAT(calls, IsEmpty());
}

TEST_F(FileViewSink, AnItemThatFailsItsTextHasNoPath) {
  item_->failures[1] = E_FAIL;
  item_->failures[4] = E_FAIL;
  Fire(1, {Item(), NumberVariant(1), NumberVariant(1)});
  Fire(12, {Item()});
  Fire(14, {Item(), NumberVariant(1)});
  Fire(15, {Item()});
  ASSERT_EQ(calls.size(), 4u);
  for (const Call& call : calls) EXPECT_FALSE(call.hasPath) << call.code;
}

TEST_F(FileViewSink, WhatTheCallbackThrowsEndsTheEvent) {
  VARIANT_BOOL cancel = 7;
  reaction = [](const Call&) { throw std::runtime_error("explorer"); };
  EXPECT_EQ(Fire(2, {Item(), NumberVariant(1), NumberVariant(1), Reference(VT_BOOL, &cancel)}), S_OK);
  EXPECT_EQ(cancel, VARIANT_FALSE);
  EXPECT_EQ(calls.size(), 1u);
}

TEST_F(FileViewSink, ALongTextIsHandedOnWhole) {
  const UniqueBstr text = MakeBstr(std::wstring_view(std::wstring(200000, L'x')));
  Fire(3, {Text(text.get())});
  ASSERT_EQ(calls.size(), 1u);
  EXPECT_EQ(calls[0].path, std::string(200000, 'x'));
}

TEST_F(FileViewSink, ATextThatIsTooLongToNarrowIsPassedAsNull) {
  struct {
    DWORD padding;
    DWORD bytes;
    wchar_t text[4];
  } claimed = {0, 0x7FFFFFFE, L"abc"};
  Fire(3, {Text(claimed.text)});
  ASSERT_EQ(calls.size(), 1u);
  EXPECT_FALSE(calls[0].hasPath);
}

TEST_F(FileViewSink, TheTypeInformationCountIsOne) {
  UINT count = 0;
  EXPECT_EQ(sink_->GetTypeInfoCount(&count), S_OK);
  EXPECT_EQ(count, 1u);
  EXPECT_EQ(sink_->GetTypeInfoCount(nullptr), E_POINTER);
  ITypeInfo* information = nullptr;
  EXPECT_EQ(sink_->GetTypeInfo(0, 0, nullptr), E_POINTER);
  EXPECT_EQ(sink_->GetTypeInfo(1, 0, &information), DISP_E_BADINDEX);
}

TEST_F(FileViewSink, IsTheEventInterfaceOfItsControl) {
  EXPECT_TRUE(QueryFor<IDispatch>(sink_.Get(), DIID_FileViewEvents));
  EXPECT_TRUE(QueryFor<IDispatch>(sink_.Get()));
  EXPECT_FALSE(QueryFor<IDispatch>(sink_.Get(), DIID_FolderViewEvents));
}

TEST_F(FolderViewSink, KnowsItsTableAndNotTheKeypressEvent) {
  ExpectTable(UpTo(21, kStock));
}

TEST_F(FolderViewSink, AMenuThatOpensIsCode19) {
  Fire(13, {Item()});
  ASSERT_EQ(calls.size(), 1u);
  EXPECT_EQ(calls[0].code, 19);
  EXPECT_EQ(calls[0].object, item_.Get());
  EXPECT_EQ(calls[0].path, "c:\\objects\\tree.obj");
  EXPECT_EQ(calls[0].a | calls[0].b | calls[0].c | calls[0].d, 0);
}

TEST_F(FolderViewSink, AMenuCommandCarriesTheFoldersTextToo) {
  reaction = [](const Call& call) { calls.back().extra = reinterpret_cast<const char*>(call.b); };
  Fire(14, {Item(), NumberVariant(0x10005)});
  ASSERT_EQ(calls.size(), 1u);
  EXPECT_EQ(calls[0].code, 20);
  EXPECT_EQ(calls[0].a, 5);
  EXPECT_EQ(calls[0].extra, "folder text");
  EXPECT_EQ(calls[0].path, "c:\\objects\\tree.obj");
  reaction = nullptr;
  item_->failures[23] = DISP_E_MEMBERNOTFOUND;
  Fire(14, {Item(), NumberVariant(5)});
  ASSERT_EQ(calls.size(), 2u);
  EXPECT_EQ(calls[1].b, 0);
}

TEST_F(FolderViewSink, MalformedEventsAreIgnored) {
  ExpectMalformedIsIgnored(13, {Item()});
  ExpectMalformedIsIgnored(14, {Item(), NumberVariant(1)});
}

TEST_F(FolderViewSink, TheOtherEventsReachNobody) {
  for (const DISPID id : {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 15, 16, 17, 18, 19, 20, 21, -600, -607}) {
    EXPECT_EQ(Fire(id, {Item(), NumberVariant(1)}), S_OK) << id;
    EXPECT_EQ(Fire(id, {Item()}), S_OK) << id;
  }
  host_.callback = nullptr;
  EXPECT_EQ(Fire(13, {Item()}), S_OK);
  EXPECT_THAT(calls, IsEmpty());
}

TEST_F(ComboViewSink, KnowsItsTableAndRaisesNothing) {
  ExpectTable(UpTo(6, {-602, -604, -606}));
  for (const DISPID id : {1, 2, 3, 4, 5, 6, -602, -604, -606}) {
    EXPECT_EQ(Fire(id, {Item()}), S_OK);
    EXPECT_EQ(Fire(id, {Item(), NumberVariant(1), NumberVariant(2)}), S_OK);
  }
  EXPECT_THAT(calls, IsEmpty());
}

// Events whose own consequences end the host that raised them.
class EndingHostTest : public testing::Test {
 protected:
  void SetUp() override {
    calls.clear();
    answer = 0;
    reaction = nullptr;
    item_ = CComObject<ScriptedItem>::New();
    item_->attributes = SFGAO_FILESYSTEM;
    item_->name = item_->fullPath = L"c:\\objects\\tree.obj";
    MakeHost();
  }
  void TearDown() override { reaction = nullptr; }

  void MakeHost() {
    host_ = base::make_held<ShellControlHost>();
    sink_ = CComObject<CFileViewSinkEvents>::New();
    host_->callback = Record;
    host_->sink = ComPtr<IDispatch>(static_cast<_DFileViewEvents*>(sink_.Get()));
    host_->eventSink = sink_.Get();
    sink_->SetHost(host_.get());
  }

  HRESULT Fire(DISPID id, Arguments arguments) {
    std::reverse(arguments.begin(), arguments.end());
    DISPPARAMS parameters = {arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
    return sink_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr, nullptr,
                         nullptr);
  }

  ShellControlPtr host_;
  ComPtr<CComObject<CFileViewSinkEvents>> sink_;
  ComPtr<CComObject<ScriptedItem>> item_;
};

TEST_F(EndingHostTest, AHostThatEndsWhileAnEventIsReadHearsNothingOfIt) {
  for (const DISPID event : {1, 2, 12, 14, 15}) {
    MakeHost();
    item_->whenAsked = [this](DISPID) { host_.reset(); };
    VARIANT_BOOL cancel = VARIANT_TRUE;
    Arguments arguments = {Object(item_.Get())};
    if (event == 1 || event == 2) arguments.insert(arguments.end(), {NumberVariant(1), NumberVariant(2)});
    if (event == 2) arguments.push_back(Reference(VT_BOOL, &cancel));
    if (event == 14) arguments.push_back(NumberVariant(7));
    EXPECT_EQ(Fire(event, arguments), S_OK) << event;
    EXPECT_FALSE(host_) << event;
    EXPECT_THAT(calls, IsEmpty()) << event;
    item_->whenAsked = nullptr;
    EXPECT_EQ(Fire(event, arguments), S_OK) << "no host any more";
    EXPECT_THAT(calls, IsEmpty()) << event;
  }
}

TEST_F(EndingHostTest, AHostThatEndsInItsCallbackGetsItsAnswerThrough) {
  answer = 1;
  reaction = [this](const Call& call) {
    host_.reset();
    // What is left of it does nothing, and can be asked.
    EXPECT_EQ(GetItemCount(call.host), 0);
    EXPECT_EQ(GetListWindow(call.host), nullptr);
    SetCurrentFolder(call.host, nullptr);
    ResizeShellControl(call.host, kTestRect);
  };
  VARIANT_BOOL cancel = VARIANT_FALSE;
  EXPECT_EQ(Fire(2, {Object(item_.Get()), NumberVariant(1), NumberVariant(2), Reference(VT_BOOL, &cancel)}), S_OK);
  EXPECT_EQ(calls.size(), 1u);
  EXPECT_EQ(cancel, VARIANT_TRUE);
}

}  // namespace
}  // namespace file_explorer
