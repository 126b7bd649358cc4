#include "tests/integration/controls/control_container.h"

#include <commctrl.h>

#include <cstring>

#include "tests/support/wait_until.h"

namespace controls_test {

using test_support::WaitUntil;

const ControlKind kFileView = {
    L"ssware_shellfileview64.ocx",
    {0x0A7A7240, 0xD038, 0x4B9F, {0xB3, 0xB1, 0x7F, 0xEF, 0xFE, 0x5F, 0x9E, 0xD6}},
    {0xE58CFE4E, 0x2258, 0x4666, {0xAE, 0x59, 0x8C, 0x48, 0x66, 0x0C, 0xF0, 0x98}},
    {0x36310332, 0x3B34, 0x4989, {0x93, 0x39, 0x32, 0x8D, 0x0C, 0x37, 0x99, 0x6A}}};
const ControlKind kFolderView = {
    L"ssware_shellfolderview64.ocx",
    {0x9EE4C13A, 0x551F, 0x440E, {0xB1, 0xED, 0xF4, 0xFA, 0x3C, 0x93, 0x5F, 0x4F}},
    {0x5B17B3F2, 0x89DA, 0x4045, {0x8D, 0xE1, 0xC4, 0xBA, 0xEE, 0x6F, 0xCC, 0x46}},
    {0x6755F807, 0x572E, 0x4D81, {0x97, 0x61, 0x35, 0x48, 0xE3, 0x41, 0xCF, 0x55}}};
const ControlKind kComboView = {
    L"ssware_shellcombo64.ocx",
    {0x1451FB53, 0x9444, 0x4FB0, {0xB0, 0xAC, 0x44, 0xF5, 0x6E, 0xDB, 0xC3, 0x32}},
    {0x20B7F96F, 0x5D6D, 0x436C, {0x8E, 0x1B, 0x2C, 0x69, 0x52, 0x8C, 0x19, 0xBE}},
    {0x10EAEFBF, 0xC1E8, 0x43E0, {0xA3, 0xFF, 0xF1, 0xEA, 0x28, 0x83, 0x92, 0x0D}}};

namespace {

template <typename Function>
Function Export(HMODULE module, const char* name) {
  Function function = nullptr;
  const FARPROC address = GetProcAddress(module, name);
  static_assert(sizeof(function) == sizeof(address));
  std::memcpy(&function, &address, sizeof(function));
  return function;
}

}  // namespace

HMODULE ModuleOf(const ControlKind& kind) {
  wchar_t path[MAX_PATH];
  GetModuleFileNameW(nullptr, path, MAX_PATH);
  std::wstring file = path;
  file = file.substr(0, file.rfind(L'\\') + 1) + kind.file;
  if (const HMODULE loaded = GetModuleHandleW(file.c_str())) return loaded;
  const HMODULE module = LoadLibraryW(file.c_str());
  if (module) return module;
  return LoadLibraryW((L"..\\..\\..\\bin\\" + std::wstring(kind.file)).c_str());
}

HRESULT CreateFromModule(const ControlKind& kind, IUnknown** object) {
  const auto get =
      Export<HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**)>(ModuleOf(kind), "DllGetClassObject");
  if (!get) return E_FAIL;
  ComRef<IClassFactory> factory;
  const HRESULT result = get(kind.classId, IID_IClassFactory, factory.put_void());
  if (FAILED(result)) return result;
  return factory->CreateInstance(nullptr, IID_IUnknown, reinterpret_cast<void**>(object));
}

bool CanUnload(const ControlKind& kind) {
  const auto can = Export<HRESULT(STDAPICALLTYPE*)()>(ModuleOf(kind), "DllCanUnloadNow");
  return can && can() == S_OK;
}

VARIANT LongValue(long value) {
  VARIANT result = {};
  result.vt = VT_I4;
  result.lVal = value;
  return result;
}

VARIANT BoolValue(bool value) {
  VARIANT result = {};
  result.vt = VT_BOOL;
  result.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
  return result;
}

HRESULT Put(IDispatch* object, DISPID id, const VARIANT& value) {
  DISPID putId = DISPID_PROPERTYPUT;
  DISPPARAMS params = {const_cast<VARIANT*>(&value), &putId, 1, 1};
  return object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYPUT, &params, nullptr, nullptr,
                        nullptr);
}

HRESULT PutBool(IDispatch* object, DISPID id, bool value) {
  return Put(object, id, BoolValue(value));
}
HRESULT PutLong(IDispatch* object, DISPID id, long value) {
  return Put(object, id, LongValue(value));
}

