#include "workbench/controls/com/connection_point.h"

namespace controls {

void* ConnectionPoint::Interface(REFIID iid) {
  static constexpr InterfaceRow<ConnectionPoint> kRows[] = {
      Row<ConnectionPoint, IConnectionPoint>(IID_IUnknown),
      Row<ConnectionPoint, IConnectionPoint>(IID_IConnectionPoint),
  };
  return FindInterface(kRows, this, iid);
}

STDMETHODIMP ConnectionPoint::GetConnectionInterface(IID* iid) {
  if (!iid) return E_POINTER;
  *iid = eventInterface_;
  return S_OK;
}

STDMETHODIMP ConnectionPoint::GetConnectionPointContainer(IConnectionPointContainer** container) {
  if (!container) return E_POINTER;
  *container = container_;
  if (!container_) return E_UNEXPECTED;
  container_->AddRef();
  return S_OK;
}

STDMETHODIMP ConnectionPoint::Advise(IUnknown* sink, DWORD* cookie) {
  if (!sink || !cookie) return E_POINTER;
  *cookie = 0;
  return Guarded([&] {
    ComRef<IDispatch> dispatch;
    if (FAILED(sink->QueryInterface(eventInterface_, dispatch.put_void())) &&
        FAILED(sink->QueryInterface(IID_IDispatch, dispatch.put_void()))) {
      return static_cast<HRESULT>(CONNECT_E_CANNOTCONNECT);
    }
    *cookie = nextCookie_++;
    sinks_.emplace(*cookie, std::move(dispatch));
    return S_OK;
  });
}

STDMETHODIMP ConnectionPoint::Unadvise(DWORD cookie) {
  return sinks_.erase(cookie) != 0 ? S_OK : static_cast<HRESULT>(CONNECT_E_NOCONNECTION);
}

STDMETHODIMP ConnectionPoint::EnumConnections(IEnumConnections** connections) {
  if (!connections) return E_POINTER;
  *connections = nullptr;
  return Guarded([&] {
    std::vector<KeptConnection> kept;
    for (const auto& [cookie, sink] : sinks_) kept.push_back({cookie, ComRef<IUnknown>(sink.get())});
    *connections = ComObject<ConnectionEnumerator>::Create(IID_IEnumConnections, std::move(kept)).detach();
    return S_OK;
  });
}

void ConnectionPoint::Fire(DISPID event, VARIANT* arguments, UINT count) {
  if (sinks_.empty()) return;
  DISPPARAMS params = {arguments, nullptr, count, 0};
  // With one sink, the usual case, no list is copied: this runs for each item of a folder.
  if (sinks_.size() == 1) {
    const ComRef<IDispatch> sink = sinks_.begin()->second;
    sink->Invoke(event, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &params, nullptr, nullptr, nullptr);
    return;
  }
  std::vector<ComRef<IDispatch>> sinks;
  for (const auto& [cookie, sink] : sinks_) sinks.push_back(sink);
  for (const ComRef<IDispatch>& sink : sinks) {
    sink->Invoke(event, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &params, nullptr, nullptr, nullptr);
  }
}

void ConnectionPoint::Disconnect() {
  container_ = nullptr;
  sinks_.clear();
}

}  // namespace controls
