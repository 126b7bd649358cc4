#include "tests/support/scripted_control.h"

#include <olectl.h>

#include <algorithm>
#include <array>
#include <stdexcept>

#include "src/framework/com/com_text.h"

namespace test_support {
namespace {

using file_explorer::QueryFor;

constexpr DWORD kRaisedCode = 0xE0001234;

class ScriptedFactory : public IClassFactory,
                        public file_explorer::CComObjectRootEx<file_explorer::CComSingleThreadModel> {
 public:
  explicit ScriptedFactory(ScriptedClass& owner) : owner_(owner) {}
  static std::span<const file_explorer::InterfaceEntry> Interfaces() {
    static constexpr std::array kEntries = {
        file_explorer::Exposes<ScriptedFactory, IUnknown, IClassFactory>(IID_IUnknown),
        file_explorer::Exposes<ScriptedFactory, IClassFactory>(IID_IClassFactory)};
    return kEntries;
  }
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** object) override {
    if (outer) return CLASS_E_NOAGGREGATION;
    owner_.log.push_back("CreateInstance");
    const auto fault = owner_.script.faults.find("CreateInstance");
    if (fault != owner_.script.faults.end()) return E_OUTOFMEMORY;
    ComPtr<IOleObject> control(new ScriptedControl(owner_));
    return control->QueryInterface(iid, object);
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

 protected:
  virtual ~ScriptedFactory() = default;

 private:
  ScriptedClass& owner_;
};

std::string Describe(const VARIANT& value) {
  switch (value.vt) {
    case VT_BOOL:
      return "bool " + std::to_string(value.boolVal);
    case VT_I2:
      return "short " + std::to_string(value.iVal);
    case VT_I4:
      return "int " + std::to_string(value.lVal);
    case VT_R8:
      return "double";
    case VT_BSTR:
      return "text " + file_explorer::DisplayBstr(value.bstrVal).value_or("");
    case VT_DISPATCH:
      return value.pdispVal ? "object" : "null object";
    default:
      return "type " + std::to_string(value.vt);
  }
}

std::string Describe(const RECT& rect) {
  return std::to_string(rect.left) + "," + std::to_string(rect.top) + "," + std::to_string(rect.right) + "," +
         std::to_string(rect.bottom);
}

}  // namespace

std::string DescribeCall(DISPID id, WORD flags, const DISPPARAMS* parameters) {
  std::string arguments;
  for (UINT left = parameters->cArgs; left > 0; --left) {
    if (!arguments.empty()) arguments += ", ";
    arguments += Describe(parameters->rgvarg[left - 1]);
  }
  const std::string number = std::to_string(id);
  if (flags & DISPATCH_PROPERTYPUTREF) return "putref " + number + " " + arguments;
  if (flags & DISPATCH_PROPERTYPUT) return "put " + number + " " + arguments;
  if (flags & DISPATCH_PROPERTYGET) return "get " + number + (arguments.empty() ? "" : "(" + arguments + ")");
  return "method " + number + "(" + arguments + ")";
}

// ---- ScriptedClass
// ---------------------------------------------------------------------------------------------

ScriptedClass::ScriptedClass(const CLSID& classId, ControlScript controlScript)
    : script(std::move(controlScript)) {
  factory_ = file_explorer::CComObject<ScriptedFactory>::New(*this);
  const HRESULT result = CoRegisterClassObject(classId, factory_.Get(), CLSCTX_INPROC_SERVER,
                                               REGCLS_MULTIPLEUSE, &registration_);
  if (FAILED(result)) throw std::runtime_error("cannot register a scripted control");
}

ScriptedClass::~ScriptedClass() {
  CoRevokeClassObject(registration_);
}

std::vector<std::string> ScriptedClass::LogOf(const std::set<std::string>& words) const {
  std::vector<std::string> result;
  for (const std::string& line : log) {
    if (words.count(line.substr(0, line.find_first_of(" (")))) result.push_back(line);
  }
  return result;
}

// ---- ScriptedControl
// -------------------------------------------------------------------------------------------

ScriptedControl::ScriptedControl(ScriptedClass& owner) : owner_(owner) {
  owner_.control = this;
  ++owner_.created;
  ++owner_.alive;
}

ScriptedControl::~ScriptedControl() {
  if (window_) DestroyWindow(window_);
  if (owner_.control == this) owner_.control = nullptr;
  --owner_.alive;
  owner_.log.push_back("destroyed");
}

HRESULT ScriptedControl::Step(const std::string& call, const std::string& details) {
  owner_.log.push_back(details.empty() ? call : call + "(" + details + ")");
  const auto fault = owner_.script.faults.find(call);
  if (fault == owner_.script.faults.end()) return S_OK;
  if (fault->second == Fault::kThrows) throw std::runtime_error(call);
  if (fault->second == Fault::kRaises) RaiseException(kRaisedCode, 0, 0, nullptr);
  return E_FAIL;
}

void* ScriptedControl::Find(REFIID iid) {
  using T = ScriptedControl;
  using file_explorer::Exposes;
  static const std::array kEntries = {
      Exposes<T, IUnknown, IOleObject>(IID_IUnknown),
      Exposes<T, IOleObject>(IID_IOleObject),
      Exposes<T, IViewObject>(IID_IViewObject),
      Exposes<T, IOleWindow, IOleInPlaceObjectWindowless>(IID_IOleWindow),
      Exposes<T, IOleInPlaceObject, IOleInPlaceObjectWindowless>(IID_IOleInPlaceObject),
      Exposes<T, IOleInPlaceObjectWindowless>(IID_IOleInPlaceObjectWindowless),
      Exposes<T, IOleControl>(IID_IOleControl),
      Exposes<T, IPersist, IPersistStreamInit>(IID_IPersist),
      Exposes<T, IPersistStreamInit>(IID_IPersistStreamInit),
      Exposes<T, IPersistStream>(IID_IPersistStream),
      Exposes<T, IPersistPropertyBag>(IID_IPersistPropertyBag),
      Exposes<T, IConnectionPointContainer>(IID_IConnectionPointContainer),
      Exposes<T, IConnectionPoint>(IID_IConnectionPoint),
      Exposes<T, IDispatch>(IID_IDispatch),
  };
  const auto& missing = owner_.script.missing;
  if (std::any_of(missing.begin(), missing.end(), [&](const IID& id) { return IsEqualIID(id, iid); }))
    return nullptr;
  if (IsEqualIID(iid, owner_.script.dispatchId)) return static_cast<IDispatch*>(this);
  return file_explorer::FindInterface(this, kEntries, iid);
}

HRESULT ScriptedControl::QueryInterface(REFIID iid, void** object) {
  *object = Find(iid);
  if (!*object) return E_NOINTERFACE;
  AddRef();
  return S_OK;
}

ULONG ScriptedControl::AddRef() {
  return static_cast<ULONG>(++references_);
}

ULONG ScriptedControl::Release() {
  const LONG left = --references_;
  if (left == 0) delete this;
  return static_cast<ULONG>(left);
}

HRESULT ScriptedControl::SetClientSite(IOleClientSite* site) {
  const HRESULT result = Step("SetClientSite", site ? "site" : "null");
  if (SUCCEEDED(result)) clientSite_ = site;
  return result;
}

HRESULT ScriptedControl::GetClientSite(IOleClientSite** site) {
  return clientSite_.CopyTo(site);
}

HRESULT ScriptedControl::Close(DWORD option) {
  Deactivate();
  return Step("Close", std::to_string(option));
}

HRESULT ScriptedControl::DoVerb(LONG verb, LPMSG, IOleClientSite* site, LONG, HWND, LPCRECT rect) {
  const HRESULT result = Step("DoVerb", std::to_string(verb) + " in " + Describe(*rect));
  if (SUCCEEDED(result) && verb == OLEIVERB_INPLACEACTIVATE) Activate(site);
  return result;
}

// What a control does to get its window: by the book, through its site.
void ScriptedControl::Activate(IOleClientSite* site) {
  inPlaceSite_ = QueryFor<IOleInPlaceSite>(site);
  if (!inPlaceSite_ || inPlaceSite_->CanInPlaceActivate() != S_OK) return;
  if (const auto ambient = QueryFor<IDispatch>(site)) {
    for (const DISPID id : owner_.script.ambientReads) {
      file_explorer::OwnedVariant value;
      DISPPARAMS none = {};
      owner_.ambientResults[id] = ambient->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET,
                                                  &none, value.put(), nullptr, nullptr);
    }
  }
  inPlaceSite_->OnInPlaceActivate();
  HWND parent = nullptr;
  inPlaceSite_->GetWindow(&parent);
  ComPtr<IOleInPlaceFrame> frame;
  ComPtr<IOleInPlaceUIWindow> document;
  RECT position = {};
  RECT clip = {};
  OLEINPLACEFRAMEINFO info = {};
  info.cb = sizeof info;
  inPlaceSite_->GetWindowContext(frame.ReleaseAndGetAddressOf(), document.ReleaseAndGetAddressOf(), &position,
                                 &clip, &info);
  if (owner_.script.windowless) return;
  window_ = CreateWindowExA(0, "STATIC", "scripted control", WS_CHILD | WS_VISIBLE, position.left,
                            position.top, position.right - position.left, position.bottom - position.top,
                            parent, nullptr, nullptr, nullptr);
}

