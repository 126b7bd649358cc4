// Every dispatch id of the three sinks with everything that is wrong for it: the answer is success, nothing
// reaches the explorer, and no place that the control gave for an answer is written.
#include <gtest/gtest.h>
#include <shobjidl.h>

#include <algorithm>
#include <string>
#include <vector>

#include "base/text/code_page.h"
#include "src/framework/com/com_text.h"
#include "src/shellhost/event_sinks.h"
#include "tests/integration/shellhost/hosting_fixture.h"

namespace file_explorer {
namespace {

// The arguments that an event is declared with: o object, n number, f flag, t text, N and F places for an
// answer;
// "*" is an event that takes whatever comes, "-" one that nobody hears.
struct Declared {
  DISPID id;
  const char* arguments;
};

const std::vector<Declared> kFileView = {
    {1, "onn"}, {2, "onnF"}, {3, "t"},    {4, "-"},    {5, "-"},    {6, "-"},    {7, "-"},    {8, "-"},
    {9, "-"},   {10, "of"},  {11, "-"},   {12, "o"},   {13, "-"},   {14, "on"},  {15, "o"},   {16, "-"},
    {17, "*"},  {18, "*"},   {19, "tnN"}, {20, "ooN"}, {21, "-"},   {22, "-"},   {23, "-"},   {24, "-"},
    {25, "-"},  {-600, "-"}, {-601, "-"}, {-602, "-"}, {-604, "-"}, {-605, "-"}, {-606, "-"}, {-607, "-"}};

const std::vector<Declared> kFolderView = {
    {1, "-"},    {2, "-"},    {3, "-"},    {4, "-"},    {5, "-"},    {6, "-"},    {7, "-"},
    {8, "-"},    {9, "-"},    {10, "-"},   {11, "-"},   {12, "-"},   {13, "o"},   {14, "on"},
    {15, "-"},   {16, "-"},   {17, "-"},   {18, "-"},   {19, "-"},   {20, "-"},   {21, "-"},
    {-600, "-"}, {-601, "-"}, {-602, "-"}, {-604, "-"}, {-605, "-"}, {-606, "-"}, {-607, "-"}};

const std::vector<Declared> kComboView = {{1, "-"}, {2, "-"},    {3, "-"},    {4, "-"},   {5, "-"},
                                          {6, "-"}, {-602, "-"}, {-604, "-"}, {-606, "-"}};

constexpr VARTYPE kTypes[] = {VT_EMPTY, VT_NULL, VT_I2,       VT_I4,    VT_R4,   VT_R8,      VT_CY,
                              VT_DATE,  VT_BSTR, VT_DISPATCH, VT_ERROR, VT_BOOL, VT_VARIANT, VT_UNKNOWN,
                              VT_I1,    VT_UI1,  VT_UI4,      VT_I8,    VT_INT,  VT_UINT};

int calls = 0;

std::int64_t Count(std::int16_t, ShellControlHost*, IDispatch*, std::int64_t, std::int64_t, std::int64_t,
                   std::int64_t, const char*) {
  ++calls;
  return 1;
}

template <class Sink>
class Malformed {
 public:
  Malformed()
      : sink_(CComObject<Sink>::New()), item_(CComObject<ScriptedItem>::New()), text_(MakeBstr("text")) {
    host_.callback = Count;
    sink_->SetHost(&host_);
    item_->attributes = SFGAO_FILESYSTEM;
    item_->name = item_->fullPath = L"c:\\a.obj";
  }

  void CheckAll(const std::vector<Declared>& events) {
    for (const Declared& event : events) {
      SCOPED_TRACE(event.id);
      calls = 0;
      fired_ = 0;
      CheckCounts(event);
      CheckTypes(event);
      CheckNulls(event);
      const bool takesAll = *event.arguments == '*';
      EXPECT_EQ(calls, takesAll ? fired_ : 0);
      EXPECT_EQ(number_, kUntouched);
      EXPECT_EQ(flag_, kUntouched);
    }
    // Nothing keeps the item.
    item_.Get()->AddRef();
    EXPECT_EQ(item_.Get()->Release(), 1u);
  }

 private:
  static constexpr SHORT kUntouched = 77;
  using Arguments = std::vector<VARIANT>;

  static std::string Kinds(const Declared& event) {
    const std::string kinds = event.arguments;
    return kinds == "-" || kinds == "*" ? std::string() : kinds;
  }

  VARIANT Good(char kind) {
    VARIANT value;
    VariantInit(&value);
    switch (kind) {
      case 'o':
        value.vt = VT_DISPATCH;
        value.pdispVal = item_.Get();
        break;
      case 'n':
        value.vt = VT_I4;
        value.lVal = 3;
        break;
      case 'f':
        value.vt = VT_BOOL;
        value.boolVal = VARIANT_TRUE;
        break;
      case 't':
        value.vt = VT_BSTR;
        value.bstrVal = text_.get();
        break;
      case 'N':
        value.vt = VT_I4 | VT_BYREF;
        value.plVal = &number_;
        break;
      case 'F':
        value.vt = VT_BOOL | VT_BYREF;
        value.pboolVal = &flag_;
        break;
    }
    return value;
  }

