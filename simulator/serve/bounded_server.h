#pragma once

#include "serve/waiting_room.h"

#include <httplib.h>

namespace mac_model {

/// The library's server with bounds on what a connection may take: one request each, its time and size
/// limited however it arrives, and silent connections give way to others.
class BoundedServer : public httplib::Server {
  public:
    BoundedServer();

    /// Call it once the port is bound: the library lets only five connections wait to be taken, and the
    /// system tries again only after a second.
    void growQueue();

    /// Call it first in each handler that takes its time, on the connection's thread: the request is there
    /// whole, and its connection no longer gives way.
    void requestIsRead() { waiting_.leave(); }

    /// Ends the wait for requests, and for all that come. Any thread.
    void hangUpOnWaiting() { waiting_.close(); }

  private:
    bool process_and_close_socket(socket_t) override;

    WaitingRoom waiting_;
};

} // namespace mac_model
