#include "serve/waiting_room.h"

#include <sys/socket.h>

namespace mac_model {

namespace {

/// Ends the wait of the thread that reads from it; that thread closes it.
void hangUp(int socket) { ::shutdown(socket, SHUT_RDWR); }

} // namespace

void WaitingRoom::enter(int socket) {
    std::lock_guard lock(mutex_);
    if (isClosed_) return hangUp(socket);
    waiting_.push_back({std::this_thread::get_id(), socket});
    if (waiting_.size() <= placesMax) return;
    hangUp(waiting_.front().socket);
    waiting_.pop_front();
}

void WaitingRoom::leave() {
    std::lock_guard lock(mutex_);
    std::erase_if(waiting_,
                  [](const Waiting& waiting) { return waiting.thread == std::this_thread::get_id(); });
}

void WaitingRoom::close() {
    std::lock_guard lock(mutex_);
    isClosed_ = true;
    for (const auto& waiting : waiting_) hangUp(waiting.socket);
}

} // namespace mac_model