  Arguments GoodArguments(const Declared& event) {
    Arguments arguments;
    for (const char kind : Kinds(event)) arguments.push_back(Good(kind));
    return arguments;
  }

  void Fire(const Declared& event, Arguments arguments) {
    std::reverse(arguments.begin(), arguments.end());
    DISPPARAMS parameters = {arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
    ++fired_;
    EXPECT_EQ(sink_->Invoke(event.id, IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr),
              S_OK);
  }

  // Too few and too many.
  void CheckCounts(const Declared& event) {
    const Arguments good = GoodArguments(event);
    for (size_t count = 0; count <= 6; ++count) {
      if (count == good.size() && !good.empty()) continue;
      Arguments arguments = good;
      arguments.resize(count, Good('o'));
      Fire(event, arguments);
    }
    DISPPARAMS nothing = {nullptr, nullptr, static_cast<UINT>(good.size()), 0};
    ++fired_;
    EXPECT_EQ(sink_->Invoke(event.id, IID_NULL, 0, DISPATCH_METHOD, &nothing, nullptr, nullptr, nullptr),
              S_OK);
  }

  // Each argument of each other type, plain, by reference and as an array.
  void CheckTypes(const Declared& event) {
    const std::string kinds = Kinds(event);
    for (size_t i = 0; i < kinds.size(); ++i) {
      Arguments arguments = GoodArguments(event);
      const VARTYPE right = arguments[i].vt & VT_TYPEMASK;
      const bool wantsReference = (arguments[i].vt & VT_BYREF) != 0;
      for (const VARTYPE type : kTypes) {
        arguments[i].vt = type;
        if (type != right || wantsReference) Fire(event, arguments);
        arguments[i].vt = static_cast<VARTYPE>(type | VT_ARRAY);
        Fire(event, arguments);
        arguments[i].vt = static_cast<VARTYPE>(type | VT_BYREF);
        // A plain number, flag or text may also come by reference; an object may not.
        if (type != right || right == VT_DISPATCH) Fire(event, arguments);
      }
    }
  }

  // Null objects, texts and places, one at a time. A null text of the sorting event is allowed: it is no
  // path.
  void CheckNulls(const Declared& event) {
    const std::string kinds = Kinds(event);
    for (size_t i = 0; i < kinds.size(); ++i) {
      if (kinds[i] == 'n' || kinds[i] == 'f' || (kinds[i] == 't' && kinds.size() > 1)) continue;
      Arguments arguments = GoodArguments(event);
      arguments[i].byref = nullptr;
      Fire(event, arguments);
    }
  }

  ComPtr<CComObject<Sink>> sink_;
  ComPtr<CComObject<ScriptedItem>> item_;
  UniqueBstr text_;
  ShellControlHost host_;
  LONG number_ = kUntouched;
  VARIANT_BOOL flag_ = kUntouched;
  int fired_ = 0;
};

TEST(MalformedEvents, OfTheFileViewReachNobody) {
  Malformed<CFileViewSinkEvents>().CheckAll(kFileView);
}

TEST(MalformedEvents, OfTheFolderViewReachNobody) {
  Malformed<CFolderViewSinkEvents>().CheckAll(kFolderView);
}

TEST(MalformedEvents, OfTheComboViewReachNobody) {
  Malformed<CComboViewSinkEvents>().CheckAll(kComboView);
}

std::string lastPath;
int callsWithoutPath = 0;

std::int64_t RecordPath(std::int16_t, ShellControlHost*, IDispatch*, std::int64_t, std::int64_t, std::int64_t,
                        std::int64_t, const char* path) {
  ++calls;
  callsWithoutPath += path == nullptr;
  lastPath = path != nullptr ? path : "";
  return 0;
}

// One object's events, well formed. `reads` says what each asks of its item.
struct ItemEvent {
  DISPID id;
  bool attributes;  // without them the item is not taken for a file, and the event ends
  bool path;
};

template <class Sink>
class ItemEvents {
 public:
  ItemEvents() : sink_(CComObject<Sink>::New()) {
    host_.callback = RecordPath;
    sink_->SetHost(&host_);
  }