void ScriptedControl::Deactivate() {
  if (window_) DestroyWindow(std::exchange(window_, nullptr));
  if (ComPtr<IOleInPlaceSite> site = std::move(inPlaceSite_)) site->OnInPlaceDeactivate();
}

HRESULT ScriptedControl::GetMiscStatus(DWORD aspect, DWORD* status) {
  *status = owner_.script.miscStatus;
  return Step("GetMiscStatus", std::to_string(aspect));
}

HRESULT ScriptedControl::SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) {
  const HRESULT result = Step("SetAdvise", std::to_string(aspects) + "," + std::to_string(flags));
  if (SUCCEEDED(result)) viewSink_ = sink;
  return result;
}

HRESULT ScriptedControl::GetWindow(HWND* window) {
  *window = window_;
  return window_ ? S_OK : E_FAIL;
}

HRESULT ScriptedControl::InPlaceDeactivate() {
  const HRESULT result = Step("InPlaceDeactivate");
  Deactivate();
  return result;
}

HRESULT ScriptedControl::SetObjectRects(LPCRECT position, LPCRECT clip) {
  if (window_) {
    MoveWindow(window_, position->left, position->top, position->right - position->left,
               position->bottom - position->top, TRUE);
  }
  return Step("SetObjectRects", Describe(*position) + " clip " + Describe(*clip));
}

