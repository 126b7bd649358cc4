#include "src/framework/com/com_object.h"

#include <ocidl.h>
#include <olectl.h>

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

HRESULT AdviseConnection::Connect(IUnknown* source, REFIID eventInterface, IUnknown* sink) {
  Disconnect();
  const auto container = QueryFor<IConnectionPointContainer>(source);
  if (!container) return E_NOINTERFACE;
  ComPtr<IConnectionPoint> point;
  HRESULT result = container->FindConnectionPoint(eventInterface, point.ReleaseAndGetAddressOf());
  if (FAILED(result)) return result;
  if (!point) return CONNECT_E_NOCONNECTION;
  result = point->Advise(sink, &cookie_);
  if (SUCCEEDED(result)) point_ = point;
  return result;
}

void AdviseConnection::Disconnect() noexcept {
  if (!point_) return;
  // Emptied first: the source may run code of ours while it lets the sink go.
  ComPtr<IUnknown> point;
  point.Swap(point_);
  static_cast<IConnectionPoint*>(point.Get())->Unadvise(std::exchange(cookie_, 0));
}

}  // namespace file_explorer
