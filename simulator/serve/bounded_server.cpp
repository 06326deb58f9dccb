#include "serve/bounded_server.h"

#include "serve/broadcast.h"
#include "serve/connection.h"

#include <sys/socket.h>
#include <unistd.h>

namespace mac_model {

namespace {

/// There is always one to take another connection: streams and silent connections can't hold them all.
constexpr std::size_t threads = WaitingRoom::placesMax + Broadcast::listenersMax + 16;

/// Answers go no further than this computer, so that packing them would only take time. The library would cut
/// ranges out of any answer, a refusal too.
void askForPlainAnswer(httplib::Request& request) {
    request.headers.erase("Accept-Encoding");
    request.ranges.clear();
}

} // namespace

BoundedServer::BoundedServer() {
    new_task_queue = [] { return new httplib::ThreadPool(threads); };
    set_tcp_nodelay(true);
}

void BoundedServer::growQueue() {
    constexpr int queueLength = 256;
    ::listen(svr_sock_, queueLength);
}

bool BoundedServer::process_and_close_socket(socket_t socket) {
    waiting_.enter(socket);
    Connection connection(socket);
    bool isClosed = false;
    const bool isAnswered = process_request(connection, true, isClosed, askForPlainAnswer);
    waiting_.leave();
    waiting_.enter(socket); // a client that doesn't take leave gives way to others as well
    if (isAnswered) connection.part();
    waiting_.leave();
    ::close(socket);
    return isAnswered;
}

} // namespace mac_model