HRESULT ScriptedControl::OnAmbientPropertyChange(DISPID id) {
  return Step("OnAmbientPropertyChange", std::to_string(id));
}

HRESULT ScriptedControl::Load(IStream*) {
  return Step("Load", "stream");
}

HRESULT ScriptedControl::InitNew() {
  return Step("InitNew");
}

HRESULT ScriptedControl::Load(IPropertyBag* bag, IErrorLog* errors) {
  const HRESULT result = Step("Load", errors ? "bag, error log" : "bag");
  for (const std::wstring& name : owner_.script.bagReads) {
    file_explorer::OwnedVariant value;
    const HRESULT read = bag->Read(name.c_str(), value.put(), errors);
    std::wstring text;
    if (value->vt == VT_BSTR && value->bstrVal) text = value->bstrVal;
    if (value->vt == VT_I4) text = std::to_wstring(value->lVal);
    owner_.bagValues[name] = {read, text};
  }
  return result;
}

HRESULT ScriptedControl::FindConnectionPoint(REFIID iid, IConnectionPoint** point) {
  *point = nullptr;
  const HRESULT result = Step("FindConnectionPoint");
  if (FAILED(result) || !IsEqualIID(iid, owner_.script.eventId)) return CONNECT_E_NOCONNECTION;
  AddRef();
  *point = this;
  return S_OK;
}