HRESULT PutObject(IDispatch* object, DISPID id, IUnknown* value) {
  const ComRef<IDispatch> dispatch = ComRef<IUnknown>(value).As<IDispatch>(IID_IDispatch);
  VARIANT argument = {};
  argument.vt = VT_DISPATCH;
  argument.pdispVal = dispatch.get();
  return Put(object, id, argument);
}

HRESULT PutPidl(IDispatch* object, DISPID id, const ITEMIDLIST* pidl) {
  VARIANT argument = {};
  argument.vt = VT_R8;
  std::memcpy(&argument.dblVal, &pidl, sizeof(pidl));
  return Put(object, id, argument);
}

HRESULT Get(IDispatch* object, DISPID id, VARIANT* result, std::vector<VARIANT> arguments) {
  DISPPARAMS params = {arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
  return object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &params, result, nullptr,
                        nullptr);
}

long GetLong(IDispatch* object, DISPID id) {
  Variant value;
  return SUCCEEDED(Get(object, id, &value)) && value.vt == VT_I4 ? value.lVal : -12345;
}

long GetLong(IDispatch* object, DISPID id, long argument) {
  Variant value;
  return SUCCEEDED(Get(object, id, &value, {LongValue(argument)})) && value.vt == VT_I4 ? value.lVal : -12345;
}

bool GetBool(IDispatch* object, DISPID id) {
  Variant value;
  return SUCCEEDED(Get(object, id, &value)) && value.vt == VT_BOOL && value.boolVal != VARIANT_FALSE;
}

std::wstring GetText(IDispatch* object, DISPID id) {
  Variant value;
  if (!object || FAILED(Get(object, id, &value)) || value.vt != VT_BSTR) return L"<no text>";
  return std::wstring(value.bstrVal, SysStringLen(value.bstrVal));
}

ComRef<IDispatch> GetObject(IDispatch* object, DISPID id) {
  Variant value;
  if (FAILED(Get(object, id, &value)) || value.vt != VT_DISPATCH) return nullptr;
  return ComRef<IDispatch>(value.pdispVal);
}

ComRef<IDispatch> GetObject(IDispatch* object, DISPID id, long argument) {
  Variant value;
  if (FAILED(Get(object, id, &value, {LongValue(argument)})) || value.vt != VT_DISPATCH) return nullptr;
  return ComRef<IDispatch>(value.pdispVal);
}

const ITEMIDLIST* GetPidl(IDispatch* object, DISPID id) {
  Variant value;
  if (FAILED(Get(object, id, &value)) || value.vt != VT_R8) return nullptr;
  return reinterpret_cast<const ITEMIDLIST*>(static_cast<LONG_PTR>(value.dblVal));
}

HRESULT CallMethod(IDispatch* object, DISPID id, std::vector<VARIANT> arguments, VARIANT* result) {
  std::vector<VARIANT> reversed(arguments.rbegin(), arguments.rend());
  DISPPARAMS params = {reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
  return object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &params, result, nullptr,
                        nullptr);
}

// The least that an in-place control asks of its container.
class Hosted::Site final : public IOleClientSite, public IOleInPlaceSite {
 public:
  explicit Site(HWND frame) : frame_(frame) {}

  STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
    *object = nullptr;
    if (IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IOleClientSite)) {
      *object = static_cast<IOleClientSite*>(this);
    } else if (IsEqualIID(iid, IID_IOleInPlaceSite) || IsEqualIID(iid, IID_IOleWindow)) {
      *object = static_cast<IOleInPlaceSite*>(this);
    }
    if (!*object) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
  STDMETHODIMP_(ULONG) Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }
  STDMETHODIMP SaveObject() override { return S_OK; }
  STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
  STDMETHODIMP GetContainer(IOleContainer**) override { return E_NOINTERFACE; }
  STDMETHODIMP ShowObject() override { return S_OK; }
  STDMETHODIMP OnShowWindow(BOOL) override { return S_OK; }
  STDMETHODIMP RequestNewObjectLayout() override { return E_NOTIMPL; }
  STDMETHODIMP GetWindow(HWND* window) override {
    *window = frame_;
    return S_OK;
  }
  STDMETHODIMP ContextSensitiveHelp(BOOL) override { return S_OK; }
  STDMETHODIMP CanInPlaceActivate() override { return S_OK; }
  STDMETHODIMP OnInPlaceActivate() override { return S_OK; }
  STDMETHODIMP OnUIActivate() override { return S_OK; }
  STDMETHODIMP GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, LPRECT position,
                                LPRECT clip, LPOLEINPLACEFRAMEINFO info) override {
    *frame = nullptr;
    *document = nullptr;
    GetClientRect(frame_, position);
    *clip = *position;
    info->fMDIApp = FALSE;
    info->hwndFrame = frame_;
    info->haccel = nullptr;
    info->cAccelEntries = 0;
    return S_OK;
  }
  STDMETHODIMP Scroll(SIZE) override { return S_OK; }
  STDMETHODIMP OnUIDeactivate(BOOL) override { return S_OK; }
  STDMETHODIMP OnInPlaceDeactivate() override { return S_OK; }
  STDMETHODIMP DiscardUndoState() override { return S_OK; }
  STDMETHODIMP DeactivateAndUndo() override { return S_OK; }
  STDMETHODIMP OnPosRectChange(LPCRECT) override { return S_OK; }

 private:
  ~Site() = default;
  ULONG references_ = 1;
  HWND frame_;
};

