// Both ends of a link between two controls.
#pragma once

#include <functional>
#include <vector>

#include "workbench/controls/com/com_object.h"
#include "workbench/controls/shell/location.h"
#include "workbench/controls/shell/location_peer.h"

namespace controls {

// The sinks of one control.
class LocationSource {
 public:
  void Add(ILocationSink* sink) { sinks_.emplace_back(sink); }
  void Remove(ILocationSink* sink);
  void Announce(const Location& location);
  // Tells everybody that the control closes, and forgets them.
  void AnnounceClosing();

 private:
  std::vector<ComRef<ILocationSink>> sinks_;
};

void TellLocation(ILocationSink& sink, const Location& location);
Location LocationFromCall(const wchar_t* path, const ITEMIDLIST* pidl, UINT archiveLength);

// The end that follows: holds one reference to a peer and hears about its moves. The peer in turn only holds
// a small object of this link, so two linked controls never keep each other alive.
class LocationLink {
 public:
  using Moved = std::function<void(const Location&)>;

  explicit LocationLink(Moved moved) : moved_(std::move(moved)) {}
  ~LocationLink() { Disconnect(); }
  LocationLink(const LocationLink&) = delete;
  LocationLink& operator=(const LocationLink&) = delete;

  // Follows object from now on and hears its present place at once. Null unlinks. False when the object is no control of
  // this kind; nothing changes then. (A control that followed one of its own kind could end up following itself.)
  bool Connect(IUnknown* object, PeerKind kind);
  // The same for a control that nobody can follow: any peer will do.
  bool Connect(IUnknown* object);
  void Disconnect();
  bool connected() const { return static_cast<bool>(peer_); }
  ILocationPeer* peer() const { return peer_.get(); }
  // Asks the peer to go to a place; false without a peer.
  bool GoTo(const Location& location);

 private:
  class Sink;
  static bool IsKind(ILocationPeer& peer, PeerKind kind);
  Moved moved_;
  ComRef<ILocationPeer> peer_;
  ComRef<ILocationSink> sinkReference_;
  Sink* sink_ = nullptr;  // the same object
};

}  // namespace controls