HRESULT ScriptedControl::Advise(IUnknown* sink, DWORD* cookie) {
  const HRESULT result = Step("Advise");
  if (FAILED(result)) return result;
  sink_ = QueryFor<IDispatch>(sink, owner_.script.eventId);
  *cookie = 77;
  return sink_ ? S_OK : CONNECT_E_CANNOTCONNECT;
}

HRESULT ScriptedControl::Unadvise(DWORD cookie) {
  sink_.Reset();
  return Step("Unadvise", std::to_string(cookie));
}

// Not in the log: asking for a name does nothing to a control.
HRESULT ScriptedControl::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
  if (owner_.script.faults.count("GetIDsOfNames")) return Step("GetIDsOfNames");
  if (owner_.script.names.empty()) return E_NOTIMPL;
  const auto known = owner_.script.names.find(names[0]);
  const bool found = count == 1 && known != owner_.script.names.end();
  ids[0] = found ? known->second : DISPID_UNKNOWN;
  return found ? S_OK : DISP_E_UNKNOWNNAME;
}

HRESULT ScriptedControl::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                                EXCEPINFO*, UINT*) {
  owner_.log.push_back(DescribeCall(id, flags, parameters));
  const auto member = owner_.script.members.find(id);
  return member == owner_.script.members.end() ? S_OK : member->second(flags, parameters, result);
}

HRESULT ScriptedControl::Fire(DISPID id, const std::vector<VARIANT>& arguments) {
  if (!sink_) return E_UNEXPECTED;
  std::vector<VARIANT> reversed(arguments.rbegin(), arguments.rend());
  DISPPARAMS parameters = {reversed.empty() ? nullptr : reversed.data(), nullptr,
                           static_cast<UINT>(reversed.size()), 0};
  const ComPtr<IDispatch> sink = sink_;
  return sink->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr, nullptr,
                      nullptr);
}

// ---- ScriptedItem
// ----------------------------------------------------------------------------------------------

std::span<const file_explorer::InterfaceEntry> ScriptedItem::Interfaces() {
  static constexpr std::array kEntries = {
      file_explorer::Exposes<ScriptedItem, IUnknown, IDispatch>(IID_IUnknown),
      file_explorer::Exposes<ScriptedItem, IDispatch>(IID_IDispatch)};
  return kEntries;
}

HRESULT ScriptedItem::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                             EXCEPINFO*, UINT*) {
  log.push_back(DescribeCall(id, flags, parameters));
  if (const auto act = whenAsked) act(id);
  const auto failure = failures.find(id);
  if (failure != failures.end()) return failure->second;
  if (flags & DISPATCH_PROPERTYPUT) {
    if (id == 9) sortKey = parameters->rgvarg[0].lVal;
    if (id == 12) selected = parameters->rgvarg[0].boolVal;
    return S_OK;
  }
  if (!result) return S_OK;
  const auto text = [&](const std::wstring& value) {
    result->vt = VT_BSTR;
    result->bstrVal = file_explorer::MakeBstr(std::wstring_view(value)).release();
  };
  if (id == 1) text(name);
  if (id == 4) text(fullPath);
  if (id == 23) text(folderText);
  if (id == 9) {
    result->vt = VT_INT;
    result->lVal = sortKey;
  }
  if (id == 12) {
    result->vt = VT_BOOL;
    result->boolVal = selected;
  }
  if (id == 16) {
    result->vt = VT_DISPATCH;
    parent.CopyTo(&result->pdispVal);
  }
  if (id == 18) {
    result->vt = VT_I4;
    result->lVal = static_cast<LONG>(attributes & static_cast<ULONG>(parameters->rgvarg[0].lVal));
  }
  if (id == 21) {
    result->vt = VT_R8;
    result->dblVal = pidl;
  }
  return S_OK;
}

}  // namespace test_support