Hosted::Hosted(const ControlKind& kind, const HostedOptions& options) {
  OleInitialize(nullptr);
  frame_ = CreateWindowExW(0, L"STATIC", L"container", WS_POPUP | WS_CLIPCHILDREN, 20, 20, options.size.cx,
                           options.size.cy, nullptr, nullptr, nullptr, nullptr);
  // An activated window is left to the window manager; where there is none, destroying it takes seconds.
  ShowWindow(frame_, SW_SHOWNOACTIVATE);
  log_ = new EventLog;
  if (FAILED(CreateFromModule(kind, unknown_.put()))) return;
  unknown_->QueryInterface(kind.dispatchId, dispatch_.put_void());
  if (options.connectEvents) {
    const ComRef<IConnectionPointContainer> points =
        unknown_.As<IConnectionPointContainer>(IID_IConnectionPointContainer);
    if (points && SUCCEEDED(points->FindConnectionPoint(kind.eventsId, point_.put())))
      point_->Advise(log_, &cookie_);
  }
  ole_ = unknown_.As<IOleObject>(IID_IOleObject);
  const ComRef<Site> site = ComRef<Site>::Attach(new Site(frame_));
  ole_->SetClientSite(site.get());
  const ComRef<IPersistStreamInit> persist = unknown_.As<IPersistStreamInit>(IID_IPersistStreamInit);
  persist->InitNew();
  inPlace_ = unknown_.As<IOleInPlaceObject>(IID_IOleInPlaceObject);
  RECT rect;
  GetClientRect(frame_, &rect);
  ole_->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, site.get(), 0, frame_, &rect);
}

Hosted::~Hosted() {
  Close();
  log_->Release();
  OleUninitialize();
}

void Hosted::Close() {
  if (!unknown_) return;
  if (point_ && cookie_) point_->Unadvise(cookie_);
  point_.reset();
  if (inPlace_) inPlace_->InPlaceDeactivate();
  inPlace_.reset();
  ole_->Close(OLECLOSE_NOSAVE);
  ole_->SetClientSite(nullptr);
  ole_.reset();
  dispatch_.reset();
  unknown_.reset();
  DestroyWindow(frame_);
}

HWND Hosted::window() const {
  HWND window = nullptr;
  if (inPlace_) inPlace_->GetWindow(&window);
  return window;
}

void Hosted::Go(const std::wstring& path) {
  LPITEMIDLIST pidl = nullptr;
  SHParseDisplayName(path.c_str(), nullptr, &pidl, 0, nullptr);
  PutPidl(dispatch_.get(), 21, pidl);
  CoTaskMemFree(pidl);
}

bool Hosted::GoAndWait(const std::wstring& path) {
  const int before = log_->Count(17);
  Go(path);
  return WaitUntil([&] { return log_->Count(17) > before; });
}

HWND Hosted::list() const {
  return reinterpret_cast<HWND>(static_cast<LONG_PTR>(GetLong(dispatch_.get(), 26)));
}

std::wstring ListText(HWND list, int row, int column) {
  wchar_t text[1024] = L"";
  LVITEMW item = {};
  item.iSubItem = column;
  item.pszText = text;
  item.cchTextMax = 1024;
  SendMessageW(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
  return text;
}

std::wstring Hosted::CellText(int row, int column) const {
  return ListText(list(), row, column);
}

std::vector<std::wstring> Hosted::Names() const {
  std::vector<std::wstring> names;
  const long count = GetLong(dispatch_.get(), 52);
  for (long row = 0; row < count; ++row) names.push_back(CellText(static_cast<int>(row), 0));
  return names;
}

int Hosted::RowOf(const std::wstring& name) const {
  const auto names = Names();
  for (size_t row = 0; row < names.size(); ++row) {
    if (names[row] == name) return static_cast<int>(row);
  }
  return -1;
}

}  // namespace controls_test
