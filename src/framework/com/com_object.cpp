#include "src/framework/com/com_object.h"

#include <ocidl.h>
#include <olectl.h>

#include "src/framework/com/com_guard.h"

namespace file_explorer {
namespace {

LONG liveObjects = 0;

}  // namespace

LONG LiveComObjects() noexcept {
  return InterlockedCompareExchange(&liveObjects, 0, 0);
}

void com_detail::CountObject(LONG change) noexcept {
  InterlockedExchangeAdd(&liveObjects, change);
}

void* FindInterface(void* object, std::span<const InterfaceEntry> entries, REFIID iid) noexcept {
  for (const InterfaceEntry& entry : entries) {
    if (IsEqualIID(*entry.iid, iid)) return entry.cast(object);
  }
  return nullptr;
}

namespace {

HRESULT Advise(IUnknown* source, REFIID eventInterface, IUnknown* sink, ComPtr<IConnectionPoint>& point,
               DWORD* cookie) {
  const auto container = QueryFor<IConnectionPointContainer>(source);
  if (!container) return E_NOINTERFACE;
  const HRESULT found = container->FindConnectionPoint(eventInterface, point.ReleaseAndGetAddressOf());
  if (FAILED(found)) return found;
  return point ? point->Advise(sink, cookie) : CONNECT_E_NOCONNECTION;
}

}  // namespace

HRESULT AdviseConnection::Connect(IUnknown* source, REFIID eventInterface, IUnknown* sink) {
  Disconnect();
  ComPtr<IConnectionPoint> point;
  HRESULT result = E_FAIL;
  const bool completed =
      RunForeignCode([&] { result = Advise(source, eventInterface, sink, point, &cookie_); });
  if (!completed) return E_FAIL;
  if (SUCCEEDED(result)) point_ = point;
  return result;
}

void AdviseConnection::Disconnect() noexcept {
  // Emptied first: the source may run code of ours while it lets the sink go.
  ComPtr<IUnknown> point;
  point.Swap(point_);
  if (!point) return;
  const DWORD cookie = std::exchange(cookie_, 0);
  RunForeignCode([&] { static_cast<IConnectionPoint*>(point.Get())->Unadvise(cookie); });
}

}  // namespace file_explorer