  void Fire(DISPID id, IDispatch* item) {
    calls = callsWithoutPath = 0;
    VARIANT_BOOL cancel = VARIANT_FALSE;
    LONG number = 0;
    std::vector<VARIANT> arguments(1);
    arguments[0].vt = VT_DISPATCH;
    arguments[0].pdispVal = item;
    const auto add = [&](VARTYPE type, void* place) {
      VARIANT argument = {};
      argument.vt = static_cast<VARTYPE>(type | VT_BYREF);
      argument.byref = place;
      arguments.push_back(argument);
    };
    if (id <= 2) {
      add(VT_I4, &number);
      add(VT_I4, &number);
    }
    if (id == 2 || id == 10) add(VT_BOOL, &cancel);
    if (id == 14) add(VT_I4, &number);
    std::reverse(arguments.begin(), arguments.end());
    DISPPARAMS parameters = {arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
    EXPECT_EQ(sink_->Invoke(id, IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr), S_OK);
  }

  void CheckFailures(const std::vector<ItemEvent>& events) {
    for (const ItemEvent& event : events) {
      SCOPED_TRACE(event.id);
      const auto item = NewItem(L"c:\\a.obj");
      Fire(event.id, item.Get());
      EXPECT_EQ(calls, 1);
      EXPECT_EQ(lastPath, event.path ? "c:\\a.obj" : "");
      for (const DISPID text : {1, 4, 23}) item->failures[text] = E_FAIL;
      Fire(event.id, item.Get());
      EXPECT_EQ(calls, 1) << "an item without a path is still told of";
      EXPECT_EQ(callsWithoutPath, 1);
      item->failures[18] = DISP_E_EXCEPTION;
      Fire(event.id, item.Get());
      EXPECT_EQ(calls, event.attributes ? 0 : 1);
      EXPECT_EQ(References(item), 1u);
    }
  }

  void CheckHugeTexts(const std::vector<ItemEvent>& events) {
    const std::wstring huge = L"c:\\" + std::wstring(300000, L'x');
    for (const ItemEvent& event : events) {
      SCOPED_TRACE(event.id);
      const auto item = NewItem(huge);
      Fire(event.id, item.Get());
      EXPECT_EQ(calls, 1);
      EXPECT_EQ(lastPath.size(), event.path ? huge.size() : 0U);
      EXPECT_EQ(References(item), 1u);
    }
  }

 private:
  static ComPtr<CComObject<ScriptedItem>> NewItem(const std::wstring& name) {
    const auto item = CComObject<ScriptedItem>::New();
    item->attributes = SFGAO_FILESYSTEM;
    item->name = item->fullPath = item->folderText = name;
    return item;
  }
  static ULONG References(const ComPtr<CComObject<ScriptedItem>>& item) {
    item.Get()->AddRef();
    return item.Get()->Release();
  }

  ComPtr<CComObject<Sink>> sink_;
  ShellControlHost host_;
};

const std::vector<ItemEvent> kFileViewItems = {{1, true, true},  {2, true, true},   {10, false, false},
                                               {12, true, true}, {14, false, true}, {15, false, true}};
const std::vector<ItemEvent> kFolderViewItems = {{13, false, true}, {14, false, true}};

TEST(ItemsThatFail, GiveNoPathAndWithoutAttributesNoFile) {
  ItemEvents<CFileViewSinkEvents>().CheckFailures(kFileViewItems);
  ItemEvents<CFolderViewSinkEvents>().CheckFailures(kFolderViewItems);
}

TEST(ItemsWithHugeTexts, AreHandedOnWhole) {
  ItemEvents<CFileViewSinkEvents>().CheckHugeTexts(kFileViewItems);
  ItemEvents<CFolderViewSinkEvents>().CheckHugeTexts(kFolderViewItems);
}

std::int64_t Throw(std::int16_t, ShellControlHost*, IDispatch*, std::int64_t, std::int64_t, std::int64_t,
                   std::int64_t, const char*) {
  throw 1;
}

TEST(MalformedEvents, ASortThatFailsIsLeftToTheControl) {
  ShellControlHost host;
  host.callback = Throw;
  const auto sink = CComObject<CFileViewSinkEvents>::New();
  sink->SetHost(&host);
  LONG answer = 3;
  VARIANT arguments[3] = {};
  arguments[0].vt = VT_I4 | VT_BYREF;
  arguments[0].plVal = &answer;
  arguments[1].vt = VT_I4;
  arguments[2].vt = VT_BSTR;
  DISPPARAMS parameters = {arguments, nullptr, 3, 0};
  EXPECT_EQ(sink->Invoke(19, IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr), S_OK);
  EXPECT_EQ(answer, 0);
}

// A text that claims to be longer than memory could hold, without one that is.
TEST(LongTexts, AreHandedOnUpToTheLongestThatFitsTwoBytesALetter) {
  struct {
    DWORD padding;
    DWORD bytes;
    wchar_t text[4];
  } claimed = {0, 2 * (kLongestNarrowedText + 1), L"abc"};
  EXPECT_FALSE(DisplayBstr(claimed.text));
  EXPECT_FALSE(DisplayBstr(nullptr));
  claimed.bytes = 6;
  EXPECT_EQ(DisplayBstr(claimed.text), "abc");
  claimed.bytes = 0;
  EXPECT_EQ(DisplayBstr(claimed.text), "");
  const UniqueBstr longer = MakeBstr(std::wstring_view(std::wstring(5000, L'\u00E9')));
  EXPECT_EQ(DisplayBstr(longer.get()), base::DisplayNarrow(std::wstring(5000, L'\u00E9')));
}

}  // namespace
}  // namespace file_explorer
