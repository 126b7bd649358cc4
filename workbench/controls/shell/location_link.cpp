#include "workbench/controls/shell/location_link.h"

#include <algorithm>

namespace controls {

void LocationSource::Remove(ILocationSink* sink) {
  std::erase_if(sinks_, [sink](const ComRef<ILocationSink>& each) { return each.get() == sink; });
}

void LocationSource::Announce(const Location& location) {
  const auto sinks = sinks_;
  for (const ComRef<ILocationSink>& sink : sinks) TellLocation(*sink.get(), location);
}

void LocationSource::AnnounceClosing() {
  const auto sinks = std::move(sinks_);
  sinks_.clear();
  for (const ComRef<ILocationSink>& sink : sinks) sink->PeerClosing();
}

void TellLocation(ILocationSink& sink, const Location& location) {
  if (!location.empty()) {
    sink.LocationChanged(location.path().c_str(), location.pidl(),
                         static_cast<UINT>(location.archiveLength()));
  }
}

Location LocationFromCall(const wchar_t* path, const ITEMIDLIST* pidl, UINT archiveLength) {
  if (path && *path) return Location::FromPath(path, archiveLength);
  return Location::FromPidl(pidl);
}

class LocationLink::Sink : public ILocationSink {
 public:
  void* Interface(REFIID iid) {
    if (IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, kIidLocationSink))
      return static_cast<ILocationSink*>(this);
    return nullptr;
  }
  STDMETHODIMP LocationChanged(const wchar_t* path, const ITEMIDLIST* pidl, UINT archiveLength) override {
    return Guarded([&] {
      if (link_) link_->moved_(LocationFromCall(path, pidl, archiveLength));
      return S_OK;
    });
  }
  STDMETHODIMP PeerClosing() override {
    return Guarded([&] {
      if (link_) link_->Disconnect();
      return S_OK;
    });
  }
  void Forget() { link_ = nullptr; }

 protected:
  explicit Sink(LocationLink* link) : link_(link) {}
  virtual ~Sink() = default;

 private:
  LocationLink* link_;
};

bool LocationLink::IsKind(ILocationPeer& peer, PeerKind kind) {
  PeerKind its = kind;
  return SUCCEEDED(peer.GetKind(&its)) && its == kind;
}

bool LocationLink::Connect(IUnknown* object, PeerKind kind) {
  ComRef<ILocationPeer> peer;
  if (object && FAILED(object->QueryInterface(kIidLocationPeer, peer.put_void()))) return false;
  return (!peer || IsKind(*peer.get(), kind)) && Connect(object);
}

bool LocationLink::Connect(IUnknown* object) {
  ComRef<ILocationPeer> peer;
  if (object && FAILED(object->QueryInterface(kIidLocationPeer, peer.put_void()))) return false;
  Disconnect();
  if (!peer) return true;
  peer_ = std::move(peer);
  const ComRef<ComObject<Sink>> sink = ComObject<Sink>::Create(this);
  sink_ = sink.get();
  sinkReference_ = ComRef<ILocationSink>(sink.get());
  peer_->AdviseLocation(sink.get());
  peer_->TellLocation(sink.get());
  return true;
}

void LocationLink::Disconnect() {
  const ComRef<ILocationPeer> peer = std::move(peer_);
  const ComRef<ILocationSink> sink = std::move(sinkReference_);
  if (sink_) sink_->Forget();
  sink_ = nullptr;
  if (peer) peer->UnadviseLocation(sink.get());
}

bool LocationLink::GoTo(const Location& location) {
  // The peer may close this link while it moves.
  const ComRef<ILocationPeer> peer = peer_;
  return peer && SUCCEEDED(peer->GoTo(location.path().c_str(), location.pidl(),
                                      static_cast<UINT>(location.archiveLength())));
}

}  // namespace controls
